#include "session/savedviews.h"

#include <gtest/gtest.h>

#include "session/session.h"
#include "tests/session/practice.h"

namespace {

class SavedViewsTest : public testing::Test {
  protected:
    SavedViewsTest() {
        practice.connect();
        Session().UID = "REED";
    }
    void row(const char* slot, const char* title, const char* number, const char* contents) {
        practice.sql(
            QStringLiteral(
                "Insert Into SavedViews (UserId, Slot, Title, ViewNumber, Contents) Values ('REED', %1, %2, %3, %4)")
                .arg(QLatin1String(slot), QLatin1String(title), QLatin1String(number), QLatin1String(contents)));
    }

    Practice practice;
};

SavedView aView(int slot, const QString& title) {
    SavedView view;
    view.slot = slot;
    view.title = title;
    view.viewNumber = 2;
    view.contents.Set(savedname::Provider, QStringLiteral("O'NEIL"));
    return view;
}

}  // namespace

TEST(ViewContentsTest, KeepsItsLinesInTheirOrder) {
    const ViewContents contents(QStringLiteral("provider=REED\r\nwhat=a=b\nalone\n\ncolumns=7"));

    EXPECT_EQ(contents.Value(savedname::Provider), "REED");
    EXPECT_EQ(contents.Value("what"), "a=b");
    EXPECT_EQ(contents.Number(savedname::Columns, 5), 7);
    EXPECT_EQ(contents.Number(savedname::Provider, 5), 5) << "It is no number.";
    EXPECT_EQ(contents.Number(savedname::Room, 9), 9);
    EXPECT_EQ(contents.Lines(), "provider=REED\nwhat=a=b\nalone\ncolumns=7");
}

TEST(ViewContentsTest, AValueIsReplacedAndAnEmptyOneRemovesTheLine) {
    ViewContents contents;
    contents.Set(savedname::Columns, 5);
    contents.Set(savedname::Columns, 7);
    contents.Set(savedname::Discipline, QStringLiteral("Two\nlines"));
    EXPECT_EQ(contents.Lines(), "columns=7\ndiscipline=Two lines");
    contents.Set(savedname::Columns, QString());
    EXPECT_EQ(contents.Lines(), "discipline=Two lines");
}

TEST(ViewContentsTest, TheLinesOfALaterVersionAreTakenOver) {
    ViewContents contents;
    contents.Set(savedname::Columns, 5);
    contents.KeepUnknown(ViewContents(QStringLiteral("columns=7\nzoom=2\nalone")));
    EXPECT_EQ(contents.Lines(), "columns=5\nzoom=2\nalone");
}

TEST_F(SavedViewsTest, AreReadByTheirKeysAsTheyWereStored) {
    StoreSavedView(aView(8, "Reed & O'Neil <b>"));
    StoreSavedView(aView(7, "First"));
    StoreSavedView(aView(8, "Second"));

    const std::vector<SavedView> views = ReadSavedViews();

    ASSERT_EQ(views.size(), 2U);
    EXPECT_EQ(views[0].title, "First");
    EXPECT_EQ(views[1].title, "Second");
    EXPECT_EQ(views[1].Shows(), View::Week);
    EXPECT_EQ(views[1].contents.Value(savedname::Provider), "O'NEIL");
    EXPECT_EQ(practice.value("Select Count(*) from SavedViews"), "2");
}

TEST_F(SavedViewsTest, AreTheUsersOwn) {
    StoreSavedView(aView(7, "Reed's"));
    Session().UID = "LANE";
    EXPECT_TRUE(ReadSavedViews().empty());
    DeleteSavedView(7);
    Session().UID = "REED";
    EXPECT_EQ(ReadSavedViews().size(), 1U);
}

TEST_F(SavedViewsTest, RubbishInTheTableDoesNoHarm) {
    row("6", "'too low'", "1", "null");
    row("13", "'too high'", "1", "null");
    row("-1", "'negative'", "1", "null");
    row("7", "''", "1", "null");
    row("9", "'later'", "99", "'==='");
    row("10", "'older of two'", "1", "'x'");
    row("10", "'newer of two'", "0", "'provider='");

    const std::vector<SavedView> views = ReadSavedViews();

    ASSERT_EQ(views.size(), 3U);
    EXPECT_EQ(views[0].title, "");
    EXPECT_EQ(views[0].Shows(), View::Day);
    EXPECT_EQ(views[1].Shows(), View::None);
    EXPECT_EQ(views[1].contents.Lines(), "===");
    EXPECT_EQ(views[2].title, "newer of two");
    EXPECT_EQ(views[2].Shows(), View::None);
}

TEST_F(SavedViewsTest, ALongTitleIsCutAndThreeHundredProvidersAreKept) {
    SavedView view = aView(12, QString(300, u'x'));
    QString providers;
    for (int i = 0; i < 300; ++i)
        providers += QStringLiteral("PROVIDER%1|").arg(i);
    view.contents.Set(savedname::Providers, providers);

    StoreSavedView(view);

    EXPECT_EQ(ReadSavedViews().at(0).title.size(), SavedView::MostCharacters);
    EXPECT_EQ(ReadSavedViews().at(0).contents.Value(savedname::Providers), providers);
}

TEST_F(SavedViewsTest, ARenamingSaysWhetherThereWasAView) {
    StoreSavedView(aView(7, "Old"));
    EXPECT_TRUE(RenameSavedView(7, "O'New"));
    EXPECT_FALSE(RenameSavedView(8, "None"));
    EXPECT_EQ(ReadSavedViews().at(0).title, "O'New");
    DeleteSavedView(7);
    EXPECT_TRUE(ReadSavedViews().empty());
}
