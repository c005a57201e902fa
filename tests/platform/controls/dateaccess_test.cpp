#include "platform/controls/dateaccess.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>

#include "platform/controls/ctdate.h"
#include "tests/support/scripteddesk.h"

namespace {

const QDate March11(2026, 3, 11);

/// A month calendar as assistive programs read it.
class DateReader : public testing::Test {
  protected:
    DateReader() {
        calendar.SetFirstDayOfWeek(Qt::Sunday);
        calendar.SetDate(March11);
        calendar.resize(calendar.sizeHint());
        calendar.show();
        QApplication::setActiveWindow(&calendar);
        calendar.setFocus();
    }

    [[nodiscard]] QAccessibleInterface& access() { return *QAccessible::queryAccessibleInterface(&calendar); }
    [[nodiscard]] QAccessibleInterface& day(QDate date) { return *access().child(*calendar.Grid().positionOf(date)); }

    ScriptedDesk desk;
    ctDate calendar;
};

}  // namespace

TEST_F(DateReader, ItIsATableOfSixWeeksWithTheMonthAsItsDescription) {
    EXPECT_EQ(access().role(), QAccessible::Table);
    EXPECT_EQ(access().childCount(), 42);
    EXPECT_EQ(access().text(QAccessible::Name), QStringLiteral("Calendar"));
    EXPECT_EQ(access().text(QAccessible::Description), QStringLiteral("March 2026"));
    EXPECT_EQ(access().text(QAccessible::Value), QStringLiteral("Wednesday, March 11, 2026"));
    EXPECT_EQ(access().child(-1), nullptr);
    EXPECT_EQ(access().child(42), nullptr);
}

TEST_F(DateReader, EachDayKnowsItsPlaceItsParentAndItsNumber) {
    for (int position = 0; position < 42; ++position) {
        QAccessibleInterface* cell = access().child(position);
        EXPECT_EQ(cell->role(), QAccessible::Cell);
        EXPECT_EQ(cell->parent(), &access());
        EXPECT_EQ(access().indexOfChild(cell), position);
        const QPoint middle = cell->rect().center();
        EXPECT_EQ(access().childAt(middle.x(), middle.y()), cell) << position;
        EXPECT_TRUE(cell->isValid());
        EXPECT_EQ(cell->childCount(), 0);
        EXPECT_EQ(cell->child(0), nullptr);
    }
    EXPECT_EQ(access().indexOfChild(&access()), -1);
    const QPoint heading = calendar.mapToGlobal(calendar.Layout().heading().center());
    EXPECT_EQ(access().childAt(heading.x(), heading.y()), nullptr);
}

TEST_F(DateReader, ADayIsReadInTheDateOrderAndFollowsThePage) {
    QAccessibleInterface* first = access().child(0);
    EXPECT_EQ(first->text(QAccessible::Name), QStringLiteral("Sunday, March 1, 2026"));
    EXPECT_EQ(first->text(QAccessible::Value), QString());
    calendar.SetDateOrder(1);
    EXPECT_EQ(first->text(QAccessible::Name), QStringLiteral("Sunday, 1 March 2026"));
    calendar.ShowMonth(QDate(2026, 4, 1));
    EXPECT_EQ(first->text(QAccessible::Name), QStringLiteral("Sunday, 29 March 2026"));
}

TEST_F(DateReader, TheSelectedDayAloneIsSelectedAndHasTheFocus) {
    EXPECT_TRUE(day(March11).state().selected);
    EXPECT_TRUE(day(March11).state().focused);
    EXPECT_FALSE(day(March11.addDays(1)).state().selected);
    EXPECT_FALSE(day(March11.addDays(1)).state().focused);
    EXPECT_TRUE(day(March11.addDays(1)).state().selectable);
    EXPECT_EQ(access().focusChild(), &day(March11));
    calendar.clearFocus();
    EXPECT_FALSE(day(March11).state().focused);
    EXPECT_EQ(access().focusChild(), nullptr);
}

TEST_F(DateReader, WhereThePageShowsAnotherSeasonNoDayHasTheFocus) {
    calendar.ShowMonth(QDate(2027, 1, 1));
    EXPECT_EQ(access().focusChild(), nullptr);
}

TEST_F(DateReader, PressingADayChoosesItTwiceAlike) {
    const QSignalSpy clicks(&calendar, &ctDate::Click);
    for (const QDate date : {QDate(2026, 3, 12), QDate(2026, 3, 20)}) {
        QAccessibleActionInterface* action = day(date).actionInterface();
        ASSERT_NE(action, nullptr);
        EXPECT_EQ(action->actionNames(), QStringList{QAccessibleActionInterface::pressAction()});
        EXPECT_TRUE(action->keyBindingsForAction(QAccessibleActionInterface::pressAction()).isEmpty());
        action->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_NE(calendar.Date(), date);
        action->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ(calendar.Date(), date);
    }
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(DateReader, NothingButAPressCanBeDoneToADay) {
    EXPECT_EQ(day(March11).valueInterface(), nullptr);
    day(March11).setText(QAccessible::Name, QStringLiteral("x"));
    EXPECT_EQ(day(March11).text(QAccessible::Name), QStringLiteral("Wednesday, March 11, 2026"));
    EXPECT_EQ(day(March11).object(), nullptr);
    EXPECT_EQ(day(March11).window(), calendar.window()->windowHandle());
}
