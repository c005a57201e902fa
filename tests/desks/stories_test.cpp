#include "tests/desks/deskfront.h"

namespace {

/// What is booked more than once or for more than one: series, groups and activities.
class Stories : public FrontDesk {
  protected:
    Stories() {
        for (const char* statement :
             {"Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)",
              "Insert Into Groups (GroupName, Leader, activestatus) Values ('Anger', 'REED', 1)",
              "Insert Into GroupMembers (GroupID, PatientID, startDate) Values (1, '10017', '2026/01/01')",
              "Insert Into GroupMembers (GroupID, PatientID, startDate) Values (1, '10018', '2026/01/01')"})
            connection.Execute(QString::fromLatin1(statement));
    }

    /// The dates of a provider's rows in order, "03-11 03-12".
    QString dates() {
        QStringList dates;
        for (db::Recordset rows(QStringLiteral("Select dapptdate from appointments Order by dapptdate"), connection);
             !rows.Eof(); rows.MoveNext())
            dates << rows[0].date().toString(QStringLiteral("MM-dd"));
        return dates.join(QLatin1Char(' '));
    }
    QString attendance() {
        QStringList lines;
        for (db::Recordset rows(QStringLiteral("Select PatientName, Kept from AppointmentsGroup Order by PatientName"),
                                connection);
             !rows.Eof(); rows.MoveNext())
            lines << rows[0].text() + QLatin1Char(' ') + rows[1].text();
        return lines.join(QStringLiteral("; "));
    }
};

}  // namespace

TEST_F(Stories, ATherapistsRecurringHourIsBookedMovedAndDeleted) {
    // The first hour, and from it every Wednesday and Friday, six times.
    person->doubleClick(at(540));
    bookByKeyboard(QStringLiteral("o'b"));
    person->turnTo("mdisched");
    const QString first = newestKey();
    person->click(itemOf(first));
    person->press({QStringLiteral("ctrl+r")});
    person->turnTo("frmRecurAppt");
    person->picture("series-daily");
    person->press({QStringLiteral("alt+w")});
    desk->tell("click", QStringLiteral("chkRecrWeeklyFriInd"));
    desk->tell("replace", QStringLiteral("txtRecrMaxEvents"), QStringLiteral("6"));
    person->press({QStringLiteral("alt+s")});
    person->turnTo("frmslist");
    person->picture("series-sample");
    person->press({QStringLiteral("Escape")});
    person->turnTo("frmRecurAppt");
    person->picture("series-weekly");
    person->press({QStringLiteral("Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(dates(), QStringLiteral("03-11 03-13 03-18 03-20 03-25 03-27"));

    // One of them moves.
    const QString friday = value(QStringLiteral("Select nkeyid from appointments Where dapptdate = '2026/03/13'"));
    person->press({QStringLiteral("alt+Right"), QStringLiteral("alt+Right")});
    ASSERT_TRUE(soon([&] { return desk->tell("items").startsWith(friday + QLatin1Char(' ')); }));
    person->drag(itemOf(friday), at(840));
    EXPECT_TRUE(soon([&] { return startOf(friday) > 700; }));

    // And all go.
    person->click(itemOf(friday));
    person->press({QStringLiteral("Delete")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("frmdelrepeat");
    person->press({QStringLiteral("alt+a")});
    person->picture("series-delete");
    person->press({QStringLiteral("alt+o")});
    person->turnTo("mdisched");
    EXPECT_EQ(dates(), QString());
}

TEST_F(Stories, AGroupIsBookedItsAttendanceTakenAndDeleted) {
    person->click(at(600));
    person->press({QStringLiteral("ctrl+shift+g")});
    person->turnTo("frmgrptx");
    person->picture("group-new");
    person->type(QStringLiteral("An"));
    person->press({QStringLiteral("Tab")});
    EXPECT_EQ(desk->tell("text", QStringLiteral("cbogroup")), QStringLiteral("Anger"));
    person->picture("group-members");
    desk->tell("replace", QStringLiteral("ctend"), QStringLiteral("11:30"));
    person->press({QStringLiteral("ctrl+Return")});
    person->turnTo("mdisched");
    const QString key = newestKey();
    EXPECT_EQ(times(key), QStringLiteral("600-690"));
    EXPECT_EQ(attendance(), QStringLiteral("Åkesson, Bo 0; O'Brien, Anna 0"));
    person->picture("group-day");

    // Who came: by keyboard on the list.
    person->doubleClick(itemOf(key));
    person->turnTo("frmgrptx");
    person->press({QStringLiteral("alt+b"), QStringLiteral("Home"), QStringLiteral("shift+space"),
                   QStringLiteral("Down"), QStringLiteral("space")});
    person->picture("group-attendance");
    person->press({QStringLiteral("ctrl+Return")});
    person->turnTo("mdisched");
    EXPECT_EQ(attendance(), QStringLiteral("Åkesson, Bo 1"));

    person->click(itemOf(key));
    person->press({QStringLiteral("Delete")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("mdisched");
    EXPECT_EQ(times(key), QStringLiteral("(none)"));
    EXPECT_EQ(attendance(), QString());
}

TEST_F(Stories, AStaffMeetingIsBookedMovedAndDeleted) {
    person->click(at(720));
    person->press({QStringLiteral("alt+v"), QStringLiteral("s")});
    person->turnTo("frmactsc");
    person->type(QStringLiteral("St"));
    person->press({QStringLiteral("alt+a"), QStringLiteral("Home"), QStringLiteral("space"), QStringLiteral("Down"),
                   QStringLiteral("space")});
    person->picture("activity-new");
    person->press({QStringLiteral("alt+b")});
    person->turnTo("box");
    person->press({QStringLiteral("Return")});
    person->turnTo("frmactsc");
    person->press({QStringLiteral("alt+k")});
    person->turnTo("mdisched");
    const QString key = newestKey();
    EXPECT_EQ(value(QStringLiteral("Select cappttext from appointments")), QStringLiteral("Staff meeting"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from AppointmentsEvents")), 2);

    person->drag(itemOf(key), at(900));
    person->turnTo("frmactsc");
    person->press({QStringLiteral("alt+k")});
    person->turnTo("mdisched");
    EXPECT_GT(startOf(key), 800);

    person->click(itemOf(key));
    person->press({QStringLiteral("Delete")});
    person->turnTo("frmDeleteEvent");
    person->picture("activity-delete");
    person->press({QStringLiteral("alt+o")});
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from AppointmentsEvents")), 1);
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments")), 1);
}
