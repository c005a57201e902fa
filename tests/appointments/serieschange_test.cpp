#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QToolButton>

#include "appointments/seriesstep.h"
#include "appointments/serieswork.h"
#include "platform/database/transaction.h"
#include "tests/appointments/restfixture.h"

using db::Sql;
using Kind = RestChange::Kind;

namespace {

/// The rest of a series while other desks work on it, or while the database does not.
class ChangeOfSeries : public RestOfSeries {
  protected:
    /// The steps of a move of the rows from today on by an hour.
    std::vector<SeriesStep> anHourLater() {
        std::vector<SeriesStep> steps;
        RestChange change;
        change.minutes = 60;
        for (const RestPlan& plan :
             PlanRest(ReadSeries(keys.front()), today(), RestScope::Following, change, day, true))
            if (plan.Changes())
                steps.push_back({plan.row.key, plan.row.place, plan.after});
        return steps;
    }
    static SeriesWork workOf(std::vector<SeriesStep> steps) {
        SeriesWork work;
        work.kind = SeriesWork::Kind::Rest;
        work.steps = std::move(steps);
        return work;
    }
    QStringList marks() { return QDir(userFolder.path()).entryList({QStringLiteral("series-*.json")}, QDir::Files); }
    /// Leaves a mark, as a program does that was killed after so many steps.
    void beKilledAfter(std::size_t steps, const std::vector<SeriesStep>& all) {
        const std::shared_ptr<SeriesMark> mark = SeriesMark::Begin(workOf(all));
        for (std::size_t step = 0; step < steps; ++step)
            EXPECT_TRUE(TakeStep(all[step]).IsDone());
    }
    void startAnew() {
        bar.Clear();
        OfferCutOffSeries([this] { ++reloads; });
    }
    /// The question about the last appointment of the series, at its new time.
    void expectAsked(const char* inTheWay, Answer answer) {
        desk.expectBox(
            QStringLiteral(
                "Something is booked in the way of the appointment on Wed 04/01/2026 at 10:00 AM:\n%1\nChange it anyway?")
                .arg(QLatin1String(inTheWay)),
            QStringLiteral("Appointment Conflict"), answer);
    }
    void pressNotice() {
        auto* button = bar.findChild<QAbstractButton*>(QStringLiteral("cmdNotice"));
        ASSERT_NE(button, nullptr);
        button->click();
        QApplication::processEvents();
    }
};

}  // namespace

TEST_F(ChangeOfSeries, AnAppointmentThatAnotherDeskMovedMeanwhileIsShownAnewAndNothingIsWritten) {
    const auto form = open();
    moveBy(*form, 60);
    set(keys[3], "nStartTime = 480, nEndTime = 540");
    expectChanged();
    ok(*form);
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/11 540", "03/18 480", "03/25 540", "04/01 540"}));
    EXPECT_EQ(listed(*form)[3], "x 03/18 | moves to 9:00 AM - 10:00 AM");
    ok(*form);
    EXPECT_EQ(stored().mid(2), (QStringList{"03/11 600", "03/18 540", "03/25 600", "04/01 600"}));
}

TEST_F(ChangeOfSeries, AnAppointmentThatAnotherDeskDeletedMeanwhileLeavesTheList) {
    const auto form = open();
    choose(*form, Kind::Delete);
    run(Sql("Delete from appointments Where nkeyid = {}", keys[3]));
    expectChanged();
    ok(*form);
    EXPECT_EQ(form->lstrows->topLevelItemCount(), 5);
    EXPECT_EQ(stored().size(), 5);
}

TEST_F(ChangeOfSeries, WhenTheChosenAppointmentItselfIsGoneNothingIsChosen) {
    const auto form = open();
    choose(*form, Kind::Delete);
    run(Sql("Delete from appointments Where nkeyid = {}", today()));
    expectChanged();
    ok(*form);
    EXPECT_EQ(form->lblcount->text(), "0 will be deleted");
    EXPECT_FALSE(form->cmdOk->isEnabled());
}

TEST_F(ChangeOfSeries, WhatIsBookedMeanwhileIsShownBeforeAnythingIsWritten) {
    const auto form = open();
    moveBy(*form, 60);
    appointment({.start = 600, .end = 630, .text = "Smith, Zed", .patient = "10020", .date = QDate(2026, 3, 18)});
    expectChanged();
    ok(*form);
    EXPECT_TRUE(listed(*form)[3].endsWith("Smith, Zed with Reed 10:00 AM - 10:30 AM"));
    EXPECT_EQ(stored().back(), "04/01 540");
}

TEST_F(ChangeOfSeries, ARowIsNeverWrittenOverAnotherDesksChangeAndIsCounted) {
    Session().ALEnabled = true;
    const std::vector<SeriesStep> steps = anHourLater();
    set(keys[3], "ncolor = 49152");
    set(keys[4], "NoteID = 7");
    run(Sql("Delete from appointments Where nkeyid = {}", keys[5]));
    const std::shared_ptr<SeriesMark> mark = SeriesMark::Begin(workOf(steps));
    const SeriesOutcome outcome = ChangeSeries(*mark);
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/11 600", "03/18 540", "03/25 540"}));
    EXPECT_EQ(
        ChangedText(mark->Work(), outcome),
        "1 of 4 appointments of the series are changed. 3 were left as they are, because another desk has changed or deleted them.");
    EXPECT_EQ(audit().size(), 1);
    EXPECT_EQ(marks(), QStringList());
}

TEST_F(ChangeOfSeries, ARoomThatWasChangedMeanwhileIsNotOverwritten) {
    const std::vector<SeriesStep> steps = anHourLater();
    booking(room(QStringLiteral("Blue")), 540, 600, QStringLiteral("Reed"), today());
    const WriteOutcome outcome = TakeStep(steps.front());
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->number, db::RowChanged);
    EXPECT_EQ(database.number(QStringLiteral("Select nStartTime from roomschedule")), 540);
}

TEST_F(ChangeOfSeries, AGroupsDateWhoseAttendanceWasTakenMeanwhileIsNotMoved) {
    set(keys[3], "ncolor = 12632064");
    run(Sql("Insert Into AppointmentsGroup (nKeyId, PatientId, Kept) Values({}, '10017', 0)", keys[3]));
    const std::vector<SeriesStep> steps = anHourLater();
    run(QStringLiteral("Update AppointmentsGroup Set Kept = 1"));
    const WriteOutcome outcome = TakeStep(steps[1]);
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->number, db::RowChanged);
    EXPECT_EQ(stored()[3], "03/18 540");
}

TEST_F(ChangeOfSeries, WithoutTheDatabaseNothingIsWrittenAndTheFormStays) {
    const auto form = open();
    moveBy(*form, 60);
    const QString reason = loseDatabase();
    desk.expectBox(QStringLiteral("Error checking for conflicts. Nothing has been saved. ") + reason,
                   QStringLiteral("Error"));
    ok(*form);
    EXPECT_EQ(form->result(), 0);
    EXPECT_EQ(marks(), QStringList());
    EXPECT_TRUE(form->ReadObstacles());
    EXPECT_TRUE(form->lblcount->text().startsWith("What stands in the way cannot be read now. "));
    desk.expectBox(QStringLiteral("Error opening database. ") + reason, QStringLiteral("Error"));
    EXPECT_FALSE(OpenSeries(today()));
}

TEST_F(ChangeOfSeries, WithoutTheDatabaseInTheMiddleTheRestIsOfferedAndDoneLater) {
    const std::vector<SeriesStep> steps = anHourLater();
    EXPECT_TRUE(TakeStep(steps[0]).IsDone());
    const std::shared_ptr<SeriesMark> mark = SeriesMark::Begin(workOf(steps));
    loseDatabase();
    const SeriesOutcome outcome = ChangeSeries(*mark);
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(marks().size(), 1) << "The mark stays until the rest is done.";
    Session().Connection.Open(database.connectionText());
    OfferRest(mark, outcome, [this] { ++reloads; });
    pressNotice();
    EXPECT_EQ(stored().mid(2), (QStringList{"03/11 600", "03/18 600", "03/25 600", "04/01 600"}));
    EXPECT_EQ(bar.Texts(), QStringList{"4 of 4 appointments of the series are changed."});
    EXPECT_EQ(reloads, 1);
    EXPECT_EQ(marks(), QStringList());
}

TEST_F(ChangeOfSeries, AChangeThatIsCutOffIsFinishedByTheNextStart) {
    const std::vector<SeriesStep> steps = anHourLater();
    beKilledAfter(2, steps);
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList{"Changing a series was cut off: 2 of 4 appointments are changed."});
    pressNotice();
    EXPECT_EQ(stored().mid(2), (QStringList{"03/11 600", "03/18 600", "03/25 600", "04/01 600"}));
    EXPECT_EQ(marks(), QStringList());
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(ChangeOfSeries, ADeletionThatIsCutOffIsFinishedByTheNextStartButForWhatWasChangedSince) {
    std::vector<SeriesStep> steps = anHourLater();
    for (SeriesStep& step : steps)
        step.after.reset();
    beKilledAfter(1, steps);
    set(keys[3], "nStartTime = 480, nEndTime = 540");
    startAnew();
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "Deleting a series was cut off: 1 of 4 appointments are deleted. 1 was left as it is, because another desk has changed or deleted it."});
    pressNotice();
    EXPECT_EQ(stored(), (QStringList{"02/25 540", "03/04 540", "03/18 480"}));
}

TEST_F(ChangeOfSeries, WhatIsPastWhenTheCutOffWorkIsFinishedStays) {
    beKilledAfter(1, anHourLater());
    desk.setNow(QDateTime(QDate(2026, 3, 19), QTime(8, 0)));
    startAnew();
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "Changing a series was cut off: 1 of 4 appointments are changed. 1 was left as it is, because it is past by now."});
    pressNotice();
    EXPECT_EQ(stored().mid(2), (QStringList{"03/11 600", "03/18 540", "03/25 600", "04/01 600"}));
    EXPECT_EQ(marks(), QStringList());
}

TEST_F(ChangeOfSeries, WhenAllThatWasCutOffIsPastTheUserIsOnlyTold) {
    beKilledAfter(3, anHourLater());
    desk.setNow(QDateTime(QDate(2026, 4, 2), QTime(8, 0)));
    startAnew();
    EXPECT_EQ(
        bar.Texts(),
        QStringList{
            "Changing a series was cut off: 3 of 4 appointments are changed. 1 was left as it is, because it is past by now."});
    EXPECT_EQ(bar.findChild<QAbstractButton*>(QStringLiteral("cmdNotice")), nullptr);
    EXPECT_EQ(marks(), QStringList());
}

TEST_F(ChangeOfSeries, TheRestIsOfferedOnlyToThoseWhoMayDoIt) {
    std::vector<SeriesStep> steps = anHourLater();
    beKilledAfter(1, steps);
    Session().ScreenAccess = 1;
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList());
    EXPECT_EQ(marks().size(), 1) << "Who may later, is offered it then.";
    Session().ScreenAccess = 2;
    startAnew();
    EXPECT_EQ(bar.Texts().size(), 1);
    pressNotice();
    EXPECT_EQ(marks(), QStringList());

    steps.erase(steps.begin(), steps.begin() + 3);
    steps.front().before.start = 600;
    steps.front().before.end = 660;
    steps.front().after.reset();
    beKilledAfter(0, steps);
    startAnew();
    EXPECT_EQ(bar.Texts(), QStringList());
    Session().ScreenAccess = 3;
    startAnew();
    pressNotice();
    EXPECT_EQ(stored().size(), 5);
}

TEST_F(ChangeOfSeries, WhatWasBookedSinceAChangeWasCutOffIsAskedAbout) {
    beKilledAfter(3, anHourLater());
    appointment({.start = 600, .end = 630, .text = "Smith, Zed", .patient = "10020", .date = QDate(2026, 4, 1)});
    startAnew();
    expectAsked("Smith, Zed with Reed 10:00 AM - 10:30 AM", Answer::No);
    pressNotice();
    EXPECT_EQ(stored().back(), "04/01 540");
    EXPECT_EQ(bar.Texts(), QStringList{"3 of 4 appointments of the series are changed."});
}

TEST_F(ChangeOfSeries, WhatThePatientHasWithAnotherProviderSinceAChangeWasCutOffIsAskedAbout) {
    beKilledAfter(3, anHourLater());
    appointment({.start = 600, .end = 630, .provider = "LANE", .date = QDate(2026, 4, 1)});
    startAnew();
    expectAsked("Jones, Mary with Lane 10:00 AM - 10:30 AM", Answer::Yes);
    pressNotice();
    EXPECT_EQ(stored().back(), "04/01 600");
}

TEST_F(ChangeOfSeries, WhatAnAttendeeOfASharedActivityHasSinceAChangeWasCutOffIsAskedAbout) {
    run(Sql("Update appointments Set clinicianid = '{}', patientid = '', ncolor = 8388863, cappttext = 'Meeting'",
            QLatin1String(EventClinicianId)));
    for (const int key : keys)
        for (const char* attendee : {"REED", "LANE"})
            run(Sql("Insert Into appointmentsevents (nkeyid, clinicianid) Values ({}, '{}')", key,
                    QLatin1String(attendee)));
    beKilledAfter(3, anHourLater());
    appointment({.start = 600, .end = 630, .provider = "LANE", .date = QDate(2026, 4, 1)});
    startAnew();
    expectAsked("Jones, Mary with Lane 10:00 AM - 10:30 AM", Answer::No);
    pressNotice();
    EXPECT_EQ(stored().back(), "04/01 540");
}

TEST_F(ChangeOfSeries, AnAppointmentThatIsLeftWhereItWasIsAskedAboutForTheNextOne) {
    const int later = join(appointment({.start = 600, .end = 660, .date = QDate(2026, 4, 1)}));
    const SeriesPlace at10{QDate(2026, 4, 1), 600, 660, QStringLiteral("REED"), ncolor::Pending, 0};
    SeriesPlace at11 = at10;
    at11.start = 660;
    at11.end = 720;
    SeriesPlace at9 = at10;
    at9.start = 540;
    at9.end = 600;
    appointment({.start = 660, .end = 720, .text = "Smith, Zed", .patient = "10020", .date = QDate(2026, 4, 1)});
    beKilledAfter(0, {{later, at10, at11}, {keys[5], at9, at10}});
    startAnew();
    desk.expectBox(
        QStringLiteral(
            "Something is booked in the way of the appointment on Wed 04/01/2026 at 11:00 AM:\nSmith, Zed with Reed 11:00 AM - 12:00 Noon\nChange it anyway?"),
        QStringLiteral("Appointment Conflict"), Answer::No);
    expectAsked("Jones, Mary with Reed 10:00 AM - 11:00 AM", Answer::No);
    pressNotice();
    EXPECT_EQ(stored().mid(5), (QStringList{"04/01 540", "04/01 600"}));
}

TEST_F(ChangeOfSeries, FiveHundredAppointmentsAreListedTickedAndMoved) {
    db::InTransaction(database.connection(), [&] {
        for (int week = 4; week < 498; ++week)
            join(appointment({.date = day.addDays(7 * week)}));
    });
    QElapsedTimer clock;
    clock.start();
    const auto form = open();
    choose(*form, RestScope::All);
    moveBy(*form, 15);
    pressSpaceOn(*form, 499);
    const qint64 shown = clock.restart();
    EXPECT_EQ(form->lblcount->text(), "497 will be changed, 3 stay");
    ok(*form);
    RecordProperty("MillisecondsToShow", static_cast<int>(shown));
    RecordProperty("MillisecondsToWrite", static_cast<int>(clock.elapsed()));
    std::printf("500 rows: shown and changed twice in %lld ms, written in %lld ms\n", static_cast<long long>(shown),
                static_cast<long long>(clock.elapsed()));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from appointments Where nStartTime = 555")), 497);
    EXPECT_EQ(bar.Texts(), QStringList{"497 of 497 appointments of the series are changed."});
}
