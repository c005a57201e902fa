#include "tests/session/practice.h"

#include <gtest/gtest.h>

#include <QFile>

#include "data/schema.h"
#include "data/scramble.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"
#include "tests/support/files.h"

namespace {

QString textOf(const QString& folder, const QString& catalog) {
    return QStringLiteral("Data Source=%1;Initial Catalog=%2;").arg(folder, catalog);
}

// Both databases are made once for all tests and copied for each.
const QString& templateFolder() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        const std::pair<const char*, SchemaScript> databases[] = {{"practice", SchemaScript::Main},
                                                                  {"fernhall", SchemaScript::Companion}};
        for (const auto& [name, script] : databases) {
            db::Connection connection;
            connection.Create(textOf(folder.path(), QString::fromLatin1(name)));
            ApplySchema(connection, script);
        }
        return folder.path();
    }();
    return path;
}

}  // namespace

Practice::Practice() {
    ResetSession();
    SetUserStoreFile(file("places.ini"));
    PutFile(file("solvane.ini"), "[SQLServer]\nDataSource=.\nInitialCatalog=practice\n");
    PutFile(file("svwsched.ini"), "[PrintLayout]\nTitleFontBold=True\n");
    QFile::copy(templateFolder() + QStringLiteral("/practice.db"), file("practice.db"));
    desk_.Open(textOf(path(), QStringLiteral("practice")));
    sql("Delete From settings");
    sql("Delete From facesheet Where FacesheetId = 3");
    sql("Insert Into settings (ALEnabled, recallpw, wordusage) Values (0, 0, 'Client')");
    sql("Insert Into facesheet (FacesheetId, facesheetitem, facesheetmask) Values (3, 'Telephone', '(###) ###-####')");
}

Practice::~Practice() {
    ResetSession();
    SetUserStoreFile({});
}

void Practice::connect() {
    SessionValues& session = Session();
    session.AppPath = session.IniPath = path();
    session.SolvaneIni = file("solvane.ini");
    session.SchedulerIni = file("svwsched.ini");
    session.Connection.Open(textOf(path(), QStringLiteral("practice")));
}

void Practice::addUser(const QString& id, const QString& lastName, int type, const QString& access,
                       const QString& password) {
    sql(db::Sql("Insert Into provider_info (id, prov_lastname, archive) Values ('{}', '{}', 0)", id, lastName));
    addLogin(id, type, access, password);
}

void Practice::addLogin(const QString& id, int type, const QString& access, const QString& password) {
    sql(db::Sql(
        "Insert Into passwords (pswd_user_id, pswd_password, pswd_type_of_access, pswd_screen_access) Values ('{}', '{}', {}, '{}')",
        id, ScramblePassword(password, DefaultScrambleKey), type, access));
}

void Practice::preference(const QString& user, const QString& category, const QString& detail, const QString& value) {
    sql(db::Sql(
        "Insert Into User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail, UP_PD_Value) Values ('{}', '{}', '{}', '{}')",
        user, category, detail, value));
}

void Practice::addCompanion(const QString& identity) {
    QFile::copy(templateFolder() + QStringLiteral("/fernhall.db"), file("fernhall.db"));
    db::Connection companion;
    companion.Open(textOf(path(), QStringLiteral("fernhall")));
    companion.Execute(db::Sql("Delete From DefaultFieldValues Where DfltFieldName = 'DBID'"));
    companion.Execute(
        db::Sql("Insert Into DefaultFieldValues (DfltFieldName, DfltValue) Values ('DBID', '{}')", identity));
    sql("Update settings Set FHServer = '.', FHDatabaseName = 'fernhall'");
}

void Practice::pairProvider(const QString& identity, int fhProviderId, const QString& svProviderId) {
    sql(db::Sql("Insert Into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (1, '{}', {}, '{}')",
                identity, fhProviderId, svProviderId));
}

void Practice::sql(const QString& statement) {
    desk_.Execute(statement);
}

QString Practice::value(const QString& statement) {
    const db::Recordset rows(statement, desk_);
    return rows.Eof() ? QStringLiteral("(none)") : rows[0].text();
}
