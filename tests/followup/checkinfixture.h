#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

/// Reed at the desk on Wednesday, March 11, 2026, at 9:05.
class CheckInFixture : public testing::Test {
  protected:
    CheckInFixture() {
        ResetSession();
        SetUserStoreFile(folder.filePath(QStringLiteral("store.ini")));
        SessionValues& session = Session();
        session.Connection.Open(database.connectionText());
        session.UID = QStringLiteral("REED");
        session.ScreenAccess = 3;
        session.AllProviders = true;
        session.WordUsage = QStringLiteral("Client");
        desk.setNow(QDateTime(day, QTime(9, 5)));
        database.connection().Execute(
            QStringLiteral("Insert Into provider_info (id, prov_lastname) Values ('REED', 'Reed')"));
    }
    ~CheckInFixture() override { ResetSession(); }

    struct Patient {
        QString text = QStringLiteral("O'Brien, Anna");
        int code = 0xFFFFFF;
        QString provider = QStringLiteral("REED");
        QString arrival = QString();  ///< Null: none.
        QDate date = QDate(2026, 3, 11);
    };
    int add(const Patient& row) {
        database.connection().Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, CheckInTime) Values ('{}', 540, 590, '{}', {}, '{}', {})",
            row.date, row.text, row.code, row.provider,
            db::Raw{row.arrival.isNull() ? QStringLiteral("Null") : u'\'' + row.arrival + u'\''}));
        return static_cast<int>(database.connection().LastIdentity());
    }
    QString arrivalOf(int key) {
        return database.text(db::Sql("Select CheckInTime from appointments Where nkeyid = {}", key));
    }
    QString loseDatabase() {
        Session().Connection.Close();
        return QStringLiteral(
            "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    }

    QDate day{2026, 3, 11};
    QTemporaryDir folder;
    TestDatabase database;
    ScriptedDesk desk;
};
