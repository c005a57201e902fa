#include <functional>

#include "tests/desks/deskfixture.h"
#include "tests/desks/deskperson.h"

using db::Sql;

namespace {

/// Reed's day two weeks from now, since nobody is offered an hour that is past, with Anna O'Brien at ten.
class WaitListDesks : public DeskFixture {
  protected:
    WaitListDesks() {
        for (const char* statement :
             {"Insert Into patient_info (id, last_name, first_name, archive) Values ('10018', 'Lee', 'Bo', 0)",
              "Insert Into patient_info (id, last_name, first_name, archive) Values ('10019', 'Moss', 'Cy', 0)",
              "Insert Into incident_hx (patient_id, incident_nbr) Select id, 1 From patient_info"})
            connection.Execute(QString::fromLatin1(statement));
        anna = add(600, 650, QStringLiteral("O'Brien, Anna"));
        connection.Execute(Sql("Update appointments Set dapptdate = '{}'", later));
    }
    std::unique_ptr<Desk> openLater(const QString& display = {}) const {
        return std::make_unique<Desk>(folder.path(), QStringLiteral("REED"), later, display);
    }
    void waits(const char* patient, const char* name) {
        connection.Execute(Sql(
            "Insert Into WaitList (PatientId, PatientName, Minutes, createddate) Values ('{}', '{}', 50, '2026/01/02')",
            patient, name));
    }
    static bool soon(Desk& desk, const std::function<bool()>& holds) {
        for (int tries = 0; tries < 2000; ++tries) {
            if (holds())
                return true;
            desk.tell("focus");
        }
        return false;
    }
    static bool offers(Desk& desk, const char* name) {
        return soon(desk, [&] {
            return desk.tell("shows", QStringLiteral("waitbar")) == QLatin1String("yes") &&
                   desk.tell("text", QStringLiteral("lstoffers")).contains(QLatin1String(name));
        });
    }
    QString bookedOf(const char* patient) {
        return value(Sql("Select nStartTime from appointments Where patientid = '{}' And ncolor = 16711681", patient));
    }

    const QDate later = QDate::currentDate().addDays(14);
    QString anna;
};

}  // namespace

TEST_F(WaitListDesks, ACancelledHourIsFilledByFiveKeys) {
    waits("10018", "Lee, Bo");
    const Display display;
    const auto desk = openLater(display.name());
    Person person(*desk, display.name());
    person.turnTo("mdisched");
    desk->tell("select", anna);
    person.press({QStringLiteral("alt+a")});
    person.turnTo("popup");
    person.press({QStringLiteral("p")});
    person.turnTo("mdisched");
    ASSERT_TRUE(offers(*desk, "Lee, Bo"));
    person.picture("wait-offer");
    person.press({QStringLiteral("shift+F6"), QStringLiteral("Return")});
    person.turnTo("frmnore");
    person.picture("wait-editor");
    person.press({QStringLiteral("Return")});
    person.turnTo("mdisched");
    EXPECT_EQ(bookedOf("10018"), QStringLiteral("600"));
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from WaitList Where Closed = 1 And nkeyid > 0")), 1);
    EXPECT_TRUE(soon(*desk, [&] { return desk->tell("shows", QStringLiteral("waitbar")) == QLatin1String("not"); }));
}

TEST_F(WaitListDesks, ACancelledHourIsFilledByFourClicks) {
    waits("10018", "Lee, Bo");
    waits("10019", "Moss, Cy");
    const Display display;
    const auto desk = openLater(display.name());
    Person person(*desk, display.name());
    person.turnTo("mdisched");
    person.click(desk->tell("itemPlace", anna), 3);
    person.turnTo("popup");
    person.click(desk->tell("entryPlace", QStringLiteral("mnuAPCancel")));
    person.turnTo("mdisched");
    ASSERT_TRUE(offers(*desk, "Moss, Cy"));
    person.picture("wait-offers");
    person.click(desk->tell("rowPlace", QStringLiteral("lstoffers"), QStringLiteral("1")));
    person.turnTo("frmnore");
    person.click(desk->tell("widgetPlace", QStringLiteral("cmdOk")));
    person.turnTo("mdisched");
    EXPECT_EQ(bookedOf("10019"), QStringLiteral("600"));
    EXPECT_EQ(bookedOf("10018"), QStringLiteral("(none)"));
}

TEST_F(WaitListDesks, APatientIsPutOnTheListByKeysAndByMouse) {
    const Display display;
    const auto desk = openLater(display.name());
    Person person(*desk, display.name());
    person.turnTo("mdisched");
    // Ctrl+Shift+L, Enter on Add, the name, Enter.
    person.press({QStringLiteral("ctrl+shift+l")});
    person.turnTo("frmwait");
    person.picture("wait-empty");
    person.press({QStringLiteral("Return")});
    person.turnTo("frmwaitentry");
    person.type(QStringLiteral("lee"));
    person.picture("wait-entry");
    person.press({QStringLiteral("Return")});
    person.turnTo("frmwait");
    EXPECT_EQ(value(QStringLiteral("Select PatientId from WaitList")), QStringLiteral("10018"));
    person.picture("wait-list");
    person.press({QStringLiteral("Escape")});
    person.turnTo("mdisched");

    // A click on the visit, the menu, its entry, Add, and OK: the patient of the visit waits for an earlier hour.
    person.click(desk->tell("itemPlace", anna));
    desk->tell("trigger", QStringLiteral("mnuAWait"));
    person.turnTo("frmwait");
    person.click(desk->tell("widgetPlace", QStringLiteral("cmdadd")));
    person.turnTo("frmwaitentry");
    EXPECT_EQ(desk->tell("text", QStringLiteral("txtpatients")), QStringLiteral("O'Brien, Anna"));
    person.click(desk->tell("widgetPlace", QStringLiteral("cmdOk")));
    person.turnTo("frmwait");
    EXPECT_EQ(value(QStringLiteral("Select Minutes from WaitList Where PatientId = '10017'")), QStringLiteral("50"));
}

TEST_F(WaitListDesks, AnotherDesksCancellationIsOfferedAndOneOfTwoDesksBooksIt) {
    waits("10018", "Lee, Bo");
    const auto one = openLater();
    const auto other = openLater();
    one->tell("select", anna);
    one->tell("trigger", QStringLiteral("mnuAPCancel"));
    ASSERT_TRUE(offers(*one, "Lee, Bo"));
    other->tell("trigger", QStringLiteral("mnuVRefresh"));
    ASSERT_TRUE(offers(*other, "Lee, Bo"));

    one->tell("click", QStringLiteral("cmdbook"));
    one->await("frmnore");
    other->tell("click", QStringLiteral("cmdbook"));
    other->await("frmnore");
    one->tell("click", QStringLiteral("cmdOk"));
    one->await("mdisched");
    other->tell("click", QStringLiteral("cmdOk"));
    other->await("AppointmentConflict");
    other->tell("click", QStringLiteral("cmdaccept"));
    EXPECT_EQ(
        other->answer("No"),
        QStringLiteral(
            "Another user has booked or closed this entry of the wait list in the meantime. Book the appointment all the same?"));
    other->await("frmnore");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments Where patientid = '10018'")), 1);
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from WaitList Where Closed = 1")), 1);
}
