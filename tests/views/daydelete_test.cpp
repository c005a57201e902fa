#include <QAction>
#include <QApplication>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "appointments/frmdeleteevent.h"
#include "appointments/frmdelrepeat.h"
#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

namespace {

const QString question = QStringLiteral("Are you sure you want to delete this appointment?");
const QString title = QStringLiteral("Delete Appointment");

class DayDelete : public DayFixture {
  protected:
    [[nodiscard]] qint64 count(const char* table, const char* keyColumn, qint64 key) {
        return database_.number(db::Sql("Select Count(*) from {} Where {} = {}", db::Raw{QLatin1String(table)},
                                        db::Raw{QLatin1String(keyColumn)}, key));
    }
    [[nodiscard]] qint64 rows(qint64 key) { return count("appointments", "nkeyid", key); }
    [[nodiscard]] qint64 bookings(qint64 key) { return count("roomschedule", "apptid", key); }
    void book(qint64 key) {
        run(QStringLiteral(
                "Insert Into roomschedule (apptid, croomid, nStartTime, nEndTime, nApptDate) Values(%1, 1, 540, 590, '2026/03/11')")
                .arg(key));
    }
    void addMember(qint64 key, const char* name) {
        run(QStringLiteral("Insert Into AppointmentsGroup (nKeyId, PatientName) Values(%1, '%2')")
                .arg(key)
                .arg(QLatin1String(name)));
    }
    [[nodiscard]] QStringList audit() {
        QStringList lines;
        db::Recordset log(QStringLiteral("Select * from AuditLog"), database_.connection());
        for (; !log.Eof(); log.MoveNext())
            lines << QStringList{log["LogUser"].text(), log["LogLocation"].text(), log["LogListId"].text(),
                                 log["LogNotes"].text(), log["LogDescription"].text()}
                         .join(QLatin1Char('/'));
        return lines;
    }
    /// A weekly appointment of a series; the first has no `ref` yet and becomes it.
    qint64 addRepeat(const char* text, QDate day, qint64 ref = 0) {
        const qint64 key = add(anAppointment(text).on(day).with("repeating", "1"));
        run(QStringLiteral("Update appointments Set repeating_ref = %1 Where nkeyid = %2")
                .arg(ref ? ref : key)
                .arg(key));
        return key;
    }
    qint64 addActivity(const char* text, const QStringList& attendees) {
        const qint64 key = add(anAppointment(text).of("~EVT").status(ncolor::Activity));
        for (const QString& attendee : attendees)
            run(QStringLiteral("Insert Into appointmentsevents (nkeyid, clinicianid) Values(%1, '%2')")
                    .arg(key)
                    .arg(attendee));
        return key;
    }
    static QPushButton& button(QDialog& form, const char* name) {
        return *form.findChild<QPushButton*>(QString::fromLatin1(name));
    }
    /// The rows of the list, "x" before the checked ones.
    static QStringList listed(QDialog& form) {
        const ctList& list = *dynamic_cast<frmdelrepeat&>(form).ctList1;
        QStringList rows;
        for (int row = 0; row < list.RowCount(); ++row)
            rows << (list.Checked(row, 1) ? "x " : "") +
                        QStringList{list.Cell(row, 2), list.Cell(row, 3), list.Cell(row, 4)}.join(QLatin1Char('/'));
        return rows;
    }
    void deleteSelected() {
        ASSERT_TRUE(command("mnuADelete").isEnabled());
        command("mnuADelete").trigger();
    }
    void deleteAnswering(Answer answer) {
        desk.expectBox(question, title, answer);
        deleteSelected();
    }
};

}  // namespace

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
    desk.expectBox(question, title, Answer::Yes);

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

    EXPECT_EQ(
        audit(),
        QStringList{"REED/Scheduler/Delete Appointment/-/Deleted appointment - O'Brien, Anna at 2:05 PM on 3/11/2026"});
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

        desk.expectBox(question, title, Answer::Yes);
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
    frmsched& view = open();
    select("Founders' Day");

    EXPECT_FALSE(command("mnuADelete").isEnabled());
    EXPECT_EQ(command("mnuADelete").toolTip().toStdString(), "A holiday is not an appointment.");
    QTest::keyClick(&calendar(), Qt::Key_Delete);
    view.DeleteSelectedAppointment();
    QApplication::processEvents();

    EXPECT_EQ(bookings(0), 1) << "A meeting that belongs to no appointment has apptid 0.";
}

TEST_F(DayDelete, WithoutASelectionDoesNothing) {
    add(anAppointment("Anna"));
    frmsched& view = open();

    EXPECT_FALSE(command("mnuADelete").isEnabled());
    QTest::keyClick(&calendar(), Qt::Key_Delete);
    view.DeleteSelectedAppointment();

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
    frmsched& view = open();
    select("Half made");

    Session().IsNewAppt = true;
    view.DeleteSelectedAppointment();

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(bookings(key), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_TRUE(audit().isEmpty());
}

TEST_F(DayDelete, OfAnUnfinishedAppointmentThatFailsIsToldAndLeavesIt) {
    const qint64 key = add(anAppointment("Half made"));
    book(key);
    frmsched& view = open();
    select("Half made");
    const QString reason = database_.refuse(QStringLiteral("Delete"), QStringLiteral("roomschedule"));

    Session().IsNewAppt = true;
    desk.expectBox(QStringLiteral("Error deleting appointment. ") + reason, QStringLiteral("Error"));
    view.DeleteSelectedAppointment();

    EXPECT_EQ(rows(key), 1);
    EXPECT_EQ(bookings(key), 1);
    EXPECT_EQ(itemTexts(), QStringList{"Half made"});
}

TEST_F(DayDelete, OfAnUnfinishedAppointmentThatIsGoneAlreadyTakesItsRoom) {
    const qint64 key = add(anAppointment("Half made"));
    book(key);
    frmsched& view = open();
    select("Half made");
    database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", key));

    Session().IsNewAppt = true;
    view.DeleteSelectedAppointment();

    EXPECT_EQ(bookings(key), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
}

TEST_F(DayDelete, ByTheCommandAsksAlsoWhereAFlagWasLeftOn) {
    const qint64 key = add(anAppointment("Anna"));
    open();
    select("Anna");

    Session().IsNewAppt = true;
    deleteAnswering(Answer::No);

    EXPECT_EQ(rows(key), 1);
}

TEST_F(DayDelete, OfASeriesOffersItsAppointmentsInTheOrderOfTime) {
    const qint64 first = addRepeat("Anna; weekly", QDate(2026, 3, 11));
    addRepeat("Anna; weekly", QDate(2026, 3, 25), first);
    addRepeat("Anna; weekly", QDate(2026, 3, 18), first);
    addRepeat("Another series", QDate(2026, 3, 12));
    open();
    select("Anna; weekly");

    desk.expectBox(question, title, Answer::Yes);
    QStringList rows;
    desk.expectForm("frmdelrepeat", [&](QDialog& form) {
        rows = listed(form);
        form.reject();
    });
    deleteSelected();

    EXPECT_EQ(rows, (QStringList{"x 3/11/2026/9:00 AM/Anna, weekly", "3/18/2026/9:00 AM/Anna, weekly",
                                 "3/25/2026/9:00 AM/Anna, weekly"}));
    EXPECT_EQ(database_.number(QStringLiteral("Select Count(*) from appointments")), 4) << "Cancel deletes none.";
}

TEST_F(DayDelete, OfASeriesDeletesWhatIsCheckedWithItsRoomAndALineEach) {
    Session().ALEnabled = true;
    const qint64 first = addRepeat("Anna", QDate(2026, 3, 11));
    const qint64 second = addRepeat("Anna", QDate(2026, 3, 18), first);
    const qint64 third = addRepeat("Anna", QDate(2026, 3, 25), first);
    for (const qint64 key : {first, second, third})
        book(key);
    open();
    select("Anna");

    desk.expectBox(question, title, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) {
        dynamic_cast<frmdelrepeat&>(form).ctList1->SetChecked(1, 1, true);
        button(form, "cmdOk").click();
    });
    deleteSelected();

    EXPECT_EQ(rows(first) + rows(second), 0);
    EXPECT_EQ(bookings(first) + bookings(second), 0);
    EXPECT_EQ(rows(third), 1);
    EXPECT_EQ(bookings(third), 1);
    EXPECT_EQ(database_.number(db::Sql("Select repeating_ref from appointments Where nkeyid = {}", third)), first);
    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_EQ(audit(),
              (QStringList{"REED/Scheduler/Delete Appointment/-/Deleted appointment - Anna at 9:00 AM on 3/11/2026",
                           "REED/Scheduler/Delete Appointment/-/Deleted appointment - Anna at 9:00 AM on 3/18/2026"}));
}

TEST_F(DayDelete, OfASeriesOfGroupsTakesTheMembers) {
    const qint64 key = addRepeat("Thursday group", QDate(2026, 3, 11));
    run(QStringLiteral("Update appointments Set ncolor = %1").arg(ncolor::Group));
    addMember(key, "Anna");
    open();
    select("Thursday group");

    desk.expectBox(question, title, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) { button(form, "cmdOk").click(); });
    deleteSelected();

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(count("AppointmentsGroup", "nKeyId", key), 0);
}

TEST_F(DayDelete, OfASeriesWithOneAppointmentStillShowsTheList) {
    const qint64 key = addRepeat("Anna", QDate(2026, 3, 11));
    open();
    select("Anna");

    desk.expectBox(question, title, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) {
        EXPECT_EQ(listed(form).size(), 1);
        button(form, "cmdOk").click();
    });
    deleteSelected();

    EXPECT_EQ(rows(key), 0);
}

TEST_F(DayDelete, OfARowThatRepeatsWithoutASeriesTakesThatRowAlone) {
    for (const char* ref : {"Null", "0", "4711"}) {
        const qint64 key =
            add(anAppointment("Anna").with("repeating", "1").with("repeating_ref", QString::fromLatin1(ref)));
        const qint64 other =
            add(anAppointment("Bert").on(QDate(2026, 3, 18)).with("repeating", "1").with("repeating_ref", "0"));
        run(QStringLiteral("Update appointments Set repeating = 2 Where nkeyid = %1 And repeating_ref = 4711")
                .arg(key));
        open();
        select("Anna");

        deleteAnswering(Answer::Yes);

        EXPECT_EQ(rows(key), 0) << ref;
        EXPECT_EQ(rows(other), 1) << ref;
    }
}

TEST_F(DayDelete, TwoDesksThatDeleteOneSeriesDoNotDisturbEachOther) {
    const qint64 first = addRepeat("Anna", QDate(2026, 3, 11));
    const qint64 second = addRepeat("Anna", QDate(2026, 3, 18), first);
    open();
    select("Anna");

    desk.expectBox(question, title, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) {
        database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", first));
        button(form, "cmdselect0").click();
        button(form, "cmdOk").click();
    });
    deleteSelected();

    EXPECT_EQ(rows(first) + rows(second), 0);
    EXPECT_TRUE(itemTexts().isEmpty());
}

TEST_F(DayDelete, OfASeriesThatIsRefusedIsToldAndKeepsRoomAndItem) {
    Session().ALEnabled = true;
    const qint64 key = addRepeat("Anna", QDate(2026, 3, 11));
    book(key);
    open();
    select("Anna");
    const QString reason = database_.refuse(QStringLiteral("Delete"), QStringLiteral("appointments"));

    desk.expectBox(question, title, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) { button(form, "cmdOk").click(); });
    desk.expectBox(QStringLiteral("Error deleting appointment. ") + reason, QStringLiteral("Error"));
    deleteSelected();

    EXPECT_EQ(bookings(key), 1);
    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
    EXPECT_TRUE(audit().isEmpty());
}

TEST_F(DayDelete, OfASeriesNeedsACheckedRow) {
    addRepeat("Anna", QDate(2026, 3, 11));
    open();
    select("Anna");

    desk.expectBox(question, title, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) {
        EXPECT_TRUE(button(form, "cmdOk").isEnabled());
        button(form, "cmdselect1").click();
        EXPECT_FALSE(button(form, "cmdOk").isEnabled());
        button(form, "cmdselect0").click();
        EXPECT_TRUE(button(form, "cmdOk").isEnabled());
        form.reject();
    });
    deleteSelected();
}

TEST_F(DayDelete, OfAnActivityWithAttendeesAsksForWhom) {
    const qint64 key = addActivity("Meeting", {QStringLiteral("REED"), QStringLiteral("LANE")});
    open();
    select("Meeting");

    desk.expectForm("frmDeleteEvent", [](QDialog& form) {
        const auto& question = dynamic_cast<frmDeleteEvent&>(form);
        EXPECT_TRUE(question.optdelete[0]->isChecked());
        EXPECT_TRUE(question.Tag.isEmpty());
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
    run(QStringLiteral("Drop Table appointmentsevents"));

    desk.expectBox(QStringLiteral("Error deleting appointment. Invalid object name 'AppointmentsEvents'."),
                   QStringLiteral("Error"));
    deleteSelected();

    EXPECT_EQ(itemTexts(), QStringList{"Anna"});
}
