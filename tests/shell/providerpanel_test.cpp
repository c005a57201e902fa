#include "shell/providerpanel.h"

#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "tests/shell/practicefixture.h"

namespace {

/// The panel on its own, with Baker, Lane and Reed on it.
class APanel : public PracticeFixture {
  protected:
    APanel() {
        for (const char* name : {"Baker", "Lane", "Reed"})
            panel.Add({QString::fromLatin1(name).toUpper(), QString::fromLatin1(name), QStringLiteral("Nursing")});
        QObject::connect(&panel, &ProviderPanel::ChoiceChanged, &panel, [this] { told << panel.Choice(); });
        panel.show();
        settle();
    }
    [[nodiscard]] QWidget& openView() override { return panel; }

    void turn(int row) {
        panel.List().SelectRow(row);
        QTest::keyClick(&panel.List(), Qt::Key_Space);
    }
    static bool isLane(const ListedProvider& provider) { return provider.name == QLatin1String("Lane"); }

    QStringList told;  ///< The choice after each change by hand.
    ProviderPanel panel{ProviderPanel::Columns::Provider};
};

constexpr char Category[] = "Interfaces";
constexpr char Detail[] = "Therapists";

}  // namespace

TEST_F(APanel, ListsWhoWasAddedInThatOrder) {
    EXPECT_EQ(panel.List().RowCount(), 3);
    EXPECT_EQ(panel.List().ColumnCount(), 2);
    EXPECT_EQ(panel.List().Cell(1, 2), "Lane");
    EXPECT_EQ(panel.List().ItemData(1).toString(), "LANE");
    EXPECT_EQ(panel.Choice(), "BAKER|LANE|REED|");
    panel.Add({"XU", "Xu", {}, false});
    EXPECT_EQ(panel.Choice(), "BAKER|LANE|REED|");
    panel.Clear();
    EXPECT_EQ(panel.Choice(), "");
    EXPECT_TRUE(panel.Providers().empty());
}

TEST_F(APanel, ListsTheDisciplineTooWhereTheViewHasAColumnForIt) {
    ProviderPanel wide(ProviderPanel::Columns::ProviderAndDiscipline);
    const ListedProvider lane{"LANE", "Lane", "Nursing", true};
    wide.Add(lane);
    EXPECT_EQ(wide.List().Header(3), "Discipline");
    EXPECT_EQ(wide.List().Cell(0, 3), "Nursing");
    EXPECT_EQ(wide.Providers(), std::vector<ListedProvider>{lane});
}

TEST_F(APanel, TellsWhenTheUserTakesOneOffOrOn) {
    turn(1);
    turn(0);
    turn(1);
    EXPECT_EQ(told, (QStringList{"BAKER|REED|", "REED|", "LANE|REED|"}));
}

TEST_F(APanel, CannotBeEmptiedByHand) {
    turn(0);
    turn(1);
    told.clear();
    turn(2);
    EXPECT_EQ(panel.Choice(), "REED|");
    EXPECT_EQ(told, QStringList());
}

TEST_F(APanel, SaysNothingOfWhatTheViewChecksItself) {
    panel.CheckThose(isLane);
    EXPECT_EQ(panel.Choice(), "LANE|");
    panel.CheckThose([](const ListedProvider& provider) { return provider.shown || provider.name == "Reed"; });
    EXPECT_EQ(panel.Choice(), "LANE|REED|");
    panel.CheckThose([](const ListedProvider&) { return false; });
    EXPECT_EQ(panel.Choice(), "") << "A filter may fit nobody.";
    panel.CheckAll();
    EXPECT_EQ(panel.Choice(), "BAKER|LANE|REED|");
    EXPECT_EQ(told, QStringList());
}

TEST_F(APanel, TakesUpAChoiceThatWasLeft) {
    panel.Choose("REED|BAKER|");
    EXPECT_EQ(panel.Choice(), "BAKER|REED|");
    panel.Choose("lane|REE|GONE|REED|");
    EXPECT_EQ(panel.Choice(), "REED|") << "To the letter, and nobody who is not listed.";
    panel.Choose({});
    EXPECT_EQ(panel.Choice(), "BAKER|LANE|REED|") << "Without a choice everybody is shown.";
}

TEST_F(APanel, FindsAProviderInWhicheverCaseTheIdIsWritten) {
    panel.CheckThose(isLane);
    ASSERT_TRUE(panel.Find("lane"));
    EXPECT_EQ(panel.Find("lane")->name, "Lane");
    EXPECT_TRUE(panel.Find("LANE")->shown);
    EXPECT_FALSE(panel.Find("REED")->shown);
    EXPECT_FALSE(panel.Find("NOBODY"));
}

TEST_F(APanel, HasRoomForTheRowsOfItsView) {
    auto* filter = new QLineEdit(&panel);
    panel.Rows().insertWidget(1, filter);
    settle();
    EXPECT_LT(filter->geometry().bottom(), panel.List().geometry().top());
}

TEST_F(APanel, AChoiceIsKeptForTheUserWhoMadeIt) {
    EXPECT_EQ(ReadChoice(Category, Detail), "");
    EXPECT_EQ(database_.text("Select UP_UserID from User_Preferences Where UP_Pref_Detail = 'Therapists'"), "REED")
        << "The row is made when it is missing.";
    WriteChoice(Category, Detail, "12|40|");
    EXPECT_EQ(ReadChoice(Category, Detail), "12|40|");
    Session().UID = "LANE";
    EXPECT_EQ(ReadChoice(Category, Detail), "");
    WriteChoice(Category, Detail, "7|");
    Session().UID = "REED";
    EXPECT_EQ(ReadChoice(Category, Detail), "12|40|");
    EXPECT_EQ(database_.text("Select Count(*) from User_Preferences Where UP_Pref_Detail = 'Therapists'"), "2");
}

TEST_F(APanel, AChoiceThatCannotBeReadOrWrittenIsAnError) {
    DropTable(Session().Connection, QStringLiteral("User_Preferences"));
    EXPECT_THROW((void)ReadChoice(Category, Detail), db::DatabaseError);
    EXPECT_THROW(WriteChoice(Category, Detail, "12|"), db::DatabaseError);
}
