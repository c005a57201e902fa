#include "platform/mail/transcript.h"

#include "platform/text/plaintext.h"

namespace mail {

namespace {

constexpr qsizetype LongestText = 65'536;
constexpr qsizetype CodeLength = 3;
/// More lines of one reply are not kept; a server may send them without an end.
constexpr qsizetype MostReplyLines = 50;
/// A shorter proof is not looked for in replies, since it would be found by chance.
constexpr qsizetype ShortestSecret = 4;
const QByteArray Mask("****");
const QByteArray Challenge("334");

/// Whether the line begins with this word, in any case.
bool beginsWith(const QByteArray& line, const char* word) {
    return line.left(static_cast<qsizetype>(qstrlen(word))).compare(word, Qt::CaseInsensitive) == 0;
}

bool isLastLineOfReply(const QByteArray& line) {
    return line.size() <= CodeLength || line[CodeLength] != '-';
}

}  // namespace

void Transcript::heard(const QByteArray& line) {
    const QByteArray shown = masked(line.trimmed());
    if (replyEnded_)
        reply_.clear();
    if (reply_.size() < MostReplyLines)
        reply_ << shown;
    replyEnded_ = isLastLineOfReply(shown);
    offersUtf8_ = offersUtf8_ || beginsWith(shown.mid(CodeLength + 1), "SMTPUTF8");
    if (replyEnded_ && !shown.startsWith(Challenge))
        signingIn_ = false;
    if (replyEnded_)
        noteRefusal();
    add("< " + shown);
}

void Transcript::said(const QByteArray& command) {
    const QByteArray line = command.trimmed();
    leaving_ = beginsWith(line, "QUIT");
    if (!leaving_)
        refusal_.reset();
    if (beginsWith(line, "AUTH ")) {
        const QByteArrayList words = line.split(' ');
        secrets_ << words.mid(2);
        signingIn_ = true;
        step_ = Step::SigningIn;
        add("> " + words.mid(0, 2).join(' ') + (words.size() > 2 ? ' ' + Mask : QByteArray()));
        return;
    }
    if (signingIn_) {
        secrets_ << line;
        add("> " + Mask);
        return;
    }
    if (beginsWith(line, "MAIL "))
        step_ = Step::Sending;
    add("> " + line);
}

void Transcript::noteRefusal() {
    const int code = reply_.back().left(CodeLength).toInt();
    if (leaving_ || code < 400 || code > 599)
        return;
    QByteArrayList texts;
    for (const QByteArray& line : reply_)
        texts << line.mid(CodeLength + 1).trimmed();
    refusal_ = Refusal{code, OneLine(QString::fromUtf8(texts.join(' '))).trimmed()};
}

void Transcript::add(const QByteArray& line) {
    if (text_.size() + line.size() < LongestText)
        text_ += line + '\n';
}

QByteArray Transcript::masked(QByteArray line) const {
    for (const QByteArray& secret : secrets_)
        if (secret.size() >= ShortestSecret)
            line.replace(secret, Mask);
    return line;
}

}  // namespace mail
