#include "platform/controls/ctmedit.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"

namespace {

const QString Phone = QStringLiteral("(###) ###-####");

class MaskFieldTest : public testing::Test {
  protected:
    MaskFieldTest() {
        Theme::Install(ThemeMode::Light);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&field);
        column->addWidget(&next);
        field.setMask(Phone);
        window.show();
        QApplication::setActiveWindow(&window);
        next.setFocus();
    }

    void type(const char* text) { QTest::keyClicks(&field, QString::fromLatin1(text)); }
    void enter() { field.setFocus(Qt::TabFocusReason); }
    void leave() { next.setFocus(Qt::TabFocusReason); }

    ScriptedDesk desk;
    QWidget window;
    ctMEdit field;
    QLineEdit next;
};

}  // namespace

TEST_F(MaskFieldTest, TheSignsOfTheMaskAppearWhileTyping) {
    enter();
    type("5551");
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 1"));
    type("234567");
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 123-4567"));
    EXPECT_EQ(field.Raw(), QStringLiteral("5551234567"));
    EXPECT_TRUE(field.IsFilled());
}

TEST_F(MaskFieldTest, ANumberTypedWithItsSignsOrPastedIsPutIntoTheForm) {
    enter();
    type("(555) 123-4567");
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 123-4567"));
    field.clear();
    field.insert(QStringLiteral("555.123.4567"));
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 123-4567"));
}

TEST_F(MaskFieldTest, BackspaceTakesTheWholeNumberAway) {
    enter();
    type("5551234567");
    for (int presses = 0; presses < 20; ++presses)
        QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_TRUE(field.Text().isEmpty());
    EXPECT_TRUE(field.IsEmpty());
}

TEST_F(MaskFieldTest, DeleteInFrontOfASignTakesTheDigitBehindIt) {
    field.setText(QStringLiteral("5551234567"));
    enter();
    field.setCursorPosition(4);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 234-567"));
}

TEST_F(MaskFieldTest, ADigitTypedInTheMiddleKeepsTheCursorBehindIt) {
    field.setText(QStringLiteral("555123456"));
    enter();
    field.setCursorPosition(3);
    type("9");
    EXPECT_EQ(field.Text(), QStringLiteral("(559) 512-3456"));
    EXPECT_EQ(field.cursorPosition(), 4);
}

TEST_F(MaskFieldTest, AStoredTextThatDoesNotFitStaysWholeAndIsFlagged) {
    field.setText(QStringLiteral("ask for Ann"));
    EXPECT_EQ(field.Text(), QStringLiteral("ask for Ann"));
    EXPECT_EQ(field.Raw(), QStringLiteral("ask for Ann"));
    EXPECT_FALSE(field.IsFilled());
    EXPECT_FALSE(field.ErrorTip().isEmpty());
}

TEST_F(MaskFieldTest, ADigitTooManyIsKeptAndFlagged) {
    enter();
    type("55512345678");
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 123-45678"));
    EXPECT_FALSE(field.ErrorTip().isEmpty());
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_TRUE(field.ErrorTip().isEmpty());
}

TEST_F(MaskFieldTest, AnIncompleteNumberIsFlaggedOnLeaving) {
    QSignalSpy errors(&field, &ctMEdit::EditError);
    enter();
    type("5551234");
    EXPECT_TRUE(field.ErrorTip().isEmpty());
    leave();
    EXPECT_EQ(errors.count(), 1);
    EXPECT_EQ(field.Raw(), QStringLiteral("5551234"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Description), field.ErrorTip());
}

TEST_F(MaskFieldTest, TheExtensionMayStayEmpty) {
    field.setMask(Phone, QStringLiteral(" #####"));
    field.setText(QStringLiteral("5551234567"));
    EXPECT_TRUE(field.IsFilled());
    field.setText(QStringLiteral("555123456712"));
    EXPECT_EQ(field.Text(), QStringLiteral("(555) 123-4567 12"));
    EXPECT_TRUE(field.IsFilled());
}

TEST_F(MaskFieldTest, AnEmptyMaskTakesAnyText) {
    field.setMask(QString());
    field.setText(QStringLiteral("+44 20 7946 0000"));
    EXPECT_EQ(field.Raw(), QStringLiteral("+44 20 7946 0000"));
    EXPECT_TRUE(field.IsFilled());
    EXPECT_TRUE(field.ErrorTip().isEmpty());
}

TEST_F(MaskFieldTest, AnotherMaskShowsTheNumberAnew) {
    field.setText(QStringLiteral("5551234567"));
    field.setMask(QStringLiteral("###.###.####"));
    EXPECT_EQ(field.Text(), QStringLiteral("555.123.4567"));
}

TEST_F(MaskFieldTest, EachChangeIsToldOnce) {
    QSignalSpy changes(&field, &ctMEdit::Change);
    field.setText(QStringLiteral("5551234567"));
    EXPECT_EQ(changes.count(), 1);
    enter();
    leave();
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(MaskFieldTest, EnteringSelectsTheWholeText) {
    field.setText(QStringLiteral("5551234567"));
    enter();
    EXPECT_EQ(field.selectedText(), field.Text());
    leave();
    QTest::mouseClick(&field, Qt::LeftButton);
    EXPECT_EQ(field.selectedText(), field.Text());
}
