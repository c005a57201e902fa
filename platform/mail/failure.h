#pragma once

#include <curl/curl.h>
#include <QString>

#include "platform/mail/transcript.h"
#include "platform/mail/transmission.h"

namespace mail {

/// Returns the outcome of a sending that failed, in words for the user. `detail` is what the transfer library says of
/// the error. `handedOver` means that the server had the whole message but has not said whether it took it.
[[nodiscard]] Outcome FailureOf(CURLcode error, const QString& detail, const Server& server,
                                const Transcript& transcript, bool handedOver);
/// Returns the outcome of a sending that the user cancelled.
[[nodiscard]] Outcome CancelledOutcome(bool handedOver);

}  // namespace mail
