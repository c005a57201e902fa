#include "tests/session/practice.h"

#include <gtest/gtest.h>

#include "data/scramble.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "session/session.h"
#include "tests/support/files.h"

Practice::Practice() {
    ResetSession();
    SetUserStoreFile(file("places.ini"));
    PutFile(file("solvane.ini"), database_.iniSection());
    PutFile(file("svwsched.ini"), "[PrintLayout]\nTitleFontBold=True\n");
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
    session.Connection.Open(database_.connectionText());
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
    db::Connection& companion = companion_.emplace(SchemaScript::Companion).connection();
    companion.Execute(db::Sql("Delete From DefaultFieldValues Where DfltFieldName = 'DBID'"));
    companion.Execute(
        db::Sql("Insert Into DefaultFieldValues (DfltFieldName, DfltValue) Values ('DBID', '{}')", identity));
    sql(db::Sql("Update settings Set FHServer = '{}', FHDatabaseName = '{}'", companion_->source(),
                companion_->catalog()));
}

QString Practice::textOf(const TestDatabase& database, const char* login, const char* password) {
    return QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=%2;User Id=%3;Password=%4;")
        .arg(database.source(), database.catalog(), QLatin1String(login), qEnvironmentVariable(password));
}

void Practice::pairProvider(const QString& identity, int fhProviderId, const QString& svProviderId) {
    sql(db::Sql("Insert Into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (1, '{}', {}, '{}')",
                identity, fhProviderId, svProviderId));
}

void Practice::sql(const QString& statement) {
    database_.connection().Execute(statement);
}

QString Practice::value(const QString& statement) {
    return database_.text(statement);
}
