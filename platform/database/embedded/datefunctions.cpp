#include "platform/database/embedded/datefunctions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QLocale>

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

constexpr std::array<PartName, 28> partNames = {{
    {"year", Part::Year},       {"yy", Part::Year},
    {"yyyy", Part::Year},       {"quarter", Part::Quarter},
    {"qq", Part::Quarter},      {"q", Part::Quarter},
    {"month", Part::Month},     {"mm", Part::Month},
    {"m", Part::Month},         {"dayofyear", Part::DayOfYear},
    {"dy", Part::DayOfYear},    {"y", Part::DayOfYear},
    {"day", Part::Day},         {"dd", Part::Day},
    {"d", Part::Day},           {"week", Part::Week},
    {"wk", Part::Week},         {"ww", Part::Week},
    {"weekday", Part::Weekday}, {"dw", Part::Weekday},
    {"hour", Part::Hour},       {"hh", Part::Hour},
    {"minute", Part::Minute},   {"mi", Part::Minute},
    {"n", Part::Minute},        {"second", Part::Second},
    {"ss", Part::Second},       {"millisecond", Part::Millisecond},
}};

Part partOf(std::string_view name) {
    const auto* found = std::find_if(partNames.begin(), partNames.end(),
                                     [&](const PartName& each) { return SameName(each.name, name); });
    if (found == partNames.end())
        throw DatabaseError(155, QStringLiteral("'%1' is not a recognized datepart option.").arg(ToQt(name)));
    return found->part;
}

/// In UTC, which has no hour twice: the server's moments have no zone either.
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

/// The boundaries of the part that lie before the moment, so that a difference counts those crossed.
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

/// "Mar 11 2026  9:05AM": day and hour are padded with a blank to two places.
QString defaultText(const QDateTime& moment) {
    const QTime time = moment.time();
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QStringLiteral("%1 %2 %3 %4:%5%6")
        .arg(QLocale::c().monthName(moment.date().month(), QLocale::ShortFormat))
        .arg(moment.date().day(), 2)
        .arg(moment.date().year())
        .arg(hour, 2)
        .arg(time.minute(), 2, 10, QLatin1Char('0'))
        .arg(time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
}

QString styledText(const QDateTime& moment, qint64 style) {
    struct StyleFormat {
        int style;
        const char* format;
    };
    static constexpr std::array<StyleFormat, 20> formats = {{
        {1, "MM/dd/yy"},     {2, "yy.MM.dd"},
        {3, "dd/MM/yy"},     {4, "dd.MM.yy"},
        {5, "dd-MM-yy"},     {8, "HH:mm:ss"},
        {10, "MM-dd-yy"},    {11, "yy/MM/dd"},
        {12, "yyMMdd"},      {20, "yyyy-MM-dd HH:mm:ss"},
        {23, "yyyy-MM-dd"},  {21, "yyyy-MM-dd HH:mm:ss.zzz"},
        {101, "MM/dd/yyyy"}, {102, "yyyy.MM.dd"},
        {103, "dd/MM/yyyy"}, {104, "dd.MM.yyyy"},
        {105, "dd-MM-yyyy"}, {110, "MM-dd-yyyy"},
        {111, "yyyy/MM/dd"}, {112, "yyyyMMdd"},
    }};
    if (style == 0 || style == 100)
        return defaultText(moment);
    // Styles of times and ISO forms are the same with and without the hundred.
    const qint64 same = style == 108 ? 8 : style == 120 ? 20 : style == 121 ? 21 : style;
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
    call.give(boundaries(part, momentOf(call, 2)) - boundaries(part, momentOf(call, 1)));
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
