#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "platform/controls/ctnedit.h"
#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/tips.h"

namespace {

/// A number from 0 to 99, and another field to go to.
class NumberSpin : public testing::Test {
  protected:
    NumberSpin() {
        Theme::Install(ThemeMode::Light);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&number);
        column->addWidget(&next);
        window.show();
        QApplication::setActiveWindow(&window);
        number.setFocus(Qt::TabFocusReason);
    }

    void type(const char* text) { QTest::keyClicks(&number, QString::fromLatin1(text)); }
    void key(Qt::Key key) { QTest::keyClick(&number, key); }
    void leave() { next.setFocus(Qt::TabFocusReason); }
    void wheel(int notches) {
        const QPointF middle = number.rect().center();
        QWheelEvent event(middle, number.mapToGlobal(middle), {}, QPoint(0, 120 * notches), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&number, &event);
    }
    [[nodiscard]] QString tip() { return TipAt(number, QPoint(5, 5)); }
    [[nodiscard]] QLineEdit& edit() const { return *number.findChild<QLineEdit*>(); }

    ScriptedDesk desk;
    QWidget window;
    ctNEdit number;
    QLineEdit next;
};

}  // namespace

TEST_F(NumberSpin, BeginsEmptyWithWholeNumbersFromNothingToNinetyNine) {
    EXPECT_TRUE(number.IsEmpty());
    EXPECT_EQ(number.Value(), 0);
    EXPECT_EQ(number.Form(), (NumberForm{0, 99, 0}));
    EXPECT_TRUE(number.alignment().testFlag(Qt::AlignRight));
}

TEST_F(NumberSpin, TheEndsOfTheRangeAreTakenAndWhatLiesBeyondIsNot) {
    for (const auto& [typed, valid] : {std::pair("0", true), std::pair("99", true), std::pair("100", false),
                                       std::pair("-1", false), std::pair("4.5", false), std::pair("x", false)}) {
        number.setText(QString::fromLatin1(typed));
        EXPECT_EQ(number.IsValid(), valid) << typed;
        EXPECT_EQ(number.ErrorTip().isEmpty(), valid) << typed;
    }
}

TEST_F(NumberSpin, ANumberThatTheProgramSetsOutsideTheRangeIsShownAndFlagged) {
    number.setValue(120);
    EXPECT_EQ(number.Text(), QStringLiteral("120"));
    EXPECT_EQ(number.ErrorTip(), QStringLiteral("Enter a whole number from 0 to 99."));
    EXPECT_EQ(number.Value(), 0);
    number.setRange(0, 200);
    EXPECT_EQ(number.Value(), 120);
    EXPECT_TRUE(number.ErrorTip().isEmpty());
}

TEST_F(NumberSpin, WithDecimalsTheComplaintAndTheTextHaveThem) {
    number.setDecimals(2);
    number.setValue(7.5);
    EXPECT_EQ(number.Text(), QStringLiteral("7.50"));
    number.setText(QStringLiteral("7.555"));
    EXPECT_EQ(number.ErrorTip(), QStringLiteral("Enter a number from 0.00 to 99.00."));
    number.setText(QStringLiteral("7.5"));
    number.setDecimals(0);
    EXPECT_FALSE(number.IsValid()) << "It is never rounded in silence.";
}

TEST_F(NumberSpin, StepsStopAtTheEndsAndTheButtonsSayIt) {
    number.setStep(30);
    number.setValue(80);
    key(Qt::Key_Up);
    EXPECT_EQ(number.Value(), 99);
    key(Qt::Key_Up);
    EXPECT_EQ(number.Value(), 99);
    for (int press = 0; press < 5; ++press)
        key(Qt::Key_Down);
    EXPECT_EQ(number.Value(), 0);
}

TEST_F(NumberSpin, AStepShowsTheNumberSelectedSoThatTypingReplacesIt) {
    number.setValue(8);
    key(Qt::Key_Up);
    EXPECT_EQ(edit().selectedText(), QStringLiteral("9"));
    type("4");
    EXPECT_EQ(number.Text(), QStringLiteral("4"));
}

TEST_F(NumberSpin, TheWheelStepsTheFocusedFieldAloneAndScrollsTheFormOtherwise) {
    number.setValue(8);
    wheel(1);
    EXPECT_EQ(number.Value(), 9);
    leave();
    wheel(1);
    EXPECT_EQ(number.Value(), 9);
}

TEST_F(NumberSpin, AReadOnlyFieldIsReadAndNotStepped) {
    number.setValue(8);
    number.setReadOnly(true);
    key(Qt::Key_Up);
    wheel(1);
    type("5");
    EXPECT_EQ(number.Text(), QStringLiteral("8"));
    EXPECT_EQ(number.Value(), 8);
}

TEST_F(NumberSpin, AFieldThatIsOffTakesNoKey) {
    number.setValue(8);
    number.setEnabled(false);
    type("5");
    key(Qt::Key_Up);
    EXPECT_EQ(number.Value(), 8);
}

TEST_F(NumberSpin, APastedLineEndIsABlankAndTheNumberIsRead) {
    QApplication::clipboard()->setText(QStringLiteral(" 4\n2 "));
    QTest::keySequence(&number, QKeySequence::Paste);
    EXPECT_FALSE(number.Text().contains(u'\n'));
    EXPECT_FALSE(number.IsValid());
    number.clear();
    QApplication::clipboard()->setText(QStringLiteral("42\n"));
    QTest::keySequence(&number, QKeySequence::Paste);
    EXPECT_EQ(number.Value(), 42);
    leave();
    EXPECT_EQ(number.Text(), QStringLiteral("42"));
}

TEST_F(NumberSpin, UndoBringsTheTypedTextBack) {
    type("42");
    QTest::keySequence(&number, QKeySequence::SelectAll);
    QTest::keyClick(&number, Qt::Key_Delete);
    EXPECT_TRUE(number.IsEmpty());
    QTest::keySequence(&number, QKeySequence::Undo);
    EXPECT_EQ(number.Text(), QStringLiteral("42"));
}

TEST_F(NumberSpin, TheTipIsTheComplaintWhileThereIsOneAndElseTheForms) {
    number.setToolTip(QStringLiteral("Columns on paper"));
    EXPECT_EQ(tip(), QStringLiteral("Columns on paper"));
    number.setText(QStringLiteral("lots"));
    for (int look = 0; look < 2; ++look)
        EXPECT_EQ(tip(), number.ErrorTip());
    EXPECT_EQ(number.accessibleDescription(), number.ErrorTip());
}

TEST_F(NumberSpin, EachChangeIsToldAndLeavingAnUnchangedNumberIsNone) {
    const QSignalSpy told(&number, &ctNEdit::Change);
    type("07");
    EXPECT_EQ(told.count(), 2);
    leave();
    EXPECT_EQ(told.count(), 3) << "It is 7 now.";
    number.setFocus(Qt::TabFocusReason);
    leave();
    EXPECT_EQ(told.count(), 3);
}

TEST_F(NumberSpin, EnterWritesTheNumberInItsFormOrFlagsIt) {
    const QSignalSpy errors(&number, &ctNEdit::EditError);
    type("007");
    key(Qt::Key_Return);
    EXPECT_EQ(number.Text(), QStringLiteral("7"));
    number.clear();
    type("x");
    key(Qt::Key_Enter);
    EXPECT_EQ(errors.count(), 1);
    EXPECT_EQ(number.Text(), QStringLiteral("x"));
}

TEST_F(NumberSpin, TheWidestNumberHasRoom) {
    const int narrow = number.sizeHint().width();
    number.setRange(-100000, 5);
    EXPECT_GE(number.sizeHint().width(), narrow + number.fontMetrics().horizontalAdvance(QStringLiteral("-1000")));
    EXPECT_EQ(number.minimumSizeHint(), number.sizeHint());
}

TEST_F(NumberSpin, AReaderMeetsASpinBoxWithItsValue) {
    number.setValue(8);
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&number);
    EXPECT_EQ(access->role(), QAccessible::SpinBox);
    EXPECT_EQ(access->text(QAccessible::Value), QStringLiteral("8"));
}

TEST(NumberForms, AreEqualWhereNothingDiffers) {
    EXPECT_EQ((NumberForm{1, 2, 3}), (NumberForm{1, 2, 3}));
    EXPECT_NE((NumberForm{1, 2, 3}), (NumberForm{1, 2, 4}));
}

TEST(NumberForms, NumbersThatAreNoneAreRefused) {
    for (const char* typed : {"", " ", "inf", "nan", "1e999", "--1", "1 2", "0x10"})
        EXPECT_EQ(ReadNumber(QString::fromLatin1(typed), {-1e9, 1e9, 2}), std::nullopt) << typed;
    EXPECT_EQ(ReadNumber(QStringLiteral(" 12.50 "), {0, 99, 2}), 12.5);
    EXPECT_EQ(ReadNumber(QStringLiteral("-0.5"), {-1, 1, 1}), -0.5);
    EXPECT_EQ(NumberFieldText(-0.5, {-1, 1, 1}), QStringLiteral("-0.5"));
    EXPECT_EQ(NumberFieldText(12345.678, {0, 99999, 2}), QStringLiteral("12345.68"));
}
