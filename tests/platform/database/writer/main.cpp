// One of the desks that the sharing test starts: writes to the table Writes until it has written as often as it was
// told to, or until it is killed.

#include <cstdio>
#include <QCoreApplication>
#include <QStringList>

#include "platform/database/connection.h"
#include "platform/database/error.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"

namespace {

/// Every way of writing in turn; each step leaves two rows more.
void writeTwoRows(db::Connection& connection, const QString& desk, int step) {
    const QString insert = db::Sql("Insert Into Writes (desk, step) Values ('{}', {})", desk, step);
    connection.BeginTrans();
    connection.Execute(insert);
    if (step % 2 == 0) {
        connection.Execute(insert);
    } else {
        db::Recordset rows("Select * from Writes Where 0=1", connection, db::Lock::Optimistic);
        rows.AddNew();
        rows.Set("desk", desk);
        rows.Set("step", step);
        rows.Update();
    }
    connection.Execute("Update Total Set n = n + 2");
    connection.CommitTrans();
}

}  // namespace

/// Arguments: connection text, name of the desk, number of steps. A line on the standard output after every tenth.
int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    try {
        db::Connection connection;
        connection.Open(arguments.at(1));
        const int steps = arguments.at(3).toInt();
        for (int step = 0; step < steps; ++step) {
            writeTwoRows(connection, arguments.at(2), step);
            if (step % 10 == 0) {
                std::puts("written");
                std::fflush(stdout);
            }
        }
    } catch (const db::DatabaseError& error) {
        std::fprintf(stderr, "%d %s\n", error.number, error.what());
        return 1;
    }
    return 0;
}
