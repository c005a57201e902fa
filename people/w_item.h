#pragma once

#include "session/editordialog.h"

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class ctDEdit;

/// One task of a provider, a new one where the session's CurrentTaskId is -1, else the one of that key. OK stores it
/// and accepts the form; a failure is told and leaves what was typed for another attempt. The task list is the caller's
/// to reload.
class w_Item : public EditorDialog {
    Q_OBJECT

  public:
    explicit w_Item(QWidget* parent = nullptr);

    QLineEdit* txtTaskDesc = nullptr;
    QPlainTextEdit* txtnotes = nullptr;
    ctDEdit* ctDEditComp = nullptr;  ///< When the task is due; may stay empty.
    QRadioButton* Option4 = nullptr;
    QRadioButton* Option3 = nullptr;
    QRadioButton* Option2 = nullptr;
    QRadioButton* option1 = nullptr;
    QLabel* lbldate = nullptr;  ///< When it was entered.
    QPushButton* btnOK = nullptr;
    QPushButton* btnCancel = nullptr;

  private:
    void buildForm();
    void layOutForm();
    void loadTask();
    [[nodiscard]] bool isNew() const;
    [[nodiscard]] int priority() const;
    [[nodiscard]] QString notes() const;
    void btnOK_Click();
    /// Both answer whether the task is stored.
    [[nodiscard]] bool addTask() const;
    [[nodiscard]] bool changeTask() const;
};
