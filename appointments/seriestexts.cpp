#include "appointments/seriestexts.h"

#include <algorithm>
#include <array>
#include <QLocale>
#include <QObject>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "data/statuses.h"
#include "session/session.h"

namespace {

constexpr std::array toldStatuses{ncolor::Tentative, ncolor::Missed, ncolor::PatientCancelled,
                                  ncolor::TherapistCancelled, ncolor::Unavailable};

}  // namespace

QString WeekdayAndDate(QDate date) {
    const bool monthFirst = Session().DateOrder == 0;
    return QLocale::c().toString(date,
                                 monthFirst ? QStringLiteral("ddd MM/dd/yyyy") : QStringLiteral("ddd dd/MM/yyyy"));
}

QString TimesText(MinuteSpan time) {
    const bool military = Session().MilitaryTime;
    return QStringLiteral("%1 - %2").arg(MinutesToTimeText(static_cast<int>(time.start), military),
                                         MinutesToTimeText(static_cast<int>(time.end), military));
}

QString BookedText(const QString& who, MinuteSpan time) {
    return QStringLiteral("%1 %2").arg(who.simplified(), TimesText(time));
}

QString TextWithoutName(const db::Recordset& row) {
    const bool named = NamesPatient(static_cast<int>(row["ncolor"].integer()), !row["patientid"].text().isEmpty());
    return named ? QObject::tr("A patient") : row["cappttext"].text();
}

QString WithStatus(const QString& text, int code) {
    if (std::ranges::find(toldStatuses, code) == toldStatuses.end())
        return text;
    return QStringLiteral("%1 (%2)").arg(text.simplified(), QLatin1String(StatusOf(code).word));
}
