#include "output/calendarfile.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include "tests/support/files.h"
#include "tests/support/fulldisk.h"
#include "tests/support/testdatabase.h"

namespace {

const QByteArray Large(200'000, 'x');

class CalendarFile : public testing::Test {
  protected:
    [[nodiscard]] QString path(const char* name = "march.ics") const {
        return folder.filePath(QString::fromLatin1(name));
    }
    /// What is said of the failure; a success fails the test.
    static QString failure(void (*write)(const QString&, const QByteArray&), const QString& path,
                           const QByteArray& bytes = "new") {
        try {
            write(path, bytes);
        } catch (const FileError& error) {
            EXPECT_FALSE(error.description().isEmpty());
            return error.description();
        }
        ADD_FAILURE() << path.toStdString() << " was written.";
        return {};
    }
    [[nodiscard]] QStringList names() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder{TestFolderTemplate()};
};

}  // namespace

TEST_F(CalendarFile, IsWrittenAndReplaced) {
    for (const auto write : {WriteAnew, WriteWhole}) {
        write(path(), "first, and longer");
        EXPECT_EQ(FileBytes(path()), "first, and longer");
        write(path(), "second");
        EXPECT_EQ(FileBytes(path()), "second");
        EXPECT_EQ(names(), QStringList{"march.ics"});
        QFile::remove(path());
    }
}

TEST_F(CalendarFile, ANewOneIsReadByItsOwnerAlone) {
    for (const auto write : {WriteAnew, WriteWhole}) {
        write(path(), "names");
        EXPECT_EQ(QFileInfo(path()).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther),
                  QFileDevice::Permissions());
        QFile::remove(path());
    }
}

TEST_F(CalendarFile, InAFolderThatAGroupSharesItIsTheGroupsToo) {
    const auto group = QFileDevice::ReadGroup | QFileDevice::WriteGroup;
    QFile::setPermissions(folder.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner |
                                             group | QFileDevice::ExeGroup);
    for (const auto write : {WriteAnew, WriteWhole}) {
        write(path(), "names");
        EXPECT_EQ(QFileInfo(path()).permissions() & (group | QFileDevice::ReadOther), group);
        QFile::remove(path());
    }
}

TEST_F(CalendarFile, AFolderThatIsNotThereIsTold) {
    EXPECT_TRUE(failure(WriteAnew, path("gone/march.ics")).contains("No such file"));
    EXPECT_TRUE(failure(WriteWhole, path("gone/march.ics")).contains("No such file"));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(CalendarFile, AFolderInTheFilesPlaceIsToldAndStays) {
    QDir(folder.path()).mkdir("march.ics");
    (void)failure(WriteAnew, path());
    (void)failure(WriteWhole, path());
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

// The system's own folder is closed even to the administrator.
TEST_F(CalendarFile, AFolderThatCannotBeWrittenToIsTold) {
    (void)failure(WriteAnew, "/proc/march.ics");
    (void)failure(WriteWhole, "/proc/march.ics");
}

TEST_F(CalendarFile, OnAFullDiskTheFixedFormKeepsWhatCouldBeWritten) {
    PutFile(path(), "before");
    const FullDisk disk(100'000);
    (void)failure(WriteAnew, path(), Large);
    EXPECT_EQ(QFileInfo(path()).size(), 100'000);
}

TEST_F(CalendarFile, OnAFullDiskTheStandardFileStaysAsItWas) {
    PutFile(path(), "before");
    const FullDisk disk(100'000);
    (void)failure(WriteWhole, path(), Large);
    EXPECT_EQ(FileBytes(path()), "before");
    EXPECT_EQ(names(), QStringList{"march.ics"});
}

TEST_F(CalendarFile, ADeviceThatIsFullIsToldAndStaysADevice) {
    ASSERT_FALSE(QFileInfo("/dev/full").isFile());
    for (const auto write : {WriteAnew, WriteWhole}) {
        EXPECT_TRUE(failure(write, "/dev/full").contains("No space left"));
        EXPECT_TRUE(QFileInfo::exists("/dev/full"));
        EXPECT_FALSE(QFileInfo("/dev/full").isFile());
    }
}

TEST_F(CalendarFile, AFileThatIsOpenElsewhereIsReplacedThere) {
    for (const auto write : {WriteAnew, WriteWhole}) {
        PutFile(path(), "before");
        QFile reader(path());
        ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
        write(path(), "new");
        EXPECT_EQ(FileBytes(path()), "new");
        EXPECT_EQ(reader.readAll(), "before") << "Whoever reads the old one reads it whole.";
    }
}
