#include "data/minutetime.h"

#include <QTime>

namespace {

QString hourText(int minutes) {
    if (minutes < 60 || (minutes >= 720 && minutes < 779))
        return QStringLiteral("12:");
    return QString::number((minutes > 720 ? minutes - 720 : minutes) / 60) + QLatin1Char(':');
}

QString suffix(int minutes) {
    if (minutes == 0 || minutes == MinutesPerDay)
        return QStringLiteral(" Mid");
    if (minutes == 720)
        return QStringLiteral(" Noon");
    return minutes < 720 ? QStringLiteral(" AM") : QStringLiteral(" PM");
}

}  // namespace

QString MinutesToTimeText(int minutes, bool militaryTime) {
    if (militaryTime)
        return QTime::fromMSecsSinceStartOfDay((minutes % MinutesPerDay + MinutesPerDay) % MinutesPerDay * 60'000)
            .toString(QStringLiteral("HH:mm"));
    return hourText(minutes) + QStringLiteral("%1").arg(minutes % 60, 2, 10, QLatin1Char('0')) + suffix(minutes);
}
