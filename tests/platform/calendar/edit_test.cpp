#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>

#include "tests/platform/calendar/calendarunderhand.h"

namespace {

QLineEdit* Editor(ctMDay& calendar) {
    return calendar.findChild<QLineEdit*>();
}

}  // namespace

TEST(InPlaceText, F2EditsAndEnterCommits) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setSelectedItem(item);
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    hand.key(Qt::Key_F2);
    ASSERT_TRUE(hand.calendar.IsEditing());
    QTest::keyClicks(Editor(hand.calendar), "Bea");
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Return);
    EXPECT_EQ(edited.count(), 0) << "inside the key handler";
    hand.settle();
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(edited[0][0].toInt(), item);
    EXPECT_EQ(edited[0][1].toString(), "Anna");
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, "Bea");
    EXPECT_TRUE(hand.calendar.hasFocus());
    EXPECT_EQ(Editor(hand.calendar), nullptr);
}

TEST(InPlaceText, EnterInTheEditorDoesNotAlsoOpenTheItem) {
    CalendarUnderHand hand;
    hand.calendar.setSelectedItem(hand.add(540, 600, "Anna"));
    QSignalSpy opened(&hand.calendar, &ctMDay::ItemActivated);
    hand.key(Qt::Key_F2);
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Return);
    hand.settle();
    EXPECT_EQ(opened.count(), 0);
}

TEST(InPlaceText, EscapeRestores) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setSelectedItem(item);
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    hand.key(Qt::Key_F2);
    QTest::keyClicks(Editor(hand.calendar), "Bea");
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Escape);
    hand.settle();
    EXPECT_FALSE(hand.calendar.IsEditing());
    EXPECT_EQ(edited.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, "Anna");
    EXPECT_EQ(hand.calendar.SelectedItem(), item);
}

TEST(InPlaceText, LosingTheFocusCommits) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setSelectedItem(item);
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    hand.key(Qt::Key_F2);
    QTest::keyClicks(Editor(hand.calendar), "Bea");
    hand.click(hand.freeAt(900));
    hand.settle();
    EXPECT_EQ(edited.count(), 1);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, "Bea");
}

TEST(InPlaceText, ClearingTheDayDeliversWhatWasTypedFirst) {
    CalendarUnderHand hand;
    hand.calendar.setSelectedItem(hand.add(540, 600, "Anna"));
    QString saved;
    QObject::connect(&hand.calendar, &ctMDay::TextEdited, &hand.calendar,
                     [&](int index) { saved = std::as_const(hand.calendar).Item(index).ItemText; });
    hand.key(Qt::Key_F2);
    QTest::keyClicks(Editor(hand.calendar), "Bea");
    hand.calendar.ClearItems();
    EXPECT_EQ(saved, "Bea");
    EXPECT_EQ(hand.calendar.ItemCount(), 0);
}

TEST(InPlaceText, ChangingTheDateDeliversWhatWasTypedFirst) {
    CalendarUnderHand hand;
    hand.calendar.setSelectedItem(hand.add(540, 600, "Anna"));
    QDate date;
    QObject::connect(&hand.calendar, &ctMDay::TextEdited, &hand.calendar, [&] { date = hand.calendar.Date(); });
    hand.key(Qt::Key_F2);
    QTest::keyClicks(Editor(hand.calendar), "Bea");
    hand.calendar.setDate(hand.day.addDays(1));
    EXPECT_EQ(date, hand.day);
}

TEST(InPlaceText, NoChangeIsNoReport) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, QString(150, QLatin1Char('x')));
    hand.calendar.setSelectedItem(item);
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    hand.key(Qt::Key_F2);
    EXPECT_EQ(Editor(hand.calendar)->text().size(), 150);
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Return);
    hand.settle();
    EXPECT_EQ(edited.count(), 0);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText.size(), 150);
}

TEST(InPlaceText, ALongTextThatIsPutInIsCutWithAWordAndReported) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setSelectedItem(item);
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    hand.key(Qt::Key_F2);
    Editor(hand.calendar)->insert(QString(150, QLatin1Char('x')) + QStringLiteral("\nend"));
    const auto* line = hand.calendar.window()->findChild<QLabel*>(QStringLiteral("lblkept"));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), "Kept 100 characters; more does not fit here.");
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Return);
    hand.settle();
    EXPECT_EQ(edited.count(), 1);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, QString(100, QLatin1Char('x')));
    EXPECT_EQ(hand.calendar.window()->findChild<QLabel*>(QStringLiteral("lblkept")), nullptr);
}

TEST(InPlaceText, TheEditorsOwnMenuDoesNotEndTheEdit) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    for (const bool again : {false, true}) {
        hand.calendar.EditItem(item);
        Editor(hand.calendar)->insert(QString(150, QLatin1Char(again ? 'y' : 'x')));
        const auto notice = [&] { return hand.calendar.window()->findChild<QLabel*>(QStringLiteral("lblkept")); };
        ASSERT_NE(notice(), nullptr);
        QMenu menu;
        menu.addAction(QStringLiteral("Paste"));
        menu.popup(hand.calendar.mapToGlobal(hand.middleOf(item)));
        hand.settle();
        EXPECT_TRUE(hand.calendar.IsEditing());
        EXPECT_EQ(notice(), nullptr) << "the field itself learns that it has lost the keyboard";
        menu.close();
        hand.settle();
        EXPECT_TRUE(hand.calendar.IsEditing());
        EXPECT_TRUE(Editor(hand.calendar)->hasFocus());
        EXPECT_EQ(edited.count(), again ? 1 : 0);
        hand.calendar.CommitEdit();
        hand.settle();
    }
    EXPECT_EQ(edited.count(), 2);
}

TEST(InPlaceText, AnEmptyTextIsReportedSoThatTheViewCanRestoreIt) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setSelectedItem(item);
    QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
    hand.key(Qt::Key_F2);
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Delete);
    QTest::keyClick(Editor(hand.calendar), Qt::Key_Return);
    hand.settle();
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, "");
}

TEST(InPlaceText, LocksAreSetJustBeforeAndRefuse) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setSelectedItem(item);
    QObject::connect(&hand.calendar, &ctMDay::BeforeItemWork, &hand.calendar,
                     [&](int index) { hand.calendar.Item(index).ItemTextLocked = true; });
    hand.key(Qt::Key_F2);
    EXPECT_FALSE(hand.calendar.IsEditing());
}

TEST(InPlaceText, AnItemThatTheViewReadsAnewJustBeforeIsNotTheOneToEdit) {
    CalendarUnderHand hand;
    hand.calendar.setSelectedItem(hand.add(540, 600, "Anna"));
    QObject::connect(&hand.calendar, &ctMDay::BeforeItemWork, &hand.calendar, [&] {
        hand.calendar.ClearItems();
        hand.add(660, 720, "Ben");
    });
    hand.key(Qt::Key_F2);
    EXPECT_FALSE(hand.calendar.IsEditing());
    hand.calendar.EditItem(1);
    EXPECT_FALSE(hand.calendar.IsEditing());
    hand.calendar.disconnect(&hand.calendar);
    hand.calendar.EditItem(1);
    EXPECT_TRUE(hand.calendar.IsEditing()) << "the day as it is read now can be edited";
}

TEST(InPlaceText, AHiddenNameIsNotOfferedForEditing) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.Item(item).ItemTextColor = TextColor::SameAsBackground;
    hand.calendar.EditItem(item);
    EXPECT_FALSE(hand.calendar.IsEditing());
}

TEST(InPlaceText, AReadOnlyCalendarDoesNotEdit) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.setReadOnly(true);
    hand.calendar.EditItem(item);
    EXPECT_FALSE(hand.calendar.IsEditing());
}

TEST(InPlaceText, ASlowSecondClickEditsAndADoubleClickDoesNot) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.click(hand.middleOf(item));
    EXPECT_FALSE(hand.calendar.IsEditing());
    hand.doubleClick(hand.middleOf(item));
    QTest::mouseRelease(&hand.calendar, Qt::LeftButton, {}, hand.middleOf(item));
    EXPECT_FALSE(hand.calendar.IsEditing());
    QApplication::setDoubleClickInterval(1);
    hand.click(hand.middleOf(item));
    EXPECT_TRUE(QTest::qWaitFor([&] { return hand.calendar.IsEditing(); }, 5000));
    QApplication::setDoubleClickInterval(400);
}

TEST(InPlaceText, TheEditorStandsOnItsCardInsideTheCalendar) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    const int item = hand.add(540, 600, "Anna");
    const int last = hand.add(1060, 1080, "Last");
    const int late = hand.add(1200, 1230, "Late");
    for (int i = 0; i < 30; ++i)
        hand.add(700, 760, "Narrow");
    for (const int index : {item, last, late, 10}) {
        hand.calendar.EditItem(index);
        ASSERT_TRUE(hand.calendar.IsEditing()) << index;
        const QRect editor = Editor(hand.calendar)->geometry();
        EXPECT_TRUE(hand.calendar.rect().contains(editor)) << index;
        EXPECT_TRUE(editor.intersects(hand.calendar.ItemRect(index))) << index;
        EXPECT_EQ(editor.height(), Editor(hand.calendar)->sizeHint().height()) << index;
        EXPECT_GE(editor.width(), 90) << index;
        EXPECT_EQ(hand.calendar.SelectedItem(), index);
        EXPECT_EQ(Editor(hand.calendar)->selectedText(), Editor(hand.calendar)->text()) << index;
        QTest::keyClick(Editor(hand.calendar), Qt::Key_Escape);
        hand.settle();
    }
}

TEST(InPlaceText, TheEditorGoesWithItsCardWhenTheCalendarScrolls) {
    CalendarUnderHand hand;
    hand.calendar.resize(600, 300);
    const int item = hand.add(600, 660, "Anna");
    hand.calendar.EditItem(item);
    const int off = Editor(hand.calendar)->y() - hand.calendar.ItemRect(item).y();
    hand.calendar.setTopTime(540);
    hand.settle();
    EXPECT_EQ(Editor(hand.calendar)->y() - hand.calendar.ItemRect(item).y(), off);
    hand.calendar.setTopTime(500);
    hand.settle();
    EXPECT_EQ(Editor(hand.calendar)->y() - hand.calendar.ItemRect(item).y(), off);
    for (auto* bar : hand.calendar.findChildren<QScrollBar*>()) {
        const int before = Editor(hand.calendar)->y();
        bar->setValue(bar->value() + 20);
        EXPECT_EQ(Editor(hand.calendar)->y() - hand.calendar.ItemRect(item).y(), off) << "also by its bar";
        EXPECT_EQ(Editor(hand.calendar)->y() == before, !bar->isVisible());
    }
}

TEST(InPlaceText, WhatIsTypedTakesThePlaceOfTheText) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.EditItem(item, "B");
    EXPECT_EQ(Editor(hand.calendar)->text(), "B");
    QTest::keyClicks(Editor(hand.calendar), "ea");
    hand.calendar.CommitEdit();
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, "Bea");
    EXPECT_FALSE(hand.calendar.IsEditing());
}

TEST(InPlaceText, TabCommitsAndStaysAndAnotherItemCommitsTheFirst) {
    CalendarUnderHand hand;
    const int anna = hand.add(540, 600, "Anna");
    const int ben = hand.add(660, 720, "Ben");
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Enter}) {
        QSignalSpy edited(&hand.calendar, &ctMDay::TextEdited);
        hand.calendar.EditItem(anna, QStringLiteral("Key %1").arg(key));
        QTest::keyClick(Editor(hand.calendar), key);
        hand.settle();
        EXPECT_EQ(edited.count(), 1);
        EXPECT_EQ(hand.calendar.SelectedItem(), anna);
        EXPECT_TRUE(hand.calendar.hasFocus());
    }
    hand.calendar.EditItem(anna, "Cleo");
    hand.calendar.EditItem(ben, "Dora");
    EXPECT_EQ(std::as_const(hand.calendar).Item(anna).ItemText, "Cleo");
    hand.calendar.setSelectedItem(anna);
    EXPECT_FALSE(hand.calendar.IsEditing()) << "so does a view that selects another";
    EXPECT_EQ(std::as_const(hand.calendar).Item(ben).ItemText, "Dora");
    hand.calendar.EditItem(ben, "Dora");
    hand.calendar.hide();
    EXPECT_EQ(std::as_const(hand.calendar).Item(ben).ItemText, "Dora") << "hiding commits";
}

TEST(InPlaceText, TheKeyboardComesBackToTheCalendarAndNotToAnotherField) {
    QWidget window;
    QLineEdit before(&window);
    auto* calendar = new ctMDay(&window);
    QLineEdit after(&window);
    calendar->setGeometry(0, 0, 400, 400);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const int item = calendar->AddItem(540, 600, calendar->Date(), "Anna", "1");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab}) {
        calendar->setFocus();
        calendar->EditItem(item);
        const QLineEdit* editor = Editor(*calendar);
        QTest::keyClick(Editor(*calendar), key);
        EXPECT_FALSE(editor->isVisible()) << "at once, also when a dialog follows";
        EXPECT_TRUE(calendar->hasFocus()) << key;
        CalendarUnderHand::settle();
        EXPECT_TRUE(calendar->hasFocus()) << key;
    }
    calendar->EditItem(item);
    after.setFocus();
    CalendarUnderHand::settle();
    EXPECT_FALSE(calendar->IsEditing());
    EXPECT_TRUE(after.hasFocus()) << "what the user goes to keeps it";
}

TEST(InPlaceText, KeysOfTheEditorAreNotTheCalendars) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.add(660, 720, "Ben");
    QSignalSpy remove(&hand.calendar, &ctMDay::DeleteRequested);
    QSignalSpy steps(&hand.calendar, &ctMDay::DayStepRequested);
    hand.calendar.EditItem(item);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown})
        QTest::keyClick(Editor(hand.calendar), key, key == Qt::Key_PageDown ? Qt::ControlModifier : Qt::NoModifier);
    EXPECT_EQ(remove.count() + steps.count(), 0);
    EXPECT_EQ(hand.calendar.SelectedItem(), item);
    EXPECT_TRUE(hand.calendar.IsEditing());
    QKeyEvent escape(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    escape.ignore();
    QCoreApplication::sendEvent(&hand.calendar, &escape);
    EXPECT_TRUE(escape.isAccepted()) << "Escape ends the edit and not the window";
    hand.calendar.CommitEdit();
    escape.ignore();
    QCoreApplication::sendEvent(&hand.calendar, &escape);
    EXPECT_FALSE(escape.isAccepted());
}

TEST(InPlaceText, ADoubleClickElsewhereIsHeardThoughTheViewReadsTheDayAnewBetween) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    QStringList told;
    QObject::connect(&hand.calendar, &ctMDay::TextEdited, &hand.calendar, [&] {
        told << QStringLiteral("text");
        hand.calendar.ClearItems();
    });
    QObject::connect(&hand.calendar, &ctMDay::RangeActivated, &hand.calendar, [&] { told << QStringLiteral("range"); });
    hand.calendar.EditItem(item, "Bea");
    QTest::mouseDClick(&hand.calendar, Qt::LeftButton, {}, hand.freeAt(900));
    hand.settle();
    EXPECT_EQ(told, (QStringList{"text", "range"}));
}

TEST(InPlaceText, FreeTimeOpenedInTheMomentAnEditEndsIsHeardThoughTheDayIsReadAnew) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.add(660, 720, "Ben");
    QStringList told;
    QObject::connect(&hand.calendar, &ctMDay::TextEdited, &hand.calendar, [&] {
        told << QStringLiteral("text");
        hand.calendar.RemoveItem(2);
    });
    QObject::connect(&hand.calendar, &ctMDay::RangeActivated, &hand.calendar, [&] { told << QStringLiteral("range"); });
    hand.calendar.EditItem(item, "Bea");
    hand.calendar.setFocus();  // The edit ends here and is told later.
    const QPoint at = hand.freeAt(900);
    QMouseEvent event(QEvent::MouseButtonDblClick, at, hand.calendar.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      {});
    QCoreApplication::sendEvent(&hand.calendar, &event);
    EXPECT_EQ(told, (QStringList{"text", "range"}));
}

TEST(InPlaceText, ALetterTypedOnAnItemTakesThePlaceOfItsTextInTheEditor) {
    CalendarUnderHand hand;
    const int item = hand.add(540, 600, "Anna");
    hand.calendar.EditItem(item, "Be");
    EXPECT_EQ(Editor(hand.calendar)->text(), "Be");
    EXPECT_EQ(Editor(hand.calendar)->accessibleName(), "Text of the item");
    EXPECT_EQ(Editor(hand.calendar)->font().pointSizeF(), hand.calendar.font().pointSizeF());
    EXPECT_TRUE(Editor(hand.calendar)->hasFocus());
    EXPECT_TRUE(Editor(hand.calendar)->isVisible());
    hand.calendar.EditItem(item);
    EXPECT_EQ(std::as_const(hand.calendar).Item(item).ItemText, "Be") << "beginning anew keeps what was typed";
    EXPECT_EQ(Editor(hand.calendar)->text(), "Be");
}
