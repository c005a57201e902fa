#include "platform/controls/ctdedit.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "platform/controls/datepopup.h"
#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"

namespace {

const QDate December3(2026, 12, 3);

/// A field, and another one to go to.
class FieldTest : public testing::Test {
  protected:
    explicit FieldTest(ctDEdit::Kind kind) : field(kind) {
        Theme::Install(ThemeMode::Light);
        desk.setNow(QDateTime(QDate(2026, 11, 21), QTime(10, 0)));
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&field);
        column->addWidget(&next);
        window.show();
        QApplication::setActiveWindow(&window);
        next.setFocus();
    }

    void enter() { field.setFocus(Qt::TabFocusReason); }
    void type(const char* text) { QTest::keyClicks(&field, QString::fromLatin1(text)); }
    void leave() { next.setFocus(Qt::TabFocusReason); }
    void typeAndLeave(const char* text) {
        enter();
        type(text);
        leave();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&field, key, modifiers); }
    void wheel(int notches) {
        const QPointF middle = field.rect().center();
        QWheelEvent event(middle, field.mapToGlobal(middle), {}, QPoint(0, 120 * notches), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&field, &event);
    }
    QString description() { return QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Description); }
    /// A pixel of the left border, half way down.
    QColor border() { return field.grab().toImage().pixelColor(0, field.height() / 2); }

    ScriptedDesk desk;
    QWidget window;
    ctDEdit field;
    QLineEdit next;
};

class TimeFieldTest : public FieldTest {
  protected:
    TimeFieldTest() : FieldTest(ctDEdit::Kind::Time) {}
};

class DateFieldTest : public FieldTest {
  protected:
    DateFieldTest() : FieldTest(ctDEdit::Kind::Date) {}

    DatePopup* popup() { return field.findChild<DatePopup*>(); }
    void clickDay(QDate date) {
        ctDate& calendar = popup()->Calendar();
        QTest::mouseClick(&calendar, Qt::LeftButton, {},
                          calendar.Layout().dayAt(*calendar.Grid().positionOf(date)).center());
    }
};

}  // namespace

TEST_F(TimeFieldTest, WhatIsTypedIsShownInTheFieldsFormOnLeaving) {
    typeAndLeave("930");
    EXPECT_EQ(field.Text(), QStringLiteral("9:30 AM"));
    EXPECT_EQ(field.Time(), 570);
    EXPECT_EQ(field.Value(), 570);
    EXPECT_TRUE(field.IsValid());
}

TEST_F(TimeFieldTest, TheValueIsThereWhileTyping) {
    enter();
    type("9.30p");
    EXPECT_EQ(field.Text(), QStringLiteral("9.30p"));
    EXPECT_EQ(field.Time(), 1290);
}

TEST_F(TimeFieldTest, EnterWritesTheFormToo) {
    enter();
    type("noon");
    key(Qt::Key_Return);
    EXPECT_EQ(field.Text(), QStringLiteral("12:00 PM"));
}

TEST_F(TimeFieldTest, AnEmptyAndARefusedEntryAreBelowOneAndSoIsMidnight) {
    EXPECT_EQ(field.Value(), -1);
    EXPECT_FALSE(field.IsValid());
    typeAndLeave("soon");
    EXPECT_EQ(field.Value(), -1);
    field.setTime(0);
    EXPECT_EQ(field.Value(), 0);
    EXPECT_TRUE(field.IsValid());
}

TEST_F(TimeFieldTest, ARefusedEntryStaysAsTypedAndIsFlagged) {
    QSignalSpy errors(&field, &ctDEdit::EditError);
    const QColor calm = border();
    typeAndLeave("9:75");
    EXPECT_EQ(field.Text(), QStringLiteral("9:75"));
    ASSERT_EQ(errors.count(), 1);
    EXPECT_EQ(errors.first().first().toString(), field.ErrorTip());
    EXPECT_TRUE(field.ErrorTip().contains(QStringLiteral("9:30 AM")));
    EXPECT_EQ(description(), field.ErrorTip());
    EXPECT_NE(border(), calm);
    EXPECT_GT(border().red(), border().green() + 60);
}

TEST_F(TimeFieldTest, TypingOnTakesTheFlagAway) {
    field.setAccessibleDescription(QStringLiteral("When it begins"));
    typeAndLeave("9:75");
    EXPECT_NE(description(), QStringLiteral("When it begins"));
    typeAndLeave("9:15");
    EXPECT_TRUE(field.ErrorTip().isEmpty());
    EXPECT_EQ(field.Time(), 555);
    EXPECT_EQ(description(), QStringLiteral("When it begins"));
}

TEST_F(TimeFieldTest, AnEmptyFieldIsLeftWithoutComplaint) {
    QSignalSpy errors(&field, &ctDEdit::EditError);
    enter();
    leave();
    EXPECT_EQ(errors.count(), 0);
}

TEST_F(TimeFieldTest, AnotherWindowInFrontLeavesTheEntryAlone) {
    QSignalSpy errors(&field, &ctDEdit::EditError);
    enter();
    type("9:7");
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&field, &away);
    EXPECT_EQ(field.Text(), QStringLiteral("9:7"));
    EXPECT_EQ(errors.count(), 0);
}

TEST_F(TimeFieldTest, UpAndDownStepAMinuteWithinTheRange) {
    field.setTime(1438);
    enter();
    key(Qt::Key_Up);
    EXPECT_EQ(field.Time(), 1439);
    key(Qt::Key_Up);
    EXPECT_EQ(field.Time(), 1439);
    field.setRange(0, 1440);
    key(Qt::Key_Up);
    EXPECT_EQ(field.Time(), 1440);
    field.setTime(1);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(field.Time(), 0);
}

TEST_F(TimeFieldTest, ATimeBeyondTheRangeIsKeptAndStepsBackIntoIt) {
    field.setTime(1440);
    enter();
    key(Qt::Key_Up);
    EXPECT_EQ(field.Time(), 1440);
    key(Qt::Key_Down);
    EXPECT_EQ(field.Time(), 1439);
}

TEST_F(TimeFieldTest, StepsAreAsLongAsTold) {
    field.setStep(15);
    field.setRange(0, 1440);
    field.setTime(1430);
    enter();
    key(Qt::Key_Up);
    EXPECT_EQ(field.Time(), 1440);
    key(Qt::Key_PageDown);
    EXPECT_EQ(field.Time(), 1380);
}

TEST_F(TimeFieldTest, AnEmptyOrRefusedFieldDoesNotStep) {
    enter();
    key(Qt::Key_Up);
    EXPECT_TRUE(field.IsEmpty());
    type("soon");
    key(Qt::Key_Down);
    key(Qt::Key_PageUp);
    EXPECT_EQ(field.Text(), QStringLiteral("soon"));
}

TEST_F(TimeFieldTest, TheSpinButtonsStep) {
    field.setTime(570);
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(field.width() - 6, 6));
    EXPECT_EQ(field.Time(), 571);
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(field.width() - 6, field.height() - 6));
    EXPECT_EQ(field.Time(), 570);
}

TEST_F(TimeFieldTest, TheWheelStepsOnlyTheFocusedField) {
    field.setTime(570);
    wheel(1);
    EXPECT_EQ(field.Time(), 570);
    enter();
    wheel(1);
    EXPECT_EQ(field.Time(), 571);
}

TEST_F(TimeFieldTest, EnteringSelectsTheWholeText) {
    field.setTime(570);
    enter();
    EXPECT_EQ(field.findChild<QLineEdit*>()->selectedText(), QStringLiteral("9:30 AM"));
    leave();
    QTest::mouseClick(field.findChild<QLineEdit*>(), Qt::LeftButton);
    EXPECT_EQ(field.findChild<QLineEdit*>()->selectedText(), QStringLiteral("9:30 AM"));
    QTest::mouseClick(field.findChild<QLineEdit*>(), Qt::LeftButton);
    EXPECT_FALSE(field.findChild<QLineEdit*>()->hasSelectedText());
}

TEST_F(TimeFieldTest, TheSettingOfTheSessionShowsTheTimeAnew) {
    field.setTime(870);
    field.setTwentyFourHour(true);
    EXPECT_EQ(field.Text(), QStringLiteral("14:30"));
    field.setTwentyFourHour(false);
    EXPECT_EQ(field.Text(), QStringLiteral("2:30 PM"));
}

TEST_F(TimeFieldTest, AnEndFieldTakesMidnightAsTheEndOfTheDay) {
    field.setIsEnd(true);
    typeAndLeave("mid");
    EXPECT_EQ(field.Time(), 1440);
    EXPECT_EQ(field.Text(), QStringLiteral("12:00 Mid"));
}

TEST_F(TimeFieldTest, EveryChangeOfTheTextIsTold) {
    QSignalSpy changes(&field, &ctDEdit::Change);
    field.setTime(570);
    EXPECT_EQ(changes.count(), 1);
    field.setTime(570);
    enter();
    leave();
    EXPECT_EQ(changes.count(), 1);
    enter();
    key(Qt::Key_Up);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(TimeFieldTest, AReadOnlyFieldNeitherStepsNorComplains) {
    QSignalSpy errors(&field, &ctDEdit::EditError);
    field.setText(QStringLiteral("by arrangement"));
    EXPECT_FALSE(field.ErrorTip().isEmpty());
    field.setTime(570);
    field.setReadOnly(true);
    enter();
    key(Qt::Key_Up);
    key(Qt::Key_PageUp);
    leave();
    EXPECT_EQ(field.Time(), 570);
    EXPECT_EQ(errors.count(), 0);
}

TEST_F(TimeFieldTest, AScreenReaderIsToldARoleAndTheText) {
    field.setAccessibleName(QStringLiteral("Start time"));
    field.setTime(570);
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&field);
    EXPECT_EQ(access->role(), QAccessible::SpinBox);
    EXPECT_EQ(access->text(QAccessible::Name), QStringLiteral("Start time"));
    EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("9:30 AM"));
}

TEST_F(DateFieldTest, WhatIsTypedIsShownInTheOrderOfTheSession) {
    typeAndLeave("12/3");
    EXPECT_EQ(field.Text(), QStringLiteral("12/03/2026"));
    EXPECT_EQ(field.Date(), December3);
    field.setDateOrder(1);
    EXPECT_EQ(field.Text(), QStringLiteral("03/12/2026"));
    field.setDateOrder(2);
    EXPECT_EQ(field.Text(), QStringLiteral("2026/12/03"));
    EXPECT_EQ(field.Date(), December3);
}

TEST_F(DateFieldTest, TheValueTellsEmptyRefusedAndAnyDateOfTheDatabaseApart) {
    EXPECT_EQ(field.Value(), 0);
    typeAndLeave("13/45");
    EXPECT_EQ(field.Value(), 1);
    EXPECT_FALSE(field.Date().isValid());
    field.setDate(QDate(1753, 1, 1));
    EXPECT_GT(field.Value(), 100);
    const int first = field.Value();
    field.setDate(QDate(1753, 1, 2));
    EXPECT_EQ(field.Value(), first + 1);
}

TEST_F(DateFieldTest, ARefusedDateStaysAsTypedAndIsFlaggedWithAnExample) {
    QSignalSpy errors(&field, &ctDEdit::EditError);
    field.setDateOrder(1);
    typeAndLeave("12/25/2026");
    EXPECT_EQ(field.Text(), QStringLiteral("12/25/2026"));
    ASSERT_EQ(errors.count(), 1);
    EXPECT_TRUE(field.ErrorTip().contains(QStringLiteral("28/12/2026")));
}

TEST_F(DateFieldTest, ARefusedDateIsReadAgainWhenTheOrderChanges) {
    field.setText(QStringLiteral("12/25/2026"));
    field.setDateOrder(1);
    field.setText(QStringLiteral("12/25/2026"));
    EXPECT_EQ(field.Value(), 1);
    field.setDateOrder(0);
    EXPECT_EQ(field.Date(), QDate(2026, 12, 25));
    EXPECT_TRUE(field.ErrorTip().isEmpty());
}

TEST_F(DateFieldTest, UpAndDownStepADayAndPageKeysAMonth) {
    field.setDate(QDate(2026, 12, 31));
    enter();
    key(Qt::Key_Up);
    EXPECT_EQ(field.Date(), QDate(2027, 1, 1));
    key(Qt::Key_Down);
    key(Qt::Key_PageUp);
    EXPECT_EQ(field.Date(), QDate(2027, 1, 31));
    key(Qt::Key_PageUp);
    EXPECT_EQ(field.Date(), QDate(2027, 2, 28));
}

TEST_F(DateFieldTest, AnEmptyDateDoesNotStep) {
    enter();
    key(Qt::Key_Up);
    EXPECT_TRUE(field.IsEmpty());
}

TEST_F(DateFieldTest, ADayClickedInTheCalendarIsTheDate) {
    field.setDate(December3);
    enter();
    key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(popup(), nullptr);
    EXPECT_TRUE(popup()->isVisible());
    EXPECT_EQ(popup()->Calendar().Date(), December3);
    clickDay(QDate(2026, 12, 24));
    EXPECT_FALSE(popup()->isVisible());
    EXPECT_EQ(field.Date(), QDate(2026, 12, 24));
}

TEST_F(DateFieldTest, TheButtonInTheFieldDropsTheCalendarAndTodayChooses) {
    field.setDate(December3);
    QTest::mouseClick(field.findChild<QToolButton*>(), Qt::LeftButton);
    ASSERT_NE(popup(), nullptr);
    EXPECT_TRUE(popup()->isVisible());
    QTest::mouseClick(popup()->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(popup()->isVisible());
    EXPECT_EQ(field.Date(), QDate(2026, 11, 21));
}

TEST_F(DateFieldTest, TheCalendarIsWalkedByKeysAndEnterChooses) {
    field.setDate(December3);
    enter();
    key(Qt::Key_F4);
    QTest::keyClick(&popup()->Calendar(), Qt::Key_Right);
    QTest::keyClick(&popup()->Calendar(), Qt::Key_Down);
    EXPECT_TRUE(popup()->isVisible());
    EXPECT_EQ(field.Date(), December3);
    QTest::keyClick(&popup()->Calendar(), Qt::Key_Return);
    EXPECT_FALSE(popup()->isVisible());
    EXPECT_EQ(field.Date(), QDate(2026, 12, 11));
}

TEST_F(DateFieldTest, EscapeClosesTheCalendarAndKeepsTheDate) {
    field.setDate(December3);
    field.dropCalendar();
    QTest::keyClick(&popup()->Calendar(), Qt::Key_Right);
    QTest::keyClick(popup(), Qt::Key_Escape);
    EXPECT_FALSE(popup()->isVisible());
    EXPECT_EQ(field.Date(), December3);
}

TEST_F(DateFieldTest, TurningTheMonthInTheCalendarChoosesNothing) {
    field.setDate(December3);
    field.dropCalendar();
    ctDate& calendar = popup()->Calendar();
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.Layout().next().center());
    EXPECT_TRUE(popup()->isVisible());
    EXPECT_EQ(calendar.ShownMonth(), QDate(2027, 1, 1));
    EXPECT_EQ(field.Date(), December3);
}

TEST_F(DateFieldTest, AnEmptyOrRefusedFieldDropsItsCalendarAtToday) {
    typeAndLeave("someday");
    field.dropCalendar();
    EXPECT_EQ(popup()->Calendar().Date(), QDate(2026, 11, 21));
    clickDay(QDate(2026, 11, 24));
    EXPECT_EQ(field.Date(), QDate(2026, 11, 24));
    EXPECT_TRUE(field.ErrorTip().isEmpty());
}

TEST_F(DateFieldTest, ATimeFieldAndAReadOnlyFieldHaveNoCalendar) {
    field.setReadOnly(true);
    field.dropCalendar();
    EXPECT_EQ(popup(), nullptr);
    field.setReadOnly(false);
    field.setKind(ctDEdit::Kind::Time);
    field.dropCalendar();
    EXPECT_EQ(popup(), nullptr);
}

TEST_F(DateFieldTest, TheWholeTextHasRoomInEachOrderAndSetting) {
    for (const auto kind : {ctDEdit::Kind::Date, ctDEdit::Kind::Time}) {
        field.setKind(kind);
        field.setText(kind == ctDEdit::Kind::Date ? QStringLiteral("12/28/2026") : QStringLiteral("12:58p"));
        field.resize(field.sizeHint());
        const auto* edit = field.findChild<QLineEdit*>();
        const int signs = kind == ctDEdit::Kind::Date ? 2 : 1;
        EXPECT_GE(edit->width() - signs * 26 - 4, edit->fontMetrics().horizontalAdvance(field.Text()));
    }
}
