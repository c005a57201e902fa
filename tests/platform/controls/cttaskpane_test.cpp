#include "platform/controls/cttaskpane.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

namespace {

class TaskPaneTest : public testing::Test {
  protected:
    TaskPaneTest() {
        pane.SetHeading(QStringLiteral("Calendar"), QStringLiteral("ADVANCED"));
        pane.AddGroup(QStringLiteral("Date"), QStringLiteral("CAL"));
        pane.AddWidget(QStringLiteral("CAL"), content);
        pane.AddGroup(QStringLiteral("Views"), QStringLiteral("VIEWS"));
        addItem("Day View", "DAY", "Show the day");
        addItem("Week View", "WEEK", "Show the week");
        addItem("Month View", "MONTH", "Show the month");
        pane.resize(220, 400);
        pane.show();
        pane.activateWindow();
    }

    void addItem(const char* text, const char* key, const char* hint) {
        pane.AddItem(QStringLiteral("VIEWS"), QString::fromLatin1(text), QString::fromLatin1(key), {},
                     QString::fromLatin1(hint));
    }

    ctTaskPane pane;
    QLabel* content = new QLabel(QStringLiteral("content"));
};

}  // namespace

TEST_F(TaskPaneTest, TheHeadingAndTheGroupsSayTheirCaptions) {
    EXPECT_EQ(pane.HeadingCaption(), QStringLiteral("Calendar"));
    EXPECT_EQ(pane.HeadingKey(), QStringLiteral("ADVANCED"));
    EXPECT_EQ(pane.GroupCaption(QStringLiteral("VIEWS")), QStringLiteral("Views"));
}

TEST_F(TaskPaneTest, AClickOnAnItemSelectsItAloneAndTells) {
    pane.SetSelectedKey(QStringLiteral("DAY"));
    QSignalSpy chosen(&pane, &ctTaskPane::ItemChosen);
    QTest::mouseClick(pane.Item(QStringLiteral("WEEK")), Qt::LeftButton);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toString(), QStringLiteral("WEEK"));
    EXPECT_EQ(pane.SelectedKey(), QStringLiteral("WEEK"));
    EXPECT_FALSE(pane.Item(QStringLiteral("DAY"))->isChecked());
    EXPECT_TRUE(pane.Item(QStringLiteral("WEEK"))->isChecked());
}

TEST_F(TaskPaneTest, ASecondClickLeavesTheItemSelected) {
    pane.Item(QStringLiteral("WEEK"))->click();
    pane.Item(QStringLiteral("WEEK"))->click();
    EXPECT_TRUE(pane.Item(QStringLiteral("WEEK"))->isChecked());
}

TEST_F(TaskPaneTest, SelectingByProgramTellsNobody) {
    QSignalSpy chosen(&pane, &ctTaskPane::ItemChosen);
    pane.SetSelectedKey(QStringLiteral("MONTH"));
    EXPECT_EQ(pane.SelectedKey(), QStringLiteral("MONTH"));
    pane.SetSelectedKey(QStringLiteral("NOSUCH"));
    EXPECT_EQ(pane.SelectedKey(), QString());
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(TaskPaneTest, AHintIsTheItemsTip) {
    EXPECT_EQ(pane.Item(QStringLiteral("DAY"))->toolTip(), QStringLiteral("Show the day"));
}

TEST_F(TaskPaneTest, ACaptionFoldsItsGroupUpAndOpensItAgain) {
    QTest::mouseClick(pane.GroupButton(QStringLiteral("CAL")), Qt::LeftButton);
    EXPECT_FALSE(pane.GroupExpanded(QStringLiteral("CAL")));
    EXPECT_FALSE(content->isVisible());
    QTest::mouseClick(pane.GroupButton(QStringLiteral("CAL")), Qt::LeftButton);
    EXPECT_TRUE(content->isVisible());
}

TEST_F(TaskPaneTest, AHiddenGroupIsGoneWithItsCaption) {
    pane.SetGroupVisible(QStringLiteral("VIEWS"), false);
    EXPECT_FALSE(pane.GroupVisible(QStringLiteral("VIEWS")));
    EXPECT_FALSE(pane.Item(QStringLiteral("DAY"))->isVisible());
}

TEST_F(TaskPaneTest, ADisabledItemCannotBeChosenAndSaysWhy) {
    QSignalSpy chosen(&pane, &ctTaskPane::ItemChosen);
    pane.SetItemEnabled(QStringLiteral("WEEK"), false, QStringLiteral("Not today"));
    QTest::mouseClick(pane.Item(QStringLiteral("WEEK")), Qt::LeftButton);
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_EQ(pane.Item(QStringLiteral("WEEK"))->toolTip(), QStringLiteral("Not today"));
}

TEST_F(TaskPaneTest, ArrowsWalkThroughCaptionsAndItemsPastWhatIsDisabled) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
    pane.SetItemEnabled(QStringLiteral("WEEK"), false, {});
    QToolButton* caption = pane.GroupButton(QStringLiteral("VIEWS"));
    caption->setFocus();
    QTest::keyClick(caption, Qt::Key_Down);
    EXPECT_TRUE(pane.Item(QStringLiteral("DAY"))->hasFocus());
    QTest::keyClick(pane.Item(QStringLiteral("DAY")), Qt::Key_Down);
    EXPECT_TRUE(pane.Item(QStringLiteral("MONTH"))->hasFocus());
    QTest::keyClick(pane.Item(QStringLiteral("MONTH")), Qt::Key_Down);
    EXPECT_TRUE(pane.Item(QStringLiteral("MONTH"))->hasFocus());
    QTest::keyClick(pane.Item(QStringLiteral("MONTH")), Qt::Key_Up);
    EXPECT_TRUE(pane.Item(QStringLiteral("DAY"))->hasFocus());
}

TEST_F(TaskPaneTest, EnterChoosesAndLeftAndRightFold) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&pane));
    QToolButton* week = pane.Item(QStringLiteral("WEEK"));
    week->setFocus();
    QTest::keyClick(week, Qt::Key_Return);
    EXPECT_EQ(pane.SelectedKey(), QStringLiteral("WEEK"));
    QTest::keyClick(week, Qt::Key_Left);
    EXPECT_FALSE(pane.GroupExpanded(QStringLiteral("VIEWS")));
    EXPECT_TRUE(pane.GroupButton(QStringLiteral("VIEWS"))->hasFocus());
    QTest::keyClick(pane.GroupButton(QStringLiteral("VIEWS")), Qt::Key_Right);
    EXPECT_TRUE(pane.GroupExpanded(QStringLiteral("VIEWS")));
}

TEST_F(TaskPaneTest, TheCrossAsksToCloseThePane) {
    QSignalSpy closes(&pane, &ctTaskPane::CloseRequested);
    pane.findChild<QToolButton*>(QStringLiteral("cmdClosePane"))->click();
    EXPECT_EQ(closes.count(), 1);
}

TEST_F(TaskPaneTest, EnterOnTheCrossAsksToCloseThePane) {
    QSignalSpy closes(&pane, &ctTaskPane::CloseRequested);
    QTest::keyClick(pane.findChild<QToolButton*>(QStringLiteral("cmdClosePane")), Qt::Key_Return);
    EXPECT_EQ(closes.count(), 1);
}

TEST_F(TaskPaneTest, AKeyThatTheContentHasNoUseForPressesNothing) {
    QSignalSpy chosen(&pane, &ctTaskPane::ItemChosen);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down, Qt::Key_Left})
        QTest::keyClick(content, key);
    EXPECT_EQ(chosen.count(), 0);
    EXPECT_TRUE(pane.GroupExpanded(QStringLiteral("CAL")));
}
