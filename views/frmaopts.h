#pragma once

#include <functional>
#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;

/// The preferences of the user logged on. OK stores each as the user's own; Cancel stores nothing. A stored hour that
/// the lists do not offer shows as no choice and stays as it is unless another one is chosen.
class frmaopts : public QDialog {
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
    /// Counts the preferences that could not be stored.
    void save(const QString& value, const char* detail, const char* category = "SchedulerGeneral");
    void saveGeneral();
    void saveHours();

    std::function<void()> refreshView_;
    int notStored_ = 0;
};
