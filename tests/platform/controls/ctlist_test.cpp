#include "platform/controls/ctlist.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace {

constexpr int Done = 1;
constexpr int Task = 2;
constexpr int Priority = 3;

class ListTest : public testing::Test {
  protected:
    ListTest() {
        list.SetColumns({{QStringLiteral("Done"), ListColumn::Kind::Check},
                         {QStringLiteral("Task")},
                         {QStringLiteral("Priority"), ListColumn::Kind::Text, 10}});
        list.resize(400, 300);
    }

    void addTasks() {
        list.AddRow({QStringLiteral("0"), QStringLiteral("Call the bank"), QStringLiteral("High")}, 11);
        list.AddRow({QStringLiteral("1"), QStringLiteral("Answer letters"), QStringLiteral("Low")}, 12);
        list.AddRow({QStringLiteral("0"), QStringLiteral("Carry files"), QStringLiteral("Urgent")}, 13);
    }

    QPoint centreOf(int row, int column) const {
        return list.visualRect(list.model()->index(row, column - 1)).center();
    }

    void show() {
        list.show();
        list.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
        list.setFocus();
    }

    ctList list;
};

}  // namespace

TEST_F(ListTest, ARowHasItsCells) {
    addTasks();
    EXPECT_EQ(list.RowCount(), 3);
    EXPECT_EQ(list.Cell(0, Task), QStringLiteral("Call the bank"));
    EXPECT_EQ(list.Cell(2, Priority), QStringLiteral("Urgent"));
    EXPECT_EQ(list.Cells(1).join(u';'), QStringLiteral("1;Answer letters;Low"));
}

TEST_F(ListTest, ACellShowsEverySignThatItHolds) {
    list.AddRow({QStringLiteral("1"), QStringLiteral("Call; write | wait"), QStringLiteral("High;")});
    list.AddRow({QStringLiteral("0;1"), QStringLiteral("Other")});
    list.SetCell(1, Priority, QStringLiteral("a;b"));
    EXPECT_EQ(list.ShownCells(0), (QStringList{"1", "Call; write | wait", "High;"}));
    EXPECT_EQ(list.model()->index(0, Task - 1).data().toString(), QStringLiteral("Call; write | wait"));
    EXPECT_EQ(list.ShownCells(1), (QStringList{"0;1", "Other", "a;b"}));
    EXPECT_FALSE(list.Checked(1, Done)) << "That is no number.";
    list.SelectRow(0);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Call; write | wait\tHigh;"));
}

TEST_F(ListTest, ACellOfSeveralLinesIsShownReadAndCopiedInOne) {
    list.AddRow({QStringLiteral("0"), QStringLiteral("Call\r\nthe\tbank\n"), QStringLiteral("High")});
    EXPECT_EQ(list.ShownCell(0, Task), QStringLiteral("Call the bank "));
    EXPECT_EQ(list.model()->index(0, Task - 1).data(Qt::AccessibleTextRole).toString(), list.ShownCell(0, Task));
    EXPECT_EQ(list.Cell(0, Task), QStringLiteral("Call\r\nthe\tbank\n"));
    list.SelectRow(0);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Call the bank \tHigh"));
}

TEST_F(ListTest, WithoutHeadingsAFixedColumnLeavesHalfOfANarrowListToTheOthers) {
    list.SetColumns({{QString(), ListColumn::Kind::Text, 20}, {QString()}});
    list.setHeaderHidden(true);
    list.show();
    const int wanted = 20 * list.fontMetrics().averageCharWidth();
    EXPECT_EQ(list.header()->sectionSize(0), wanted);
    list.resize(wanted, 300);
    QApplication::processEvents();
    EXPECT_EQ(list.header()->sectionSize(0), list.viewport()->width() / 2);
    list.resize(400, 300);
    QApplication::processEvents();
    EXPECT_EQ(list.header()->sectionSize(0), wanted);
}

TEST_F(ListTest, MissingCellsAreEmptyAndSpareOnesAreKept) {
    list.AddRow({QStringLiteral("0"), QStringLiteral("Alone")});
    EXPECT_EQ(list.Cell(0, Priority), QString());
    list.AddRow(
        {QStringLiteral("0"), QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")});
    EXPECT_EQ(list.Cell(1, Priority), QStringLiteral("b"));
    EXPECT_EQ(list.Cells(1).join(u';'), QStringLiteral("0;a;b;c;d"));
}

TEST_F(ListTest, SettingACellPastTheEndOfARowFillsTheGap) {
    list.AddRow({QStringLiteral("0")});
    list.SetCell(0, Priority, QStringLiteral("Low"));
    EXPECT_EQ(list.Cells(0).join(u';'), QStringLiteral("0;;Low"));
    EXPECT_EQ(list.Cell(0, Task), QString());
}

TEST_F(ListTest, TheFirstFieldOfACheckColumnTicksTheBox) {
    addTasks();
    EXPECT_FALSE(list.Checked(0, Done));
    EXPECT_TRUE(list.Checked(1, Done));
}

TEST_F(ListTest, ATextColumnHasNoCheckBox) {
    addTasks();
    list.SetChecked(0, Task, true);
    EXPECT_FALSE(list.Checked(0, Task));
}

TEST_F(ListTest, HiddenDataTextAndMarkBelongToTheirRow) {
    addTasks();
    list.SetItemText(1, QStringLiteral("JSMITH"));
    list.SetNoteMark(2, true);
    list.SetItemData(0, QStringLiteral("P-7"));
    EXPECT_EQ(list.ItemData(0).toString(), QStringLiteral("P-7"));
    EXPECT_EQ(list.ItemData(1).toInt(), 12);
    EXPECT_EQ(list.ItemText(1), QStringLiteral("JSMITH"));
    EXPECT_FALSE(list.NoteMark(1));
    EXPECT_TRUE(list.NoteMark(2));
}

TEST_F(ListTest, ARowIsFoundByItsData) {
    addTasks();
    EXPECT_EQ(list.FindItemData(13), 2);
    EXPECT_EQ(list.FindItemData(99), -1);
}

TEST_F(ListTest, AskingForARowThatIsNotThereIsHarmless) {
    list.SetCell(4, Task, QStringLiteral("x"));
    list.SetChecked(-1, Done, true);
    list.RemoveRow(7);
    list.SelectRow(9);
    EXPECT_EQ(list.RowCount(), 0);
    EXPECT_EQ(list.SelectedRow(), -1);
    EXPECT_EQ(list.Cell(0, Task), QString());
    EXPECT_FALSE(list.ItemData(0).isValid());
}

TEST_F(ListTest, AnEmptyListSelectsNothing) {
    addTasks();
    list.SelectRow(1);
    QSignalSpy changed(&list, &ctList::SelectionChanged);
    list.Clear();
    EXPECT_EQ(list.SelectedRow(), -1);
    EXPECT_EQ(changed.count(), 1);
}

TEST_F(ListTest, TheSelectionGoesWithTheRemovedRowAndStaysWithAnother) {
    addTasks();
    list.SelectRow(1);
    list.RemoveRow(0);
    EXPECT_EQ(list.SelectedRow(), 0);
    EXPECT_EQ(list.ItemData(0).toInt(), 12);
    list.RemoveRow(0);
    EXPECT_EQ(list.SelectedRow(), -1);
}

TEST_F(ListTest, HeadersCanBeRenamed) {
    list.SetHeader(Task, QStringLiteral("Client"));
    EXPECT_EQ(list.Header(Task), QStringLiteral("Client"));
    EXPECT_EQ(list.Header(9), QString());
}

TEST_F(ListTest, AClickAnywhereInTheCheckCellFlipsTheBoxAndTellsOnce) {
    addTasks();
    show();
    QSignalSpy checks(&list, &ctList::CheckChanged);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centreOf(0, Done) + QPoint(9, 0));
    EXPECT_TRUE(list.Checked(0, Done));
    ASSERT_EQ(checks.count(), 1);
    EXPECT_EQ(checks[0][0].toInt(), 0);
    EXPECT_EQ(checks[0][1].toInt(), Done);
    EXPECT_TRUE(checks[0][2].toBool());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centreOf(0, Done));
    EXPECT_FALSE(list.Checked(0, Done));
}

TEST_F(ListTest, AClickOnABoxSelectsItsRowAndMakesItCurrent) {
    addTasks();
    for (const bool many : {false, true}) {
        list.SetMultiSelect(many);
        show();
        for (const int row : {2, 0, 1}) {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centreOf(row, Done));
            EXPECT_EQ(list.SelectedRow(), row) << many;
            EXPECT_EQ(list.currentIndex().row(), row) << many;
        }
    }
}

TEST_F(ListTest, AFilterShowsTheRowsThatContainItAndKeepsTheirNumbers) {
    addTasks();
    list.SelectRow(0);
    list.SetFilter(QStringLiteral("AR"));
    EXPECT_EQ(list.ShownRowCount(), 1);
    EXPECT_TRUE(list.IsRowShown(2));
    EXPECT_EQ(list.RowCount(), 3);
    EXPECT_EQ(list.SelectedRow(), -1) << "What is not seen is not selected.";
    list.SelectRow(2);
    list.SetFilter(QStringLiteral("low"));
    EXPECT_TRUE(list.IsRowShown(1));
    EXPECT_EQ(list.SelectedRow(), -1);
    list.SetFilter(QStringLiteral("low"), Task);
    EXPECT_EQ(list.ShownRowCount(), 0);
    list.SetFilter({});
    EXPECT_EQ(list.ShownRowCount(), 3);
}

TEST_F(ListTest, AFilterHoldsForRowsThatComeAndGo) {
    addTasks();
    list.SetFilter(QStringLiteral("c"), Task);
    EXPECT_EQ(list.ShownRowCount(), 2);
    list.AddRow({QStringLiteral("0"), QStringLiteral("Clean the desk")});
    list.AddRow({QStringLiteral("0"), QStringLiteral("Sweep")});
    EXPECT_EQ(list.ShownRowCount(), 3);
    list.RemoveRow(4);
    list.RemoveRow(1);
    list.RemoveRow(0);
    EXPECT_EQ(list.RowCount(), 2);
    EXPECT_EQ(list.ShownRowCount(), 2);
    list.Clear();
    EXPECT_EQ(list.ShownRowCount(), 0);
    addTasks();
    EXPECT_EQ(list.ShownRowCount(), 2);
}

TEST_F(ListTest, KeysMoveAmongTheRowsThatAreShown) {
    addTasks();
    show();
    list.SetFilter(QStringLiteral("a"), Task);
    list.SetFilter(QStringLiteral("l"), Task);
    list.SelectRow(1);
    QTest::keyClicks(&list, QStringLiteral("c"));
    EXPECT_EQ(list.SelectedRow(), 2);
    list.SetFilter(QStringLiteral("call"), Task);
    list.keyboardSearch(QStringLiteral("z"));
    EXPECT_NE(list.SelectedRow(), 1);
}

TEST_F(ListTest, APressElsewhereReleasedOverACheckCellFlipsNothing) {
    addTasks();
    show();
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, centreOf(1, Task));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, centreOf(0, Done));
    EXPECT_FALSE(list.Checked(0, Done));
}

TEST_F(ListTest, ChecksTheUserMayNotChangeStayAsTheyAre) {
    addTasks();
    list.SetChecksEnabled(false);
    show();
    QSignalSpy checks(&list, &ctList::CheckChanged);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centreOf(0, Done));
    list.SelectRow(0);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_FALSE(list.Checked(0, Done));
    EXPECT_EQ(checks.count(), 0);
}

TEST_F(ListTest, SpaceFlipsTheBoxOfTheSelectedRow) {
    addTasks();
    show();
    list.SelectRow(2);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_TRUE(list.Checked(2, Done));
}

TEST_F(ListTest, SpaceInAListThatWasOnlyJustEnteredFlipsTheBoxOfTheRowWithTheFocus) {
    addTasks();
    show();
    list.selectionModel()->setCurrentIndex(list.model()->index(0, 0), QItemSelectionModel::NoUpdate);
    ASSERT_EQ(list.SelectedRow(), -1);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(list.SelectedRow(), 0);
    EXPECT_TRUE(list.Checked(0, Done));
}

TEST_F(ListTest, ShiftAndSpaceFlipTheSecondBoxWhereThereIsOne) {
    list.SetColumns({{QStringLiteral("In"), ListColumn::Kind::Check},
                     {QStringLiteral("Name")},
                     {QStringLiteral("Came"), ListColumn::Kind::Check}});
    list.AddRow({QStringLiteral("1"), QStringLiteral("Ann"), QStringLiteral("0")});
    show();
    list.SelectRow(0);
    QTest::keyClick(&list, Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_TRUE(list.Checked(0, 1));
    EXPECT_TRUE(list.Checked(0, 3));
    addTasks();
    list.SelectRow(1);
    QTest::keyClick(&list, Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_FALSE(list.Checked(1, Done));
}

TEST_F(ListTest, SettingACheckByProgramTellsNobody) {
    addTasks();
    QSignalSpy checks(&list, &ctList::CheckChanged);
    list.SetChecked(0, Done, true);
    EXPECT_TRUE(list.Checked(0, Done));
    EXPECT_EQ(checks.count(), 0);
}

TEST_F(ListTest, EnterAndDoubleClickActivateTheRow) {
    addTasks();
    show();
    QSignalSpy activated(&list, &ctList::RowActivated);
    list.SelectRow(1);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, centreOf(2, Task));
    ASSERT_EQ(activated.count(), 2);
    EXPECT_EQ(activated[0][0].toInt(), 1);
    EXPECT_EQ(activated[1][0].toInt(), 2);
}

TEST_F(ListTest, TwoQuickClicksOnACheckBoxDoNotActivateTheRow) {
    addTasks();
    show();
    QSignalSpy activated(&list, &ctList::RowActivated);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, centreOf(0, Done));
    EXPECT_EQ(activated.count(), 0);
}

TEST_F(ListTest, LettersGoToTheNextRowThatStartsWithThemAndWrap) {
    addTasks();
    show();
    list.SelectRow(0);
    QTest::keyClicks(&list, QStringLiteral("c"));
    EXPECT_EQ(list.SelectedRow(), 2);
    QTest::keyClicks(&list, QStringLiteral("c"));
    EXPECT_EQ(list.SelectedRow(), 0);
    QTest::keyClicks(&list, QStringLiteral("z"));
    EXPECT_EQ(list.SelectedRow(), 0);
}

TEST_F(ListTest, LettersTypedQuicklyMakeOneWord) {
    addTasks();
    show();
    QTest::keyClicks(&list, QStringLiteral("car"));
    EXPECT_EQ(list.SelectedRow(), 2);
}

TEST_F(ListTest, ARightClickSelectsItsRowAndAsksForThePopup) {
    addTasks();
    show();
    QSignalSpy popups(&list, &ctList::PopupRequested);
    const auto rightClick = [this](QPoint place) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
        QApplication::sendEvent(list.viewport(), &event);
    };
    rightClick(centreOf(1, Task));
    rightClick(QPoint(50, 250));
    ASSERT_EQ(popups.count(), 2);
    EXPECT_EQ(popups[0][0].toInt(), 1);
    EXPECT_EQ(list.SelectedRow(), 1);
    EXPECT_EQ(popups[1][0].toInt(), -1);
}

TEST_F(ListTest, AClickOnAHeadingLeavesTheRowsInTheirOrder) {
    addTasks();
    show();
    const QPoint heading(list.header()->sectionViewportPosition(Task - 1) + 20, 8);
    QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {}, heading);
    EXPECT_EQ(list.Cell(0, Task), QStringLiteral("Call the bank"));
}

TEST_F(ListTest, SeveralRowsCanBeSelectedWhereThatIsAllowed) {
    addTasks();
    show();
    list.SetMultiSelect(true);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, centreOf(2, Task));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier, centreOf(0, Task));
    EXPECT_EQ(list.SelectedRows(), (std::vector<int>{0, 2}));
}

TEST_F(ListTest, CopyTakesTheSelectedRowWithoutItsCheckBoxes) {
    addTasks();
    show();
    list.SelectRow(0);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Call the bank\tHigh"));
}

TEST_F(ListTest, WhatNamesAPatientIsHiddenInTheListTheCopyAndForTheScreenReader) {
    addTasks();
    show();
    list.NameCell(0, Task);
    list.SetNamesHidden(true);
    EXPECT_EQ(list.ShownCells(0).join(u';'), QStringLiteral("0;(hidden);High"));
    EXPECT_EQ(list.Cells(0).join(u';'), QStringLiteral("0;Call the bank;High"));
    EXPECT_EQ(list.ShownCell(1, Task), QStringLiteral("Answer letters"));
    EXPECT_EQ(list.model()->index(0, Task - 1).data(Qt::DisplayRole).toString(), QStringLiteral("(hidden)"));
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&list);
    EXPECT_EQ(access->tableInterface()->cellAt(0, Task - 1)->text(QAccessible::Name), QStringLiteral("(hidden)"));
    list.SelectRow(0);
    QTest::keySequence(&list, QKeySequence::Copy);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("(hidden)\tHigh"));
    list.SetNamesHidden(false);
    EXPECT_EQ(list.ShownCell(0, Task), QStringLiteral("Call the bank"));
}

TEST_F(ListTest, AScreenReaderReadsCellsAndCheckBoxes) {
    addTasks();
    show();
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&list);
    ASSERT_NE(access, nullptr);
    ASSERT_NE(access->tableInterface(), nullptr);
    EXPECT_EQ(access->tableInterface()->rowCount(), 3);
    EXPECT_EQ(access->tableInterface()->cellAt(0, Task - 1)->text(QAccessible::Name), QStringLiteral("Call the bank"));
    EXPECT_TRUE(access->tableInterface()->cellAt(1, Done - 1)->state().checked);
    EXPECT_FALSE(access->tableInterface()->cellAt(0, Done - 1)->state().checked);
}

TEST_F(ListTest, AHundredThousandRowsAreAllThereAndTheLastCanBeReached) {
    constexpr int Many = 100000;
    for (int i = 0; i < Many; ++i)
        list.AddRow({QStringLiteral("0"), QStringLiteral("Patient %1").arg(i), QStringLiteral("Low")}, i);
    show();
    list.SelectRow(Many - 1);
    EXPECT_EQ(list.FindItemData(Many - 1), Many - 1);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.model()->index(Many - 1, 1))));
}

TEST_F(ListTest, WhatDoesNotFitIsTippedAsItStandsItsMarkupToo) {
    list.AddRow({QStringLiteral("0"), QStringLiteral("Call"),
                 QStringLiteral("<b>Urgent</b> <img src='/etc/hosts'> and more than fits")});
    show();
    const QPoint place = centreOf(0, Priority);
    QHelpEvent help(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
    QApplication::sendEvent(list.viewport(), &help);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(),
              "<b>Urgent</b> <img src='/etc/hosts'> and more than fits");
    QToolTip::hideText();
}
