#pragma once

#include <QProcess>
#include <QTemporaryDir>

/// One copy of the program, running on a practice, and a hand inside it (RemoteHand) that a test leads. A
/// command that cannot be done fails the test.
class Desk {
  public:
    /// Starts the program for the user, off screen or on an X display, and waits for its main window. Without a date
    /// it starts as it does in the morning, today and where the user was last. What the program
    /// remembers for its user is its own, unless a folder for that is given. `locale` holds the variables that choose
    /// the locale ("LANG=en_GB.UTF-8"), all of them: those of whoever runs the tests are left out.
    Desk(const QString& dataFolder, const QString& user, QDate date, const QString& display = {},
         const QString& configFolder = {}, const QStringList& locale = {QStringLiteral("LC_ALL=C.UTF-8")});
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    /// Sends the words and returns what the program tells.
    QString tell(const QStringList& words);
    QString tell(const char* command, const QString& first = {}, const QString& second = {});
    /// Waits for a form, "box" or "mdisched" to be in front.
    void await(const char* window) { tell("await", QString::fromLatin1(window)); }
    /// Waits for a widget of the form in front to be shown.
    void awaitShown(const char* widget) { tell("awaitShown", QString::fromLatin1(widget)); }
    /// Waits for a message box and answers it; returns what it said.
    QString answer(const char* button);
    /// Sends words that the program may not live to answer.
    void tellLast(const char* command, const QString& first);
    /// Waits for the end of a program that dies.
    void awaitDeath();
    void kill();
    /// The program is busy with something else until it goes on; what the person does meanwhile waits for it.
    void stop();
    void goOn();

  private:
    QTemporaryDir config_;
    QProcess program_;
};
