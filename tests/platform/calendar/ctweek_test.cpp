#include "platform/calendar/ctweek.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSignalSpy>
#include <QTest>

namespace {

CalendarItem itemOn(QDate day, int start, const char* text, int color = 0xFF0000) {
    CalendarItem item;
    item.ItemDay = day;
    item.ItemStart = start;
    item.ItemEnd = start + 50;
    item.ItemText = QString::fromUtf8(text);
    item.ItemColor = color;
    return item;
}

class MonthCalendar : public testing::Test {
  protected:
    MonthCalendar() {
        month.setFirstDayOfWeek(Qt::Sunday);
        month.setClock([] { return QDateTime(QDate(2026, 3, 11), QTime(12, 0)); });
        month.setDate(day);
        month.resize(1000, 700);
        month.show();
    }

    [[nodiscard]] const MonthCell& cell(QDate date) const {
        for (const MonthCell& candidate : month.Layout().cells)
            if (candidate.day == date)
                return candidate;
        ADD_FAILURE() << "That day is not shown.";
        return month.Layout().cells.front();
    }
    [[nodiscard]] QStringList texts(QDate date) const {
        QStringList shown;
        for (const MonthLine& line : cell(date).lines)
            shown << (line.index > 0 ? month.Item(line.index).ItemText : QStringLiteral("more"));
        return shown;
    }

    QDate day{2026, 3, 11};
    ctWeek month;
};

}  // namespace

TEST_F(MonthCalendar, ShowsAsManyWeeksAsTheMonthTouches) {
    EXPECT_EQ(month.Layout().weeks(), 5);
    month.setDate(QDate(2026, 2, 1));  // A February of four whole weeks.
    EXPECT_EQ(month.Layout().weeks(), 4);
    month.setDate(QDate(2026, 8, 1));
    EXPECT_EQ(month.Layout().weeks(), 6);
    EXPECT_FALSE(month.Layout().cells.front().inMonth);
}

TEST_F(MonthCalendar, FillsItsWholeSizeWithoutGaps) {
    for (const QSize size : {QSize(1000, 700), QSize(333, 217), QSize(7, 50), QSize(1999, 1201)}) {
        month.resize(size);
        qint64 area = 0;
        for (const MonthCell& each : month.Layout().cells)
            area += qint64{each.rect.width()} * each.rect.height();
        EXPECT_EQ(area, qint64{size.width()} * (size.height() - month.Layout().headings.height()));
    }
}

TEST_F(MonthCalendar, OrdersTheItemsOfADayByTheirTime) {
    month.AddItem(itemOn(day, 600, "later"));
    month.AddItem(itemOn(day, 540, "sooner"));
    month.AddItem(itemOn(day, 600, "later too"));
    EXPECT_EQ(texts(day), (QStringList{"sooner", "later", "later too"}));
}

TEST_F(MonthCalendar, CountsWhatADayHasNoRoomFor) {
    for (int i = 0; i < 40; ++i)
        month.AddItem(itemOn(day, 540 + i, "someone"));
    const MonthCell& full = cell(day);
    EXPECT_GT(full.hidden, 0);
    EXPECT_EQ(full.lines.back().index, 0);
    EXPECT_EQ(static_cast<int>(full.lines.size()) - 1 + full.hidden, 40);
    EXPECT_LE(full.lines.back().rect.bottom(), full.rect.bottom());
}

TEST_F(MonthCalendar, AnItemThatJustFitsIsShownAndNotCounted) {
    const auto room = [this] {
        for (int i = 0; i < 40; ++i)
            month.AddItem(itemOn(day, 540, "someone"));
        return static_cast<int>(cell(day).lines.size());
    }();
    month.ClearItems();
    for (int i = 0; i < room; ++i)
        month.AddItem(itemOn(day, 540, "someone"));
    EXPECT_EQ(cell(day).hidden, 0);
    EXPECT_EQ(static_cast<int>(cell(day).lines.size()), room);
}

TEST_F(MonthCalendar, LeavesOutItemsOfDaysThatItDoesNotShow) {
    month.AddItem(itemOn(QDate(2026, 5, 1), 540, "far"));
    month.AddItem(itemOn(QDate(), 540, "nowhere"));
    for (const MonthCell& each : month.Layout().cells)
        EXPECT_TRUE(each.lines.empty());
}

TEST_F(MonthCalendar, TellsTheTipOfTheItemUnderThePointer) {
    month.setTip([](int index) { return index < 1 ? QString() : QStringLiteral("item %1").arg(index); });
    month.AddItem(itemOn(day, 600, "later"));
    month.AddItem(itemOn(day, 540, "sooner"));
    EXPECT_EQ(month.TipAt(cell(day).lines[0].rect.center()), QStringLiteral("item 2"));
    EXPECT_EQ(month.TipAt(cell(day).lines[1].rect.center()), QStringLiteral("item 1"));
    EXPECT_EQ(month.TipAt(cell(day.addDays(1)).rect.center()), QString());
    EXPECT_EQ(month.TipAt(QPoint(-5, -5)), QString());
}

TEST_F(MonthCalendar, ADoubleClickOpensTheDay) {
    const QSignalSpy opened(&month, &ctWeek::DayActivated);
    QTest::mouseDClick(&month, Qt::LeftButton, {}, cell(QDate(2026, 3, 20)).rect.center());
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened[0][0].toDate(), QDate(2026, 3, 20));
}

TEST_F(MonthCalendar, AClickSelectsTheDayAndTellsItOnce) {
    const QSignalSpy selected(&month, &ctWeek::DaySelected);
    for (int i = 0; i < 2; ++i)
        QTest::mouseClick(&month, Qt::LeftButton, {}, cell(QDate(2026, 3, 20)).rect.center());
    EXPECT_EQ(selected.size(), 1);
    EXPECT_EQ(month.Date(), QDate(2026, 3, 20));
}

TEST_F(MonthCalendar, TheArrowsWalkThroughTheDaysAndEnterOpensOne) {
    QSignalSpy opened(&month, &ctWeek::DayActivated);
    QTest::keyClick(&month, Qt::Key_Right);
    QTest::keyClick(&month, Qt::Key_Down);
    EXPECT_EQ(month.Date(), QDate(2026, 3, 19));
    QTest::keyClick(&month, Qt::Key_Return);
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened[0][0].toDate(), QDate(2026, 3, 19));
    QTest::keyClick(&month, Qt::Key_End);
    EXPECT_EQ(month.Date(), QDate(2026, 3, 31));
    QTest::keyClick(&month, Qt::Key_Home);
    EXPECT_EQ(month.Date(), QDate(2026, 3, 1));
}

TEST_F(MonthCalendar, AnArrowOverTheEndAsksForTheNextDayAndAPageKeyForTheMonthBefore) {
    QSignalSpy days(&month, &ctWeek::DayRequested);
    QSignalSpy steps(&month, &ctWeek::MonthStepRequested);
    month.setDate(QDate(2026, 3, 31));
    QTest::keyClick(&month, Qt::Key_Right);
    QTest::keyClick(&month, Qt::Key_PageUp);
    ASSERT_EQ(days.size(), 1);
    EXPECT_EQ(days[0][0].toDate(), QDate(2026, 4, 1));
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0][0].toInt(), -1);
    EXPECT_EQ(month.Date(), QDate(2026, 3, 31));
}

TEST_F(MonthCalendar, SmallTurnsOfATouchpadAddUpToOneMonth) {
    const QSignalSpy steps(&month, &ctWeek::MonthStepRequested);
    for (int i = 0; i < 4; ++i) {
        QWheelEvent turn(QPointF(50, 200), QPointF(50, 200), {}, QPoint(0, -30), Qt::NoButton, Qt::NoModifier,
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(&month, &turn);
    }
    ASSERT_EQ(steps.size(), 1);
    EXPECT_EQ(steps[0][0].toInt(), 1);
}

TEST_F(MonthCalendar, SaysTheSelectedDayWithItsItems) {
    month.AddItem(itemOn(day, 540, "O'Brien, Anna"));
    CalendarItem hidden = itemOn(day, 600, "Secret");
    hidden.ItemTextColor = TextColor::SameAsBackground;
    month.AddItem(hidden);
    EXPECT_TRUE(month.SelectionText().contains(QStringLiteral("9:00 AM O'Brien, Anna")))
        << month.SelectionText().toStdString();
    EXPECT_FALSE(month.SelectionText().contains(QStringLiteral("Secret")));
}

TEST_F(MonthCalendar, PaintsEverySizeAndAnInvalidDateChangesNothing) {
    for (int i = 0; i < 200; ++i)
        month.AddItem(itemOn(day.addDays(i % 20), 480 + i, "Someone with a long name, indeed", i * 12345));
    month.setDate(QDate());
    EXPECT_EQ(month.Date(), day);
    for (const QSize size : {QSize(1, 1), QSize(60, 40), QSize(300, 200), QSize(1600, 1000)}) {
        month.resize(size);
        QImage picture(size, QImage::Format_RGB32);
        month.render(&picture);
    }
}
