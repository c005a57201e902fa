#include "appointments/entrywrite.h"

#include <array>

#include "appointments/appointmentrows.h"
#include "appointments/waitlist.h"
#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int LongestPhoneCopy = 40;  // appointments.hphone and wphone

void writePatient(Recordset& row, const EntryFields& fields) {
    if (fields.status)
        row.Set("ncolor", *fields.status);
    row.Set("BTentIco", fields.status == ncolor::Tentative ? 1 : 0);
    row.Set("patientid", fields.patientId);
    row.Set("PatientAcct", fields.account);
    row.Set("hphone", fields.homePhone.left(LongestPhoneCopy));
    row.Set("wphone", fields.workPhone.left(LongestPhoneCopy));
}

void writeKind(Recordset& row, const EntryFields& fields) {
    switch (fields.ApptKind) {
        case apptkind::Patient:
            writePatient(row, fields);
            break;
        case apptkind::Activity:
            row.Set("ncolor", ncolor::Activity);
            break;
        case apptkind::Unavailable:
            row.Set("ncolor", ncolor::Unavailable);
            break;
        default:
            row.Set("ncolor", fields.categoryColour);
            row.Set("appointment_type", fields.categoryColour);
    }
}

void writeFields(Recordset& row, bool isNew, const EntryFields& fields) {
    if (isNew) {
        row.Set("createddate", Now());
        row.Set("createduid", Session().UID);
    }
    row.Set("nStartTime", fields.start);
    row.Set("nEndTime", fields.end);
    row.Set("dapptdate", fields.date);
    row.Set("cappttext", fields.text);
    row.Set("appointment_type", fields.category ? db::Value(*fields.category) : db::Value());
    row.Set("CLOCATION", fields.location);
    row.Set("BLOCATEICO", fields.location.isEmpty() ? 0 : 1);
    row.Set("BremindIco", fields.reminderLead ? 1 : 0);
    row.Set("ReminderTime", fields.reminderLead ? db::Value(fields.start - *fields.reminderLead) : db::Value());
    row.Set("BPrivateIco", 0);
    if (fields.ApptKind == apptkind::TypeSlot)
        row.Set("appttype", ApptTypeSlot);
    writeKind(row, fields);
    row.Set("clinicianid", fields.provider);
    row.Set("CapptNote", fields.note);
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

/// Whether the row is a new one.
bool writeEntry(int key, const EntryFields& fields, const db::RowState& loaded, WriteStep& step) {
    Recordset row(AppointmentStatement(key), Session().Connection, db::Lock::Optimistic);
    const bool isNew = row.Eof();
    if (!isNew)
        db::RequireUnchanged(loaded, EntryState(row));
    if (isNew)
        row.AddNew();
    writeFields(row, isNew, fields);
    const bool hasRoom = fields.room.id > 0;
    if (!isNew && key > 0 && !(fields.room.unread && !hasRoom))
        Session().Connection.Execute(Sql("Delete  from roomschedule Where apptid = {}", key));
    row.Update();
    if (hasRoom)
        BookRoom(fields.room.id, static_cast<int>(row["nkeyid"].integer()), fields.start, fields.end, fields.date,
                 fields.room.text);
    if (fields.waitId > 0) {
        step = WriteStep::WaitList;
        CloseBookedWaitRow(fields.waitId, static_cast<int>(row["nkeyid"].integer()));
    }
    return isNew;
}

}  // namespace

db::RowState EntryState(const Recordset& row) {
    static constexpr std::array columns{
        "nStartTime", "nEndTime",         "dapptdate",      "cappttext",   "appointment_type", "CLOCATION",
        "BLOCATEICO", "BremindIco",       "ReminderTime",   "BPrivateIco", "appttype",         "ncolor",
        "BTentIco",   "patientid",        "PatientAcct",    "hphone",      "wphone",           "clinicianid",
        "CapptNote",  "lastmodifieddate", "lastmodifieduid"};
    return {row, columns};
}

EntryOutcome SaveEntry(int key, const EntryFields& fields, const db::RowState& loaded) {
    return AttemptWrite<EntryOutcome>([&](EntryOutcome& outcome) {
        db::InTransaction(Session().Connection, [&] { outcome.isNew = writeEntry(key, fields, loaded, outcome.step); });
    });
}
