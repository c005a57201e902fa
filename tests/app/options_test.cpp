#include "app/options.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace {

AppOptions understood(const QStringList& arguments) {
    const ParsedOptions parsed = ParseOptions(arguments);
    EXPECT_EQ(parsed.error.toStdString(), "");
    return parsed.options;
}

QString complaint(const QStringList& arguments) {
    return ParseOptions(arguments).error;
}

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

}  // namespace

TEST(OptionsTest, NothingAskedLeavesEverythingToTheStartUp) {
    const AppOptions options = understood({});
    EXPECT_EQ(options.commandLine, QString());
    EXPECT_EQ(options.view, View::None);
    EXPECT_FALSE(options.date.isValid());
    EXPECT_TRUE(options.size.isEmpty());
    EXPECT_FALSE(options.mode);
}

TEST(OptionsTest, TheNotesProductHandsTheUserOver) {
    EXPECT_EQ(understood({QStringLiteral("1|JSMITH")}).commandLine, QStringLiteral("1|JSMITH"));
}

TEST(OptionsTest, AUserIdWithABlankMayArriveInTwoPieces) {
    EXPECT_EQ(understood(words("1|J SMITH")).commandLine, QStringLiteral("1|J SMITH"));
}

TEST(OptionsTest, AWordThatIsNoUserIsRefused) {
    EXPECT_EQ(complaint(words("JSMITH")), QStringLiteral("\"JSMITH\" is not of the form type|user"));
}

TEST(OptionsTest, EveryViewHasItsName) {
    int number = 0;
    for (const char* name : {"day", "week", "month", "all", "rooms", "companion"})
        EXPECT_EQ(understood({QStringLiteral("--view"), QString::fromLatin1(name)}).view, static_cast<View>(++number))
            << name;
    EXPECT_EQ(complaint(words("--view year")), QStringLiteral("there is no view \"year\""));
}

TEST(OptionsTest, ADateIsReadInOneFormOnly) {
    EXPECT_EQ(understood(words("--date 2026-03-11")).date, QDate(2026, 3, 11));
    EXPECT_EQ(understood(words("--date=2024-02-29")).date, QDate(2024, 2, 29));
    for (const char* text : {"--date 2026-02-30", "--date 11.3.2026", "--date today"})
        EXPECT_TRUE(complaint(words(text)).endsWith(QStringLiteral("is no date of the form yyyy-mm-dd"))) << text;
}

TEST(OptionsTest, ASizeIsTwoNumbers) {
    EXPECT_EQ(understood(words("--size 1280x800")).size, QSize(1280, 800));
    for (const char* text : {"--size 1280", "--size 0x0", "--size 99x800", "--size 1280x800x2", "--size big"})
        EXPECT_TRUE(complaint(words(text)).contains(QStringLiteral("is no size of the form"))) << text;
}

TEST(OptionsTest, TheLookCanBeForced) {
    EXPECT_EQ(understood(words("--dark")).mode, ThemeMode::Dark);
    EXPECT_EQ(understood(words("--light")).mode, ThemeMode::Light);
}

TEST(OptionsTest, ADataFolderMustBeThere) {
    const QTemporaryDir folder;
    EXPECT_EQ(understood({QStringLiteral("--data"), folder.path()}).dataFolder, folder.path());
    EXPECT_EQ(complaint(words("--data /no/such/folder")), QStringLiteral("there is no folder /no/such/folder"));
}

TEST(OptionsTest, APictureNeedsAUser) {
    EXPECT_EQ(complaint(words("--screenshot day.png")),
              QStringLiteral("--screenshot cannot log on: name the user as type|user, for example \"2|ADMIN\""));
    EXPECT_EQ(understood(words("--screenshot day.png 2|ADMIN")).screenshotFile, QStringLiteral("day.png"));
}

TEST(OptionsTest, AnUnknownOptionOrAMissingValueIsRefused) {
    EXPECT_EQ(complaint(words("--colour red")), QStringLiteral("unknown option --colour"));
    EXPECT_EQ(complaint(words("--date")), QStringLiteral("--date needs a value"));
    EXPECT_EQ(complaint(words("--size=")), QStringLiteral("--size needs a value"));
}

TEST(OptionsTest, TheUsageNamesEveryOption) {
    for (const char* option : {"--data", "--view", "--date", "--size", "--light", "--dark", "--screenshot", "--version",
                               "--help", "type|user"})
        EXPECT_TRUE(UsageText().contains(QString::fromLatin1(option))) << option;
}

TEST(OptionsTest, TheDemoHasAFolderOfItsOwn) {
    EXPECT_TRUE(understood(words("--demo 1|REED")).demo);
    const QTemporaryDir folder;
    EXPECT_NE(complaint({QStringLiteral("--demo"), QStringLiteral("--data"), folder.path()}), QString());
}
