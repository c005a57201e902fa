#pragma once

#include <functional>
#include <optional>
#include <QDialog>

#include "data/upkeep/newpractice.h"

class FirstUserFields;
class QCommandLinkButton;
class QLabel;
class QPushButton;
class QStackedWidget;
class TextField;

/// The window that a user sees who starts the program where there is no practice yet. It offers the demo practice, a
/// practice of one desk, and the practice's server, and makes what the user chooses.
class frmfirststart : public QDialog {
    Q_OBJECT

  public:
    enum class Choice { None, Demo, OneDesk, Server };
    using Ask = std::function<upkeep::ServerAnswer(const upkeep::ServerPlace&)>;

    /// `folder` is the data folder to be made, `key` the scramble key of its passwords. `ask` runs on another thread.
    explicit frmfirststart(const QString& folder, int key, Ask ask = upkeep::AskServer, QWidget* parent = nullptr);

    /// What was chosen and, but for the demo practice, made.
    [[nodiscard]] Choice Chosen() const { return chosen_; }

    QStackedWidget* pages;
    QCommandLinkButton* cmddemo;
    QCommandLinkButton* cmddesk;
    QCommandLinkButton* cmdserver;
    FirstUserFields* deskUser;
    TextField* txtserver;
    TextField* txtdatabase;
    TextField* txtsvs;
    TextField* txtfh;
    QLabel* lblanswer;
    FirstUserFields* serverUser;
    QPushButton* cmdback;
    QPushButton* cmdOk;
    QPushButton* cmdcancel;

  private:
    void buildForm();
    QWidget* buildChoicePage();
    QWidget* buildDeskPage();
    QWidget* buildServerPage();
    QCommandLinkButton* choiceButton(const char* name, const char* icon, const QString& text,
                                     const QString& description);
    void showPage(Choice choice);
    void enableOk();
    [[nodiscard]] upkeep::ServerPlace place() const;
    /// Asks the server, some moments after the last letter was typed.
    void askSoon();
    void askNow();
    void showAnswer(const upkeep::ServerAnswer& answer);
    [[nodiscard]] bool needsFirstUser() const;
    void cmdOk_Click();
    [[nodiscard]] bool make();

    QString folder_;
    int key_;
    Ask ask_;
    Choice chosen_ = Choice::None;
    Choice page_ = Choice::None;
    int asked_ = 0;  ///< The number of the question whose answer is awaited; others are dropped.
    std::optional<upkeep::ServerAnswer> answer_;
};
