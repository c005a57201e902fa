#include "platform/controls/ctnedit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"

namespace {

class NumberFieldTest : public testing::Test {
  protected:
    NumberFieldTest() {
        Theme::Install(ThemeMode::Light);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&columns);
        column->addWidget(&next);
        columns.setRange(5, 10);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    void typeAndLeave(const char* text) {
        columns.setFocus(Qt::TabFocusReason);
        QTest::keyClicks(&columns, QString::fromLatin1(text));
        next.setFocus(Qt::TabFocusReason);
    }

    ScriptedDesk desk;
    QWidget window;
    ctNEdit columns;
    QLineEdit next;
};

}  // namespace

TEST_F(NumberFieldTest, TheSpinKeepsTheNumberWithinItsRange) {
    columns.setValue(9);
    columns.setFocus();
    for (int press = 0; press < 3; ++press)
        QTest::keyClick(&columns, Qt::Key_Up);
    EXPECT_EQ(columns.Value(), 10);
    for (int press = 0; press < 8; ++press)
        QTest::keyClick(&columns, Qt::Key_Down);
    EXPECT_EQ(columns.Value(), 5);
}

TEST_F(NumberFieldTest, ATypedNumberOutsideTheRangeStaysAndIsFlagged) {
    QSignalSpy errors(&columns, &ctNEdit::EditError);
    typeAndLeave("12");
    EXPECT_EQ(columns.Text(), QStringLiteral("12"));
    EXPECT_FALSE(columns.IsValid());
    EXPECT_EQ(columns.Value(), 0);
    ASSERT_EQ(errors.count(), 1);
    EXPECT_EQ(columns.ErrorTip(), QStringLiteral("Enter a whole number from 5 to 10."));
    typeAndLeave("07");
    EXPECT_EQ(columns.Text(), QStringLiteral("7"));
    EXPECT_EQ(columns.Value(), 7);
    EXPECT_TRUE(columns.ErrorTip().isEmpty());
}

TEST_F(NumberFieldTest, AnEmptyFieldDoesNotStepAndIsNotFlagged) {
    columns.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&columns, Qt::Key_Up);
    next.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(columns.IsEmpty());
    EXPECT_FALSE(columns.IsValid());
    EXPECT_TRUE(columns.ErrorTip().isEmpty());
}

TEST_F(NumberFieldTest, DecimalsAreShownInFull) {
    columns.setRange(0, 500);
    columns.setDecimals(2);
    columns.setStep(0.25);
    typeAndLeave("7.5");
    EXPECT_EQ(columns.Text(), QStringLiteral("7.50"));
    columns.setFocus();
    QTest::keyClick(&columns, Qt::Key_Up);
    EXPECT_EQ(columns.Value(), 7.75);
}

TEST_F(NumberFieldTest, ANarrowerRangeKeepsTheNumberAndFlagsIt) {
    columns.setValue(9);
    columns.setRange(1, 6);
    EXPECT_EQ(columns.Text(), QStringLiteral("9"));
    EXPECT_FALSE(columns.ErrorTip().isEmpty());
}
