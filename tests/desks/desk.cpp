#include "tests/desks/desk.h"

#include <gtest/gtest.h>

#include <csignal>
#include <QDate>

namespace {

constexpr int PatienceMilliseconds = 60000;

}  // namespace

Desk::Desk(const QString& dataFolder, const QString& user, QDate date, const QString& display,
           const QString& configFolder, const QStringList& locale) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configFolder.isEmpty() ? config_.path() : configFolder);
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_STATE_HOME"})
        environment.insert(QString::fromLatin1(name), config_.path());
    environment.insert(QStringLiteral("DISPLAY"), display);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       display.isEmpty() ? QStringLiteral("offscreen") : QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("remotehand"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(SVS_PLUGINS));
    for (const char* name : {"LANG", "LANGUAGE", "LC_ALL", "LC_TIME"})
        environment.remove(QString::fromLatin1(name));
    for (const QString& variable : locale)
        environment.insert(variable.section(QLatin1Char('='), 0, 0), variable.section(QLatin1Char('='), 1));
    program_.setProcessEnvironment(environment);
    program_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QStringList arguments{QStringLiteral("--data"), dataFolder, QStringLiteral("--size"), QStringLiteral("1280x800")};
    if (date.isValid())
        arguments << QStringLiteral("--date") << date.toString(Qt::ISODate);
    program_.start(QStringLiteral(SVS_PROGRAM), arguments << QStringLiteral("1|") + user);
    await("mdisched");
}

Desk::~Desk() {
    program_.closeWriteChannel();
    program_.waitForFinished(PatienceMilliseconds);
}

QString Desk::tell(const QStringList& words) {
    program_.write(words.join(QLatin1Char('\t')).toUtf8() + '\n');
    while (!program_.canReadLine())
        if (!program_.waitForReadyRead(PatienceMilliseconds)) {
            ADD_FAILURE() << "No answer to: " << words.join(QLatin1Char(' ')).toStdString();
            return {};
        }
    QString answer = QString::fromUtf8(program_.readLine());
    answer.chop(1);  // The line end; a message may end with a blank.
    EXPECT_TRUE(answer.startsWith(QLatin1String("ok"))) << answer.toStdString();
    return answer.mid(3).replace(QLatin1Char('~'), QLatin1Char('\n'));
}

QString Desk::tell(const char* command, const QString& first, const QString& second) {
    QStringList words{QString::fromLatin1(command)};
    if (!first.isNull())
        words << first;
    if (!second.isNull())
        words << second;
    return tell(words);
}

QString Desk::answer(const char* button) {
    await("box");
    return tell("answer", QString::fromLatin1(button));
}

void Desk::tellLast(const char* command, const QString& first) {
    program_.write(QByteArray(command) + '\t' + first.toUtf8() + '\n');
    program_.waitForBytesWritten(PatienceMilliseconds);
}

void Desk::kill() {
    program_.kill();
    awaitDeath();
}

void Desk::stop() {
    ::kill(static_cast<pid_t>(program_.processId()), SIGSTOP);
}

void Desk::goOn() {
    ::kill(static_cast<pid_t>(program_.processId()), SIGCONT);
}

void Desk::awaitDeath() {
    EXPECT_TRUE(program_.waitForFinished(PatienceMilliseconds)) << "The program lives on.";
    EXPECT_EQ(program_.exitStatus(), QProcess::CrashExit);
}
