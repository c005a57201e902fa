#include "output/scheduledrows.h"

#include <algorithm>
#include <QSet>

#include "data/codes.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

constexpr std::size_t GroupsAtOnce = 50;

/// Returns an id in the form in which the database compares it, without regard to case and to blanks behind it.
QString keyOf(const QString& id) {
    return id.trimmed().toLower();
}

ScheduledRow rowOf(const Recordset& row) {
    return {.nkeyid = row["nkeyid"].integer(),
            .DApptDate = row["DApptDate"].date(),
            .nStartTime = static_cast<int>(row["NStartTime"].integer()),
            .nEndTime = static_cast<int>(row["nendtime"].integer()),
            .cappttext = row["cappttext"].text(),
            .CapptNote = row["CapptNote"].text(),
            .CLOCATION = row["CLOCATION"].text(),
            .clinicianid = row["clinicianid"].text(),
            .patientid = row["patientid"].text(),
            .PatientAcct = row["PatientAcct"].text(),
            .ncolor = static_cast<int>(row["ncolor"].integer()),
            .appttype = static_cast<int>(row["appttype"].integer())};
}

QString membersStatement(qint64 nkeyid) {
    return Sql("SELECT * From AppointmentsGroup WHERE nkeyid = {} Order by PatientName", nkeyid);
}

}  // namespace

bool IsPatientAppointment(const ScheduledRow& row) {
    return IsPatientRow(row.ncolor) && row.appttype != ApptTypeSlot;
}

std::vector<ScheduledRow> ReadScheduledRows(const QString& statement, bool patientsOnly) {
    std::vector<ScheduledRow> rows;
    for (Recordset read(statement, Session().Connection); !read.Eof(); read.MoveNext())
        if (ScheduledRow row = rowOf(read); !patientsOnly || IsPatientAppointment(row))
            rows.push_back(std::move(row));
    return rows;
}

void ScheduleFacts::ReadFor(std::span<const ScheduledRow> rows) {
    std::vector<qint64> groups;
    QStringList activities;
    QStringList patients;
    for (const ScheduledRow& row : rows) {
        if (row.ncolor == ncolor::Group)
            groups.push_back(row.nkeyid);
        else if (row.clinicianid == QLatin1String(EventClinicianId))
            activities << QString::number(row.nkeyid);
        patients << row.patientid;
    }
    readMembers(groups);
    readAttendees(activities);
    for (const std::vector<Member>& members : std::as_const(members_))
        for (const Member& member : members)
            patients << member.PatientId;
    readContacts(patients);
}

void ScheduleFacts::readMembers(const std::vector<qint64>& groups) {
    members_.clear();
    for (std::size_t first = 0; first < groups.size(); first += GroupsAtOnce) {
        const auto some = std::span(groups).subspan(first, std::min(GroupsAtOnce, groups.size() - first));
        QStringList statements;
        for (const qint64 group : some)
            statements << membersStatement(group);
        const db::ReadTogether together(Session().Connection, statements);
        for (const qint64 group : some)
            for (Recordset row(membersStatement(group), Session().Connection); !row.Eof(); row.MoveNext())
                members_[group].push_back(
                    {row["PatientName"].text(), row["PatientId"].text(), row["Kept"].integer() == 1});
    }
}

void ScheduleFacts::readAttendees(const QStringList& activities) {
    attendees_.clear();
    if (activities.isEmpty())
        return;
    for (Recordset row(
             Sql("Select nkeyid, clinicianid from appointmentsevents Where nkeyid In ({})", Raw{activities.join(u',')}),
             Session().Connection);
         !row.Eof(); row.MoveNext())
        attendees_[row[0].integer()] << getprovname(row[1].text());
    for (QStringList& names : attendees_)
        names.sort(Qt::CaseInsensitive);
}

void ScheduleFacts::readContacts(const QStringList& patients) {
    QStringList wanted;
    for (const QString& patient : patients) {
        const QString key = keyOf(patient);
        if (key.isEmpty() || contacts_.contains(key))
            continue;
        contacts_.insert(key, {});
        wanted << Sql("'{}'", patient.trimmed());
    }
    if (wanted.isEmpty())
        return;
    for (Recordset row(
             Sql("Select id, telephone_h, telephone_b, Other_Phone, EmailAddress from patient_info Where id In ({})",
                 Raw{wanted.join(u',')}),
             Session().Connection);
         !row.Eof(); row.MoveNext())
        contacts_.insert(keyOf(row[0].text()), {row[1].text(), row[2].text(), row[3].text(), row[4].text()});
}

PatientContact ScheduleFacts::ContactOf(const QString& patientid) const {
    return contacts_.value(keyOf(patientid));
}

std::vector<ReportedMember> ScheduleFacts::MembersOf(qint64 nkeyid) const {
    std::vector<ReportedMember> members;
    for (const Member& member : members_.value(nkeyid))
        members.push_back({member.PatientName, ContactOf(member.PatientId), member.kept});
    return members;
}
