#pragma once

#include <QFile>
#include <QString>

#include "data/schema.h"
#include "platform/database/connection.h"

/// The login by which the program opens a database of the script, "SVMaster" or "FHMaster", and its password: that of
/// SVSCHEDULER_PASSWORD_SVS or _FH, else one of the tests. A login that the server has not got is made with it.
struct ProgramLogin {
    QString name;
    QString password;
};
[[nodiscard]] ProgramLogin ProgramLoginFor(SchemaScript script);

/// One of the numbered databases ("svtest_1", "svtest_2", ...) that tests have to themselves on a server, so that they
/// can run side by side: held by a lock on a file of this machine until the object is gone, or its process. A number
/// that has no database yet gets one, which takes a login that may create databases.
class ServerDatabase {
  public:
    /// Takes the first database that no other test holds, opens the connection on it and empties the tables of the
    /// script. What a test left behind that did not end in order, or that changed tables, is taken down first.
    /// `serverText` names the server and the name that the numbers follow. The program's login may read and write the
    /// rows, and its password stands in the environment.
    ServerDatabase(const QString& serverText, SchemaScript script, db::Connection& connection);
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;

    [[nodiscard]] const QString& connectionText() const { return connectionText_; }
    /// The test changes more than rows: whoever has the database next makes its tables anew.
    void setTablesChanged() { tablesChanged_ = true; }

  private:
    bool hold(const QString& name);
    void open(const QString& serverText, const QString& name, db::Connection& connection) const;

    QFile lock_;  ///< Holds schema_ while the tables are those of the script.
    QByteArray schema_;
    QString connectionText_;
    bool tablesChanged_ = false;
};
