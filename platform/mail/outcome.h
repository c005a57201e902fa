#pragma once

#include <QMetaType>
#include <QString>

namespace mail {

/// How far the sending of a message is.
enum class Step { Connecting, SigningIn, Sending, Confirming };

/// How the sending of a message ended.
struct Outcome {
    /// 0 when the server has taken the message for everybody. Otherwise the server's reply (400 to 599) where it
    /// refused something, or the error number of the transfer library (1 to 99).
    int number = 0;
    QString description;     ///< What went wrong, in whole sentences. It is empty for number 0.
    bool cancelled = false;  ///< Whether the user cancelled the sending; `number` is then not 0.

    [[nodiscard]] bool isSent() const { return number == 0; }
    friend bool operator==(const Outcome&, const Outcome&) = default;
};

}  // namespace mail
