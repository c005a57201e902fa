#include "tests/desks/deskfront.h"

namespace {

/// A front desk that may see all schedules, with a second provider.
class DeskDay : public FrontDesk {
  protected:
    DeskDay() {
        connection.Execute("Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)");
        connection.Execute(
            "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values ('LANE', 1, '333333333')");
    }
    /// One step: keys or a click.
    void step(const QStringList& keys) {
        ++steps;
        person->press(keys);
    }
    void stepClick(const QString& place) {
        ++steps;
        person->click(place);
    }
    QString entry(const char* name) { return desk->tell("entryPlace", QLatin1String(name)); }

    int steps = 0;
};

}  // namespace

TEST_F(DeskDay, ByKeyboardAViewIsSavedInFourStepsAndShownInOne) {
    person->press({QStringLiteral("ctrl+4")});
    awaitView("frmall");
    step({QStringLiteral("alt+v"), QStringLiteral("v"), QStringLiteral("s")});
    person->turnTo("frmsviews");
    step({QStringLiteral("F8")});
    ++steps;
    person->type(QStringLiteral("Whole practice"));
    person->picture("saved-views");
    step({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(steps, 4);
    EXPECT_EQ(value(QStringLiteral("Select Title from SavedViews Where Slot = 8")), QStringLiteral("Whole practice"));

    person->press({QStringLiteral("ctrl+1")});
    awaitView("frmsched");
    steps = 0;
    step({QStringLiteral("F8")});
    awaitView("frmall");
    EXPECT_EQ(steps, 1);
}

TEST_F(DeskDay, ByMouseAViewIsSavedInFiveStepsAndShownInThree) {
    person->press({QStringLiteral("ctrl+2")});
    awaitView("frmweekv");
    stepClick(desk->tell("menuPlace", QStringLiteral("mnuView")));
    person->turnTo("popup");
    stepClick(entry("mnuVSaved"));
    EXPECT_TRUE(soon([this] { return desk->tell("hasEntry", QStringLiteral("mnuVSave")) == QLatin1String("yes"); }));
    stepClick(entry("mnuVSave"));
    person->turnTo("frmsviews");
    stepClick(desk->tell("rowPlace", QStringLiteral("List1"), QStringLiteral("1")));
    stepClick(desk->tell("widgetPlace", QStringLiteral("cmdsave")));
    person->turnTo("mdisched");
    EXPECT_EQ(steps, 5);
    EXPECT_EQ(value(QStringLiteral("Select Title from SavedViews Where Slot = 8")), QStringLiteral("Week View, Reed"));

    person->press({QStringLiteral("ctrl+1")});
    awaitView("frmsched");
    steps = 0;
    stepClick(desk->tell("menuPlace", QStringLiteral("mnuView")));
    person->turnTo("popup");
    stepClick(entry("mnuVSaved"));
    EXPECT_TRUE(soon([this] { return desk->tell("hasEntry", QStringLiteral("mnuVSaved8")) == QLatin1String("yes"); }));
    stepClick(entry("mnuVSaved8"));
    awaitView("frmweekv");
    EXPECT_EQ(steps, 3);
}

TEST_F(DeskDay, AnotherProviderIsChosenByTheTitleInThreeSteps) {
    stepClick(desk->tell("widgetPlace", QStringLiteral("cmdwhose")));
    person->turnTo("frmsltpv");
    stepClick(desk->tell("rowPlace", QStringLiteral("List1"), QStringLiteral("0")));
    stepClick(desk->tell("widgetPlace", QStringLiteral("cmdOk")));
    person->turnTo("mdisched");
    EXPECT_EQ(steps, 3);
    EXPECT_TRUE(desk->tell("text", QStringLiteral("cmdwhose")).startsWith(QStringLiteral("Lane")));
    person->picture("title-lane");

    steps = 0;
    step({QStringLiteral("ctrl+l")});
    person->turnTo("frmsltpv");
    ++steps;
    person->type(QStringLiteral("re"));
    step({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(steps, 3);
    EXPECT_TRUE(desk->tell("text", QStringLiteral("cmdwhose")).startsWith(QStringLiteral("Reed")));
}

TEST_F(DeskDay, TheDayBeginsWhereTheUserLeftWithoutAStep) {
    person->press({QStringLiteral("ctrl+l")});
    person->turnTo("frmsltpv");
    person->type(QStringLiteral("la"));
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    person->press({QStringLiteral("ctrl+2")});
    awaitView("frmweekv");
    person.reset();
    desk.reset();

    desk = std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), QDate(), display.name());
    awaitView("frmweekv");
    EXPECT_TRUE(desk->tell("text", QStringLiteral("cmdwhose")).startsWith(QStringLiteral("Lane")));
    EXPECT_TRUE(desk->tell("text", QStringLiteral("pnlsched")).contains(QStringLiteral("Lane")));

    desk = openDesk(display.name());
    awaitView("frmsched");
    EXPECT_TRUE(desk->tell("text", QStringLiteral("cmdwhose")).startsWith(QStringLiteral("Reed")))
        << "A date was asked for.";
}

TEST_F(DeskDay, OfTwoDesksOfOneUserTheLastOneCountsAndNothingBreaks) {
    const auto other = openDesk();
    person->press({QStringLiteral("ctrl+3")});
    awaitView("frmmtv");
    other->tell("trigger", QStringLiteral("mnuVAll"));
    for (int tries = 0; tries < 2000 && other->tell("shows", QStringLiteral("frmall")) != QLatin1String("yes"); ++tries)
        other->tell("focus");
    EXPECT_EQ(value(QStringLiteral("Select UP_PD_Value from User_Preferences Where UP_Pref_Detail = 'LastView'")),
              QStringLiteral("4"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from User_Preferences Where UP_Pref_Detail = 'LastView'")), 1);
}
