#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "platform/desktop/inifile.h"
#include "platform/desktop/localefacts.h"
#include "platform/desktop/userstore.h"
#include "tests/support/files.h"

namespace {

/// An ini file as people and other programs leave it.
class OddIniFile : public testing::Test {
  protected:
    void put(const QByteArray& bytes) const { PutFile(path, bytes); }
    [[nodiscard]] QByteArray bytes() const { return FileBytes(path); }
    [[nodiscard]] QString read(const char* section, const char* key) const {
        return ReadIniValue(path, QString::fromUtf8(section), QString::fromUtf8(key));
    }
    void write(const char* section, const char* key, const char* value) const {
        ASSERT_TRUE(WriteIniValue(path, QString::fromUtf8(section), QString::fromUtf8(key), QString::fromUtf8(value)));
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("odd.ini"));
};

}  // namespace

TEST_F(OddIniFile, AKeyBeforeAnySectionBelongsToNone) {
    put("Key=lost\n[A]\nKey=found\n");
    EXPECT_EQ(read("A", "Key"), QStringLiteral("found"));
    EXPECT_EQ(read("", "Key"), QString());
}

TEST_F(OddIniFile, TheFirstLineWithTheKeyCounts) {
    put("[A]\nKey=one\nKey=two\n");
    EXPECT_EQ(read("A", "Key"), QStringLiteral("one"));
    write("A", "Key", "three");
    EXPECT_EQ(bytes(), "[A]\nKey=three\nKey=two\n");
}

TEST_F(OddIniFile, ASectionThatStandsTwiceIsReadAsOne) {
    put("[A]\nOne=1\n[B]\nX=x\n[a]\nTwo=2\n");
    EXPECT_EQ(read("A", "One"), QStringLiteral("1"));
    EXPECT_EQ(read("A", "Two"), QStringLiteral("2"));
}

TEST_F(OddIniFile, BlanksAroundNamesAndValuesAreNoneOfThem) {
    put("  [ A ]  \n\t Key \t=\t value with blanks \t\n");
    EXPECT_EQ(read("A", "Key"), QStringLiteral("value with blanks"));
}

TEST_F(OddIniFile, AValueMayHoldEverySignThatStructuresTheFile) {
    put("[A]\nKey=a=b;c[d]#e\n");
    EXPECT_EQ(read("A", "Key"), QStringLiteral("a=b;c[d]#e"));
    write("A", "Key", "x=[y];z");
    EXPECT_EQ(read("A", "Key"), QStringLiteral("x=[y];z"));
}

TEST_F(OddIniFile, ASectionLineThatIsNotClosedOpensNone) {
    put("[A]\nOne=1\n[B\nTwo=2\n");
    EXPECT_EQ(read("B", "Two"), QString());
    EXPECT_EQ(read("A", "Two"), QStringLiteral("2"));
}

TEST_F(OddIniFile, OneQuoteOrTwoDifferentOnesBelongToTheValue) {
    put("[A]\nOne=\"\nTwo=\"x'\nThree='x'\nFour=\"\"\nFive=\"\"x\"\"\n");
    EXPECT_EQ(read("A", "One"), QStringLiteral("\""));
    EXPECT_EQ(read("A", "Two"), QStringLiteral("\"x'"));
    EXPECT_EQ(read("A", "Three"), QStringLiteral("x"));
    EXPECT_EQ(read("A", "Four"), QString());
    EXPECT_EQ(read("A", "Five"), QStringLiteral("\"x\""));
}

TEST_F(OddIniFile, AnEmptyFileAndOneOfLineEndsHoldNothingAndTakeAKey) {
    for (const char* content : {"", "\n", "\r\n\r\n"}) {
        put(content);
        EXPECT_EQ(read("A", "Key"), QString());
        write("A", "Key", "1");
        EXPECT_EQ(read("A", "Key"), QStringLiteral("1"));
        EXPECT_TRUE(bytes().contains("[A]"));
    }
}

TEST_F(OddIniFile, AFileWithoutALineEndAtItsEndGetsOneBeforeTheNewKey) {
    put("[A]\nOne=1");
    write("A", "Two", "2");
    EXPECT_EQ(bytes(), "[A]\nOne=1\nTwo=2\n");
    put("[A]\r\nOne=1");
    write("B", "Two", "2");
    EXPECT_EQ(bytes(), "[A]\r\nOne=1\r\n[B]\r\nTwo=2\r\n");
}

TEST_F(OddIniFile, EmptyLinesAtTheEndOfASectionStayBehindANewKey) {
    put("[A]\nOne=1\n\n\n[B]\nX=x\n");
    write("A", "Two", "2");
    EXPECT_EQ(bytes(), "[A]\nOne=1\nTwo=2\n\n\n[B]\nX=x\n");
}

TEST_F(OddIniFile, ACommentStaysWhereItIsWhenItsKeyIsWritten) {
    put("; first\n[A]\n;Key=off\nKey = on\n; last\n");
    write("A", "key", "changed");
    EXPECT_EQ(bytes(), "; first\n[A]\n;Key=off\nKey = changed\n; last\n");
}

TEST_F(OddIniFile, WritingTheSameTwiceChangesTheFileOnce) {
    put("[A]\nKey=old\n");
    write("A", "Key", "new");
    const QByteArray once = bytes();
    write("A", "Key", "new");
    EXPECT_EQ(bytes(), once);
}

TEST_F(OddIniFile, AnEmptyValueIsWrittenAndRead) {
    put("[A]\nKey=something\n");
    write("A", "Key", "");
    EXPECT_EQ(bytes(), "[A]\nKey=\n");
    EXPECT_EQ(read("A", "Key"), QString());
}

TEST_F(OddIniFile, ANulIsLeftOutOfAValue) {
    ASSERT_TRUE(WriteIniValue(path, QStringLiteral("A"), QStringLiteral("Key"),
                              QStringLiteral("a") + QChar(0) + QStringLiteral("b")));
    EXPECT_EQ(read("A", "Key"), QStringLiteral("ab"));
}

TEST_F(OddIniFile, AFileOfTenThousandLinesIsReadToItsEnd) {
    QByteArray lines = "[A]\n";
    for (int line = 0; line < 10000; ++line)
        lines += "Key" + QByteArray::number(line) + "=" + QByteArray::number(line) + "\n";
    put(lines);
    EXPECT_EQ(read("A", "Key9999"), QStringLiteral("9999"));
    write("A", "Key5000", "changed");
    EXPECT_EQ(read("A", "Key4999"), QStringLiteral("4999"));
    EXPECT_EQ(read("A", "Key5000"), QStringLiteral("changed"));
    EXPECT_EQ(bytes().count('\n'), 10001);
}

TEST_F(OddIniFile, BytesThatAreNoTextAreReadAsLatin1AndSurviveAWrite) {
    put(QByteArray("[A]\nName=M\xFCller\nOther=1\n"));
    EXPECT_EQ(read("A", "Name"), QStringLiteral("Müller"));
    write("A", "Other", "2");
    EXPECT_EQ(bytes(), QByteArray("[A]\nName=M\xFCller\nOther=2\n"));
}

TEST_F(OddIniFile, AMarkAloneIsAnEmptyFile) {
    put("\xEF\xBB\xBF");
    EXPECT_EQ(read("A", "Key"), QString());
    write("A", "Key", "ü");
    EXPECT_TRUE(bytes().startsWith("\xEF\xBB\xBF[A]"));
    EXPECT_EQ(read("A", "Key"), QStringLiteral("ü"));
}

TEST(UserStoreFiles, StandInTheUsersConfigurationUntilAnotherIsChosen) {
    const QString before = UserStoreFile();
    SetUserStoreFile({});
    EXPECT_TRUE(UserStoreFile().endsWith(QStringLiteral("/Solvane/svwschd.ini")));
    SetUserStoreFile(before);
    EXPECT_EQ(UserStoreFile(), before);
}

TEST(UserStoreFiles, ANewFolderIsMadeAndASettingOverwritten) {
    const QTemporaryDir folder;
    const QString before = UserStoreFile();
    SetUserStoreFile(folder.filePath(QStringLiteral("deep/er/store.ini")));
    EXPECT_EQ(ReadUserSetting(QStringLiteral("Left")), QString());
    for (const char* value : {"10", "-3", ""}) {
        WriteUserSetting(QStringLiteral("Left"), QLatin1String(value));
        EXPECT_EQ(ReadUserSetting(QStringLiteral("Left")), QLatin1String(value));
    }
    EXPECT_TRUE(FileBytes(UserStoreFile()).startsWith("[svwschd]"));
    SetUserStoreFile(before);
}

TEST(LocaleDates, AnInvalidDateHasNoText) {
    EXPECT_EQ(LongDateText({}), QString());
    EXPECT_EQ(ShortDateText({}), QString());
}

TEST(LocaleDates, TheYearOfAShortDateAlwaysHasFourDigits) {
    const QLocale before;
    for (const char* name : {"en_US", "en_GB", "de_DE", "sv_SE", "fr_FR", "ja_JP", "C"}) {
        QLocale::setDefault(QLocale(QLatin1String(name)));
        EXPECT_TRUE(ShortDateText(QDate(2026, 3, 11)).contains(QStringLiteral("2026"))) << name;
    }
    QLocale::setDefault(before);
}
