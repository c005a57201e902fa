#include "followup/checkintime.h"

#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace {

constexpr int NoTime = -1;

/// The date and the time of a stored text, separated at its first blank.
struct Parts {
    QString date;
    QString time;
};

Parts partsOf(const QString& stored) {
    const QString text = stored.simplified();
    const qsizetype blank = text.indexOf(u' ');
    if (blank < 0 || text.left(blank).contains(u':'))
        return {{}, text};
    return {text.left(blank), text.mid(blank + 1)};
}

QString twelveHours(int minutes, const char* format) {
    return QLocale::c().toString(QTime(minutes / 60, minutes % 60), QLatin1String(format));
}

}  // namespace

QString CheckInTimeText(QDate date, int minutes, bool dayFirst) {
    return date.toString(dayFirst ? QStringLiteral("dd/MM/yy") : QStringLiteral("MM/dd/yy")) + u' ' +
           twelveHours(minutes, "hh:mm AP");
}

int MinutesOfCheckIn(const QString& stored) {
    static const QStringList formats{QStringLiteral("h:mm AP"), QStringLiteral("h:mm:ss AP"), QStringLiteral("H:mm"),
                                     QStringLiteral("H:mm:ss"), QStringLiteral("H:mm:ss.zzz")};
    const QString time = partsOf(stored).time.toUpper();
    for (const QString& format : formats)
        if (const QTime read = QLocale::c().toTime(time, format); read.isValid())
            return read.hour() * 60 + read.minute();
    return NoTime;
}

QString ShownCheckIn(const QString& stored) {
    const int minutes = MinutesOfCheckIn(stored);
    if (minutes < 0)
        return stored;
    const QString date = partsOf(stored).date;
    return (date.isEmpty() ? QString() : date + u' ') + twelveHours(minutes, "h:mm AP");
}
