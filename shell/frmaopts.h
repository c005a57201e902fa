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

/// The form of the preferences of the user who is logged on. OK stores the preferences that were changed, as the user's
/// own. When one of them cannot be stored, the form stays open and says so. Cancel stores nothing. A stored hour that
/// the lists do not offer is shown as no choice, and it stays as it is unless the user chooses another one.
class frmaopts : public EditorDialog {
    Q_OBJECT

  public:
    /// OK calls `refreshView`, which gives the open view its new interval, hours and 24-hour flag and reloads it.
    explicit frmaopts(std::function<void()> refreshView, QWidget* parent = nullptr);

    QComboBox* cbostart = nullptr;
    QComboBox* cboend = nullptr;
    QButtonGroup* optunits = nullptr;        ///< The ids are minutes; the buttons are optunits0 to optunits4.
    QButtonGroup* opttime = nullptr;         ///< The ids are 12 and 24; the buttons are opttime0 and opttime1.
    QButtonGroup* optdisplaycols = nullptr;  ///< The ids are 7 and 5; the buttons are optdisplaycols0 and 1.
    QSpinBox* tctcols = nullptr;
    QSpinBox* txtvisit = nullptr;  ///< The length of a new visit in minutes; 0 stands for a row of the calendar.
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
    /// Returns the text of txtemail without control characters.
    [[nodiscard]] QString reminderText() const;
    /// Puts the entered preferences into the session, where they hold until it ends even if storing them fails.
    void takeOver() const;
    /// Stores a preference that differs from the value the form last showed or stored. Returns false when that fails.
    [[nodiscard]] bool store(const Preference& preference);

    std::function<void()> refreshView_;
    std::map<std::string_view, QString> held_;  ///< By detail, the value last shown or stored.
};
