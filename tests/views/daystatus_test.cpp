#include <QAction>

#include "data/codes.h"
#include "platform/controls/noticebar.h"
#include "platform/database/sql.h"
#include "platform/database/waiting.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

namespace {

constexpr const char* statusCommands[] = {"mnuCheckediN", "mnuAKept", "mnuAMissed", "mnuAPCancel", "mnuATCancel"};

class DayStatus : public DayFixture {
  protected:
    [[nodiscard]] qint64 stored(qint64 key) {
        return database_.number(db::Sql("Select ncolor from appointments Where nkeyid = {}", key));
    }
    [[nodiscard]] QStringList ticked() {
        QStringList names;
        for (const char* name : statusCommands) {
            if (command(name).isChecked())
                names << QString::fromLatin1(name);
        }
        return names;
    }
    void choose(const char* name) {
        ASSERT_TRUE(command(name).isEnabled()) << name;
        command(name).trigger();
    }
};

/// Gives up at once.
class Impatient : public db::Waiting {
  public:
    bool GoesOn() override { return false; }
};

struct PlainStatus {
    const char* command;
    int code;
    const char* word;
    const char* inDetails;
};

class DayPlainStatus : public DayStatus, public testing::WithParamInterface<PlainStatus> {};

}  // namespace

TEST_P(DayPlainStatus, IsStoredShownAndTicked) {
    const PlainStatus& status = GetParam();
    const qint64 key = add(anAppointment("Anna").status(ncolor::CheckedIn));
    const qint64 other = add(anAppointment("Bert").at(11, 0).status(ncolor::Pending));
    open();
    select("Anna");

    choose(status.command);

    EXPECT_EQ(stored(key), status.code);
    EXPECT_EQ(stored(other), ncolor::Pending);
    EXPECT_EQ(item("Anna").ItemColor, status.code);
    EXPECT_EQ(item("Anna").ItemStatusIcon, 0);
    EXPECT_EQ(item("Anna").ItemStatusText, status.word);
    EXPECT_EQ(ticked(), QStringList{QString::fromLatin1(status.command)});
    EXPECT_TRUE(info().contains(QStringLiteral("Status;%1").arg(QLatin1String(status.inDetails))));
}

TEST_P(DayPlainStatus, LooksAsTheNextReloadShowsIt) {
    add(anAppointment("Anna").status(ncolor::Tentative).with("BTentIco", "1").with("appointment_type", "6723891"));
    CalendarView& view = open();
    select("Anna");

    choose(GetParam().command);
    const CalendarItem shown = item("Anna");
    const QStringList details = info();
    view.Reload();

    EXPECT_EQ(item("Anna"), shown);
    EXPECT_EQ(info(), details);
}

TEST_P(DayPlainStatus, KeepsAHiddenNameHidden) {
    Session().HidePatientNames = true;
    add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");

    choose(GetParam().command);

    EXPECT_EQ(item("Anna").ItemTextColor, TextColor::SameAsBackground);
}

TEST_P(DayPlainStatus, OfARowThatAnotherDeskDeletedChangesAndReportsNothing) {
    const NoticeBar bar;
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", key));

    choose(GetParam().command);

    EXPECT_EQ(database_.number(QStringLiteral("Select Count(*) from appointments")), 0);
    EXPECT_EQ(item("Anna").ItemColor, ncolor::Pending);
    EXPECT_TRUE(ticked().isEmpty());
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_P(DayPlainStatus, ThatTheDatabaseRefusesIsNotShownAndToldInTheBar) {
    const NoticeBar bar;
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    const QString reason = database_.refuse(QStringLiteral("Update"), QStringLiteral("appointments"));

    choose(GetParam().command);

    EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("The status was not saved. ") + reason});
    EXPECT_EQ(stored(key), ncolor::Pending);
    EXPECT_EQ(item("Anna").ItemColor, ncolor::Pending);
    EXPECT_TRUE(ticked().isEmpty());

    database_.allow(QStringLiteral("Update"), QStringLiteral("appointments"));
    choose(GetParam().command);
    EXPECT_EQ(stored(key), GetParam().code);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_P(DayPlainStatus, WhoseWaitForAnotherDeskIsGivenUpIsToldInTheBar) {
    const NoticeBar bar;
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    database_.connection().BeginTrans();
    otherDesk(db::Sql("Update appointments Set cappttext = 'Anna' Where nkeyid = {}", key));
    db::ShowWaiting() = [] { return std::make_unique<Impatient>(); };

    choose(GetParam().command);

    db::ShowWaiting() = {};
    db::AskAboutWaitsAgain();
    database_.connection().RollbackTrans();
    EXPECT_EQ(bar.Texts(),
              QStringList{"The status was not saved. The wait for the database was given up. Nothing of it "
                          "was saved."});
    EXPECT_EQ(stored(key), ncolor::Pending);
    EXPECT_EQ(item("Anna").ItemColor, ncolor::Pending);
    EXPECT_TRUE(ticked().isEmpty());
}

TEST_P(DayPlainStatus, LeavesWhatAnotherDeskChangedMeanwhile) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    database_.connection().Execute(db::Sql(
        "Update appointments Set nStartTime = 900, nEndTime = 960, cappttext = 'Anna Marie' Where nkeyid = {}", key));

    choose(GetParam().command);

    EXPECT_EQ(stored(key), GetParam().code);
    EXPECT_EQ(database_.text(db::Sql("Select cappttext from appointments Where nkeyid = {}", key)), "Anna Marie");
    EXPECT_EQ(database_.number(db::Sql("Select nStartTime from appointments Where nkeyid = {}", key)), 900);
}

INSTANTIATE_TEST_SUITE_P(
    Status, DayPlainStatus,
    testing::Values(PlainStatus{"mnuAMissed", ncolor::Missed, "Missed", "Missed"},
                    PlainStatus{"mnuAPCancel", ncolor::PatientCancelled, "Patient Cancelled", "Cancelled"},
                    PlainStatus{"mnuATCancel", ncolor::TherapistCancelled, "Therapist Cancelled", "Cancelled"}),
    [](const auto& tested) { return std::string(tested.param.command); });

TEST_F(DayStatus, KeptSavesTheRowAndShowsIt) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Tentative).with("BTentIco", "1"));
    CalendarView& view = open();
    select("Anna");

    choose("mnuAKept");
    const CalendarItem shown = item("Anna");
    const QStringList details = info();

    EXPECT_EQ(stored(key), ncolor::Kept);
    EXPECT_EQ(database_.number(db::Sql("Select BTentIco from appointments Where nkeyid = {}", key)), 0);
    EXPECT_EQ(database_.text(db::Sql("Select lastmodifieduid from appointments Where nkeyid = {}", key)), "REED");
    EXPECT_EQ(shown.ItemColor, ncolor::Kept);
    EXPECT_EQ(shown.ItemStatusIcon, 0);
    EXPECT_EQ(ticked(), QStringList{"mnuAKept"});
    EXPECT_TRUE(details.contains(QStringLiteral("Status;Kept")));
    view.Reload();
    EXPECT_EQ(item("Anna"), shown);
    EXPECT_EQ(info(), details);
}

TEST_F(DayStatus, KeptOnARowThatAnotherDeskDeletedIsToldAndTakesItOffTheDay) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    database_.connection().Execute(db::Sql("Delete from appointments Where nkeyid = {}", key));

    desk.expectBox(QStringLiteral("Unable to save. Appointment not found. It may have been deleted by another user."),
                   QStringLiteral("Appointment not found"));
    choose("mnuAKept");

    EXPECT_TRUE(itemTexts().isEmpty());
    EXPECT_TRUE(ticked().isEmpty());
    EXPECT_EQ(info(), QStringList{";No Appointment Selected"});
    EXPECT_EQ(database_.number(QStringLiteral("Select Count(*) from appointments")), 0);
}

TEST_F(DayStatus, KeptThatTheDatabaseRefusesIsToldInTheBarUntilItIsStored) {
    const NoticeBar bar;
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    const QString reason = database_.refuse(QStringLiteral("Update"), QStringLiteral("appointments"));

    choose("mnuAKept");

    EXPECT_EQ(bar.Texts(), QStringList{QStringLiteral("The status was not saved. ") + reason});
    EXPECT_EQ(stored(key), ncolor::Pending);
    EXPECT_EQ(item("Anna").ItemColor, ncolor::Pending);
    EXPECT_TRUE(info().contains(QStringLiteral("Status;Pending")));
    EXPECT_TRUE(ticked().isEmpty());

    database_.allow(QStringLiteral("Update"), QStringLiteral("appointments"));
    choose("mnuAKept");
    EXPECT_EQ(stored(key), ncolor::Kept);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(DayStatus, KeptDoesNotMoveBackWhatAnotherDeskMoved) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending).at(9, 0).until(9, 50));
    open();
    select("Anna");
    database_.connection().Execute(
        db::Sql("Update appointments Set nStartTime = 900, nEndTime = 960 Where nkeyid = {}", key));

    choose("mnuAKept");

    EXPECT_EQ(stored(key), ncolor::Kept);
    EXPECT_EQ(database_.number(db::Sql("Select nStartTime from appointments Where nkeyid = {}", key)), 900);
    EXPECT_EQ(item("Anna").ItemStart, 900);
    EXPECT_EQ(ticked(), QStringList{"mnuAKept"}) << "The view was read anew; the appointment is still the chosen one.";
}

TEST_F(DayStatus, KeptDoesNotOverwriteAStatusThatAnotherDeskSet) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");
    database_.connection().Execute(
        db::Sql("Update appointments Set ncolor = {} Where nkeyid = {}", ncolor::Missed, key));

    desk.expectBox(
        QStringLiteral(
            "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read."),
        QStringLiteral("Error"));
    choose("mnuAKept");

    EXPECT_EQ(stored(key), ncolor::Missed);
    EXPECT_EQ(item("Anna").ItemColor, ncolor::Missed);
    EXPECT_TRUE(ticked().isEmpty());
}

TEST_F(DayStatus, KeptAfterMissedIsNoQuarrelWithOneself) {
    const qint64 key = add(anAppointment("Anna").status(ncolor::Pending));
    open();
    select("Anna");

    choose("mnuAMissed");
    choose("mnuAKept");
    choose("mnuAPCancel");
    choose("mnuAKept");

    EXPECT_EQ(stored(key), ncolor::Kept);
    EXPECT_EQ(ticked(), QStringList{"mnuAKept"});
}

TEST_F(DayStatus, ARowWithoutATextCanBeKept) {
    run("Insert Into appointments (dapptdate, nStartTime, nEndTime, ncolor, clinicianid) Values('2026/03/11', 540, 590, 16711681, 'REED')");
    open();
    select("");

    choose("mnuAKept");

    EXPECT_EQ(database_.number(QStringLiteral("Select ncolor from appointments")), ncolor::Kept);
}

TEST_F(DayStatus, ThePictureOfACallGivesWayToTheStatusUntilTheNextReload) {
    run("Insert Into CourtesyCallCodes (CallService, CallCode, CallCategory) Values('CP', 'NA', 3)");
    add(anAppointment("Anna").status(ncolor::Pending).with("CourtesyCallStatus", "'NA'"));
    CalendarView& view = open();
    select("Anna");
    ASSERT_EQ(item("Anna").ItemStatusIcon, 5);

    for (const char* name : {"mnuAMissed", "mnuAKept"}) {
        choose(name);
        EXPECT_EQ(item("Anna").ItemStatusIcon, 0) << name;
        view.Reload();
        EXPECT_EQ(item("Anna").ItemStatusIcon, 5) << name;
    }
}

TEST_F(DayStatus, WithoutASelectedAppointmentThereIsNoStatusToSet) {
    add(anAppointment("Anna"));
    open();

    for (const char* name : statusCommands) {
        EXPECT_FALSE(command(name).isEnabled()) << name;
        EXPECT_EQ(command(name).toolTip().toStdString(), "Select an appointment first.");
    }
}

TEST_F(DayStatus, EveryPatientRowCanBeGivenAnother) {
    for (const int code : ncolor::PatientRows)
        add(anAppointment(qPrintable(QString::number(code))).status(code));
    open();

    for (const int code : ncolor::PatientRows) {
        select(qPrintable(QString::number(code)));
        for (const char* name : statusCommands)
            EXPECT_TRUE(command(name).isEnabled()) << code << " " << name;
    }
}

TEST_F(DayStatus, WhatIsNoPatientsAppointmentHasNone) {
    add(anAppointment("Meeting").status(ncolor::Activity));
    add(anAppointment("Lunch").status(ncolor::Unavailable));
    add(anAppointment("Thursday group").status(ncolor::Group));
    add(anAppointment("Intake slot").status(0x336699).with("appttype", "4"));
    add(anAppointment("Slot in a status's colour").status(ncolor::Kept).with("appttype", "4"));
    add(anAppointment("Nobody in an odd colour").status(0x112233));
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders'' Day', '2026/03/11', 0)");
    open();

    for (const QString& text : itemTexts()) {
        select(text.toUtf8().constData());
        for (const char* name : statusCommands) {
            EXPECT_FALSE(command(name).isEnabled()) << text.toStdString() << " " << name;
            EXPECT_EQ(command(name).toolTip().toStdString(), "Only the appointment of a patient has a status.");
        }
    }
}

TEST_F(DayStatus, APatientInAColourWithoutAMeaningCanBeSettled) {
    add(anAppointment("Grey").status(ncolor::LegendTentative).with("patientid", "'10017'"));
    CalendarView& view = open();
    select("Grey");

    choose("mnuAMissed");
    const CalendarItem shown = item("Grey");
    view.Reload();

    EXPECT_EQ(item("Grey"), shown);
    EXPECT_EQ(item("Grey").ItemColor, ncolor::Missed);
}

TEST_F(DayStatus, TheTickGoesWithTheSelection) {
    add(anAppointment("Anna"));
    add(anAppointment("Bert").at(11, 0));
    open();
    select("Anna");
    choose("mnuAMissed");

    select("Bert");

    EXPECT_TRUE(ticked().isEmpty());
}

TEST_F(DayStatus, OnlyOneStatusIsTicked) {
    add(anAppointment("Anna"));
    open();
    select("Anna");

    choose("mnuAMissed");
    choose("mnuAPCancel");
    EXPECT_EQ(ticked(), QStringList{"mnuAPCancel"});
    choose("mnuAPCancel");
    EXPECT_EQ(ticked(), QStringList{"mnuAPCancel"});
}

TEST_F(DayStatus, AUserWhoMayOnlyReadSetsNone) {
    for (const int access : {0, 1}) {
        Session().ScreenAccess = access;
        add(anAppointment("Anna"));
        open();
        select("Anna");
        for (const char* name : statusCommands) {
            EXPECT_FALSE(command(name).isEnabled()) << name;
            EXPECT_EQ(command(name).toolTip().toStdString(), "You may only read the schedules.");
        }
    }
}

TEST_F(DayStatus, AUserWithoutDeleteRightsSetsThem) {
    Session().ScreenAccess = 2;
    const qint64 key = add(anAppointment("Anna"));
    open();
    select("Anna");

    choose("mnuAMissed");

    EXPECT_EQ(stored(key), ncolor::Missed);
}
