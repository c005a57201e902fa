#include <QApplication>
#include <QRadioButton>
#include <QTest>

#include "appointments/frmdeleteevent.h"
#include "tests/views/deletefixture.h"

TEST_F(DayDelete, OfAnActivityWithAttendeesAsksForWhom) {
    const qint64 key = addActivity("Meeting", {QStringLiteral("REED"), QStringLiteral("LANE")});
    open();
    select("Meeting");

    desk.expectForm("frmDeleteEvent", [](QDialog& form) {
        const auto& question = dynamic_cast<frmDeleteEvent&>(form);
        EXPECT_TRUE(question.optdelete[0]->isChecked());
        EXPECT_FALSE(question.WantsSpecificAttendees());
        button(form, "Command2").click();
    });
    deleteSelected();

    EXPECT_EQ(rows(key), 1);
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(DayDelete, OfAnActivityForOneAttendeeLeavesItToTheOthers) {
    const qint64 key = addActivity("Meeting", {QStringLiteral("REED"), QStringLiteral("LANE")});
    book(key);
    open();
    select("Meeting");

    desk.expectForm("frmDeleteEvent", [](QDialog& form) { button(form, "Command1").click(); });
    deleteSelected();

    EXPECT_EQ(rows(key), 1);
    EXPECT_EQ(bookings(key), 1);
    EXPECT_EQ(database_.text(db::Sql("Select clinicianid from appointmentsevents Where nkeyid = {}", key)), "LANE");
    EXPECT_TRUE(itemTexts().isEmpty());
}

TEST_F(DayDelete, OfAnActivityForItsLastAttendeeTakesItAlong) {
    Session().ALEnabled = true;
    const qint64 key = addActivity("Meeting", {QStringLiteral("REED")});
    book(key);
    open();
    select("Meeting");

    desk.expectForm("frmDeleteEvent", [](QDialog& form) { button(form, "Command1").click(); });
    deleteSelected();

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(bookings(key), 0);
    EXPECT_TRUE(audit().isEmpty());
}

TEST_F(DayDelete, OfAnActivityForAllAttendeesTakesIt) {
    const qint64 key = addActivity("Meeting", {QStringLiteral("REED"), QStringLiteral("LANE")});
    const qint64 other = addActivity("Other", {QStringLiteral("LANE")});
    open();
    select("Meeting");

    desk.expectForm("frmDeleteEvent", [](QDialog& form) {
        dynamic_cast<frmDeleteEvent&>(form).optdelete[1]->setChecked(true);
        button(form, "Command1").click();
    });
    deleteSelected();

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(count("appointmentsevents", "nkeyid", key), 0);
    EXPECT_EQ(count("appointmentsevents", "nkeyid", other), 1);
    EXPECT_EQ(rows(other), 1);
}

TEST_F(DayDelete, OfAnActivityThatFailsIsToldAndLeavesItWhole) {
    const qint64 key = addActivity("Meeting", {QStringLiteral("REED"), QStringLiteral("LANE")});
    open();
    select("Meeting");
    const QString reason = database_.refuse(QStringLiteral("Delete"), QStringLiteral("appointments"));

    desk.expectForm("frmDeleteEvent", [&](QDialog& form) {
        desk.expectBox(QStringLiteral("Error deleting appointment. ") + reason, QStringLiteral("Error"));
        dynamic_cast<frmDeleteEvent&>(form).optdelete[1]->setChecked(true);
        button(form, "Command1").click();
        button(form, "Command2").click();
    });
    deleteSelected();

    EXPECT_EQ(count("appointmentsevents", "nkeyid", key), 2);
    EXPECT_EQ(itemTexts(), QStringList{"Meeting"});
}

TEST_F(DayDelete, WhoseActivityCannotBeLookedUpIsToldBeforeAnyQuestion) {
    add(anAppointment("Anna"));
    open();
    select("Anna");
    const QString why = DropTable(Session().Connection, QStringLiteral("AppointmentsEvents"));

    desk.expectBox(QStringLiteral("Error deleting appointment. ") + why, QStringLiteral("Error"));
    deleteSelected();

    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}
