#include "platform/database/embedded/textfunctions.h"

#include <algorithm>
#include <cstdlib>

#include "platform/database/embedded/functioncall.h"
#include "platform/database/embedded/like.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/textorder.h"

namespace db::embedded {

namespace {

QString textOf(const FunctionCall& call, int i) {
    return ToQt(call.text(i));
}

void give(const FunctionCall& call, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    call.give(std::string_view(utf8.data(), static_cast<std::size_t>(utf8.size())));
}

qint64 lengthGiven(const FunctionCall& call, int i) {
    const qint64 length = call.integer(i);
    if (length < 0)
        throw DatabaseError(537, QStringLiteral("Invalid length parameter passed to the LEFT or SUBSTRING function."));
    return length;
}

/// Returns the sign that stands for a whole number in a text without room for it. A text of Unicode is error 8115.
QString tooShortFor(const FunctionCall& call) {
    const QString type = call.count() > 2 ? textOf(call, 2) : QString();
    if (type.startsWith(u'n'))
        throw DatabaseError(
            8115, QStringLiteral("Arithmetic overflow error converting expression to data type %1.").arg(type));
    return QStringLiteral("*");
}

}  // namespace

void Length(const FunctionCall& call) {
    call.give(qint64{ToQt(WithoutTrailingBlanks(call.text(0))).size()});
}

void Upper(const FunctionCall& call) {
    give(call, textOf(call, 0).toUpper());
}

void Lower(const FunctionCall& call) {
    give(call, textOf(call, 0).toLower());
}

void Left(const FunctionCall& call) {
    give(call, textOf(call, 0).left(lengthGiven(call, 1)));
}

void Right(const FunctionCall& call) {
    if (call.integer(1) < 0)
        throw DatabaseError(536, QStringLiteral("Invalid length parameter passed to the RIGHT function."));
    give(call, textOf(call, 0).right(call.integer(1)));
}

/// A start before the text shortens the result.
void Substring(const FunctionCall& call) {
    const qint64 start = call.integer(1) - 1;
    const qint64 end = start + lengthGiven(call, 2);
    const qint64 from = std::max<qint64>(start, 0);
    give(call, end > from ? textOf(call, 0).mid(from, end - from) : QString());
}

void CharIndex(const FunctionCall& call) {
    const qint64 from = call.count() > 2 ? std::max<qint64>(call.integer(2) - 1, 0) : 0;
    const QString sought = textOf(call, 0);
    call.give(qint64{sought.isEmpty() ? 0 : textOf(call, 1).indexOf(sought, from, Qt::CaseInsensitive) + 1});
}

/// Gives the place of the first match. A pattern that does not begin with % only matches at the start of the text.
void PatIndex(const FunctionCall& call) {
    std::string pattern(call.text(0));
    const bool anywhere = !pattern.empty() && pattern.front() == '%';
    if (anywhere)
        pattern.erase(0, 1);
    const LikePattern wanted(pattern, 0);
    const QString text = textOf(call, 1);
    const qsizetype last = anywhere ? text.size() : 0;
    for (qsizetype at = 0; at <= last; ++at) {
        const QByteArray rest = text.sliced(at).toUtf8();
        const std::string_view part(rest.data(), static_cast<std::size_t>(rest.size()));
        if (wanted.matches(&part, 1)) {
            call.give(at < text.size() ? qint64{at + 1} : qint64{0});
            return;
        }
    }
    call.give(qint64{0});
}

void Replace(const FunctionCall& call) {
    const QString sought = textOf(call, 1);
    const QString text = textOf(call, 0);
    give(call, sought.isEmpty() ? text : QString(text).replace(sought, textOf(call, 2), Qt::CaseInsensitive));
}

/// Gives null where the place is outside the text. A null in place of the new text counts as empty.
void Stuff(const FunctionCall& call) {
    if (call.isNull(0) || call.isNull(1) || call.isNull(2))
        return;
    QString text = textOf(call, 0);
    const qint64 start = call.integer(1);
    const qint64 length = call.integer(2);
    if (start < 1 || start > text.size() || length < 0)
        return;
    give(call, text.replace(start - 1, std::min<qint64>(length, text.size()), textOf(call, 3)));
}

void Replicate(const FunctionCall& call) {
    // The server's plain texts hold this many characters.
    constexpr qint64 longest = 8000;
    const QString text = textOf(call, 0);
    if (call.integer(1) < 0)
        return;
    const qint64 most = text.isEmpty() ? 0 : longest / text.size();
    give(call, text.repeated(std::min(call.integer(1), most)));
}

void Reverse(const FunctionCall& call) {
    QString text = textOf(call, 0);
    std::reverse(text.begin(), text.end());
    give(call, text);
}

void Character(const FunctionCall& call) {
    const qint64 code = call.integer(0);
    if (code >= 0 && code <= call.integer(1))
        give(call, QString(QChar(static_cast<char16_t>(code))));
}

void CodeOf(const FunctionCall& call) {
    const QString text = textOf(call, 0);
    if (!text.isEmpty())
        call.give(qint64{text.front().unicode()});
}

void CastText(const FunctionCall& call) {
    QString text = call.type(0) == SQLITE_FLOAT ? NumberText(call.real(0)) : textOf(call, 0);
    const auto length = static_cast<qsizetype>(call.integer(1));
    if (call.type(0) == SQLITE_INTEGER && length != 0 && text.size() > std::abs(length))
        text = tooShortFor(call);
    give(call, length == 0 ? text : length > 0 ? text.left(length) : text.left(-length).leftJustified(-length));
}

}  // namespace db::embedded
