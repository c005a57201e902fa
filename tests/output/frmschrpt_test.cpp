#include "output/frmschrpt.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLocale>
#include <QPrinter>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/controls/ctdedit.h"
#include "platform/printing/printers.h"
#include "platform/printing/printpreview.h"
#include "session/hiddennames.h"
#include "tests/output/reportfixture.h"
#include "tests/support/triplog.h"

namespace {

/// The report's form on Reed's practice of March 2026.
class ReportForm : public ReportFixture {
  protected:
    ReportForm() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~ReportForm() override {
        form.reset();
        Printers() = RealPrinters();
        QLocale::setDefault(before_);
    }

    static void settle() {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    frmschrpt& make(ReportMode mode = ReportMode::Schedule, const QString& provider = {}) {
        form = std::make_unique<frmschrpt>(
            ReportOpening{.mode = mode, .from = QDate(2026, 3, 1), .to = QDate(2026, 3, 31), .provider = provider});
        return *form;
    }
    /// Shows the form, whose first report is made at once.
    frmschrpt& open(ReportMode mode = ReportMode::Schedule, const QString& provider = {}) {
        make(mode, provider).show();
        settle();
        return *form;
    }
    /// Bookings for so many entries that the window lives some times before they are on paper.
    void bookMany(int entries = 6000) {
        for (int booked = 0; booked < entries; booked += 500) {
            std::vector<std::vector<db::Value>> rows;
            for (int row = 0; row < 500; ++row)
                rows.push_back({QDate(2026, 3, 1 + row % 31), 480 + row, 530 + row, QStringLiteral("Jones, Mary"),
                                ncolor::Pending, QStringLiteral("REED"), QStringLiteral("10017")});
            database.connection().InsertRows(
                QStringLiteral("appointments"),
                {"dapptdate", "nStartTime", "nEndTime", "cappttext", "ncolor", "clinicianid", "patientid"}, rows);
        }
    }
    /// Does something while the report is being made: `act` is called when the window lives for the first time.
    void meanwhile(const std::function<void()>& act) {
        QTimer::singleShot(0, form.get(), [this, act] {
            if (!form->IsGenerating()) {
                meanwhile(act);
                return;
            }
            wasGenerating = true;
            act();
        });
    }
    [[nodiscard]] QStringList lines() const {
        QStringList all;
        for (const printing::Block& block : form->vp->Document().blocks) {
            if (const auto* paragraph = std::get_if<printing::Paragraph>(&block))
                all << paragraph->text;
            if (const auto* table = std::get_if<printing::Table>(&block))
                for (const QStringList& row : table->rows)
                    all << row.join(u'|');
        }
        return all;
    }
    [[nodiscard]] QStringList rows() const { return lines().filter(QStringLiteral("/2026|")); }
    [[nodiscard]] QString status() const { return form->lblstatus->text(); }
    static QString caption(const QPushButton& button) { return QString(button.text()).remove(u'&'); }
    static QStringList itemsOf(const QComboBox& combo) {
        QStringList items;
        for (int i = 0; i < combo.count(); ++i)
            items << combo.itemText(i);
        return items;
    }
    void choose(QComboBox& combo, const char* item) {
        combo.setCurrentIndex(combo.findText(QLatin1String(item)));
        form->cmdgenerate1->click();
    }
    /// Expects that the report is whole and can leave the program.
    void expectWhole(int entries) {
        EXPECT_EQ(rows().size(), entries);
        EXPECT_EQ(status(), QString());
        EXPECT_TRUE(form->cmdprint->isEnabled() && form->cmdsave->isEnabled());
        EXPECT_FALSE(form->pnlprogress->isVisible() || form->cmdcancel->isVisible());
    }

    bool wasGenerating = false;
    std::unique_ptr<frmschrpt> form;

  private:
    const QLocale before_;
};

}  // namespace

TEST_F(ReportForm, OpensWithTheReportOfTheView) {
    book({});
    book({.text = "Lane's", .provider = "LANE"});
    open(ReportMode::Schedule, QStringLiteral("reed"));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Report"));
    EXPECT_EQ(form->cboprovider->currentText(), QStringLiteral("Reed"));
    EXPECT_EQ(form->ctdate[0]->Date(), QDate(2026, 3, 1));
    EXPECT_EQ(form->ctdate[1]->Date(), QDate(2026, 3, 31));
    EXPECT_EQ(lines().mid(0, 3), (QStringList{"Schedule", "Dates: 3/1/2026 to 3/31/2026", "Provider: Reed"}));
    expectWhole(1);
}

TEST_F(ReportForm, WhoSeesAllProvidersChoosesAmongThemAndThreeOrders) {
    run("Insert Into provider_info (id, prov_lastname, archive) Values ('OLD', 'Former', 1)");
    open();
    EXPECT_EQ(itemsOf(*form->cboprovider), (QStringList{"All Providers", "Lane", "Reed"}));
    EXPECT_EQ(form->List1, (QStringList{"", "LANE", "REED"}));
    EXPECT_EQ(itemsOf(*form->cbosort), (QStringList{"By Appointment", "By Time", "By Provider"}));
}

TEST_F(ReportForm, WhoSeesTheOwnScheduleHasThatOneAndTwoOrders) {
    Session().AllProviders = false;
    book({.provider = "LANE"});
    book({});
    open(ReportMode::Schedule, QStringLiteral("LANE"));
    EXPECT_EQ(itemsOf(*form->cboprovider), QStringList{"Reed"});
    EXPECT_EQ(itemsOf(*form->cbosort), (QStringList{"By Appointment", "By Time"}));
    expectWhole(1);
}

TEST_F(ReportForm, AllByProviderHasABlockForEach) {
    book({});
    book({.provider = "LANE"});
    open();
    EXPECT_FALSE(lines().contains(QStringLiteral("Lane")));
    choose(*form->cbosort, "By Provider");
    EXPECT_TRUE(lines().contains(QStringLiteral("Lane")) && lines().contains(QStringLiteral("Reed")));
    choose(*form->cboprovider, "Reed");
    EXPECT_FALSE(lines().contains(QStringLiteral("Reed"))) << "One provider has one table.";
    expectWhole(1);
}

TEST_F(ReportForm, ThePracticesHeadingStandsAbove) {
    run("Insert Into report_headers (header, [default]) Values ('Other', 0)");
    run("Insert Into report_headers (header, [default]) Values ('Elm Street Practice', 1)");
    open();
    EXPECT_EQ(lines().first(), QStringLiteral("Elm Street Practice"));
}

TEST_F(ReportForm, ThePartsOfThePracticesHeadingHaveLinesOfTheirOwnAboveTheCompanionToo) {
    run("Insert Into report_headers (header, [default]) Values ('|Elm Street Practice|12 Elm Street', 1)");
    open();
    EXPECT_EQ(lines().first(), QStringLiteral("Elm Street Practice\n12 Elm Street"));
    TestDatabase companion(SchemaScript::Companion);
    Session().FHConnectionString = companion.connectionText();
    open(ReportMode::Companion);
    EXPECT_EQ(lines().first(), QStringLiteral("Elm Street Practice\n12 Elm Street"));
}

TEST_F(ReportForm, NamesThatAreHiddenWhileItIsOpenAreNotPrinted) {
    book({.text = "Jones, Mary"});
    open();
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(lines().join(u' ').contains(QStringLiteral("Jones, Mary")));
        SetNamesHidden(true);
        EXPECT_FALSE(lines().join(u' ').contains(QStringLiteral("Jones, Mary"))) << "The old report goes at once.";
        EXPECT_FALSE(form->cmdprint->isEnabled() || form->cmdsave->isEnabled());
        settle();
        EXPECT_FALSE(lines().join(u' ').contains(QStringLiteral("Jones, Mary")));
        expectWhole(1);
        SetNamesHidden(false);
        settle();
    }
}

TEST_F(ReportForm, NamesThatAreHiddenInTheMiddleOfAReportAreHiddenInAllOfIt) {
    bookMany();
    make();
    meanwhile([] { SetNamesHidden(true); });
    form->show();
    settle();
    settle();
    EXPECT_TRUE(wasGenerating);
    EXPECT_FALSE(lines().join(u' ').contains(QStringLiteral("Jones, Mary")));
    expectWhole(6000);
    SetNamesHidden(false);
}

TEST_F(ReportForm, TheFilterSaysWhatIsShownAndMakesTheReportAnew) {
    book({});
    book({.text = "Lunch", .code = ncolor::Unavailable, .patient = ""});
    open();
    EXPECT_EQ(caption(*form->cmdfilter), QStringLiteral("Filter by Patients"));
    expectWhole(2);
    for (int round = 0; round < 2; ++round) {
        form->cmdfilter->click();
        EXPECT_EQ(caption(*form->cmdfilter), QStringLiteral("Show Patient Appointments Only"));
        expectWhole(1);
        form->cmdfilter->click();
        EXPECT_EQ(caption(*form->cmdfilter), QStringLiteral("Show All Appointments"));
        expectWhole(2);
    }
}

TEST_F(ReportForm, DatesThatAreMissingAreAskedFor) {
    open();
    for (const auto& [field, text] :
         {std::pair(0, "Start Date must be entered!"), std::pair(1, "End Date must be entered!")}) {
        form->ctdate[field]->setText({});
        desk.expectBox(QLatin1String(text), QStringLiteral("Date Missing"));
        form->cmdgenerate1->click();
        EXPECT_EQ(form->focusWidget(), form->ctdate[field]);
        form->ctdate[field]->setDate(today);
    }
    form->ctdate[0]->setText(QStringLiteral("soon"));
    desk.expectBox(QStringLiteral("Start Date must be entered!"), QStringLiteral("Date Missing"));
    form->cmdgenerate1->click();
}

TEST_F(ReportForm, ARangeThatEndsBeforeItStartsIsToldAndTheReportStays) {
    book({});
    open();
    form->ctdate[1]->setDate(QDate(2026, 2, 1));
    desk.expectBox(QStringLiteral("The end date is before the start date."), QStringLiteral("Report"));
    form->cmdgenerate1->click();
    expectWhole(1);
}

TEST_F(ReportForm, TenYearsAreAReportLikeAnyOther) {
    for (int year = 2020; year < 2030; ++year)
        book({.date = QDate(year, 6, 1)});
    make();
    form->ctdate[0]->setDate(QDate(2020, 1, 1));
    form->ctdate[1]->setDate(QDate(2029, 12, 31));
    form->show();
    settle();
    EXPECT_EQ(lines().filter(QStringLiteral("|9:00 AM")).size(), 10);
}

TEST_F(ReportForm, AsksTheServerOnceForItsListsAndTwiceForItsReport) {
    book({});
    book({.patient = "10018"});
    EXPECT_TRUE(TakesAtMost(1, [this] { make(); }));
    EXPECT_TRUE(TakesAtMost(2, [this] {
        form->show();
        settle();
    }));
    expectWhole(2);
}

TEST_F(ReportForm, NoRowsAreSaid) {
    open();
    EXPECT_EQ(status(), QStringLiteral("No appointments."));
    EXPECT_TRUE(form->cmdprint->isEnabled());
}

TEST_F(ReportForm, EachModeMakesItsReport) {
    const auto titleOf = [this](ReportMode mode) {
        open(mode);
        return lines().value(0);
    };
    EXPECT_EQ(titleOf(ReportMode::Cancellation), QStringLiteral("Missed Appointment/Cancellation Report"));
    EXPECT_FALSE(form->cbosort->isEnabled() || form->cmdfilter->isEnabled());
    EXPECT_EQ(titleOf(ReportMode::CourtesyCalls), QStringLiteral("Courtesy Calls - Reminder Status"));
    EXPECT_TRUE(form->cbosort->isEnabled());
    EXPECT_FALSE(form->cmdfilter->isEnabled());
    EXPECT_EQ(titleOf(ReportMode::Schedule), QStringLiteral("Schedule"));
    EXPECT_TRUE(form->cbosort->isEnabled() && form->cmdfilter->isEnabled());
}

TEST_F(ReportForm, TheCompanionHasProvidersOfItsOwn) {
    TestDatabase companion(SchemaScript::Companion);
    for (const char* name : {"Reed", "Lane"})
        companion.connection().Execute(
            db::Sql("Insert Into Providers (ProvFirstName, ProvLastName) Values ('A', '{}')", name));
    Session().FHConnectionString = companion.connectionText();
    Session().FHProviderId = 1;
    open(ReportMode::Companion, QStringLiteral("1"));
    EXPECT_EQ(itemsOf(*form->cboprovider), (QStringList{"All Providers", "Lane, A", "Reed, A"}));
    EXPECT_EQ(form->cboprovider->currentText(), QStringLiteral("Reed, A"));
    EXPECT_EQ(lines().last(), QStringLiteral("Provider: Reed, A"));
    EXPECT_FALSE(form->cbosort->isEnabled());
    Session().AllProviders = false;
    open(ReportMode::Companion);
    EXPECT_EQ(itemsOf(*form->cboprovider), QStringList{"Reed, A"});
}

TEST_F(ReportForm, ProvidersThatCannotBeReadAreTold) {
    const QString said = DropTable(database.connection(), QStringLiteral("provider_info"));
    desk.expectBox(QStringLiteral("Error loading list of providers. ") + said, QStringLiteral("Error"));
    make();
    EXPECT_EQ(itemsOf(*form->cboprovider), QStringList{"All Providers"});
    form->show();
    settle();
    EXPECT_EQ(status(), QStringLiteral("No report has been made."));
    EXPECT_FALSE(form->cmdprint->isEnabled());
    desk.expectBox(QStringLiteral("Error loading list of providers. ") + said, QStringLiteral("Error"));
    form->cmdgenerate1->click();
    EXPECT_EQ(status(), QStringLiteral("No report has been made."));
}

TEST_F(ReportForm, ListsThatCouldNotBeReadAreReadByRefresh) {
    Session().Connection.Close();
    desk.expectBox(
        QStringLiteral(
            "Error loading list of providers. The connection cannot be used to perform this operation. It is either closed or invalid in this context."),
        QStringLiteral("Error"));
    open(ReportMode::Schedule, QStringLiteral("LANE"));
    Session().Connection.Open(database.connectionText());
    form->cmdgenerate1->click();
    EXPECT_EQ(form->cboprovider->currentText(), QStringLiteral("Lane"));
    EXPECT_EQ(lines().value(2), QStringLiteral("Provider: Lane"));
}

TEST_F(ReportForm, ACompanionThatCannotBeReachedIsToldOnceAndAgainByRefresh) {
    Session().FHConnectionString =
        QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=gone;").arg(folder.path());
    QString said;
    try {
        db::Connection gone;
        gone.Open(Session().FHConnectionString);
    } catch (const db::DatabaseError& error) {
        said = error.description;
    }
    desk.expectBox(QStringLiteral("Error loading list of providers. ") + said, QStringLiteral("Error"));
    open(ReportMode::Companion);
    QCoreApplication::processEvents();
    desk.expectBox(QStringLiteral("Error loading list of providers. ") + said, QStringLiteral("Error"));
    form->cmdgenerate1->click();
    EXPECT_EQ(status(), QStringLiteral("No report has been made."));
}

TEST_F(ReportForm, TheFirstPagesCanBeLookedAtWhileTheRestIsMade) {
    bookMany();
    make();
    int pages = 0;
    meanwhile([&] {
        pages = form->vp->PageCount();
        EXPECT_GE(pages, 1);
        EXPECT_FALSE(form->vp->Document().blocks.empty());
        EXPECT_TRUE(form->pnlprogress->isVisible() && form->cmdcancel->isVisible());
        EXPECT_FALSE(form->cmdprint->isEnabled() || form->cmdsave->isEnabled());
        QTest::keyClick(form.get(), Qt::Key_P, Qt::ControlModifier);
        EXPECT_TRUE(status().endsWith(QStringLiteral("of 6,000 entries"))) << status().toStdString();
    });
    form->show();
    settle();
    ASSERT_TRUE(wasGenerating);
    EXPECT_GT(form->vp->PageCount(), pages);
    expectWhole(6000);
}

TEST_F(ReportForm, AReportThatIsCancelledSaysSoOnPaperAndCanBeMadeAgain) {
    bookMany();
    make();
    for (int round = 0; round < 2; ++round) {
        wasGenerating = false;
        meanwhile([this, round] {
            if (round == 0)
                form->cmdcancel->click();
            else
                QTest::keyClick(form.get(), Qt::Key_Escape);
        });
        if (round == 0)
            form->show();
        else
            form->cmdgenerate1->click();
        settle();
        ASSERT_TRUE(wasGenerating);
        EXPECT_TRUE(form->isVisible());
        EXPECT_LT(rows().size(), 6000);
        EXPECT_TRUE(lines().last().startsWith(QStringLiteral("The report is cut short: it ends after ")));
        EXPECT_EQ(status(), lines().last());
        EXPECT_TRUE(form->cmdprint->isEnabled());
    }
    form->cmdgenerate1->click();
    expectWhole(6000);
}

TEST_F(ReportForm, RefreshAndTheFilterBeginARunningReportAnew) {
    bookMany();
    book({.text = "Lunch", .code = ncolor::Unavailable, .patient = ""});
    make();
    meanwhile([this] { form->cmdfilter->click(); });
    form->show();
    settle();
    ASSERT_TRUE(wasGenerating);
    expectWhole(6000);
    wasGenerating = false;
    meanwhile([this] {
        form->ctdate[1]->setDate(QDate(2026, 3, 1));
        form->cmdgenerate1->click();
        form->cmdgenerate1->click();
    });
    form->cmdgenerate1->click();
    ASSERT_TRUE(wasGenerating);
    EXPECT_EQ(lines()[1], QStringLiteral("Dates: 3/1/2026 to 3/1/2026"));
    EXPECT_FALSE(form->IsGenerating());
}

TEST_F(ReportForm, RefreshKeepsThePaperThatTheUserTurned) {
    book({});
    open();
    auto* landscape = form->findChild<QAction*>(QStringLiteral("cmdlandscape"));
    landscape->trigger();
    form->cmdgenerate1->click();
    EXPECT_EQ(form->vp->Document().setup.orientation, QPageLayout::Landscape);
    EXPECT_TRUE(landscape->isChecked());
}

TEST_F(ReportForm, CancelTakesBackARefreshTooThatHasNotBegun) {
    bookMany();
    make();
    meanwhile([this] {
        form->cmdgenerate1->click();
        form->cmdcancel->click();
    });
    form->show();
    settle();
    ASSERT_TRUE(wasGenerating);
    EXPECT_LT(rows().size(), 6000);
}

TEST_F(ReportForm, ClosesInTheMiddleOfAReport) {
    bookMany();
    for (int round = 0; round < 2; ++round) {
        make();
        meanwhile([this, round] {
            if (round == 0)
                form->close();
            else
                form->cmdclose->click();
        });
        form->show();
        settle();
        ASSERT_TRUE(wasGenerating);
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(form->IsGenerating());
    }
}

TEST_F(ReportForm, MayGoWithItsWindowInTheMiddleOfAReport) {
    bookMany();
    make();
    meanwhile([this] { form.reset(); });
    form->show();
    settle();
    EXPECT_TRUE(wasGenerating);
    EXPECT_EQ(form, nullptr);
}

TEST_F(ReportForm, WhatTheDatabaseCutsShortSaysSoOnPaper) {
    bookMany();
    run("Update appointments Set patientid = 'P' + Convert(varchar(9), nkeyid)");
    make();
    meanwhile([this] {
        const QString said = DropTable(database.connection(), QStringLiteral("patient_info"));
        desk.expectBox(QStringLiteral("Error generating report. ") + said, QStringLiteral("Error"));
    });
    form->show();
    settle();
    ASSERT_TRUE(wasGenerating);
    EXPECT_TRUE(lines().last().startsWith(QStringLiteral("The report is cut short")));
    EXPECT_LT(rows().size(), 6000);
    EXPECT_TRUE(form->cmdprint->isEnabled());
}

TEST_F(ReportForm, WithoutAPrinterItCanBeSaved) {
    book({});
    open();
    Printers().anyInstalled = [] { return false; };
    desk.expectBox(
        QStringLiteral("No printer is installed on this computer. You can save the document as a PDF file instead."),
        QStringLiteral("Print"));
    form->cmdprint->click();
    desk.chosenFile = file("report.pdf");
    for (int round = 0; round < 2; ++round) {
        form->cmdsave->click();
        EXPECT_TRUE(status().startsWith(QStringLiteral("Saved as ")));
        EXPECT_TRUE(FileBytes(desk.chosenFile).startsWith("%PDF-"));
    }
    EXPECT_TRUE(desk.proposed[0].endsWith(QStringLiteral("/Schedule.pdf")));
}

TEST_F(ReportForm, PrintsWhatIsShown) {
    book({});
    open();
    Printers().anyInstalled = [] { return true; };
    Printers().choose = [this](QPrinter& printer, int pages) {
        EXPECT_EQ(pages, 1);
        printer.setOutputFileName(file("printed.pdf"));
        return true;
    };
    for (int round = 0; round < 2; ++round)
        QTest::keyClick(form.get(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(status(), QStringLiteral("The document has gone to the printer."));
    EXPECT_TRUE(FileBytes(file("printed.pdf")).startsWith("%PDF-"));
}

TEST_F(ReportForm, EveryPartHasANameAndAKeyOfItsOwn) {
    open();
    QStringList keys;
    for (const QLabel* label : form->findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            keys << label->text().section(u'&', 1).left(1).toUpper();
    for (const QPushButton* button : form->findChildren<QPushButton*>())
        keys << button->text().section(u'&', 1).left(1).toUpper();
    keys.removeAll(QString());
    const QStringList all = keys;
    EXPECT_EQ(keys.removeDuplicates(), 0) << all.join(u' ').toStdString();
    EXPECT_EQ(all.size(), 10);
}

TEST_F(ReportForm, ARefreshDoesNotMakeTheReportLonger) {
    bookMany(1000);
    open();
    const auto pages = form->vp->PageCount();
    for (int round = 0; round < 5; ++round) {
        form->cmdgenerate1->click();
        EXPECT_EQ(form->vp->PageCount(), pages);
    }
}
