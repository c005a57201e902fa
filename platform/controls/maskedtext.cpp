#include "platform/controls/maskedtext.h"

#include <algorithm>

namespace mask {

namespace {

bool isPlace(QChar sign) {
    return sign == QLatin1Char('#') || sign == QLatin1Char('A') || sign == QLatin1Char('N');
}

bool fits(QChar place, QChar c) {
    if (place == QLatin1Char('#'))
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    return place == QLatin1Char('A') ? c.isLetter() : c.isLetterOrNumber();
}

bool isFiller(QChar c, bool afterNumber) {
    return !c.isLetterOrNumber() || (afterNumber && c.toLower() == QLatin1Char('x'));
}

}  // namespace

int Places(const QString& mask) {
    return static_cast<int>(std::count_if(mask.begin(), mask.end(), isPlace));
}

std::optional<QString> Raw(const QString& mask, const QString& text) {
    QString raw;
    qsizetype at = 0;
    for (const QChar c : text) {
        qsizetype place = at;
        while (place < mask.size() && !isPlace(mask[place]) && mask[place] != c)
            ++place;
        if (place < mask.size() && (isPlace(mask[place]) ? fits(mask[place], c) : mask[place] == c)) {
            if (isPlace(mask[place]))
                raw.append(c);
            at = place + 1;
        } else if (!isFiller(c, !raw.isEmpty())) {
            return std::nullopt;
        }
    }
    return raw;
}

QString Form(const QString& mask, const QString& raw) {
    QString text;
    QString literals;
    qsizetype taken = 0;
    for (const QChar sign : mask) {
        if (taken == raw.size())
            break;
        if (isPlace(sign)) {
            text += literals + raw[taken++];
            literals.clear();
        } else {
            literals += sign;
        }
    }
    return text;
}

QString Hint(const QString& mask) {
    QString hint = mask;
    std::replace_if(hint.begin(), hint.end(), isPlace, QLatin1Char('_'));
    return hint;
}

}  // namespace mask
