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
