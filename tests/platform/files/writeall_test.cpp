#include "platform/files/writeall.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>

#include "tests/support/files.h"
#include "tests/support/fulldisk.h"
#include "tests/support/testdatabase.h"

namespace {

class WrittenFile : public testing::Test {
  protected:
    QTemporaryDir folder{TestFolderTemplate()};
    QString path = folder.filePath(QStringLiteral("file"));
};

}  // namespace

TEST_F(WrittenFile, HasAllTheBytes) {
    for (const int size : {0, 1, 16384, 16385, 200'000}) {
        const QByteArray bytes(size, 'x');
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(files::WriteAll(file, bytes));
        EXPECT_EQ(FileBytes(path), bytes) << "before the file is closed";
    }
}

TEST_F(WrittenFile, OnAFullDiskHasWhatFitsAndSaysWhy) {
    const FullDisk disk(10'000);
    for (const int size : {10'001, 200'000}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_FALSE(files::WriteAll(file, QByteArray(size, 'x')));
        EXPECT_EQ(file.errorString(), "File too large");
        EXPECT_EQ(QFile(path).size(), 10'000);
    }
}

TEST_F(WrittenFile, ThatIsWrittenBesideIsNotMissedByAFullDisk) {
    PutFile(path, "before");
    const FullDisk disk(10'000);
    QSaveFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(files::WriteAll(file, QByteArray(12'000, 'x')));
    file.cancelWriting();
    EXPECT_EQ(FileBytes(path), "before");
}
