#pragma once

#include <QString>

/// The one-byte key of the password scramble, 1 to 9, where a deployment sets no other. It must be the key by which the
/// notes product stores `passwords.pswd_password`.
inline constexpr int DefaultScrambleKey = 3;

/// The form in which `passwords.pswd_password` and the remembered password of solvane.ini hold a password. This hides a
/// password from a glance; it is no encryption.
QString ScramblePassword(const QString& plain, int key);
/// The way back: UnscramblePassword(ScramblePassword(text, key), key) is text.
QString UnscramblePassword(const QString& scrambled, int key);
