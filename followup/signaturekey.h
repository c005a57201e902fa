#pragma once

#include <QString>

/// Returns the key text that seals a drawn signature of this note: the note's ModifiedDate as "yyyy/mm/dd hh:mm am/pm".
/// Whatever changes the note changes the key, so that the signature no longer opens. A note without a ModifiedDate gets
/// the server's time.
///
/// Where the note is gone, or the database does not answer, the user is told "GetSessionTS failed!" and the key is
/// empty.
[[nodiscard]] QString SignatureKey(int sessionId);
