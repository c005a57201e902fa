#include "platform/database/embedded/datefunctions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QLocale>
#include <QRegularExpression>

#include "platform/database/datetext.h"
#include "platform/database/embedded/functioncall.h"
#include "platform/database/embedded/names.h"

namespace db::embedded {

namespace {

enum class Part { Year, Quarter, Month, DayOfYear, Day, Week, Weekday, Hour, Minute, Second, Millisecond };

struct PartName {
    std::string_view name;
    Part part;
};

constexpr std::array<PartName, 30> partNames = {{
    {"year", Part::Year},
    {"yy", Part::Year},
    {"yyyy", Part::Year},
    {"quarter", Part::Quarter},
    {"qq", Part::Quarter},
    {"q", Part::Quarter},
    {"month", Part::Month},
    {"mm", Part::Month},
    {"m", Part::Month},
    {"dayofyear", Part::DayOfYear},
    {"dy", Part::DayOfYear},
    {"y", Part::DayOfYear},
    {"day", Part::Day},
    {"dd", Part::Day},
    {"d", Part::Day},
    {"week", Part::Week},
    {"wk", Part::Week},
    {"ww", Part::Week},
    {"weekday", Part::Weekday},
    {"dw", Part::Weekday},
    {"hour", Part::Hour},
    {"hh", Part::Hour},
    {"minute", Part::Minute},
    {"mi", Part::Minute},
    {"n", Part::Minute},
    {"second", Part::Second},
    {"ss", Part::Second},
    {"s", Part::Second},
    {"millisecond", Part::Millisecond},
    {"ms", Part::Millisecond},
}};

Part partOf(std::string_view name) {
    const auto* found = std::find_if(partNames.begin(), partNames.end(),
                                     [&](const PartName& each) { return SameName(each.name, name); });
    if (found == partNames.end())
        throw DatabaseError(155, QStringLiteral("'%1' is not a recognized datepart option.").arg(ToQt(name)));
    return found->part;
}

/// Moments are read in UTC, where no hour comes twice, because the server's moments have no zone either.
QDateTime momentOf(const FunctionCall& call, int i) {
    const std::string stored =
        call.isText(i) ? DateTimeFromText(std::string(call.text(i))) : DateTimeFromNumber(call.real(i));
    const auto read = ReadDateTime(QByteArrayView(stored.data(), static_cast<qsizetype>(stored.size())));
    return {QDate::fromJulianDay(read->julianDay), QTime::fromMSecsSinceStartOfDay(read->milliseconds), Qt::UTC};
}

void giveMoment(const FunctionCall& call, const QDateTime& moment) {
    const auto stored = ToServerDateTime(moment);
    if (!stored)
        throw DatabaseError(517, QStringLiteral("Adding a value to a 'datetime' column caused an overflow."));
    call.give(std::string_view(IsoText(*stored).toStdString()));
}

double daysOf(const QDateTime& moment) {
    constexpr double millisecondsPerDay = 86'400'000;
    return static_cast<double>(moment.date().toJulianDay() - ServerEpochJulianDay) +
           moment.time().msecsSinceStartOfDay() / millisecondsPerDay;
}

/// Weeks and weekdays begin on Sunday.
qint64 sundayWeek(QDate date) {
    return (date.toJulianDay() + 1) / 7;
}

qint64 partValue(Part part, const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    switch (part) {
        case Part::Year:
            return date.year();
        case Part::Quarter:
            return (date.month() + 2) / 3;
        case Part::Month:
            return date.month();
        case Part::DayOfYear:
            return date.dayOfYear();
        case Part::Day:
            return date.day();
        case Part::Week:
            return sundayWeek(date) - sundayWeek(QDate(date.year(), 1, 1)) + 1;
        case Part::Weekday:
            return date.dayOfWeek() % 7 + 1;
        case Part::Hour:
            return time.hour();
        case Part::Minute:
            return time.minute();
        case Part::Second:
            return time.second();
        case Part::Millisecond:
            return time.msec();
    }
    return 0;
}

QDateTime added(Part part, qint64 count, const QDateTime& moment) {
    switch (part) {
        case Part::Year:
            return moment.addYears(static_cast<int>(count));
        case Part::Quarter:
            return moment.addMonths(static_cast<int>(count) * 3);
        case Part::Month:
            return moment.addMonths(static_cast<int>(count));
        case Part::DayOfYear:
        case Part::Day:
        case Part::Weekday:
            return moment.addDays(count);
        case Part::Week:
            return moment.addDays(count * 7);
        case Part::Hour:
            return moment.addSecs(count * 3600);
        case Part::Minute:
            return moment.addSecs(count * 60);
        case Part::Second:
            return moment.addSecs(count);
        case Part::Millisecond:
            return moment.addMSecs(count);
    }
    return moment;
}

/// Counts the boundaries of the part before the moment, so that the difference of two counts is the number of those
/// crossed.
qint64 boundaries(Part part, const QDateTime& moment) {
    const QDate date = moment.date();
    const qint64 milliseconds = moment.toMSecsSinceEpoch();
    switch (part) {
        case Part::Year:
            return date.year();
        case Part::Quarter:
            return date.year() * 4 + (date.month() - 1) / 3;
        case Part::Month:
            return date.year() * 12 + date.month();
        case Part::DayOfYear:
        case Part::Day:
        case Part::Weekday:
            return date.toJulianDay();
        case Part::Week:
            return sundayWeek(date);
        case Part::Hour:
            return static_cast<qint64>(std::floor(static_cast<double>(milliseconds) / 3'600'000));
        case Part::Minute:
            return static_cast<qint64>(std::floor(static_cast<double>(milliseconds) / 60'000));
        case Part::Second:
            return static_cast<qint64>(std::floor(static_cast<double>(milliseconds) / 1000));
        case Part::Millisecond:
            return milliseconds;
    }
    return 0;
}

/// "Mar 11 2026  9:05AM": day and hour are padded with a blank to two places. `minutes` is what follows the hour.
QString defaultText(const QDateTime& moment, const char* minutes) {
    const QTime time = moment.time();
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QStringLiteral("%1 %2 %3 %4:%5%6")
        .arg(QLocale::c().monthName(moment.date().month(), QLocale::ShortFormat))
        .arg(moment.date().day(), 2)
        .arg(moment.date().year())
        .arg(hour, 2)
        .arg(time.toString(QString::fromLatin1(minutes)))
        .arg(time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

QString styledText(const QDateTime& moment, qint64 style) {
    struct StyleFormat {
        int style;
        const char* format;
    };
    static constexpr std::array<StyleFormat, 27> formats = {{
        {1, "MM/dd/yy"},
        {2, "yy.MM.dd"},
        {3, "dd/MM/yy"},
        {4, "dd.MM.yy"},
        {5, "dd-MM-yy"},
        {6, "dd MMM yy"},
        {7, "MMM dd, yy"},
        {8, "HH:mm:ss"},
        {10, "MM-dd-yy"},
        {11, "yy/MM/dd"},
        {12, "yyMMdd"},
        {13, "dd MMM yyyy HH:mm:ss:zzz"},
        {14, "HH:mm:ss:zzz"},
        {20, "yyyy-MM-dd HH:mm:ss"},
        {21, "yyyy-MM-dd HH:mm:ss.zzz"},
        {23, "yyyy-MM-dd"},
        {101, "MM/dd/yyyy"},
        {102, "yyyy.MM.dd"},
        {103, "dd/MM/yyyy"},
        {104, "dd.MM.yyyy"},
        {105, "dd-MM-yyyy"},
        {106, "dd MMM yyyy"},
        {107, "MMM dd, yyyy"},
        {110, "MM-dd-yyyy"},
        {111, "yyyy/MM/dd"},
        {112, "yyyyMMdd"},
        {126, "yyyy-MM-ddTHH:mm:ss.zzz"},
    }};
    if (style == 0 || style == 100)
        return defaultText(moment, "mm");
    if (style == 9 || style == 109)
        return defaultText(moment, "mm:ss:zzz");
    // The fraction is left out where there is none.
    if (style == 126 && moment.time().msec() == 0)
        return QLocale::c().toString(moment, QStringLiteral("yyyy-MM-ddTHH:mm:ss"));
    // Styles of times and ISO forms mean the same with and without the added hundred.
    static constexpr std::array<qint64, 5> doubled = {108, 113, 114, 120, 121};
    const qint64 same = std::find(doubled.begin(), doubled.end(), style) == doubled.end() ? style : style - 100;
    const auto* found =
        std::find_if(formats.begin(), formats.end(), [same](const StyleFormat& each) { return each.style == same; });
    if (found == formats.end())
        throw DatabaseError(
            281, QStringLiteral("%1 is not a valid style number when converting from datetime to a character string.")
                     .arg(style));
    return QLocale::c().toString(moment, QString::fromLatin1(found->format));
}

}  // namespace

void DayOf(const FunctionCall& call) {
    call.give(qint64{momentOf(call, 0).date().day()});
}

void MonthOf(const FunctionCall& call) {
    call.give(qint64{momentOf(call, 0).date().month()});
}

void YearOf(const FunctionCall& call) {
    call.give(qint64{momentOf(call, 0).date().year()});
}

void DatePart(const FunctionCall& call) {
    call.give(partValue(partOf(call.text(0)), momentOf(call, 1)));
}

void DateAdd(const FunctionCall& call) {
    giveMoment(call, added(partOf(call.text(0)), call.integer(1), momentOf(call, 2)));
}

void DateDiff(const FunctionCall& call) {
    const Part part = partOf(call.text(0));
    const qint64 difference = boundaries(part, momentOf(call, 2)) - boundaries(part, momentOf(call, 1));
    if (difference != static_cast<qint32>(difference))
        throw DatabaseError(
            535,
            QStringLiteral(
                "The datediff function resulted in an overflow. The number of dateparts separating two date/time instances is too large. Try to use datediff with a less precise datepart."));
    call.give(difference);
}

void DateName(const FunctionCall& call) {
    const Part part = partOf(call.text(0));
    const QDateTime moment = momentOf(call, 1);
    QString name = QString::number(partValue(part, moment));
    if (part == Part::Month)
        name = QLocale::c().monthName(moment.date().month());
    else if (part == Part::Weekday)
        name = QLocale::c().dayName(moment.date().dayOfWeek());
    call.give(std::string_view(name.toStdString()));
}

void IsDate(const FunctionCall& call) {
    const std::string_view text = call.isNull(0) ? std::string_view() : call.text(0);
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    call.give(qint64{!text.empty() && ReadDateTime(bytes).has_value()});
}

void DaysOf(const FunctionCall& call) {
    call.give(daysOf(momentOf(call, 0)));
}

void DateMinus(const FunctionCall& call) {
    call.give(std::string_view(DateTimeFromNumber(daysOf(momentOf(call, 0)) - daysOf(momentOf(call, 1)))));
}

void StyledMoment(const FunctionCall& call) {
    static const QRegularExpression numbers(QStringLiteral(R"(^\s*(\d{1,2})([/.-])(\d{1,2})\2(\d{4}|\d{2})\b(.*)$)"));
    static constexpr std::array<qint64, 6> dayFirst = {3, 4, 5, 103, 104, 105};
    QString text = ToQt(call.text(0));
    const QRegularExpressionMatch match = numbers.match(text);
    if (match.hasMatch() && std::find(dayFirst.begin(), dayFirst.end(), call.integer(1)) != dayFirst.end())
        text = QStringLiteral("%1/%2/%3%4")
                   .arg(match.captured(3), match.captured(1), match.captured(4), match.captured(5));
    call.give(std::string_view(DateTimeFromText(text.toStdString())));
}

void ToMoment(const FunctionCall& call) {
    giveMoment(call, momentOf(call, 0));
}

void DatePlusDays(const FunctionCall& call) {
    constexpr double millisecondsPerDay = 86'400'000;
    giveMoment(call, momentOf(call, 0).addMSecs(std::llround(call.real(1) * millisecondsPerDay)));
}

void DateToText(const FunctionCall& call) {
    const QString text = styledText(momentOf(call, 0), call.integer(1));
    const auto length = static_cast<qsizetype>(call.integer(2));
    call.give(std::string_view((length > 0 ? text.left(length) : text).toStdString()));
}

}  // namespace db::embedded
