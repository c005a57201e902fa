#include "data/phone.h"

#include <algorithm>

#include "platform/text/plaintext.h"

QString MaskToFormat(const QString& mask) {
    if (mask.trimmed().isEmpty())
        return {};
    QString format = mask;
    for (QChar& c : format) {
        if (c == QLatin1Char('A') || c == QLatin1Char('N') || c == QLatin1Char('#'))
            c = QLatin1Char('@');
    }
    return format;
}

QString WithExtension(const QString& format) {
    return format.isEmpty() ? QString() : format + QStringLiteral(" @@@@@");
}

QString FormatPhone(const QString& number, const QString& format) {
    QString digits = OneLine(number).trimmed();
    const bool plain = std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c.isDigit(); });
    if (digits.isEmpty() || format.isEmpty() || !plain)
        return digits;

    QString text;
    qsizetype used = 0;
    for (const QChar c : format) {
        if (used == digits.size())
            break;
        text += c == QLatin1Char('@') ? digits.at(used++) : c;
    }
    return text + digits.mid(used);
}

QString FormatPhoneNo(const QString& number) {
    const QString text = number.trimmed();
    if (text.size() == 10)
        return QStringLiteral("(%1) %2-%3").arg(text.first(3), text.sliced(3, 3), text.last(4));
    if (text.size() == 7)
        return text.first(3) + u'-' + text.last(4);
    return text;
}
