#include <QApplication>
#include <QTest>

#include "tests/views/deletefixture.h"

TEST_F(DayDelete, OfASeriesOffersItsAppointmentsInTheOrderOfTime) {
    const qint64 first = addRepeat("Anna; weekly", QDate(2026, 3, 11));
    addRepeat("Anna; weekly", QDate(2026, 3, 25), first);
    addRepeat("Anna; weekly", QDate(2026, 3, 18), first);
    addRepeat("Another series", QDate(2026, 3, 12));
    open();
    select("Anna; weekly");

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
    QStringList rows;
    desk.expectForm("frmdelrepeat", [&](QDialog& form) {
        rows = listed(form);
        form.reject();
    });
    deleteSelected();

    EXPECT_EQ(rows, (QStringList{"x 03/11/2026/9:00 AM/Anna; weekly", "03/18/2026/9:00 AM/Anna; weekly",
                                 "03/25/2026/9:00 AM/Anna; weekly"}));
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

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
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
              (QStringList{"REED/Scheduler/Delete Appointment/-/Deleted appointment - Anna at 9:00 AM on 03/11/2026",
                           "REED/Scheduler/Delete Appointment/-/Deleted appointment - Anna at 9:00 AM on 03/18/2026"}));
}

TEST_F(DayDelete, OfASeriesOfGroupsTakesTheMembers) {
    const qint64 key = addRepeat("Thursday group", QDate(2026, 3, 11));
    run(QStringLiteral("Update appointments Set ncolor = %1").arg(ncolor::Group));
    addMember(key, "Anna");
    open();
    select("Thursday group");

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
    desk.expectForm("frmdelrepeat", [&](QDialog& form) { button(form, "cmdOk").click(); });
    deleteSelected();

    EXPECT_EQ(rows(key), 0);
    EXPECT_EQ(count("AppointmentsGroup", "nKeyId", key), 0);
}

TEST_F(DayDelete, OfASeriesWithOneAppointmentStillShowsTheList) {
    const qint64 key = addRepeat("Anna", QDate(2026, 3, 11));
    open();
    select("Anna");

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
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

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
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

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
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

    desk.expectBox(deleteQuestion, deleteTitle, Answer::Yes);
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
