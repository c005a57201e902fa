#pragma once

#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "session/editordialog.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

/// The preferences of the user logged on. OK stores those that were changed as the user's own; Cancel stores nothing. A
/// stored hour that the lists do not offer shows as no choice and stays as it is unless another one is chosen.
class frmaopts : public EditorDialog {
    Q_OBJECT

  public:
    /// `refreshView` gives the open view its new interval, hours and 24-hour flag and reloads it.
    explicit frmaopts(std::function<void()> refreshView, QWidget* parent = nullptr);

    QComboBox* cbostart = nullptr;
    QComboBox* cboend = nullptr;
    QButtonGroup* optunits = nullptr;        ///< Button ids are minutes; the buttons are named optunits0 to optunits4.
    QButtonGroup* opttime = nullptr;         ///< Button ids 12 and 24; opttime0 and opttime1.
    QButtonGroup* optdisplaycols = nullptr;  ///< Button ids 7 and 5; optdisplaycols0 and optdisplaycols1.
    QSpinBox* tctcols = nullptr;
    QCheckBox* cknonprime = nullptr;
    QCheckBox* cktasks = nullptr;
    QCheckBox* cksound = nullptr;
    QPlainTextEdit* txtemail = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;

  private:
    void buildForm();
    QWidget* buildHours();
    QWidget* buildInterval();
    QWidget* buildColumns();
    QWidget* buildBehaviour();
    QWidget* buildReminder();
    void loadPreferences();
    void cmdOk_Click();
    struct Preference {
        std::string_view detail;
        QString value;
        std::string_view category = "SchedulerGeneral";
    };
    [[nodiscard]] std::vector<Preference> entered() const;
    /// What stands in txtemail, without control characters.
    [[nodiscard]] QString reminderText() const;
    /// What is entered holds for the session from now on, stored or not.
    void takeOver() const;
    /// Whether what was entered is what is stored, as far as this form knows.
    [[nodiscard]] bool store(const Preference& preference);

    std::function<void()> refreshView_;
    std::map<std::string_view, QString> held_;  ///< As the form showed or stored them.
};
