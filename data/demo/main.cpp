// svscheduler-demo: makes a practice to try the program with.

#include "data/connectionargument.h"
#include "data/demo/demo.h"
#include "data/demo/notesstandin.h"
#include "data/schema.h"
#include "platform/database/connectiontext.h"
#include "platform/database/recordset.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>
#include <stdexcept>

namespace {

constexpr int MostAppointments = 5'000'000;

/// A mistake in the arguments: exit code 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

const QCommandLineOption& dataOption() {
    static const QCommandLineOption option(QStringLiteral("data"),
                                           QStringLiteral("Make the ini files and embedded databases in DIR."),
                                           QStringLiteral("DIR"));
    return option;
}

const QCommandLineOption& mainOption() {
    static const QCommandLineOption option(
        QStringLiteral("main"), QStringLiteral("Fill this database, which has its tables, instead of making a folder."),
        QStringLiteral("TEXT"));
    return option;
}

const QCommandLineOption& companionOption() {
    static const QCommandLineOption option(QStringLiteral("companion"),
                                           QStringLiteral("With --main: the companion database, which has its tables."),
                                           QStringLiteral("TEXT"));
    return option;
}

const QCommandLineOption& seedOption() {
    static const QCommandLineOption option(QStringLiteral("seed"),
                                           QStringLiteral("Another practice for another number (default 1)."),
                                           QStringLiteral("N"), QStringLiteral("1"));
    return option;
}

const QCommandLineOption& appointmentsOption() {
    static const QCommandLineOption option(
        QStringLiteral("appointments"),
        QStringLiteral("About so many appointments (default %1).").arg(demo::UsualAppointments), QStringLiteral("N"),
        QString::number(demo::UsualAppointments));
    return option;
}

const QCommandLineOption& dateOption() {
    static const QCommandLineOption option(QStringLiteral("date"),
                                           QStringLiteral("The day that the practice is dated around (default today)."),
                                           QStringLiteral("yyyy-mm-dd"));
    return option;
}

demo::Options optionsFrom(const QCommandLineParser& parser) {
    demo::Options options;
    bool isNumber = false;
    options.seed = parser.value(seedOption()).toULongLong(&isNumber);
    if (!isNumber)
        throw UsageError("--seed wants a whole number from 0.");
    options.appointments = parser.value(appointmentsOption()).toInt(&isNumber);
    if (!isNumber || options.appointments < 1 || options.appointments > MostAppointments)
        throw UsageError("--appointments wants a number from 1 to 5000000.");
    options.today =
        parser.isSet(dateOption()) ? QDate::fromString(parser.value(dateOption()), Qt::ISODate) : QDate::currentDate();
    if (!options.today.isValid())
        throw UsageError("--date wants a day as yyyy-mm-dd.");
    options.notesProgram = demo::NotesStandIn();
    return options;
}

void openForFilling(db::Connection& connection, const QString& text, SchemaScript script, const char* probe) {
    connection.Open(text);
    if (ExistingSchemaTable(connection, script).isEmpty())
        throw std::runtime_error("The database has no tables yet. svscheduler-schema creates them.");
    if (!db::Recordset(QString::fromLatin1(probe), connection).Eof())
        throw std::runtime_error(
            "The database already holds rows; nothing was changed. The demo practice goes into empty tables.");
}

demo::Summary fillDatabases(const demo::Options& options, const QString& mainText, const QString& companionText) {
    db::Connection main, companion;
    openForFilling(main, mainText, SchemaScript::Main, "Select id from provider_info");
    openForFilling(companion, companionText, SchemaScript::Companion, "Select ProvId from Providers");
    const db::ConnectionFields fields = db::ParseConnectionText(companionText);
    return demo::MakePractice(
        options, main, companion,
        {fields.value(QStringLiteral("data source")), fields.value(QStringLiteral("initial catalog"))});
}

demo::Summary make(const QCommandLineParser& parser) {
    const demo::Options options = optionsFrom(parser);
    const bool databases = parser.isSet(mainOption()) && parser.isSet(companionOption());
    if (!parser.positionalArguments().isEmpty() || parser.isSet(dataOption()) == databases ||
        (!databases && (parser.isSet(mainOption()) || parser.isSet(companionOption()))))
        throw UsageError("Say where with --data DIR, or with --main TEXT and --companion TEXT. --help tells more.");
    if (!databases)
        return demo::MakeDemoFolder(options, parser.value(dataOption()));
    return fillDatabases(options, WithPassword(parser.value(mainOption()), "SVSCHEDULER_PASSWORD_SVS"),
                         WithPassword(parser.value(companionOption()), "SVSCHEDULER_PASSWORD_FH"));
}

int run(const QCommandLineParser& parser) {
    QTextStream out(stdout);
    const auto complain = [](const QString& text) { QTextStream(stderr) << "svscheduler-demo: " << text << Qt::endl; };
    try {
        const demo::Summary summary = make(parser);
        out << QStringLiteral("%1 appointments of %2 patients with %3 providers, from %4 to %5.\n")
                   .arg(summary.appointments)
                   .arg(summary.patients)
                   .arg(summary.providers)
                   .arg(summary.firstDay.toString(Qt::ISODate), summary.lastDay.toString(Qt::ISODate))
            << "Users: REED, LANE, DESK, VIEW, ADMIN. Every password is \"demo\".\n";
        return 0;
    } catch (const UsageError& error) {
        complain(QString::fromUtf8(error.what()));
        return 2;
    } catch (const db::DatabaseError& error) {
        complain(QStringLiteral("The database refused a step. %1, %2\n%3")
                     .arg(error.number)
                     .arg(error.description, error.statement));
    } catch (const std::exception& error) {
        complain(QString::fromUtf8(error.what()));
    }
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("svscheduler-demo"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SVS_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Makes a practice to try SVScheduler with: the same one for the same seed, size and day.\n\n"
        "Its users are REED and LANE (therapists), DESK (front desk), VIEW (may only look) and ADMIN (administrator), all with the password \"demo\".\n"
        "TEXT is a connection text; passwords are taken from SVSCHEDULER_PASSWORD_SVS (main) and SVSCHEDULER_PASSWORD_FH (companion)."));
    parser.addOptions(
        {dataOption(), seedOption(), appointmentsOption(), dateOption(), mainOption(), companionOption()});
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);
    return run(parser);
}
