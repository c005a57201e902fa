// svscheduler-admin: checks a practice's database, backs it up and restores it, and keeps its users.

#include <termios.h>
#include <unistd.h>
#include <csignal>
#include <cstdio>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTextStream>
#include <stdexcept>

#include "data/connectionargument.h"
#include "data/scramble.h"
#include "data/upkeep/finding.h"
#include "data/upkeep/practicefiles.h"
#include "data/upkeep/schemaversion.h"
#include "data/upkeep/users.h"
#include "platform/database/connectiontext.h"
#include "platform/database/embedded/copyfile.h"
#include "platform/desktop/installation.h"
#include "platform/desktop/practicedatabase.h"

namespace {

constexpr int Failed = 1;
constexpr int BadUsage = 2;
constexpr int Found = 3;  ///< `check` found something that it did not mend.

/// A mistake in the arguments.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void say(const QString& text) {
    QTextStream(stdout) << text << Qt::endl;
}

int complain(const QString& text) {
    QTextStream(stderr) << "svscheduler-admin: " << text << Qt::endl;
    return Failed;
}

/// What the user types after this question; empty at the end of the input.
QString typedAfter(const QString& question) {
    // One stream for all questions, because it reads ahead.
    static QTextStream input(stdin);
    QTextStream(stdout) << question << Qt::flush;
    return input.readLine();
}

QString asked(const QString& question) {
    return typedAfter(question + QLatin1Char(' ')).trimmed();
}

bool isYes(const QString& question) {
    return asked(question + QStringLiteral(" [y/N]")).startsWith(QLatin1Char('y'), Qt::CaseInsensitive);
}

/// Hides what is typed while it lives, and also shows it again when the user breaks off.
class HiddenTyping {
  public:
    HiddenTyping() {
        tcgetattr(STDIN_FILENO, &shown());
        termios hidden = shown();
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
        std::signal(SIGINT, [](int number) {
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown());
            std::signal(number, SIG_DFL);
            raise(number);
        });
    }
    ~HiddenTyping() {
        std::signal(SIGINT, SIG_DFL);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown());
    }
    HiddenTyping(const HiddenTyping&) = delete;
    HiddenTyping& operator=(const HiddenTyping&) = delete;

  private:
    static termios& shown() {
        static termios settings{};
        return settings;
    }
};

/// A password that is typed twice without being shown, or the first line of an input that is no terminal.
QString askedPassword() {
    if (isatty(STDIN_FILENO) == 0)
        return typedAfter({});
    const HiddenTyping hidden;
    const QString first = typedAfter(QStringLiteral("Password: "));
    const QString second = typedAfter(QStringLiteral("\nThe same again: "));
    say({});
    if (first != second)
        throw UsageError("The two passwords are not the same.");
    return first;
}

const QCommandLineOption& dataOption() {
    static const QCommandLineOption option(
        QStringLiteral("data"),
        QStringLiteral("The folder of solvane.ini (default: the one that the scheduler opens without options)."),
        QStringLiteral("DIR"));
    return option;
}

const QCommandLineOption& mainOption() {
    static const QCommandLineOption option(
        QStringLiteral("main"), QStringLiteral("The connection text of the main database, instead of a folder."),
        QStringLiteral("TEXT"));
    return option;
}

const QCommandLineOption& fixOption() {
    static const QCommandLineOption option(QStringLiteral("fix"),
                                           QStringLiteral("With check: ask for each finding whether to mend it."));
    return option;
}

const QCommandLineOption& yesOption() {
    static const QCommandLineOption option(QStringLiteral("yes"),
                                           QStringLiteral("With restore and upgrade: do not ask."));
    return option;
}

const QCommandLineOption& firstNameOption() {
    static const QCommandLineOption option(QStringLiteral("first-name"), QStringLiteral("With users add."),
                                           QStringLiteral("NAME"));
    return option;
}

const QCommandLineOption& lastNameOption() {
    static const QCommandLineOption option(QStringLiteral("last-name"), QStringLiteral("With users add."),
                                           QStringLiteral("NAME"));
    return option;
}

const QCommandLineOption& rightsOption() {
    static const QCommandLineOption option(
        QStringLiteral("rights"),
        QStringLiteral(
            "With users add: 1 read, 2 write, 3 write and delete on the own schedule; 4, 5, 6 the same on all (default 6)."),
        QStringLiteral("DIGIT"), QStringLiteral("6"));
    return option;
}

const QCommandLineOption& administratorOption() {
    static const QCommandLineOption option(QStringLiteral("administrator"),
                                           QStringLiteral("With users add: a system administrator."));
    return option;
}

const QCommandLineOption& noProviderOption() {
    static const QCommandLineOption option(
        QStringLiteral("no-provider"), QStringLiteral("With users add: nobody is offered this user as a provider."));
    return option;
}

/// The folder of solvane.ini; that of the database where only a connection text was given.
QString iniPath(const QCommandLineParser& parser) {
    if (parser.isSet(dataOption()))
        return parser.value(dataOption());
    if (parser.isSet(mainOption())) {
        const QString file = db::EmbeddedFile(db::ParseConnectionText(parser.value(mainOption())));
        return file.isEmpty() ? QString() : QFileInfo(file).absolutePath();
    }
    if (const auto central = CentralInstallation(InstallationFile()))
        return central->IniPath;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/svscheduler");
}

QString mainText(const QCommandLineParser& parser) {
    if (parser.isSet(mainOption()))
        return WithPassword(parser.value(mainOption()), "SVSCHEDULER_PASSWORD_SVS");
    const QString folder = iniPath(parser);
    if (!QFileInfo::exists(folder + QStringLiteral("/solvane.ini")))
        throw std::runtime_error(QStringLiteral("There is no solvane.ini in %1.").arg(folder).toStdString());
    return PracticeConnectionText(folder);
}

void open(db::Connection& main, const QCommandLineParser& parser) {
    main.Open(mainText(parser));
}

int version(const QCommandLineParser& parser) {
    db::Connection main;
    open(main, parser);
    say(QStringLiteral("Program %1, schema %2").arg(QStringLiteral(SVS_VERSION)).arg(CurrentSchema));
    say(QStringLiteral("Database: schema %1").arg(upkeep::SchemaVersion(main)));
    return 0;
}

/// Returns how many findings are left.
int checkRows(db::Connection& main, bool mend) {
    const std::vector<upkeep::Finding> found = upkeep::CheckRows(main);
    for (const upkeep::Finding& finding : found) {
        say(QStringLiteral("%1 %2: %3").arg(finding.table).arg(finding.key).arg(finding.text));
        if (!mend)
            continue;
        const bool wantsText = finding.fix->WantsText();
        const QString answer =
            wantsText ? asked(QStringLiteral("  %1 (Enter leaves it):").arg(finding.fix->question)) : QString();
        if (wantsText ? answer.isEmpty() : !isYes(QStringLiteral("  ") + finding.fix->question))
            continue;
        const QString why = upkeep::ApplyFix(main, finding, answer);
        say(QStringLiteral("  ") + (why.isEmpty() ? QStringLiteral("Mended.") : why));
    }
    // What was mended may have been all that was wrong with a row, or not.
    return static_cast<int>(mend ? upkeep::CheckRows(main).size() : found.size());
}

/// Returns whether the file is whole, and complains of it where it is not.
bool isWhole(const QString& file) {
    const QStringList damages = db::DamagesOf(file);
    if (!damages.isEmpty())
        complain(
            QStringLiteral("The file %1 is damaged: %2\nRestore it from a backup.").arg(file, damages.constFirst()));
    return damages.isEmpty();
}

/// Tells what the companion database lacks, where it is a file. Another program owns its tables, so that nothing here
/// mends them. Returns 0, Failed or Found.
int checkCompanion(const QString& file) {
    if (file.isEmpty())
        return 0;
    if (!QFileInfo::exists(file)) {
        say(QStringLiteral("The companion database %1, which the settings name, is not there.").arg(file));
        return Found;
    }
    if (!isWhole(file))
        return Failed;
    db::Connection companion;
    companion.Open(QStringLiteral("Data Source=%1;Initial Catalog=%2;")
                       .arg(QFileInfo(file).absolutePath(), QFileInfo(file).completeBaseName()));
    const QStringList missing = upkeep::MissingParts(companion, SchemaScript::Companion);
    for (const QString& part : missing)
        say(QStringLiteral("Missing in the companion database %1: %2").arg(file, part));
    return missing.isEmpty() ? 0 : Found;
}

/// Checks the main database; returns 0, Failed or Found.
int checkMain(const QCommandLineParser& parser, const QString& text) {
    db::Connection main;
    main.Open(text);
    const QStringList missing = upkeep::MissingParts(main, SchemaScript::Main);
    for (const QString& part : missing)
        say(QStringLiteral("Missing in the schema: %1").arg(part));
    if (!missing.isEmpty()) {
        say(QStringLiteral("\"svscheduler-admin upgrade\" adds what is missing."));
        return Found;
    }
    const int left = checkRows(main, parser.isSet(fixOption()));
    if (left > 0)
        say(QStringLiteral("Rows that are not sound: %1").arg(left));
    return left == 0 ? 0 : Found;
}

int check(const QCommandLineParser& parser) {
    const QString text = mainText(parser);
    const upkeep::PracticeFiles practice = upkeep::FilesOf(text, iniPath(parser));
    if (!practice.main.isEmpty() && !isWhole(practice.main))
        return Failed;
    const int result = checkMain(parser, text);
    const int companion = checkCompanion(practice.companion);
    if (result == 0 && companion == 0)
        say(QStringLiteral("All is sound."));
    return companion == Failed || result == 0 ? companion : result;
}

upkeep::PracticeFiles embeddedPractice(const QCommandLineParser& parser) {
    upkeep::PracticeFiles practice = upkeep::FilesOf(mainText(parser), iniPath(parser));
    if (practice.main.isEmpty())
        throw std::runtime_error(
            "This practice is on a SQL Server, which makes and restores its own backups:\n  Backup Database [practice] To Disk = 'practice.bak' With Copy_Only\n  Restore Database [practice] From Disk = 'practice.bak'\nThe server's administrator runs these for the main and the companion database.");
    return practice;
}

int backup(const QCommandLineParser& parser, const QStringList& arguments) {
    if (arguments.size() != 1)
        throw UsageError("backup wants the folder in which the backup is made.");
    say(QStringLiteral("The backup is in %1.")
            .arg(upkeep::BackUp(embeddedPractice(parser), arguments[0], QDateTime::currentDateTime(), say)));
    return 0;
}

int restore(const QCommandLineParser& parser, const QStringList& arguments) {
    if (arguments.size() != 1)
        throw UsageError("restore wants the folder that backup made.");
    const upkeep::PracticeFiles practice = embeddedPractice(parser);
    if (!parser.isSet(yesOption()) && !isYes(QStringLiteral("Put the backup in the place of %1?").arg(practice.main)))
        return complain(QStringLiteral("Nothing was changed."));
    upkeep::Restore(arguments[0], mainText(parser), iniPath(parser), QDateTime::currentDateTime(), say);
    return 0;
}

int upgrade(const QCommandLineParser& parser) {
    db::Connection main;
    open(main, parser);
    const int before = upkeep::SchemaVersion(main);
    if (before < CurrentSchema && !parser.isSet(yesOption()) &&
        !isYes(QStringLiteral("Bring the database from schema %1 to %2? Make a backup first.")
                   .arg(before)
                   .arg(CurrentSchema)))
        return complain(QStringLiteral("Nothing was changed."));
    for (const QString& done : upkeep::Upgrade(main))
        say(done);
    say(QStringLiteral("Database: schema %1").arg(upkeep::SchemaVersion(main)));
    return 0;
}

int listUsers(db::Connection& main) {
    static constexpr const char* rights[] = {
        "nothing", "reads", "writes", "writes, deletes", "reads all", "writes all", "writes, deletes all"};
    for (const upkeep::User& user : upkeep::Users(main)) {
        const bool known = user.scheduler >= 0 && user.scheduler < static_cast<int>(std::size(rights));
        say(QStringLiteral("%1  %2  %3%4")
                .arg(user.id, -20)
                .arg(user.name, -30)
                .arg(user.isAdministrator ? QStringLiteral("everything")
                                          : QString::fromLatin1(known ? rights[user.scheduler] : "unknown rights"),
                     user.isLocked ? QStringLiteral(", locked") : QString()));
    }
    return 0;
}

upkeep::NewUser newUser(const QCommandLineParser& parser, const QString& id) {
    bool isNumber = false;
    upkeep::NewUser user{.id = id};
    user.firstName = parser.value(firstNameOption());
    user.lastName = parser.value(lastNameOption());
    user.isAdministrator = parser.isSet(administratorOption());
    user.isProvider = !parser.isSet(noProviderOption());
    user.scheduler = parser.value(rightsOption()).toInt(&isNumber);
    if (!isNumber)
        throw UsageError("--rights wants a digit.");
    user.password = askedPassword();
    return user;
}

int users(const QCommandLineParser& parser, const QStringList& arguments) {
    db::Connection main;
    open(main, parser);
    const QString what = arguments.value(0, QStringLiteral("list"));
    if (what == QLatin1String("list") && arguments.size() < 2)
        return listUsers(main);
    if (arguments.size() != 2)
        throw UsageError("users takes list, add ID, password ID, lock ID or unlock ID.");
    const QString& id = arguments[1];
    const int key = InstallationScrambleKey(InstallationFile(), DefaultScrambleKey);
    QString why;
    if (what == QLatin1String("add"))
        why = upkeep::AddUser(main, newUser(parser, id), key);
    else if (what == QLatin1String("password"))
        why = upkeep::SetPassword(main, id, askedPassword(), key);
    else if (what == QLatin1String("lock") || what == QLatin1String("unlock"))
        why = upkeep::SetLocked(main, id, what == QLatin1String("lock"));
    else
        throw UsageError("users takes list, add ID, password ID, lock ID or unlock ID.");
    if (!why.isEmpty())
        return complain(why);
    say(QStringLiteral("Done."));
    return 0;
}

int runCommand(const QCommandLineParser& parser) {
    QStringList arguments = parser.positionalArguments();
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (command == QLatin1String("version"))
        return version(parser);
    if (command == QLatin1String("check"))
        return check(parser);
    if (command == QLatin1String("backup"))
        return backup(parser, arguments);
    if (command == QLatin1String("restore"))
        return restore(parser, arguments);
    if (command == QLatin1String("upgrade"))
        return upgrade(parser);
    if (command == QLatin1String("users"))
        return users(parser, arguments);
    throw UsageError("Say what to do: check, backup, restore, users, version or upgrade. --help tells more.");
}

int run(const QCommandLineParser& parser) {
    try {
        return runCommand(parser);
    } catch (const UsageError& error) {
        complain(QString::fromUtf8(error.what()));
        return BadUsage;
    } catch (const db::DatabaseError& error) {
        return complain(QStringLiteral("The database refused a step. %1, %2").arg(error.number).arg(error.description));
    } catch (const std::exception& error) {
        return complain(QString::fromUtf8(error.what()));
    }
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("svscheduler-admin"));
    QCoreApplication::setApplicationVersion(QStringLiteral(SVS_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Keeps a practice's database in order.\n\n"
        "  check            tells rows that no form can show and other faults, each with its key\n"
        "  backup FOLDER    copies the embedded databases and the ini files while desks work\n"
        "  restore FOLDER   puts a backup back; no desk may work meanwhile\n"
        "  users            lists the users; users add ID, password ID, lock ID, unlock ID\n"
        "  version          tells the versions of the program and of the database's schema\n"
        "  upgrade          brings the database of an older version up to date\n\n"
        "Passwords of users are typed, or read from the first line of the input. The password of the database's login is taken from SVSCHEDULER_PASSWORD_SVS or from credentials.ini."));
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("What to do."));
    parser.addOptions({dataOption(), mainOption(), fixOption(), yesOption(), firstNameOption(), lastNameOption(),
                       rightsOption(), administratorOption(), noProviderOption()});
    parser.addHelpOption();
    parser.addVersionOption();
    parser.process(app);
    return run(parser);
}
