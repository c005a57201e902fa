#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>

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
