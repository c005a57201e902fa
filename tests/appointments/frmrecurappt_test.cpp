#include "appointments/frmrecurappt.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include "appointments/frmslist.h"
#include "appointments/seriesdates.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/noticebar.h"
#include "session/hiddennames.h"
#include "session/openview.h"
#include "tests/appointments/appointmentfixture.h"

using db::Sql;

namespace {

/// The day view with one appointment selected.
class DayWithSelection : public OpenView {
  public:
    DayWithSelection() { registerOpenView(); }
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const override { return item; }
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const override { return std::nullopt; }
    void DropSelection() override {}
    std::optional<CalendarItem> item;
};

const QString Title = QStringLiteral("Solvane Scheduler");

class Recurring : public AppointmentFixture {
  protected:
    Recurring() {
        Session().ProviderId = QStringLiteral("REED");
        desk.setNow(QDateTime(day, QTime(8, 0)));
        key = appointment({});
        run(Sql(
            "Update appointments Set ncolor = 16711681, CapptNote = '90834|bring the card', CLOCATION = 'Annex' Where nkeyid = {}",
            key));
        CalendarItem item;
        item.ItemKey = QString::number(key);
        item.ItemDay = day;  // A Wednesday.
        item.ItemStart = 540;
        item.ItemEnd = 600;
        item.ItemText = QStringLiteral("Jones, Mary");
        item.ItemLocation = QStringLiteral("Annex");
        item.ItemNote = QStringLiteral("90834|bring the card|10017|A-17");
        view.item = item;
    }
    void run(const QString& statement) { database.connection().Execute(statement); }
    static void press(frmRecurAppt& form, int command) { form.cmdRecur[static_cast<std::size_t>(command)]->click(); }
    static void choose(QButtonGroup* group, int id) { group->button(id)->click(); }
    qint64 count() { return database.number(QStringLiteral("Select Count(*) from appointments")); }
    QString datesOfSeries() {
        QStringList dates;
        for (db::Recordset rows(
                 Sql("Select dapptdate from appointments Where repeating_ref = {} Order by dapptdate", key),
                 database.connection());
             !rows.Eof(); rows.MoveNext())
            dates << rows[0].date().toString(QStringLiteral("M/d"));
        return dates.join(QLatin1Char(' '));
    }
    void expectConflict(const char* date, Answer answer) {
        desk.expectBox(QStringLiteral("You have another appointment on %1 which conflicts with this one. Add anyway?")
                           .arg(QLatin1String(date)),
                       QStringLiteral("Appointment Conflict"), answer);
    }

    /// The list of dates, each row's cells joined by " | " behind its tick: x, - or ? for undecided; none for the
    /// appointment itself.
    static QStringList listed(const frmRecurAppt& form) {
        QStringList rows;
        for (int i = 0; i < form.seriesdates->lstdates->topLevelItemCount(); ++i) {
            const QTreeWidgetItem& row = *form.seriesdates->lstdates->topLevelItem(i);
            const QVariant tick = row.data(0, Qt::CheckStateRole);
            const QString mark =
                !tick.isValid() ? QString() : QStringLiteral("-?x").mid(tick.toInt(), 1) + QLatin1Char(' ');
            QStringList cells;
            for (int column = 0; column < 3; ++column)
                cells << row.text(column);
            rows << mark + cells.join(QStringLiteral(" | "));
        }
        return rows;
    }
    /// Puts the cursor on the n-th date and presses Space.
    static void pressSpaceOn(frmRecurAppt& form, int n) {
        QTreeWidget& list = *form.seriesdates->lstdates;
        list.setCurrentItem(list.topLevelItem(n));
        QTest::keyClick(&list, Qt::Key_Space);
    }

    DayWithSelection view;
    int key = 0;
};

}  // namespace

TEST_F(Recurring, StartsWithTheAppointmentsOwnWeekday) {
    const frmRecurAppt form;
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Recurrance"));
    EXPECT_EQ(form.txtRecrStartDate->Date(), day);
    EXPECT_EQ(form.txtRecrMaxEvents->Value(), 2);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every week on Wednesday, 2 times, until 18 March 2026: 1 new appointment"));
}

TEST_F(Recurring, OneMoreDateIsWrittenForAnEndAfterTwo) {
    frmRecurAppt form;
    press(form, 0);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18"));
    EXPECT_EQ(form.result(), QDialog::Accepted);
    const db::Recordset copy(QStringLiteral("Select * from appointments Where dapptdate = '2026/03/18'"),
                             database.connection());
    EXPECT_EQ(copy["cappttext"].text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(copy["CapptNote"].text(), QStringLiteral("90834|bring the card"));
    EXPECT_EQ(copy["patientid"].text(), QStringLiteral("10017"));
    EXPECT_EQ(copy["PatientAcct"].text(), QStringLiteral("A-17"));
    EXPECT_EQ(copy["CLOCATION"].text(), QStringLiteral("Annex"));
    EXPECT_EQ(copy["repeating"].integer(), 1);
    EXPECT_EQ(copy["clinicianid"].text(), QStringLiteral("REED"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from AuditLog")), 0);
}

TEST_F(Recurring, TheStatusOfTheCopiesFollowsTheSources) {
    const std::pair<int, int> statuses[] = {{0xC0C0C0, 0xC0C0C0}, {0xC000, 0xFF0001},   {0xC0, 0xFF0001},
                                            {0xC2, 0xFF0001},     {0xFF0000, 0xFF0000}, {0xC0C000, 0xC0C000}};
    for (const auto& [source, copy] : statuses) {
        run(Sql("Delete from appointments Where nkeyid <> {}", key));
        run(Sql("Update appointments Set ncolor = {} Where nkeyid = {}", source, key));
        frmRecurAppt form;
        press(form, 0);
        EXPECT_EQ(database.number(Sql("Select ncolor from appointments Where nkeyid <> {}", key)), copy) << source;
    }
}

TEST_F(Recurring, AMemberOfASeriesContinuesUnderTheFirstMembersKey) {
    const int first = appointment({.date = day.addDays(-7)});
    run(Sql("Update appointments Set repeating = 1, repeating_ref = {}", first));
    frmRecurAppt form;
    press(form, 0);
    EXPECT_EQ(database.number(Sql("Select Count(*) from appointments Where repeating_ref = {}", first)), 3);
}

TEST_F(Recurring, AnsweringNoToAConflictSkipsThatDateAlone) {
    appointment({.start = 600, .end = 660, .date = day.addDays(7)});  // Touching counts.
    appointment({.start = 540, .end = 600, .date = day.addDays(14)});
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(4);
    expectConflict("3/18/2026", Answer::No);
    expectConflict("3/25/2026", Answer::Yes);
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/25 4/1"));
}

TEST_F(Recurring, TheRoomGoesAlongOnlyAfterAYes) {
    const int blue = room(QStringLiteral("O'Brien's room"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    const QString question = QStringLiteral(
        "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        run(Sql("Delete from appointments Where nkeyid <> {}", key));
        frmRecurAppt form;
        desk.expectBox(question, QStringLiteral("Recurring Appointment"), answer);
        press(form, 0);
        EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from roomschedule")), answer == Answer::Yes ? 2 : 1);
    }
    EXPECT_EQ(database.text(Sql("Select croomtext from roomschedule Where apptid <> {}", key)),
              QStringLiteral("O'Brien's room"));
}

TEST_F(Recurring, AStartBehindTheAppointmentIsBookedLikeEveryOtherDate) {
    frmRecurAppt form;
    form.txtRecrStartDate->setDate(day.addDays(7));
    form.txtRecrMaxEvents->setValue(3);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every week on Wednesday, 3 times, until 1 April 2026: 3 new appointments"));
    EXPECT_EQ(listed(form), QStringList({QStringLiteral("x Wed 03/18/2026 |  | booked"),
                                         QStringLiteral("x Wed 03/25/2026 |  | booked"),
                                         QStringLiteral("x Wed 04/01/2026 |  | booked")}));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18 3/25 4/1"));
}

TEST_F(Recurring, AStartBeforeTheAppointmentDoesNotBookItsOwnDateTwice) {
    frmRecurAppt form;
    form.txtRecrStartDate->setDate(day.addDays(-7));
    form.txtRecrMaxEvents->setValue(3);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every week on Wednesday, 3 times, until 18 March 2026: 2 new appointments"));
    EXPECT_EQ(listed(form), QStringList({QStringLiteral("x Wed 03/04/2026 |  | booked"),
                                         QStringLiteral("Wed 03/11/2026 | this appointment itself | "),
                                         QStringLiteral("x Wed 03/18/2026 |  | booked")}));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/4 3/11 3/18"));
}

TEST_F(Recurring, AStartThatFitsNoPatternLeavesTheOwnDateAloneToo) {
    frmRecurAppt form;
    form.txtRecrStartDate->setDate(day.addDays(-3));
    form.txtRecrMaxEvents->setValue(2);
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11 3/18"));
}

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
    frmRecurAppt form;
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
    frmRecurAppt form;
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
    frmRecurAppt form;
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
    frmRecurAppt form;
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
    frmRecurAppt form;
    form.show();
    form.seriesdates->Read();
    pressSpaceOn(form, 1);
    pressSpaceOn(form, 1);
    form.txtRecrMaxEvents->setValue(3);
    EXPECT_EQ(listed(form)[1], QStringLiteral("- Wed 03/18/2026 | Jones, Mary 9:00 AM - 10:00 AM | left out"));
}

TEST_F(Recurring, WhatIsInTheWayIsReadByItselfOnceTheTypingPauses) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form;
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
        frmRecurAppt form;
        desk.expectBox(question, QStringLiteral("Recurring Appointment"), Answer::Yes);
        desk.expectBox(QStringLiteral("This is booked on 3/18/2026:\n\nBlue Room: Board 9:00 AM - 9:30 AM\n\nAdd the "
                                      "appointment anyway?"),
                       QStringLiteral("Appointment Conflict"), Answer::No);
        press(form, 0);
        EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11"));
    }
    frmRecurAppt form;
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
    frmRecurAppt form;
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
    frmRecurAppt form;
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
    frmRecurAppt form;
    form.show();
    form.seriesdates->Read();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Recurring, NothingIsBookedWhereWhatIsInTheWayCannotBeRead) {
    frmRecurAppt form;
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
        frmRecurAppt form;
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
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(3);
    desk.expectBox(
        QStringLiteral(
            "This group appointment has patients: 2. Do you want them to be scheduled for all recurring appointments too? With No these are booked without patients."),
        QStringLiteral("Recurring Appointment"), Answer::Yes);
    press(form, 0);
    EXPECT_EQ(database.number(Sql("Select Count(*) from AppointmentsGroup Where nKeyId <> {}", key)), 3);
    EXPECT_EQ(database.number(Sql("Select Count(*) from AppointmentsGroup Where nKeyId <> {} And Kept = 1", key)), 0);
}

TEST_F(Recurring, AWeekWithNoDayTickedIsToldWhenItIsSaved) {
    frmRecurAppt form;
    for (QCheckBox* box : form.chkRecrWeekly)
        box->setChecked(false);
    EXPECT_EQ(form.lblsentence->text(), QStringLiteral("Every week on no day: no date fits."));
    desk.expectBox(QStringLiteral("Recurring appointment must have more than one date."), Title);
    press(form, 0);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(database.number(QStringLiteral("Select repeating from appointments")), 0);
}

TEST_F(Recurring, WhatIsMissingIsToldTogether) {
    frmRecurAppt form;
    form.txtRecrStartDate->setText({});
    choose(form.radEnd, 1);
    form.txtRecrWeeklyWeeks->setValue(0);
    desk.expectBox(
        QStringLiteral(
            "Please enter the following information: \n\n   Start Date,\n   End Date or Number of Occurrences\n   Invalid Recurrance Pattern"),
        Title);
    press(form, 0);
    EXPECT_NE(form.result(), QDialog::Accepted);
}

TEST_F(Recurring, AMissingEndAloneLosesItsLastLetter) {
    frmRecurAppt form;
    choose(form.radEnd, 1);
    desk.expectBox(QStringLiteral("Please enter the following information: \n\n   End Date or Number of Occurrence"),
                   Title);
    press(form, 0);
}

TEST_F(Recurring, EachPatternChecksItsOwnNumbers) {
    frmRecurAppt form;
    const auto refused = [&](int type, const char* text) {
        choose(form.radRecurrence, type);
        desk.expectBox(QStringLiteral("Please enter the following information: \n\n") + QLatin1String(text), Title);
        EXPECT_FALSE(form.Validate());
    };
    form.txtRecrDailyDays->setValue(0);
    refused(0, "   Invalid Recurrance Pattern");
    choose(form.radDaily, 1);
    EXPECT_TRUE(form.Validate());
    form.txtRecrMonthlyDay->setValue(0);
    form.txtRecrMonthlyMonths[0]->setValue(0);
    refused(2, "   Invalid Recurrance Pattern,\n   Invalid Recurrance Pattern");
    form.txtRecrYearlyDay->setValue(0);
    refused(3, "   Invalid Recurrance Pattern");
    choose(form.radYearlyScaleInd, 1);
    EXPECT_TRUE(form.Validate());
}

TEST_F(Recurring, ThePreviewMarksTheDatesThatCollide) {
    appointment({.date = day.addDays(7)});
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(3);
    desk.expectForm("frmslist", [](QDialog& dialog) {
        const auto& list = *static_cast<frmslist&>(dialog).List1;
        ASSERT_EQ(list.count(), 3);
        EXPECT_EQ(list.item(0)->text(), QStringLiteral("Wed 03/11/2026   this appointment itself"));
        EXPECT_EQ(list.item(1)->text(), QStringLiteral("Wed 03/18/2026   Jones, Mary 9:00 AM - 10:00 AM"));
        EXPECT_EQ(list.item(2)->text(), QStringLiteral("Wed 03/25/2026"));
    });
    press(form, 2);
    EXPECT_EQ(count(), 2);
}

TEST_F(Recurring, TheDayComesFirstWhereTheSystemWritesItSo) {
    Session().DateOrder = 1;
    frmRecurAppt form;
    desk.expectForm("frmslist", [](QDialog& dialog) {
        EXPECT_EQ(static_cast<frmslist&>(dialog).List1->item(1)->text(), QStringLiteral("Wed 18/03/2026"));
    });
    press(form, 2);
}

TEST_F(Recurring, TheSentenceFollowsTheSettings) {
    frmRecurAppt form;
    form.chkRecrWeekly[4]->setChecked(true);
    form.txtRecrWeeklyWeeks->setValue(2);
    form.txtRecrMaxEvents->setValue(5);
    EXPECT_EQ(
        form.lblsentence->text(),
        QStringLiteral("Every 2 weeks on Wednesday and Thursday, 5 times, until 8 April 2026: 4 new appointments"));
    choose(form.radRecurrence, 0);
    EXPECT_EQ(form.lblsentence->text(), QStringLiteral("Every day, 5 times, until 15 March 2026: 4 new appointments"));
    choose(form.radRecurrence, 2);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every month on day 11, 5 times, until 11 July 2026: 4 new appointments"));
    choose(form.radMonthlyScaleInd, 1);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every month on the second Wednesday, 5 times, until 8 July 2026: 4 new appointments"));
    choose(form.radRecurrence, 3);
    EXPECT_EQ(form.lblsentence->text(),
              QStringLiteral("Every year on 11 March, 5 times, until 11 March 2030: 4 new appointments"));
    choose(form.radEnd, 1);
    EXPECT_EQ(form.lblsentence->text(), QStringLiteral("Enter when the series ends."));
}

TEST_F(Recurring, AnEndBeforeTheStartGivesNoSeries) {
    frmRecurAppt form;
    choose(form.radEnd, 1);
    form.txtRecrEndDate->setDate(day.addDays(-1));
    desk.expectBox(QStringLiteral("Recurring appointment must have more than one date."), Title);
    press(form, 0);
}

TEST_F(Recurring, TheLargestCountStopsAfterFiveThousandDays) {
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(32767);
    choose(form.radRecurrence, 0);
    EXPECT_TRUE(form.lblsentence->text().startsWith(QStringLiteral("Every day, 5001 times")))
        << form.lblsentence->text().toStdString();
}

TEST_F(Recurring, WithoutASelectedAppointmentTheFormClosesItself) {
    view.item.reset();
    desk.expectBox(QStringLiteral("Error retreiving Appointment values."), QStringLiteral("Error"));
    frmRecurAppt form;
    form.show();
    QApplication::processEvents();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Recurring, AnAppointmentThatAnotherUserDeletedIsTold) {
    frmRecurAppt form;
    run(QStringLiteral("Delete from appointments"));
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Error"));
    press(form, 0);
    EXPECT_EQ(count(), 0);
}

TEST_F(Recurring, ALostDatabaseIsTold) {
    frmRecurAppt form;
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error opening database. ") + why, QStringLiteral("Error"));
    press(form, 0);
}

TEST_F(Recurring, ADateWhoseRoomCannotBeBookedIsNotBooked) {
    const int blue = room(QStringLiteral("Blue"));
    booking(blue, 540, 600, QStringLiteral("Reed"), key);
    frmRecurAppt form;
    form.txtRecrMaxEvents->setValue(4);
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("roomschedule"));
    desk.expectBox(
        QStringLiteral(
            "This appointment is associated with a Room. Do you want the room to be associated with all recurring appointments?"),
        QStringLiteral("Recurring Appointment"), Answer::Yes);
    desk.expectBox(QStringLiteral("Error adding appointment. ") + why, QStringLiteral("Error"));
    press(form, 0);
    EXPECT_EQ(datesOfSeries(), QStringLiteral("3/11"));
}

TEST_F(Recurring, CancelWritesNothing) {
    frmRecurAppt form;
    press(form, 1);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(database.number(QStringLiteral("Select repeating from appointments")), 0);
}
