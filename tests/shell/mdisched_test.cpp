#include "shell/mdisched.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QTest>

#include "people/frmsltpv.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/forms.h"
#include "platform/desktop/manual.h"
#include "tests/shell/mainwindowfixture.h"
#include "tests/support/files.h"

namespace {

const QDate Wednesday(2026, 3, 11);

class MainWindowTest : public MainWindowFixture {
  protected:
    QString panelText(const char* name) { return the<QLabel>(name).text(); }

    /// Plays the user who picks a provider on frmsltpv.
    void expectProvider(const QString& id, const QString& name) {
        desk.expectForm("frmsltpv", [id, name](QDialog& form) {
            auto& list = *static_cast<frmsltpv&>(form).List1;
            const int row = list.AddRow({name, id}, id);
            list.SetItemText(row, name);
            list.SelectRow(row);
            static_cast<frmsltpv&>(form).cmdOk->setEnabled(true);
            form.findChild<QPushButton*>(QStringLiteral("cmdOk"))->click();
        });
    }
};

struct PaneItem {
    const char* key;
    const char* text;
    const char* hint;
};

struct Captions {
    int index;
    const char* previous;
    const char* next;
    const char* key;
};

class ViewCaptions : public MainWindowTest, public testing::WithParamInterface<Captions> {};

struct Step {
    const char* name;
    int index;
    int days;
};

class ViewSteps : public MainWindowTest, public testing::WithParamInterface<Step> {};

}  // namespace

TEST_F(MainWindowTest, ThePaneHasItsGroupsWithTheirCaptionsAndHints) {
    Session().FHDatabaseId = QStringLiteral("FH1");
    start();
    EXPECT_EQ(pane().HeadingCaption(), QStringLiteral("Calendar"));
    EXPECT_EQ(pane().HeadingKey(), QStringLiteral("ADVANCED"));
    EXPECT_EQ(pane().GroupCaption(QStringLiteral("CAL")), QStringLiteral("Calandar"));
    EXPECT_EQ(pane().GroupCaption(QStringLiteral("SVVIEWS")), QStringLiteral("Solvane Views"));
    EXPECT_EQ(pane().GroupCaption(QStringLiteral("FHVIEWS")), QStringLiteral("Fernhall"));
    EXPECT_TRUE(pane().isAncestorOf(&calendar()));
    for (const PaneItem& item :
         {PaneItem{"DAY", "Day View", "Show day view for selected provider"},
          PaneItem{"WEEK", "Week View", "Show week view for selected provider"},
          PaneItem{"MONTH", "Month View", "Show month view for selected provider"},
          PaneItem{"ALL", "All Provider View", "Show schedule for all providers for selected day"},
          PaneItem{"ROOM", "Room View", "Show room schedule for selected day"},
          PaneItem{"FH", "Fernhall Calendar", "Show Fernhall Schedule"}}) {
        const QToolButton* button = pane().Item(QString::fromLatin1(item.key));
        ASSERT_NE(button, nullptr) << item.key;
        EXPECT_EQ(button->text(), QString::fromLatin1(item.text));
        EXPECT_EQ(button->toolTip(), QString::fromLatin1(item.hint));
    }
}

TEST_F(MainWindowTest, ThePanelsNameUserScheduleAndAccess) {
    Session().ProviderName = QStringLiteral("Young");
    start();
    EXPECT_EQ(panelText("pnluser"), QStringLiteral(" User: Reed"));
    EXPECT_EQ(button("pnlsched").text(), QStringLiteral(" Schedule for: Young"));
    EXPECT_EQ(panelText("pnlaccess"), QStringLiteral("  Access: Write-Delete"));
}

TEST_F(MainWindowTest, AnUnknownAccessLevelLeavesItsPanelEmpty) {
    Session().ScreenAccess = 7;
    start();
    EXPECT_EQ(panelText("pnlaccess"), QString());
}

TEST_F(MainWindowTest, BeforeTheFirstViewTheWindowIsEmptyAndItsCommandsWait) {
    window = std::make_unique<mdisched>(ViewFactories());
    window->ShowMainWindow();
    QApplication::processEvents();
    for (const char* name : {"cmdtoday", "btnNav0", "btnNav1", "cmdadd", "cmdprint", "btnHidePats", "cmdday"})
        EXPECT_FALSE(button(name).isEnabled()) << name;
    EXPECT_FALSE(calendar().isVisible());
    EXPECT_FALSE(pane().isVisible());
}

TEST_F(MainWindowTest, TheWindowFirstOpensNoLargerThanTheScreen) {
    window = std::make_unique<mdisched>(ViewFactories());
    EXPECT_EQ(window->size().expandedTo(window->screen()->availableSize()), window->screen()->availableSize());
}

TEST_F(MainWindowTest, WithTheFirstViewTheCommandsComeAlive) {
    start();
    for (const char* name : {"cmdtoday", "btnNav0", "btnNav1", "cmdadd", "cmdprint", "btnHidePats"})
        EXPECT_TRUE(button(name).isEnabled()) << name;
    EXPECT_TRUE(calendar().isVisible());
    EXPECT_TRUE(pane().isVisible());
}

TEST_F(MainWindowTest, TheFirstViewOpensOnTheDateThatWasAskedFor) {
    ViewFactories factories;
    factories[View::Day] = [this](MainWindow& main) {
        EXPECT_EQ(main.Date(), QDate(2026, 5, 4));
        return std::make_unique<PlaceholderView>(1, main, log);
    };
    window = std::make_unique<mdisched>(std::move(factories));
    window->OpenAt(QDate(2026, 5, 4));
    window->InitTaskPane();
    window->MarkReady(Wednesday);
    window->ShowDayView();
    EXPECT_EQ(events(), QStringList{QStringLiteral("open 1")});
}

TEST_P(ViewCaptions, FollowTheView) {
    pairWithCompanion();
    start();
    window->changeview(static_cast<View>(GetParam().index + 1));
    QApplication::processEvents();
    EXPECT_EQ(Session().CurrentView, static_cast<View>(GetParam().index + 1));
    EXPECT_EQ(pane().SelectedKey(), QString::fromLatin1(GetParam().key));
    const bool steps = GetParam().next[0] != '\0';
    EXPECT_EQ(button("btnNav0").isVisible(), steps);
    EXPECT_EQ(button("btnNav1").isVisible(), steps);
    EXPECT_EQ(button("btnNav0").text(), QString::fromLatin1(GetParam().previous));
    EXPECT_EQ(button("btnNav1").text(), QString::fromLatin1(GetParam().next));
}

INSTANTIATE_TEST_SUITE_P(All, ViewCaptions,
                         testing::Values(Captions{0, "Previous Day", "Next Day", "DAY"},
                                         Captions{1, "Previous Week", "Next Week", "WEEK"},
                                         Captions{2, "Previous Month", "Next Month", "MONTH"},
                                         Captions{3, "Previous Day", "Next Day", "ALL"}, Captions{4, "", "", "ROOM"},
                                         Captions{5, "Previous Day", "Next Day", "FH"}),
                         [](const auto& view) { return view.param.key; });

TEST_F(MainWindowTest, ChangingTheViewUnloadsTheOldOneFirst) {
    start();
    events();
    window->changeview(View::Month);
    EXPECT_EQ(events(), (QStringList{QStringLiteral("close 1"), QStringLiteral("open 3")}));
}

TEST_F(MainWindowTest, ChangingToTheOpenViewDoesNothing) {
    start();
    events();
    window->changeview(View::Day);
    EXPECT_EQ(events(), QStringList());
}

TEST_F(MainWindowTest, AViewThatKeepsUnsavedWorkStays) {
    start();
    log.refusesToClose = true;
    window->changeview(View::Week);
    EXPECT_EQ(Session().CurrentView, View::Day);
    EXPECT_EQ(pane().SelectedKey(), QStringLiteral("DAY"));
    log.refusesToClose = false;
}

TEST_F(MainWindowTest, TheViewStaysWhileADialogIsOpen) {
    start();
    events();
    QDialog dialog;
    desk.expectForm("QDialog", [this](QDialog&) {
        window->changeview(View::Week);
        EXPECT_EQ(Session().CurrentView, View::Day);
        EXPECT_EQ(pane().SelectedKey(), QStringLiteral("DAY"));
        EXPECT_EQ(events(), QStringList());
    });
    ShowModal(dialog);
    window->changeview(View::Week);
    EXPECT_EQ(Session().CurrentView, View::Week);
}

TEST_F(MainWindowTest, TheWindowStaysWhileADialogIsOpen) {
    start();
    Session().Connection.Create(QStringLiteral("Data Source=%1;Initial Catalog=any;").arg(folder.path()));
    events();
    QDialog dialog;
    desk.expectForm("QDialog", [this](QDialog&) {
        EXPECT_FALSE(window->close());
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(Session().Connection.IsOpen());
        EXPECT_EQ(events(), QStringList());
    });
    ShowModal(dialog);
    EXPECT_TRUE(window->close());
}

TEST_F(MainWindowTest, AViewsOwnCommandMayReplaceTheView) {
    start();
    auto* command = window->findChild<QAction*>(QStringLiteral("mnuVWeek"));
    command->trigger();
    EXPECT_EQ(Session().CurrentView, View::Week);
    EXPECT_TRUE(log.events.contains(QStringLiteral("menu 1")));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_NE(window->ShownView(), nullptr);
}

TEST_F(MainWindowTest, TheRoomViewCarriesItsTitle) {
    start();
    window->changeview(View::Rooms);
    EXPECT_EQ(panelText("pnltitle"), QStringLiteral("Room Scheduler"));
    window->changeview(View::Day);
    EXPECT_EQ(panelText("pnltitle"), QString());
}

TEST_F(MainWindowTest, AViewThatIsNotInThisVersionIsSeenButSaysSo) {
    start({View::Day});
    const QToolButton* week = pane().Item(QStringLiteral("WEEK"));
    EXPECT_FALSE(week->isEnabled());
    EXPECT_EQ(week->toolTip(), QStringLiteral("Week View is not available in this version"));
    events();
    window->changeview(View::Week);
    QTest::keyClick(window.get(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(Session().CurrentView, View::Day);
}

TEST_F(MainWindowTest, TheToolbarAsksForTheListOfCheckedInPatients) {
    start();
    int asked = 0;
    QObject::connect(window.get(), &mdisched::CheckedInRequested, window.get(), [&asked] { ++asked; });
    button("cmdCheckedin").click();
    EXPECT_EQ(asked, 1);
}

TEST_F(MainWindowTest, FindIsOfferedWhereTheViewCanFind) {
    start();
    EXPECT_FALSE(button("cmdfind").isEnabled());
}

TEST_F(MainWindowTest, AllSchedulesAreOnlyForThoseWhoMaySeeThem) {
    Session().AllProviders = false;
    start();
    EXPECT_FALSE(pane().Item(QStringLiteral("ALL"))->isEnabled());
    window->changeview(View::AllProviders);
    EXPECT_EQ(Session().CurrentView, View::Day);
}

TEST_F(MainWindowTest, APaneItemOpensItsView) {
    start();
    QTest::mouseClick(pane().Item(QStringLiteral("MONTH")), Qt::LeftButton);
    EXPECT_EQ(Session().CurrentView, View::Month);
    QTest::mouseClick(pane().Item(QStringLiteral("ROOM")), Qt::LeftButton);
    EXPECT_EQ(Session().CurrentView, View::Rooms);
}

TEST_P(ViewSteps, MoveTheDateAndReload) {
    pairWithCompanion();
    start();
    window->changeview(static_cast<View>(GetParam().index + 1));
    events();
    const QString reload = QStringLiteral("reload %1").arg(GetParam().index + 1);
    window->cycledate(1);
    EXPECT_EQ(window->Date(), Wednesday.addDays(GetParam().days));
    window->cycledate(0);
    EXPECT_EQ(window->Date(), Wednesday);
    window->cycledate(2);
    EXPECT_EQ(window->Date(), Wednesday);
    EXPECT_EQ(events(), (QStringList{reload, reload, reload}));
}

INSTANTIATE_TEST_SUITE_P(All, ViewSteps,
                         testing::Values(Step{"Day", 0, 1}, Step{"Week", 1, 7}, Step{"Month", 2, 30}, Step{"All", 3, 1},
                                         Step{"Room", 4, 0}, Step{"Companion", 5, 1}),
                         [](const auto& step) { return step.param.name; });

TEST_F(MainWindowTest, SteppingWhooshesOnlyWithSoundEffectsAndNotOnReload) {
    start();
    window->cycledate(1);
    EXPECT_EQ(desk.sounds, QStringList());
    Session().SoundEffects = true;
    window->cycledate(2);
    EXPECT_EQ(desk.sounds, QStringList());
    window->cycledate(0);
    EXPECT_EQ(desk.sounds, QStringList{QStringLiteral("/practice/whoosh.wav")});
}

TEST_F(MainWindowTest, ADayOfTheCalendarIsLoadedWhenItIsClicked) {
    start();
    events();
    calendar().Choose(QDate(2026, 3, 20));
    EXPECT_EQ(window->Date(), QDate(2026, 3, 20));
    EXPECT_EQ(events(), QStringList{QStringLiteral("reload 1")});
}

TEST_F(MainWindowTest, SettingTheDateLoadsNothing) {
    start();
    events();
    window->SetDate(QDate(2026, 3, 20));
    EXPECT_EQ(events(), QStringList());
}

TEST_F(MainWindowTest, TodayIsLoadedOnlyWhenAnotherDateIsShown) {
    start();
    events();
    button("cmdtoday").click();
    EXPECT_EQ(events(), QStringList());
    window->SetDate(QDate(2027, 1, 1));
    button("cmdtoday").click();
    EXPECT_EQ(window->Date(), Wednesday);
    EXPECT_EQ(events(), QStringList{QStringLiteral("reload 1")});
}

TEST_F(MainWindowTest, TodayTurnsTheCalendarBackToItsPage) {
    start();
    calendar().ShowMonth(QDate(2028, 1, 1));
    button("cmdtoday").click();
    EXPECT_EQ(calendar().ShownMonth(), QDate(2026, 3, 1));
}

TEST_F(MainWindowTest, AddAndPrintGoToTheViewAndAreHiddenWhereNoViewHasThem) {
    start();
    events();
    button("cmdadd").click();
    button("cmdprint").click();
    EXPECT_EQ(events(), (QStringList{QStringLiteral("add 1"), QStringLiteral("print 1")}));
    window->changeview(View::Week);
    EXPECT_TRUE(button("cmdadd").isEnabled());
    EXPECT_FALSE(button("cmdprint").isEnabled());
    window->changeview(View::Rooms);
    QApplication::processEvents();
    EXPECT_FALSE(button("cmdadd").isVisible());
    EXPECT_FALSE(button("cmdprint").isVisible());
}

TEST_F(MainWindowTest, AReadOnlyUserCannotAdd) {
    log.canAdd = false;
    start();
    EXPECT_FALSE(button("cmdadd").isEnabled());
}

TEST_F(MainWindowTest, NamesAreHiddenFromAnotherWindowWhileTheViewStaysAsItIs) {
    start();
    QDialog other(window.get());
    other.setModal(true);
    other.show();
    QApplication::processEvents();
    events();
    QTest::keyClick(&other, Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(Session().HidePatientNames);
    EXPECT_TRUE(button("btnHidePats").isChecked());
    EXPECT_EQ(events(), QStringList{QStringLiteral("follow 1")});
    QTest::keyClick(&other, Qt::Key_H, Qt::ControlModifier);
    EXPECT_FALSE(Session().HidePatientNames);
}

TEST_F(MainWindowTest, HidingNamesReloadsTheDayAndTheCompanionOnly) {
    start();
    events();
    button("btnHidePats").click();
    EXPECT_TRUE(Session().HidePatientNames);
    EXPECT_TRUE(button("btnHidePats").isChecked());
    EXPECT_EQ(events(), (QStringList{QStringLiteral("follow 1"), QStringLiteral("reload 1")}));
    window->changeview(View::Week);
    events();
    button("btnHidePats").click();
    EXPECT_FALSE(Session().HidePatientNames);
    EXPECT_EQ(events(), QStringList{QStringLiteral("follow 2")});
}

TEST_F(MainWindowTest, TheSchedulePanelIsALinkForThoseWhoMaySeeAllSchedules) {
    start();
    EXPECT_TRUE(button("pnlsched").font().underline());
    EXPECT_EQ(button("pnlsched").cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(MainWindowTest, TheSchedulePanelIsPlainTextForTheOthers) {
    Session().AllProviders = false;
    start();
    EXPECT_FALSE(button("pnlsched").font().underline());
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      button("pnlsched").mapTo(window.get(), button("pnlsched").rect().center()));
    window->SelectProvider();
    EXPECT_EQ(Session().ProviderId, QStringLiteral("REED"));
}

TEST_F(MainWindowTest, AnotherProviderIsShownAtOnceWithABell) {
    start();
    Session().SoundEffects = true;
    events();
    expectProvider(QStringLiteral("YOUNG"), QStringLiteral("Young"));
    QTest::mouseClick(&button("pnlsched"), Qt::LeftButton);
    EXPECT_EQ(Session().ProviderId, QStringLiteral("YOUNG"));
    EXPECT_EQ(button("pnlsched").text(), QStringLiteral(" Schedule for: Young"));
    EXPECT_EQ(panelText("pnluser"), QStringLiteral(" User: Reed"));
    EXPECT_EQ(events(), QStringList{QStringLiteral("reload 1")});
    EXPECT_EQ(desk.sounds, QStringList{QStringLiteral("/practice/softbell.wav")});
}

TEST_F(MainWindowTest, TheSameProviderAgainChangesNothing) {
    start();
    events();
    expectProvider(QStringLiteral("REED"), QStringLiteral("Reed"));
    window->SelectProvider();
    EXPECT_EQ(events(), QStringList());
    EXPECT_EQ(desk.sounds, QStringList());
}

TEST_F(MainWindowTest, PreferencesReachEveryViewButTheRooms) {
    pairWithCompanion();
    start();
    const auto pressOk = [](QDialog& form) { form.findChild<QPushButton*>(QStringLiteral("cmdOk"))->click(); };
    for (const View view : {View::Day, View::Month, View::Rooms, View::Companion}) {
        window->changeview(view);
        events();
        desk.expectForm("frmaopts", pressOk);
        window->ShowPreferences();
        const QString reached = QStringLiteral("preferences %1").arg(static_cast<int>(view));
        EXPECT_EQ(events(), view == View::Rooms ? QStringList() : QStringList{reached});
    }
}

TEST_F(MainWindowTest, TheTaskPaneStaysHiddenUntilItIsWantedAgain) {
    start();
    window->ToggleTaskPane();
    EXPECT_FALSE(window->TaskPaneShown());
    window.reset();
    start();
    EXPECT_FALSE(window->TaskPaneShown());
    window->ToggleTaskPane();
    window.reset();
    start();
    EXPECT_TRUE(window->TaskPaneShown());
}

TEST_F(MainWindowTest, TheViewsMenusHearOfThePaneWhicheverWayItWasHidden) {
    start();
    events();
    the<QToolButton>("cmdClosePane").click();
    EXPECT_EQ(events(), QStringList{QStringLiteral("follow 1")});
}

TEST_F(MainWindowTest, AnEarlierRunsTaskPaneWidthComesBack) {
    start();
    the<QSplitter>("SSSplitter1").setSizes({330, window->width() - 330});
    const int width = pane().width();
    window->close();
    window.reset();
    start();
    EXPECT_NEAR(pane().width(), width, 2);
}

TEST_F(MainWindowTest, ASmallWindowKeepsEverythingInReach) {
    start();
    window->resize(640, 420);
    QApplication::processEvents();
    EXPECT_LE(window->height(), 420);
    EXPECT_TRUE(pane().isVisible());
    EXPECT_GE(calendar().height(), calendar().minimumSizeHint().height());
}

TEST_F(MainWindowTest, ClosingUnloadsTheViewClosesTheConnectionAndRemembersThePlace) {
    start();
    events();
    window->resize(900, 600);
    window->Leave();
    EXPECT_EQ(events(), QStringList{QStringLiteral("close 1")});
    EXPECT_FALSE(Session().Connection.IsOpen());
    EXPECT_TRUE(ReadUserSetting(QStringLiteral("mdisched")).contains(QStringLiteral(",900,600,")));
}

TEST_F(MainWindowTest, AWindowOfAFixedSizeLeavesTheRememberedPlaceAlone) {
    WriteUserSetting(QStringLiteral("mdisched"), QStringLiteral("5,5,700,500,0"));
    window = std::make_unique<mdisched>(ViewFactories{});
    window->OpenWithSize({1000, 650});
    window->RestorePosition();
    EXPECT_EQ(window->size(), QSize(1000, 650));
    window->close();
    EXPECT_EQ(ReadUserSetting(QStringLiteral("mdisched")), QStringLiteral("5,5,700,500,0"));
}

/// A manual of two pages.
class HelpTest : public MainWindowTest {
  protected:
    HelpTest() {
        PutFile(manual.filePath(QStringLiteral("index.html")), "<p>Contents</p>");
        PutFile(manual.filePath(QStringLiteral("forms.txt")), "mdisched window.html\nfrmaopts preferences.html\n");
        ManualFolder() = manual.path();
    }
    ~HelpTest() override { ManualFolder() = before; }
    [[nodiscard]] QString page(const char* name) const { return manual.filePath(QLatin1String(name)); }

    const QString before = ManualFolder();
    QTemporaryDir manual{TestFolderTemplate()};
};

TEST_F(HelpTest, F1OpensThePageOfTheWindowAndOfTheFormInFront) {
    start();
    QAction& help = *window->findChild<QAction*>(QStringLiteral("help"));
    help.trigger();
    EXPECT_EQ(desk.opened, QStringList(page("window.html"))) << "The view that is open has no page of its own.";
    QDialog stranger(window.get());
    QLineEdit field(&stranger);
    stranger.setModal(true);
    stranger.show();
    QTest::keyClick(&field, Qt::Key_F1);
    EXPECT_EQ(desk.opened.value(1), page("window.html")) << "A form that has no page belongs to a window that has one.";
    QTest::keyClick(&field, Qt::Key_F1);
    EXPECT_EQ(desk.opened.size(), 3) << "Twice is no more than twice.";
}

TEST_F(HelpTest, F1OpensAPartOfAPageAtItsHeading) {
    PutFile(manual.filePath(QStringLiteral("forms.txt")), "mdisched window.html#the-panes\n");
    start();
    QDialog stranger(window.get());
    stranger.setModal(true);
    stranger.show();
    QTest::keyClick(&stranger, Qt::Key_F1);
    EXPECT_EQ(desk.opened, QStringList(QStringLiteral("file://") + page("window.html#the-panes")));
}

TEST_F(HelpTest, F1HeldDownOpensOnePage) {
    start();
    EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("help"))->autoRepeat());
    QDialog stranger(window.get());
    stranger.setModal(true);
    stranger.show();
    for (const bool isRepeated : {false, true, true}) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, isRepeated);
        QApplication::sendEvent(&stranger, &held);
    }
    EXPECT_EQ(desk.opened, QStringList(page("window.html")));
}

TEST_F(HelpTest, AMissingBrowserIsToldWithThePage) {
    start();
    Desktop().openWithShell = [](const QString&) { return false; };
    desk.expectBox(
        QStringLiteral("No browser could be started for the manual. Its page is %1.").arg(page("window.html")),
        QStringLiteral("Solvane Scheduler"));
    window->findChild<QAction*>(QStringLiteral("help"))->trigger();
}

TEST_F(MainWindowTest, AMissingManualIsToldWithThePathOfItsFirstPage) {
    const QString manual = std::exchange(ManualFolder(), QStringLiteral("/nowhere"));
    start();
    window->SetHelpFile(folder.filePath(QStringLiteral("Solvane.chm")));
    desk.expectBox(
        QStringLiteral("The manual is not installed on this computer. Its first page would be /nowhere/index.html."),
        QStringLiteral("Solvane Scheduler"));
    window->findChild<QAction*>(QStringLiteral("help"))->trigger();
    EXPECT_EQ(desk.opened, QStringList());
    ManualFolder() = manual;
}

TEST_F(MainWindowTest, NothingIsClippedAtTheUsualSize) {
    start();
    window->resize(1280, 800);
    QApplication::processEvents();
    for (const char* name : {"cmdtoday", "btnNav0", "btnNav1", "cmdadd", "cmdfind", "cmdprint", "cmdCheckedin",
                             "btnHidePats", "cmdday", "pnlsched"}) {
        const QToolButton& shown = button(name);
        EXPECT_TRUE(shown.isVisible()) << name;
        EXPECT_GE(shown.width(), shown.sizeHint().width()) << name;
        EXPECT_TRUE(window->rect().contains(QRect(shown.mapTo(window.get(), QPoint()), shown.size()))) << name;
    }
}
