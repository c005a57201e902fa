#pragma once

#include <deque>
#include <functional>
#include <QDateTime>
#include <QPointer>
#include <QString>
#include <QStringList>

#include "platform/desktop/desktop.h"

/// Takes the place of the world outside for one test: answers message boxes and modal forms from a script, holds the
/// clock still, and records sounds and started programs. A box or form that nobody expected fails the test, and so does
/// an expected one that never came.
class ScriptedDesk {
  public:
    ScriptedDesk();
    ~ScriptedDesk();
    ScriptedDesk(const ScriptedDesk&) = delete;
    ScriptedDesk& operator=(const ScriptedDesk&) = delete;

    /// The next message box must have this text and title, and is answered so.
    void expectBox(const QString& text, const QString& title, Answer answer = Answer::Ok);
    /// The next modal form must have this class name ("frmsvspl"); `act` plays the user on the form, which is not shown
    /// by an event loop of its own; what act leaves as the form's result is the answer.
    void expectForm(const char* className, std::function<void(QDialog&)> act);
    void setNow(const QDateTime& now) { now_ = now; }
    /// What waits for a time to pass (After) goes on.
    void passTime();

    QString chosenFile;    ///< What the user chooses when asked for a file to write; empty gives up.
    QStringList proposed;  ///< Files proposed to the user then.
    QList<int> waits;      ///< Milliseconds that something waits for.
    QStringList sounds;    ///< Paths played.
    QStringList opened;    ///< Handed to the desktop.
    QStringList started;   ///< "program arguments" started.

  private:
    struct Expected {
        QString text;
        QString title;
        Answer answer = Answer::Ok;
        QByteArray formClass;
        std::function<void(QDialog&)> act;
    };
    struct Waiting {
        QPointer<QObject> context;
        std::function<void()> step;
    };
    Answer answerBox(const QString& text, const QString& title);
    int answerForm(QDialog& form);

    DesktopSeams before_;
    std::deque<Expected> script_;
    std::deque<Waiting> waiting_;
    QDateTime now_;
};
