#include "platform/controls/datefield.h"

#include <array>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int FirstYear = 1753;
constexpr int LastYear = 9999;
constexpr int YearsAhead = 20;
constexpr int MonthsBack = 6;
constexpr int NameLetters = 3;

/// The day on which a date is typed, and how its year is read.
struct Reader {
    QDate today;
    YearReading reading = YearReading::NearToday;
};

/// The parts of a typed date.
struct Parts {
    QStringList numbers;    ///< In the order typed.
    int month = 0;          ///< 1 to 12 when named.
    int numbersBefore = 0;  ///< How many numbers stand before the month's name.
    int weekday = 0;        ///< 1 Monday to 7 Sunday when named.
};

/// Returns the position, from 1, of the only name that starts with `word`, in English or in the language of the
/// computer; 0 where none or more than one does.
template <class NameOf>
int namedPosition(const QString& word, int count, NameOf nameOf) {
    if (word.size() < NameLetters)
        return 0;
    for (const QLocale& locale : {QLocale::c(), QLocale()}) {
        int found = 0;
        int hits = 0;
        for (int position = 1; position <= count; ++position)
            if (nameOf(locale, position).startsWith(word, Qt::CaseInsensitive)) {
                found = position;
                ++hits;
            }
        if (hits == 1)
            return found;
    }
    return 0;
}

int monthNamed(const QString& word) {
    return namedPosition(word, 12, [](const QLocale& locale, int month) { return locale.monthName(month); });
}

int weekdayNamed(const QString& word) {
    return namedPosition(word, 7, [](const QLocale& locale, int day) { return locale.dayName(day); });
}

bool isOrdinal(const QString& word) {
    static const QStringList endings{QStringLiteral("st"), QStringLiteral("nd"), QStringLiteral("rd"),
                                     QStringLiteral("th")};
    return endings.contains(word);
}

bool takeWord(Parts& parts, const QString& word) {
    if (isOrdinal(word))
        return !parts.numbers.isEmpty();
    if (const int month = monthNamed(word); month != 0 && parts.month == 0) {
        parts.month = month;
        parts.numbersBefore = static_cast<int>(parts.numbers.size());
        return true;
    }
    parts.weekday = parts.weekday == 0 && parts.numbers.isEmpty() && parts.month == 0 ? weekdayNamed(word) : 0;
    return parts.weekday != 0;
}

std::optional<Parts> partsOf(const QString& typed) {
    static const QRegularExpression whole(
        QStringLiteral("^(?:[0-9]+|\\p{L}+)(?:[ ]?[-/.,]?[ ]?(?:[0-9]+|\\p{L}+))*\\.?$"));
    static const QRegularExpression piece(QStringLiteral("[0-9]+|\\p{L}+"));
    if (!whole.match(typed).hasMatch())
        return std::nullopt;
    Parts parts;
    for (auto pieces = piece.globalMatch(typed); pieces.hasNext();) {
        const QString text = pieces.next().captured();
        if (text.front().isDigit())
            parts.numbers.append(text);
        else if (!takeWord(parts, text))
            return std::nullopt;
    }
    return parts;
}

std::optional<QDate> dateOf(int year, int month, int day) {
    const QDate date(year, month, day);
    if (!date.isValid() || year < FirstYear || year > LastYear)
        return std::nullopt;
    return date;
}

std::optional<QDate> withoutYear(const QString& month, const QString& day, const Reader& reader) {
    if (month.size() > 2 || day.size() > 2)
        return std::nullopt;
    const QDate today = reader.today;
    const std::optional<QDate> thisYear = dateOf(today.year(), month.toInt(), day.toInt());
    if (reader.reading == YearReading::Past)
        return thisYear && *thisYear <= today ? thisYear : dateOf(today.year() - 1, month.toInt(), day.toInt());
    if (thisYear && *thisYear >= today.addMonths(-MonthsBack))
        return thisYear;
    return dateOf(today.year() + 1, month.toInt(), day.toInt());
}

std::optional<QDate> withYear(const QString& yearText, const QString& month, const QString& day, const Reader& reader) {
    if ((yearText.size() != 2 && yearText.size() != 4) || month.size() > 2 || day.size() > 2)
        return std::nullopt;
    const int year = yearText.toInt();
    if (yearText.size() == 4)
        return dateOf(year, month.toInt(), day.toInt());
    const std::optional<QDate> date = dateOf(2000 + year, month.toInt(), day.toInt());
    const bool tooLate = reader.reading == YearReading::Past ? !date || *date > reader.today
                                                             : 2000 + year > reader.today.year() + YearsAhead;
    return tooLate ? dateOf(1900 + year, month.toInt(), day.toInt()) : date;
}

std::optional<QDate> namedMonthDate(const Parts& parts, DateOrder order, const Reader& reader) {
    const QString month = QString::number(parts.month);
    const QStringList& numbers = parts.numbers;
    if (numbers.size() == 1)
        return withoutYear(month, numbers[0], reader);
    if (numbers.size() != 2)
        return std::nullopt;
    const bool yearIsFirst =
        numbers[0].size() == 4 || (order == DateOrder::YearFirst && parts.numbersBefore == 1 && numbers[1].size() <= 2);
    return yearIsFirst ? withYear(numbers[0], month, numbers[1], reader)
                       : withYear(numbers[1], month, numbers[0], reader);
}

/// Cuts digits that were typed without separators in the order of the date: 1203, 120326, 12032026.
QStringList cut(const QString& digits, DateOrder order) {
    if (digits.size() == 4)
        return {digits.left(2), digits.mid(2)};
    if (digits.size() != 6 && digits.size() != 8)
        return {};
    const qsizetype yearDigits = digits.size() - 4;
    if (order == DateOrder::YearFirst)
        return {digits.left(yearDigits), digits.mid(yearDigits, 2), digits.right(2)};
    return {digits.left(2), digits.mid(2, 2), digits.right(yearDigits)};
}

std::optional<QDate> numberedDate(QStringList numbers, DateOrder order, const Reader& reader) {
    if (numbers.size() == 1)
        numbers = cut(numbers[0], order);
    const bool dayFirst = order == DateOrder::DayFirst;
    if (numbers.size() == 2)
        return dayFirst ? withoutYear(numbers[1], numbers[0], reader) : withoutYear(numbers[0], numbers[1], reader);
    if (numbers.size() != 3)
        return std::nullopt;
    if (order == DateOrder::YearFirst || numbers[0].size() == 4)
        return withYear(numbers[0], numbers[1], numbers[2], reader);
    return dayFirst ? withYear(numbers[2], numbers[1], numbers[0], reader)
                    : withYear(numbers[2], numbers[0], numbers[1], reader);
}

std::optional<QDate> relativeDate(const QString& typed, QDate today) {
    static const QRegularExpression expression(
        QStringLiteral("^(?:t|today)? ?(?<sign>[-+]) ?(?<count>[0-9]{1,4}) ?(?<unit>[dwmy])?$"));
    const QRegularExpressionMatch match = expression.match(typed);
    if (!match.hasMatch())
        return std::nullopt;
    const int count = match.captured(u"count").toInt() * (match.captured(u"sign") == QLatin1String("-") ? -1 : 1);
    const QString unit = match.captured(u"unit");
    const QDate date = unit == QLatin1String("w")   ? today.addDays(qint64{7} * count)
                       : unit == QLatin1String("m") ? today.addMonths(count)
                       : unit == QLatin1String("y") ? today.addYears(count)
                                                    : today.addDays(count);
    return dateOf(date.year(), date.month(), date.day());
}

}  // namespace

std::optional<QDate> ReadDate(const QString& text, DateOrder order, QDate today, YearReading reading) {
    const QString typed = text.simplified().toLower();
    if (typed == QLatin1String("t") || typed == QLatin1String("today"))
        return today;
    if (const std::optional<QDate> relative = relativeDate(typed, today))
        return relative;
    const std::optional<Parts> parts = partsOf(typed);
    if (!parts)
        return std::nullopt;
    const Reader reader{today, reading};
    const std::optional<QDate> date =
        parts->month != 0 ? namedMonthDate(*parts, order, reader) : numberedDate(parts->numbers, order, reader);
    if (date && parts->weekday != 0 && date->dayOfWeek() != parts->weekday)
        return std::nullopt;
    return date;
}

QString DateFieldText(QDate date, DateOrder order) {
    static const std::array formats{QStringLiteral("MM/dd/yyyy"), QStringLiteral("dd/MM/yyyy"),
                                    QStringLiteral("yyyy/MM/dd")};
    return QLocale::c().toString(date, formats.at(static_cast<size_t>(order)));
}
