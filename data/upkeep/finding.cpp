#include "data/upkeep/finding.h"

#include "data/minutetime.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"

namespace upkeep {

namespace {

/// One thing that can be wrong. The statement gives the key, and for a row of the schedule its date and its start. The
/// fix's statement holds "[key]", and ends with the condition by which the row was found, so that a row which somebody
/// mended meanwhile stays as it is.
struct Check {
    const char* table;
    const char* statement;
    const char* text;  ///< "[when]" in it is the date and time.
    const char* question;
    const char* fix;
    const char* rightAnswer = "";
    bool withItsRows = false;  ///< Whether the appointment's room, members and attendees go with it.
};

constexpr Check Checks[] = {
    {"appointments",
     "Select a.nkeyid, a.dapptdate, a.nStartTime from appointments a Left Join provider_info p On p.id = a.clinicianid Where p.id Is Null And (a.clinicianid Is Null Or a.clinicianid <> '~EVT') Order by a.nkeyid",
     "The appointment[when] has no provider of this practice, so that no schedule shows it.", "The id of its provider",
     "Update appointments Set clinicianid = '{}' Where nkeyid = [key] And (clinicianid Is Null Or clinicianid Not In (Select id from provider_info))",
     "Select id from provider_info Where id = '{}'"},
    {"appointments",
     "Select a.nkeyid, a.dapptdate, a.nStartTime from appointments a Left Join patient_info p On p.id = a.patientid Where p.id Is Null And a.ncolor In (16711680, 126322256, 16711681, 16777215, 49152, 192, 193, 194) And (a.appttype Is Null Or a.appttype <> 4) Order by a.nkeyid",
     "The appointment[when] is a patient's and has no patient of this practice.", "The id of its patient",
     "Update appointments Set patientid = '{}' Where nkeyid = [key] And (patientid Is Null Or patientid Not In (Select id from patient_info))",
     "Select id from patient_info Where id = '{}'"},
    {"appointments", "Select nkeyid, dapptdate, nStartTime from appointments Where dapptdate Is Null Order by nkeyid",
     "The appointment[when] has no date, so that no view shows it.", "Delete it?",
     "Delete from appointments Where nkeyid = [key] And dapptdate Is Null", "", true},
    {"appointments",
     "Select nkeyid, dapptdate, nStartTime from appointments Where nStartTime Is Null Or nStartTime < 0 Or nStartTime >= 1440 Order by nkeyid",
     "The appointment[when] has no start within its day.", "Its start in minutes since midnight (540 is 9:00 AM)",
     "Update appointments Set nStartTime = Cast('{}' As int) Where nkeyid = [key] And (nStartTime Is Null Or nStartTime < 0 Or nStartTime >= 1440)",
     "Start"},
    {"appointments",
     "Select nkeyid, dapptdate, nStartTime from appointments Where nEndTime Is Null Or nEndTime < 0 Or nEndTime > 1440 Order by nkeyid",
     "The appointment[when] has no end within its day.", "Its end in minutes since midnight (590 is 9:50 AM)",
     "Update appointments Set nEndTime = Cast('{}' As int) Where nkeyid = [key] And (nEndTime Is Null Or nEndTime < 0 Or nEndTime > 1440)",
     "End"},
    {"appointments",
     "Select nkeyid, dapptdate, nStartTime from appointments Where nEndTime < nStartTime And nEndTime >= 0 And nStartTime < 1440 Order by nkeyid",
     "The appointment[when] ends before it starts.", "Exchange the two times?",
     "Update appointments Set nStartTime = nEndTime, nEndTime = nStartTime Where nkeyid = [key] And nEndTime < nStartTime"},
    {"appointments",
     "Select nkeyid, dapptdate, nStartTime from appointments Where repeating = 1 And (repeating_ref Is Null Or repeating_ref < 1) Order by nkeyid",
     "The appointment[when] is marked as one of a series and names none.", "Make it the first of a series of its own?",
     "Update appointments Set repeating_ref = nkeyid Where nkeyid = [key] And repeating = 1 And (repeating_ref Is Null Or repeating_ref < 1)"},
    {"appointments",
     "Select nkeyid, dapptdate, nStartTime from appointments Where repeating_ref > 0 And (repeating Is Null Or repeating <> 1) Order by nkeyid",
     "The appointment[when] names a series and is not marked as one of it.", "Mark it as one of that series?",
     "Update appointments Set repeating = 1 Where nkeyid = [key] And repeating_ref > 0 And (repeating Is Null Or repeating <> 1)"},
    {"appointments",
     "Select a.nkeyid, a.dapptdate, a.nStartTime from appointments a Left Join sessions s On s.id = a.NoteID Where a.NoteID > 0 And s.id Is Null Order by a.nkeyid",
     "The session note of the appointment[when] is gone.", "Take the appointment's mark of a note away?",
     "Update appointments Set NoteID = Null Where nkeyid = [key] And NoteID > 0 And NoteID Not In (Select id from sessions)"},
    {"roomschedule",
     "Select r.nkeyid, r.nApptDate, r.nStartTime from roomschedule r Left Join appointments a On a.nkeyid = r.apptid Where r.apptid <> 0 And a.nkeyid Is Null Order by r.nkeyid",
     "The booking[when] of a room belongs to an appointment that is gone.", "Free the room?",
     "Delete from roomschedule Where nkeyid = [key] And apptid <> 0 And apptid Not In (Select nkeyid from appointments)"},
    {"roomschedule",
     "Select r.nkeyid, r.nApptDate, r.nStartTime from roomschedule r Left Join rooms o On o.RoomID = r.croomid Where o.RoomID Is Null Order by r.nkeyid",
     "The booking[when] is of a room that is gone.", "Delete it?",
     "Delete from roomschedule Where nkeyid = [key] And (croomid Is Null Or croomid Not In (Select RoomID from rooms))"},
    {"roomschedule",
     "Select nkeyid, nApptDate, nStartTime from roomschedule Where nEndTime < nStartTime Order by nkeyid",
     "The booking[when] of a room ends before it starts.", "Exchange the two times?",
     "Update roomschedule Set nStartTime = nEndTime, nEndTime = nStartTime Where nkeyid = [key] And nEndTime < nStartTime"},
    {"AppointmentsGroup",
     "Select g.GroupRowId, g.nKeyId from AppointmentsGroup g Left Join appointments a On a.nkeyid = g.nKeyId Where a.nkeyid Is Null Order by g.GroupRowId",
     "A member belongs to a group appointment that is gone.", "Delete the member's row?",
     "Delete from AppointmentsGroup Where GroupRowId = [key] And nKeyId Not In (Select nkeyid from appointments)"},
    {"AppointmentsGroup",
     "Select g.GroupRowId, g.nKeyId from AppointmentsGroup g Left Join patient_info p On p.id = g.PatientId Where p.id Is Null Order by g.GroupRowId",
     "A member of a group appointment is no patient of this practice.", "Delete the member's row?",
     "Delete from AppointmentsGroup Where GroupRowId = [key] And (PatientId Is Null Or PatientId Not In (Select id from patient_info))"},
    {"appointmentsevents",
     "Select Distinct e.nkeyid from appointmentsevents e Left Join appointments a On a.nkeyid = e.nkeyid Where a.nkeyid Is Null Order by e.nkeyid",
     "Attendees belong to an activity that is gone.", "Delete their rows?",
     "Delete from appointmentsevents Where nkeyid = [key] And nkeyid Not In (Select nkeyid from appointments)"},
    {"WaitList",
     "Select w.WaitId from WaitList w Left Join patient_info p On p.id = w.PatientId Where p.id Is Null Order by w.WaitId",
     "Who waits for an hour is no patient of this practice.", "Delete the entry?",
     "Delete from WaitList Where WaitId = [key] And PatientId Not In (Select id from patient_info)"},
    {"SessionSignatures",
     "Select g.signature_id from SessionSignatures g Left Join sessions s On s.id = g.session_id Where s.id Is Null Order by g.signature_id",
     "A signature belongs to a session note that is gone.", "Delete it?",
     "Delete from SessionSignatures Where signature_id = [key] And (session_id Is Null Or session_id Not In (Select id from sessions))"},
    {"MissedAppt", "Select m.id from MissedAppt m Left Join sessions s On s.id = m.id Where s.id Is Null Order by m.id",
     "The reason of a missed appointment belongs to a session note that is gone.", "Delete it?",
     "Delete from MissedAppt Where id = [key] And id Not In (Select id from sessions)"},
};

QString when(const db::Recordset& row) {
    if (row[1].isNull())
        return {};
    QString text = QStringLiteral(" of ") + row[1].date().toString(Qt::ISODate);
    if (!row[2].isNull() && row[2].integer() >= 0 && row[2].integer() <= MinutesPerDay)
        text += QStringLiteral(" at ") + MinutesToTimeText(static_cast<int>(row[2].integer()), false);
    return text;
}

QStringList rowsOfAppointment(qint64 key) {
    return {db::Sql("Delete from roomschedule Where apptid = {}", key),
            db::Sql("Delete from AppointmentsGroup Where nKeyId = {}", key),
            db::Sql("Delete from appointmentsevents Where nkeyid = {}", key)};
}

void addFindings(std::vector<Finding>& found, const Check& check, db::Connection& main) {
    for (db::Recordset rows(QString::fromLatin1(check.statement), main); !rows.Eof(); rows.MoveNext()) {
        Finding finding{QString::fromLatin1(check.table), rows[0].integer(), QString::fromLatin1(check.text), {}};
        if (finding.text.contains(QLatin1String("[when]")))
            finding.text.replace(QLatin1String("[when]"), when(rows));
        QString statement = QString::fromLatin1(check.fix);
        statement.replace(QLatin1String("[key]"), QString::number(finding.key));
        finding.fix = Fix{QString::fromLatin1(check.question), statement,
                          check.withItsRows ? rowsOfAppointment(finding.key) : QStringList(),
                          QString::fromLatin1(check.rightAnswer)};
        found.push_back(std::move(finding));
    }
}

/// Whether this is a minute of the day, 0 to `last`.
bool isMinute(const QString& answer, int last) {
    bool isNumber = false;
    const int minute = answer.toInt(&isNumber);
    return isNumber && minute >= 0 && minute <= last;
}

bool isRight(db::Connection& main, const Fix& fix, const QString& answer) {
    if (fix.rightAnswer == QLatin1String("Start"))
        return isMinute(answer, MinutesPerDay - 1);
    if (fix.rightAnswer == QLatin1String("End"))
        return isMinute(answer, MinutesPerDay);
    return !db::Recordset(db::FillSql(fix.rightAnswer, {answer}), main).Eof();
}

}  // namespace

std::vector<Finding> CheckRows(db::Connection& main) {
    std::vector<Finding> found;
    for (const Check& check : Checks)
        addFindings(found, check, main);
    return found;
}

QString ApplyFix(db::Connection& main, const Finding& finding, const QString& answer) {
    const Fix& fix = *finding.fix;
    if (fix.WantsText() && !isRight(main, fix, answer))
        return QStringLiteral("\"%1\" cannot be that; nothing was changed.").arg(answer);
    const QString statement = fix.WantsText() ? db::FillSql(fix.statement, {answer}) : fix.statement;
    qint64 changed = 0;
    db::InTransaction(main, [&] {
        changed = main.Execute(statement);
        if (changed == 0)
            return;
        for (const QString& also : fix.alsoDone)
            main.Execute(also);
    });
    return changed > 0 ? QString() : QStringLiteral("The row has changed meanwhile and was left as it is.");
}

}  // namespace upkeep
