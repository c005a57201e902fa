#include "platform/spelling/personalwords.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include "tests/support/files.h"

namespace {

class PersonalWords : public testing::Test {
  protected:
    QTemporaryDir folder;
    QString file = folder.filePath(QStringLiteral("Custom.dct"));
};

}  // namespace

TEST_F(PersonalWords, AreKeptOneALineAndReadBack) {
    EXPECT_EQ(ReadPersonalWords(file), QStringList());
    EXPECT_TRUE(AppendPersonalWord(file, QStringLiteral("gabapentin")));
    EXPECT_TRUE(AppendPersonalWord(file, QStringLiteral("Gr\u00fcn")));
    EXPECT_EQ(FileBytes(file), QByteArray("gabapentin\nGr\xc3\xbcn\n"));
    EXPECT_EQ(ReadPersonalWords(file), (QStringList{QStringLiteral("gabapentin"), QStringLiteral("Gr\u00fcn")}));
}

TEST_F(PersonalWords, AreForTheirOwnerAlone) {
    file = folder.filePath(QStringLiteral("new folder/Custom.dct"));
    ASSERT_TRUE(AppendPersonalWord(file, QStringLiteral("gabapentin")));
    struct stat facts {};
    ASSERT_EQ(stat(QFile::encodeName(file).constData(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, S_IRUSR | S_IWUSR);
}

TEST_F(PersonalWords, AListWithoutItsLastLineEndKeepsThatWord) {
    PutFile(file, "gabapentin\r\nlithium");
    ASSERT_TRUE(AppendPersonalWord(file, QStringLiteral("sertraline")));
    EXPECT_EQ(FileBytes(file), QByteArray("gabapentin\r\nlithium\nsertraline\n"));
    EXPECT_EQ(ReadPersonalWords(file).size(), 3);
}

TEST_F(PersonalWords, AListInTheOldCodePageIsRead) {
    PutFile(file, "Gr\xfcn\r\nplain\r\n");
    EXPECT_EQ(ReadPersonalWords(file), (QStringList{QStringLiteral("Gr\u00fcn"), QStringLiteral("plain")}));
}

TEST_F(PersonalWords, WhatIsNoWordIsPassedOver) {
    QByteArray bytes("\n\n  two words\nword/flags\n\x01\x02\0\xff\n", 29);
    bytes += QByteArray(5'000'000, 'x') + "\ngood\n";
    PutFile(file, bytes);
    const QStringList words = ReadPersonalWords(file);
    EXPECT_TRUE(words.contains(QStringLiteral("good")));
    for (const QString& word : words)
        EXPECT_TRUE(word == QLatin1String("good") || word.startsWith(QLatin1Char('x'))) << word.toStdString();
}

TEST_F(PersonalWords, DesksThatAddAtTheSameTimeLoseNoWord) {
    constexpr int Desks = 4, Words = 200;
    PutFile(file, "unended");
    std::vector<pid_t> desks;
    for (int desk = 0; desk < Desks; ++desk) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            bool isAdded = true;
            for (int word = 0; word < Words; ++word)
                isAdded = AppendPersonalWord(file, QStringLiteral("desk%1word%2").arg(desk).arg(word)) && isAdded;
            _exit(isAdded ? 0 : 1);
        }
        desks.push_back(child);
    }
    for (const pid_t desk : desks) {
        int status = -1;
        waitpid(desk, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const QStringList words = ReadPersonalWords(file);
    EXPECT_EQ(words.size(), Desks * Words + 1);
    EXPECT_EQ(words.first(), QStringLiteral("unended"));
    EXPECT_EQ(QSet<QString>(words.begin(), words.end()).size(), words.size());
}

TEST_F(PersonalWords, AFileThatCannotBeWrittenIsAFailure) {
    PutFile(file, "a file");
    EXPECT_FALSE(AppendPersonalWord(file + QStringLiteral("/Custom.dct"), QStringLiteral("word")));
    EXPECT_FALSE(AppendPersonalWord(folder.path(), QStringLiteral("word")));
}
