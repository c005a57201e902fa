#include "session/frmsvspl.h"

#include <algorithm>
#include <QCheckBox>
#include <QCompleter>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include "data/codes.h"
#include "data/scramble.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/inifile.h"
#include "platform/theme/theme.h"
#include "session/audit.h"
#include "session/brandpanel.h"
#include "session/rights.h"
#include "session/session.h"

namespace {

const QString UserSection = QStringLiteral("USER");

constexpr int ReadOnlyAccess = 1;
constexpr int FreeTries = 5;
constexpr int FirstWait = 5;            // Seconds.
constexpr int LongestWait = 600;        // Seconds.
constexpr int TellEvery = 250;          // Milliseconds.
constexpr int LongestAuditedUser = 50;  // Length of AuditLog.LogUser.

bool isUserIdCharacter(QChar c) {
    return (c.unicode() >= 48 && c.unicode() <= 123) || c.unicode() == 125 || c.unicode() == 126;
}

bool isPasswordCharacter(QChar c) {
    return !QStringLiteral("!\"';|").contains(c);
}

TextField* addField(QVBoxLayout& column, const QString& name, const QString& caption, QWidget* form) {
    auto* field = new TextField(form);
    field->setObjectName(name);
    field->setMinimumHeight(field->fontMetrics().height() + 16);
    field->setTextMargins(6, 0, 6, 0);
    auto* label = new QLabel(caption, form);
    label->setBuddy(field);
    column.addWidget(label);
    column.addWidget(field);
    column.addSpacing(8);
    return field;
}

QLabel* smallLabel(const QString& name, const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.88);
    label->setFont(font);
    return label;
}

QString legalText() {
    return QStringLiteral(
        "Patient records are confidential. Only authorized staff of this practice may use this "
        "program, and what they do may be recorded.");
}

BrandPanel* brandArea(QWidget* form) {
    auto* brand = new BrandPanel(form);
    auto* version = smallLabel(QStringLiteral("Label3"), QStringLiteral("Version " SVS_VERSION), brand);
    QPalette light = version->palette();
    light.setColor(QPalette::WindowText, QColor(255, 255, 255, 215));
    version->setPalette(light);
    auto* column = new QVBoxLayout(brand);
    column->setContentsMargins(28, 24, 16, 20);
    column->addStretch();
    column->addWidget(version);
    return brand;
}

}  // namespace

frmsvspl::frmsvspl(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmsvspl"));
    setWindowTitle(QStringLiteral("Solvane Scheduler"));
    buildForm();
    loadPasswords();
    loadRememberedUser();
    // The remembered texts are not filtered until the user changes them.
    txtuid->SetAccepts(isUserIdCharacter);
    txtpassword->SetAccepts(isPasswordCharacter);
    enableOk();
    waiting_.setInterval(TellEvery);
    connect(&waiting_, &QTimer::timeout, this, &frmsvspl::tellWaiting);
    connect(txtuid, &TextField::textChanged, this, &frmsvspl::enableOk);
    connect(txtpassword, &TextField::textChanged, this, &frmsvspl::enableOk);
    connect(cmdOk, &QPushButton::clicked, this, &frmsvspl::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &frmsvspl::reject);
}

void frmsvspl::buildForm() {
    auto* column = new QVBoxLayout;
    column->setContentsMargins(32, 32, 32, 20);
    column->setSpacing(5);
    auto* heading = new QLabel(QStringLiteral("Log on to the schedule"), this);
    heading->setFont(HeadingFont(2));
    column->addWidget(heading);
    column->addSpacing(16);

    txtuid = addField(*column, QStringLiteral("txtuid"), QStringLiteral("&User Id"), this);
    txtpassword = addField(*column, QStringLiteral("txtpassword"), QStringLiteral("&Password"), this);
    txtpassword->setEchoMode(QLineEdit::Password);
    txtuid->installEventFilter(this);
    txtpassword->installEventFilter(this);
    ckpassword = new QCheckBox(QStringLiteral("This computer remembers the password"), this);
    ckpassword->setObjectName(QStringLiteral("ckpassword"));
    ckpassword->setEnabled(false);
    ckpassword->setToolTip(
        QStringLiteral("Whether passwords are remembered is set for the whole practice in Solvane."));
    column->addWidget(ckpassword);
    lblwait = new QLabel(this);
    lblwait->setObjectName(QStringLiteral("lblwait"));
    lblwait->setWordWrap(true);
    lblwait->hide();
    column->addWidget(lblwait);
    column->addSpacing(12);

    cmdOk = new QPushButton(QStringLiteral("&OK"), this);
    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdcancel = new QPushButton(QStringLiteral("&Cancel"), this);
    cmdcancel->setObjectName(QStringLiteral("cmdcancel"));
    cmdcancel->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {cmdOk, cmdcancel}) {
        button->setMinimumSize(96, button->fontMetrics().height() + 16);
        buttons->addWidget(button);
    }
    column->addLayout(buttons);
    column->addStretch();
    column->addSpacing(16);
    auto* legal = smallLabel(QStringLiteral("Label4"), legalText(), this);
    legal->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(legal);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->setSizeConstraint(QLayout::SetFixedSize);
    row->addWidget(brandArea(this));
    auto* fields = new QWidget(this);
    fields->setLayout(column);
    fields->setMinimumWidth(370);
    row->addWidget(fields);
}

void frmsvspl::loadPasswords() {
    db::Ignoring([this] {
        passwords_.Open(
            "Select passwords.*, 'Inactive' = Case when archive is null then 0 else archive end From passwords left join provider_info on provider_info.id = passwords.pswd_user_id",
            Session().Connection);
    });
}

void frmsvspl::loadRememberedUser() {
    txtuid->setText(ReadIniValue(Session().SolvaneIni, UserSection, QStringLiteral("UID")));
    db::Ignoring([this] {
        const db::Recordset settings("Select * from settings", Session().Connection);
        recallPassword_ = !settings.Eof() && settings["recallpw"].boolean();
    });
    if (recallPassword_) {
        const QString scrambled = ReadIniValue(Session().SolvaneIni, UserSection, QStringLiteral("Password"));
        txtpassword->setText(UnscramblePassword(scrambled, Session().ScrambleKey));
    }
    ckpassword->setChecked(!txtpassword->text().isEmpty());
    ckpassword->setVisible(recallPassword_);
}

// A remembered user continues with the password.
void frmsvspl::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    (txtuid->text().isEmpty() ? txtuid : txtpassword)->setFocus();
}

bool frmsvspl::eventFilter(QObject* watched, QEvent* event) {
    auto* field = qobject_cast<QLineEdit*>(watched);
    if (watched == txtuid && event->type() == QEvent::KeyPress && txtuid->text().isEmpty() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down && !offeredUser_.isEmpty()) {
        txtuid->setText(offeredUser_);
        return true;
    }
    if (!field || event->type() != QEvent::FocusIn)
        return QDialog::eventFilter(watched, event);
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // The mouse press that brings the focus places the cursor first and would remove the selection.
    if (reason == Qt::MouseFocusReason)
        QMetaObject::invokeMethod(field, &TextField::selectAll, Qt::QueuedConnection);
    else if (reason != Qt::PopupFocusReason)
        field->selectAll();
    return QDialog::eventFilter(watched, event);
}

void frmsvspl::enableOk() {
    cmdOk->setEnabled(secondsToWait() == 0 && !txtuid->text().trimmed().isEmpty() &&
                      !txtpassword->text().trimmed().isEmpty());
}

void frmsvspl::reject() {
    Session().UID.clear();
    QDialog::reject();
}

void frmsvspl::cmdOk_Click() {
    const BusyPointer busy;
    if (passwords_.RecordCount() == 0) {
        MsgBox(QStringLiteral("You must first run Solvane and setup a User Id and Password!"), ExclamationBox,
               QStringLiteral("No Passwords"));
        reject();
        return;
    }
    if (!findUser()) {
        countWrongPassword(txtuid->text());
        refuse(QStringLiteral("Invalid User ID or Password. Try again."), QStringLiteral("No Matching Record"));
        return;
    }
    if (passwords_["Inactive"].integer() == 1) {
        refuse(QStringLiteral("This user is inactive. Activate before attempting loggon."),
               QStringLiteral("User Inactive"));
        return;
    }
    takeUser();
    rememberUser();
    accept();
}

void frmsvspl::refuse(const QString& text, const QString& title) {
    MsgBox(text, ExclamationBox, title);
    offerUser(txtuid->text());
    txtuid->clear();
    txtpassword->clear();
    txtuid->setFocus();
}

// Most often only the password was wrong. Its first letter offers the user id, and the Down key brings it back. What
// was typed is never lengthened by itself, because it may be the whole of another user's id.
void frmsvspl::offerUser(const QString& userId) {
    offeredUser_ = userId;
    auto* users = new QCompleter({userId}, txtuid);
    users->setCompletionMode(QCompleter::PopupCompletion);
    users->setCaseSensitivity(Qt::CaseInsensitive);
    delete txtuid->completer();
    txtuid->setCompleter(users);
    txtuid->setPlaceholderText(tr("Down arrow: %1").arg(userId));
}

void frmsvspl::countWrongPassword(const QString& userId) {
    if (++wrongPasswords_ < FreeTries)
        return;
    AuditLog(userId.left(LongestAuditedUser), QStringLiteral("Scheduler"), QStringLiteral("Log On"), {},
             QStringLiteral("Wrong User ID or Password given %1 times, last for %2").arg(wrongPasswords_).arg(userId));
    wait_ = wait_ == 0 ? FirstWait : std::min(2 * wait_, LongestWait);
    waitsUntil_ = Now().addSecs(wait_);
    waiting_.start();
    tellWaiting();
}

// A clock that is set back must not lock a user out, so the wait is never longer than `wait_`.
int frmsvspl::secondsToWait() const {
    const qint64 milliseconds = waitsUntil_.isValid() ? Now().msecsTo(waitsUntil_) : 0;
    return static_cast<int>(std::clamp<qint64>((milliseconds + 999) / 1000, 0, wait_));
}

void frmsvspl::tellWaiting() {
    const int seconds = secondsToWait();
    if (seconds == 0)
        waiting_.stop();
    lblwait->setVisible(seconds > 0);
    lblwait->setText(tr("Too many wrong passwords. Try again in %1 seconds.").arg(seconds));
    enableOk();
}

bool frmsvspl::findUser() {
    bool matches = false;
    db::Ignoring([&] {
        passwords_.MoveFirst();
        passwords_.Find(db::Sql("pswd_user_id = '{}'", txtuid->text()));
        matches = !passwords_.Eof() &&
                  passwords_["pswd_password"].text() == ScramblePassword(txtpassword->text(), Session().ScrambleKey);
    });
    return matches;
}

void frmsvspl::takeUser() {
    SessionValues& session = Session();
    const QString access = passwords_["pswd_screen_access"].text();
    session.UID = passwords_["pswd_user_id"].text();
    session.UserType = static_cast<int>(passwords_["pswd_type_of_access"].integer());
    session.ScreenAccess = AccessDigit(access, 9);
    session.NotesAccess = AccessDigit(access, 6);
    if (session.UserType == SystemAdministrator) {
        session.UserName = QStringLiteral("System Administrator");
        session.ScreenAccess = 3;
        session.AllProviders = true;
        return;
    }
    NormalizeScreenAccess();
    session.ScreenAccess = std::max(session.ScreenAccess, ReadOnlyAccess);
    session.UserName.clear();
    db::Ignoring([&] {
        const db::Recordset provider(db::Sql("Select prov_lastname from provider_info Where Id = '{}'", session.UID),
                                     session.Connection);
        if (!provider.Eof())
            session.UserName = provider[0].text();
    });
}

void frmsvspl::rememberUser() const {
    WriteIniValue(Session().SolvaneIni, UserSection, QStringLiteral("UID"), txtuid->text());
    if (recallPassword_)
        WriteIniValue(Session().SolvaneIni, UserSection, QStringLiteral("Password"),
                      ScramblePassword(txtpassword->text(), Session().ScrambleKey));
}
