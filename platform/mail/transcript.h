#pragma once

#include <optional>
#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include "platform/mail/outcome.h"

namespace mail {

/// What the program and a mail server say to each other, for the log. The proofs of an account (its name, its password
/// and what is derived from them) are masked, also where the server repeats them. Messages do not appear in it.
class Transcript {
  public:
    /// A reply of the server that refuses something.
    struct Refusal {
        int code = 0;  ///< 400 to 599.
        QString text;  ///< The reply's text in one line, without the code.
    };

    /// Takes down one line from the server.
    void heard(const QByteArray& line);
    /// Takes down one command of the program.
    void said(const QByteArray& command);

    /// The lines so far. A conversation of more than 64 kB is cut there.
    [[nodiscard]] const QByteArray& text() const { return text_; }
    /// The refusal of the last command, apart from the one by which the program leaves.
    [[nodiscard]] const std::optional<Refusal>& refusal() const { return refusal_; }
    /// Whether the server has said that it takes addresses beyond ASCII (RFC 6531).
    [[nodiscard]] bool offersUtf8() const { return offersUtf8_; }
    /// How far the conversation is.
    [[nodiscard]] Step step() const { return step_; }

  private:
    void noteRefusal();
    void add(const QByteArray& line);
    [[nodiscard]] QByteArray masked(QByteArray line) const;

    QByteArray text_;
    QByteArrayList reply_;    ///< The lines of the last reply.
    QByteArrayList secrets_;  ///< What must not be repeated.
    std::optional<Refusal> refusal_;
    Step step_ = Step::Connecting;
    bool replyEnded_ = true;
    bool signingIn_ = false;  ///< From the command AUTH until the server has accepted or refused the account.
    bool offersUtf8_ = false;
    bool leaving_ = false;  ///< The last command was the one by which the program leaves.
};

}  // namespace mail
