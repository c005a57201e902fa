#include "people/addressedit.h"

#include <gtest/gtest.h>

#include <QTest>

TEST(AddressEdit, StoresItsLinesWithCarriageReturnAndLineFeed) {
    AddressEdit edit(255, 2, nullptr);
    edit.setPlainText("\n 12 Elm St\nApt 4\n\n");
    EXPECT_EQ(edit.StoredText(), "12 Elm St\r\nApt 4");
}

TEST(AddressEdit, TakesNoMoreThanItsColumnWhereALineEndCountsTwice) {
    AddressEdit edit(10, 2, nullptr);
    QTest::keyClicks(&edit, "1234");
    QTest::keyClick(&edit, Qt::Key_Return);
    QTest::keyClicks(&edit, "567890");
    EXPECT_EQ(edit.StoredText(), "1234\r\n5678");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(edit.toPlainText(), "1234\n5678");
}

TEST(AddressEdit, CutsWhatWasInsertedAndKeepsTheEnd) {
    AddressEdit edit(10, 2, nullptr);
    edit.setPlainText("123456789");
    edit.moveCursor(QTextCursor::Start);
    edit.insertPlainText("abc");
    EXPECT_EQ(edit.toPlainText(), "a123456789");
}

TEST(AddressEdit, ATextOfTheProgramLosesItsEnd) {
    AddressEdit edit(4, 2, nullptr);
    edit.setPlainText("123456");
    EXPECT_EQ(edit.toPlainText(), "1234");
}

TEST(AddressEdit, NeverCutsAnEmojiInHalf) {
    AddressEdit edit(4, 2, nullptr);
    edit.insertPlainText(QString::fromUtf8("abc😀"));
    EXPECT_EQ(edit.toPlainText(), "abc");
}

TEST(AddressEdit, TabLeavesTheField) {
    const AddressEdit edit(10, 2, nullptr);
    EXPECT_TRUE(edit.tabChangesFocus());
}

TEST(AddressEdit, StoresControlCharactersAsBlanks) {
    AddressEdit edit(255, 2, nullptr);
    edit.setPlainText("12 Elm\tSt\x01\nApt 4");
    EXPECT_EQ(edit.StoredText(), "12 Elm St \r\nApt 4");
}
