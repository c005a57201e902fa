#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QTest>

#include "appointments/frmslist.h"
#include "appointments/seriesdates.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/noticebar.h"
#include "session/hiddennames.h"
#include "tests/appointments/recurringfixture.h"

using db::Sql;

TEST_F(Recurring, TheListTellsWhoAndWhatIsInTheWayOfEachDate) {
    provider(QStringLiteral("OBRIEN2"), QStringLiteral("O'Brien"));
    const int blue = room(QStringLiteral("Blue Room"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    appointment({.start = 600, .end = 660, .text = QStringLiteral("Smith, Zed"), .date = day.addDays(7)});
    booking(blue, 560, 620, QStringLiteral("Board"));
    run(Sql("Update roomschedule Set nApptDate = '{}' Where croomtext = 'Board'", day.addDays(14)));
    appointment({.start = 570, .end = 630, .provider = QStringLiteral("OBRIEN"), .date = day.addDays(21)});
    // Touching times count in the provider's own schedule alone.
    appointment({.start = 600, .end = 630, .provider = QStringLiteral("OBRIEN"), .date = day.addDays(28)});
    run(Sql("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('Founding Day', '{}', 1)",
            day.addDays(28).addYears(-3)));
    const int meeting = appointment({.start = 580,
                                     .end = 640,
                                     .text = QStringLiteral("Staff Meeting"),
                                     .provider = QStringLiteral("~EVT"),
                                     .patient = QString(),
                                     .date = day.addDays(35)});
    run(Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values ({}, 'REED')", meeting));
    frmRecurAppt form(item, reed, {});
    form.txtRecrMaxEvents->setValue(7);
    form.seriesdates->Read();
    EXPECT_EQ(
        listed(form),
        QStringList({QStringLiteral("Wed 03/11/2026 | this appointment itself | "),
                     QStringLiteral("? Wed 03/18/2026 | Smith, Zed 10:00 AM - 11:00 AM | asked first"),
                     QStringLiteral("? Wed 03/25/2026 | Blue Room: Board 9:20 AM - 10:20 AM | asked first"),
                     QStringLiteral("? Wed 04/01/2026 | Jones, Mary with O'Brien 9:30 AM - 10:30 AM | asked first"),
                     QStringLiteral("x Wed 04/08/2026 | Holiday: Founding Day | booked"),
                     QStringLiteral("? Wed 04/15/2026 | Staff Meeting 9:40 AM - 10:40 AM | asked first"),
                     QStringLiteral("x Wed 04/22/2026 |  | booked")}));
    EXPECT_EQ(form.seriesdates->lblcount->text(), QStringLiteral("6 of 6 new appointments, 4 asked first"));
}

TEST_F(Recurring, ADateThatWasDecidedInTheListIsNotAskedForAgain) {
    for (const int week : {1, 2, 3})
        appointment({.date = day.addDays(7 * week)});
    frmRecurAppt form(item, reed, {});
    form.show();
    form.txtRecrMaxEvents->setValue(5);
    form.seriesdates->Read();
    pressSpaceOn(form, 1);
    EXPECT_EQ(form.seriesdates->lblway->text(), QStringLiteral("Jones, Mary 9:00 AM - 10:00 AM"));
    pressSpaceOn(form, 2);
    pressSpaceOn(form, 2);
    pressSpaceOn(form, 4);
    EXPECT_EQ(listed(form)[1], QStringLiteral("x Wed 03/18/2026 | Jones, Mary 9:00 AM - 10:00 AM | booked"));
    EXPECT_EQ(listed(form)[2], QStringLiteral("- Wed 03/25/2026 | Jones, Mary 9:00 AM - 10:00 AM | left out"));
    EXPECT_EQ(listed(form)[4], QStringLiteral("- Wed 04/08/2026 |  | left out"));
    expectConflict("4/1/2026", Answer::Yes);
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18 4/1"));
}

TEST_F(Recurring, TheEndSaysHowManyWereMade) {
    NoticeBar bar;
    for (const int week : {1, 3})
        appointment({.date = day.addDays(7 * week)});
    frmRecurAppt form(item, reed, {});
    form.txtRecrMaxEvents->setValue(13);
    form.show();
    form.seriesdates->Read();
    pressSpaceOn(form, 1);
    expectConflict("4/1/2026", Answer::No);
    press(form, 0);
    EXPECT_EQ(bar.Texts(), QStringList({QStringLiteral("11 of 12 recurring appointments made.")}));
}

TEST_F(Recurring, AllThatIsTakenIsLeftOutAtOnce) {
    for (const int week : {1, 3})
        appointment({.date = day.addDays(7 * week)});
    frmRecurAppt form(item, reed, {});
    form.txtRecrMaxEvents->setValue(5);
    form.seriesdates->Read();
    EXPECT_TRUE(form.seriesdates->cmdskip->isEnabled());
    form.seriesdates->cmdskip->click();
    EXPECT_FALSE(form.seriesdates->cmdskip->isEnabled());
    EXPECT_EQ(form.seriesdates->lblcount->text(), QStringLiteral("2 of 4 new appointments"));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/25 4/8"));
}

TEST_F(Recurring, ADecisionStaysWithItsDateWhenTheSeriesGrows) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form(item, reed, {});
    form.show();
    form.seriesdates->Read();
    pressSpaceOn(form, 1);
    pressSpaceOn(form, 1);
    form.txtRecrMaxEvents->setValue(3);
    EXPECT_EQ(listed(form)[1], QStringLiteral("- Wed 03/18/2026 | Jones, Mary 9:00 AM - 10:00 AM | left out"));
}

TEST_F(Recurring, WhatIsInTheWayIsReadByItselfOnceTheTypingPauses) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form(item, reed, {});
    form.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return listed(form)[1].contains(QStringLiteral("asked first")); }));
}

TEST_F(Recurring, ARoomThatIsTakenIsAskedForUnlessItStaysBehind) {
    const int blue = room(QStringLiteral("Blue Room"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    booking(blue, 540, 570, QStringLiteral("Board"));
    run(Sql("Update roomschedule Set nApptDate = '{}' Where croomtext = 'Board'", day.addDays(7)));
    const QString question = QStringLiteral(
        "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?");
    {
        frmRecurAppt form(item, reed, {});
        desk.expectBox(question, QStringLiteral("Recurring Appointment"), Answer::Yes);
        desk.expectBox(QStringLiteral("This is booked on 3/18/2026:\n\nBlue Room: Board 9:00 AM - 9:30 AM\n\nAdd the "
                                      "appointment anyway?"),
                       QStringLiteral("Appointment Conflict"), Answer::No);
        press(form, 0);
        EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11"));
    }
    frmRecurAppt form(item, reed, {});
    desk.expectBox(question, QStringLiteral("Recurring Appointment"), Answer::No);
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18"));
}

TEST_F(Recurring, NoNameIsListedWhilePatientsNamesAreHidden) {
    SetNamesHidden(true);
    // A status of a practice's own colour, and one without a patient's id.
    appointment({.date = day.addDays(7)});
    run(Sql("Update appointments Set ncolor = 12648447 Where dapptdate = '{}'", day.addDays(7)));
    appointment({.patient = QString(), .date = day.addDays(14)});
    run(Sql("Update appointments Set ncolor = 16711681 Where dapptdate = '{}'", day.addDays(14)));
    appointment({.text = QStringLiteral("Staff Meeting"), .patient = QString(), .date = day.addDays(21)});
    run(Sql("Update appointments Set ncolor = 16777088 Where dapptdate = '{}'", day.addDays(21)));
    const int blue = room(QStringLiteral("Blue Room"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    booking(blue, 540, 570, QStringLiteral("Jones, Mary"), key + 1);
    run(Sql("Update roomschedule Set nApptDate = '{}' Where apptid = {}", day.addDays(14), key + 1));
    frmRecurAppt form(item, reed, {});
    form.show();
    form.txtRecrMaxEvents->setValue(4);
    form.seriesdates->Read();
    const auto shown = [&form] {
        QStringList texts = listed(form);
        for (const QLabel* label : {form.lblsource, form.seriesdates->lblway})
            texts << label->text();
        return texts.join(QLatin1Char('\n'));
    };
    const QString name = QStringLiteral("Jones");
    form.seriesdates->lstdates->setCurrentItem(form.seriesdates->lstdates->topLevelItem(1));
    EXPECT_FALSE(shown().contains(name)) << shown().toStdString();
    EXPECT_TRUE(shown().contains(QStringLiteral("Staff Meeting"))) << shown().toStdString();
    // The switch is turned in front of the dialog, too.
    SetNamesHidden(false);
    EXPECT_EQ(shown().count(name), 5) << shown().toStdString();
    SetNamesHidden(true);
    EXPECT_FALSE(shown().contains(name)) << shown().toStdString();

    const auto sampled = [](const QDialog& dialog) {
        const auto& list = *static_cast<const frmslist&>(dialog).List1;
        QStringList texts;
        for (int row = 0; row < list.count(); ++row)
            texts << list.item(row)->text();
        return texts.join(QLatin1Char('\n'));
    };
    desk.expectForm("frmslist", [&](QDialog& dialog) {
        EXPECT_FALSE(sampled(dialog).contains(name)) << sampled(dialog).toStdString();
        SetNamesHidden(false);
        EXPECT_EQ(sampled(dialog).count(name), 3) << sampled(dialog).toStdString();
        SetNamesHidden(true);
        EXPECT_FALSE(sampled(dialog).contains(name)) << sampled(dialog).toStdString();
    });
    press(form, 2);
}

TEST_F(Recurring, ADateThatWasDecidedIsNotThrownAwayUnasked) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form(item, reed, {});
    form.show();
    form.seriesdates->Read();
    pressSpaceOn(form, 1);
    const QString question = QStringLiteral("Close without saving what you have changed?");
    desk.expectBox(question, QStringLiteral("Recurrance"), Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    desk.expectBox(question, QStringLiteral("Recurrance"), Answer::Yes);
    form.close();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Recurring, DatesThatWereOnlyLookedAtAskNothing) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form(item, reed, {});
    form.show();
    form.seriesdates->Read();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Recurring, NothingIsBookedWhereWhatIsInTheWayCannotBeRead) {
    frmRecurAppt form(item, reed, {});
    form.show();
    const QString why = DropTable(database.connection(), QStringLiteral("Holidays"));
    desk.expectBox(QStringLiteral("Error checking for conflicts. Nothing has been saved. ") + why,
                   QStringLiteral("Error"));
    press(form, 0);
    EXPECT_EQ(count(), 1);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.seriesdates->lblcount->text().endsWith(why));
}

TEST_F(Recurring, TheAttendeesOfAnActivityAreAskedFor) {
    run(Sql("Update appointments Set clinicianid = '~EVT', ncolor = 16777088 Where nkeyid = {}", key));
    for (const char* who : {"REED", "OBRIEN"})
        run(Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values ({}, '{}')", key, who));
    const QString question = QStringLiteral(
        "This activity has attendees: 2. Do you want them to attend all recurring appointments too? With No these are booked for  alone.");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        run(Sql("Delete from appointments Where nkeyid <> {}", key));
        frmRecurAppt form(item, reed, {});
        desk.expectBox(question, QStringLiteral("Recurring Appointment"), answer);
        press(form, 0);
        EXPECT_EQ(database.text(Sql("Select clinicianid from appointments Where nkeyid <> {}", key)),
                  answer == Answer::Yes ? QStringLiteral("~EVT") : QStringLiteral("REED"));
        EXPECT_EQ(database.number(Sql("Select Count(*) from appointmentsevents Where nkeyid <> {}", key)),
                  answer == Answer::Yes ? 2 : 0);
    }
}

TEST_F(Recurring, TheMembersOfAGroupAreAskedForAndWhoHasLeftByThenDoesNotCome) {
    run(Sql("Update appointments Set ncolor = 12632064 Where nkeyid = {}", key));
    for (const char* who : {"10017", "10018"}) {
        run(Sql(
            "Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName, Kept, GroupId) Values ({}, '{}', 'Name', 1, 5)",
            key, who));
        run(Sql("Insert Into GroupMembers (GroupID, PatientID, startDate) Values (5, '{}', '2020/01/01')", who));
    }
    run(Sql("Update GroupMembers Set enddate = '{}' Where PatientID = '10018'", day.addDays(10)));
    frmRecurAppt form(item, reed, {});
    form.txtRecrMaxEvents->setValue(3);
    desk.expectBox(
        QStringLiteral(
            "This group appointment has patients: 2. Do you want them to be scheduled for all recurring appointments too? With No these are booked without patients."),
        QStringLiteral("Recurring Appointment"), Answer::Yes);
    press(form, 0);
    EXPECT_EQ(database.number(Sql("Select Count(*) from AppointmentsGroup Where nKeyId <> {}", key)), 3);
    EXPECT_EQ(database.number(Sql("Select Count(*) from AppointmentsGroup Where nKeyId <> {} And Kept = 1", key)), 0);
}

TEST_F(Recurring, FiveHundredDatesAreReadInPiecesBetweenWhichTheUserGoesOnTyping) {
    const QDate late = day.addDays(7 * 450);
    appointment({.text = QStringLiteral("Smith, Zed"), .date = day.addDays(7 * 11)});
    appointment({.text = QStringLiteral("Brown, Amy"), .date = late});
    frmRecurAppt form(item, reed, {});
    form.txtRecrMaxEvents->setValue(500);
    int pieces = 0;
    QString typed;
    // What waits in the queue gets its turn between two pieces, as a key does.
    QObject::connect(form.seriesdates->lstdates->model(), &QAbstractItemModel::dataChanged, &form, [&] {
        QMetaObject::invokeMethod(
            &form,
            [&] {
                if (typed.isEmpty() &&
                    form.seriesdates->lblcount->text().endsWith(QLatin1String("Looking up what is in the way...")))
                    typed = listed(form)[450];
            },
            Qt::QueuedConnection);
        ++pieces;
    });
    const QString whole = QStringLiteral("499 of 499 new appointments, 2 asked first");
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.seriesdates->lblcount->text() == whole; }));
    EXPECT_TRUE(listed(form)[450].contains(QLatin1String("Brown")));
    EXPECT_GT(pieces, 1);
    EXPECT_EQ(typed,
              QStringLiteral("x %1 |  | booked").arg(QLocale::c().toString(late, QStringLiteral("ddd MM/dd/yyyy"))))
        << "The end of the series is read last.";
    EXPECT_TRUE(listed(form)[11].contains(QLatin1String("Smith")));
}

TEST_F(Recurring, WhatIsCancelledMissedOrUnavailableIsToldAsThat) {
    const int gone = appointment({.text = QStringLiteral("Smith, Zed"), .date = day.addDays(7)});
    const int lunch = appointment({.text = QStringLiteral("Lunch"), .patient = QString(), .date = day.addDays(14)});
    run(Sql("Update appointments Set ncolor = 193 Where nkeyid = {}", gone));
    run(Sql("Update appointments Set ncolor = 16744703 Where nkeyid = {}", lunch));
    frmRecurAppt form(item, reed, {});
    form.txtRecrMaxEvents->setValue(3);
    form.seriesdates->Read();
    EXPECT_EQ(listed(form).mid(1),
              QStringList(
                  {QStringLiteral("? Wed 03/18/2026 | Smith, Zed (Patient Cancelled) 9:00 AM - 10:00 AM | asked first"),
                   QStringLiteral("? Wed 03/25/2026 | Lunch (Unavailable Time) 9:00 AM - 10:00 AM | asked first")}));
}

TEST_F(Recurring, ADateThatWasTickedIsAskedForOnceSomethingElseIsBookedThere) {
    appointment({.text = QStringLiteral("Smith, Zed"), .date = day.addDays(7)});
    frmRecurAppt form(item, reed, {});
    form.show();
    form.seriesdates->Read();
    pressSpaceOn(form, 1);
    EXPECT_TRUE(listed(form)[1].endsWith(QLatin1String("| booked")));
    appointment({.start = 570, .end = 630, .text = QStringLiteral("Brown, Amy"), .date = day.addDays(7)});
    expectConflict("3/18/2026", Answer::No);
    press(form, 0);
    EXPECT_EQ(count(), 3);
}
