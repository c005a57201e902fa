#include "tests/desks/deskfront.h"

namespace {

/// Series at the front desk, by keyboard alone and by mouse alone. Each test counts what the person does: a key, a
/// click or a word typed is one step.
class SeriesAtTheDesk : public FrontDesk {
  protected:
    // The program goes by the real clock, and what is past stays as it is.
    SeriesAtTheDesk() : coming(QDate::currentDate().addDays(14)) {
        person.reset();
        desk.reset();
        desk = std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), coming, display.name());
        person = std::make_unique<Person>(*desk, display.name());
        person->turnTo("mdisched");
    }

    /// O'Brien's appointment, and the calendar that shows it.
    QString booked(const QString& text = QStringLiteral("O'Brien, Anna")) {
        const QString key = on(0, text);
        show(key);
        return key;
    }
    /// The same, weekly for six weeks.
    QString weekly(const QString& text = QStringLiteral("O'Brien, Anna")) {
        const QString first = on(0, text);
        for (int week = 1; week < 6; ++week)
            on(week, text);
        connection.Execute(db::Sql("Update appointments Set repeating = 1, repeating_ref = {}", db::Raw{first}));
        show(first);
        return first;
    }
    QString on(int week, const QString& text) {
        const QString key = add(600, 645, text);
        connection.Execute(db::Sql("Update appointments Set dapptdate = '{}' Where nkeyid = {}",
                                   coming.addDays(7 * week), db::Raw{key}));
        return key;
    }
    void show(const QString& key) {
        person->press({QStringLiteral("F5")});
        ASSERT_TRUE(soon([&] { return desk->tell("items").startsWith(key + QLatin1Char(' ')); }));
    }

    void press(const char* key) {
        ++steps;
        person->press({QString::fromLatin1(key)});
    }
    void type(const char* text) {
        ++steps;
        person->type(QString::fromLatin1(text));
    }
    void clickAt(const QString& place, int button = 1) {
        ++steps;
        person->click(place, button);
    }
    void clickOn(const char* widget) { clickAt(desk->tell("widgetPlace", QLatin1String(widget))); }
    void choose(const char* command) {
        person->turnTo("popup");
        clickAt(desk->tell("entryPlace", QLatin1String(command)));
    }
    /// "0 600, 7 600": the day, counted from the first, and the start of each appointment in the order of time.
    QString rows() {
        QStringList all;
        for (db::Recordset row(QStringLiteral("Select dapptdate, nStartTime from appointments Order by dapptdate"),
                               connection);
             !row.Eof(); row.MoveNext())
            all << QStringLiteral("%1 %2").arg(coming.daysTo(row[0].date())).arg(row[1].text());
        return all.join(QStringLiteral(", "));
    }
    bool comesTo(const char* wanted) {
        return soon([&] { return rows() == QLatin1String(wanted); });
    }

    const QDate coming;  ///< Two weeks from now.
    int steps = 0;
};

constexpr char HalfAnHourLater[] = "0 630, 7 630, 14 630, 21 630, 28 630, 35 630";

}  // namespace

TEST_F(SeriesAtTheDesk, TwelveWeeksAreBookedByKeyboardInFourSteps) {
    booked();
    press("Tab");
    press("ctrl+r");
    person->turnTo("frmRecurAppt");
    // What is in the way is told while the number is typed.
    desk->tell("replace", QStringLiteral("txtRecrMaxEvents"), QStringLiteral("12"));
    ++steps;
    EXPECT_TRUE(soon(
        [&] { return desk->tell("text", QStringLiteral("lblcount")) == QLatin1String("11 of 11 new appointments"); }));
    person->picture("series-twelve");
    press("Return");
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments Where repeating = 1")), 12);
    EXPECT_EQ(steps, 4);
    person->picture("series-icon");
}

TEST_F(SeriesAtTheDesk, TwelveWeeksAreBookedByMouseInFourteenSteps) {
    const QString key = booked();
    clickAt(itemOf(key), 3);
    choose("mnuARepeat");
    person->turnTo("frmRecurAppt");
    clickOn("txtRecrMaxEvents");
    constexpr int WheelUp = 4;
    for (int events = 2; events < 12; ++events)
        clickAt(desk->tell("widgetPlace", QStringLiteral("txtRecrMaxEvents")), WheelUp);
    EXPECT_TRUE(soon(
        [&] { return desk->tell("text", QStringLiteral("lblcount")) == QLatin1String("11 of 11 new appointments"); }));
    person->picture("series-twelve-mouse");
    clickOn("cmdRecur0");
    person->turnTo("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments Where repeating = 1")), 12);
    EXPECT_EQ(steps, 14);
}

TEST_F(SeriesAtTheDesk, TheRestOfASeriesMovesByKeyboardInFourSteps) {
    weekly();
    press("Tab");
    press("ctrl+shift+r");
    person->turnTo("frmrest");
    person->picture("rest-opened");
    type("30");
    person->picture("rest-moved");
    press("Return");
    person->turnTo("mdisched");
    EXPECT_TRUE(comesTo(HalfAnHourLater)) << rows().toStdString();
    EXPECT_EQ(steps, 4);
    person->picture("rest-done");
}

TEST_F(SeriesAtTheDesk, TheRestOfASeriesIsDeletedByMouseInFourSteps) {
    const QString key = weekly();
    clickAt(itemOf(key), 3);
    choose("mnuARest");
    person->turnTo("frmrest");
    clickOn("radWhat0");
    person->picture("rest-delete");
    clickOn("cmdOk");
    person->turnTo("mdisched");
    EXPECT_TRUE(comesTo("")) << rows().toStdString();
    EXPECT_EQ(steps, 4);
}

TEST_F(SeriesAtTheDesk, TheRestOfASeriesIsCancelledByKeyboardInFourSteps) {
    weekly();
    press("Tab");
    press("ctrl+shift+r");
    person->turnTo("frmrest");
    press("alt+c");
    press("Return");
    person->turnTo("mdisched");
    EXPECT_TRUE(
        soon([&] { return number(QStringLiteral("Select Count(*) from appointments Where ncolor = 193")) == 6; }));
    EXPECT_EQ(steps, 4);
}

TEST_F(SeriesAtTheDesk, WhoLeavesAGroupLeavesTheFollowingDatesByKeyboardAndByMouse) {
    for (const char* statement :
         {"Insert Into Groups (GroupName, Leader, activestatus) Values ('Anger', 'REED', 1)",
          "Insert Into GroupMembers (GroupID, PatientID, startDate) Values (1, '10017', '2026/01/01')",
          "Insert Into GroupMembers (GroupID, PatientID, startDate) Values (1, '10018', '2026/01/01')"})
        connection.Execute(QString::fromLatin1(statement));
    const QString first = weekly(QStringLiteral("Anger"));
    connection.Execute(QStringLiteral("Update appointments Set ncolor = 12632064, patientid = '', CapptNote = '||||'"));
    for (const char* member : {"'10017', 'O''Brien, Anna'", "'10018', 'Smith, Zed'"})
        connection.Execute(db::Sql(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept, GroupId) Select nkeyid, {}, 0, 1 From appointments",
            db::Raw{QString::fromLatin1(member)}));
    show(first);
    const auto left = [&](const char* patient) {
        return number(db::Sql("Select Count(*) from AppointmentsGroup Where PatientId = '{}'", patient));
    };

    press("Tab");
    press("Return");
    person->turnTo("frmgrptx");
    press("alt+b");
    press("Home");
    press("space");
    press("ctrl+Return");
    person->turnTo("frmroster");
    press("alt+f");
    person->picture("roster");
    press("Return");
    person->turnTo("mdisched");
    EXPECT_TRUE(soon([&] { return left("10017") == 0; }));
    EXPECT_EQ(left("10018"), 6);
    EXPECT_EQ(steps, 8);

    steps = 0;
    person->doubleClick(itemOf(first));
    ++steps;
    person->turnTo("frmgrptx");
    clickAt(desk->tell("rowPlace", QStringLiteral("ctList1"), QStringLiteral("0")));
    clickOn("cmdOk");
    person->turnTo("frmroster");
    clickOn("radWhich1");
    clickOn("cmdOk");
    person->turnTo("mdisched");
    EXPECT_TRUE(soon([&] { return left("10018") == 0; }));
    EXPECT_EQ(steps, 5);
}
