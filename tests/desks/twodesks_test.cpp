#include <gtest/gtest.h>

#include <QDate>
#include <QTemporaryDir>

#include "data/schema.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "tests/desks/desk.h"
#include "tests/support/files.h"

using db::Sql;

namespace {

const QDate day(2026, 3, 11);

/// Two copies of the program on one practice, both on Reed's schedule of one day.
class TwoDesks : public testing::Test {
  protected:
    TwoDesks() {
        PutFile(folder.filePath(QStringLiteral("solvane.ini")), "[SQLServer]\nDataSource=.\nInitialCatalog=practice\n");
        PutFile(folder.filePath(QStringLiteral("svwsched.ini")), "[PrintLayout]\nTitleFontBold=True\n");
        connection.Create(QStringLiteral("Data Source=%1;Initial Catalog=practice;").arg(folder.path()));
        ApplySchema(connection, SchemaScript::Main);
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
        connection.Execute(Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, patientid, CapptNote) Values ('{}', {}, {}, '{}', 16711681, 'REED', '10017', '|')",
            day, start, end, text));
        return QString::number(connection.LastIdentity());
    }

    QString value(const QString& statement) {
        const db::Recordset rows(statement, connection);
        return rows.Eof() ? QStringLiteral("(none)") : rows[0].text();
    }

    [[nodiscard]] std::unique_ptr<Desk> openDesk() const {
        return std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), day);
    }

    QTemporaryDir folder;
    db::Connection connection;
};

}  // namespace

TEST_F(TwoDesks, BothSeeTheDayAtOnce) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto one = openDesk();
    const auto other = openDesk();
    EXPECT_EQ(one->tell("items"), key + QStringLiteral(" 540-590 O'Brien, Anna"));
    EXPECT_EQ(other->tell("items"), one->tell("items"));
}
