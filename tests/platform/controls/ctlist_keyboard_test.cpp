#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"

namespace {

constexpr int Done = 1;
constexpr int Task = 2;

/// A list of five tasks beside a field, worked by keys.
class ListKeys : public testing::Test {
  protected:
    ListKeys() {
        list.SetColumns({{QStringLiteral("Done"), ListColumn::Kind::Check},
                         {QStringLiteral("Task")},
                         {QStringLiteral("By"), ListColumn::Kind::Text, 10}});
        for (const char* task : {"Answer", "Book", "Call", "Carry", "Draw"})
            list.AddRow({QStringLiteral("0"), QString::fromLatin1(task), QStringLiteral("Ann")});
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&before);
        column->addWidget(&list);
        window.resize(400, 300);
        window.show();
        QApplication::setActiveWindow(&window);
        list.setFocus();
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&list, key, modifiers); }

    QWidget window;
    QLineEdit before;
    ctList list;
};

}  // namespace

TEST_F(ListKeys, UpAndDownHomeAndEndMoveTheSelection) {
    list.SelectRow(1);
    key(Qt::Key_Down);
    EXPECT_EQ(list.SelectedRow(), 2);
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(list.SelectedRow(), 0);
    key(Qt::Key_End);
    EXPECT_EQ(list.SelectedRow(), 4);
    key(Qt::Key_Home);
    EXPECT_EQ(list.SelectedRow(), 0);
}

TEST_F(ListKeys, HomeInAListThatWasOnlyJustEnteredSelectsTheFirstRow) {
    list.selectionModel()->setCurrentIndex(list.model()->index(0, 0), QItemSelectionModel::NoUpdate);
    ASSERT_EQ(list.SelectedRow(), -1);
    key(Qt::Key_Home);
    EXPECT_EQ(list.SelectedRow(), 0);
}

TEST_F(ListKeys, TabLeavesTheListInsteadOfWalkingThroughItsCells) {
    list.SelectRow(1);
    key(Qt::Key_Tab);
    EXPECT_FALSE(list.hasFocus());
    EXPECT_EQ(list.SelectedRow(), 1);
}

TEST_F(ListKeys, BothEnterKeysActivateTheRowAndWithoutARowNone) {
    const QSignalSpy activated(&list, &ctList::RowActivated);
    list.SelectRow(-1);
    key(Qt::Key_Return);
    EXPECT_EQ(activated.count(), 0);
    list.SelectRow(3);
    key(Qt::Key_Return);
    key(Qt::Key_Enter);
    ASSERT_EQ(activated.count(), 2);
    EXPECT_EQ(activated[1][0].toInt(), 3);
}

TEST_F(ListKeys, SpaceFlipsABoxThereAndBackAndTellsBoth) {
    const QSignalSpy checks(&list, &ctList::CheckChanged);
    list.SelectRow(2);
    key(Qt::Key_Space);
    key(Qt::Key_Space);
    ASSERT_EQ(checks.count(), 2);
    EXPECT_TRUE(checks[0][2].toBool());
    EXPECT_FALSE(checks[1][2].toBool());
    EXPECT_EQ(checks[1][0].toInt(), 2);
    EXPECT_EQ(checks[1][1].toInt(), Done);
}

TEST_F(ListKeys, SpaceInAListWithoutBoxesFlipsNothing) {
    const QSignalSpy checks(&list, &ctList::CheckChanged);
    list.SetColumns({{QStringLiteral("Task")}});
    list.AddRow({QStringLiteral("Answer")});
    list.SelectRow(0);
    key(Qt::Key_Space);
    key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(checks.count(), 0);
}

TEST_F(ListKeys, TheMenuKeyAsksForThePopupOfTheSelectedRowTwiceAlike) {
    const QSignalSpy popups(&list, &ctList::PopupRequested);
    list.SelectRow(1);
    for (int press = 0; press < 2; ++press) {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), list.viewport()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(list.viewport(), &event);
    }
    ASSERT_EQ(popups.count(), 2);
    for (const QList<QVariant>& popup : popups) {
        EXPECT_EQ(popup[0].toInt(), 1);
        const QPoint place = list.viewport()->mapFromGlobal(popup[1].toPoint());
        EXPECT_TRUE(list.visualRect(list.model()->index(1, Task - 1)).contains(place));
    }
}

TEST_F(ListKeys, CopyTakesTheSelectedRowsInListOrderALineEach) {
    list.SetMultiSelect(true);
    list.SelectRow(3);
    key(Qt::Key_Up, Qt::ShiftModifier);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Call\tAnn\nCarry\tAnn"));
}

TEST_F(ListKeys, CopyWithoutASelectionLeavesTheClipboard) {
    QApplication::clipboard()->setText(QStringLiteral("before"));
    list.SelectRow(-1);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("before"));
}

TEST_F(ListKeys, ShiftWithAnArrowSelectsOneRowWhereOnlyOneMayBe) {
    list.SelectRow(1);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(list.SelectedRows(), std::vector<int>{2});
}

TEST_F(ListKeys, ALetterThatLeadsNowhereKeepsTheRow) {
    list.SelectRow(1);
    QTest::keyClicks(&list, QStringLiteral("x"));
    EXPECT_EQ(list.SelectedRow(), 1);
}

TEST_F(ListKeys, ALetterFromABoxesCellLooksInTheFirstText) {
    list.setCurrentIndex(list.model()->index(0, Done - 1));
    QTest::keyClicks(&list, QStringLiteral("d"));
    EXPECT_EQ(list.SelectedRow(), 4);
}

TEST_F(ListKeys, AListThatIsDisabledTakesNeitherKeyNorClick) {
    list.SelectRow(1);
    list.setEnabled(false);
    const QSignalSpy checks(&list, &ctList::CheckChanged);
    const QPoint box = list.visualRect(list.model()->index(0, Done - 1)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, box);
    key(Qt::Key_Space);
    EXPECT_EQ(checks.count(), 0);
    EXPECT_EQ(list.SelectedRow(), 1);
}

TEST_F(ListKeys, SelectingNoRowTellsThatTheSelectionWent) {
    list.SelectRow(2);
    const QSignalSpy told(&list, &ctList::SelectionChanged);
    list.SelectRow(-1);
    EXPECT_EQ(list.SelectedRow(), -1);
    EXPECT_GE(told.count(), 1);
    EXPECT_TRUE(list.SelectedRows().empty());
}

TEST_F(ListKeys, RemovingTheRowAboveTheSelectionTellsNoLossOfIt) {
    list.SelectRow(3);
    list.RemoveRow(0);
    EXPECT_EQ(list.Cell(list.SelectedRow(), Task), QStringLiteral("Carry"));
}

TEST_F(ListKeys, EmptyingAListWithoutASelectionTellsNothing) {
    list.SelectRow(-1);
    const QSignalSpy told(&list, &ctList::SelectionChanged);
    list.Clear();
    EXPECT_EQ(told.count(), 0);
    EXPECT_EQ(list.RowCount(), 0);
}

TEST_F(ListKeys, ARowFarDownComesToTheTop) {
    for (int row = 5; row < 200; ++row)
        list.AddRow({QStringLiteral("0"), QStringLiteral("Task %1").arg(row)});
    const auto top = [this](int row) { return list.visualRect(list.model()->index(row, Task - 1)).top(); };
    list.StartAtRow(100);
    EXPECT_EQ(list.SelectedRow(), 100);
    EXPECT_EQ(top(100), 0);
    list.StartAtRow(199);
    EXPECT_GT(top(199), 0) << "Nothing follows it.";
    list.StartAtRow(900);
    EXPECT_EQ(list.SelectedRow(), -1);
}

TEST_F(ListKeys, AColumnStandsWhereItIsPlacedAndKeepsItsNumber) {
    list.PlaceColumn(3, 1);
    EXPECT_EQ(list.header()->visualIndex(2), 0);
    EXPECT_EQ(list.Cell(0, 3), QStringLiteral("Ann"));
    list.PlaceColumn(3, 3);
    EXPECT_EQ(list.header()->visualIndex(2), 2);
}

TEST_F(ListKeys, AWiderListGivesItsRoomToTheColumnWithoutAWidth) {
    const int fixed = list.header()->sectionSize(2);
    const int shared = list.header()->sectionSize(1);
    window.resize(700, 300);
    QApplication::processEvents();
    EXPECT_EQ(list.header()->sectionSize(2), fixed);
    EXPECT_GT(list.header()->sectionSize(1), shared + 200);
}

TEST_F(ListKeys, WithALargerFontTheFixedColumnsGrow) {
    const int before10 = list.header()->sectionSize(2);
    QFont font = list.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    list.setFont(font);
    EXPECT_GT(list.header()->sectionSize(2), before10 * 3 / 2);
}

TEST_F(ListKeys, AListAsksForTheWidthOfItsColumnsWithinReason) {
    const int character = list.fontMetrics().averageCharWidth();
    list.SetColumns({{QStringLiteral("A"), ListColumn::Kind::Text, 30}});
    EXPECT_NEAR(list.sizeHint().width(), 30 * character, 2 * character);
    list.SetColumns({{QStringLiteral("A"), ListColumn::Kind::Text, 500}});
    EXPECT_EQ(list.sizeHint().width(), 110 * character);
    list.SetColumns({{QStringLiteral("A"), ListColumn::Kind::Text, 1}});
    EXPECT_EQ(list.sizeHint().width(), 20 * character);
}

TEST_F(ListKeys, TheRightButtonSelectsNothingWhereItsRowIsOneOfSeveralSelected) {
    list.SetMultiSelect(true);
    list.SelectRow(1);
    key(Qt::Key_Down, Qt::ShiftModifier);
    const QPoint place = list.visualRect(list.model()->index(2, Task - 1)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(list.viewport(), &event);
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{1, 2}));
}

TEST_F(ListKeys, ADoubleClickBesideTheRowsActivatesNone) {
    const QSignalSpy activated(&list, &ctList::RowActivated);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, QPoint(20, list.viewport()->height() - 3));
    QTest::mouseDClick(list.viewport(), Qt::RightButton, {},
                       list.visualRect(list.model()->index(1, Task - 1)).center());
    EXPECT_EQ(activated.count(), 0);
}
