#include "platform/controls/textfield.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"

namespace {

class TextFieldTest : public testing::Test {
  protected:
    TextFieldTest() {
        column.addWidget(&field);
        column.addWidget(&next);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field.setFocus();
    }
    void paste(const QString& text, QWidget& into) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&into, Qt::Key_V, Qt::ControlModifier);
    }
    void paste(const QString& text) { paste(text, field); }

    QWidget window;
    QVBoxLayout column{&window};
    TextField field;
    TextField next;
};

}  // namespace

TEST_F(TextFieldTest, LineBreaksTabsAndControlCharactersOfAPastedTextBecomeBlanks) {
    paste(QStringLiteral("Doe,\r\nJohn\tA\x1b."));
    EXPECT_EQ(field.text(), "Doe, John A .");
    field.setText(QStringLiteral("set\nby the program"));
    EXPECT_EQ(field.text(), "set by the program");
}

TEST_F(TextFieldTest, SaysHowManyCharactersOfAPastedTextWereKept) {
    field.SetMost(10);
    paste(QStringLiteral("0123456789 and more"));
    EXPECT_EQ(field.text(), "0123456789");
    EXPECT_EQ(field.Notice(), "Kept 10 characters; more does not fit here.");
    const auto* line = window.findChild<QLabel*>(QStringLiteral("lblkept"));
    ASSERT_NE(line, nullptr);
    EXPECT_TRUE(line->isVisible());
    EXPECT_GE(line->y(), field.geometry().bottom());
}

TEST_F(TextFieldTest, TheLineGoesWithTheNextChangeAndWhenTheFieldIsLeft) {
    field.SetMost(3);
    QTest::keyClicks(&field, "abcd");
    EXPECT_EQ(field.text(), "abc");
    EXPECT_FALSE(field.Notice().isEmpty());
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.Notice(), "");
    QTest::keyClicks(&field, "de");
    EXPECT_FALSE(field.Notice().isEmpty());
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_EQ(field.Notice(), "");
    EXPECT_EQ(window.findChild<QLabel*>(QStringLiteral("lblkept")), nullptr);
}

TEST_F(TextFieldTest, WhatDoesNotFitIsLeftOutWhereItWasPastedAndTheEndStays) {
    field.SetMost(8);
    field.setText(QStringLiteral("headtail"));
    field.setCursorPosition(4);
    paste(QStringLiteral("middle"));
    EXPECT_EQ(field.text(), "headtail");
    EXPECT_EQ(field.cursorPosition(), 4);
    field.setText(QStringLiteral("hetail"));
    field.setCursorPosition(2);
    paste(QStringLiteral("adXX"));
    EXPECT_EQ(field.text(), "headtail");
}

TEST_F(TextFieldTest, ACharacterOfTwoUnitsIsKeptWholeOrNotAtAll) {
    field.SetMost(4);
    paste(QString::fromUtf8("abc😀"));
    EXPECT_EQ(field.text(), "abc");
}

TEST_F(TextFieldTest, AStoredTextThatIsLongerIsShownWholeAndTheLineTellsHowMuchIsKept) {
    field.SetMost(4);
    field.ShowWhole(QStringLiteral("longer"));
    EXPECT_EQ(field.text(), "longer");
    EXPECT_EQ(field.Notice(), "Only the first 4 characters are kept.");
    EXPECT_EQ(field.Stored(), "long");
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.text(), "longe");
}

TEST_F(TextFieldTest, LeavesOutWhatItDoesNotTake) {
    field.setText(QStringLiteral("a;b"));
    field.SetAccepts([](QChar c) { return c != u';'; });
    EXPECT_EQ(field.text(), "a;b");
    QTest::keyClicks(&field, "c;d");
    EXPECT_EQ(field.text(), "abcd");
}

TEST_F(TextFieldTest, ATelephoneFieldKeepsNoLineBreak) {
    auto* phone = new ctMEdit(&window);
    column.addWidget(phone);
    phone->show();
    phone->setFocus();
    phone->setText(QStringLiteral("555\r\n123\t4567 ask\nfor Ann"));
    EXPECT_EQ(phone->text(), "555 123 4567 ask for Ann");
}

TEST_F(TextFieldTest, AListToTypeInSaysWhatItKept) {
    auto* combo = new CompletingCombo(CompletingCombo::Entry::Free, &window);
    combo->SetMaxLength(5);
    column.addWidget(combo);
    combo->setVisible(true);
    combo->setFocus();
    paste(QStringLiteral("Somewhere"), *combo);
    EXPECT_EQ(combo->Text(), "Somew");
    EXPECT_EQ(static_cast<TextField*>(combo->lineEdit())->Notice(), "Kept 5 characters; more does not fit here.");
    QTest::keyClick(combo, Qt::Key_Tab);
    EXPECT_EQ(static_cast<TextField*>(combo->lineEdit())->Notice(), "");
    combo->AddItem(QStringLiteral("Two\nlines"));
    EXPECT_EQ(combo->itemText(0), "Two lines");
}

TEST_F(TextFieldTest, ADateFieldMakesBlanksOfLineBreaks) {
    auto* date = new ctDEdit(ctDEdit::Kind::Date, &window);
    column.addWidget(date);
    date->show();
    date->setFocus();
    paste(QStringLiteral("no\ndate\t"), *date);
    EXPECT_EQ(date->Text(), "no date ");
}
