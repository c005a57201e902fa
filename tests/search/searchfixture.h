#pragma once

#include <gtest/gtest.h>

#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// A practice on Wednesday, March 11, 2026, whose bookings a test makes.
class SearchFixture : public testing::Test {
  protected:
    SearchFixture() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Session().ProviderId = QStringLiteral("REED");
        Session().ProviderName = QStringLiteral("Reed");
        desk.setNow(QDateTime(day, QTime(9, 0)));
        provider("REED", "Reed");
        provider("OBRIEN", "O'Brien");
    }
    ~SearchFixture() override { ResetSession(); }

    struct Booking {
        int start = 540;
        int end = 600;
        QString text = QStringLiteral("Jones, Mary");
        int code = 0xFF0001;
        QString provider = QStringLiteral("REED");
        int kind = 0;
        QDate date = QDate(2026, 3, 11);
        QString patient = {};
    };
    qint64 book(const Booking& row) {
        database.connection().Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, appttype, patientid) Values ('{}', {}, {}, '{}', {}, '{}', {}, '{}')",
            row.date, row.start, row.end, row.text, row.code, row.provider, row.kind, row.patient));
        return database.connection().LastIdentity();
    }
    void provider(const char* id, const char* name, int archived = 0) {
        database.connection().Execute(db::Sql(
            "Insert Into provider_info (id, prov_lastname, archive) Values ('{}', '{}', {})", id, name, archived));
        database.connection().Execute(
            db::Sql("Insert Into passwords (pswd_user_id, pswd_type_of_access) Values ('{}', 1)", id));
    }
    /// The provider attends the activity with that key.
    void share(qint64 key, const char* attendee) {
        run(db::Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values ({}, '{}')", key, attendee));
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    /// What a closed connection says.
    QString loseDatabase() {
        Session().Connection.Close();
        return QStringLiteral(
            "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    }

    QDate day{2026, 3, 11};
    TestDatabase database;
    ScriptedDesk desk;
};
