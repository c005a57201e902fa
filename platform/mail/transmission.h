#pragma once

#include <chrono>
#include <functional>
#include <QString>
#include <stop_token>

#include "platform/mail/message.h"
#include "platform/mail/outcome.h"

namespace mail {

/// How the connection to a mail server is encrypted.
enum class Encryption {
    WhereOffered,  ///< By STARTTLS where the server offers it, whatever its certificate, and otherwise not at all.
    StartTls,      ///< By STARTTLS, with a certificate that is verified, or nothing is sent.
    Implicit,      ///< From the first octet on, with a certificate that is verified.
};

/// A mail server and the account that is used on it.
struct Server {
    QString host;  ///< Its name or its address.
    int port = 0;  ///< 1 to 65535.
    Encryption encryption = Encryption::StartTls;
    QString user;  ///< Empty for sending without an account.
    QString password;
    QString logFile;  ///< Where the conversation is logged; empty for nowhere.
    /// How long the server may be silent before the sending is given up.
    std::chrono::milliseconds patience = std::chrono::seconds(60);
};

/// Sends a message and waits for the end: the server has taken it for all its recipients, or for none of them. It is
/// not repeated. `progress` is called in this thread whenever the sending reaches another step. `stop` cancels it
/// within a moment.
///
/// Certificates are verified by the authorities of the system, or by those in the file that the environment variable
/// SSL_CERT_FILE names. Proxies are not used.
[[nodiscard]] Outcome Transmit(const Server& server, const Message& message, const std::function<void(Step)>& progress,
                               const std::stop_token& stop);

}  // namespace mail
