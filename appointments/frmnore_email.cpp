#include <QCheckBox>
#include <QLineEdit>

#include "appointments/frmnore.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

namespace {

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

}  // namespace

void frmnore::sendConfirmation() {
    if (ckemail->isChecked() && !emailTag_.isEmpty())
        SendEmail(emailTag_, txtpatients->text(), providerName(request_.provider), ctedate->Text(), ctstart->Text());
}

void frmnore::SendEmail(const QString& address, const QString& /*patientName*/, const QString& providerName,
                        const QString& apptDate, const QString& apptTime) {
    const QString body = messageBody(providerName, apptDate, apptTime);
    const Answer answer =
        MsgBox(QStringLiteral("To: %1\n%2").arg(address, body), YesNoBox, QStringLiteral("Send e-mail?"));
    if (answer != Answer::Yes)
        return;
    if (!OpenWithShell(QStringLiteral("mailto:%1?subject=Appointment Confirmation&body=%2").arg(address, body)))
        MsgBox(QStringLiteral("Error Occurred in sending email. ") + tr("No mail program could be opened."), ErrorBox,
               QStringLiteral("Error"));
}
