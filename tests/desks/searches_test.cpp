#include "tests/desks/deskfront.h"

namespace {

/// "When can you see me?", and what a practice keeps in its lists.
class Searches : public FrontDesk {
  protected:
    Searches() {
        for (
            const char* statement :
            {"Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)",
             "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values ('LANE', 1, '333333336')"})
            connection.Execute(QString::fromLatin1(statement));
    }
    QString told(const char* widget) { return desk->tell("text", QLatin1String(widget)); }
    bool soonTold(const char* widget, const QString& part) {
        return soon([&] { return told(widget).contains(part); });
    }
};

}  // namespace

TEST_F(Searches, AnAppointmentIsFoundPrintedAndGoneTo) {
    const QString anna = add(900, 950, QStringLiteral("O'Brien, Anna"));
    connection.Execute(db::Sql("Update appointments Set dapptdate = '2026/05/06' Where nkeyid = {}", db::Raw{anna}));
    add(540, 600, QStringLiteral("Åkesson, Bo"));

    person->press({QStringLiteral("ctrl+f")});
    person->turnTo("frmfinda");
    person->type(QStringLiteral("o'bri"));
    person->press({QStringLiteral("Return")});
    ASSERT_TRUE(soonTold("ctList1", QStringLiteral("O'Brien, Anna;")));
    person->picture("find");
    person->press({QStringLiteral("alt+p")});
    person->turnTo("frmpreview");
    person->picture("find-preview");
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmfinda");
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_TRUE(desk->tell("items").startsWith(anna + QStringLiteral(" 900-950")));
}

TEST_F(Searches, WhoIsFreeIsFoundAndBookedWith) {
    connection.Execute(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values ('2027/03/10', 540, 720, 'Busy', 16711681, 'REED')");
    desk->tell("trigger", QStringLiteral("mnuASearchO"));
    person->turnTo("frmsavail");
    desk->tell("replace", QStringLiteral("ctdate"), QStringLiteral("3/10/2027"));
    desk->tell("replace", QStringLiteral("ctstart"), QStringLiteral("10"));
    desk->tell("replace", QStringLiteral("ctend"), QStringLiteral("11"));
    person->press({QStringLiteral("Return")});
    ASSERT_TRUE(soonTold("lblcount", QStringLiteral("1 provider")));
    person->picture("opening");
    person->press({QStringLiteral("Tab"), QStringLiteral("Tab"), QStringLiteral("Down"), QStringLiteral("Home"),
                   QStringLiteral("alt+g")});
    person->turnTo("mdisched");
    EXPECT_EQ(told("pnlsched").trimmed(), QStringLiteral("Schedule for: Lane"));
    person->click(at(600));
    person->press({QStringLiteral("ctrl+n")});
    bookByKeyboard(QStringLiteral("o'b"));
    person->turnTo("mdisched");
    EXPECT_EQ(value(db::Sql("Select clinicianid from appointments Where nkeyid = {}", db::Raw{newestKey()})),
              QStringLiteral("LANE"));
}

TEST_F(Searches, TheFirstFreeTimeOfATypeIsFound) {
    connection.Execute(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, appttype) Values ('2027/03/10', 540, 720, 'Intake', 8438015, 'REED', 4)");
    connection.Execute(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid, appttype) Values ('2027/03/10', 540, 600, 'Booked', 16711681, 'REED', 0)");
    desk->tell("trigger", QStringLiteral("mnuASearchT"));
    person->turnTo("frmfirstatype");
    desk->tell("choose", QStringLiteral("cboProviders"), QStringLiteral("Reed"));
    desk->tell("choose", QStringLiteral("cboatypes"), QStringLiteral("Intake"));
    desk->tell("replace", QStringLiteral("txtlength"), QStringLiteral("50"));
    person->press({QStringLiteral("Return")});
    ASSERT_TRUE(soonTold("lblcount", QStringLiteral("1 opening")));
    EXPECT_TRUE(told("ctList1").contains(QStringLiteral(";10:00 AM;10:50 AM;"))) << told("ctList1").toStdString();
    person->picture("type");
    person->press({QStringLiteral("alt+g")});
    person->turnTo("mdisched");
    EXPECT_TRUE(desk->tell("items").contains(QStringLiteral("540-720 Intake")));
}

TEST_F(Searches, ATaskIsAddedTickedPrintedAndDeleted) {
    desk->tell("trigger", QStringLiteral("mnuTNew"));
    person->turnTo("w_Item");
    person->type(QStringLiteral("Call the bank"));
    person->picture("task");
    person->press({QStringLiteral("alt+o")});
    person->turnTo("mdisched");
    EXPECT_TRUE(told("ctList1").contains(QStringLiteral("Call the bank")));
    person->press({QStringLiteral("alt+k"), QStringLiteral("Home"), QStringLiteral("space")});
    EXPECT_TRUE(soon([&] { return number(QStringLiteral("Select Count(*) from ToDo Where Completed <> 0")) == 1; }));
    desk->tell("trigger", QStringLiteral("mnuTPrint"));
    person->turnTo("frmpreview");
    person->picture("task-preview");
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
    desk->tell("trigger", QStringLiteral("mnuTDelete"));
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("mdisched");
    EXPECT_EQ(told("ctList1"), QString());
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from ToDo")), 0);
}

TEST_F(Searches, ALocationIsAddedToTheListAndOffered) {
    desk->tell("trigger", QStringLiteral("mnuFLoc"));
    person->turnTo("frmlocs");
    person->type(QStringLiteral("Garden"));
    person->press({QStringLiteral("Return")});
    EXPECT_TRUE(soonTold("List1", QStringLiteral("Garden")));
    person->picture("locations");
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from Locations Where Location = 'Garden'")), 1);
}
