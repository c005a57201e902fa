#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <QDate>
#include <QTemporaryDir>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/desks/desk.h"
#include "tests/support/files.h"
#include "tests/support/testdatabase.h"

/// A practice with a folder and a database of its own, at which copies of the program work on Reed's schedule of one
/// day.
class DeskFixture : public testing::Test {
  protected:
    DeskFixture() {
        PutFile(folder.filePath(QStringLiteral("solvane.ini")), database.iniSection());
        PutFile(folder.filePath(QStringLiteral("svwsched.ini")), "[PrintLayout]\nTitleFontBold=True\n");
        for (
            const char* statement :
            {"Insert Into provider_info (id, prov_lastname, archive) Values ('REED', 'Reed', 0)",
             "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values ('REED', 1, '333333336')",
             "Insert Into settings (wordusage, ALEnabled) Values ('Patient', 1)",
             "Insert Into patient_info (id, last_name, first_name, archive) Values ('10017', 'O''Brien', 'Anna', 0)",
             "Insert Into rooms (Room) Values ('Blue room')"})
            connection.Execute(QString::fromLatin1(statement));
    }

    QString add(int start, int end, const QString& text) {
        connection.Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid, CapptNote) Values ('{}', {}, {}, '{}', 16711681, 'REED', '10017', '|')",
            day, start, end, text));
        return QString::number(connection.LastIdentity());
    }

    QString value(const QString& statement) { return database.text(statement); }
    qint64 number(const QString& statement) { return database.number(statement); }

    /// The times of a row, "540-590".
    QString times(const QString& key) {
        const db::Recordset rows(
            db::Sql("Select nstarttime, nendtime from appointments Where nkeyid = {}", db::Raw{key}), connection);
        return rows.Eof() ? QStringLiteral("(none)") : rows[0].text() + QLatin1Char('-') + rows[1].text();
    }

    [[nodiscard]] std::unique_ptr<Desk> openDesk(const QString& display = {}) const {
        return std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), day, display);
    }

    const QDate day{2026, 3, 11};
    QTemporaryDir folder;
    TestDatabase database;
    db::Connection& connection = database.connection();
};
