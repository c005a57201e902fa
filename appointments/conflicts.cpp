#include "appointments/conflicts.h"

#include <algorithm>
#include <map>
#include <tuple>

#include "appointments/appointmentconflict.h"
#include "appointments/conflictstatus.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "platform/controls/ctlist.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

/// The last names of providers, each asked for once.
class ProviderNames {
  public:
    const QString& operator[](const QString& id) {
        const auto known = names_.find(id);
        return known != names_.end() ? known->second : names_.emplace(id, read(id)).first->second;
    }

  private:
    static QString read(const QString& id) {
        const Recordset provider(Sql("Select prov_lastname from provider_info Where id = '{}'", id),
                                 Session().Connection);
        const QString name = provider.Eof() ? QString() : provider["prov_lastname"].text();
        return name.isEmpty() ? id : name;
    }

    std::map<QString, QString> names_;
};

}  // namespace

QString ApptConflictStatement(int key, QDate date, double s, double e, const QString& patientId,
                              const QString& providerId, Cancelled cancelled) {
    if (cancelled == Cancelled::LeftOut)
        return Sql(
            "Select dapptdate, nstarttime, nendtime, cappttext, clinicianid from appointments Where nKeyid <> {} AND appttype <> 4 AND IsNull(ncolor, 0) Not In ({}, {}) And (Clinicianid = '{}' Or (PatientId = '{}' And PatientId <> '')) AND DApptDate = '{}' And (({} Between nstarttime and (nendtime - .1))  OR ({} Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between {} And {})) ",
            key, ncolor::PatientCancelled, ncolor::TherapistCancelled, providerId, patientId, date, s, e, s, e);
    QString ofProvider = Sql(
        "Select dapptdate, nstarttime, nendtime, cappttext, clinicianid from appointments Where nKeyid <> {} AND appttype <> 4  And Clinicianid = '{}' AND DApptDate = '{}'  And (({} Between nstarttime and (nendtime - .1))  OR ({} Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between {} And {})) ",
        key, providerId, date, s, e, s, e);
    if (patientId.isEmpty())
        return ofProvider;
    return ofProvider +
           Sql("UNION Select dapptdate, nstarttime, nendtime, cappttext, clinicianid from appointments Where nKeyid <> {} AND appttype <> 4  And PatientId = '{}' AND DApptDate = '{}'  And (({} Between nstarttime and (nendtime - .1))  OR ({} Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between {} And {}));",
               key, patientId, date, s, e, s, e);
}

QString AttendeeConflictStatement(int key, QDate date, double s, double e) {
    return Sql(
        "Select dapptdate, nstarttime, nendtime, cappttext, clinicianid from appointments Where nKeyid <> {} AND appttype <> 4 And Clinicianid In (Select clinicianid from appointmentsevents Where nkeyid = {}) AND DApptDate = '{}' And (({} Between nstarttime and (nendtime - .1))  OR ({} Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between {} And {})) UNION Select dapptdate, nstarttime, nendtime, cappttext, appointmentsevents.clinicianid from appointments Inner Join appointmentsevents On appointmentsevents.nkeyid = appointments.nkeyid Where appointments.nKeyid <> {} AND appttype <> 4 And appointmentsevents.clinicianid In (Select clinicianid from appointmentsevents Where nkeyid = {}) AND DApptDate = '{}' And (({} Between nstarttime and (nendtime - .1))  OR ({} Between (nstarttime + .1) and nendtime)  OR ((nstarttime + .1) Between {} And {}))",
        key, key, date, s, e, s, e, key, key, date, s, e, s, e);
}

QStringList RoomConflictStatements(int key, QDate date, double s, double e, int roomId, int byAppointment) {
    if (byAppointment != 0)
        return {
            Sql("Select * from roomschedule Inner Join rooms On roomschedule.croomid = rooms.roomid Where croomid = {} AND apptid <> {} AND nApptDate = '{}' And {} Between nstarttime and (nendtime - .1)",
                roomId, key, date, s),
            Sql("Select * from roomschedule Inner Join rooms On roomschedule.croomid = rooms.roomid Where croomid = {} AND apptid <> {} AND nApptDate = '{}' And {} Between (nstarttime + .1) and nendtime",
                roomId, key, date, e),
            Sql("Select * from roomschedule Inner Join rooms On roomschedule.croomid = rooms.roomid Where croomid = {} AND apptid <> {} AND nApptDate = '{}' And (nstarttime + .1) Between {} And {}",
                roomId, key, date, s, e)};
    return {
        Sql("Select * from roomschedule Inner Join rooms On roomschedule.croomid = rooms.roomid Where croomid = {} AND nKeyid <> {} AND nApptDate = '{}' And {} Between nstarttime and (nendtime - .1)",
            roomId, key, date, s),
        Sql("Select * from roomschedule Inner Join rooms On roomschedule.croomid = rooms.roomid Where croomid = {} AND nKeyid <> {} AND nApptDate = '{}' And {} Between (nstarttime + .1) and nendtime",
            roomId, key, date, e),
        Sql("Select * from roomschedule Inner Join rooms On roomschedule.croomid = rooms.roomid Where croomid = {} AND nKeyid <> {} AND nApptDate = '{}' And (nstarttime + .1) Between {} And {}",
            roomId, key, date, s, e)};
}

namespace {

// The statements leave the order open.
void sortByTime(std::vector<Conflict>& conflicts) {
    std::stable_sort(conflicts.begin(), conflicts.end(), [](const Conflict& a, const Conflict& b) {
        return std::tie(a.time.start, a.time.end, a.text) < std::tie(b.time.start, b.time.end, b.text);
    });
}

// The statement tells nobody's kind: what is called as an activity, a group or unavailable time of that day names
// nobody.
void nameTexts(std::vector<Conflict>& conflicts, QDate date) {
    if (conflicts.empty())
        return;
    QSet<QString> others;
    db::Ignoring([&] { others = TextsWithoutPatient(Session().Connection, date); });
    for (Conflict& conflict : conflicts)
        conflict.namesPatient = !others.contains(conflict.text);
}

// A room is booked in the name of the appointment that owns the slot.
void nameSlots(std::vector<Conflict>& conflicts, const std::vector<qint64>& owners) {
    QSet<qint64> others;
    db::Ignoring([&] { others = KeysWithoutPatient(Session().Connection, {owners.begin(), owners.end()}); });
    for (std::size_t i = 0; i < conflicts.size(); ++i)
        conflicts[i].namesPatient = owners[i] > 0 && !others.contains(owners[i]);
}

MinuteSpan timeOf(const Recordset& row) {
    return {row["nstarttime"].real(), row["nendtime"].real()};
}

QString timeText(double minutes) {
    return MinutesToTimeText(static_cast<int>(minutes), Session().MilitaryTime);
}

QString minutesText(double minutes) {
    return minutes == 1 ? QStringLiteral("1 minute") : QStringLiteral("%1 minutes").arg(minutes);
}

// For how long it is in the way, for the row that is selected in the dialog.
QString lengthText(const Conflict& conflict, MinuteSpan proposed) {
    const QString length = minutesText(conflict.time.end - conflict.time.start);
    const double shared = MinutesInCommon(proposed, conflict.time);
    if (shared <= 0)
        return QStringLiteral("%1.").arg(length);
    if (shared == conflict.time.end - conflict.time.start)
        return QStringLiteral("%1, all in the new time.").arg(length);
    return QStringLiteral("%1, %2 of them in the new time.").arg(length, QString::number(shared));
}

void addRows(AppointmentConflict& form, const std::vector<Conflict>& conflicts, MinuteSpan proposed) {
    QStringList statuses;
    db::Ignoring([&] { statuses = StatusesOf(Session().Connection, conflicts); });
    for (const Conflict& conflict : conflicts) {
        const int row = form.ctList1->AddRow({ShortDateText(conflict.date), timeText(conflict.time.start),
                                              timeText(conflict.time.end), conflict.text, conflict.place});
        form.ctList1->SetItemText(row, lengthText(conflict, proposed));
        form.SetStatus(row, statuses.value(row));
        if (conflict.namesPatient)
            form.ctList1->NameCell(row, AppointmentConflict::TextColumn);
    }
}

enum class Booked { Provider, Room };

// Runs the search, and shows what it found; true when the caller must stop.
template <typename Search>
bool mustStop(Booked booked, MinuteSpan proposed, Search&& search) {
    std::vector<Conflict> conflicts;
    try {
        conflicts = search();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error checking for conflicts. Nothing has been saved. "), error);
        return true;
    }
    if (conflicts.empty())
        return false;
    AppointmentConflict form;
    if (booked == Booked::Room)
        form.ShowAsRoomConflict();
    addRows(form, conflicts, proposed);
    ShowModal(form);
    return !form.IsAccepted();
}

std::vector<Conflict> readConflicts(const QString& statement, QDate date) {
    std::vector<Conflict> conflicts;
    ProviderNames names;
    for (Recordset rows(statement, Session().Connection); !rows.Eof(); rows.MoveNext())
        conflicts.push_back(
            {rows["dapptdate"].date(), timeOf(rows), rows["cappttext"].text(), names[rows["clinicianid"].text()]});
    sortByTime(conflicts);
    nameTexts(conflicts, date);
    return conflicts;
}

}  // namespace

std::vector<Conflict> FindApptConflicts(int key, QDate date, double start, double end, const QString& patientId,
                                        const QString& providerId, Cancelled cancelled) {
    return readConflicts(ApptConflictStatement(key, date, start, end, patientId, providerId, cancelled), date);
}

std::vector<Conflict> FindAttendeeConflicts(int key, QDate date, double start, double end) {
    return readConflicts(AttendeeConflictStatement(key, date, start, end), date);
}

std::vector<Conflict> FindRoomConflicts(int key, QDate date, double start, double end, int roomId, int byAppointment) {
    std::vector<Conflict> conflicts;
    const QStringList statements = RoomConflictStatements(key, date, start, end, roomId, byAppointment);
    const db::ReadTogether together(Session().Connection, statements);
    for (const QString& statement : statements) {
        Recordset rows(statement, Session().Connection);
        std::vector<qint64> owners;
        for (; !rows.Eof(); rows.MoveNext()) {
            conflicts.push_back(
                {rows["nApptDate"].date(), timeOf(rows), rows["croomtext"].text(), rows["Room"].text()});
            owners.push_back(rows["apptid"].integer());
        }
        nameSlots(conflicts, owners);
        if (!conflicts.empty())
            break;
    }
    sortByTime(conflicts);
    return conflicts;
}

bool CheckApptConflicts(int key, QDate date, double start, double end, const QString& patientId,
                        const QString& providerId, Cancelled cancelled) {
    return mustStop(Booked::Provider, {start, end},
                    [&] { return FindApptConflicts(key, date, start, end, patientId, providerId, cancelled); });
}

bool CheckAttendeeConflicts(int key, QDate date, double start, double end) {
    return mustStop(Booked::Provider, {start, end}, [&] { return FindAttendeeConflicts(key, date, start, end); });
}

bool CheckRoomConflicts(int key, QDate date, double start, double end, int roomId, int byAppointment) {
    return mustStop(Booked::Room, {start, end},
                    [&] { return FindRoomConflicts(key, date, start, end, roomId, byAppointment); });
}
