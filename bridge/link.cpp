#include "bridge/link.h"

#include "data/settings.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/credentials.h"
#include "platform/desktop/desktop.h"

namespace {

QString companionText(const QString& server, const QString& database, const QString& iniPath) {
    return QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=%2;User Id=FHMaster;Password=%3; ")
        .arg(ResolvedDataSource(server, iniPath), database, BuildDbPassword(QStringLiteral("FH"), server, iniPath));
}

// The settings are numbers stored as text. Null reads as 0.
bool isOne(const db::Field& field) {
    return field.text().trimmed().toDouble() == 1;
}

// Returns the first field of the first row, or an empty text without a row or when the statement fails.
QString paired(db::Connection& main, const QString& statement, std::optional<db::DatabaseError>* failure) {
    try {
        const db::Recordset pair(statement, main);
        return pair.Eof() ? QString() : pair[0].text();
    } catch (const db::DatabaseError& error) {
        if (failure != nullptr)
            *failure = error;
        return {};
    }
}

}  // namespace

QString GetFHConnectionString(db::Connection& main, const QString& iniPath) {
    try {
        const db::Recordset settings(SettingsStatement(), main);
        if (settings.Eof())
            return {};
        const QString server = settings["FHServer"].text();
        const QString database = settings["FHDatabaseName"].text();
        return server.isEmpty() || database.isEmpty() ? QString() : companionText(server, database, iniPath);
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Error retrieving Fernhall Server and Database Name. ") + error.description, ErrorBox,
               QStringLiteral("Error"));
        return {};
    }
}

FHLinkSettings GetFHLinkSettings(db::Connection& main) {
    FHLinkSettings link;
    db::Ignoring([&] {
        const db::Recordset settings(SettingsStatement(), main);
        if (settings.Eof())
            return;
        link.FHAutoExport = isOne(settings["FHAutoExport"]);
        link.UseFHSchedView = isOne(settings["UseFHSchedView"]);
    });
    return link;
}

QString GetFHDBId(const QString& companionText) {
    try {
        db::Connection companion;
        companion.Open(companionText);
        const db::Recordset identity("Select DfltValue from DefaultFieldValues Where dfltfieldname = 'DBID'",
                                     companion);
        return identity.Eof() ? QString() : identity[0].text();
    } catch (const db::DatabaseError&) {
        MsgBox(QStringLiteral("Error connecting to Fernhall database. Make sure the connection settings are correct."),
               ErrorBox, QStringLiteral("Error"));
        return {};
    }
}

int GetFHProviderId(db::Connection& main, const QString& fhDatabase, const QString& svProviderId,
                    std::optional<db::DatabaseError>* failure) {
    return paired(
               main,
               db::Sql(
                   "Select FHDataValue from FHDataPairs Where FHDataList = 1 AND FHDatabase = '{}' AND SVDataValue = '{}'",
                   fhDatabase, svProviderId),
               failure)
        .toInt();
}

QString GetSVProviderFromFH(db::Connection& main, const QString& fhDatabase, int fhProviderId,
                            std::optional<db::DatabaseError>* failure) {
    return paired(
        main,
        db::Sql("Select SVDataValue from FHDataPairs Where FHDataList = 1 AND FHDatabase = '{}' AND FHDataValue = {}",
                fhDatabase, fhProviderId),
        failure);
}

QString GetSVPatientFromFH(db::Connection& main, const QString& fhDatabase, int fhClientId,
                           std::optional<db::DatabaseError>* failure) {
    return paired(
        main,
        db::Sql("Select SVDataValue from FHDataPairs Where FHDataList = 4 AND FHDatabase = '{}' AND FHDataValue = {}",
                fhDatabase, fhClientId),
        failure);
}
