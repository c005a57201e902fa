#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "platform/controls/completingcombo.h"

namespace {

/// A box of places with its dropped list, and a field to go to.
class ComboList : public testing::Test {
  protected:
    ComboList() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&combo);
        column->addWidget(&next);
        for (const char* place : {"Annex", "Main Office", "Main Street", "Zoo"})
            combo.AddItem(QString::fromLatin1(place), combo.count() + 1);
        window.show();
        QApplication::setActiveWindow(&window);
        combo.setFocus();
    }

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&combo, key, modifiers); }
    void type(const char* text) { QTest::keyClicks(&combo, QString::fromUtf8(text)); }
    [[nodiscard]] QLineEdit& field() const { return *combo.lineEdit(); }
    [[nodiscard]] QString notice() const {
        const auto* line = window.findChild<QLabel*>(QStringLiteral("lblkept"));
        return line == nullptr ? QString() : line->text();
    }

    QWidget window;
    CompletingCombo combo{CompletingCombo::Entry::Free};
    QLineEdit next;
};

}  // namespace

TEST_F(ComboList, ItemsAreFoundByTextDataAndBeginning) {
    EXPECT_EQ(combo.FindExact(QStringLiteral("main street")), 2);
    EXPECT_EQ(combo.FindExact(QStringLiteral("main")), -1);
    EXPECT_EQ(combo.FindPrefix(QStringLiteral("MAIN")), 1);
    EXPECT_EQ(combo.FindPrefix(QString()), -1) << "Nothing is the beginning of nothing.";
    EXPECT_EQ(combo.FindPrefix(QStringLiteral("ain")), -1);
    EXPECT_EQ(combo.FindItemData(4), 3);
    EXPECT_EQ(combo.FindItemData(9), -1);
}

TEST_F(ComboList, AnItemAddedLaterLeavesWhatStandsInTheBox) {
    const QSignalSpy told(&combo, &CompletingCombo::Change);
    combo.AddItem(QStringLiteral("Later"));
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.SetText(QStringLiteral("Zoo"));
    combo.AddItem(QStringLiteral("Latest"));
    EXPECT_EQ(combo.Text(), QStringLiteral("Zoo"));
    EXPECT_EQ(combo.ListIndex(), 3);
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ComboList, AnItemOfTwoLinesStandsInOne) {
    combo.AddItem(QStringLiteral("Second\nfloor"), 9);
    EXPECT_EQ(combo.itemText(4), QStringLiteral("Second floor"));
    combo.SetText(QStringLiteral("Second\r\nfloor"));
    EXPECT_EQ(combo.ItemData(), 9);
}

TEST_F(ComboList, ThePictureOfAnItemStandsWithIt) {
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    combo.AddItem(QStringLiteral("Red"), 9, QIcon(picture));
    EXPECT_FALSE(combo.itemIcon(4).isNull());
    EXPECT_TRUE(combo.itemIcon(0).isNull());
}

TEST_F(ComboList, SelectingAnItemByItsPlaceAndNoneEmptiesTheBox) {
    combo.SetListIndex(2);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Street"));
    EXPECT_EQ(combo.ItemData(), 3);
    combo.SetListIndex(-1);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ItemData(), 0);
    combo.SetListIndex(70);
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ComboList, TheDroppedListIsWalkedWithoutChoosingAndEscapeLeavesTheBox) {
    combo.SetText(QStringLiteral("Annex"));
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    for (int time = 0; time < 2; ++time) {
        combo.showPopup();
        QTest::keyClick(combo.view(), Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Escape);
        EXPECT_FALSE(combo.view()->isVisible()) << time;
        EXPECT_EQ(combo.Text(), QStringLiteral("Annex")) << time;
    }
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(ComboList, PickingTakesThePlaceOfWhatWasTyped) {
    type("Somewhere");
    for (const int row : {3, 0}) {
        combo.showPopup();
        combo.view()->setCurrentIndex(combo.model()->index(row, 0));
        QTest::keyClick(combo.view(), Qt::Key_Return);
        EXPECT_EQ(combo.ListIndex(), row);
        EXPECT_EQ(combo.Text(), combo.itemText(row));
    }
}

TEST_F(ComboList, TheArrowsStepThroughTheItemsAndStopAtTheEnds) {
    combo.SetListIndex(0);
    key(Qt::Key_Up);
    EXPECT_EQ(combo.ListIndex(), 0);
    for (int press = 0; press < 9; ++press)
        key(Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 3);
}

TEST_F(ComboList, EnterAndLeavingTellAnItemOnlyOnce) {
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    key(Qt::Key_Down);
    key(Qt::Key_Enter);
    key(Qt::Key_Enter);
    EXPECT_EQ(chosen.count(), 1);
    key(Qt::Key_Down);
    combo.Settle();
    combo.Settle();
    EXPECT_EQ(chosen.count(), 2);
}

TEST_F(ComboList, WhatTheProgramSelectsIsNotTold) {
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    combo.SetListIndex(2);
    combo.SetText(QStringLiteral("Zoo"));
    combo.Settle();
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(ComboList, LeavingIsToldButNotForAnotherWindowOrTheBoxesOwnList) {
    const QSignalSpy left(&combo, &CompletingCombo::LostFocus);
    for (const Qt::FocusReason reason : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason}) {
        QFocusEvent event(QEvent::FocusOut, reason);
        QApplication::sendEvent(&combo, &event);
    }
    EXPECT_EQ(left.count(), 0);
    next.setFocus(Qt::TabFocusReason);
    ASSERT_EQ(left.count(), 1);
    EXPECT_EQ(left[0][0].value<Qt::FocusReason>(), Qt::TabFocusReason);
}

TEST_F(ComboList, DeletingAndCuttingBringNoCompletionBack) {
    type("main");
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Office"));
    key(Qt::Key_Delete);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main"));
    field().setSelection(2, 2);
    QTest::keySequence(&combo, QKeySequence::Cut);
    EXPECT_EQ(combo.Text(), QStringLiteral("Ma"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("in"));
}

TEST_F(ComboList, APastedBeginningIsCompletedAndAPastedItemSelected) {
    QApplication::clipboard()->setText(QStringLiteral("zo"));
    QTest::keySequence(&combo, QKeySequence::Paste);
    EXPECT_EQ(combo.Text(), QStringLiteral("Zoo"));
    field().selectAll();
    QApplication::clipboard()->setText(QStringLiteral("MAIN STREET"));
    QTest::keySequence(&combo, QKeySequence::Paste);
    EXPECT_EQ(combo.ListIndex(), 2);
}

TEST_F(ComboList, AStoredTextThatIsTooLongSaysWhatIsKeptAndAnItemIsShownWhole) {
    combo.SetMaxLength(5);
    combo.SetText(QStringLiteral("Somewhere else"));
    EXPECT_EQ(combo.Text(), QStringLiteral("Somewhere else"));
    EXPECT_EQ(notice(), QStringLiteral("Only the first 5 characters are kept."));
    combo.SetText(QStringLiteral("Here"));
    EXPECT_EQ(notice(), QString());
    combo.SetListIndex(1);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Office"));
}

TEST_F(ComboList, ABoxThatIsOffTakesNoKey) {
    combo.SetText(QStringLiteral("Annex"));
    combo.setEnabled(false);
    type("z");
    key(Qt::Key_Down);
    EXPECT_EQ(combo.Text(), QStringLiteral("Annex"));
}

TEST_F(ComboList, AReaderReadsTheRoleAndTheText) {
    combo.SetText(QStringLiteral("Zoo"));
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&combo);
    EXPECT_EQ(access->role(), QAccessible::ComboBox);
    EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("Zoo"));
}

TEST_F(ComboList, AThousandItemsAreCompletedAmong) {
    for (int number = 0; number < 1000; ++number)
        combo.AddItem(QStringLiteral("Room %1").arg(number), 1000 + number);
    type("room 99");
    EXPECT_EQ(combo.Text(), QStringLiteral("Room 99"));
    EXPECT_EQ(combo.ItemData(), 1099);
    type("7");
    EXPECT_EQ(combo.ItemData(), 1997);
}
