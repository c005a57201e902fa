#include "platform/mail/bodytext.h"

#include <algorithm>
#include <QStringList>

namespace mail {

namespace {

constexpr qsizetype LongestPlainLine = 78;
/// With the "=" that continues it, an encoded line has 76 characters.
constexpr qsizetype LongestEncodedLine = 75;

QStringList linesOf(QString text) {
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar& c : text) {
        if (c == u'\r' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator)
            c = u'\n';
        else if (c.category() == QChar::Other_Control && c != u'\n' && c != u'\t')
            c = u' ';
    }
    QStringList lines = text.split(u'\n');
    if (lines.back().isEmpty())
        lines.removeLast();
    return lines;
}

// A server may drop blanks at the end of a line that is sent as it is.
bool isPlain(const QString& line) {
    return line.size() <= LongestPlainLine && !line.endsWith(u' ') && !line.endsWith(u'\t') &&
           std::all_of(line.begin(), line.end(), [](QChar c) { return c.unicode() < 0x7f; });
}

bool standsForItself(char c, bool isLast) {
    if (c == ' ' || c == '\t')
        return !isLast;
    return c > ' ' && c < 0x7f && c != '=';
}

QByteArray quotedPrintable(const QString& text) {
    const QByteArray octets = text.toUtf8();
    QByteArray lines;
    qsizetype length = 0;
    for (qsizetype i = 0; i < octets.size(); ++i) {
        const char c = octets[i];
        const QByteArray part =
            standsForItself(c, i == octets.size() - 1) ? QByteArray(1, c) : '=' + QByteArray(1, c).toHex().toUpper();
        if (length + part.size() > LongestEncodedLine) {
            lines += "=\r\n";
            length = 0;
        }
        lines += part;
        length += part.size();
    }
    return lines;
}

}  // namespace

BodyText EncodeBody(const QString& text) {
    const QStringList lines = linesOf(text);
    const bool plain = std::all_of(lines.begin(), lines.end(), isPlain);
    BodyText body{plain ? "7bit" : "quoted-printable", {}};
    for (const QString& line : lines)
        body.lines += (plain ? line.toLatin1() : quotedPrintable(line)) + "\r\n";
    return body;
}

}  // namespace mail
