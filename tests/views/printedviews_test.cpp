#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QPainter>
#include <QPushButton>
#include <vector>

#include "data/codes.h"
#include "platform/controls/ctlist.h"
#include "platform/printing/printers.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "session/hiddennames.h"
#include "session/preferences.h"
#include "session/savedviews.h"
#include "session/session.h"
#include "shell/frmpopts.h"
#include "tests/platform/printing/pagereader.h"
#include "tests/platform/printing/shownpaper.h"
#include "tests/support/files.h"
#include "tests/views/eachview.h"

namespace {

/// The views of Wednesday, March 11, 2026, sent to paper.
class PrintedViews : public EachView {
  protected:
    PrintedViews() {
        Session().AllProviders = true;
        desk.setNow(QDateTime(QDate(2026, 3, 11), QTime(10, 30)));
        for (int i = 0; i < 12; ++i)
            run(QStringLiteral("Insert Into provider_info (id, prov_lastname, archive) Values('P%1', 'Prov%1', 0)")
                    .arg(i, 2, 10, QLatin1Char('0')));
        Session().ProviderId = QStringLiteral("P00");
        Session().ProviderName = QStringLiteral("Prov00");
    }

    void prefer(const char* key, const char* value) {
        SetPreference(QString::fromLatin1(value), QString::fromLatin1(key), QStringLiteral("PrintLayout"));
    }
    /// Prints by the menu; gives the document that the preview shows.
    printing::Document print() {
        if (which == Which::Week)
            desk.expectBox("To print in Landscape mode, select Printer Properties from Print dialog window.",
                           "Solvane");
        return PreviewOf(desk, [this] { command("mnuFPrintS").trigger(); });
    }
    printing::Document printOf(Which view) {
        which = view;
        open();
        return print();
    }
    static const printing::Paragraph& titleOf(const printing::Document& document) {
        return std::get<printing::Paragraph>(document.blocks.at(0));
    }
    /// What is painted on each page, at a small size.
    static std::vector<QImage> papers(const printing::Document& document) {
        std::vector<QImage> papers;
        for (const printing::Block& block : document.blocks) {
            const auto* figure = std::get_if<printing::Figure>(&block);
            if (figure == nullptr)
                continue;
            QImage& paper = papers.emplace_back(700, 900, QImage::Format_RGB32);
            paper.fill(Qt::white);
            QPainter painter(&paper);
            figure->paint(painter, QRectF(paper.rect()));
        }
        return papers;
    }
    std::vector<QImage> papersOf(Which view) { return papers(printOf(view)); }
    static QStringList wordsOf(const printing::Document& document) {
        const printing::PageLayout pages(document);
        QStringList words;
        for (int page = 0; page < pages.pageCount(); ++page)
            words << WordsOf(pages, page);
        return words;
    }
    static int figures(const printing::Document& document) {
        int count = 0;
        for (const printing::Block& block : document.blocks)
            count += std::holds_alternative<printing::Figure>(block) ? 1 : 0;
        return count;
    }
};

}  // namespace

TEST_F(PrintedViews, TheDayIsPrintedUnderItsDate) {
    const printing::Document day = printOf(Which::Day);
    EXPECT_EQ(ParagraphsOf(day), QStringList{"Wednesday  March 11, 2026"});
    EXPECT_EQ(figures(day), 1);
    EXPECT_EQ(day.footer, "Prov00|Printed 3/11/2026 10:30 AM|Page %d");
    EXPECT_TRUE(view_->CanPrint());
}

TEST_F(PrintedViews, TheWeekIsPrintedAfterAWordAboutThePaper) {
    const printing::Document week = printOf(Which::Week);
    EXPECT_EQ(ParagraphsOf(week), QStringList{"Monday  March 9, 2026"});
    EXPECT_EQ(figures(week), 1);
    EXPECT_TRUE(week.footer.startsWith("Prov00|"));
    EXPECT_FALSE(view_->CanPrint()) << "The toolbar prints the day.";
}

TEST_F(PrintedViews, TheWholePracticeIsPrintedFiveProvidersToAPage) {
    const printing::Document all = printOf(Which::All);
    EXPECT_EQ(ParagraphsOf(all).mid(0, 2), (QStringList{"Wednesday  March 11, 2026", "Schedule - All Therapists"}));
    EXPECT_EQ(figures(all), 3);
    EXPECT_EQ(all.footer, "All providers|Printed 3/11/2026 10:30 AM|Page %d");
}

TEST_F(PrintedViews, SomeOfTheProvidersAreCountedAtTheFoot) {
    which = Which::All;
    open();
    auto& list = *view_->findChild<ctList*>(QStringLiteral("ctList1"));
    list.SetChecked(0, 1, false);
    Q_EMIT list.CheckChanged(0, 1, false);
    EXPECT_TRUE(print().footer.startsWith("11 of 12 providers|"));
}

TEST_F(PrintedViews, OnlyTheWeekBeginsOnPaperAcross) {
    EXPECT_EQ(printOf(Which::Week).setup.orientation, QPageLayout::Landscape);
    EXPECT_EQ(printOf(Which::Day).setup.orientation, QPageLayout::Portrait);
    EXPECT_EQ(printOf(Which::All).setup.orientation, QPageLayout::Portrait);
}

TEST_F(PrintedViews, TheWeeksHeadingsTellTheProviderAndTheFootExplainsTheStatuses) {
    add(anAppointment("Anna").of("P00").status(ncolor::Kept));
    for (const Which view : {Which::Day, Which::Week, Which::All}) {
        const QStringList words = wordsOf(printOf(view));
        EXPECT_TRUE(words.contains("Kept"));
        EXPECT_FALSE(words.contains("Missed"));
        EXPECT_EQ(words.count("Prov00"), view == Which::Week ? 6 : view == Which::Day ? 2 : 1);
    }
}

TEST_F(PrintedViews, TheColumnsOfAPageAreThoseOfThePrintOptions) {
    prefer("AllViewCols", "9");
    EXPECT_EQ(figures(printOf(Which::All)), 2);
    prefer("AllViewCols", "10");
    EXPECT_EQ(figures(print()), 3);
    prefer("AllViewCols", "");
    EXPECT_EQ(figures(print()), 3);
}

TEST_F(PrintedViews, TitlesHaveTheFontAndPlaceOfThePrintOptions) {
    EXPECT_TRUE(titleOf(printOf(Which::Day)).font.families().contains("Arial"));
    EXPECT_EQ(titleOf(print()).alignment, Qt::AlignLeft);
    prefer("TitleFont", "Georgia");
    prefer("TitleFontSize", "14");
    prefer("TitleFontBold", "True");
    prefer("TitleAlign", "2");
    const printing::Paragraph title = titleOf(print());
    EXPECT_EQ(title.font.families().value(0), "Georgia");
    EXPECT_EQ(title.font.pointSizeF(), 14);
    EXPECT_TRUE(title.font.bold());
    EXPECT_EQ(title.alignment, Qt::AlignHCenter);
    prefer("TitleFontSize", "900");
    prefer("TitleAlign", "7");
    EXPECT_EQ(titleOf(print()).font.pointSizeF(), 8.25);
    EXPECT_EQ(titleOf(print()).alignment, Qt::AlignLeft);
}

TEST_F(PrintedViews, TheDaysColumnIsHeadedByItsProvider) {
    EXPECT_TRUE(wordsOf(printOf(Which::Day)).contains("Prov00"));
    Session().ProviderName = QStringLiteral("Lane|Reed");
    const printing::Document day = print();
    EXPECT_TRUE(wordsOf(day).contains("Lane|Reed"));
    EXPECT_EQ(day.footer, "Lane/Reed|Printed 3/11/2026 10:30 AM|Page %d");
}

TEST_F(PrintedViews, TheWeeksColumnsAreHeadedByDayAndNumbers) {
    const QStringList words = wordsOf(printOf(Which::Week));
    for (const char* day : {"Mon 3/9", "Tue 3/10", "Wed 3/11", "Thu 3/12", "Fri 3/13"})
        EXPECT_TRUE(words.contains(day)) << day;
    EXPECT_FALSE(words.contains("Sat 3/14"));
}

TEST_F(PrintedViews, ASavedWeekIsPrintedWithTheDaysThatItShows) {
    main.LeaveContents(ViewContents(QStringLiteral("columns=7")));
    EXPECT_EQ(wordsOf(printOf(Which::Week)).filter("Sat 3/14").size(), 1);
    view_->ApplyPreferences();
    EXPECT_EQ(wordsOf(print()).filter("Sat 3/14").size(), 0) << "The preferences and the print options count again.";
}

TEST_F(PrintedViews, ASavedViewOfAllProvidersIsPrintedWithTheColumnsThatItShows) {
    EXPECT_EQ(papersOf(Which::All).size(), 3U) << "Five of twelve on a page.";
    main.LeaveContents(ViewContents(QStringLiteral("columns=6\nproviders=P00|P01|P02|P03|P04|P05|")));
    const printing::Document saved = printOf(Which::All);
    EXPECT_EQ(papers(saved).size(), 1U);
    const QStringList words = wordsOf(saved);
    EXPECT_TRUE(words.contains("Prov05"));
    EXPECT_FALSE(words.contains("Prov06"));
}

TEST_F(PrintedViews, TheWeekendIsPrintedWhereTheOptionsSayItHoweverManyDaysAreShown) {
    add(anAppointment("Saturday's").of("P00").on(QDate(2026, 3, 14)));
    EXPECT_FALSE(wordsOf(printOf(Which::Week)).contains("Saturday's"));
    prefer("PrintWeekends", "1");
    const QStringList words = wordsOf(print());
    EXPECT_TRUE(words.contains("Sat 3/14"));
    EXPECT_TRUE(words.contains("Sun 3/15"));
    EXPECT_TRUE(words.contains("Saturday's"));
}

TEST_F(PrintedViews, AllProvidersAreHeadedByTheirNames) {
    prefer("AllViewCols", "1");
    const printing::Document all = printOf(Which::All);
    EXPECT_EQ(figures(all), 12);
    const printing::PageLayout pages(all);
    ASSERT_EQ(pages.pageCount(), 12);
    EXPECT_TRUE(WordsOf(pages, 0).contains("Prov00"));
    EXPECT_FALSE(WordsOf(pages, 0).contains("Prov01"));
    EXPECT_TRUE(WordsOf(pages, 11).contains("Prov11"));
    EXPECT_TRUE(WordsOf(pages, 11).contains("Wednesday  March 11, 2026"));
}

TEST_F(PrintedViews, TheTimeColumnHasTheUnitsOfTheOptionsAndElseThoseOfTheScreen) {
    const auto hasMinutes = [this](const char* minutes) { return wordsOf(print()).contains(minutes); };
    Session().TimeUnit = 30;
    which = Which::Day;
    open();
    EXPECT_TRUE(hasMinutes(":30"));
    EXPECT_FALSE(hasMinutes(":15"));
    prefer("TimeUnits", "2");
    EXPECT_TRUE(hasMinutes(":15"));
    prefer("TimeUnits", "1");
    EXPECT_TRUE(hasMinutes(":20"));
    EXPECT_FALSE(hasMinutes(":15"));
}

TEST_F(PrintedViews, TheTimeColumnHasTheFontOfTheOptions) {
    const std::vector<QImage> usual = papersOf(Which::Day);
    prefer("TimeFontBold", "True");
    const std::vector<QImage> bold = papers(print());
    EXPECT_NE(bold, usual);
    prefer("TimeFontSize", "14");
    EXPECT_NE(papers(print()), bold);
}

TEST_F(PrintedViews, AFontThatIsNotInstalledIsPrintedInAnother) {
    add(anAppointment("Anna").of("P00"));
    prefer("TitleFont", "No Such Hand");
    prefer("TimeFont", "No Such Hand");
    const printing::Document day = printOf(Which::Day);
    EXPECT_EQ(titleOf(day).font.families().value(0), "No Such Hand");
    EXPECT_GT(titleOf(day).font.families().size(), 1);
    EXPECT_TRUE(wordsOf(day).contains("Anna"));
}

TEST_F(PrintedViews, AnEmptyTitleFontIsPrintedInArial) {
    prefer("TitleFont", "");
    EXPECT_EQ(titleOf(printOf(Which::Day)).font.families().value(0), "Arial");
}

TEST_F(PrintedViews, TheTaskBarIsPrintedWhereTheOptionsSayIt) {
    add(anAppointment("Anna").of("P00").status(ncolor::Kept));
    const std::vector<QImage> plain = papersOf(Which::Day);
    prefer("Taskbar", "1");
    const std::vector<QImage> coloured = papers(print());
    EXPECT_NE(coloured, plain);
    prefer("Taskbar", "0");
    EXPECT_EQ(papers(print()), plain);
}

TEST_F(PrintedViews, AScheduleThatCouldNotBeReadIsNotPrintedAsAFreeOne) {
    which = Which::Day;
    open();
    const QString why = DropTable(database_.connection(), QStringLiteral("appointmentsevents"));
    desk.expectBox(QStringLiteral("Error reading appointments. ") + why, QStringLiteral("Error"));
    view_->Reload();
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("The schedule could not be read, so it is not printed. Reload it and try again.", "Print");
        command("mnuFPrintS").trigger();
    }
    which = Which::Week;
    desk.expectBox(QStringLiteral("Error loading schedule. ") + why, QStringLiteral("Error"));
    open();
    desk.expectBox("The schedule could not be read, so it is not printed. Reload it and try again.", "Print");
    command("mnuFPrintS").trigger();
}

TEST_F(PrintedViews, NamesThatAreHiddenWhileThePreviewIsOpenAreNotPrinted) {
    add(anAppointment("Anna").of("P00").status(ncolor::Kept));
    which = Which::Day;
    open();
    for (int time = 0; time < 2; ++time) {
        desk.expectForm("frmpreview", [this](QDialog& form) {
            auto* preview = form.findChild<PrintPreview*>();
            EXPECT_TRUE(wordsOf(preview->Document()).contains("Anna"));
            form.findChild<QAction*>(QStringLiteral("cmdlandscape"))->trigger();
            SetNamesHidden(true);
            EXPECT_FALSE(wordsOf(preview->Document()).contains("Anna"));
            EXPECT_EQ(preview->Document().setup.orientation, QPageLayout::Landscape) << "The paper stays turned.";
            SetNamesHidden(false);
            EXPECT_TRUE(wordsOf(preview->Document()).contains("Anna"));
            form.reject();
        });
        command("mnuFPrintS").trigger();
    }
}

TEST_F(PrintedViews, ThePrintOptionsOpenFromEachViewAndHoldForTheNextPrint) {
    for (const Which view : {Which::Day, Which::Week, Which::All}) {
        which = view;
        open();
        for (const int place : {1, 2}) {
            desk.expectForm("frmpopts", [view, place](QDialog& form) {
                EXPECT_EQ(dynamic_cast<frmpopts&>(form).ckweekends->isHidden(), view != Which::Week);
                dynamic_cast<frmpopts&>(form).cboalign->setCurrentIndex(place);
                dynamic_cast<frmpopts&>(form).cmdok->click();
            });
            command("mnuPrntOpts").trigger();
            EXPECT_EQ(titleOf(print()).alignment, place == 1 ? Qt::AlignRight : Qt::AlignHCenter);
        }
    }
}

TEST_F(PrintedViews, TheHelpOfThePrintOptionsIsThatOfTheProgram) {
    which = Which::Day;
    open();
    desk.expectForm("frmpopts", [](QDialog& form) {
        dynamic_cast<frmpopts&>(form).cmdhelp->click();
        form.reject();
    });
    command("mnuPrntOpts").trigger();
    EXPECT_EQ(main.asked.last(), "help");
}

TEST_F(PrintedViews, WithoutAPrinterTheUserIsToldAndSavesThePage) {
    Printers().anyInstalled = [] { return false; };
    desk.chosenFile = folder_.filePath(QStringLiteral("day.pdf"));
    which = Which::Day;
    open();
    desk.expectForm("frmpreview", [this](QDialog& form) {
        desk.expectBox("No printer is installed on this computer. You can save the document as a PDF file instead.",
                       "Print");
        form.findChild<QPushButton*>(QStringLiteral("cmdprint"))->click();
        form.findChild<QPushButton*>(QStringLiteral("cmdsave"))->click();
    });
    command("mnuFPrintS").trigger();
    EXPECT_TRUE(FileBytes(desk.chosenFile).startsWith("%PDF-"));
    Printers() = RealPrinters();
}

TEST_F(PrintedViews, AFolderThatTakesNoFileIsToldAndThePreviewStays) {
    // Not even root may write here.
    desk.chosenFile = QStringLiteral("/proc/day.pdf");
    which = Which::Day;
    open();
    desk.expectForm("frmpreview", [this](QDialog& form) {
        QString told;
        const auto before = Desktop().msgBox;
        Desktop().msgBox = [&told](const QString& text, BoxStyle, const QString&) {
            told = text;
            return Answer::Ok;
        };
        form.show();
        for (int time = 0; time < 2; ++time) {
            told.clear();
            form.findChild<QPushButton*>(QStringLiteral("cmdsave"))->click();
            EXPECT_TRUE(told.startsWith("The file /proc/day.pdf could not be written: ")) << told.toStdString();
            EXPECT_TRUE(form.isVisible());
        }
        Desktop().msgBox = before;
        form.reject();
    });
    command("mnuFPrintS").trigger();
}

TEST_F(PrintedViews, EveryPageIsPaintedWithWhatTheViewHolds) {
    add(anAppointment("Anna").of("P00").status(ncolor::Pending));
    for (const Which view : {Which::Day, Which::Week, Which::All}) {
        for (const QImage& paper : papersOf(view)) {
            QImage blank(paper.size(), paper.format());
            blank.fill(Qt::white);
            EXPECT_NE(paper, blank);
        }
    }
}

TEST_F(PrintedViews, WithoutAColumnThereAreTheTitlesAlone) {
    run("Delete from provider_info");
    const printing::Document all = printOf(Which::All);
    EXPECT_EQ(figures(all), 0);
    EXPECT_EQ(ParagraphsOf(all).size(), 2);
}

TEST_F(PrintedViews, VisitsThatOverlapTooOftenToBeReadAreListedBelowTheWeek) {
    // One minute apart: a server gives rows of one start in any order.
    for (int i = 1; i <= 7; ++i)
        add(anAppointment(QStringLiteral("Visitor number %1").arg(i).toUtf8().constData())
                .of("P00")
                .at(9, i)
                .until(9, 50));
    const printing::Document week = printOf(Which::Week);
    const QString words = WordsOf(printing::PageLayout(week), 0).join(QLatin1Char('\n'));
    EXPECT_TRUE(words.contains("Besides, at times that are full above:")) << words.toStdString();
    // Three cards have room beside each other across the paper.
    for (int i = 4; i <= 7; ++i)
        EXPECT_TRUE(words.contains(QStringLiteral("Visitor number %1").arg(i))) << i;
    EXPECT_EQ(words.count("Wed Mar 11"), 4);

    const printing::Document day = printOf(Which::Day);
    EXPECT_FALSE(WordsOf(printing::PageLayout(day), 0).join(QLatin1Char('\n')).contains("Besides"));
}

TEST_F(PrintedViews, HiddenNamesAreNotOnThePaperWhileActivitiesAre) {
    add(anAppointment("Anna").of("P00").at(9, 0).until(9, 50).status(ncolor::Kept));
    add(anAppointment("Lunch").of("P00").at(12, 0).until(13, 0).status(ncolor::Activity));
    const auto renamed = [this](const char* from, const char* to) {
        run(QStringLiteral("Update appointments Set cappttext = '%2' Where cappttext = '%1'")
                .arg(QLatin1String(from), QLatin1String(to)));
    };
    for (const Which view : {Which::Day, Which::Week, Which::All}) {
        Session().HidePatientNames = false;
        const std::vector<QImage> named = papersOf(view);
        renamed("Anna", "Bert");
        EXPECT_NE(papersOf(view), named);
        Session().HidePatientNames = true;
        const std::vector<QImage> hidden = papersOf(view);
        renamed("Bert", "Anna");
        EXPECT_EQ(papersOf(view), hidden);
        renamed("Lunch", "Supervision");
        EXPECT_NE(papersOf(view), hidden);
        renamed("Supervision", "Lunch");
    }
}

TEST_F(PrintedViews, HiddenNamesStayHiddenBelowTheWeek) {
    Session().HidePatientNames = true;
    for (int i = 1; i <= 7; ++i)
        add(anAppointment("Secret").of("P00").at(9, 0).until(9, 50).status(ncolor::Kept));
    const printing::Document week = printOf(Which::Week);
    const QString words = WordsOf(printing::PageLayout(week), 0).join(QLatin1Char('\n'));
    EXPECT_TRUE(words.contains("Besides"));
    EXPECT_TRUE(words.contains("(Kept)"));
    EXPECT_FALSE(words.contains("Secret"));
}
