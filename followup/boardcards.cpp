#include "followup/boardcards.h"

#include <QCoreApplication>
#include <QLocale>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/statuses.h"
#include "followup/checkintime.h"
#include "platform/desktop/localefacts.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

/// From how many minutes on a patient has waited long, and how far ahead a visit is told in minutes.
constexpr int LongWait = 15;
constexpr int SoonMinutes = 60;
constexpr int MinutesPerHour = 60;
/// From so many minutes on a length is told in hours.
constexpr int MostMinutes = 100;

QString words(const char* text) {
    return QCoreApplication::translate("Board", text);
}

QString timeText(int minutes) {
    return MinutesToTimeText(minutes, Session().MilitaryTime);
}

QString lengthText(int minutes) {
    if (minutes < MostMinutes)
        return words("%1 min").arg(minutes);
    return words("%1 h %2").arg(minutes / MinutesPerHour).arg(minutes % MinutesPerHour, 2, 10, QLatin1Char('0'));
}

QString dayText(QDate date) {
    return QLocale::c().toString(date, QStringLiteral("ddd ")) + ShortDateText(date);
}

QString dueMark(const BoardVisit& visit, int minute) {
    if (!visit.start || *visit.start - minute > SoonMinutes)
        return {};
    return *visit.start == minute ? words("now") : words("in %1").arg(lengthText(*visit.start - minute));
}

QString noteMark(BoardVisit::Note note) {
    switch (note) {
        case BoardVisit::Note::Missing:
            return words("no note");
        case BoardVisit::Note::Unsigned:
            return words("note not signed");
        case BoardVisit::Note::Signed:
            return words("note signed");
    }
    return {};
}

QString markOf(const BoardVisit& visit, BoardPlace place, int minute) {
    switch (place) {
        case BoardPlace::Due:
            return dueMark(visit, minute);
        case BoardPlace::Late:
            return lengthText(minute - visit.start.value_or(minute));
        case BoardPlace::Waiting:
            return MinutesWaited(visit, minute) < 0 ? words("time unknown") : lengthText(MinutesWaited(visit, minute));
        case BoardPlace::InSession:
            return words("%1 left").arg(lengthText(visit.end - minute));
        case BoardPlace::NotComing:
            return QString::fromLatin1(StatusOf(visit.code).word);
        case BoardPlace::EndingSeries:
            return words("%1 left").arg(visit.left);
        case BoardPlace::Gone:
        case BoardPlace::UnwrittenNote:
            return noteMark(visit.note);
    }
    return {};
}

QString arrivalText(const BoardVisit& visit) {
    const int arrival = MinutesOfCheckIn(visit.arrival);
    if (arrival >= 0)
        return words("here since %1").arg(timeText(arrival));
    return visit.arrival.trimmed().isEmpty() ? words("no time of arrival")
                                             : words("arrival \"%1\"").arg(visit.arrival.simplified());
}

/// The parts of the second line, by their importance.
QStringList detailsOf(const BoardVisit& visit, BoardPlace place, const QString& provider) {
    const QString time = visit.start ? timeText(*visit.start) : words("no time");
    if (place == BoardPlace::EndingSeries)
        return {visit.left > 1 ? words("last on %1").arg(dayText(visit.last)) : words("on %1").arg(dayText(visit.last)),
                provider};
    if (place == BoardPlace::UnwrittenNote)
        return {dayText(visit.date), time, provider};
    QStringList parts{time, provider};
    if (place == BoardPlace::Waiting)
        parts << arrivalText(visit);
    else if (visit.IsAwaited() && StatusOf(visit.code).mark != StatusMark::None)
        parts << QString::fromLatin1(StatusOf(visit.code).word);
    return parts;
}

struct PlaceWords {
    const char* title;
    const char* empty;
    const char* meaning;
};

const PlaceWords& wordsOf(BoardPlace place) {
    static constexpr std::array<PlaceWords, BoardPlaces> all{{
        {"Due", "Nobody else is due today.", "Visits of today that have not begun"},
        {"Late", "Nobody is late.", "The visit has begun, and the patient has not been checked in"},
        {"Waiting", "Nobody is waiting.", "Checked in, with the minutes since the arrival"},
        {"In Session", "No visit is going on.", "Kept, until the end of the visit or until its note is signed"},
        {"Gone", "Nobody has left yet.", "Kept, and the visit is over"},
        {"Not Coming", "Nobody has missed or cancelled.", "Missed today, or cancelled by patient or therapist"},
        {"Notes to Sign", "Every note is written and signed.",
         "Kept visits of the last 30 days without a note, or with one that is not signed"},
        {"Series That End", "No series ends soon.", "Series of which 4 visits or fewer are left from today on"},
    }};
    return all[static_cast<std::size_t>(place)];
}

}  // namespace

BoardCard CardOf(const BoardVisit& visit, BoardPlace place, const QString& provider, int minute) {
    BoardCard card;
    card.key = visit.key;
    card.name = visit.name.isEmpty() ? words("(no name)") : ShownName(visit.name);
    card.detail = detailsOf(visit, place, provider).join(QStringLiteral(" · "));
    card.mark = markOf(visit, place, minute);
    card.spokenMark = place == BoardPlace::Late      ? words("%1 late").arg(card.mark)
                      : place == BoardPlace::Waiting ? words("waiting %1").arg(card.mark)
                                                     : card.mark;
    card.isUrgent =
        place == BoardPlace::Late || (place == BoardPlace::Waiting &&
                                      !(MinutesWaited(visit, minute) >= 0 && MinutesWaited(visit, minute) < LongWait));
    card.tip = card.Spoken();
    return card;
}

bool IsFound(const BoardCard& card, const QString& search) {
    const bool isHidden = Session().HidePatientNames;
    const QString text = (isHidden ? QString() : card.name) + u' ' + card.detail + u' ' + card.mark;
    for (const QString& word : search.split(u' ', Qt::SkipEmptyParts))
        if (!text.contains(word, Qt::CaseInsensitive))
            return false;
    return true;
}

QString TitleOf(BoardPlace place) {
    return words(wordsOf(place).title);
}

QString EmptyTextOf(BoardPlace place) {
    return words(wordsOf(place).empty);
}

QString MeaningOf(BoardPlace place) {
    return words(wordsOf(place).meaning);
}
