#include "platform/controls/completingcombo.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

/// A box with a few places, and a field to go to.
class ComboTest : public testing::Test {
  protected:
    explicit ComboTest(CompletingCombo::Entry entry = CompletingCombo::Entry::Free) : combo(entry) {
        combo.AddItem(QStringLiteral("Annex"), 1);
        combo.AddItem(QStringLiteral("Main Office"), 2);
        combo.AddItem(QStringLiteral("Main Street"), 3);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&combo);
        column->addWidget(&next);
        window.show();
        QApplication::setActiveWindow(&window);
        combo.setFocus();
    }

    void type(const char* text) { QTest::keyClicks(&combo, QString::fromUtf8(text)); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&combo, key, modifiers); }
    void paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        key(Qt::Key_V, Qt::ControlModifier);
    }
    /// From the dropped list.
    void pick(int row) {
        combo.showPopup();
        QTest::keyClick(combo.view(), Qt::Key_Home);
        for (int step = 0; step < row; ++step)
            QTest::keyClick(combo.view(), Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Return);
    }

    QWidget window;
    CompletingCombo combo;
    QLineEdit next;
};

class ListOnlyCombo : public ComboTest {
  protected:
    ListOnlyCombo() : ComboTest(CompletingCombo::Entry::ListOnly) {}
};

}  // namespace

using CompletingComboTest = ComboTest;

TEST_F(CompletingComboTest, BeginsWithNothingChosen) {
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.ItemData(), 0);
}

TEST_F(CompletingComboTest, CompletesWhatIsTypedInAnyCaseAndSelectsTheCompletion) {
    type("mai");
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Office"));
    EXPECT_EQ(combo.lineEdit()->selectedText(), QStringLiteral("n Office"));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.ItemData(), 2);
}

TEST_F(CompletingComboTest, TypingOnReplacesTheCompletion) {
    type("main s");
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Street"));
    EXPECT_EQ(combo.ListIndex(), 2);
}

TEST_F(CompletingComboTest, BackspaceTakesTheCompletionAwayAndDoesNotBringItBack) {
    type("ann");
    key(Qt::Key_Backspace);
    EXPECT_EQ(combo.Text(), QStringLiteral("Ann"));
    key(Qt::Key_Backspace);
    EXPECT_EQ(combo.Text(), QStringLiteral("An"));
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(CompletingComboTest, AnotherTextStaysAsTypedAndIsNoItem) {
    type("Annexe at the river");
    EXPECT_EQ(combo.Text(), QStringLiteral("Annexe at the river"));
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(CompletingComboTest, ATextTypedInTheMiddleIsNotCompleted) {
    combo.SetText(QStringLiteral("in"));
    key(Qt::Key_Home);
    type("Ma");
    EXPECT_EQ(combo.Text(), QStringLiteral("Main"));
    EXPECT_EQ(combo.lineEdit()->cursorPosition(), 2);
}

TEST_F(CompletingComboTest, ForbiddenCharactersAreLeftOutOfWhatIsTypedAndPasted) {
    combo.SetForbidden(QStringLiteral(";|"));
    type("A;|t");
    EXPECT_EQ(combo.Text(), QStringLiteral("At"));
    key(Qt::Key_A, Qt::ControlModifier);
    paste(QStringLiteral("one;two|three"));
    EXPECT_EQ(combo.Text(), QStringLiteral("onetwothree"));
}

TEST_F(CompletingComboTest, APastedLineEndBecomesABlank) {
    paste(QStringLiteral("Second floor\r\nto the left"));
    EXPECT_EQ(combo.Text(), QStringLiteral("Second floor to the left"));
}

TEST_F(CompletingComboTest, NoMoreThanTheLimitCanBeTypedOrPasted) {
    combo.SetMaxLength(5);
    paste(QStringLiteral("Somewhere else"));
    EXPECT_EQ(combo.Text(), QStringLiteral("Somew"));
    type("x");
    EXPECT_EQ(combo.Text(), QStringLiteral("Somew"));
}

TEST_F(CompletingComboTest, ALongerTextThatWasStoredIsShownWhole) {
    combo.SetMaxLength(5);
    combo.SetText(QStringLiteral("Somewhere else"));
    EXPECT_EQ(combo.Text(), QStringLiteral("Somewhere else"));
}

TEST_F(CompletingComboTest, AnItemThatTheProgramSetsIsSelectedInAnyCase) {
    combo.SetText(QStringLiteral("annex"));
    EXPECT_EQ(combo.Text(), QStringLiteral("annex"));
    EXPECT_EQ(combo.ListIndex(), 0);
}

TEST_F(CompletingComboTest, AnItemPickedInTheListIsChosenAtOnce) {
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    pick(2);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Street"));
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 2);
}

TEST_F(CompletingComboTest, AnItemTypedOrSteppedToIsChosenOnLeaving) {
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    type("ann");
    key(Qt::Key_Down);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Office"));
    EXPECT_EQ(chosen.size(), 0);
    next.setFocus(Qt::TabFocusReason);
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen[0][0].toInt(), 1);
}

TEST_F(CompletingComboTest, EnterChoosesWhatWasTyped) {
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    type("ann");
    key(Qt::Key_Return);
    EXPECT_EQ(chosen.size(), 1);
    next.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(chosen.size(), 1) << "Leaving does not choose it once more.";
}

TEST_F(CompletingComboTest, PickingTheSelectedItemAgainChoosesItAgain) {
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    pick(2);
    pick(2);
    EXPECT_EQ(chosen.size(), 2);
}

TEST_F(CompletingComboTest, LeavingWithoutAChangeChoosesNothing) {
    combo.SetText(QStringLiteral("Annex"));
    const QSignalSpy chosen(&combo, &CompletingCombo::Click);
    next.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(CompletingComboTest, EachChangeIsToldOnceWithTextAndItemInAgreement) {
    QStringList told;
    QObject::connect(&combo, &CompletingCombo::Change, &combo,
                     [&] { told << combo.Text() + u'/' + QString::number(combo.ListIndex()); });
    type("a");
    combo.SetText({});
    combo.SetText({});
    combo.SetListIndex(2);
    EXPECT_EQ(told, (QStringList{QStringLiteral("Annex/0"), QStringLiteral("/-1"), QStringLiteral("Main Street/2")}));
}

TEST_F(CompletingComboTest, TheWheelChangesNothing) {
    combo.SetListIndex(0);
    const QPointF middle = combo.rect().center();
    QWheelEvent event(middle, combo.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&combo, &event);
    EXPECT_EQ(combo.ListIndex(), 0);
}

TEST_F(CompletingComboTest, LettersBeyondTheKeyboardAreText) {
    paste(QStringLiteral("Zoë's 🏠 'place'"));
    EXPECT_EQ(combo.Text(), QStringLiteral("Zoë's 🏠 'place'"));
}

TEST_F(ListOnlyCombo, TakesNoKeyThatLeadsToNoItem) {
    type("mx");
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Office"));
    EXPECT_EQ(combo.ListIndex(), 1);
}

TEST_F(ListOnlyCombo, TakesNoPastedTextThatIsNoItem) {
    paste(QStringLiteral("Nowhere"));
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ListOnlyCombo, TheBeginningOfAnItemBecomesTheItemOnLeaving) {
    type("main");
    key(Qt::Key_Backspace);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main"));
    next.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(combo.Text(), QStringLiteral("Main Office"));
    EXPECT_EQ(combo.ListIndex(), 1);
}

TEST_F(ListOnlyCombo, AnEmptiedBoxChoosesNoItem) {
    combo.SetListIndex(0);
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    next.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), QString());
}
