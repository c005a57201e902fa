#include "tests/desks/deskfixture.h"
#include "tests/desks/deskperson.h"

namespace {

/// A desk whose practice has a companion: Lane and Reed, who is logged on, on a real display.
class CompanionView : public DeskFixture {
  protected:
    CompanionView() {
        connection.Execute(db::Sql("Update settings Set FHServer = '{}', FHDatabaseName = '{}', UseFHSchedView = '1'",
                                   companion.source(), companion.catalog()));
        connection.Execute(
            "Insert into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values (1, 'FH-1', 1, 'REED')");
        for (
            const char* statement :
            {"Insert Into DefaultFieldValues (DfltFieldName, DfltValue) Values ('DBID', 'FH-1')",
             "Insert Into Providers (ProvLastName, ProvFirstName) Values('Reed', 'Ada')",
             "Insert Into Providers (ProvLastName, ProvFirstName) Values('Lane', 'Ben')",
             "Insert Into Clients (ClntLastName, ClntFirstName) Values('O''Brien', 'Anna')",
             "Insert Into TransactionCodes (TranName, TranDescription, TranType) Values('90834', 'Psychotherapy', 'C')",
             "Insert Into CalendarEvents (CEveName, CEveDate, CEveEndDate, CEveTime, CEveDuration, CEveAllProvidersInd) Values ('Huddle', '2026/03/11', '2026/03/11', '1900-01-01 13:00', 60, 1)"})
            companion.connection().Execute(QString::fromLatin1(statement));
        book(1, "2026/03/11");
        book(2, "2026/03/11");
        book(1, "2026/03/12");
        desk = std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), day, display.name());
        person = std::make_unique<Person>(*desk, display.name());
        person->turnTo("mdisched");
    }

    void book(int provider, const char* date) {
        companion.connection().Execute(db::Sql(
            "Insert Into ClientTransactions (ClntId, TranId, ProvId, CtrnDate, CtrnTime, CtrnDuration, CtrnStatus) Values (1, 1, {}, '{}', '{} 9:00 AM', 50, 'S')",
            provider, date, date));
    }
    bool soon(const std::function<bool()>& holds) {
        for (int tries = 0; tries < 2000; ++tries) {
            if (holds())
                return true;
            desk->tell("focus");
        }
        return false;
    }
    void expectItems(int count) {
        EXPECT_TRUE(soon([&] { return items() == count; })) << desk->tell("items").toStdString();
    }
    int items() { return static_cast<int>(desk->tell("items").split(u'\n', Qt::SkipEmptyParts).size()); }
    void expectView(const char* view) {
        EXPECT_TRUE(soon([&] { return desk->tell("shows", QLatin1String(view)) == QLatin1String("yes"); })) << view;
    }
    QString at(int minute, int column) {
        return desk->tell("timePlace", QString::number(minute), QString::number(column));
    }
    void clickBox(int row) { person->click(desk->tell("rowPlace", QStringLiteral("ctList1"), QString::number(row))); }
    void press(const char* key) { person->press({QLatin1String(key)}); }
    [[nodiscard]] QString choice() {
        return value(QStringLiteral(
            "Select UP_PD_Value from User_Preferences Where UP_Pref_Detail = 'SVSchedulerFHTherapistList'"));
    }

    TestDatabase companion{SchemaScript::Companion};
    Display display;
    std::unique_ptr<Desk> desk;
    std::unique_ptr<Person> person;
};

}  // namespace

TEST_F(CompanionView, OpensFirstAndProvidersAreCheckedByMouseAndKeys) {
    expectView("frmFHAppts");
    expectItems(4);
    person->picture("companion-day");
    for (int time = 0; time < 2; ++time) {
        clickBox(0);
        expectItems(2);
        person->press({QStringLiteral("Home"), QStringLiteral("space")});
        expectItems(4);
        clickBox(1);
        expectItems(2);
        // The last one stays.
        clickBox(0);
        expectItems(2);
        press("alt+v");
        person->turnTo("popup");
        person->press({QStringLiteral("o"), QStringLiteral("a")});
        person->turnTo("mdisched");
        expectItems(4);
    }
    clickBox(0);
    expectItems(2);
    press("ctrl+1");
    expectView("frmsched");
    EXPECT_EQ(choice(), QStringLiteral("1|"));
    press("ctrl+6");
    expectView("frmFHAppts");
    expectItems(2);
}

TEST_F(CompanionView, IsSteppedAndTurnedToTheWeekAndBack) {
    expectView("frmFHAppts");
    for (int time = 0; time < 2; ++time) {
        press("alt+Right");
        expectItems(1);
        press("alt+Left");
        expectItems(4);
        // Reed's week, by a click into the column.
        person->click(at(660, 2));
        press("ctrl+shift+w");
        expectItems(3);
        EXPECT_EQ(desk->tell("text", QStringLiteral("pnlView")), QStringLiteral(" Week Schedule for: Reed, Ada"));
        person->picture("companion-week");
        press("alt+Right");
        expectItems(1);
        press("alt+Left");
        expectItems(3);
        press("ctrl+shift+w");
        expectItems(4);
    }
}

TEST_F(CompanionView, TellsTheDetailsOfTheItemThatIsClicked) {
    expectView("frmFHAppts");
    for (int time = 0; time < 2; ++time) {
        person->click(desk->tell("itemPlace", QStringLiteral("2")));
        EXPECT_TRUE(soon([&] {
            return desk->tell("text", QStringLiteral("ctListInfo")).startsWith(QLatin1String("Name;Anna O'Brien"));
        }));
        press("ctrl+h");
        EXPECT_TRUE(
            soon([&] { return !desk->tell("text", QStringLiteral("ctListInfo")).contains(QLatin1String("Anna")); }));
        press("ctrl+h");
        person->click(at(960, 1));
        EXPECT_TRUE(soon([&] {
            return desk->tell("text", QStringLiteral("ctListInfo")) ==
                   QLatin1String("Appointment;No Appointment Selected");
        }));
    }
}
