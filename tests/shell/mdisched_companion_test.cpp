// How the main window offers the companion's view, and to whom.

#include <QTest>

#include "data/codes.h"
#include "platform/controls/noticebar.h"
#include "shell/mdisched.h"
#include "tests/shell/mainwindowfixture.h"

namespace {

class CompanionInTheWindow : public MainWindowFixture {};

}  // namespace

TEST_F(CompanionInTheWindow, TheFernhallGroupIsThereOnlyWithALink) {
    start();
    EXPECT_FALSE(pane().GroupVisible(QStringLiteral("FHVIEWS")));
    EXPECT_FALSE(window->ViewAvailable(View::Companion));
}

TEST_F(CompanionInTheWindow, WithoutAPairInFernhallTheSelectionGoesBackToTheOpenView) {
    pairWithCompanion();
    paired->connection().Execute(QStringLiteral("Delete from FHDataPairs"));
    Session().FHProviderId = 4;
    start();
    desk.expectBox(QStringLiteral("Unable to find Fernhall scheduling data for this provider."),
                   QStringLiteral("Provider Schedule Not Found in Fernhall"));
    QTest::mouseClick(pane().Item(QStringLiteral("FH")), Qt::LeftButton);
    EXPECT_EQ(Session().CurrentView, View::Day);
    EXPECT_EQ(pane().SelectedKey(), QStringLiteral("DAY"));
    EXPECT_EQ(Session().FHProviderId, 0);
}

TEST_F(CompanionInTheWindow, APairThatCannotBeLookedUpIsToldInTheBarAndTheOneThatWasFoundStays) {
    pairWithCompanion();
    start();
    Session().FHProviderId = 7;
    const QString why = DropTable(paired->connection(), QStringLiteral("FHDataPairs"));
    for (int time = 0; time < 2; ++time) {
        window->changeview(View::Companion);
        EXPECT_EQ(Session().CurrentView, View::Day);
        EXPECT_EQ(pane().SelectedKey(), QStringLiteral("DAY"));
        EXPECT_EQ(Session().FHProviderId, 7);
        EXPECT_EQ(window->findChild<NoticeBar*>()->Texts(),
                  QStringList{QStringLiteral("The provider could not be looked up for Fernhall. ") + why});
    }
}

TEST_F(CompanionInTheWindow, ACompanionThatCannotOpenFirstGivesWayToTheDay) {
    Session().FHDatabaseId = QStringLiteral("FH1");
    ViewFactories factories;
    factories[View::Day] = [this](MainWindow& main) { return std::make_unique<PlaceholderView>(1, main, log); };
    window = std::make_unique<mdisched>(std::move(factories));
    window->InitTaskPane();
    window->changeview(View::Companion);
    EXPECT_EQ(events(), QStringList{QStringLiteral("open 1")});
    EXPECT_EQ(Session().CurrentView, View::Day);
}

TEST_F(CompanionInTheWindow, EachWayToTheCompanionRefusesAProviderWithoutACounterpart) {
    pairWithCompanion();
    start();
    window->changeview(View::Companion);
    EXPECT_EQ(Session().CurrentView, View::Companion);
    EXPECT_EQ(Session().FHProviderId, 7);
    window->changeview(View::Week);
    paired->connection().Execute(QStringLiteral("Delete from FHDataPairs"));
    for (const auto& go : std::vector<std::function<void()>>{
             [this] { window->changeview(View::Companion); },
             [this] { QTest::mouseClick(pane().Item(QStringLiteral("FH")), Qt::LeftButton); },
             [this] { QTest::keyClick(window.get(), Qt::Key_6, Qt::ControlModifier); }}) {
        desk.expectBox(QStringLiteral("Unable to find Fernhall scheduling data for this provider."),
                       QStringLiteral("Provider Schedule Not Found in Fernhall"));
        go();
        EXPECT_EQ(Session().CurrentView, View::Week);
        EXPECT_EQ(pane().SelectedKey(), QStringLiteral("WEEK"));
    }
}

TEST_F(CompanionInTheWindow, TheAdministratorOpensTheCompanionForTheSelectedProvider) {
    pairWithCompanion();
    Session().UID = QStringLiteral("ADMIN");
    Session().UserType = SystemAdministrator;
    start();
    window->changeview(View::Companion);
    EXPECT_EQ(Session().CurrentView, View::Companion);
    EXPECT_EQ(Session().FHProviderId, 7);
}

TEST_F(CompanionInTheWindow, HidingNamesReloadsTheCompanion) {
    pairWithCompanion();
    start();
    window->changeview(View::Companion);
    events();
    button("btnHidePats").click();
    EXPECT_EQ(events(), (QStringList{QStringLiteral("follow 6"), QStringLiteral("reload 6")}));
}
