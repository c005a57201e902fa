// What a routine that fails more than once tells.

#include "session/errorbox.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include "platform/controls/noticebar.h"
#include "platform/database/waiting.h"
#include "platform/desktop/desktop.h"
#include "session/databasewait.h"

namespace {

const db::DatabaseError cut(db::LinkFailure, QStringLiteral("The connection broke off."), {},
                            QString::fromLatin1(db::LinkFailureState));

/// A user who reads each box for a while, during which the program runs its events.
class Reader {
  public:
    Reader() {
        Desktop().msgBox = [this](const QString& text, BoxStyle, const QString&) {
            told << text;
            runEvents();
            return Answer::Ok;
        };
    }
    ~Reader() { Desktop() = RealDesktop(); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    static void runEvents() {
        QEventLoop loop;
        QTimer::singleShot(60, &loop, &QEventLoop::quit);
        loop.exec();
    }

    QStringList told;
};

/// Gives up at once.
class Impatient : public db::Waiting {
  public:
    bool GoesOn() override { return false; }
};

}  // namespace

TEST(ErrorBox, ARoutineTellsOfItsLostConnectionOnceThoughTheBoxRunsEvents) {
    Reader reader;
    TellError(QStringLiteral("First. "), cut);
    Reader::runEvents();  // Another box, of the same routine.
    TellError(QStringLiteral("Second. "), cut);
    EXPECT_EQ(reader.told, QStringList{"First. The connection broke off."});
    QTest::qWait(60);
    TellError(QStringLiteral("Third. "), cut);
    EXPECT_EQ(reader.told.size(), 2) << "The routine had returned.";
    QTest::qWait(60);
}

TEST(ErrorBox, WhoGaveUpIsNotAskedAgainInTheSameRoutineThoughItsBoxRunsEvents) {
    ShowDatabaseWaits();
    {
        const auto wait = db::ShowWaiting()();
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        EXPECT_FALSE(wait->GoesOn());
    }
    int asked = 0;
    db::ShowWaiting() = [&asked] {
        ++asked;
        return std::make_unique<Impatient>();
    };
    db::ShownWait first;
    EXPECT_FALSE(first.goesOn(db::UnnoticedWaitMilliseconds));
    EXPECT_EQ(asked, 1) << "Nobody had given up in that one.";
    Reader::runEvents();
    db::ShownWait second;
    EXPECT_FALSE(second.goesOn(db::UnnoticedWaitMilliseconds));
    EXPECT_EQ(asked, 1);
    QTest::qWait(60);
    db::ShownWait third;
    EXPECT_FALSE(third.goesOn(db::UnnoticedWaitMilliseconds));
    EXPECT_EQ(asked, 2);
    db::ShowWaiting() = {};
    db::AskAboutWaitsAgain();
}

TEST(ErrorBox, WhatTheBarToldOfAStepGoesWhenTheStepGoesWell) {
    const NoticeBar bar;
    EXPECT_FALSE(TryAndTell(QStringLiteral("Not done. "), [] { throw db::DatabaseError(cut); }));
    EXPECT_EQ(bar.Texts(), QStringList{"Not done. The connection broke off."});
    EXPECT_TRUE(TryAndTell(QStringLiteral("Something else. "), [] {}));
    EXPECT_EQ(bar.Texts().size(), 1);
    EXPECT_TRUE(TryAndTell(QStringLiteral("Not done. "), [] {}));
    EXPECT_TRUE(bar.Texts().isEmpty());
}
