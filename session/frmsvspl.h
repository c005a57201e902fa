#pragma once

#include <QDialog>

#include "platform/database/recordset.h"

class QCheckBox;
class QLineEdit;
class QPushButton;

/// The logon. It leaves the user in the session values (UID, UserType, UserName, ScreenAccess, AllProviders,
/// NotesAccess); an empty UID means that the user cancelled or that there is nobody to log on. Who has no access to the
/// scheduler is not refused here.
///
/// The box ckpassword tells whether this computer remembers the password. That is a setting of the whole practice
/// (recallpw), so the box is there only where the practice remembers passwords, and nobody ticks it by hand.
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
    [[nodiscard]] bool findUser();
    void takeUser();
    void rememberUser() const;

    db::Recordset passwords_;
    bool recallPassword_ = false;
    QLineEdit* txtuid = nullptr;
    QLineEdit* txtpassword = nullptr;
    QCheckBox* ckpassword = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdcancel = nullptr;
};
