#include "appointments/appointmentdelete.h"

#include "appointments/appointmentrows.h"
#include "data/codes.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "session/audit.h"
#include "session/session.h"

using db::Sql;

namespace {

void audit(const AuditedAppointment& deleted) {
    AuditDeletedAppointment(deleted.date, deleted.time, deleted.text);
}

void deleteActivityRow(db::Connection& connection, int key) {
    connection.Execute(Sql("Delete  from Appointments Where nkeyid ={}", key));
    connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key));
}

/// Runs deletions in one transaction.
template <typename Step>
WriteOutcome deleteAtOnce(Step&& step) {
    return AttemptWrite([&](WriteOutcome&) {
        db::Connection& connection = Session().Connection;
        db::InTransaction(connection, [&] { step(connection); });
    });
}

}  // namespace

WriteOutcome DeleteAppointment(db::Recordset& row, const AuditedAppointment& audited) {
    return AttemptWrite([&](WriteOutcome&) {
        db::Connection& connection = Session().Connection;
        const qint64 key = row["nkeyid"].integer();
        const qint64 code = row["Ncolor"].integer();
        db::InTransaction(connection, [&] {
            if (code == ncolor::Group)
                connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyid = {}", key));
            connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key));
            if (code == ncolor::Activity)
                connection.Execute(Sql("Delete  from appointmentsevents Where nkeyid = {}", key));
            row.Delete();
        });
        audit(audited);
    });
}

void EndDeletionOfSeries(const SeriesRow& row) {
    db::Connection& connection = Session().Connection;
    audit(row.audited);
    connection.Execute(Sql("Delete from roomschedule Where apptid = {}", row.key));
    connection.Execute(Sql("Delete from appointmentsevents Where nkeyid = {}", row.key));
    if (row.isGroup)
        connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyid = {}", row.key));
}

WriteOutcome DeleteOfSeries(const SeriesRow& row) {
    return deleteAtOnce([&](db::Connection& connection) {
        connection.Execute(Sql("Delete from appointments Where nkeyid = {}", row.key));
        EndDeletionOfSeries(row);
    });
}

WriteOutcome CancelAddedAppointment(int key) {
    return AttemptWrite([&](WriteOutcome&) {
        db::Connection& connection = Session().Connection;
        db::Recordset row(AppointmentStatement(key), connection, db::Lock::Optimistic);
        db::InTransaction(connection, [&] {
            if (!row.Eof())
                row.Delete();
            connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key));
        });
    });
}

WriteOutcome DeleteActivity(int key) {
    return deleteAtOnce([&](db::Connection& connection) {
        connection.Execute(Sql("Delete from AppointmentsEvents Where nkeyid ={}", key));
        deleteActivityRow(connection, key);
    });
}

WriteOutcome DeleteAttendance(int key, const QString& attendee) {
    return deleteAtOnce([&](db::Connection& connection) {
        connection.Execute(
            Sql("Delete from AppointmentsEvents Where nkeyid ={} AND Clinicianid = '{}'", key, attendee));
        if (NbrAttendesForEvent(key) == 0)
            deleteActivityRow(connection, key);
    });
}
