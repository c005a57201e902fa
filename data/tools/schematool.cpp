// svscheduler-schema: creates the tables of the main and of the companion database, and mends those of a practice.

#include "data/connectionargument.h"
#include "data/schema.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

namespace {

void say(const QString& text) {
    QTextStream(stdout) << text << Qt::endl;
}

bool complain(const QString& text) {
    QTextStream(stderr) << "svscheduler-schema: " << text << Qt::endl;
    return false;
}

/// Mends the tables of a practice that already works with them.
bool mend(db::Connection& connection) {
    const qint64 mended = MendAppointments(connection);
    say(QStringLiteral("The main database has its tables already, and they were left as they are."));
    say(QStringLiteral(
            "Appointments without a type (appttype null): %1. They count as ordinary ones now, as will each that another program writes.")
            .arg(mended));
    return true;
}

bool apply(SchemaScript script, const QString& name, const QString& connectionText) {
    try {
        db::Connection connection;
        connection.Create(connectionText);
        const QString existing = ExistingSchemaTable(connection, script);
        if (existing == QLatin1String("appointments"))
            return mend(connection);
        if (!existing.isEmpty())
            return complain(
                QStringLiteral(
                    "The %1 database already has the table %2; nothing was changed. The tables go into a database that has none of them.")
                    .arg(name, existing));
        ApplySchema(connection, script);
        if (script == SchemaScript::Main)
            WriteSchemaVersion(connection);
        say(QStringLiteral("The %1 database has its %2 tables.").arg(name).arg(SchemaTables(script).size()));
        return true;
    } catch (const db::DatabaseError& error) {
        if (error.statement.isEmpty())
            return complain(QStringLiteral("The %1 database cannot be opened. %2, %3")
                                .arg(name)
                                .arg(error.number)
                                .arg(error.description));
        return complain(QStringLiteral("The %1 database was left as it was. %2, %3\n%4")
                            .arg(name)
                            .arg(error.number)
                            .arg(error.description, error.statement));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("svscheduler-schema"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SVS_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Creates the tables of SVScheduler in an empty database. In a main database that has them already, appointments without a type are made ordinary ones, now and from now on.\n\n"
        "TEXT is a connection text, as in\n"
        "  \"Data Source=db.practice.example;Initial Catalog=Solvane;User Id=SVMaster;\" for a SQL Server, where the database exists, or\n"
        "  \"Data Source=/srv/practice;Initial Catalog=practice;\" for an embedded database, whose file is made when it is not there.\n"
        "Passwords are taken from the environment: SVSCHEDULER_PASSWORD_SVS (main) and SVSCHEDULER_PASSWORD_FH (companion)."));
    const QCommandLineOption mainOption(QStringLiteral("main"),
                                        QStringLiteral("Create the tables of the main database there."),
                                        QStringLiteral("TEXT"));
    const QCommandLineOption companionOption(QStringLiteral("companion"),
                                             QStringLiteral("Create the tables of the companion database there."),
                                             QStringLiteral("TEXT"));
    parser.addOptions({mainOption, companionOption});
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);

    if (!parser.positionalArguments().isEmpty() || (!parser.isSet(mainOption) && !parser.isSet(companionOption))) {
        complain(QStringLiteral("Say which database with --main TEXT or --companion TEXT. --help tells more."));
        return 2;
    }
    bool done = true;
    if (parser.isSet(mainOption))
        done = apply(SchemaScript::Main, QStringLiteral("main"),
                     WithPassword(parser.value(mainOption), "SVSCHEDULER_PASSWORD_SVS"));
    if (done && parser.isSet(companionOption))
        done = apply(SchemaScript::Companion, QStringLiteral("companion"),
                     WithPassword(parser.value(companionOption), "SVSCHEDULER_PASSWORD_FH"));
    return done ? 0 : 1;
}
