#include "output/smtpsettings.h"

#include "platform/database/recordset.h"
#include "session/session.h"

namespace {

constexpr int PlainPort = 25;
constexpr int SubmissionPort = 587;
constexpr int ImplicitTlsPort = 465;

QString restored(const QString& scrambled) {
    return scrambled.isEmpty() ? QString() : UnscramblePassword(scrambled, Session().ScrambleKey);
}

mail::Encryption encryptionOf(const SmtpSettings& settings) {
    if (!settings.SMTPSSL)
        return mail::Encryption::WhereOffered;
    return settings.SMTPPort == ImplicitTlsPort ? mail::Encryption::Implicit : mail::Encryption::StartTls;
}

}  // namespace

SmtpSettings GetSMTPSettings() {
    const db::Recordset row(
        QStringLiteral("Select SMTPServer, SMTPUser, SMTPPW, SMTPPort, SMTPSSL, SMTPAuthMethod from Settings"),
        Session().Connection);
    if (row.Eof())
        return {};
    return {row["SMTPServer"].text().trimmed(), row["SMTPUser"].text().trimmed(), restored(row["SMTPPW"].text()),
            static_cast<int>(row["SMTPPort"].integer()), row["SMTPSSL"].integer() == 1};
}

mail::Server MailServerOf(const SmtpSettings& settings) {
    const int usualPort = settings.SMTPSSL ? SubmissionPort : PlainPort;
    return {.host = settings.SMTPServer,
            .port = settings.SMTPPort == 0 ? usualPort : settings.SMTPPort,
            .encryption = encryptionOf(settings),
            .user = settings.SMTPUser,
            .password = settings.SMTPPW,
            .logFile = Session().AppPath + QStringLiteral("/smtplog.txt")};
}
