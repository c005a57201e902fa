#include "platform/desktop/practicedatabase.h"

#include "platform/desktop/credentials.h"
#include "platform/desktop/inifile.h"

QString PracticeConnectionText(const QString& iniPath) {
    const auto named = [&iniPath](const char* key) {
        return ReadIniValue(iniPath + QStringLiteral("/solvane.ini"), QStringLiteral("SQLServer"),
                            QString::fromLatin1(key));
    };
    const QString server = named("DataSource");
    return QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=%2;User Id=SVMaster;Password=%3;")
        .arg(ResolvedDataSource(server, iniPath), named("InitialCatalog"),
             BuildDbPassword(QStringLiteral("SVS"), server, iniPath));
}
