#include "platform/mail/failure.h"

namespace mail {

namespace {

const QString NotSent = QStringLiteral(" Nothing was sent.");
const QString MaybeSent =
    QStringLiteral(" The server had the whole message, but did not confirm it: it may have been sent all the same.");

/// Returns the library's words as a sentence, without the full stop that they may end with.
QString sentence(QString text) {
    text = text.trimmed();
    while (text.endsWith(u'.'))
        text.chop(1);
    return text + u'.';
}

/// Whether the error is what the transfer library makes of a reply, so that the reply itself tells more.
bool comesFromReply(CURLcode error) {
    switch (error) {
        case CURLE_LOGIN_DENIED:
        case CURLE_REMOTE_ACCESS_DENIED:
        case CURLE_SEND_ERROR:
        case CURLE_WEIRD_SERVER_REPLY:
        case CURLE_RECV_ERROR:
            return true;
        default:
            return false;
    }
}

QString refusalText(CURLcode error, const Transcript::Refusal& refusal) {
    const QString what = error == CURLE_LOGIN_DENIED ? QStringLiteral("The mail server refused the account: ")
                                                     : QStringLiteral("The mail server refused the message: ");
    return what + sentence(QStringLiteral("%1 %2").arg(refusal.code).arg(refusal.text));
}

QString reason(CURLcode error, const QString& detail, const Server& server) {
    const QString place = QStringLiteral("%1, port %2").arg(server.host).arg(server.port);
    switch (error) {
        case CURLE_URL_MALFORMAT:
            return QStringLiteral("The mail server's name or port is not valid: %1.").arg(place);
        case CURLE_COULDNT_RESOLVE_HOST:
            return QStringLiteral("The mail server was not found: %1.").arg(server.host);
        case CURLE_COULDNT_CONNECT:
            return QStringLiteral("The mail server could not be reached: %1.").arg(place);
        case CURLE_OPERATION_TIMEDOUT:
            return QStringLiteral("The mail server did not answer in time: %1.").arg(place);
        case CURLE_USE_SSL_FAILED:
            return QStringLiteral("The mail server does not offer encryption: %1.").arg(place);
        case CURLE_PEER_FAILED_VERIFICATION:
            return QStringLiteral("The mail server's certificate was not accepted: ") + sentence(detail);
        case CURLE_SSL_CONNECT_ERROR:
            return QStringLiteral("The encrypted connection to the mail server failed: ") + sentence(detail);
        case CURLE_LOGIN_DENIED:
            return QStringLiteral("The mail server refused the account: ") + sentence(detail);
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_GOT_NOTHING:
        case CURLE_WEIRD_SERVER_REPLY:
            return QStringLiteral("The mail server broke off the conversation: ") + sentence(detail);
        default:
            return sentence(detail);
    }
}

}  // namespace

Outcome FailureOf(CURLcode error, const QString& detail, const Server& server, const Transcript& transcript,
                  bool handedOver) {
    if (const std::optional<Transcript::Refusal>& refusal = transcript.refusal(); refusal && comesFromReply(error))
        return {refusal->code, refusalText(error, *refusal) + NotSent};
    return {static_cast<int>(error), reason(error, detail, server) + (handedOver ? MaybeSent : NotSent)};
}

Outcome CancelledOutcome(bool handedOver) {
    const QString text = QStringLiteral("The sending was cancelled.");
    return {static_cast<int>(CURLE_ABORTED_BY_CALLBACK), text + (handedOver ? MaybeSent : NotSent), true};
}

}  // namespace mail
