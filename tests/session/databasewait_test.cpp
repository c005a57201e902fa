#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/database/waiting.h"
#include "session/databasewait.h"

namespace {

/// A form in the middle of its work while the database waits.
class DatabaseWait : public testing::Test {
  protected:
    void SetUp() override {
        ShowDatabaseWaits();
        form_.show();
        field_.setFocus();
        QApplication::setActiveWindow(&form_);
        wait_ = db::ShowWaiting()();
        ASSERT_NE(wait_, nullptr);
        ASSERT_TRUE(wait_->GoesOn());
    }
    void TearDown() override {
        wait_.reset();
        db::ShowWaiting() = {};
        db::AskAboutWaitsAgain();
    }
    static QDialog& box() { return *qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
    static QPushButton& giveUp() { return *box().findChild<QPushButton*>(QStringLiteral("cmdGiveUp")); }

    QWidget form_;
    QLineEdit field_{&form_};
    std::unique_ptr<db::Waiting> wait_;
};

}  // namespace

TEST_F(DatabaseWait, IsShownAndGivenUpByItsButton) {
    EXPECT_EQ(box().windowTitle(), "Waiting for the database");
    EXPECT_TRUE(wait_->GoesOn());
    QTest::mouseClick(&giveUp(), Qt::LeftButton);
    EXPECT_FALSE(wait_->GoesOn());
}

TEST_F(DatabaseWait, IsGivenUpByEscapeAndItsLetter) {
    QTest::keyClick(&box(), Qt::Key_Escape);
    EXPECT_FALSE(wait_->GoesOn());
}

TEST_F(DatabaseWait, WhatWasTypedAheadDoesNotPressIt) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_A})
        QTest::keyClick(&box(), key);
    EXPECT_TRUE(wait_->GoesOn());
}

TEST_F(DatabaseWait, NothingElseActsOnKeysMouseAndTimers) {
    bool pressed = false;
    QPushButton other(&form_);
    other.show();
    QObject::connect(&other, &QPushButton::clicked, [&] { pressed = true; });
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(0);
    QTest::keyClicks(&field_, "abc");
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_TRUE(wait_->GoesOn());
    EXPECT_TRUE(field_.text().isEmpty());
    EXPECT_FALSE(pressed);
    EXPECT_EQ(ticks, 0);
    wait_.reset();
    QApplication::processEvents();
    EXPECT_GT(ticks, 0) << "A timer goes on afterwards.";
    QTest::keyClicks(&field_, "abc");
    EXPECT_EQ(field_.text(), "abc");
}

TEST_F(DatabaseWait, AWindowThatOpenedAboveItIsUsedAndClosesFirst) {
    QDialog above(&form_);
    QLineEdit answer(&above);
    above.setModal(true);
    above.show();
    above.activateWindow();
    answer.setFocus();
    QTest::keyClicks(&answer, "abc");
    EXPECT_EQ(answer.text(), "abc");
    QTest::keyClicks(&field_, "abc");
    EXPECT_TRUE(field_.text().isEmpty());
    QTest::keyClick(above.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(above.isVisible());
    EXPECT_TRUE(wait_->GoesOn());
    QTest::keyClick(&box(), Qt::Key_Escape);
    EXPECT_FALSE(wait_->GoesOn());
}

TEST_F(DatabaseWait, TheDialogBelowItActsNotBeforeTheWaitIsOver) {
    wait_.reset();
    QDialog below;
    QLineEdit typed(&below);
    below.setModal(true);
    below.show();
    wait_ = db::ShowWaiting()();
    QTest::keyClick(&box(), Qt::Key_Escape);
    QTest::keyClick(&below, Qt::Key_Escape);
    QTest::keyClicks(&typed, "abc");
    EXPECT_TRUE(below.isVisible());
    EXPECT_TRUE(typed.text().isEmpty());
    EXPECT_FALSE(wait_->GoesOn());
}

TEST_F(DatabaseWait, GoesWithTheWait) {
    wait_.reset();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}
