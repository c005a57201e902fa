#include "followup/boardvisits.h"

#include <algorithm>
#include <QHash>
#include <tuple>

#include "data/codes.h"
#include "data/minutetime.h"
#include "followup/checkintime.h"
#include "followup/statuscommands.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"

using db::Sql;

namespace {

QString ofProvider(const QString& id) {
    return id.isEmpty() ? QString() : Sql(" and appointments.clinicianid = '{}'", id);
}

QString todayStatement(QDate date, const QString& providerId) {
    return Sql(
        "Select appointments.nkeyid, dapptdate, nStartTime, nEndTime, allday, cappttext, ncolor, appttype, clinicianid, appointments.patientid, CheckInTime, NoteID, sessions.id as NoteRow, SignatureDate, (Select Count(*) from SessionSignatures Where session_id = appointments.NoteID) as Drawn from appointments Left Join sessions on sessions.id = appointments.NoteID Where dapptdate = '{}' and appttype <> {}{} Order by nStartTime, appointments.nkeyid",
        db::SqlDate(date), ApptTypeSlot, db::Raw{ofProvider(providerId)});
}

QString notesStatement(QDate date, const QString& providerId) {
    return Sql(
        "Select appointments.nkeyid, dapptdate, nStartTime, nEndTime, allday, cappttext, ncolor, appttype, clinicianid, appointments.patientid, CheckInTime, NoteID, sessions.id as NoteRow, SignatureDate, 0 as Drawn from appointments Left Join sessions on sessions.id = appointments.NoteID Where dapptdate >= '{}' and dapptdate <= '{}' and ncolor = {} and appttype <> {}{} and SignatureDate Is Null and Not Exists (Select session_id from SessionSignatures Where session_id = sessions.id) Order by dapptdate, nStartTime, appointments.nkeyid",
        db::SqlDate(date.addDays(-NoteDays)), db::SqlDate(date), ncolor::Kept, ApptTypeSlot,
        db::Raw{ofProvider(providerId)});
}

/// The condition of HasStatus, besides the kind of the row, where the database counts rows.
QString hasStatus() {
    QStringList codes;
    for (const int code : ncolor::PatientRows)
        codes << QString::number(code);
    return Sql("(ncolor in ({}) or (IsNull(ncolor, 0) not in ({}, {}, {}, {}) and IsNull(patientid, '') <> ''))",
               db::Raw{codes.join(QStringLiteral(", "))}, ncolor::Activity, ncolor::Unavailable, ncolor::Group,
               ncolor::Holiday);
}

/// What is left of a series, beside the column of the series.
QString isLeft(QDate date, const QString& providerId) {
    return Sql(
        "dapptdate >= '{}' and repeating = 1 and appttype <> {} and IsNull(ncolor, 0) not in ({}, {}, {}) and {}{}",
        db::SqlDate(date), ApptTypeSlot, ncolor::Missed, ncolor::PatientCancelled, ncolor::TherapistCancelled,
        db::Raw{hasStatus()}, db::Raw{ofProvider(providerId)});
}

// Grouping by a sum keeps the embedded engine from walking through all series ever booked instead of the days to come.
QString seriesStatement(QDate date, const QString& providerId) {
    const db::Raw left{isLeft(date, providerId)};
    return Sql(
        "Select nkeyid, dapptdate, nStartTime, nEndTime, allday, cappttext, ncolor, appttype, clinicianid, patientid, CheckInTime, NoteID, repeating_ref from appointments Where {} and repeating_ref in (Select repeating_ref + 0 from appointments Where {} Group by repeating_ref + 0 Having Count(*) <= {}) Order by dapptdate, nStartTime, nkeyid",
        left, left, SeriesVisits);
}

QString providersStatement() {
    return QStringLiteral(
        "Select id, prov_lastname, archive, ExcludeFromScheduler from provider_info Order by prov_lastname, id");
}

/// One row of a table, by the names of its columns.
class Row {
  public:
    Row(const db::ResultTable& table, int row) : table_(table), row_(row) {}

    [[nodiscard]] db::Field operator[](const char* name) const {
        const auto& columns = table_.columns();
        const auto found = std::ranges::find_if(columns, [name](const db::Column& column) {
            return column.name.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
        });
        return table_.at(row_, static_cast<int>(found - columns.begin()));
    }
    [[nodiscard]] int number(const char* name) const { return static_cast<int>((*this)[name].integer()); }

  private:
    const db::ResultTable& table_;
    int row_;
};

BoardVisit visitOf(const Row& row) {
    BoardVisit visit;
    visit.key = row.number("nkeyid");
    visit.date = row["dapptdate"].date();
    if (!row["nStartTime"].isNull() && !row["allday"].boolean())
        visit.start = row.number("nStartTime");
    visit.end = row.number("nEndTime");
    visit.name = OneLine(row["cappttext"].text());
    visit.code = row.number("ncolor");
    visit.providerId = row["clinicianid"].text();
    visit.patientId = row["patientid"].text();
    visit.arrival = row["CheckInTime"].text();
    visit.noteId = row.number("NoteID");
    return visit;
}

BoardVisit::Note noteOf(const Row& row) {
    if (row["NoteRow"].isNull())
        return BoardVisit::Note::Missing;
    return row["SignatureDate"].isNull() && row.number("Drawn") == 0 ? BoardVisit::Note::Unsigned
                                                                     : BoardVisit::Note::Signed;
}

std::vector<BoardVisit> notedVisits(const db::ResultTable& table) {
    std::vector<BoardVisit> visits;
    for (int i = 0; i < table.rowCount(); ++i) {
        const Row row(table, i);
        BoardVisit visit = visitOf(row);
        visit.note = noteOf(row);
        if (HasStatus(visit.code, row.number("appttype"), visit.patientId))
            visits.push_back(visit);
    }
    return visits;
}

/// The rows come in the order of their days, so that the first of a series is its next visit.
std::vector<BoardVisit> endingSeries(const db::ResultTable& table) {
    std::vector<BoardVisit> visits;
    QHash<qint64, std::size_t> places;
    for (int i = 0; i < table.rowCount(); ++i) {
        const Row row(table, i);
        BoardVisit visit = visitOf(row);
        const qint64 series = row["repeating_ref"].integer();
        if (!places.contains(series)) {
            places[series] = visits.size();
            visits.push_back(visit);
        }
        BoardVisit& next = visits[places[series]];
        ++next.left;
        next.last = visit.date;
    }
    return visits;
}

std::vector<BoardProvider> providersOf(const db::ResultTable& table) {
    std::vector<BoardProvider> providers;
    for (int i = 0; i < table.rowCount(); ++i) {
        const Row row(table, i);
        providers.push_back({row["id"].text(), OneLine(row["prov_lastname"].text()),
                             row.number("archive") == 0 && row.number("ExcludeFromScheduler") == 0});
    }
    return providers;
}

/// Below any time of the day, so that who has no time stands last where the longest stands first.
int startOrLast(const BoardVisit& visit) {
    return visit.start.value_or(MinutesPerDay + 1);
}

void sortFor(BoardPlace place, int minute, std::vector<BoardVisit>& visits) {
    const auto by = [&visits](auto&& order) { std::ranges::stable_sort(visits, {}, order); };
    if (place == BoardPlace::Waiting)
        by([minute](const BoardVisit& visit) { return -MinutesWaited(visit, minute); });
    else if (place == BoardPlace::InSession)
        by([](const BoardVisit& visit) { return visit.end; });
    else if (place == BoardPlace::Gone)
        by([](const BoardVisit& visit) { return -visit.end; });
    else if (place == BoardPlace::UnwrittenNote)
        by([](const BoardVisit& visit) { return std::tuple(visit.date, startOrLast(visit)); });
    else if (place == BoardPlace::EndingSeries)
        by([](const BoardVisit& visit) { return std::tuple(visit.left, visit.last); });
    else
        by(startOrLast);
}

}  // namespace

bool BoardVisit::IsAwaited() const {
    return code != ncolor::CheckedIn && code != ncolor::Kept && code != ncolor::Missed &&
           code != ncolor::PatientCancelled && code != ncolor::TherapistCancelled;
}

BoardPlace PlaceOf(const BoardVisit& visit, int minute) {
    if (visit.IsAwaited())
        return visit.start && *visit.start < minute ? BoardPlace::Late : BoardPlace::Due;
    if (visit.code == ncolor::CheckedIn)
        return BoardPlace::Waiting;
    if (visit.code != ncolor::Kept)
        return BoardPlace::NotComing;
    return minute < visit.end && visit.note != BoardVisit::Note::Signed ? BoardPlace::InSession : BoardPlace::Gone;
}

int MinutesWaited(const BoardVisit& visit, int minute) {
    const int arrival = MinutesOfCheckIn(visit.arrival);
    return arrival < 0 ? -1 : std::max(0, minute - arrival);
}

QString BoardContents::ProviderName(const QString& id) const {
    const auto found = std::ranges::find_if(
        providers, [&id](const BoardProvider& provider) { return provider.id.compare(id, Qt::CaseInsensitive) == 0; });
    return found == providers.end() || found->name.isEmpty() ? id : found->name;
}

std::vector<BoardVisit> BoardContents::Of(BoardPlace place, int minute) const {
    std::vector<BoardVisit> visits;
    if (place == BoardPlace::EndingSeries) {
        visits = series;
    } else {
        const bool notesWanted = place == BoardPlace::UnwrittenNote;
        for (const BoardVisit& visit : notesWanted ? notes : today) {
            const bool isOver = visit.date < date || PlaceOf(visit, minute) == BoardPlace::Gone;
            if (notesWanted ? isOver : PlaceOf(visit, minute) == place)
                visits.push_back(visit);
        }
    }
    sortFor(place, minute, visits);
    return visits;
}

QStringList BoardStatements(QDate date, const QString& providerId) {
    return {todayStatement(date, providerId), notesStatement(date, providerId), seriesStatement(date, providerId),
            providersStatement()};
}

BoardContents ContentsOf(QDate date, const std::vector<db::ResultTable>& tables) {
    return {date, notedVisits(tables[0]), notedVisits(tables[1]), endingSeries(tables[2]), providersOf(tables[3])};
}
