#include "benchmarks/practice.h"

#include "session/session.h"

QString Practice::databaseFile() const {
    return folder + QStringLiteral("/practice.db");
}

void Practice::openSession() const {
    ResetSession();
    SessionValues& session = Session();
    session.Connection.Open(
        QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=practice;User Id=SVMaster;").arg(folder));
    session.UID = session.ProviderId = QStringLiteral("REED");
    session.ScreenAccess = 3;
    session.CurrentView = View::Day;
    session.WordUsage = QStringLiteral("Patient");
}

std::vector<Practice>& Practices() {
    static std::vector<Practice> practices;
    return practices;
}
