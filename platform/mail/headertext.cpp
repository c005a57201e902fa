#include "platform/mail/headertext.h"

#include <algorithm>
#include <QByteArrayList>
#include <QStringList>

#include "platform/text/plaintext.h"

namespace mail {

namespace {

constexpr qsizetype LongestLine = 78;
/// The longest part of a header that stands in a line of its own, after the blank.
constexpr qsizetype LongestPart = LongestLine - 1;
/// The octets of text in one encoded word, which leave room for "Subject: " in its line.
constexpr qsizetype OctetsOfWord = 39;

bool isPrintableAscii(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7f; });
}

/// Whether the text is its own encoding: a reader would find in it neither an encoded word nor another number of
/// blanks.
bool standsAsItIs(const QString& text) {
    return isPrintableAscii(text) && !text.contains(QStringLiteral("=?")) && text.simplified() == text;
}

bool fitsIntoLines(const QStringList& words) {
    return std::all_of(words.begin(), words.end(), [](const QString& word) { return word.size() <= LongestPart; });
}

/// No character is divided between two words.
QByteArrayList encodedWords(const QString& text) {
    QByteArrayList words;
    QByteArray octets;
    const auto finish = [&] { words << "=?UTF-8?B?" + octets.toBase64() + "?="; };
    for (const uint character : text.toUcs4()) {
        const char32_t one = character;
        const QByteArray more = QString::fromUcs4(&one, 1).toUtf8();
        if (octets.size() + more.size() > OctetsOfWord) {
            finish();
            octets.clear();
        }
        octets += more;
    }
    finish();
    return words;
}

QByteArrayList textParts(const QString& text) {
    const QStringList words = text.split(u' ');
    if (!standsAsItIs(text) || !fitsIntoLines(words))
        return encodedWords(text);
    QByteArrayList parts;
    for (const QString& word : words)
        parts << word.toLatin1();
    return parts;
}

bool isAtomText(QChar c) {
    return c.isLetterOrNumber() || QStringLiteral("!#$%&'*+-/=?^_`{|}~ ").contains(c);
}

QByteArrayList nameParts(const QString& name) {
    if (!standsAsItIs(name))
        return encodedWords(name);
    if (std::all_of(name.begin(), name.end(), isAtomText))
        return textParts(name);
    QString quoted = name;
    quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    const QByteArray part = u'"' + quoted.toLatin1() + u'"';
    return part.size() <= LongestPart ? QByteArrayList{part} : encodedWords(name);
}

QByteArrayList addressParts(const Address& address) {
    const QByteArray alone = address.address().toUtf8();
    if (address.name().isEmpty())
        return {alone};
    return nameParts(address.name()) << '<' + alone + '>';
}

/// Writes the parts with a blank before each, in as few lines as they need.
QByteArray inLines(const QByteArray& name, const QByteArrayList& parts) {
    QByteArray lines;
    QByteArray line = name + ':';
    for (const QByteArray& part : parts) {
        const bool isFirst = lines.isEmpty() && line.size() == name.size() + 1;
        if (!isFirst && line.size() + 1 + part.size() > LongestLine) {
            lines += line + "\r\n";
            line.clear();
        }
        line += ' ' + part;
    }
    return lines + line + "\r\n";
}

}  // namespace

QByteArray TextHeader(const QByteArray& name, const QString& text) {
    const QString line = OneLine(text).trimmed();
    return line.isEmpty() ? QByteArray() : inLines(name, textParts(line));
}

QByteArray AddressHeader(const QByteArray& name, const std::vector<Address>& addresses) {
    QByteArrayList parts;
    for (const Address& address : addresses) {
        if (!parts.isEmpty())
            parts.back() += ',';
        parts << addressParts(address);
    }
    return parts.isEmpty() ? QByteArray() : inLines(name, parts);
}

}  // namespace mail
