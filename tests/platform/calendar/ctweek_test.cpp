#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include "tests/platform/calendar/monthunderhand.h"

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

TEST_F(MonthCalendar, AScreenReaderReadsTheSelectedDayAlsoAfterAnotherMonthWasRead) {
    const auto read = [&] { return QAccessible::queryAccessibleInterface(&month)->text(QAccessible::Description); };
    EXPECT_EQ(read(), "Wednesday, March 11, 2026");
    QTest::keyClick(&month, Qt::Key_Right);
    EXPECT_EQ(read(), "Thursday, March 12, 2026");
    month.ClearItems();
    month.setDate(QDate(2026, 4, 10));
    month.AddItem(itemOn(QDate(2026, 4, 10), 540, "Anna"));
    EXPECT_EQ(read(), "Friday, April 10, 2026, 9:00 AM Anna");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&month)->text(QAccessible::Name), "Month");
}

TEST_F(MonthCalendar, SaysTwentyItemsAndCountsAllOthers) {
    month.resize(1000, 5000);
    for (int i = 0; i < 30; ++i)
        month.AddItem(itemOn(day, 540 + i, "someone"));
    ASSERT_EQ(cell(day).hidden, 0);
    EXPECT_EQ(month.SelectionText().count(QStringLiteral("someone")), 20);
    EXPECT_TRUE(month.SelectionText().endsWith(QStringLiteral(", 10 more"))) << month.SelectionText().toStdString();
    month.resize(1000, 700);
    const int shown = static_cast<int>(cell(day).lines.size()) - 1;
    EXPECT_EQ(month.SelectionText().count(QStringLiteral("someone")), shown);
    EXPECT_TRUE(month.SelectionText().endsWith(QStringLiteral(", %1 more").arg(30 - shown)));
}

TEST_F(MonthCalendar, SaysTheTimesInTheClockOfTheDesk) {
    month.AddItem(itemOn(day, 780, "Anna"));
    CalendarItem holiday = itemOn(day, 0, "Founders' Day");
    holiday.ItemBanner = true;
    month.AddItem(holiday);
    EXPECT_EQ(month.SelectionText(), "Wednesday, March 11, 2026, Founders' Day, 1:00 PM Anna");
    month.setTwentyFourHour(true);
    EXPECT_EQ(month.SelectionText(), "Wednesday, March 11, 2026, Founders' Day, 13:00 Anna");
}

TEST_F(MonthCalendar, AChangeOfAllItemsReachesEach) {
    month.AddItem(itemOn(day, 540, "Anna"));
    month.AddItem(itemOn(day.addDays(1), 540, "Ben"));
    month.ChangeItems([](CalendarItem& item) { item.ItemTextColor = TextColor::SameAsBackground; });
    EXPECT_EQ(month.SelectionText(), "Wednesday, March 11, 2026, 9:00 AM ");
    EXPECT_EQ(month.Item(2).ItemTextColor, TextColor::SameAsBackground);
    EXPECT_EQ(month.ItemCount(), 2);
}

TEST_F(MonthCalendar, AWrongIndexReadsAsAnEmptyItem) {
    month.AddItem(itemOn(day, 540, "Anna"));
    for (const int index : {-1, 0, 2, 99})
        EXPECT_EQ(month.Item(index), CalendarItem()) << index;
    month.ClearItems();
    EXPECT_EQ(month.Item(1), CalendarItem());
    EXPECT_EQ(month.ItemCount(), 0);
}

TEST_F(MonthCalendar, KeysSelectAskOrOpen) {
    const struct {
        const char* what;
        QDate from;
        Qt::Key key;
        QDate selected;
        QDate asked;
        int step;
        bool opened;
    } keys[] = {
        {"left", day, Qt::Key_Left, QDate(2026, 3, 10), {}, 0, false},
        {"right", day, Qt::Key_Right, QDate(2026, 3, 12), {}, 0, false},
        {"up", day, Qt::Key_Up, QDate(2026, 3, 4), {}, 0, false},
        {"down", day, Qt::Key_Down, QDate(2026, 3, 18), {}, 0, false},
        {"home", day, Qt::Key_Home, QDate(2026, 3, 1), {}, 0, false},
        {"end", day, Qt::Key_End, QDate(2026, 3, 31), {}, 0, false},
        {"end of a leap February", QDate(2028, 2, 5), Qt::Key_End, QDate(2028, 2, 29), {}, 0, false},
        {"left of the first", QDate(2026, 3, 1), Qt::Key_Left, QDate(2026, 3, 1), QDate(2026, 2, 28), 0, false},
        {"up from the first week", QDate(2026, 3, 3), Qt::Key_Up, QDate(2026, 3, 3), QDate(2026, 2, 24), 0, false},
        {"down from the last", QDate(2026, 3, 30), Qt::Key_Down, QDate(2026, 3, 30), QDate(2026, 4, 6), 0, false},
        {"right of the year", QDate(2026, 12, 31), Qt::Key_Right, QDate(2026, 12, 31), QDate(2027, 1, 1), 0, false},
        {"page up", day, Qt::Key_PageUp, day, {}, -1, false},
        {"page down", day, Qt::Key_PageDown, day, {}, 1, false},
        {"return", day, Qt::Key_Return, day, {}, 0, true},
        {"enter", day, Qt::Key_Enter, day, {}, 0, true},
        {"a letter", day, Qt::Key_A, day, {}, 0, false},
    };
    for (const auto& row : keys) {
        for (int time = 0; time < 2; ++time) {
            month.setDate(row.from);
            const QSignalSpy selected(&month, &ctWeek::DaySelected);
            const QSignalSpy asked(&month, &ctWeek::DayRequested);
            const QSignalSpy steps(&month, &ctWeek::MonthStepRequested);
            const QSignalSpy opened(&month, &ctWeek::DayActivated);
            QTest::keyClick(&month, row.key);
            EXPECT_EQ(month.Date(), row.selected) << row.what;
            EXPECT_EQ(selected.size(), row.selected == row.from ? 0 : 1) << row.what;
            ASSERT_EQ(asked.size(), row.asked.isValid() ? 1 : 0) << row.what;
            EXPECT_TRUE(asked.isEmpty() || asked[0][0].toDate() == row.asked) << row.what;
            ASSERT_EQ(steps.size(), row.step == 0 ? 0 : 1) << row.what;
            EXPECT_TRUE(steps.isEmpty() || steps[0][0].toInt() == row.step) << row.what;
            ASSERT_EQ(opened.size(), row.opened ? 1 : 0) << row.what;
            EXPECT_TRUE(opened.isEmpty() || opened[0][0].toDate() == row.from) << row.what;
        }
    }
}

TEST_F(MonthCalendar, KeysWithControlOrShiftBelongToTheWindow) {
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier}) {
        QTest::keyClick(&month, Qt::Key_Right, modifier);
        EXPECT_EQ(month.Date(), day);
    }
    QTest::keyClick(&month, Qt::Key_Right, Qt::KeypadModifier);
    EXPECT_EQ(month.Date(), day.addDays(1)) << "the arrows of the number pad are arrows";
}

TEST_F(MonthCalendar, ADayOfAnotherMonthThatIsShownCanBeSelectedAndOpened) {
    const QSignalSpy selected(&month, &ctWeek::DaySelected);
    const QSignalSpy opened(&month, &ctWeek::DayActivated);
    const QDate april(2026, 4, 2);
    const QPoint place = cell(april).rect.center();
    QTest::mouseClick(&month, Qt::LeftButton, {}, place);
    EXPECT_EQ(month.Date(), april);
    EXPECT_EQ(month.Month(), 3) << "the month stays";
    QTest::mouseDClick(&month, Qt::RightButton, {}, place);
    EXPECT_EQ(opened.size(), 0);
    QTest::mouseDClick(&month, Qt::LeftButton, {}, place);
    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened[0][0].toDate(), april);
    EXPECT_EQ(selected.size(), 1);
}

TEST_F(MonthCalendar, AClickOnTheNamesOfTheDaysMeansNothing) {
    const QSignalSpy opened(&month, &ctWeek::DayActivated);
    for (int time = 0; time < 2; ++time) {
        QTest::mouseClick(&month, Qt::LeftButton, {}, month.Layout().headings.center());
        QTest::mouseDClick(&month, Qt::LeftButton, {}, month.Layout().headings.center());
    }
    EXPECT_EQ(month.Date(), day);
    EXPECT_EQ(opened.size(), 0);
}

TEST_F(MonthCalendar, TheWheelTurnsMonthByMonthInBothDirections) {
    const auto turn = [&](int by) {
        const QSignalSpy steps(&month, &ctWeek::MonthStepRequested);
        QWheelEvent event(QPointF(50, 200), QPointF(50, 200), {}, QPoint(0, by), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        event.ignore();
        QApplication::sendEvent(&month, &event);
        EXPECT_TRUE(event.isAccepted()) << by;
        return steps.isEmpty() ? 0 : steps[0][0].toInt();
    };
    EXPECT_EQ(turn(120), -1);
    EXPECT_EQ(turn(-120), 1);
    EXPECT_EQ(turn(-60), 0);
    EXPECT_EQ(turn(-60), 1) << "half turns add up";
    EXPECT_EQ(turn(90), 0);
    EXPECT_EQ(turn(-90), 0) << "and take each other back";
    EXPECT_EQ(turn(30), 0);
    EXPECT_EQ(turn(100), -1);
    EXPECT_EQ(turn(110), -1) << "what is left over counts for the next";
}

TEST_F(MonthCalendar, TheTipIsShownUnderThePointer) {
    month.setTip([](int index) { return index < 1 ? QString() : QStringLiteral("Tip %1").arg(index); });
    month.AddItem(itemOn(day, 540, "Anna"));
    const auto askAt = [&](QPoint at) {
        QHelpEvent help(QEvent::ToolTip, at, month.mapToGlobal(at));
        QApplication::sendEvent(&month, &help);
        return QToolTip::text();
    };
    EXPECT_TRUE(askAt(cell(day).lines[0].rect.center()).contains(QStringLiteral("Tip 1")));
    QToolTip::hideText();
    ctWeek silent;
    EXPECT_EQ(silent.TipAt({5, 5}), QString()) << "who was given no tips tells none";
}

TEST_F(MonthCalendar, ItsSizesFollowFromTheFont) {
    const QSize hint = month.sizeHint();
    const QSize least = month.minimumSizeHint();
    EXPECT_GT(hint.width(), least.width());
    EXPECT_GT(hint.height(), least.height());
    EXPECT_EQ(least, QSize(month.fontMetrics().averageCharWidth() * 42, month.fontMetrics().height() * 14));
    EXPECT_EQ(hint, QSize(month.fontMetrics().averageCharWidth() * 130, month.fontMetrics().height() * 40));
    month.setFont(QFont(QStringLiteral("DejaVu Sans"), 18));
    EXPECT_GT(month.sizeHint().width(), hint.width());
    EXPECT_GT(month.sizeHint().height(), hint.height());
    EXPECT_GT(month.minimumSizeHint().width(), least.width());
    EXPECT_GT(month.minimumSizeHint().height(), least.height());
}
