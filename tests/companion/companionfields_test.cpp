#include "companion/companionfields.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "data/minutetime.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"

namespace {

class CompanionFields : public testing::Test {
  protected:
    CompanionFields() {
        ResetSession();
        desk.setNow(QDateTime({2026, 3, 11}, {10, 0}, Qt::UTC));
    }

    ctDEdit& date() {
        field_.reset(CompanionDateField("txtdate", "Date", nullptr));
        return *field_;
    }
    ctDEdit& time(int minutes) {
        field_ = std::make_unique<StartTimeField>("txtstarttime", "Start time", nullptr);
        field_->setTime(minutes);
        return *field_;
    }

    ScriptedDesk desk;

  private:
    std::unique_ptr<ctDEdit> field_;
};

TEST_F(CompanionFields, UpAndDownMoveTheDateByADayAcrossTheTurnOfTheYear) {
    ctDEdit& field = date();
    field.setDate({2026, 12, 31});
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Date(), QDate(2027, 1, 1));
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.Date(), QDate(2026, 12, 30));
}

TEST_F(CompanionFields, TheDateStandsInTheOrderOfTheSystem) {
    Session().DateOrder = 1;
    ctDEdit& field = date();
    field.setDate({2026, 12, 3});
    EXPECT_EQ(field.Text(), "03/12/2026");
}

TEST_F(CompanionFields, UpAndDownMoveTheTimeByARowOfTheCalendar) {
    Session().TimeUnit = 30;
    ctDEdit& field = time(540);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Time(), 570);
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.Time(), 510);
}

TEST_F(CompanionFields, TheTimeStopsBeforeMidnightAtBothEndsOfTheDay) {
    ctDEdit& early = time(20);
    QTest::keyClick(&early, Qt::Key_Down);
    EXPECT_EQ(early.Time(), 5);
    QTest::keyClick(&early, Qt::Key_Down);
    EXPECT_EQ(early.Time(), 5);
    ctDEdit& late = time(1410);
    QTest::keyClick(&late, Qt::Key_Up);
    EXPECT_EQ(late.Time(), 1425);
    QTest::keyClick(&late, Qt::Key_Up);
    EXPECT_EQ(late.Time(), 1425);
}

TEST_F(CompanionFields, PageUpAndPageDownMoveTheTimeByAnHourAndStopBeforeMidnightToo) {
    ctDEdit& field = time(1320);
    QTest::keyClick(&field, Qt::Key_PageUp);
    EXPECT_EQ(field.Time(), 1380);
    QTest::keyClick(&field, Qt::Key_PageUp);
    EXPECT_EQ(field.Time(), 1380);
    field.setTime(45);
    QTest::keyClick(&field, Qt::Key_PageDown);
    EXPECT_EQ(field.Time(), 45);
}

TEST_F(CompanionFields, AnEmptyTimeDoesNotStep) {
    ctDEdit& field = time(-1);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Text(), "");
}

TEST_F(CompanionFields, ATypedMidnightStands) {
    ctDEdit& field = time(540);
    field.setText("mid");
    EXPECT_EQ(field.Time(), 0);
    field.setText("24:00");
    EXPECT_EQ(field.Time(), MinutesPerDay);
}

TEST_F(CompanionFields, TheTimeStandsInTheUsersForm) {
    Session().MilitaryTime = true;
    EXPECT_EQ(time(870).Text(), "14:30");
}

TEST_F(CompanionFields, EnteringAFieldSelectsItsWholeText) {
    QWidget form;
    ctDEdit* day = CompanionDateField("txtdate", "Date", &form);
    day->setDate({2026, 3, 11});
    auto* start = new StartTimeField("txtstarttime", "Start time", &form);
    start->setTime(540);
    form.show();
    form.activateWindow();
    QApplication::processEvents();
    for (ctDEdit* field : {static_cast<ctDEdit*>(start), day}) {
        field->setFocus(Qt::TabFocusReason);
        EXPECT_EQ(field->findChild<QLineEdit*>()->selectedText(), field->Text());
    }
}

}  // namespace
