#pragma once

#include <QDateTime>
#include <QDialog>
#include <QTimer>

#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"

class QCheckBox;
class QLabel;
class QPushButton;

/// The logon. It puts the user into the session values (UID, UserType, UserName, ScreenAccess, AllProviders,
/// NotesAccess). An empty UID means that the user cancelled or that no user exists. A user without access to the
/// scheduler is not refused here, and may read.
///
/// The box ckpassword shows whether this computer remembers the password. That is a setting of the whole practice
/// (recallpw), so the box is visible only where the practice remembers passwords, and the user cannot change it.
///
/// After five wrong passwords each further try has to wait, twice as long as the one before, and is written to the
/// audit log.
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
    /// Shows a message and empties the fields, so that the user can begin again.
    void refuse(const QString& text, const QString& title);
    /// Offers a user id, as it was typed last, in a list below the box.
    void offerUser(const QString& userId);
    void countWrongPassword(const QString& userId);
    /// Shows how long the next try has to wait, until the wait is over.
    void tellWaiting();
    [[nodiscard]] int secondsToWait() const;
    [[nodiscard]] bool findUser();
    void takeUser();
    void rememberUser() const;

    db::Recordset passwords_;
    bool recallPassword_ = false;
    int wrongPasswords_ = 0;
    int wait_ = 0;  ///< Seconds from the last wrong password to the next try.
    QDateTime waitsUntil_;
    QTimer waiting_;
    QString offeredUser_;  ///< The user id of the last failed logon.
    QLabel* lblwait = nullptr;
    TextField* txtuid = nullptr;
    TextField* txtpassword = nullptr;
    QCheckBox* ckpassword = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;
};
