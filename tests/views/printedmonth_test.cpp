#include <algorithm>
#include <QAction>
#include <QDialog>

#include "data/codes.h"
#include "platform/calendar/ctweek.h"
#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "session/preferences.h"
#include "tests/platform/printing/pagereader.h"
#include "tests/shell/practicefixture.h"
#include "views/frmmtv.h"

namespace {

/// REED's March 2026 on paper.
class PrintedMonth : public PracticeFixture {
  protected:
    PrintedMonth() {
        Session().CurrentView = View::Month;
        Session().ProviderName = QStringLiteral("Reed");
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
    }
    frmmtv& open() {
        view_ = std::make_unique<frmmtv>(main);
        view_->resize(1000, 700);
        view_->show();
        settle();
        return *view_;
    }
    [[nodiscard]] QWidget& openView() override { return *view_; }
    printing::Document print() {
        printing::Document document;
        desk.expectForm("frmpreview", [&document](QDialog& preview) {
            document = preview.findChild<PrintPreview*>()->Document();
            preview.reject();
        });
        command("mnuFPrintS").trigger();
        return document;
    }
    static QStringList wordsOf(const printing::Document& document) {
        return WordsOf(printing::PageLayout(document), 0);
    }
    void addVisits(QDate day, int count) {
        for (int i = 1; i <= count; ++i)
            add(anAppointment(QStringLiteral("V%1").arg(i).toUtf8().constData()).on(day).at(7 + i / 4, i % 4 * 15));
    }
    void holiday(const char* name, const char* date) {
        run(QStringLiteral("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('%1', '%2', 0)")
                .arg(QLatin1String(name), QLatin1String(date)));
    }

    std::unique_ptr<frmmtv> view_;
};

}  // namespace

TEST_F(PrintedMonth, IsOnePageAcrossUnderTheMonthsName) {
    add(anAppointment("Anna").on(QDate(2026, 3, 2)));
    open();
    const printing::Document month = print();
    EXPECT_EQ(month.setup.orientation, QPageLayout::Landscape);
    const printing::PageLayout pages(month);
    EXPECT_EQ(pages.pageCount(), 1);
    EXPECT_EQ(std::get<printing::Paragraph>(month.blocks.at(0)).text, "March 2026");
    EXPECT_EQ(month.footer, "Reed|Printed 3/11/2026 10:30 AM|Page %d");
    const QStringList words = WordsOf(pages, 0);
    for (const char* word : {"Monday", "Sunday", "1", "31", "Anna"})
        EXPECT_TRUE(words.contains(word)) << word;
}

TEST_F(PrintedMonth, WithoutAVisitIsAnEmptyMonth) {
    open();
    EXPECT_TRUE(wordsOf(print()).contains("31"));
}

TEST_F(PrintedMonth, ShowsAllVisitsOfAFullDayThoughTheScreenCountsSome) {
    addVisits(QDate(2026, 3, 11), 16);
    open();
    const auto& cells = view_->findChild<ctWeek*>()->Layout().cells;
    EXPECT_TRUE(std::ranges::any_of(cells, [](const MonthCell& cell) { return cell.hidden > 0; }));
    const QStringList words = wordsOf(print());
    for (int i = 1; i <= 16; ++i)
        EXPECT_TRUE(words.contains(QStringLiteral("V%1").arg(i))) << i;
}

TEST_F(PrintedMonth, CountsTheVisitsThatNoPageHasRoomFor) {
    addVisits(QDate(2026, 3, 11), 68);
    open();
    const QStringList words = wordsOf(print());
    int shown = 0;
    for (int i = 1; i <= 68; ++i)
        shown += words.contains(QStringLiteral("V%1").arg(i)) ? 1 : 0;
    EXPECT_GT(shown, 20);
    EXPECT_TRUE(words.contains(QStringLiteral("+%1 more").arg(68 - shown))) << shown;
}

TEST_F(PrintedMonth, NamesItsHolidays) {
    holiday("Founders Day", "2026/03/17");
    holiday("Of a Neighbour", "2026/04/01");
    holiday("Of the Next Weeks", "2026/04/08");
    open();
    const QStringList words = wordsOf(print());
    EXPECT_TRUE(words.contains("Founders Day"));
    EXPECT_TRUE(words.contains("Of a Neighbour")) << "The last week of the month is whole, as on the screen.";
    EXPECT_FALSE(words.contains("Of the Next Weeks"));
}

TEST_F(PrintedMonth, TheHolidaysAreOnTheScreenToo) {
    holiday("Founders Day", "2026/03/17");
    add(anAppointment("Anna").on(QDate(2026, 3, 17)).status(ncolor::Kept));
    open();
    auto& month = *view_->findChild<ctWeek*>();
    ASSERT_EQ(month.ItemCount(), 2);
    const auto& cells = month.Layout().cells;
    const auto& cell = *std::ranges::find_if(cells, [](const MonthCell& day) { return day.day == QDate(2026, 3, 17); });
    ASSERT_EQ(cell.lines.size(), 2U);
    EXPECT_EQ(month.Item(cell.lines[0].index).ItemText, "Founders Day");
    EXPECT_EQ(month.TipAt(cell.lines[0].rect.center()), "Founders Day");
    EXPECT_EQ(month.TipAt(cell.lines[1].rect.center()), "Anna - 9:00 AM - 9:50 AM");
    SetNamesHidden(true);
    EXPECT_EQ(month.TipAt(cell.lines[0].rect.center()), "Founders Day") << "A holiday is no name.";
    SetNamesHidden(false);
}

TEST_F(PrintedMonth, HolidaysThatCannotBeReadLeaveTheMonthAsItIs) {
    add(anAppointment("Anna").on(QDate(2026, 3, 2)));
    open();
    DropTable(database_.connection(), QStringLiteral("Holidays"));
    view_->Reload();
    EXPECT_TRUE(wordsOf(print()).contains("Anna"));
}

TEST_F(PrintedMonth, HidesTheNamesThatAreHiddenOnTheScreen) {
    add(anAppointment("Anna").status(ncolor::Kept));
    add(anAppointment("Lunch").at(12, 0).status(ncolor::Activity));
    open();
    SetNamesHidden(true);
    const QStringList words = wordsOf(print());
    EXPECT_FALSE(words.contains("Anna"));
    EXPECT_TRUE(words.contains("Lunch"));
    SetNamesHidden(false);
    EXPECT_TRUE(wordsOf(print()).contains("Anna"));
}

TEST_F(PrintedMonth, ThatCouldNotBeReadIsNotPrintedAsAFreeOne) {
    open();
    const QString why = DropTable(database_.connection(), QStringLiteral("appointmentsevents"));
    desk.expectBox(QStringLiteral("Error reading appointments. ") + why, QStringLiteral("Error"));
    view_->Reload();
    desk.expectBox("The schedule could not be read, so it is not printed. Reload it and try again.", "Print");
    command("mnuFPrintS").trigger();
}

TEST_F(PrintedMonth, OpensThePrintOptions) {
    open();
    for (int time = 0; time < 2; ++time) {
        desk.expectForm("frmpopts", [](QDialog& form) { form.reject(); });
        command("mnuPrntOpts").trigger();
    }
}
