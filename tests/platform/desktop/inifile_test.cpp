#include "platform/desktop/inifile.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "tests/support/files.h"
#include "tests/support/fulldisk.h"

namespace {

class IniFile : public testing::Test {
  protected:
    [[nodiscard]] QString read(const char* section, const char* key) const {
        return ReadIniValue(path, QString::fromLatin1(section), QString::fromLatin1(key));
    }
    [[nodiscard]] bool write(const char* section, const char* key, const QString& value) const {
        return WriteIniValue(path, QString::fromLatin1(section), QString::fromLatin1(key), value);
    }

    QTemporaryDir folder;
    QString path = folder.filePath("solvane.ini");
};

QByteArray utf16(const QString& text, bool little) {
    QByteArray bytes(little ? "\xFF\xFE" : "\xFE\xFF");
    for (const QChar c : text) {
        const char low = static_cast<char>(c.unicode() & 0xFF);
        const char high = static_cast<char>(c.unicode() >> 8);
        bytes += little ? low : high;
        bytes += little ? high : low;
    }
    return bytes;
}

}  // namespace

TEST_F(IniFile, AKeyIsFoundWhateverTheCaseOfItsName) {
    PutFile(path, "[SQLServer]\r\nDataSource=frontdesk\r\n");

    EXPECT_EQ(read("sqlserver", "DATASOURCE"), "frontdesk");
}

TEST_F(IniFile, TheSameKeyInAnotherSectionIsAnotherKey) {
    PutFile(path, "[One]\nUID=a\n[USER]\nUID=b\n");

    EXPECT_EQ(read("USER", "UID"), "b");
}

TEST_F(IniFile, AMissingFileSectionOrKeyReadsAsNothing) {
    EXPECT_EQ(read("USER", "UID"), "");
    PutFile(path, "[USER]\nPassword=x\n");
    EXPECT_EQ(read("USER", "UID"), "");
    EXPECT_EQ(read("SQLServer", "Password"), "");
}

TEST_F(IniFile, AFolderInThePlaceOfTheFileReadsAsNothing) {
    EXPECT_EQ(ReadIniValue(folder.path(), "USER", "UID"), "");
}

TEST_F(IniFile, ABrokenLineReadsAsNothingAndTheOthersStillCount) {
    PutFile(path, "[USER\nstray text\n=no name\n[SQLServer]\nDataSource\nInitialCatalog=practice\n");

    EXPECT_EQ(read("SQLServer", "DataSource"), "");
    EXPECT_EQ(read("SQLServer", "InitialCatalog"), "practice");
    EXPECT_EQ(read("USER", "UID"), "");
}

TEST_F(IniFile, ACommentedKeyDoesNotCount) {
    PutFile(path, "[USER]\n;UID=old\n ; UID=older\nUID=new\n");

    EXPECT_EQ(read("USER", "UID"), "new");
}

TEST_F(IniFile, BlanksAndOnePairOfQuotesAreTakenOff) {
    PutFile(path, "[ General ]\n  Notice =  24 hours  \nA=\" kept \"\nB='it'\nC=\"open\nD=a=b;c\n");

    EXPECT_EQ(read("General", "Notice"), "24 hours");
    EXPECT_EQ(read("General", "A"), " kept ");
    EXPECT_EQ(read("General", "B"), "it");
    EXPECT_EQ(read("General", "C"), "\"open");
    EXPECT_EQ(read("General", "D"), "a=b;c");
}

TEST_F(IniFile, ALongValueIsCutTo500Characters) {
    PutFile(path, "[General]\nNotice=" + QByteArray(700, 'x') + "\n");

    EXPECT_EQ(read("General", "Notice").size(), 500);
}

TEST_F(IniFile, EveryEncodingReadsTheSame) {
    const QString text = QStringLiteral("[USER]\r\nUID=Zo\u00eb\r\n");
    for (const QByteArray& bytes :
         {text.toUtf8(), "\xEF\xBB\xBF" + text.toUtf8(), utf16(text, true), utf16(text, false), text.toLatin1()}) {
        PutFile(path, bytes);
        EXPECT_EQ(read("USER", "UID"), QStringLiteral("Zo\u00eb")) << bytes.toHex().toStdString();
    }
}

TEST_F(IniFile, WritingKeepsTheEncoding) {
    const QString before = QStringLiteral("[USER]\r\nUID=Zo\u00eb\r\n");
    const QString after = QStringLiteral("[USER]\r\nUID=Ren\u00e9\r\n");
    const QString value = QStringLiteral("Ren\u00e9");

    PutFile(path, before.toUtf8());
    ASSERT_TRUE(write("USER", "UID", value));
    EXPECT_EQ(FileBytes(path), after.toUtf8());

    PutFile(path, "\xEF\xBB\xBF" + before.toUtf8());
    ASSERT_TRUE(write("USER", "UID", value));
    EXPECT_EQ(FileBytes(path), "\xEF\xBB\xBF" + after.toUtf8());

    PutFile(path, before.toLatin1());
    ASSERT_TRUE(write("USER", "UID", value));
    EXPECT_EQ(FileBytes(path), after.toLatin1());

    for (const bool little : {true, false}) {
        PutFile(path, utf16(before, little));
        ASSERT_TRUE(write("USER", "UID", value));
        EXPECT_EQ(FileBytes(path), utf16(after, little));
    }
}

TEST_F(IniFile, ALatin1FileThatCannotHoldTheValueBecomesUtf8AndLosesNothing) {
    PutFile(path, QStringLiteral("[USER]\nName=Zo\u00eb\n").toLatin1());

    ASSERT_TRUE(write("USER", "UID", QStringLiteral("\u0141ukasz")));

    EXPECT_EQ(read("USER", "UID"), QStringLiteral("\u0141ukasz"));
    EXPECT_EQ(read("USER", "Name"), QStringLiteral("Zo\u00eb"));
}

TEST_F(IniFile, WritingLeavesEveryOtherLineAsItWas) {
    PutFile(path, "; the practice\r\n[SQLServer]\r\n DataSource = old ; note\r\nstray\r\n\r\n[USER]\r\nUID=anna\r\n");

    ASSERT_TRUE(write("sqlserver", "datasource", "new"));

    EXPECT_EQ(FileBytes(path),
              "; the practice\r\n[SQLServer]\r\n DataSource = new\r\nstray\r\n\r\n[USER]\r\nUID=anna\r\n");
}

TEST_F(IniFile, ANewKeyGoesBehindTheLastOfItsSection) {
    PutFile(path, "[PrintLayout]\nTitleAlign=1\n\n[General]\nNotice=x");

    ASSERT_TRUE(write("PrintLayout", "TitleFontBold", "False"));
    ASSERT_TRUE(write("General", "Other", "y"));

    EXPECT_EQ(FileBytes(path), "[PrintLayout]\nTitleAlign=1\nTitleFontBold=False\n\n[General]\nNotice=x\nOther=y\n");
}

TEST_F(IniFile, ANewSectionGoesToTheEnd) {
    PutFile(path, "[SQLServer]\r\nDataSource=a");

    ASSERT_TRUE(write("USER", "UID", "anna"));

    EXPECT_EQ(FileBytes(path), "[SQLServer]\r\nDataSource=a\r\n[USER]\r\nUID=anna\r\n");
}

TEST_F(IniFile, WritingMakesAMissingFile) {
    ASSERT_TRUE(write("USER", "UID", "anna"));

    EXPECT_EQ(FileBytes(path), "[USER]\nUID=anna\n");
}

TEST_F(IniFile, AFileThatCannotBeWrittenSaysSoAndStaysAsItWas) {
    EXPECT_FALSE(WriteIniValue(folder.filePath("nowhere/solvane.ini"), "USER", "UID", "anna"));
    EXPECT_FALSE(WriteIniValue(folder.path(), "USER", "UID", "anna"));
}

TEST_F(IniFile, AFullDiskLeavesItAsItWas) {
    PutFile(path, "[USER]\nUID=anna\n");
    const FullDisk disk(100);
    EXPECT_FALSE(write("USER", "UID", QStringLiteral("x").repeated(400)));
    EXPECT_EQ(FileBytes(path), "[USER]\nUID=anna\n");
}

TEST_F(IniFile, WhatIsWrittenReadsBackCharacterForCharacter) {
    for (const QString& value : {QStringLiteral(" blanks around "), QStringLiteral("\"quoted\""), QStringLiteral("'q'"),
                                 QStringLiteral("a=b;[c]"), QStringLiteral("\x1a\x7f~"), QStringLiteral("")}) {
        ASSERT_TRUE(write("USER", "Password", value));
        EXPECT_EQ(read("USER", "Password"), value);
    }
}

TEST_F(IniFile, ALineBreakInAValueCannotMakeAnotherKey) {
    ASSERT_TRUE(write("USER", "UID", "anna\r\nPassword=x"));

    EXPECT_EQ(read("USER", "UID"), "anna Password=x");
    EXPECT_EQ(read("USER", "Password"), "");
}
