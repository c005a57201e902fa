#include "platform/files/ownfile.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include "tests/support/files.h"

using files::OwnFile;

namespace {

/// A folder beside the test program, which stands for the program here.
class OwnFiles : public testing::Test {
  protected:
    [[nodiscard]] QString named(const QString& file) const {
        return QDir(QCoreApplication::applicationDirPath()).relativeFilePath(folder.filePath(file));
    }
    [[nodiscard]] QString path(const QString& file) const { return folder.filePath(file); }

    QTemporaryDir folder{QCoreApplication::applicationDirPath() + QStringLiteral("/ownfiles-XXXXXX")};
};

}  // namespace

TEST_F(OwnFiles, AreTakenFromBesideTheProgramThatWasBuilt) {
    PutFile(path(QStringLiteral("built.so")), "new");
    PutFile(path(QStringLiteral("packaged.so")), "old");
    EXPECT_EQ(OwnFile(named(QStringLiteral("built.so")), named(QStringLiteral("packaged.so"))),
              QCoreApplication::applicationDirPath() + QLatin1Char('/') + named(QStringLiteral("built.so")));
}

TEST_F(OwnFiles, AreTakenFromThePackageWhereNothingWasBuilt) {
    PutFile(path(QStringLiteral("packaged.so")), "old");
    EXPECT_EQ(OwnFile(named(QStringLiteral("built.so")), named(QStringLiteral("packaged.so"))),
              path(QStringLiteral("packaged.so")));
}

TEST_F(OwnFiles, AreLookedForBesideTheProgramWhereTheyAreMissing) {
    EXPECT_EQ(OwnFile(QStringLiteral("built.so"), named(QStringLiteral("packaged.so"))),
              QCoreApplication::applicationDirPath() + QStringLiteral("/built.so"));
}
