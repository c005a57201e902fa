#pragma once

#include <QDateTime>
#include <QDialog>
#include <QTimer>

#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"

class QCheckBox;
class QLabel;
class QPushButton;

/// The logon. It leaves the user in the session values (UID, UserType, UserName, ScreenAccess, AllProviders,
/// NotesAccess); an empty UID means that the user cancelled or that there is nobody to log on. Who has no access to the
/// scheduler is not refused here, and may read.
///
/// The box ckpassword tells whether this computer remembers the password. That is a setting of the whole practice
/// (recallpw), so the box is there only where the practice remembers passwords, and nobody ticks it by hand.
///
/// After five wrong passwords each further try waits, twice as long as the one before, and goes to the audit log.
class frmsvspl : public QDialog {
    Q_OBJECT

  public:
    explicit frmsvspl(QWidget* parent = nullptr);

    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void buildForm();
    void loadPasswords();
    void loadRememberedUser();
    void cmdOk_Click();
    void enableOk();
    /// Shows a message and lets the user begin again.
    void refuse(const QString& text, const QString& title);
    void countWrongPassword(const QString& userId);
    /// Says how long the next try has to wait, until it may.
    void tellWaiting();
    [[nodiscard]] int secondsToWait() const;
    [[nodiscard]] bool findUser();
    void takeUser();
    void rememberUser() const;

    db::Recordset passwords_;
    bool recallPassword_ = false;
    int wrongPasswords_ = 0;
    int wait_ = 0;  ///< Seconds between the last wrong password and the next try.
    QDateTime waitsUntil_;
    QTimer waiting_;
    QLabel* lblwait = nullptr;
    TextField* txtuid = nullptr;
    TextField* txtpassword = nullptr;
    QCheckBox* ckpassword = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;
};
