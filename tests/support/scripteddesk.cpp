#include "tests/support/scripteddesk.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <utility>

namespace {

bool leaving = false;  ///< A form that `act` left open is being closed.

}  // namespace

ScriptedDesk::ScriptedDesk() : before_(Desktop()), now_(QDate(2026, 3, 11), QTime(10, 0)) {
    DesktopSeams& seams = Desktop();
    seams.msgBox = [this](const QString& text, BoxStyle, const QString& title) { return answerBox(text, title); };
    seams.showModal = [this](QDialog& form) { return answerForm(form); };
    seams.now = [this] { return now_; };
    seams.after = [this](int milliseconds, QObject* context, std::function<void()> step) {
        waits << milliseconds;
        waiting_.push_back({context, std::move(step)});
    };
    seams.playSound = [this](const QString& path) { sounds << path; };
    seams.openWithShell = [this](const QString& target) {
        opened << target;
        return true;
    };
    seams.startProgram = [this](const QString& path, const QString& arguments, const QString&) {
        started << path + QLatin1Char(' ') + arguments;
        return true;
    };
    seams.chooseSaveFile = [this](const QString&, const QString& proposal, const QString&, AsksToReplace) {
        proposed << proposal;
        return chosenFile;
    };
}

ScriptedDesk::~ScriptedDesk() {
    for (const Expected& expected : script_) {
        if (expected.formClass.isEmpty())
            ADD_FAILURE() << "This message never came: " << expected.text.toStdString();
        else
            ADD_FAILURE() << "This form was never shown: " << expected.formClass.toStdString();
    }
    Desktop() = before_;
}

void ScriptedDesk::expectBox(const QString& text, const QString& title, Answer answer) {
    script_.push_back({text, title, answer, {}, {}});
}

void ScriptedDesk::expectForm(const char* className, std::function<void(QDialog&)> act) {
    script_.push_back({{}, {}, Answer::Ok, className, std::move(act)});
}

void ScriptedDesk::passTime() {
    for (const Waiting& waiting : std::exchange(waiting_, {}))
        if (waiting.context != nullptr)
            waiting.step();
}

Answer ScriptedDesk::answerBox(const QString& text, const QString& title) {
    if (leaving)
        return Answer::Yes;  // Whoever leaves a form open here gives up what was typed in it.
    if (script_.empty() || !script_.front().formClass.isEmpty()) {
        ADD_FAILURE() << "Nobody expected this message: " << text.toStdString() << " [" << title.toStdString() << "]";
        return Answer::No;
    }
    const Expected expected = script_.front();
    script_.pop_front();
    EXPECT_EQ(text.toStdString(), expected.text.toStdString());
    EXPECT_EQ(title.toStdString(), expected.title.toStdString());
    return expected.answer;
}

int ScriptedDesk::answerForm(QDialog& form) {
    if (script_.empty() || script_.front().formClass != form.metaObject()->className()) {
        ADD_FAILURE() << "Nobody expected this form: " << form.metaObject()->className();
        return QDialog::Rejected;
    }
    const Expected expected = script_.front();
    script_.pop_front();
    form.show();
    QApplication::processEvents();
    expected.act(form);
    QApplication::processEvents();
    const int result = form.result();
    leaving = form.isVisible();
    form.close();
    leaving = false;
    return result;
}
