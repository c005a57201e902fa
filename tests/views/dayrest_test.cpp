#include <QButtonGroup>

#include "appointments/frmrest.h"
#include "tests/views/deletefixture.h"

// The rest of a series from the day view; the form itself is tested with the appointments.

TEST_F(DayDelete, TheRestOfASeriesIsOfferedForAnAppointmentOfOne) {
    addRepeat("Weekly", QDate(2026, 3, 11));
    add(anAppointment("Once").at(11, 0).until(11, 50));
    open();
    EXPECT_FALSE(command("mnuARest").isEnabled());
    EXPECT_EQ(command("mnuARest").toolTip(), "Select an appointment first.");
    select("Once");
    EXPECT_FALSE(command("mnuARest").isEnabled());
    EXPECT_EQ(command("mnuARest").toolTip(), "This appointment does not belong to a series.");
    select("Weekly");
    EXPECT_TRUE(command("mnuARest").isEnabled());
}

TEST_F(DayDelete, TheRestOfASeriesGoesFromTheDayAtOnce) {
    const qint64 first = addRepeat("Weekly", QDate(2026, 3, 11));
    addRepeat("Weekly", QDate(2026, 3, 18), first);
    open();
    select("Weekly");
    desk.expectForm("frmrest", [](QDialog& form) {
        dynamic_cast<frmrest&>(form).radWhat->button(static_cast<int>(RestChange::Kind::Delete))->click();
        button(form, "cmdOk").click();
    });
    command("mnuARest").trigger();
    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(database_.number(QStringLiteral("Select Count(*) from appointments")), 0);
}

TEST_F(DayDelete, ARestWhoseAppointmentAnotherDeskDeletedIsToldAndLeavesTheDay) {
    const qint64 first = addRepeat("Weekly", QDate(2026, 3, 11));
    open();
    select("Weekly");
    otherDesk(db::Sql("Delete from appointments Where nkeyid = {}", first));
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Error"));
    command("mnuARest").trigger();
    EXPECT_EQ(itemTexts(), QStringList());
}
