// Every change is on the screen at once, and no more is painted for it than has changed.

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>

#include "platform/theme/colours.h"
#include "tests/platform/calendar/calendarunderhand.h"
#include "tests/platform/calendar/monthunderhand.h"
#include "tests/platform/calendar/picture.h"

namespace {

Picture onScreen(const QWidget& widget) {
    CalendarUnderHand::settle();
    return Picture(widget.screen()->grabWindow(widget.winId()).toImage().convertToFormat(QImage::Format_RGB32));
}

/// Where the screen shows something else than painting anew gives.
QRect staleOn(QWidget& widget) {
    const Picture screen = onScreen(widget);
    return screen.changesTo(Picture::of(widget));
}

/// Listens to what a widget paints.
class Painted : public QObject {
  public:
    explicit Painted(QWidget& widget) : widget_(widget) { widget.installEventFilter(this); }

    /// Brings to the screen what is due and returns which share of the widget was painted for it.
    double share() {
        CalendarUnderHand::settle();
        double area = 0;
        for (const QRect& rect : region_)
            area += static_cast<double>(rect.width()) * rect.height();
        region_ = QRegion();
        return area / (static_cast<double>(widget_.width()) * widget_.height());
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched == &widget_)
            region_ += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

  private:
    QWidget& widget_;
    QRegion region_;
};

QScrollBar& barOf(ctMDay& calendar, Qt::Orientation orientation) {
    for (auto* each : calendar.findChildren<QScrollBar*>())
        if (each->orientation() == orientation)
            return *each;
    throw std::logic_error("no such bar");
}

}  // namespace

TEST(MonthOnScreen, EveryChangeIsSeenAtOnce) {
    MonthUnderHand hand;
    ctWeek& month = hand.month;
    month.resize(1600, 700);
    month.AddItem(itemOn(hand.day, 780, "Anna"));
    month.AddItem(itemOn(hand.day.addDays(1), 780, "Ben"));
    const auto hover = [&](QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, month.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&month, &event);
    };
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"the clock of the desk", [&] { month.setTwentyFourHour(true); }},
        {"the pointer on an item", [&] { hover(hand.cell(hand.day).lines[0].rect.center()); }},
        {"the pointer on the other", [&] { hover(hand.cell(hand.day.addDays(1)).lines[0].rect.center()); }},
        {"the pointer elsewhere",
         [&] {
             hover({3, 3});
         }},
        {"the pointer back", [&] { hover(hand.cell(hand.day).lines[0].rect.center()); }},
        {"the pointer gone",
         [&] {
             QEvent leave(QEvent::Leave);
             QCoreApplication::sendEvent(&month, &leave);
         }},
        {"an item", [&] { month.AddItem(itemOn(hand.day.addDays(2), 600, "Cleo")); }},
        {"changed items", [&] { month.ChangeItems([](CalendarItem& item) { item.ItemColor = 0x00FF00; }); }},
        {"today", [&] { month.setClock([] { return QDateTime(QDate(2026, 3, 13), QTime(9, 0)); }); }},
        {"the selected day",
         [&] { QTest::mouseClick(&month, Qt::LeftButton, {}, hand.cell(QDate(2026, 3, 18)).rect.center()); }},
        {"the selected day by key", [&] { QTest::keyClick(&month, Qt::Key_Right); }},
        {"the keyboard", [&] { month.clearFocus(); }},
        {"the keyboard back", [&] { month.setFocus(); }},
        {"the first day of the week", [&] { month.setFirstDayOfWeek(Qt::Monday); }},
        {"the font", [&] { month.setFont(QFont(QStringLiteral("DejaVu Sans"), 12)); }},
        {"the palette", [&] { month.setPalette(PaletteOf(ColoursOf(ThemeMode::Dark))); }},
        {"the date", [&] { month.setDate(QDate(2026, 3, 2)); }},
        {"no items", [&] { month.ClearItems(); }},
        {"another month", [&] { month.setDate(QDate(2026, 5, 2)); }},
    };
    for (const auto& [what, change] : changes) {
        const Picture before = onScreen(month);
        change();
        EXPECT_TRUE(before.changesTo(onScreen(month)).isValid()) << what << " is not seen";
        EXPECT_EQ(staleOn(month), QRect()) << what << " is seen in part";
    }
    month.resize(700, 500);
    EXPECT_EQ(staleOn(month), QRect());
    EXPECT_TRUE(month.rect().contains(month.Layout().cells.back().rect)) << "a new size is a new layout";
    EXPECT_GT(month.Layout().cells.back().rect.bottom(), 490);
}

TEST(MonthOnScreen, WhatChangesNothingPaintsNothing) {
    MonthUnderHand hand;
    hand.month.AddItem(itemOn(hand.day, 780, "Anna"));
    Painted painted(hand.month);
    painted.share();
    const auto hover = [&](QPoint at) {
        QMouseEvent event(QEvent::MouseMove, at, hand.month.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&hand.month, &event);
    };
    hover({3, 3});
    EXPECT_EQ(painted.share(), 0);
    hover(hand.cell(hand.day).lines[0].rect.center());
    EXPECT_GT(painted.share(), 0);
    hover(hand.cell(hand.day).lines[0].rect.center() + QPoint(1, 0));
    EXPECT_EQ(painted.share(), 0);
}

TEST(CalendarOnScreen, EveryEndOfAGestureIsSeenAtOnce) {
    CalendarUnderHand hand;
    ctMDay& calendar = hand.calendar;
    const int item = hand.add(540, 600);
    calendar.setDayColumns(2);
    const QPoint from = hand.middleOf(item);
    bool veto = true;
    QObject::connect(&calendar, &ctMDay::BeforeDrop, &calendar, [&](int, const ItemPlace&, bool* no) { *no = veto; });
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"the pointer on a card", [&] { hand.hover(from); }},
        {"a drag",
         [&] {
             hand.press(from);
             hand.moveTo(from + QPoint(0, 60));
         }},
        {"the drag further", [&] { hand.moveTo(from + QPoint(0, 100)); }},
        {"Escape", [&] { hand.key(Qt::Key_Escape); }},
        {"a second drag",
         [&] {
             hand.release(from);
             hand.press(from);
             hand.moveTo(from + QPoint(0, 120));
         }},
        {"the veto", [&] { hand.release(from + QPoint(0, 120)); }},
        {"a third drag",
         [&] {
             veto = false;
             hand.press(from);
             hand.moveTo(from + QPoint(0, 150));
         }},
        {"the drop", [&] { hand.release(from + QPoint(0, 150)); }},
        {"a move by keys", [&] { hand.key(Qt::Key_Down, Qt::ControlModifier); }},
        {"no selected item", [&] { calendar.clearSelection(); }},
        {"the pointer on the moved card", [&] { hand.hover(hand.middleOf(item)); }},
        {"the pointer gone",
         [&] {
             QEvent leave(QEvent::Leave);
             QCoreApplication::sendEvent(&calendar, &leave);
         }},
        {"the pointer on a heading", [&] { hand.hover(calendar.HeadingRect(1).center()); }},
        {"the pointer on another", [&] { hand.hover(calendar.HeadingRect(2).center()); }},
        {"the pointer on free time", [&] { hand.hover(hand.freeAt(900)); }},
        {"a range", [&] { hand.click(hand.freeAt(900)); }},
        {"a longer one", [&] { hand.key(Qt::Key_Down, Qt::ShiftModifier); }},
        {"an item instead", [&] { calendar.setSelectedItem(item); }},
        {"a range instead", [&] { hand.key(Qt::Key_Escape); }},
        {"larger", [&] { hand.key(Qt::Key_Plus, Qt::ControlModifier); }},
        {"usual", [&] { hand.key(Qt::Key_0, Qt::ControlModifier); }},
    };
    for (const auto& [what, change] : changes) {
        const Picture before = onScreen(calendar);
        change();
        EXPECT_TRUE(before.changesTo(onScreen(calendar)).isValid()) << what << " is not seen";
        EXPECT_EQ(staleOn(calendar), QRect()) << what << " is seen in part";
    }
}

TEST(CalendarOnScreen, AnEditorIsGoneWithoutATraceHoweverItEnds) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600);
    hand.calendar.setSelectedItem(item);
    const QRect heading = hand.calendar.HeadingRect(1);
    const QColor accent = ScreenStyle(hand.calendar.palette(), hand.calendar.font()).accent;
    const auto marksTheKeyboard = [&] {
        return Picture::of(hand.calendar).share({heading.left(), heading.bottom(), heading.width(), 1}, accent) > 0.9;
    };
    const std::pair<const char*, std::function<void(QLineEdit&)>> ends[] = {
        {"Escape", [](QLineEdit& editor) { QTest::keyClick(&editor, Qt::Key_Escape); }},
        {"Enter", [](QLineEdit& editor) { QTest::keyClick(&editor, Qt::Key_Return); }},
        {"nowhere", [](QLineEdit& editor) { editor.clearFocus(); }},
    };
    for (const auto& [what, end] : ends) {
        hand.calendar.EditItem(item);
        hand.settle();
        auto* editor = hand.calendar.findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        EXPECT_TRUE(marksTheKeyboard()) << "the editor is a part of the calendar";
        end(*editor);
        EXPECT_EQ(marksTheKeyboard(), hand.calendar.hasFocus()) << what;
        EXPECT_EQ(staleOn(hand.calendar), QRect()) << what;
        EXPECT_FALSE(hand.calendar.IsEditing()) << what;
    }
}

TEST(CalendarOnScreen, ScrollingUnderAnEditorOrADraggedCardLeavesNoTrace) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(20);
    hand.calendar.resize(600, 300);
    const int item = hand.add(540, 600);
    const auto scrollsClean = [&](const char* what) {
        for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
            for (const int value : {10, 3}) {
                onScreen(hand.calendar);
                barOf(hand.calendar, orientation).setValue(value);
                EXPECT_EQ(staleOn(hand.calendar), QRect()) << what << ' ' << value;
            }
        }
    };
    const int flash = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    hand.calendar.EditItem(item);
    scrollsClean("an editor");
    QApplication::setCursorFlashTime(flash);
    hand.calendar.CommitEdit();
    hand.settle();
    scrollsClean("nothing");
    hand.press(hand.middleOf(item));
    hand.moveTo(hand.middleOf(item) + QPoint(0, 40));
    scrollsClean("a dragged card");
    hand.key(Qt::Key_Escape);
    scrollsClean("nothing again");
}

TEST(CalendarOnScreen, ScrollingPaintsOnlyWhatComesIntoSight) {
    CalendarUnderHand hand;
    hand.calendar.setDayColumns(20);
    hand.calendar.resize(600, 300);
    hand.settle();
    Painted painted(hand.calendar);
    painted.share();
    for (const int value : {10, 20, 12, 0}) {
        barOf(hand.calendar, Qt::Vertical).setValue(value);
        const double share = painted.share();
        EXPECT_GT(share, 0) << value;
        EXPECT_LT(share, 0.2) << value;
    }
    for (const int value : {10, 20, 12, 0}) {
        barOf(hand.calendar, Qt::Horizontal).setValue(value);
        const double share = painted.share();
        EXPECT_GT(share, 0) << value;
        EXPECT_LT(share, 0.3) << value;
    }
}

TEST(CalendarOnScreen, ThePointerPaintsOnlyTheCardsItLeavesAndMeets) {
    CalendarUnderHand hand;
    const int one = hand.add(540, 600);
    const int other = hand.add(900, 960);
    Painted painted(hand.calendar);
    painted.share();
    for (const QPoint& at : {hand.middleOf(one), hand.middleOf(other), hand.freeAt(700)}) {
        hand.hover(at);
        const double share = painted.share();
        EXPECT_GT(share, 0);
        EXPECT_LT(share, 0.3);
        hand.hover(at + QPoint(0, 1));
        EXPECT_EQ(painted.share(), 0) << "where it stays nothing is painted";
    }
}
