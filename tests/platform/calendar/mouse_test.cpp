#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

ItemPlace PlaceIn(const QSignalSpy& spy, int argument) {
    return spy.at(0).at(argument).value<ItemPlace>();
}

void SendContextMenu(ctMDay& calendar, QPoint at) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, calendar.mapToGlobal(at));
    QCoreApplication::sendEvent(&calendar, &event);
    CalendarUnderHand::settle();
}

void Wheel(ctMDay& calendar, QPoint at, int turn, Qt::KeyboardModifiers keys = {}) {
    QWheelEvent event(at, calendar.mapToGlobal(at), {}, {0, turn}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&calendar, &event);
}

}  // namespace

TEST(CalendarMouse, AClickOnFreeTimeSelectsItsRow) {
    CalendarUnderHand hand;
    QSignalSpy ranges(&hand.calendar, &ctMDay::RangeSelected);
    hand.click(hand.freeAt(547));
    EXPECT_EQ(hand.calendar.SelectedRange(), 0);
    EXPECT_EQ(hand.calendar.SelColumn(), 1);
    EXPECT_EQ(hand.calendar.SelStart(), 540);
    EXPECT_EQ(hand.calendar.SelEnd(), 555);
    EXPECT_EQ(ranges.count(), 1);
}

TEST(CalendarMouse, DraggingOverFreeTimeSelectsARangeInEitherDirection) {
    CalendarUnderHand hand;
    hand.drag(hand.freeAt(540), hand.freeAt(600));
    EXPECT_EQ(hand.calendar.SelStart(), 540);
    EXPECT_EQ(hand.calendar.SelEnd(), 615);
    hand.drag(hand.freeAt(660), hand.freeAt(630));
    EXPECT_EQ(hand.calendar.SelStart(), 630);
    EXPECT_EQ(hand.calendar.SelEnd(), 675);
}

TEST(CalendarMouse, AShiftClickExtendsTheRange) {
    CalendarUnderHand hand;
    hand.click(hand.freeAt(540));
    hand.click(hand.freeAt(600), Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelStart(), 540);
    EXPECT_EQ(hand.calendar.SelEnd(), 615);
    hand.click(hand.freeAt(510), Qt::ShiftModifier);
    EXPECT_EQ(hand.calendar.SelStart(), 510);
    EXPECT_EQ(hand.calendar.SelEnd(), 555);
}

TEST(CalendarMouse, AClickOnAnItemSelectsIt) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy selected(&hand.calendar, &ctMDay::ItemSelected);
    hand.click(hand.middleOf(item));
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected[0][0].toInt(), item);
}

TEST(CalendarMouse, DraggingAnItemMovesItByRowsAndReportsWhenTheGestureIsOver) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 590);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    QObject::connect(&hand.calendar, &ctMDay::ItemChanged, &hand.calendar, [&] {
        hand.moveTo(hand.freeAt(800));
        EXPECT_NE(hand.calendar.cursor().shape(), Qt::ClosedHandCursor);
    });
    const QPoint from = hand.middleOf(item);
    const QPoint to = from + QPoint(0, 4 * hand.rowHeight());
    hand.press(from);
    hand.moveTo(from + QPoint(0, 30));
    hand.moveTo(to);
    EXPECT_EQ(changed.count(), 0);
    hand.release(to);

    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 600);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemEnd, 650);
    EXPECT_EQ(PlaceIn(changed, 1), (ItemPlace{1, hand.day, 540, 590}));
}

TEST(CalendarMouse, ASmallShakeIsNoDrag) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    QSignalSpy work(&hand.calendar, &ctMDay::BeforeItemWork);
    const QPoint at = hand.middleOf(item);
    hand.drag(at, at + QPoint(1, 2));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(work.count(), 0);
}

TEST(CalendarMouse, DraggingTheLowerEdgeChangesTheEnd) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    const QRect card = hand.calendar.ItemRect(item);
    const QPoint edge(card.center().x(), card.bottom());
    hand.drag(edge, edge + QPoint(0, 2 * hand.rowHeight()));
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemEnd, 630);
}

TEST(CalendarMouse, DraggingTheUpperEdgeChangesTheStart) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    const QRect card = hand.calendar.ItemRect(item);
    const QPoint edge(card.center().x(), card.top());
    hand.drag(edge, edge - QPoint(0, 2 * hand.rowHeight()));
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 510);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemEnd, 600);
}

TEST(CalendarMouse, DraggingToAnotherDayChangesTheDate) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(5);
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(item);
    hand.drag(from, {hand.calendar.CellRect(3, 540).center().x(), from.y()});
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemDay, hand.day.addDays(2));
    EXPECT_EQ(hand.calendar.ColumnOfItem(item), 3);
    EXPECT_EQ(PlaceIn(changed, 1).day, hand.day);
}

TEST(CalendarMouse, DraggingToAnotherProviderChangesTheColumn) {
    CalendarUnderHand hand;
    hand.calendar.AddColumn("Adams");
    hand.calendar.AddColumn("Baker");
    const int item = hand.add(540, 600);
    hand.calendar.Item(item).ItemColumn = 1;
    const QPoint from = hand.middleOf(item);
    hand.drag(from, {hand.calendar.CellRect(2, 540).center().x(), from.y()});
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemColumn, 2);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
}

TEST(CalendarMouse, AVetoLeavesTheItemWhereItWas) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    ItemPlace asked;
    QObject::connect(&hand.calendar, &ctMDay::BeforeDrop, &hand.calendar,
                     [&](int, const ItemPlace& place, bool* cancel) {
                         asked = place;
                         *cancel = true;
                     });
    const QPoint from = hand.middleOf(item);
    hand.drag(from, from + QPoint(0, 4 * hand.rowHeight()));
    EXPECT_EQ(asked.start, 600);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
}

TEST(CalendarMouse, EscapeCancelsADrag) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(item);
    hand.press(from);
    hand.moveTo(from + QPoint(0, 80));
    hand.key(Qt::Key_Escape);
    hand.moveTo(from + QPoint(0, 120));
    hand.release(from + QPoint(0, 120));
    hand.settle();
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
    EXPECT_EQ(hand.calendar.SelectedItem(), item);
}

TEST(CalendarMouse, AnotherButtonCancelsADrag) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    const QPoint from = hand.middleOf(item);
    hand.press(from);
    hand.moveTo(from + QPoint(0, 80));
    hand.press(from + QPoint(0, 80), Qt::RightButton);
    hand.release(from + QPoint(0, 80));
    hand.settle();
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
}

TEST(CalendarMouse, AnItemThatTheViewLocksRefusesTheDrag) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QObject::connect(&hand.calendar, &ctMDay::BeforeItemWork, &hand.calendar,
                     [&](int index) { hand.calendar.Item(index).ItemMoveLocked = true; });
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    QSignalSpy refused(&hand.calendar, &ctMDay::MoveRefused);
    const QPoint from = hand.middleOf(item);
    hand.press(from);
    hand.moveTo(from + QPoint(0, 80));
    EXPECT_EQ(hand.calendar.cursor().shape(), Qt::ForbiddenCursor);
    hand.release(from + QPoint(0, 80));
    hand.settle();
    EXPECT_EQ(changed.count(), 0);
    ASSERT_EQ(refused.count(), 1);
    EXPECT_EQ(refused[0][0].toInt(), item);
}

TEST(CalendarMouse, AReadOnlyCalendarMovesNothing) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    hand.calendar.setReadOnly(true);
    const QPoint from = hand.middleOf(item);
    hand.drag(from, from + QPoint(0, 80));
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
    EXPECT_EQ(hand.calendar.SelectedItem(), item);
}

TEST(CalendarMouse, AReloadInTheMiddleOfADragEndsIt) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(item);
    hand.press(from);
    hand.moveTo(from + QPoint(0, 80));
    hand.calendar.ClearItems();
    hand.add(540, 600);
    hand.moveTo(from + QPoint(0, 100));
    hand.release(from + QPoint(0, 100));
    hand.settle();
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(1).ItemStart, 540);
}

TEST(CalendarMouse, AReloadFromTheVetoLeavesTheNewItemsAlone) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    QObject::connect(&hand.calendar, &ctMDay::BeforeDrop, &hand.calendar, [&] {
        hand.calendar.ClearItems();
        hand.add(700, 760);
    });
    const QPoint from = hand.middleOf(item);
    hand.drag(from, from + QPoint(0, 80));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(1).ItemStart, 700);
}

TEST(CalendarMouse, ACalendarClosedFromItsOwnReportIsNoHarm) {
    auto* calendar = new ctMDay;
    calendar->setDate(QDate(2026, 3, 11));
    calendar->resize(500, 700);
    calendar->show();
    calendar->AddItem(540, 600, QDate(2026, 3, 11), "Anna", "1");
    calendar->setSelectedItem(1);
    const QPointer<ctMDay> alive(calendar);
    QObject::connect(calendar, &ctMDay::ItemActivated, [calendar] {
        calendar->hide();
        calendar->deleteLater();
    });
    QTest::keyClick(calendar, Qt::Key_Return);
    CalendarUnderHand::settle();
    EXPECT_EQ(alive, nullptr);
}

TEST(CalendarMouse, AReleaseOutsideTheCalendarIsNoDrop) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(item);
    const QPoint edge(from.x(), hand.calendar.ItemRect(item).bottom());
    const QSize size = hand.calendar.size();
    for (const QPoint grabbed : {from, edge})
        for (const QPoint outside : {QPoint(from.x(), -20), QPoint(from.x(), size.height() + 5),
                                     QPoint(-3, from.y() + 90), QPoint(size.width(), from.y() + 90)}) {
            hand.press(grabbed);
            hand.moveTo(grabbed + QPoint(0, 60));
            EXPECT_NE(hand.calendar.cursor().shape(), Qt::ForbiddenCursor);
            hand.moveTo(outside);
            EXPECT_EQ(hand.calendar.cursor().shape(), Qt::ForbiddenCursor);
            hand.release(outside);
        }
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemEnd, 600);
}

TEST(CalendarMouse, AReleaseOnAWindowThatLiesOverTheCalendarIsNoDrop) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(item);
    const QPoint to = from + QPoint(0, 120);
    {
        QWidget over(nullptr, Qt::Window | Qt::FramelessWindowHint);
        over.setGeometry(QRect(hand.calendar.mapToGlobal(to) - QPoint(20, 20), QSize(40, 40)));
        over.show();
        hand.settle();
        hand.drag(from, to);
    }
    EXPECT_EQ(changed.count(), 0);

    hand.drag(from, to);
    EXPECT_EQ(changed.count(), 1) << "Without it the calendar is under the pointer.";
}

TEST(CalendarMouse, ARangeDrawnBeyondTheEdgeStaysDrawn) {
    CalendarUnderHand hand;
    hand.press(hand.freeAt(600));
    hand.moveTo(hand.freeAt(660));
    hand.moveTo({hand.calendar.width() + 40, hand.freeAt(660).y()});
    hand.release({hand.calendar.width() + 40, hand.freeAt(660).y()});
    EXPECT_EQ(hand.calendar.SelStart(), 600);
    EXPECT_EQ(hand.calendar.SelEnd(), 675);
}

TEST(CalendarMouse, AGestureEndsWhenADialogTakesTheFocus) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint from = hand.middleOf(item);
    hand.press(from);
    hand.moveTo(from + QPoint(0, 80));
    hand.calendar.clearFocus();
    hand.release(from + QPoint(0, 80));
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemStart, 540);
}

TEST(CalendarMouse, WhatIsTypedAheadFindsWhatTheEventBeforeItHasDone) {
    CalendarUnderHand hand;
    hand.add(540, 600, QStringLiteral("Anna"));
    hand.add(660, 700, QStringLiteral("Bert"));
    hand.calendar.setSelectedItem(1);
    QStringList events;
    const auto note = [&](const char* what) {
        return [&events, what, &hand](int index) {
            events << QStringLiteral("%1 %2, selected %3")
                          .arg(QLatin1String(what))
                          .arg(index)
                          .arg(hand.calendar.SelectedItem());
        };
    };
    QObject::connect(&hand.calendar, &ctMDay::DeleteRequested, &hand.calendar, note("delete"));
    QObject::connect(&hand.calendar, &ctMDay::ItemActivated, &hand.calendar, note("open"));

    // All in one go, as they come to a program that was busy.
    QTest::keyClick(&hand.calendar, Qt::Key_Delete);
    QTest::keyClick(&hand.calendar, Qt::Key_Down);
    QTest::keyClick(&hand.calendar, Qt::Key_Return);
    QTest::mouseDClick(&hand.calendar, Qt::LeftButton, {}, hand.middleOf(1));
    QTest::keyClick(&hand.calendar, Qt::Key_Down);

    EXPECT_EQ(events, (QStringList{"delete 1, selected 1", "open 2, selected 2", "open 1, selected 1"}));
}

TEST(CalendarMouse, ADoubleClickOpensAnItemOrFreeTime) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    QSignalSpy free(&hand.calendar, &ctMDay::RangeActivated);
    hand.doubleClick(hand.middleOf(item));
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened[0][0].toInt(), item);
    hand.doubleClick(hand.freeAt(660));
    EXPECT_EQ(free.count(), 1);
    EXPECT_EQ(hand.calendar.SelStart(), 660);
    EXPECT_EQ(hand.calendar.SelEnd(), 675);
}

TEST(CalendarMouse, ADoubleClickInsideADrawnRangeMeansTheRange) {
    CalendarUnderHand hand;
    hand.drag(hand.freeAt(660), hand.freeAt(705));
    QSignalSpy free(&hand.calendar, &ctMDay::RangeActivated);
    hand.doubleClick(hand.freeAt(690));
    EXPECT_EQ(free.count(), 1);
    EXPECT_EQ(hand.calendar.SelStart(), 660);
    EXPECT_EQ(hand.calendar.SelEnd(), 720);
}

TEST(CalendarMouse, ARightClickSelectsWhatIsUnderItAndAsksForThePopup) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    QSignalSpy popup(&hand.calendar, &ctMDay::PopupRequested);
    const QPoint at = hand.middleOf(item);
    SendContextMenu(hand.calendar, at);
    ASSERT_EQ(popup.count(), 1);
    EXPECT_EQ(popup[0][0].toInt(), item);
    EXPECT_EQ(popup[0][1].toPoint(), hand.calendar.mapToGlobal(at));
    EXPECT_EQ(hand.calendar.SelectedItem(), item);

    SendContextMenu(hand.calendar, hand.freeAt(660));
    EXPECT_EQ(popup[1][0].toInt(), 0);
    EXPECT_EQ(hand.calendar.SelStart(), 660);
}

TEST(CalendarMouse, ARightClickInsideARangeKeepsIt) {
    CalendarUnderHand hand;
    hand.drag(hand.freeAt(660), hand.freeAt(705));
    SendContextMenu(hand.calendar, hand.freeAt(690));
    EXPECT_EQ(hand.calendar.SelStart(), 660);
    EXPECT_EQ(hand.calendar.SelEnd(), 720);
}

TEST(CalendarMouse, ClickingTheMarkerAgainGoesToTheNextLaterItem) {
    CalendarUnderHand hand;
    const int first = hand.add(1200, 1230);
    const int second = hand.add(1260, 1290);
    const QPoint marker = hand.middleOf(first);
    hand.click(marker);
    EXPECT_EQ(hand.calendar.SelectedItem(), first);
    hand.click(marker);
    EXPECT_EQ(hand.calendar.SelectedItem(), second);
    hand.click(marker);
    EXPECT_EQ(hand.calendar.SelectedItem(), first);
}

TEST(CalendarMouse, ABannerIsSelectedLikeAnItemAndNeverDragged) {
    CalendarUnderHand hand;
    const int holiday = hand.calendar.AddItem(0, 1439, hand.day, "Founders' Day", "0");
    hand.calendar.Item(holiday).ItemBanner = true;
    QSignalSpy changed(&hand.calendar, &ctMDay::ItemChanged);
    const QPoint at = hand.middleOf(holiday);
    hand.drag(at, at + QPoint(0, 200));
    EXPECT_EQ(hand.calendar.SelectedItem(), holiday);
    EXPECT_EQ(changed.count(), 0);
}

TEST(CalendarMouse, AHeadingTellsItsColumn) {
    CalendarUnderHand hand;
    hand.calendar.AddColumn("Adams");
    hand.calendar.AddColumn("Baker");
    QSignalSpy headings(&hand.calendar, &ctMDay::HeadingClicked);
    hand.click(hand.calendar.HeadingRect(2).center());
    ASSERT_EQ(headings.count(), 1);
    EXPECT_EQ(headings[0][0].toInt(), 2);
}

TEST(CalendarMouse, TheWheelScrollsAndWithControlZooms) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    hand.settle();
    const QPoint middle(300, 150);
    Wheel(hand.calendar, middle, -120);
    EXPECT_GT(hand.calendar.TopTime(), 480);
    const int before = hand.calendar.CellRect(1, 600).height();
    Wheel(hand.calendar, middle, 120, Qt::ControlModifier);
    Wheel(hand.calendar, middle, 120, Qt::ControlModifier);
    EXPECT_GT(hand.calendar.CellRect(1, 600).height(), before);
}

TEST(CalendarMouse, WithControlATurnZoomsByWhatItIs) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    hand.settle();
    const auto hourHeight = [&] { return hand.calendar.CellRect(1, 540).top() - hand.calendar.CellRect(1, 480).top(); };
    const auto zoomedBy = [&](std::initializer_list<int> turns) {
        hand.key(Qt::Key_0, Qt::ControlModifier);
        hand.calendar.setTopTime(480);
        const int before = hourHeight();
        for (const int turn : turns)
            Wheel(hand.calendar, {300, 150}, turn, Qt::ControlModifier);
        hand.calendar.setTopTime(480);
        return static_cast<double>(hourHeight()) / before;
    };
    hand.calendar.setTimeInterval(60);
    EXPECT_NEAR(zoomedBy({120}), 1.15, 0.03);
    EXPECT_NEAR(zoomedBy({-120}), 1 / 1.15, 0.03);
    EXPECT_NEAR(zoomedBy({120, 120, 120}), 1.52, 0.03);
    EXPECT_NEAR(zoomedBy({30, 30, 30, 30}), 1.15, 0.03) << "the small turns of a touchpad add up";
    EXPECT_NEAR(zoomedBy({0}), 1, 0.001) << "the end of a gesture turns nothing";
}

TEST(CalendarMouse, ADragBeyondTheEdgeScrolls) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    hand.settle();
    hand.press(hand.freeAt(540));
    hand.moveTo({300, 340});
    EXPECT_TRUE(QTest::qWaitFor([&] { return hand.calendar.TopTime() > 480; }, 5000));
    hand.release({300, 340});
    EXPECT_EQ(hand.calendar.SelStart(), 540);
    EXPECT_GT(hand.calendar.SelEnd(), 660);
}

TEST(CalendarMouse, TheToolTipTellsTimeTextPlaceNoteAndStatus) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 590, "Anna <O'Brien>");
    hand.calendar.Item(item).ItemLocation = "Main Street";
    hand.calendar.Item(item).ItemTip = "Bring the form";
    hand.calendar.Item(item).ItemStatusText = "Pending";
    hand.calendar.Item(item).ItemStatusIcon = 7;
    const QString tip = hand.calendar.ToolTipOf(item);
    for (const QString& part :
         {QStringLiteral("Anna &lt;O'Brien&gt;"), QStringLiteral("9:00 – 9:50 AM"), QStringLiteral("Main Street"),
          QStringLiteral("Bring the form"), QStringLiteral("Pending · Confirmed")})
        EXPECT_TRUE(tip.contains(part)) << tip.toStdString();
}

TEST(CalendarMouse, AHiddenNameIsNotInTheToolTip) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 590, "Anna O'Brien");
    hand.calendar.Item(item).ItemTip = "Her divorce";
    hand.calendar.Item(item).ItemTextColor = TextColor::SameAsBackground;
    EXPECT_EQ(hand.calendar.ToolTipOf(item), QStringLiteral("9:00 – 9:50 AM"));
}
