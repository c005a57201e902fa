#pragma once

#include <QString>

/// The key of the password scramble, 1 to 9, for a deployment that sets no other. It must be the key by which the notes
/// product stores `passwords.pswd_password`.
inline constexpr int DefaultScrambleKey = 3;

/// Returns a password in the form of `passwords.pswd_password` and of the remembered password in solvane.ini. This only
/// hides the password from a glance; it is no encryption.
QString ScramblePassword(const QString& plain, int key);
/// Reverses ScramblePassword: UnscramblePassword(ScramblePassword(text, key), key) is `text`.
QString UnscramblePassword(const QString& scrambled, int key);
