#include "tests/desks/deskfront.h"

namespace {

/// The calendars beside the day, worked by mouse and keyboard.
class Views : public FrontDesk {
  protected:
    QString when(const QString& key) {
        return value(db::Sql("Select dapptdate from appointments Where nkeyid = {}", db::Raw{key})).left(10) +
               QLatin1Char(' ') + times(key).section(QLatin1Char('-'), 0, 0);
    }
};

}  // namespace

TEST_F(Views, OnTheWeekAnAppointmentIsDraggedToAnotherDayWithItsRoom) {
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    connection.Execute(db::Sql(
        "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values (540, 600, '{}', 'Reed', 1, {})",
        day, db::Raw{anna}));
    connection.Execute(
        "Insert Into roomschedule (nStartTime, nEndTime, nApptDate, croomtext, croomid, apptid) Values (600, 1000, '2026/03/12', 'Training', 1, 0)");
    person->press({QStringLiteral("ctrl+2")});
    awaitView("frmweekv");
    EXPECT_TRUE(desk->tell("items").contains(QStringLiteral("O'Brien, Anna")));

    // Thursday: the room is taken, and the question is declined.
    person->drag(itemOf(anna), at(780, 4));
    person->turnTo("AppointmentConflict");
    person->picture("week-conflict");
    person->press({QStringLiteral("Escape")});
    person->turnTo("mdisched");
    EXPECT_EQ(when(anna), QStringLiteral("2026-03-11 540"));

    // Friday: it goes.
    person->drag(itemOf(anna), at(780, 5));
    EXPECT_TRUE(soon([&] {
        return when(anna).startsWith(QStringLiteral("2026-03-13 ")) &&
               value(QStringLiteral("Select nApptDate from roomschedule Where apptid > 0"))
                   .startsWith(QStringLiteral("2026-03-13"));
    })) << when(anna).toStdString();
    person->picture("week");

    // A new one on Monday, by double click.
    person->doubleClick(at(660, 1));
    bookByKeyboard(QStringLiteral("o'b"));
    person->turnTo("mdisched");
    EXPECT_EQ(when(newestKey()), QStringLiteral("2026-03-09 660"));

    // A week on, and back to the day.
    person->press({QStringLiteral("alt+Right")});
    EXPECT_TRUE(soon([&] { return desk->tell("items").isEmpty(); }));
    person->press({QStringLiteral("ctrl+1")});
    awaitView("frmsched");
    EXPECT_EQ(desk->tell("items"), QString());
}

TEST_F(Views, AmongAllProvidersAnAppointmentIsDraggedToAnother) {
    connection.Execute("Insert Into provider_info (id, prov_lastname, archive) Values ('LANE', 'Lane', 0)");
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    person->press({QStringLiteral("ctrl+4")});
    awaitView("frmall");
    ASSERT_EQ(desk->tell("text", QStringLiteral("cboprovs")), QStringLiteral("Lane"));
    person->drag(itemOf(anna), at(660, 1));
    EXPECT_TRUE(soon([&] {
        return value(QStringLiteral("Select clinicianid from appointments")) == QLatin1String("LANE") &&
               desk->tell("text", QStringLiteral("cboprovs")) == QLatin1String("Lane");
    }));
    person->picture("all");

    // A new one in Lane's column, by double click.
    person->doubleClick(at(840, 1));
    bookByKeyboard(QStringLiteral("o'b"));
    person->turnTo("mdisched");
    EXPECT_EQ(value(db::Sql("Select clinicianid from appointments Where nkeyid = {}", db::Raw{newestKey()})),
              QStringLiteral("LANE"));
}

TEST_F(Views, TheMonthIsWalkedByKeyboardAndOpensADay) {
    const QString anna = add(540, 600, QStringLiteral("O'Brien, Anna"));
    connection.Execute(db::Sql("Update appointments Set dapptdate = '2026/03/12' Where nkeyid = {}", db::Raw{anna}));
    person->press({QStringLiteral("ctrl+3")});
    awaitView("frmmtv");
    person->picture("month");
    person->press({QStringLiteral("Right"), QStringLiteral("Return")});
    awaitView("frmsched");
    EXPECT_TRUE(desk->tell("items").startsWith(anna));

    person->press({QStringLiteral("ctrl+3")});
    awaitView("frmmtv");
    person->doubleClick(desk->tell("widgetPlace", QStringLiteral("ctWeek1")));
    awaitView("frmsched");
    EXPECT_TRUE(desk->tell("items").startsWith(anna)) << "Thursday, March 12, is the middle of that month's page.";
}

TEST_F(Views, AMeetingIsTypedIntoARoomDraggedAndDeleted) {
    person->press({QStringLiteral("ctrl+5")});
    awaitView("frmrooms");
    person->click(at(600));
    person->type(QStringLiteral("Team"));
    person->press({QStringLiteral("Return")});
    EXPECT_TRUE(
        soon([&] { return value(QStringLiteral("Select croomtext from roomschedule")) == QLatin1String("Team"); }));
    EXPECT_EQ(number(QStringLiteral("Select nStartTime from roomschedule")), 600);

    const QString key = value(QStringLiteral("Select nkeyid from roomschedule"));
    // So soon after the first, a press in the same place would make a double click.
    person->click(at(1020));
    person->drag(itemOf(key), at(840));
    EXPECT_TRUE(soon([&] { return number(QStringLiteral("Select nStartTime from roomschedule")) > 780; }));
    person->picture("rooms");

    person->press({QStringLiteral("Delete")});
    person->turnTo("box");
    person->press({QStringLiteral("alt+y")});
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from roomschedule")), 0);
}
