#include "companion/companiontime.h"

#include <QLocale>
#include <QRegularExpression>

#include "data/minutetime.h"
#include "platform/controls/datefield.h"
#include "platform/controls/timefield.h"
#include "platform/database/resulttable.h"
#include "platform/desktop/desktop.h"

namespace {

/// The newer types of a server give more digits of a second than a date-time has.
QDateTime withoutFraction(QString text) {
    static const QRegularExpression fraction(QStringLiteral("(:\\d{2})\\.\\d+"));
    return db::Value(text.replace(fraction, QStringLiteral("\\1"))).dateTime();
}

}  // namespace

std::optional<int> CompanionMinutes(const db::Field& time) {
    QDateTime moment = time.dateTime();
    if (!moment.isValid())
        moment = withoutFraction(time.text());
    if (!moment.isValid())
        return std::nullopt;
    return moment.time().hour() * 60 + moment.time().minute();
}

// Month first in every desk, because the session of a server reads the date so.
QString CompanionTimeText(QDate date, int minutes) {
    return DateFieldText(date, DateOrder::MonthFirst) + QLatin1Char(' ') +
           TimeFieldText(minutes % MinutesPerDay, TimeForm{});
}

QString CompanionNowText() {
    return QLocale::c().toString(Now(), QStringLiteral("MM/dd/yyyy h:mm:ss AP"));
}
