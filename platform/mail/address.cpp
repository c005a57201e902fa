#include "platform/mail/address.h"

#include <algorithm>
#include <QRegularExpression>
#include <QUrl>

#include "platform/text/plaintext.h"

namespace mail {

namespace {

// The most octets that a server must accept.
constexpr qsizetype LongestLocalPart = 64;
constexpr qsizetype LongestAddress = 254;

bool isPrintable(const QString& text) {
    const auto characters = text.toUcs4();
    return std::all_of(characters.begin(), characters.end(), [](uint c) { return QChar::isPrint(c); });
}

bool isLocalPart(const QString& text) {
    static const QRegularExpression reserved(QStringLiteral("[\\s()<>,;:\\\\\"\\[\\]@]"));
    return !text.isEmpty() && text.toUtf8().size() <= LongestLocalPart && isPrintable(text) && !text.contains(reserved);
}

/// Returns the domain in the form of the domain name system, or an empty text where it is no domain.
QString asciiDomain(const QString& domain) {
    static const QRegularExpression plain(QStringLiteral("\\A[A-Za-z0-9_-]+(\\.[A-Za-z0-9_-]+)*\\z"));
    static const QRegularExpression number(
        QStringLiteral("\\A\\[[0-9A-Fa-f.:]+\\]\\z|\\A\\[IPv6:[0-9A-Fa-f.:]+\\]\\z"));
    if (plain.match(domain).hasMatch() || number.match(domain).hasMatch())
        return domain;
    const QString ascii = QString::fromLatin1(QUrl::toAce(domain));
    return plain.match(ascii).hasMatch() ? ascii : QString();
}

/// Returns the address with its domain in ASCII, or an empty text where it is no address.
QString checkedAddress(const QString& text) {
    const qsizetype at = text.lastIndexOf(u'@');
    if (at < 0 || !isLocalPart(text.left(at)))
        return {};
    const QString domain = asciiDomain(text.mid(at + 1));
    const QString address = text.left(at + 1) + domain;
    return domain.isEmpty() || address.toUtf8().size() > LongestAddress ? QString() : address;
}

/// Returns a name without the quotes around it.
QString withoutQuotes(const QString& name) {
    if (name.size() < 2 || !name.startsWith(u'"') || !name.endsWith(u'"'))
        return name;
    static const QRegularExpression escaped(QStringLiteral("\\\\(.)"));
    return name.mid(1, name.size() - 2).replace(escaped, QStringLiteral("\\1"));
}

/// Cuts the text at each "," and ";" outside of quotes and angle brackets.
QStringList pieces(const QString& text) {
    QStringList found(QString{});
    bool quoted = false;
    bool inBrackets = false;
    bool escaped = false;
    for (const QChar c : text) {
        if (!quoted && !inBrackets && (c == u',' || c == u';')) {
            found << QString();
            continue;
        }
        found.back() += c;
        if (c == u'"' && !escaped)
            quoted = !quoted;
        else if (!quoted && (c == u'<' || c == u'>'))
            inBrackets = c == u'<';
        escaped = quoted && c == u'\\' && !escaped;
    }
    return found;
}

}  // namespace

std::optional<Address> Address::From(const QString& text) {
    static const QRegularExpression named(QStringLiteral("\\A(\"(?:[^\"\\\\]|\\\\.)*\"|[^\"<>]*)\\s*<([^<>]*)>\\z"),
                                          QRegularExpression::DotMatchesEverythingOption);
    const QString whole = text.trimmed();
    const QRegularExpressionMatch parts = named.match(whole);
    const QString address = checkedAddress(parts.hasMatch() ? parts.captured(2).trimmed() : whole);
    if (address.isEmpty())
        return std::nullopt;
    return Address(OneLine(withoutQuotes(parts.captured(1).trimmed())).trimmed(), address);
}

QString Address::domain() const {
    return address_.mid(address_.lastIndexOf(u'@') + 1);
}

bool Address::isInternational() const {
    return std::any_of(address_.begin(), address_.end(), [](QChar c) { return c.unicode() > 0x7f; });
}

AddressList ReadAddresses(const QString& text) {
    AddressList list;
    qsizetype start = 0;
    for (const QString& piece : pieces(text)) {
        const QString whole = piece.trimmed();
        if (const auto address = Address::From(whole)) {
            list.addresses.push_back(*address);
        } else if (!whole.isEmpty()) {
            if (list.refused.isEmpty())
                list.firstRefused = start + piece.indexOf(whole);
            list.refused << OneLine(whole);
        }
        start += piece.size() + 1;
    }
    return list;
}

}  // namespace mail
