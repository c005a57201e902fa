#pragma once

#include <QString>

#include "platform/mail/transmission.h"

/// The practice's settings for sending mail, as its table has them. Null reads as empty or 0.
///
/// `SMTPAuthMethod` is read with them and not used: the program takes the best method that the server offers, whatever
/// number is stored.
struct SmtpSettings {
    QString SMTPServer;    ///< Without it the program sends no mail itself.
    QString SMTPUser;      ///< Empty for sending without an account.
    QString SMTPPW;        ///< The password in plain.
    int SMTPPort = 0;      ///< 0 for the usual one.
    bool SMTPSSL = false;  ///< Whether messages must be encrypted.
    friend bool operator==(const SmtpSettings&, const SmtpSettings&) = default;
};

/// Reads the settings. Without their row they are empty. Throws DatabaseError.
[[nodiscard]] SmtpSettings GetSMTPSettings();

/// Returns the mail server of the settings. Its usual port is 25, and 587 where messages must be encrypted. An
/// encrypted connection to port 465 is so from its first octet on, and to any other port by STARTTLS. Without SMTPSSL
/// the connection is encrypted where the server offers it. The conversation is logged in smtplog.txt of the application
/// folder.
[[nodiscard]] mail::Server MailServerOf(const SmtpSettings& settings);
