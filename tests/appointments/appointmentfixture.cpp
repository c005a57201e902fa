#include "tests/appointments/appointmentfixture.h"

#include "platform/desktop/userstore.h"

using db::Sql;

AppointmentFixture::AppointmentFixture() {
    ResetSession();
    SetUserStoreFile(userFolder.filePath(QStringLiteral("store.ini")));
    Session().Connection.Open(database.connectionText());
    provider(QStringLiteral("REED"), QStringLiteral("Reed"));
    provider(QStringLiteral("OBRIEN"), QStringLiteral("O'Brien"));
}

AppointmentFixture::~AppointmentFixture() {
    SetUserStoreFile({});
    ResetSession();
}

int AppointmentFixture::appointment(const Row& row) {
    database.connection().Execute(Sql(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, clinicianid, patientid, appttype) Values ('{}', {}, {}, '{}', '{}', '{}', {})",
        row.date, row.start, row.end, row.text, row.provider, row.patient, row.kind));
    return static_cast<int>(database.connection().LastIdentity());
}

int AppointmentFixture::booking(int room, int start, int end, const QString& text, int appointmentKey) {
    database.connection().Execute(Sql(
        "Insert Into roomschedule (nApptDate, nStartTime, nEndTime, croomtext, croomid, apptid) Values ('{}', {}, {}, '{}', {}, {})",
        day, start, end, text, room, appointmentKey));
    return static_cast<int>(database.connection().LastIdentity());
}

void AppointmentFixture::provider(const QString& id, const QString& lastName) {
    database.connection().Execute(
        Sql("Insert Into provider_info (id, prov_lastname) Values ('{}', '{}')", id, lastName));
}

int AppointmentFixture::room(const QString& name) {
    database.connection().Execute(Sql("Insert Into rooms (Room) Values ('{}')", name));
    return static_cast<int>(database.connection().LastIdentity());
}

void AppointmentFixture::patient(const QString& id, const QString& lastName) {
    database.connection().Execute(Sql("Insert Into patient_info (id, last_name) Values ('{}', '{}')", id, lastName));
}

QString AppointmentFixture::loseDatabase() {
    Session().Connection.Close();
    return FailureOf(Session().Connection, QStringLiteral("Select * from settings"));
}
