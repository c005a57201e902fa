#include "platform/controls/timefield.h"

#include <QRegularExpression>

namespace {

constexpr int HourMinutes = 60;
constexpr int Noon = 12 * HourMinutes;
constexpr int DayMinutes = 24 * HourMinutes;
/// The first hour that means the morning when it is typed without am or pm.
constexpr int FirstMorningHour = 7;

const QRegularExpression& clockText() {
    static const QRegularExpression expression(
        QStringLiteral("^(?<hour>\\d{1,2}?)(?:(?<parting>[:. ])(?<minute>\\d{1,2})(?::00)?|(?<close>\\d{2}))?"
                       " ?(?:(?<half>[ap])\\.? ?(?:m\\.?)?|(?<noon>noon)|(?<mid>mid(?:night)?))?$"));
    return expression;
}

std::optional<int> bareTime(const QString& hourText, int minute, const TimeForm& form) {
    int hour = hourText.toInt();
    if (!form.twentyFourHour && hour >= 1 && hour < FirstMorningHour && !hourText.startsWith(QLatin1Char('0')))
        hour += 12;
    const int minutes = hour * HourMinutes + minute;
    return minutes <= DayMinutes ? std::optional(minutes) : std::nullopt;
}

std::optional<int> halfDayTime(int hour, int minute, bool afternoon) {
    if (hour > (afternoon ? 23 : 12))
        return std::nullopt;
    return (hour % 12 + (afternoon ? 12 : 0)) * HourMinutes + minute;
}

/// A single digit is a minute only after a colon, because "9.5" may mean half past nine.
std::optional<int> minuteOf(const QRegularExpressionMatch& match) {
    const QString text = match.captured(u"minute") + match.captured(u"close");
    if (text.size() == 1 && match.captured(u"parting") != QLatin1String(":"))
        return std::nullopt;
    const int minute = text.toInt();
    return minute < HourMinutes ? std::optional(minute) : std::nullopt;
}

}  // namespace

std::optional<int> ReadTime(const QString& text, const TimeForm& form) {
    const QString typed = text.simplified().toLower();
    const int midnight = form.isEnd ? DayMinutes : 0;
    if (typed == QLatin1String("noon"))
        return Noon;
    if (typed == QLatin1String("mid") || typed == QLatin1String("midnight"))
        return midnight;
    const QRegularExpressionMatch match = clockText().match(typed);
    const std::optional<int> minute = match.hasMatch() ? minuteOf(match) : std::nullopt;
    if (!minute)
        return std::nullopt;
    const QString hourText = match.captured(u"hour");
    const int hour = hourText.toInt();
    const bool twelve = hour == 12 && *minute == 0;
    if (match.hasCaptured(u"noon"))
        return twelve ? std::optional(Noon) : std::nullopt;
    if (match.hasCaptured(u"mid"))
        return twelve ? std::optional(midnight) : std::nullopt;
    if (match.hasCaptured(u"half"))
        return halfDayTime(hour, *minute, match.captured(u"half") == QLatin1String("p"));
    return bareTime(hourText, *minute, form);
}

QString TimeFieldText(int minutes, const TimeForm& form) {
    if (minutes < 0 || minutes > DayMinutes)
        return {};
    if (minutes == DayMinutes && form.isEnd && !form.twentyFourHour)
        return QStringLiteral("12:00 Mid");
    const int hour = minutes / HourMinutes;
    const QString minute = QStringLiteral("%1").arg(minutes % HourMinutes, 2, 10, QLatin1Char('0'));
    if (form.twentyFourHour || minutes == DayMinutes)
        return QStringLiteral("%1:%2").arg(hour, 2, 10, QLatin1Char('0')).arg(minute);
    return QStringLiteral("%1:%2 %3")
        .arg(hour % 12 == 0 ? 12 : hour % 12)
        .arg(minute, minutes < Noon ? QStringLiteral("AM") : QStringLiteral("PM"));
}
