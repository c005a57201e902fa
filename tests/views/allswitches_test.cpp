#include <QAction>

#include "platform/controls/noticebar.h"
#include "session/savedviews.h"
#include "tests/views/allfixture.h"

namespace {

class AllSwitches : public AllProviders {
  protected:
    void press(const char* name) {
        command(name).trigger();
        settle();
    }
    QString kept(const char* detail) {
        return database_.text(db::Sql(
            "Select UP_PD_Value from User_Preferences Where UP_UserID = 'REED' And UP_Pref_Detail = '{}'", detail));
    }
    ViewContents contents() {
        ViewContents kept;
        all().AddContents(kept);
        return kept;
    }
    /// The view as it opens for saved contents.
    void openFor(const char* lines) {
        main.LeaveContents(ViewContents(QString::fromLatin1(lines)));
        open();
        EXPECT_FALSE(main.TakeContents()) << "The view has taken them.";
    }

    NoticeBar bar;
};

}  // namespace

TEST_F(AllSwitches, AreOffAtFirst) {
    addMany();
    open();
    EXPECT_FALSE(command("mnuVFit").isChecked());
    EXPECT_FALSE(command("mnuVWorking").isChecked());
    EXPECT_EQ(calendar().VisibleColumns(), 5);
    EXPECT_EQ(calendar().ColumnCount(), 20);
}

TEST_F(AllSwitches, AsManyColumnsAsFitFollowTheWidthOfTheScreenAndAreKept) {
    addMany();
    open();
    press("mnuVFit");
    EXPECT_EQ(kept("AllFit"), "1");
    const auto inSight = [this](int width) {
        view_->resize(width, 700);
        settle();
        int columns = 0;
        for (int column = 1; column <= calendar().ColumnCount(); ++column)
            columns += calendar().HeadingRect(column).isEmpty() ? 0 : 1;
        EXPECT_GE(calendar().HeadingRect(1).width(), calendar().fontMetrics().averageCharWidth() * 10);
        return columns;
    };
    const int narrow = inSight(1000);
    const int wide = inSight(3840);
    EXPECT_GT(wide, 10) << "A 4K screen shows more than the preference allows.";
    EXPECT_LT(narrow, wide);

    open();
    EXPECT_TRUE(command("mnuVFit").isChecked());
    press("mnuVFit");
    EXPECT_EQ(kept("AllFit"), "0");
    EXPECT_EQ(calendar().VisibleColumns(), 5);
}

TEST_F(AllSwitches, OnlyWhoWorksHasAColumnByHoursOrByARowOfTheDay) {
    hours("BAKER", "540", "1020");
    hours("LANE", "0", "0");
    hours("REED", "0", "0");
    add(anAppointment("Anna").of("lane"));
    open();

    press("mnuVWorking");
    EXPECT_EQ(columns(), "Baker Lane");
    EXPECT_EQ(columnOf("Anna"), 2);
    EXPECT_EQ(kept("AllWorking"), "1");
    EXPECT_EQ(shaded(), (QStringList{"1: 480-539", "1: 1021-1079", "2: 480-1079"}));

    press("mnuVWorking");
    EXPECT_EQ(columns(), "Baker Lane Reed");
}

TEST_F(AllSwitches, WhoHasNoWorkingHoursStoredWorksEveryDay) {
    hours("BAKER", "540", "1020");
    hours("LANE", "0", "0");
    open();
    press("mnuVWorking");
    EXPECT_EQ(columns(), "Baker Reed");

    main.SetDate(QDate(2026, 3, 12));
    view_->Reload();
    EXPECT_EQ(columns(), "Reed") << "A weekday without a row is a day off.";
}

TEST_F(AllSwitches, AnotherDayHasOtherColumnsAndTheChosenProviderStays) {
    hours("LANE", "540", "1020");
    hours("BAKER", "0", "0");
    hours("REED", "0", "0");
    add(anAppointment("Anna").of("BAKER").on(QDate(2026, 3, 12)));
    add(anAppointment("Bert").of("LANE").on(QDate(2026, 3, 12)));
    open();
    press("mnuVWorking");
    EXPECT_EQ(columns(), "Lane");

    main.SetDate(QDate(2026, 3, 12));
    view_->Reload();
    EXPECT_EQ(columns(), "Baker Lane");
    EXPECT_EQ(view_->Provider().id, "LANE");
}

TEST_F(AllSwitches, ADayOnWhichNobodyWorksShowsEverybodyAndSaysSo) {
    add(anAppointment("Holiday").of("LANE").with("allday", "1"));
    for (const char* provider : {"BAKER", "LANE", "REED"})
        hours(provider, "0", "0");
    open();
    press("mnuVWorking");
    EXPECT_EQ(columns(), "Baker Lane Reed") << "What lasts all day is not shown here.";
    EXPECT_EQ(bar.Texts(),
              QStringList{"Nobody who is checked works on Wednesday, March 11, 2026, so all of them are shown."});

    run("Update appointments Set allday = 0");
    view_->Reload();
    EXPECT_EQ(columns(), "Lane");
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(AllSwitches, TheFilterAndTheChecksGoOnWithinWhoWorks) {
    hours("BAKER", "540", "1020");
    hours("LANE", "540", "1020");
    hours("REED", "0", "0");
    open();
    press("mnuVWorking");
    filter("Psychology");
    EXPECT_EQ(columns(), "Lane");
    filter("Show All");
    EXPECT_EQ(columns(), "Baker Lane");
    turn("Lane");
    EXPECT_EQ(columns(), "Baker");
    turn("Reed");
    EXPECT_EQ(columns(), "Baker");
}

TEST_F(AllSwitches, ASavedViewKeepsProvidersColumnsFilterAndSwitches) {
    hours("REED", "540", "1020");
    hours("LANE", "0", "0");
    open();
    EXPECT_EQ(contents().Lines(), "column=BAKER\ncolumns=5");
    filter("Psychology");
    press("mnuVFit");
    press("mnuVWorking");
    press("mnuVDisplay");
    EXPECT_EQ(contents().Lines(),
              "discipline=Psychology\nproviders=LANE|REED|\ncolumn=REED\ncolumns=5\nfit=1\nworking=1\npanel=0");
}

TEST_F(AllSwitches, ASavedViewOpensAsItWas) {
    addMany();
    openFor("providers=LANE|REED|P3|GONE|\ncolumn=REED\ncolumns=8\npanel=0");
    EXPECT_EQ(columns(), "Lane Reed Xu03");
    EXPECT_EQ(calendar().VisibleColumns(), 8);
    EXPECT_EQ(view_->Provider().id, "REED");
    EXPECT_FALSE(command("mnuVDisplay").isChecked());
    EXPECT_EQ(kept("AllFit"), "(none)") << "The user's own switches stay as they are kept.";
}

TEST_F(AllSwitches, ASavedViewIsShownInTheOpenViewTwice) {
    open();
    for (int twice = 0; twice < 2; ++twice) {
        all().ShowContents(ViewContents(QStringLiteral("discipline=nursing\nproviders=BAKER|\nfit=1\ncolumns=7")));
        EXPECT_EQ(columns(), "Baker");
        EXPECT_EQ(box("cbodisc").currentText(), "Nursing");
        EXPECT_TRUE(command("mnuVFit").isChecked());
        all().ShowContents(ViewContents(QStringLiteral("working=0\ncolumns=7")));
        EXPECT_EQ(columns(), "Baker Lane Reed");
        EXPECT_EQ(box("cbodisc").currentText(), "Show All");
        EXPECT_EQ(calendar().VisibleColumns(), 7);
    }
    all().ApplyPreferences();
    EXPECT_EQ(calendar().VisibleColumns(), 5) << "The preferences count again.";
}

TEST_F(AllSwitches, RubbishInASavedViewShowsEverybody) {
    openFor("providers=GONE|~~|\ncolumn=' or 'a'='a\ncolumns=99\nfit=maybe\nworking=x\ndiscipline=None\n===\n\nroom=5");
    EXPECT_EQ(columns(), "Baker Lane Reed");
    EXPECT_EQ(calendar().VisibleColumns(), 5);
    EXPECT_EQ(view_->Provider().id, "BAKER");
}
