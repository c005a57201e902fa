#include <QCheckBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QUrl>

#include "appointments/frmnore.h"
#include "output/frmemail.h"
#include "output/smtpsettings.h"
#include "people/mailtarget.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

const QString Question = QStringLiteral("Send e-mail?");
const QString Subject = QStringLiteral("Appointment Confirmation");

QString providerName(const BookedProvider& booked) {
    QString name;
    db::Ignoring([&] {
        const db::Recordset provider(
            db::Sql("Select pfirst_name + ' ' + plast_name AS [ProviderName] from provider_info Where id = '{}'",
                    booked.id),
            Session().Connection);
        if (!provider.Eof())
            name = provider["ProviderName"].text();
    });
    return name.trimmed().isEmpty() ? booked.name : name;
}

QString messageBody(const QString& providerName, const QString& apptDate, const QString& apptTime) {
    QString body = Session().EmailReminderText;
    if (body.isEmpty())
        return QStringLiteral("This e-mail is to remind you of your appointment on %1 at %2 with %3.")
            .arg(apptDate, apptTime, providerName);
    return body.replace(QStringLiteral("[DATE]"), apptDate)
        .replace(QStringLiteral("[TIME]"), apptTime)
        .replace(QStringLiteral("[THERAPIST]"), providerName);
}

/// Whether the practice has a mail server. Where that cannot be read, the desktop's mail program is left.
bool sendsDirectly() {
    bool direct = false;
    TryAndTell(QStringLiteral("Error reading SMTP Settings. "),
               [&] { direct = !GetSMTPSettings().SMTPServer.isEmpty(); });
    return direct;
}

void sendDirectly(const QString& address, const QString& body, QWidget* parent) {
    if (MsgBox(QStringLiteral("Send Appointment Reminder EMail to: ") + address, YesNoBox, Question) != Answer::Yes)
        return;
    frmEmail form({address, Subject, body}, parent);
    ShowModal(form);
}

/// Returns the text as a field of a mailto target (RFC 6068). Only what would end the field or begin an escape is
/// escaped, so that a practice's own text with "&" or "#" reaches the mail whole.
QString mailField(QString text) {
    static constexpr char special[] = {'%', '&', '#', '+', '\r', '\n'};
    for (const char character : special)
        text.replace(QLatin1Char(character),
                     QString::fromLatin1(QUrl::toPercentEncoding(QString(QLatin1Char(character)))));
    return text;
}

void handToMailProgram(const QString& address, const QString& body) {
    if (MsgBox(QStringLiteral("To: %1\n%2").arg(address, body), YesNoBox, Question) != Answer::Yes)
        return;
    if (!OpenWithShell(QStringLiteral("%1?subject=%2&body=%3").arg(MailTarget(address), Subject, mailField(body))))
        MsgBox(QStringLiteral("Error Occurred in sending email. ") +
                   QCoreApplication::translate("frmnore", "No mail program could be opened."),
               ErrorBox, QStringLiteral("Error"));
}

}  // namespace

void frmnore::sendConfirmation() {
    if (ckemail->isChecked() && !emailTag_.isEmpty())
        SendEmail(emailTag_, txtpatients->text(), providerName(request_.provider), ctedate->Text(), ctstart->Text());
}

void frmnore::SendEmail(const QString& address, const QString& /*patientName*/, const QString& providerName,
                        const QString& apptDate, const QString& apptTime) {
    const QString body = messageBody(providerName, apptDate, apptTime);
    if (sendsDirectly())
        sendDirectly(address, body, this);
    else
        handToMailProgram(address, body);
}
