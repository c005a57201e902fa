#include <QApplication>
#include <QTest>

#include "tests/views/deletefixture.h"

TEST_F(DayDelete, TakesTheAppointmentItsRoomAndItsItem) {
    const qint64 key = add(anAppointment("Anna"));
    const qint64 other = add(anAppointment("Bert").at(11, 0));
    book(key);
    book(other);
    open();
    select("Anna");

    deleteAnswering(Answer::Yes);

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(bookings(key), 0);
    EXPECT_EQ(rows(other), 1);
    EXPECT_EQ(bookings(other), 1);
    EXPECT_EQ(itemTexts(), QStringList{"Bert"});
    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
    EXPECT_FALSE(command("mnuADelete").isEnabled());
}

TEST_F(DayDelete, AnyAnswerButYesKeepsIt) {
    const qint64 key = add(anAppointment("Anna"));
    book(key);
    open();
    select("Anna");

    deleteAnswering(Answer::No);

    EXPECT_EQ(rows(key), 1);
    EXPECT_EQ(bookings(key), 1);
    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}

TEST_F(DayDelete, ByTheDeleteKeyAsksToo) {
    const qint64 key = add(anAppointment("Anna"));
    open();
    select("Anna");
    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);

    QTest::keyClick(&calendar(), Qt::Key_Delete);
    QApplication::processEvents();

    EXPECT_EQ(rows(key), 0);
}

TEST_F(DayDelete, LeavesALineInTheAuditLog) {
    Session().ALEnabled = true;
    add(anAppointment("O'Brien, Anna").at(14, 5));
    open();
    select("O'Brien, Anna");

    deleteAnswering(Answer::Yes);

    EXPECT_EQ(audit(),
              QStringList{
                  "REED/Scheduler/Delete Appointment/-/Deleted appointment - O'Brien, Anna at 2:05 PM on 03/11/2026"});
}

TEST_F(DayDelete, GoesOnWhereTheAuditLineCannotBeWritten) {
    Session().ALEnabled = true;
    const qint64 key = add(anAppointment("Anna"));
    open();
    select("Anna");
    (void)database_.refuse(QStringLiteral("Insert"), QStringLiteral("AuditLog"));

    deleteAnswering(Answer::Yes);

    EXPECT_EQ(rows(key), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
}

TEST_F(DayDelete, OfAGroupTakesItsMembers) {
    const qint64 key = add(anAppointment("Thursday group").status(ncolor::Group));
    const qint64 other = add(anAppointment("Friday group").at(11, 0).status(ncolor::Group));
    addMember(key, "Anna");
    addMember(key, "Bert");
    addMember(other, "Carl");
    open();
    select("Thursday group");

    deleteAnswering(Answer::Yes);

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(count("AppointmentsGroup", "nKeyId", key), 0);
    EXPECT_EQ(count("AppointmentsGroup", "nKeyId", other), 1);
}

TEST_F(DayDelete, TheMembersOfWhatIsNoGroupAreNotTouched) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    addMember(key, "Of a row that was a group once");
    open();
    select("Anna");

    deleteAnswering(Answer::Yes);

    EXPECT_EQ(count("AppointmentsGroup", "nKeyId", key), 1);
}

TEST_F(DayDelete, OfAnActivityUnavailableTimeOrATypeSlotIsTheSame) {
    const qint64 keys[] = {add(anAppointment("Meeting").status(ncolor::Activity)),
                           add(anAppointment("Lunch").at(12, 0).status(ncolor::Unavailable)),
                           add(anAppointment("Slot").at(15, 0).status(0x336699).with("appttype", "4"))};
    open();

    for (const char* text : {"Meeting", "Lunch", "Slot"}) {
        select(text);
        deleteAnswering(Answer::Yes);
    }

    for (const qint64 key : keys)
        EXPECT_EQ(rows(key), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
}

TEST_F(DayDelete, WhatAnotherDeskDeletedLeavesTheDayWithoutAWordOrALine) {
    Session().ALEnabled = true;
    const qint64 key = add(anAppointment("Anna"));
    book(key);
    open();
    select("Anna");
    database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", key));

    deleteAnswering(Answer::Yes);

    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_TRUE(audit().isEmpty());
    EXPECT_EQ(bookings(key), 1);
}

TEST_F(DayDelete, WhatAnotherDeskMadeAGroupTakesItsMembersToo) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    database_.connection().Execute(
        db::Sql("Update appointments Set ncolor = {} Where nkeyid = {}", ncolor::Group, key));
    addMember(key, "Anna");

    deleteAnswering(Answer::Yes);

    EXPECT_EQ(count("AppointmentsGroup", "nKeyId", key), 0);
}

TEST_F(DayDelete, ThatFailsAtAnyStepLeavesEverythingAndTheNextWriteWorks) {
    struct Step {
        const char* table;
        int code;
    };
    for (const Step& step : {Step{"AppointmentsGroup", ncolor::Group}, Step{"roomschedule", ncolor::Pending},
                             Step{"appointments", ncolor::Pending}, Step{"appointments", ncolor::Group}}) {
        SCOPED_TRACE(step.table);
        TestDatabase fresh;
        Session().Connection.Close();
        Session().Connection.Open(fresh.connectionText());
        Session().ALEnabled = true;
        const qint64 key = add(anAppointment("Anna").status(step.code));
        book(key);
        addMember(key, "Bert");
        open();
        select("Anna");
        const QString reason = fresh.refuse(QStringLiteral("Delete"), QLatin1String(step.table));

        desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
        desk.expectBox(QStringLiteral("Error deleting appointment. ") + reason, QStringLiteral("Error"));
        deleteSelected();

        EXPECT_EQ(fresh.number(QStringLiteral("Select Count(*) from appointments")), 1);
        EXPECT_EQ(fresh.number(QStringLiteral("Select Count(*) from roomschedule")), 1);
        EXPECT_EQ(fresh.number(QStringLiteral("Select Count(*) from AppointmentsGroup")), 1);
        EXPECT_EQ(fresh.number(QStringLiteral("Select Count(*) from AuditLog")), 0);
        EXPECT_EQ(itemTexts(), QStringList{"Anna"});
        fresh.connection().Execute(QStringLiteral("Update appointments Set cappttext = 'Not locked out'"));
        Session().Connection.BeginTrans();
        Session().Connection.CommitTrans();
    }
}

TEST_F(DayDelete, WithALostDatabaseIsToldAndKeepsTheItem) {
    add(anAppointment("Anna"));
    open();
    select("Anna");
    Session().Connection.Close();

    desk.expectBox(
        QStringLiteral(
            "Error deleting appointment. The connection cannot be used to perform this operation. It is either closed or invalid in this context."),
        QStringLiteral("Error"));
    deleteSelected();

    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}

TEST_F(DayDelete, IsNotOfferedForTheHolidayBanner) {
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2026/03/11', 0)");
    add(anAppointment("Meeting without an appointment"));
    run("Insert Into roomschedule (apptid, croomid) Values(0, 1)");
    CalendarView& view = open();
    select("Founders' Day");

    EXPECT_FALSE(command("mnuADelete").isEnabled());
    EXPECT_EQ(command("mnuADelete").toolTip().toStdString(), "A holiday is not an appointment.");
    QTest::keyClick(&calendar(), Qt::Key_Delete);
    view.DeleteSelectedAppointment(true);
    QApplication::processEvents();

    EXPECT_EQ(bookings(0), 1) << "A meeting that belongs to no appointment has apptid 0.";
}

TEST_F(DayDelete, WithoutASelectionDoesNothing) {
    add(anAppointment("Anna"));
    CalendarView& view = open();

    EXPECT_FALSE(command("mnuADelete").isEnabled());
    QTest::keyClick(&calendar(), Qt::Key_Delete);
    view.DeleteSelectedAppointment(true);

    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}

TEST_F(DayDelete, IsForNobodyWithoutTheRight) {
    const qint64 key = add(anAppointment("Anna"));
    for (const int access : {0, 1, 2}) {
        Session().ScreenAccess = access;
        open();
        select("Anna");

        EXPECT_FALSE(command("mnuADelete").isEnabled());
        QTest::keyClick(&calendar(), Qt::Key_Delete);
        QApplication::processEvents();

        EXPECT_EQ(rows(key), 1);
    }
}

TEST_F(DayDelete, OfAnUnfinishedAppointmentAsksAndLogsNothing) {
    Session().ALEnabled = true;
    const qint64 key = add(anAppointment("Half made"));
    book(key);
    CalendarView& view = open();
    select("Half made");

    view.DeleteSelectedAppointment(true);

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(bookings(key), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_TRUE(audit().isEmpty());
}

TEST_F(DayDelete, OfAnUnfinishedAppointmentThatFailsIsToldAndLeavesIt) {
    const qint64 key = add(anAppointment("Half made"));
    book(key);
    CalendarView& view = open();
    select("Half made");
    const QString reason = database_.refuse(QStringLiteral("Delete"), QStringLiteral("roomschedule"));

    desk.expectBox(QStringLiteral("Error deleting appointment. ") + reason, QStringLiteral("Error"));
    view.DeleteSelectedAppointment(true);

    EXPECT_EQ(rows(key), 1);
    EXPECT_EQ(bookings(key), 1);
    EXPECT_EQ(itemTexts(), QStringList{"Half made"});
}

TEST_F(DayDelete, OfAnUnfinishedAppointmentThatIsGoneAlreadyTakesItsRoom) {
    const qint64 key = add(anAppointment("Half made"));
    book(key);
    CalendarView& view = open();
    select("Half made");
    database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", key));

    view.DeleteSelectedAppointment(true);

    EXPECT_EQ(bookings(key), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
}
