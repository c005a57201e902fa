#include <QComboBox>
#include <QDialog>

#include "output/frmschrpt.h"
#include "platform/controls/ctdedit.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "session/preferences.h"
#include "tests/companion/schedulefixture.h"
#include "tests/platform/printing/shownpaper.h"

namespace {

class CompanionWeek : public ScheduleFixture {
  protected:
    /// Prints by the menu; gives the document that the preview shows.
    printing::Document print() {
        return PreviewOf(desk, [this] { trigger("mnuPrint"); });
    }
};

}  // namespace

TEST_F(CompanionWeek, NeedsAProviderThatIsSelected) {
    open();
    for (const char* name : {"mnuAShow", "mnuWeek"}) {
        desk.expectBox("Select a provider by clicking in the column.", "Solvane");
        trigger(name);
        EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Day);
        EXPECT_FALSE(command("mnuWeek").isChecked());
    }
}

TEST_F(CompanionWeek, ShowsSevenDaysOfTheSelectedProvider) {
    add({});
    add({.client = 2, .day = "2026/03/17", .time = "2026/03/17 2:00 PM"});
    add({.provider = 2, .time = "2026/03/11 11:00 AM"});
    add({.day = "2026/03/10", .time = "2026/03/10 9:00 AM"});
    open();
    openWeekOf(Reed);
    EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Week);
    EXPECT_EQ(grid().objectName(), "ctMDay2");
    EXPECT_EQ(label("pnlView"), " Week Schedule for: Reed, Ada");
    EXPECT_EQ(command("mnuAShow").text(), "&Show Day View");
    EXPECT_TRUE(command("mnuWeek").isChecked());
    EXPECT_FALSE(providers().isVisible());
    EXPECT_EQ(grid().ColumnCount(), 7);
    EXPECT_EQ(column(1), QStringList{"540-590 O'Brien, Anna"});
    EXPECT_EQ(column(7), QStringList{"840-890 Stray, Sam"});
    EXPECT_EQ(main.title, "Week of March 11, 2026");
    EXPECT_EQ(view_->ProviderOfColumn(5)->provId, 1);
    EXPECT_EQ(view_->DateOfColumn(7), QDate(2026, 3, 17));
}

TEST_F(CompanionWeek, TheWeekOfAnAppointmentIsThatOfItsColumn) {
    const int key = add({.provider = 2});
    open();
    selectAppointment(key);
    trigger("mnuWeek");
    EXPECT_EQ(label("pnlView"), " Week Schedule for: Lane, Ben");
}

TEST_F(CompanionWeek, TheSameCommandLeadsBackToTheDay) {
    add({});
    open();
    for (int time = 0; time < 2; ++time) {
        openWeekOf(Reed);
        EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Week);
        trigger("mnuAShow");
        EXPECT_EQ(view_->ShownMode(), frmFHAppts::Mode::Day);
        EXPECT_EQ(command("mnuAShow").text(), "&Show Week View");
        EXPECT_TRUE(providers().isVisible());
        EXPECT_EQ(column(Reed), QStringList{"540-590 O'Brien, Anna"});
        EXPECT_EQ(main.title, "Wednesday, March 11, 2026");
        EXPECT_TRUE(grid().hasFocus());
    }
}

TEST_F(CompanionWeek, EightDaysAreReadForSevenShown) {
    const int eighth = add({.day = "2026/03/18", .time = "2026/03/18 6:10 AM"});
    add({.day = "2026/03/19", .time = "2026/03/19 5:00 AM"});
    open();
    openWeekOf(Reed);
    EXPECT_EQ(grid().ColumnOfItem(indexOf(eighth, companioncolor::Scheduled)), 0);
    EXPECT_EQ(grid().FirstTime(), 370) << "The eighth day opens the hours, too.";
}

TEST_F(CompanionWeek, AnEventOfSeveralDaysStandsOnItsFirst) {
    const int within = addEventRow("CEveDate, CEveEndDate, CEveTime, CEveDuration",
                                   "'2026/03/12', '2026/03/14', '2026-03-12 13:00', 60");
    const int before = addEventRow("CEveDate, CEveEndDate, CEveTime, CEveDuration",
                                   "'2026/03/10', '2026/03/12', '2026-03-10 13:00', 60");
    open();
    openWeekOf(Reed);
    EXPECT_TRUE(hasEvent(within, 2));
    EXPECT_FALSE(hasEvent(within, 3));
    EXPECT_EQ(grid().ColumnOfItem(indexOf(before, companioncolor::Event)), 0);
}

TEST_F(CompanionWeek, ASeriesStandsOnEachOfItsDays) {
    const int key = addDailySeries("1900-01-01 09:00", "0", "'2026/03/14'", {1, 2});
    there("Insert Into RecurringEventExceptions (RecrId, RExcDate) Values (1, '2026/03/12')");
    open();
    openWeekOf(Reed);
    QList<int> days;
    for (int number = 1; number <= 7; ++number)
        if (hasEvent(key, number))
            days << number;
    EXPECT_EQ(days, (QList<int>{1, 3, 4}));
}

TEST_F(CompanionWeek, AStepMovesTheWeekByADay) {
    add({});
    open();
    openWeekOf(Reed);
    main.SetDate(view_->Stepped(main.Date(), -1));
    view_->Reload();
    EXPECT_EQ(column(2), QStringList{"540-590 O'Brien, Anna"});
    EXPECT_EQ(main.title, "Week of March 10, 2026");
}

TEST_F(CompanionWeek, TheWeekThatCannotBeReadIsTold) {
    open();
    openWeekOf(Reed);
    Session().FHConnectionString = companion.connectionText();
    const QString why = DropTable(companion.connection(), "ClientTransactions");
    desk.expectBox("Error loading appointments. " + why, "Error");
    view_->Reload();
    settle();
}

TEST_F(CompanionWeek, TheDayIsPrintedWithTheProvidersOfThePrintOptions) {
    SetPreference("2", "AllViewCols", "PrintLayout", QString::fromLatin1(AllUsers));
    open();
    const printing::Document document = print();
    EXPECT_EQ(ParagraphsOf(document), (QStringList{"Wednesday  March 11, 2026", "Schedule - Fernhall",
                                                   "Wednesday  March 11, 2026", "Schedule - Fernhall"}));
}

TEST_F(CompanionWeek, TheWeekIsPrintedOnOnePageAfterTheHint) {
    open();
    openWeekOf(Lane);
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("To print in Landscape mode, select Printer Properties from Print dialog window.", "Solvane");
        const printing::Document document = print();
        EXPECT_EQ(ParagraphsOf(document), (QStringList{"Wednesday  March 11, 2026", "Schedule - Fernhall"}));
    }
}

TEST_F(CompanionWeek, ItsReportIsOfTheSevenDaysOfItsProviderAndThatOfTheDayOfAll) {
    open();
    const auto openReport = [this] {
        QStringList shown;
        desk.expectForm("frmschrpt", [&shown](QDialog& dialog) {
            const auto& form = dynamic_cast<frmschrpt&>(dialog);
            shown << form.ctdate[0]->Date().toString(Qt::ISODate) << form.ctdate[1]->Date().toString(Qt::ISODate)
                  << form.cboprovider->currentText();
        });
        trigger("mnuFReport");
        return shown;
    };
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(openReport(), (QStringList{"2026-03-11", "2026-03-11", "All Providers"}));
        openWeekOf(Reed);
        EXPECT_EQ(openReport(), (QStringList{"2026-03-11", "2026-03-17", "Reed, Ada"}));
        trigger("mnuAShow");
    }
}
