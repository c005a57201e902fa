#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "data/codes.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"
#include "tests/support/files.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// Reed's practice on Wednesday, March 11, 2026, whose bookings a test makes, and a folder for what leaves it.
class ExportFixture : public testing::Test {
  protected:
    ExportFixture() {
        ResetSession();
        SetUserStoreFile(file("store.ini"));
        Session().Connection.Open(database.connectionText());
        Session().UID = Session().ProviderId = QStringLiteral("REED");
        Session().ProviderName = QStringLiteral("Reed");
        Session().WordUsage = QStringLiteral("Patient");
        Session().DocPath = folder.path();
        desk.setNow(QDateTime(today, QTime(10, 7, 9)));
    }
    ~ExportFixture() override { ResetSession(); }

    struct Booking {
        QString text = QStringLiteral("Jones, Mary");
        QDate date = QDate(2026, 3, 11);
        int start = 540;
        int end = 590;
        QString note = QStringLiteral("90834|call first");
        int code = ncolor::Pending;
        QString provider = QStringLiteral("REED");
        QString patient = QStringLiteral("10017");
        QString account = QStringLiteral("A-55");
    };
    qint64 book(const Booking& row) {
        database.connection().Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, CapptNote, ncolor, clinicianid, patientid, PatientAcct, CLOCATION) Values ('{}', {}, {}, '{}', '{}', {}, '{}', '{}', '{}', 'Main Office')",
            row.date, row.start, row.end, row.text, row.note, row.code, row.provider, row.patient, row.account));
        return database.connection().LastIdentity();
    }
    /// The provider attends the activity with that key.
    void share(qint64 key, const char* attendee) {
        run(db::Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values ({}, '{}')", key, attendee));
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    [[nodiscard]] QString file(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    /// What a closed connection says.
    QString loseDatabase() {
        Session().Connection.Close();
        return QStringLiteral(
            "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    }

    const QDate today{2026, 3, 11};
    QTemporaryDir folder{TestFolderTemplate()};
    TestDatabase database;
    ScriptedDesk desk;
};
