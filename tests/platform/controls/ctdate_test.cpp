#include "platform/controls/ctdate.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"

namespace {

const QDate March11(2026, 3, 11);  // A Wednesday, and today in these tests.

class DateTest : public testing::Test {
  protected:
    DateTest() {
        calendar.resize(calendar.sizeHint());
        calendar.SetFirstDayOfWeek(Qt::Sunday);
        calendar.SetDate(March11);
        calendar.show();
    }

    QPoint placeOf(QDate date) const { return calendar.Layout().dayAt(*calendar.Grid().positionOf(date)).center(); }

    void wheel(int notches, Qt::KeyboardModifiers modifiers = {}) {
        const QPointF middle = calendar.rect().center();
        QWheelEvent event(middle, calendar.mapToGlobal(middle), {}, QPoint(0, 120 * notches), Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&calendar, &event);
    }

    struct Look {
        Look() { Theme::Install(ThemeMode::Light); }
    };

    ScriptedDesk desk;
    Look look;  // Before the first widget, as in the program.
    ctDate calendar;
};

struct KeyStep {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    QDate expected;
};

class DateKeys : public DateTest, public testing::WithParamInterface<KeyStep> {};

}  // namespace

TEST(MonthGridTest, TheFirstWeekHoldsTheFirstOfTheMonth) {
    const MonthGrid sunday{March11, Qt::Sunday};
    EXPECT_EQ(sunday.firstDate(), QDate(2026, 3, 1));
    const MonthGrid monday{March11, Qt::Monday};
    EXPECT_EQ(monday.firstDate(), QDate(2026, 2, 23));
}

TEST(MonthGridTest, APickerBeginsItsWeeksWhereTheWeekViewDoesWhateverTheLocale) {
    const QLocale before;
    for (const QLocale::Country country : {QLocale::UnitedStates, QLocale::UnitedKingdom}) {
        QLocale::setDefault(QLocale(QLocale::English, country));
        const ctDate picker;
        EXPECT_EQ(picker.Grid().dayOfWeekAt(0), Qt::Monday);
    }
    QLocale::setDefault(before);
}

TEST(MonthGridTest, EveryDateAndItsPositionAreEachOthersInverse) {
    for (const Qt::DayOfWeek first : {Qt::Monday, Qt::Saturday, Qt::Sunday})
        for (int month = 1; month <= 12; ++month) {
            const MonthGrid grid{QDate(2024, month, 15), first};
            EXPECT_EQ(grid.firstDate().dayOfWeek(), first);
            for (int position = 0; position < MonthGrid::Weeks * MonthGrid::Days; ++position)
                EXPECT_EQ(grid.positionOf(grid.dateAt(0, position)), position);
            EXPECT_TRUE(grid.positionOf(QDate(2024, month, 1).addMonths(1).addDays(-1)));
        }
}

TEST(MonthGridTest, ADateOfAnotherSeasonIsNotOnThePage) {
    const MonthGrid grid{March11, Qt::Sunday};
    EXPECT_FALSE(grid.positionOf(QDate(2026, 7, 1)));
    EXPECT_FALSE(grid.positionOf(QDate()));
}

TEST(DateLayoutTest, TheMiddleOfEachPartHitsThatPart) {
    const DateLayout layout{{200, 160}, 20};
    using Hit = DateLayout::Hit;
    EXPECT_EQ(layout.hit(layout.previous().center()), Hit{Hit::Part::Previous});
    EXPECT_EQ(layout.hit(layout.next().center()), Hit{Hit::Part::Next});
    EXPECT_EQ(layout.hit(layout.heading().center()), Hit{Hit::Part::Heading});
    for (int position = 0; position < MonthGrid::Weeks * MonthGrid::Days; ++position)
        EXPECT_EQ(layout.hit(layout.dayAt(position).center()), (Hit{Hit::Part::Day, position}));
    EXPECT_EQ(layout.hit(layout.dayName(3).center()), Hit{});
}

TEST(DateLayoutTest, AnOddWidthLeavesNoGapBetweenDays) {
    const DateLayout layout{{201, 160}, 20};
    for (int day = 1; day < MonthGrid::Days; ++day)
        EXPECT_EQ(layout.dayAt(day - 1).right() + 1, layout.dayAt(day).left());
    EXPECT_EQ(layout.dayAt(MonthGrid::Days - 1).right(), 200);
}

TEST_F(DateTest, AClickOnADaySelectsItAndTellsOnce) {
    QSignalSpy clicks(&calendar, &ctDate::Click);
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, placeOf(QDate(2026, 3, 19)));
    EXPECT_EQ(calendar.Date(), QDate(2026, 3, 19));
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].toDate(), QDate(2026, 3, 19));
}

TEST_F(DateTest, TheCalendarEndsWhereTheDatesOfADatabaseEnd) {
    calendar.SetDate(QDate(10000, 1, 1));
    EXPECT_EQ(calendar.Date(), QDate(9999, 12, 31));
    QTest::keyClick(&calendar, Qt::Key_Right);
    EXPECT_EQ(calendar.Date(), QDate(9999, 12, 31));
    wheel(-1);
    EXPECT_EQ(calendar.ShownMonth(), QDate(9999, 12, 1));
    calendar.SetDate(QDate(1752, 12, 31));
    EXPECT_EQ(calendar.Date(), QDate(1753, 1, 1));
}

TEST_F(DateTest, AClickOnADayOfTheNextMonthTurnsThePage) {
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, placeOf(QDate(2026, 4, 2)));
    EXPECT_EQ(calendar.Date(), QDate(2026, 4, 2));
    EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 4, 1));
}

TEST_F(DateTest, TheArrowsTurnThePageAndLeaveTheSelection) {
    QSignalSpy clicks(&calendar, &ctDate::Click);
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.Layout().next().center());
    EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 4, 1));
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.Layout().previous().center());
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.Layout().previous().center());
    EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 2, 1));
    EXPECT_EQ(calendar.Date(), March11);
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(DateTest, ATypedDateIsGoneTo) {
    desk.setNow(QDateTime(March11, QTime(9, 0)));
    QSignalSpy clicks(&calendar, &ctDate::Click);
    for (const auto& [typed, date] : {std::pair("4/2/2026", QDate(2026, 4, 2)), std::pair("today", March11),
                                      std::pair("+2w", QDate(2026, 3, 25))}) {
        QTest::keyClicks(&calendar, QString::fromLatin1(typed).left(1));
        auto* field = calendar.findChild<QLineEdit*>(QStringLiteral("txtgoto"));
        ASSERT_NE(field, nullptr) << typed;
        QTest::keyClicks(field, QString::fromLatin1(typed).mid(1));
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_EQ(calendar.Date(), date) << typed;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(calendar.findChild<QLineEdit*>(), nullptr) << typed;
    }
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(DateTest, WhatIsTypedAndIsNoDateIsFlaggedAndEscapeGivesItUp) {
    QTest::keyClicks(&calendar, QStringLiteral("9"));
    auto* field = calendar.findChild<QLineEdit*>(QStringLiteral("txtgoto"));
    ASSERT_NE(field, nullptr);
    QTest::keyClicks(field, QStringLiteral("9/99"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(calendar.Date(), March11);
    EXPECT_FALSE(field->accessibleDescription().isEmpty());
    QTest::keyClick(field, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(calendar.findChild<QLineEdit*>(), nullptr);
}

TEST_F(DateTest, KeysOfTheWindowBeginNoDate) {
    QTest::keyClick(&calendar, Qt::Key_T, Qt::ControlModifier);
    QTest::keyClick(&calendar, Qt::Key_Tab);
    EXPECT_EQ(calendar.findChild<QLineEdit*>(), nullptr);
}

TEST_F(DateTest, TheHeadingLeadsBackToTheSelectedDate) {
    calendar.ShowMonth(QDate(2030, 1, 1));
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, calendar.Layout().heading().center());
    EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 3, 1));
}

TEST_F(DateTest, TheWheelTurnsMonthsAndWithControlYears) {
    wheel(-1);
    EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 4, 1));
    wheel(2);
    EXPECT_EQ(calendar.ShownMonth(), QDate(2026, 2, 1));
    wheel(-1, Qt::ControlModifier);
    EXPECT_EQ(calendar.ShownMonth(), QDate(2027, 2, 1));
    EXPECT_EQ(calendar.Date(), March11);
}

TEST_P(DateKeys, StepTheDate) {
    QSignalSpy clicks(&calendar, &ctDate::Click);
    QTest::keyClick(&calendar, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(calendar.Date(), GetParam().expected);
    EXPECT_EQ(calendar.ShownMonth().month(), GetParam().expected.month());
    EXPECT_EQ(clicks.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    All, DateKeys,
    testing::Values(KeyStep{"Left", Qt::Key_Left, {}, QDate(2026, 3, 10)},
                    KeyStep{"Right", Qt::Key_Right, {}, QDate(2026, 3, 12)},
                    KeyStep{"Up", Qt::Key_Up, {}, QDate(2026, 3, 4)},
                    KeyStep{"Down", Qt::Key_Down, {}, QDate(2026, 3, 18)},
                    KeyStep{"PageUp", Qt::Key_PageUp, {}, QDate(2026, 2, 11)},
                    KeyStep{"PageDown", Qt::Key_PageDown, {}, QDate(2026, 4, 11)},
                    KeyStep{"CtrlPageUp", Qt::Key_PageUp, Qt::ControlModifier, QDate(2025, 3, 11)},
                    KeyStep{"CtrlPageDown", Qt::Key_PageDown, Qt::ControlModifier, QDate(2027, 3, 11)},
                    KeyStep{"Home", Qt::Key_Home, {}, QDate(2026, 3, 1)},
                    KeyStep{"End", Qt::Key_End, {}, QDate(2026, 3, 31)}, KeyStep{"Enter", Qt::Key_Return, {}, March11}),
    [](const auto& step) { return step.param.name; });

TEST_F(DateTest, AltWithAnArrowIsLeftToTheWindow) {
    QTest::keyClick(&calendar, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(calendar.Date(), March11);
}

TEST_F(DateTest, AMonthStepFromTheThirtyFirstStaysInTheShorterMonth) {
    calendar.SetDate(QDate(2026, 3, 31));
    QTest::keyClick(&calendar, Qt::Key_PageUp);
    EXPECT_EQ(calendar.Date(), QDate(2026, 2, 28));
}

TEST_F(DateTest, SettingADateByProgramTellsNobodyAndAnInvalidOneIsIgnored) {
    QSignalSpy clicks(&calendar, &ctDate::Click);
    calendar.SetDate(QDate(2026, 12, 24));
    calendar.SetDate(QDate());
    EXPECT_EQ(calendar.Date(), QDate(2026, 12, 24));
    EXPECT_EQ(clicks.count(), 0);
}

TEST_F(DateTest, TheDateOrderRulesHeadingAndTips) {
    EXPECT_EQ(calendar.HeadingText(), QStringLiteral("March 2026"));
    EXPECT_EQ(calendar.LongText(March11), QStringLiteral("Wednesday, March 11, 2026"));
    calendar.SetDateOrder(1);
    EXPECT_EQ(calendar.LongText(March11), QStringLiteral("Wednesday, 11 March 2026"));
    calendar.SetDateOrder(2);
    EXPECT_EQ(calendar.HeadingText(), QStringLiteral("2026 March"));
}

TEST_F(DateTest, TodayWearsARingAndTheSelectedDayAFill) {
    calendar.SetDate(QDate(2026, 3, 18));
    const QImage image = calendar.grab().toImage();
    const QColor accent = ColoursOf(ThemeMode::Light).accent;
    const auto accentPixels = [&](QDate date) {
        const QRect cell = calendar.Layout().dayAt(*calendar.Grid().positionOf(date));
        int count = 0;
        for (int y = cell.top(); y <= cell.bottom(); ++y)
            for (int x = cell.left(); x <= cell.right(); ++x)
                count += image.pixelColor(x, y) == accent ? 1 : 0;
        return count;
    };
    EXPECT_GT(accentPixels(QDate(2026, 3, 18)), 200);
    EXPECT_GT(accentPixels(March11), 10);
    EXPECT_EQ(accentPixels(QDate(2026, 3, 25)), 0);
}

TEST_F(DateTest, AScreenReaderReadsAndPressesADay) {
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&calendar);
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->childCount(), 42);
    EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("Wednesday, March 11, 2026"));
    QAccessibleInterface* day = access->child(*calendar.Grid().positionOf(QDate(2026, 3, 12)));
    EXPECT_EQ(day->text(QAccessible::Name), QStringLiteral("Thursday, March 12, 2026"));
    EXPECT_FALSE(day->state().selected);
    day->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(calendar.Date(), QDate(2026, 3, 12));
    EXPECT_TRUE(day->state().selected);
}
