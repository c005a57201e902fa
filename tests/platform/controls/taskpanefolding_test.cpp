#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include "platform/controls/cttaskpane.h"
#include "platform/theme/theme.h"

namespace {

const QString Views = QStringLiteral("VIEWS");
const QString Lists = QStringLiteral("LISTS");

/// A pane with two groups of items.
class PaneFolding : public testing::Test {
  protected:
    PaneFolding() {
        Theme::Install(ThemeMode::Light);
        for (const QString& group : {Views, Lists}) {
            pane.AddGroup(group.toLower(), group);
            for (int item = 1; item <= 2; ++item)
                pane.AddItem(group, QStringLiteral("%1 %2").arg(group).arg(item), group + QString::number(item), {},
                             QStringLiteral("hint %1").arg(item));
        }
        pane.resize(220, 400);
        pane.show();
        QApplication::setActiveWindow(&pane);
    }

    [[nodiscard]] QToolButton& item(const char* key) const { return *pane.Item(QString::fromLatin1(key)); }

    ctTaskPane pane;
};

}  // namespace

TEST_F(PaneFolding, WhatIsAskedOfNoGroupAndNoItemIsNothing) {
    EXPECT_EQ(pane.Item(QStringLiteral("NONE")), nullptr);
    EXPECT_EQ(pane.GroupButton(QStringLiteral("NONE")), nullptr);
    EXPECT_EQ(pane.GroupCaption(QStringLiteral("NONE")), QString());
    EXPECT_FALSE(pane.GroupVisible(QStringLiteral("NONE")));
    EXPECT_FALSE(pane.GroupExpanded(QStringLiteral("NONE")));
}

TEST_F(PaneFolding, WhatIsToldOfNoGroupAndNoItemIsIgnored) {
    pane.AddItem(QStringLiteral("NONE"), QStringLiteral("x"), QStringLiteral("X"), {}, {});
    EXPECT_EQ(pane.Item(QStringLiteral("X")), nullptr);
    QLabel content;
    pane.AddWidget(QStringLiteral("NONE"), &content);
    EXPECT_EQ(content.parent(), nullptr);
    pane.SetGroupVisible(QStringLiteral("NONE"), false);
    pane.SetGroupExpanded(QStringLiteral("NONE"), false);
    pane.SetItemEnabled(QStringLiteral("NONE"), false, {});
    EXPECT_TRUE(pane.GroupExpanded(Views));
}

TEST_F(PaneFolding, GroupsBeginOpenAndTheCaptionTellsWhatAClickDoes) {
    QToolButton& caption = *pane.GroupButton(Views);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(pane.GroupExpanded(Views));
        EXPECT_EQ(caption.toolTip(), QStringLiteral("Fold up"));
        EXPECT_EQ(caption.accessibleDescription(), QStringLiteral("Expanded"));
        caption.click();
        EXPECT_FALSE(pane.GroupExpanded(Views));
        EXPECT_EQ(caption.toolTip(), QStringLiteral("Unfold"));
        EXPECT_EQ(caption.accessibleDescription(), QStringLiteral("Collapsed"));
        caption.click();
    }
    EXPECT_TRUE(pane.GroupExpanded(Lists)) << "The other group stays as it is.";
}

TEST_F(PaneFolding, TheItemsOfAFoldedGroupAreSkippedByTheArrows) {
    pane.SetGroupExpanded(Views, false);
    QToolButton& caption = *pane.GroupButton(Views);
    caption.setFocus();
    QTest::keyClick(&caption, Qt::Key_Down);
    EXPECT_TRUE(pane.GroupButton(Lists)->hasFocus());
    QTest::keyClick(pane.GroupButton(Lists), Qt::Key_Up);
    EXPECT_TRUE(caption.hasFocus());
    QTest::keyClick(&caption, Qt::Key_Up);
    EXPECT_TRUE(caption.hasFocus()) << "Nothing stands above it.";
}

TEST_F(PaneFolding, AHiddenGroupIsSkippedByTheArrowsAndComesBack) {
    pane.SetGroupVisible(Lists, false);
    item("VIEWS2").setFocus();
    QTest::keyClick(&item("VIEWS2"), Qt::Key_Down);
    EXPECT_TRUE(item("VIEWS2").hasFocus());
    pane.SetGroupVisible(Lists, true);
    QTest::keyClick(&item("VIEWS2"), Qt::Key_Down);
    EXPECT_TRUE(pane.GroupButton(Lists)->hasFocus());
    EXPECT_TRUE(pane.GroupVisible(Lists));
}

TEST_F(PaneFolding, LeftFromAnItemGoesToItsCaptionAndAnItemIsNotLostBehindIt) {
    item("LISTS1").setFocus();
    QTest::keyClick(&item("LISTS1"), Qt::Key_Left);
    EXPECT_FALSE(pane.GroupExpanded(Lists));
    EXPECT_TRUE(pane.GroupButton(Lists)->hasFocus());
    QTest::keyClick(pane.GroupButton(Lists), Qt::Key_Left);
    EXPECT_FALSE(pane.GroupExpanded(Lists));
    QTest::keyClick(pane.GroupButton(Lists), Qt::Key_Right);
    QTest::keyClick(pane.GroupButton(Lists), Qt::Key_Right);
    EXPECT_TRUE(pane.GroupExpanded(Lists));
}

TEST_F(PaneFolding, KeysWithControlOrAltAreTheWindows) {
    item("VIEWS1").setFocus();
    QTest::keyClick(&item("VIEWS1"), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(&item("VIEWS1"), Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(item("VIEWS1").hasFocus());
    EXPECT_TRUE(pane.GroupExpanded(Views));
    QTest::keyClick(&item("VIEWS1"), Qt::Key_Down, Qt::KeypadModifier);
    EXPECT_TRUE(item("VIEWS2").hasFocus());
}

TEST_F(PaneFolding, SpaceAndBothEnterKeysChoose) {
    const QSignalSpy chosen(&pane, &ctTaskPane::ItemChosen);
    item("LISTS2").setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&item("LISTS2"), key);
    EXPECT_EQ(chosen.count(), 3);
    EXPECT_EQ(pane.SelectedKey(), QStringLiteral("LISTS2"));
}

TEST_F(PaneFolding, OneItemOfTheWholePaneIsSelected) {
    item("VIEWS1").click();
    item("LISTS1").click();
    EXPECT_FALSE(item("VIEWS1").isChecked());
    EXPECT_TRUE(item("LISTS1").isChecked());
}

TEST_F(PaneFolding, AnItemThatIsOnAgainHasItsNewHintEverywhere) {
    pane.SetItemEnabled(QStringLiteral("VIEWS1"), false, QStringLiteral("Not now"));
    EXPECT_FALSE(item("VIEWS1").isEnabled());
    pane.SetItemEnabled(QStringLiteral("VIEWS1"), true, QStringLiteral("The day"));
    EXPECT_TRUE(item("VIEWS1").isEnabled());
    EXPECT_EQ(item("VIEWS1").toolTip(), QStringLiteral("The day"));
    EXPECT_EQ(item("VIEWS1").statusTip(), QStringLiteral("The day"));
    EXPECT_EQ(item("VIEWS1").accessibleDescription(), QStringLiteral("The day"));
}

TEST_F(PaneFolding, ThePaneAsksForTheRoomOfItsWidestItem) {
    const int wide = pane.sizeHint().width();
    pane.AddItem(Lists, QStringLiteral("An item with a caption of very many words indeed"), QStringLiteral("LONG"), {},
                 {});
    QApplication::processEvents();
    EXPECT_GT(pane.sizeHint().width(), wide);
    EXPECT_LE(pane.minimumSizeHint().height(), pane.sizeHint().height());
}

TEST_F(PaneFolding, AnItemBelowTheEdgeComesIntoSightWithTheFocus) {
    for (int number = 3; number < 40; ++number)
        pane.AddItem(Lists, QStringLiteral("more"), QStringLiteral("LISTS%1").arg(number), {}, {});
    pane.resize(220, 200);
    QApplication::processEvents();
    item("LISTS38").setFocus();
    QTest::keyClick(&item("LISTS38"), Qt::Key_Down);
    EXPECT_TRUE(item("LISTS39").hasFocus());
    const QPoint middle = item("LISTS39").mapTo(pane.viewport(), item("LISTS39").rect().center());
    EXPECT_TRUE(pane.viewport()->rect().contains(middle));
}
