#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QMenu>

#include "tests/companion/schedulefixture.h"

namespace {

class CompanionProviders : public ScheduleFixture {
  protected:
    [[nodiscard]] QString kept() {
        return database_.text(
            "Select UP_PD_Value from User_Preferences where UP_Pref_Category = 'Interfaces' and UP_Pref_Detail = 'SVSchedulerFHTherapistList' AND UP_UserID = 'REED'");
    }
    void keep(const char* choice) {
        here(db::Sql(
            "Insert Into User_Preferences (UP_Pref_Category, UP_Pref_Detail, UP_UserID, UP_PD_Value) Values('Interfaces', 'SVSchedulerFHTherapistList', 'REED', '{}')",
            choice));
    }
    void tryAgain() {
        auto* button = view_->findChild<QWidget*>(QStringLiteral("unread"))->findChild<QAbstractButton*>();
        QTest::mouseClick(button, Qt::LeftButton);
        settle();
    }
};

const QString told = QStringLiteral("Error loading Fernhall providers. ");

}  // namespace

TEST_F(CompanionProviders, EachProviderHasAColumnInTheOrderOfTheNames) {
    open();
    EXPECT_EQ(titles(), (QStringList{"Lane, Ben", "Moss, Eve", "Reed, Ada"}));
    EXPECT_EQ(checks(), "+Lane, Ben +Moss, Eve +Reed, Ada");
    EXPECT_EQ(view_->ProviderOfColumn(2), (CompanionProvider{3, "Moss, Eve"}));
    EXPECT_EQ(view_->ProviderOfColumn(0), std::nullopt);
    EXPECT_EQ(view_->ProviderOfColumn(4), std::nullopt);
}

TEST_F(CompanionProviders, AUserOfTheOwnScheduleSeesThePairedProviderOnly) {
    Session().AllProviders = false;
    Session().FHProviderId = 2;
    open();
    EXPECT_EQ(titles(), QStringList{"Lane, Ben"});
    EXPECT_FALSE(command("mnuAll").isEnabled());
}

TEST_F(CompanionProviders, AProviderWhoIsClearedLosesTheColumnAndTheChoiceIsKept) {
    open();
    EXPECT_EQ(kept(), "");
    clickBox(1);
    EXPECT_EQ(titles(), (QStringList{"Lane, Ben", "Reed, Ada"}));
    EXPECT_EQ(view_->ProviderOfColumn(2)->provId, 1);
    EXPECT_EQ(kept(), "") << "The choice is stored when the view is left.";
    reopen();
    EXPECT_EQ(kept(), "2|1|");
    EXPECT_EQ(checks(), "+Lane, Ben -Moss, Eve +Reed, Ada");
    clickBox(1);
    reopen();
    EXPECT_EQ(kept(), "2|3|1|");
}

TEST_F(CompanionProviders, ABoxIsClearedByTheMouseAndCheckedAgainByTheKey) {
    add({});
    add({.provider = 2});
    open();
    for (int time = 0; time < 2; ++time) {
        const QRect box = providers().visualRect(providers().model()->index(0, 0));
        QTest::mouseClick(providers().viewport(), Qt::LeftButton, {}, box.center());
        settle();
        EXPECT_EQ(titles(), (QStringList{"Moss, Eve", "Reed, Ada"}));
        EXPECT_EQ(grid().ItemCount(), 1);
        QTest::keyClick(&providers(), Qt::Key_Home);
        QTest::keyClick(&providers(), Qt::Key_Space);
        settle();
        EXPECT_EQ(titles().size(), 3);
        EXPECT_EQ(grid().ItemCount(), 2);
    }
}

TEST_F(CompanionProviders, TheRowOfTheChoiceIsMadeWhenItIsMissing) {
    EXPECT_EQ(kept(), "(none)");
    open();
    EXPECT_EQ(kept(), "");
    const db::Recordset row("Select * from User_Preferences", database_.connection());
    EXPECT_EQ(row["UP_DateCreated"].date(), QDate(2026, 3, 11));
    reopen();
    EXPECT_EQ(database_.number("Select Count(*) from User_Preferences"), 1);
}

TEST_F(CompanionProviders, AKeptChoiceIsComparedAsText) {
    keep("02|3|");
    open();
    EXPECT_EQ(checks(), "-Lane, Ben +Moss, Eve -Reed, Ada");
}

TEST_F(CompanionProviders, AChoiceThatFitsNobodyShowsEverybody) {
    keep("rubbish; ||-1|'|9999999999999|");
    open();
    EXPECT_EQ(checks(), "+Lane, Ben +Moss, Eve +Reed, Ada");
    EXPECT_EQ(titles().size(), 3);
}

TEST_F(CompanionProviders, TheLastBoxComesBackAndNothingIsReloaded) {
    add({});
    open();
    clickBox(0);
    clickBox(1);
    grid().setSelectedItem(1);
    there("Delete from ClientTransactions");
    clickBox(2);
    EXPECT_EQ(checks(), "-Lane, Ben -Moss, Eve +Reed, Ada");
    EXPECT_EQ(column(1), QStringList{"540-590 O'Brien, Anna"});
    EXPECT_EQ(grid().SelectedItem(), 1);
}

TEST_F(CompanionProviders, SelectAllChecksEverybodyAndLoadsTheirDay) {
    keep("2|");
    add({});
    open();
    EXPECT_EQ(titles().size(), 1);
    trigger("mnuProvSelectAll");
    EXPECT_EQ(checks(), "+Lane, Ben +Moss, Eve +Reed, Ada");
    EXPECT_EQ(column(Reed), QStringList{"540-590 O'Brien, Anna"});
    trigger("mnuProvSelectAll");
    EXPECT_EQ(titles().size(), 3);
}

TEST_F(CompanionProviders, TheListOffersSelectAllByTheMenuKey) {
    keep("2|");
    open();
    auto* popup = view_->findChild<QMenu*>(QStringLiteral("popupProviders"));
    for (int time = 0; time < 2; ++time) {
        providers().SelectRow(0);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, providers().mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&providers(), &event);
        settle();
        ASSERT_TRUE(popup->isVisible());
        QTest::keyClick(popup, Qt::Key_A);
        settle();
        EXPECT_FALSE(popup->isVisible());
        EXPECT_EQ(titles().size(), 3);
    }
}

TEST_F(CompanionProviders, WithoutAProviderTheUserIsToldSo) {
    Session().AllProviders = false;
    Session().FHProviderId = 77;
    desk.expectBox("No matching or paired provider in Fernhall for current user. Unable to load schedule.", "Solvane");
    open();
    EXPECT_EQ(titles(), QStringList());
    view_->Reload();
    EXPECT_EQ(grid().ItemCount(), 0);
}

TEST_F(CompanionProviders, AnUnpairedUserOfAllSchedulesSeesTheOthers) {
    Session().FHProviderId = 0;
    open();
    EXPECT_EQ(titles().size(), 3);
}

TEST_F(CompanionProviders, AChoiceThatCannotBeMadeIsToldAndEverybodyIsShown) {
    const QString why = database_.refuse("Insert", "User_Preferences");
    desk.expectBox("Error loading last saved therapist filter. " + why, "Error Getting Information");
    open();
    EXPECT_EQ(titles().size(), 3);
}

TEST_F(CompanionProviders, AChoiceThatCouldNotBeReadIsNotReplacedBeforeTheUserChooses) {
    for (const bool chooses : {false, true}) {
        here("Delete from User_Preferences");
        const QString why = database_.refuse("Insert", "User_Preferences");
        desk.expectBox("Error loading last saved therapist filter. " + why, "Error Getting Information");
        open();
        database_.allow("Insert", "User_Preferences");
        keep("2|");
        if (chooses)
            clickBox(1);
        view_->close();
        EXPECT_EQ(kept(), chooses ? "2|1|" : "2|");
        view_.reset();
    }
}

TEST_F(CompanionProviders, ACompanionThatIsAwayIsToldOnceAndCanBeTriedAgain) {
    add({});
    const QString why = takeCompanionAway();
    desk.expectBox(told + why, "Error");
    open();
    EXPECT_EQ(titles(), QStringList());
    EXPECT_EQ(database_.number("Select Count(*) from User_Preferences"), 0);
    bringCompanionBack();
    tryAgain();
    EXPECT_EQ(titles().size(), 3);
    EXPECT_EQ(column(Reed), QStringList{"540-590 O'Brien, Anna"});
}

TEST_F(CompanionProviders, AnUnreadListKeepsTheStoredChoice) {
    keep("2|");
    const QString why = takeCompanionAway();
    desk.expectBox(told + why, "Error");
    open();
    view_->close();
    EXPECT_EQ(kept(), "2|");
}

TEST_F(CompanionProviders, ACompanionThatGoesAwayLaterIsToldOnceForAllColumns) {
    add({});
    open();
    const QString why = takeCompanionAway();
    desk.expectBox("Error loading appointments. " + why, "Error");
    view_->Reload();
    settle();
    EXPECT_EQ(grid().ItemCount(), 0);
    bringCompanionBack();
    view_->Reload();
    EXPECT_EQ(column(Reed), QStringList{"540-590 O'Brien, Anna"});
}

TEST_F(CompanionProviders, AProviderUnpairedMeanwhileStaysOnTheListUntilItIsReadAnew) {
    open();
    there("Delete from Providers Where ProvId = 3");
    view_->Reload();
    EXPECT_EQ(titles().size(), 3);
    reopen();
    EXPECT_EQ(checks(), "+Lane, Ben +Reed, Ada");
}

TEST_F(CompanionProviders, ThreeHundredProvidersHaveTheirColumns) {
    std::vector<std::vector<db::Value>> rows;
    for (int i = 0; i < 297; ++i)
        rows.push_back({QStringLiteral("Zed%1").arg(i, 3, 10, QLatin1Char('0')), "Pat"});
    companion.connection().InsertRows("Providers", {"ProvLastName", "ProvFirstName"}, rows);
    add({.provider = 300});
    addEvent({.attendees = {1}, .allProviders = true});
    open();
    EXPECT_EQ(titles().size(), 300);
    EXPECT_EQ(column(300), (QStringList{"540-590 O'Brien, Anna", "780-840 Staff meeting"}));
    EXPECT_EQ(grid().ItemCount(), 301);
    reopen();
    EXPECT_EQ(titles().size(), 300);
}

TEST_F(CompanionProviders, TheListCanBeHidden) {
    open();
    EXPECT_TRUE(providers().isVisible());
    trigger("mnuVDisplay");
    EXPECT_FALSE(providers().isVisible());
    trigger("mnuVDisplay");
    EXPECT_TRUE(providers().isVisible());
}
