#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/textfield.h"
#include "platform/database/sql.h"
#include "session/lastplace.h"
#include "session/savedviews.h"
#include "shell/frmsviews.h"
#include "shell/menutables.h"
#include "shell/menuview.h"
#include "shell/titlebar.h"
#include "tests/shell/mainwindowfixture.h"

namespace {

/// A view with the real menus, which notes what it is asked to show.
class NotingView : public MenuView {
  public:
    NotingView(MainWindow& main, std::span<const MenuEntry> menus, ViewLog& log) : MenuView(main, menus), log_(log) {
        setFocusPolicy(Qt::StrongFocus);
        note("open");
        if (const std::optional<ViewContents> contents = main.TakeContents())
            note("for " + contents->Lines().replace('\n', ' '));
    }
    void Reload() override { note("reload"); }
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override { return from.addDays(direction); }
    void ApplyPreferences() override { note("preferences"); }
    void AddContents(ViewContents& contents) const override { contents.Set(savedname::Columns, 7); }
    void ShowContents(const ViewContents& contents) override { note("show " + contents.Lines().replace('\n', ' ')); }
    void ShowNow() override { note("now"); }

  protected:
    void closeEvent(QCloseEvent* event) override { event->setAccepted(!log_.refusesToClose); }

  private:
    void note(const QString& what) {
        log_.events << QStringLiteral("%1 %2").arg(static_cast<int>(Session().CurrentView)).arg(what);
    }
    ViewLog& log_;
};

/// The main window on a real database, in which Reed may see the schedule of Lane too.
class SavedInTheWindow : public MainWindowFixture {
  protected:
    SavedInTheWindow() {
        Session().Connection.Open(practice.connectionText());
        for (const char* id : {"REED", "LANE"}) {
            run(db::Sql("Insert Into provider_info (id, prov_lastname, archive) Values ('{}', '{}', 0)", id,
                        QString::fromLatin1(id).at(0) + QString::fromLatin1(id).mid(1).toLower()));
            run(db::Sql("Insert Into passwords (pswd_user_id) Values ('{}')", id));
        }
    }
    void run(const QString& statement) { practice.connection().Execute(statement); }
    mdisched& open() {
        ViewFactories factories;
        const auto make = [&](View view, auto menus) {
            factories[view] = [this, menus](MainWindow& main) {
                return std::make_unique<NotingView>(main, menus(), log);
            };
        };
        make(View::Day, &DayMenus);
        make(View::Week, &WeekMenus);
        make(View::Month, &MonthMenus);
        make(View::AllProviders, &AllProvidersMenus);
        make(View::Rooms, &RoomMenus);
        mdisched& opened = startWith(std::move(factories));
        events();
        return opened;
    }
    void save(int slot, const QString& title, View view, const QString& contents = {}) {
        run(db::Sql(
            "Insert Into SavedViews (UserId, Slot, Title, ViewNumber, Contents) Values ('REED', {}, '{}', {}, '{}')",
            slot, title, static_cast<int>(view), contents));
    }
    void press(Qt::Key key) {
        QTest::keyClick(window->ShownView(), key);
        QApplication::processEvents();
    }
    QAction* entry(const char* name) {
        for (QMenu* menu : window->menuBar()->findChildren<QMenu*>())
            for (QAction* action : menu->actions())
                if (action->objectName() == QLatin1String(name))
                    return action;
        return nullptr;
    }
    QString told() {
        const auto bars = window->findChildren<NoticeBar*>();
        return bars.isEmpty() ? QString() : bars.first()->Texts().join("; ");
    }
    QString kept(const char* detail) {
        return practice.text(db::Sql(
            "Select UP_PD_Value from User_Preferences Where UP_UserID = 'REED' And UP_Pref_Detail = '{}'", detail));
    }

    TestDatabase practice;
};

}  // namespace

TEST_F(SavedInTheWindow, AKeyShowsProviderHoursAndContentsOfTheView) {
    save(8, "Lane's long week", View::Week, "provider=LANE\nstarthour=6\nendhour=22\ntimeunit=30\ncolumns=7\nlater=1");
    open();

    press(Qt::Key_F8);

    EXPECT_EQ(events(),
              (QStringList{"2 open", "2 for provider=LANE starthour=6 endhour=22 timeunit=30 columns=7 later=1"}));
    EXPECT_EQ(Session().ProviderName, "Lane");
    EXPECT_EQ(Session().SavedHours, (ShownHours{6, 22}));
    EXPECT_EQ(Session().TimeUnit, 30);
    EXPECT_EQ(Session().DayStartHour, 8) << "An event of the whole day lasts as long as the practice is open.";
    EXPECT_EQ(Session().DayEndHour, 18);
    EXPECT_EQ(window->Date(), QDate(2026, 3, 11)) << "Today's work goes on.";
    EXPECT_EQ(the<QToolButton>("pnlsched").text(), " Schedule for: Lane");

    press(Qt::Key_F8);
    EXPECT_EQ(events(), QStringList{"2 show provider=LANE starthour=6 endhour=22 timeunit=30 columns=7 later=1"})
        << "The open view is not made anew.";
}

TEST_F(SavedInTheWindow, AViewThatIsChosenPlainlyHasTheUsersOwnHoursAgain) {
    save(7, "Long", View::Week, "starthour=6\nendhour=22\ntimeunit=5");
    open();
    press(Qt::Key_F7);
    ASSERT_EQ(Session().SavedHours, (ShownHours{6, 22}));

    window->changeview(View::Day);

    EXPECT_EQ(Session().SavedHours, std::nullopt);
    EXPECT_EQ(Session().TimeUnit, 15);
}

TEST_F(SavedInTheWindow, TheOpenViewThatIsChosenPlainlyHasTheUsersOwnHoursAgain) {
    save(7, "Long", View::Day, "starthour=6\nendhour=22\ntimeunit=5");
    open();
    for (int twice = 0; twice < 2; ++twice) {
        press(Qt::Key_F7);
        ASSERT_EQ(Session().SavedHours, (ShownHours{6, 22}));
        events();

        window->changeview(View::Day);

        EXPECT_EQ(events(), QStringList{"1 preferences"});
        EXPECT_EQ(Session().SavedHours, std::nullopt);
        EXPECT_EQ(Session().TimeUnit, 15);
    }
    window->changeview(View::Day);
    EXPECT_EQ(events(), QStringList()) << "Nothing is drawn anew for nothing.";
}

TEST_F(SavedInTheWindow, WhatIsSavedAgainHasTheHoursOnTheScreen) {
    save(7, "Long", View::Day, "starthour=6\nendhour=22");
    open();
    press(Qt::Key_F7);
    desk.expectForm("frmsviews", [](QDialog& dialog) {
        auto& form = dynamic_cast<frmsviews&>(dialog);
        form.List1->SelectRow(4);
        form.cmdsave->click();
    });
    window->SaveThisView();
    EXPECT_EQ(practice.text("Select Contents from SavedViews Where Slot = 11"),
              "provider=REED\nstarthour=6\nendhour=22\ntimeunit=15\ncolumns=7");
}

TEST_F(SavedInTheWindow, ThePreferencesShowTheUsersOwnHours) {
    save(7, "Long", View::Week, "starthour=6\nendhour=22");
    open();
    press(Qt::Key_F7);
    std::optional<ShownHours> shown = ShownHours{};
    desk.expectForm("frmaopts", [&](QDialog&) { shown = Session().SavedHours; });

    window->ShowPreferences();

    EXPECT_EQ(shown, std::nullopt);
    EXPECT_EQ(Session().SavedHours, (ShownHours{6, 22})) << "The form was cancelled.";
}

TEST_F(SavedInTheWindow, HoursThatMakeNoGridLeaveTheUsersOwn) {
    for (const char* contents :
         {"starthour=20\nendhour=9", "starthour=-3", "endhour=99", "timeunit=7", "starthour=x"}) {
        run("Delete from SavedViews");
        save(7, "Bad", View::Day, QLatin1String(contents));
        open();
        press(Qt::Key_F7);
        EXPECT_EQ(Session().SavedHours, std::nullopt) << contents;
        EXPECT_EQ(Session().TimeUnit, 15);
        window.reset();
    }
}

TEST_F(SavedInTheWindow, AProviderWhoIsGoneLeavesTheOneWhoIsShown) {
    save(7, "Gone", View::Week, "provider=BAKER");
    open();

    press(Qt::Key_F7);

    EXPECT_EQ(Session().ProviderId, "REED");
    EXPECT_EQ(Session().CurrentView, View::Week);
    EXPECT_TRUE(told().contains("Reed's schedule stays")) << told().toStdString();
}

TEST_F(SavedInTheWindow, TheRightsOfTheUserHold) {
    save(7, "Lane", View::Day, "provider=LANE");
    save(8, "All", View::AllProviders);
    Session().AllProviders = false;
    open();

    press(Qt::Key_F7);
    EXPECT_EQ(Session().ProviderId, "REED");
    press(Qt::Key_F8);
    EXPECT_EQ(Session().CurrentView, View::Day);
    EXPECT_TRUE(told().contains("not available to you")) << told().toStdString();
}

TEST_F(SavedInTheWindow, AViewOfALaterVersionIsListedAndToldOf) {
    run("Insert Into SavedViews (UserId, Slot, Title, ViewNumber) Values ('REED', 7, 'Timeline', 99)");
    open();
    press(Qt::Key_F7);
    EXPECT_EQ(Session().CurrentView, View::Day);
    EXPECT_TRUE(told().contains("another version of the program")) << told().toStdString();
}

TEST_F(SavedInTheWindow, WhatAnotherDeskHasChangedMeanwhileIsShownAsItIsNow) {
    save(7, "Week", View::Week);
    open();
    run("Update SavedViews Set ViewNumber = 3, Title = 'Month'");
    press(Qt::Key_F7);
    EXPECT_EQ(Session().CurrentView, View::Month);
    EXPECT_EQ(entry("mnuVSaved7")->text(), "&7 Month");

    run("Delete from SavedViews");
    press(Qt::Key_F7);
    EXPECT_TRUE(told().contains("Nothing is saved on F7 any more")) << told().toStdString();
    EXPECT_EQ(entry("mnuVSaved7"), nullptr);
}

TEST_F(SavedInTheWindow, AViewThatMayNotBeLeftKeepsWhatItShows) {
    save(7, "Lane", View::Week, "provider=LANE\nstarthour=6");
    open();
    log.refusesToClose = true;
    press(Qt::Key_F7);
    EXPECT_EQ(Session().CurrentView, View::Day);
    EXPECT_EQ(Session().ProviderId, "REED");
    EXPECT_EQ(Session().SavedHours, std::nullopt);
    EXPECT_FALSE(window->TakeContents());
    log.refusesToClose = false;
}

TEST_F(SavedInTheWindow, TitlesStandInTheMenuOfEachViewAsTheyAre) {
    save(7, "Reed & O'Neil", View::Day);
    save(10, "", View::Rooms);
    open();
    for (const View view : {View::Day, View::Week, View::Month, View::AllProviders, View::Rooms}) {
        window->changeview(view);
        ASSERT_NE(entry("mnuVSaved7"), nullptr) << static_cast<int>(view);
        EXPECT_EQ(entry("mnuVSaved7")->text(), "&7 Reed && O'Neil");
        EXPECT_EQ(entry("mnuVSaved7")->shortcut(), QKeySequence(Qt::Key_F7));
        EXPECT_EQ(entry("mnuVSaved10")->text(), "1&0 Room View");
    }
    press(Qt::Key_F10);
    press(Qt::Key_F7);
    EXPECT_EQ(Session().CurrentView, View::Day);
}

TEST_F(SavedInTheWindow, TheTaskPaneKeepsF9UntilAViewIsSavedOnIt) {
    open();
    const bool shown = window->TaskPaneShown();
    press(Qt::Key_F9);
    EXPECT_NE(window->TaskPaneShown(), shown);
    save(9, "Week", View::Week);
    press(Qt::Key_F9);
    EXPECT_EQ(window->TaskPaneShown(), shown) << "This desk has not read it yet.";
    desk.expectForm("frmsviews", [](QDialog&) {});
    window->SaveThisView();
    ASSERT_NE(entry("mnuVSaved9"), nullptr);
    EXPECT_EQ(entry("mnuVSaved9")->shortcut(), QKeySequence(Qt::Key_F9));
    EXPECT_EQ(the<QAction>("taskpane").shortcut(), QKeySequence());
    window->activateWindow();
    QApplication::processEvents();
    press(Qt::Key_F9);
    EXPECT_EQ(Session().CurrentView, View::Week);
    EXPECT_EQ(window->TaskPaneShown(), shown);
}

TEST_F(SavedInTheWindow, APracticeWithoutTheTableHasTheRest) {
    (void)DropTable(practice.connection(), "SavedViews");
    open();
    const QAction* save = entry("mnuVSave");
    EXPECT_FALSE(save->isEnabled());
    EXPECT_TRUE(save->toolTip().contains("svscheduler-admin upgrade")) << save->toolTip().toStdString();
    window->changeview(View::Week);
    EXPECT_EQ(Session().CurrentView, View::Week);
}

TEST_F(SavedInTheWindow, TheFormSavesRenamesAndDeletes) {
    open();
    desk.expectForm("frmsviews", [](QDialog& dialog) {
        auto& form = dynamic_cast<frmsviews&>(dialog);
        EXPECT_EQ(form.txtname->text(), "Day View, Reed");
        EXPECT_EQ(form.lblshown->text(), "On the screen: Day View, Reed");
        QTest::keyClick(&form, Qt::Key_F11);
        EXPECT_EQ(form.List1->SelectedRow(), 4);
        form.txtname->selectAll();
        QTest::keyClicks(form.txtname, "Mine & O'Neil's");
        form.cmdsave->click();
    });
    window->SaveThisView();
    EXPECT_EQ(practice.text("Select Contents from SavedViews Where Slot = 11"),
              "provider=REED\nstarthour=8\nendhour=18\ntimeunit=15\ncolumns=7");
    EXPECT_EQ(entry("mnuVSaved11")->text(), "1&1 Mine && O'Neil's");

    desk.expectForm("frmsviews", [](QDialog& dialog) {
        auto& form = dynamic_cast<frmsviews&>(dialog);
        EXPECT_EQ(form.List1->SelectedRow(), 0) << "The first free key is proposed.";
        form.List1->SelectRow(4);
        EXPECT_EQ(form.txtname->text(), "Mine & O'Neil's");
        form.txtname->selectAll();
        QTest::keyClicks(form.txtname, "Renamed");
        form.cmdrename->click();
    });
    window->SaveThisView();
    EXPECT_EQ(entry("mnuVSaved11")->text(), "1&1 Renamed");
    EXPECT_NE(practice.text("Select Contents from SavedViews Where Slot = 11"), "");

    desk.expectForm("frmsviews", [this](QDialog& dialog) {
        auto& form = dynamic_cast<frmsviews&>(dialog);
        form.List1->SelectRow(4);
        desk.expectBox("Delete the saved view \"Renamed\"?", "Saved Views", Answer::No);
        form.cmddelete->click();
        desk.expectBox("Delete the saved view \"Renamed\"?", "Saved Views", Answer::Yes);
        form.cmddelete->click();
        EXPECT_FALSE(form.cmddelete->isEnabled());
    });
    window->SaveThisView();
    EXPECT_EQ(entry("mnuVSaved11"), nullptr);
}

TEST_F(SavedInTheWindow, ATakenKeyIsReplacedAfterAQuestionAndKeepsWhatLaterVersionsHaveAdded) {
    save(7, "Before", View::Day, "provider=LANE\nzoom=2");
    open();
    const auto saveOnF7 = [&](Answer answer) {
        desk.expectForm("frmsviews", [this, answer](QDialog& dialog) {
            auto& form = dynamic_cast<frmsviews&>(dialog);
            form.List1->SelectRow(0);
            desk.expectBox("F7 shows \"Before\" now. Replace it?", "Saved Views", answer);
            form.cmdsave->click();
        });
        window->SaveThisView();
    };
    saveOnF7(Answer::No);
    EXPECT_EQ(practice.text("Select Contents from SavedViews"), "provider=LANE\nzoom=2");
    saveOnF7(Answer::Yes);
    EXPECT_EQ(practice.text("Select Contents from SavedViews"),
              "provider=REED\nstarthour=8\nendhour=18\ntimeunit=15\ncolumns=7\nzoom=2");
}

TEST_F(SavedInTheWindow, WhatAnotherDeskHasSavedMeanwhileIsNotReplacedUnseen) {
    open();
    desk.expectForm("frmsviews", [this](QDialog& dialog) {
        auto& form = dynamic_cast<frmsviews&>(dialog);
        save(7, "Other desk's", View::Month);
        desk.expectBox("What is saved on F7 was changed at another desk meanwhile. The list shows it now.",
                       "Saved Views");
        form.cmdsave->click();
        EXPECT_EQ(form.List1->Cell(0, 2), "Other desk's");
    });
    window->SaveThisView();
    EXPECT_EQ(practice.text("Select Title from SavedViews"), "Other desk's");
}

TEST_F(SavedInTheWindow, ADatabaseThatRefusesIsToldOfAndTheFormStays) {
    open();
    const QString why = practice.refuse("Insert", "SavedViews");
    desk.expectForm("frmsviews", [&](QDialog& dialog) {
        auto& form = dynamic_cast<frmsviews&>(dialog);
        desk.expectBox("The view was not saved. " + why, "Error");
        form.cmdsave->click();
        EXPECT_NE(form.result(), QDialog::Accepted);
    });
    window->SaveThisView();
}

TEST_F(SavedInTheWindow, JumpToNowGoesToTodayAndThenToTheHour) {
    open();
    window->SetDate(QDate(2026, 5, 1));
    entry("mnuVNow")->trigger();
    EXPECT_EQ(events(), (QStringList{"1 reload", "1 now"}));
    EXPECT_EQ(window->Date(), Today());
    entry("mnuVNow")->trigger();
    EXPECT_EQ(events(), QStringList{"1 now"});
}

TEST_F(SavedInTheWindow, EachChangeOfViewAndProviderIsKeptForTheNextStart) {
    open();
    EXPECT_EQ(kept("LastView"), "(none)") << "The start itself is no change.";
    window->changeview(View::Month);
    EXPECT_EQ(kept("LastView"), "3");
    Session().ProviderId = "LANE";
    window->ProviderChosen();
    EXPECT_EQ(kept("LastProvider"), "LANE");
    run("Update User_Preferences Set UP_PD_Value = '1' Where UP_Pref_Detail = 'LastView'");
    window->close();
    EXPECT_EQ(kept("LastView"), "3") << "Of two desks the one that closed last counts.";
}

TEST_F(SavedInTheWindow, TheViewLeftLastIsTheFirstAndOnlyOneThatIsOpened) {
    ViewFactories factories;
    for (const View view : {View::Day, View::Week})
        factories[view] = [this](MainWindow& main) { return std::make_unique<NotingView>(main, DayMenus(), log); };
    window = std::make_unique<mdisched>(std::move(factories));
    window->RestorePosition();
    window->ShowMainWindow();
    window->WritePanels();
    window->InitTaskPane();
    window->MarkReady(Today());
    window->ReturnTo({View::Week, {}, {}, false});
    Session().CurrentView = View::Day;
    window->ShowDayView();
    EXPECT_EQ(events(), QStringList{"2 open"});
    EXPECT_EQ(Session().CurrentView, View::Week);
}

TEST_F(SavedInTheWindow, AViewThatTheUserMayNotOpenAnyMoreGivesWayToTheDay) {
    Session().AllProviders = false;
    ViewFactories factories;
    for (const View view : {View::Day, View::AllProviders})
        factories[view] = [this](MainWindow& main) { return std::make_unique<NotingView>(main, DayMenus(), log); };
    window = std::make_unique<mdisched>(std::move(factories));
    window->ReturnTo({View::AllProviders, {}, {}, false});
    Session().CurrentView = View::Day;
    window->ShowDayView();
    EXPECT_EQ(Session().CurrentView, View::Day);
}

TEST_F(SavedInTheWindow, TheTitleSaysWhoseScheduleItIsAndOpensTheListOfProviders) {
    open();
    auto& whose = the<QToolButton>("cmdwhose");
    EXPECT_TRUE(whose.isVisible());
    EXPECT_EQ(whose.accessibleName(), "Schedule of Reed");
    for (int twice = 0; twice < 2; ++twice) {
        desk.expectForm("frmsltpv", [](QDialog& dialog) {
            dialog.findChild<ctList*>("List1")->SelectRow(0);
            dialog.findChild<QPushButton*>("cmdOk")->click();
        });
        whose.click();
        EXPECT_EQ(Session().ProviderId, "LANE");
        EXPECT_EQ(whose.accessibleName(), "Schedule of Lane");
    }
    window->changeview(View::Month);
    EXPECT_TRUE(whose.isVisible());
    for (const View view : {View::AllProviders, View::Rooms}) {
        window->changeview(view);
        EXPECT_FALSE(whose.isVisible()) << static_cast<int>(view);
    }
}

TEST_F(SavedInTheWindow, AUserOfOneScheduleReadsTheNameOnly) {
    Session().AllProviders = false;
    Session().ProviderName = "Smith & O'Neil <b>";
    open();
    auto& whose = the<QToolButton>("cmdwhose");
    EXPECT_EQ(whose.text(), "Smith && O'Neil <b>");
    EXPECT_EQ(whose.focusPolicy(), Qt::NoFocus);
    EXPECT_TRUE(whose.testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(SavedInTheWindow, ALongNameIsCutInTheTitleAndWholeInItsTip) {
    TitleBar bar;
    bar.ShowTitle(QStringLiteral("March 11, 2026"));
    bar.ShowWhose(QString(200, u'W'));
    bar.resize(500, 40);
    bar.show();
    QApplication::processEvents();
    EXPECT_EQ(bar.width(), 500);
    const auto& whose = *bar.findChild<QToolButton*>(QStringLiteral("cmdwhose"));
    EXPECT_LT(whose.geometry().right(), 500);
    EXPECT_TRUE(whose.toolTip().contains(QString(200, u'W'))) << whose.toolTip().toStdString();
}

TEST_F(SavedInTheWindow, ANameThatHasItsRoomIsWholeInTheTitle) {
    for (const char* name : {"Avellaneda", "Castellanos", "Lindqvist-Moreau", "Reed", "Dufresne"}) {
        TitleBar bar;
        bar.ShowTitle(QStringLiteral("March 11, 2026"));
        bar.ShowWhose(QLatin1String(name));
        bar.resize(900, 40);
        bar.show();
        QApplication::processEvents();
        auto& whose = *bar.findChild<QToolButton*>(QStringLiteral("cmdwhose"));
        QToolButton plain(whose.parentWidget());
        plain.setAutoRaise(true);
        plain.setToolButtonStyle(Qt::ToolButtonTextOnly);
        plain.setFont(whose.font());
        plain.setText(whose.text());
        plain.setGeometry(whose.geometry());
        EXPECT_EQ(whose.grab().toImage(), plain.grab().toImage()) << name << " is cut.";
    }
}
