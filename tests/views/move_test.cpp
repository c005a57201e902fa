#include <QComboBox>
#include <QDialog>
#include <QLabel>

#include "appointments/frmmove.h"
#include "tests/views/shelffixture.h"

namespace {

const QDate Thursday(2026, 3, 12);

frmmove& formOf(QDialog& dialog) {
    return dynamic_cast<frmmove&>(dialog);
}

/// What the form lists in the way, "start;end;text;place".
QStringList inTheWay(const frmmove& form) {
    QStringList rows;
    for (int row = 0; row < form.ctList1->RowCount(); ++row)
        rows << form.ctList1->Cells(row).join(QLatin1Char(';'));
    return rows;
}

}  // namespace

class Move : public WithShelf<AllProviders> {
  protected:
    Move() { Session().CurrentView = View::Day; }
    std::unique_ptr<CalendarView> makeView() override { return std::make_unique<frmsched>(main); }
    /// Opens the form for the appointment, and plays the user on it.
    void moveBy(const char* text, const std::function<void(frmmove&)>& act) {
        select(text);
        desk.expectForm("frmmove", [&act](QDialog& dialog) { act(formOf(dialog)); });
        trigger("mnuAMove");
    }
};

TEST_F(Move, GoesToTheDayAndTimeThatAreTypedWithItsLengthAndRoom) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    bookRoom(anna, 540, 590);
    openByHand();

    moveBy("Anna", [](frmmove& form) {
        EXPECT_EQ(form.lblheading->text(), "Move Appointment · Wed, Mar 11, 2026 · Anna");
        EXPECT_EQ(form.lblfrom->text(), "Now 9:00 AM to 9:50 AM with Reed, 50 minutes.");
        EXPECT_EQ(form.lblway->text(), "This is where it is now.");
        form.ctdate->setText("3/12/2026");
        form.ctstart->setText("2:15p");
        EXPECT_EQ(form.lblend->text(), "to 3:05 PM, 50 minutes");
        EXPECT_EQ(form.lblway->text(), "Nothing is in the way.");
        form.cmdOk->click();
    });

    EXPECT_EQ(place(anna), "2026-03-12 855-905 REED");
    EXPECT_EQ(database_.number("Select nStartTime from roomschedule"), 855);
    EXPECT_EQ(database_.text("Select LogDescription from AuditLog"),
              "Modified Appointment (03/11/2026 at 9:00 AM) to 03/12/26 at 2:15 PM for Anna");
    EXPECT_EQ(itemTexts(), QStringList());
    EXPECT_EQ(bar.Texts(), QStringList{"Moved to Thu, Mar 12 at 2:15 PM."});
}

TEST_F(Move, TellsWhatIsInTheWayBeforeOk) {
    const qint64 anna =
        add(anAppointment("Anna").status(ncolor::Pending).with("patientid", "'P1'").at(9, 0).until(10, 0));
    bookRoom(anna, 540, 600);
    bookRoom(0, 600, 720, "2026/03/12");
    add(anAppointment("Away").status(ncolor::Unavailable).on(Thursday).at(10, 0).until(12, 0));
    add(anAppointment("Anna")
            .status(ncolor::Pending)
            .with("patientid", "'P1'")
            .of("LANE")
            .on(Thursday)
            .at(10, 30)
            .until(11, 0));
    add(anAppointment("Slot").with("appttype", "4").on(Thursday).at(10, 0).until(12, 0));
    run("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values('Founders', '2026/03/12', 0)");
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('REED', 5, 780, 1020)");
    openByHand();

    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        form.ctstart->setText("10:00 AM");
        EXPECT_EQ(inTheWay(form),
                  (QStringList{"All day;;Holiday: Founders;", "1:00 PM;5:00 PM;Outside the working hours;Reed",
                               "10:00 AM;12:00 Noon;Away;Reed", "10:30 AM;11:00 AM;Anna;Lane",
                               "10:00 AM;12:00 Noon;Reed;Blue"}));
        EXPECT_EQ(form.lblway->text(), "5 things are in the way. OK moves the appointment all the same.");
        form.ctstart->setText("2:00 PM");
        EXPECT_EQ(inTheWay(form), QStringList{"All day;;Holiday: Founders;"});
        EXPECT_EQ(form.lblway->text(), "One thing is in the way. OK moves the appointment all the same.");
        form.ctstart->setText("10:00 AM");
        form.cmdOk->click();
    });

    EXPECT_EQ(place(anna), "2026-03-12 600-660 REED");
}

TEST_F(Move, GivesItToAnotherProvider) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();

    moveBy("Anna", [](frmmove& form) {
        EXPECT_EQ(form.cboprovider->currentText(), "Reed");
        form.cboprovider->setCurrentText("Lane");
        form.cmdOk->click();
    });

    EXPECT_EQ(place(anna), "2026-03-11 540-590 LANE");
    EXPECT_EQ(bar.Texts(), QStringList{"Moved to Wed, Mar 11 at 9:00 AM with Lane."});
    EXPECT_EQ(database_.text("Select LogDescription from AuditLog"),
              "Modified Appointment (03/11/2026 at 9:00 AM with Reed) to 03/11/26 at 9:00 AM for Anna with Lane");
}

TEST_F(Move, OffersNoOtherProviderToWhoWorksOnOneSchedule) {
    Session().AllProviders = false;
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        EXPECT_EQ(form.cboprovider->count(), 1);
        EXPECT_FALSE(form.cboprovider->isEnabled());
        form.cmdcancel->click();
    });
    EXPECT_EQ(item("Anna").ItemStart, 540);
}

TEST_F(Move, RefusesADateOrTimeThatIsNone) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(11, 0));
    openByHand();
    moveBy("Anna", [this](frmmove& form) {
        form.ctdate->setText("soon");
        EXPECT_EQ(form.lblway->text(), "Enter a date and a time.");
        desk.expectBox("Enter a valid date.", "Move Appointment");
        form.cmdOk->click();
        form.ctdate->setText("3/12/2026");
        form.ctstart->setText("");
        desk.expectBox("Enter a start time", "Move Appointment");
        form.cmdOk->click();
        form.ctstart->setText("11:00 PM");
        EXPECT_EQ(form.lblway->text(), "An appointment must end after it starts, on the same day.");
        desk.expectBox("An appointment must end after it starts, on the same day. Open it to change its times.",
                       "Move Appointment");
        form.cmdOk->click();
        EXPECT_FALSE(form.Target().has_value());
        form.reject();
    });
    EXPECT_EQ(place(anna), "2026-03-11 540-660 REED");
}

TEST_F(Move, WhatAnotherDeskBooksWhileTheFormIsOpenIsShownFirst) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    moveBy("Anna", [this](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        EXPECT_EQ(inTheWay(form), QStringList());
        add(anAppointment("Bert").on(Thursday).at(9, 0).until(9, 30));
        desk.expectBox("What is in the way has changed. See the list, and choose OK again or another time.",
                       "Move Appointment");
        form.cmdOk->click();
        EXPECT_FALSE(form.Target().has_value());
        EXPECT_EQ(inTheWay(form), QStringList{"9:00 AM;9:30 AM;Bert;Reed"});
        form.cmdOk->click();
        EXPECT_TRUE(form.Target().has_value());
    });
    EXPECT_EQ(place(anna), "2026-03-12 540-600 REED");
}

TEST_F(Move, WhatCannotBeReadIsNotTakenForFree) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    moveBy("Anna", [this](frmmove& form) {
        const QString why = DropTable(database_.connection(), "Holidays");
        form.ctdate->setText("3/12/2026");
        EXPECT_EQ(form.lblway->text(), "What is in the way could not be read. " + why);
        desk.expectBox("What is in the way could not be read. " + why, "Error");
        form.cmdOk->click();
        EXPECT_FALSE(form.Target().has_value());
        form.reject();
    });
    EXPECT_EQ(place(anna), "2026-03-11 540-600 REED");
}

TEST_F(Move, ARowThatAnotherDeskMovedIsToldAndNotWrittenOver) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(10, 0));
    openByHand();
    desk.expectForm("frmmove", [this, anna](QDialog& dialog) {
        frmmove& form = formOf(dialog);
        form.ctdate->setText("3/12/2026");
        otherDeskSets(anna, "nStartTime = 900, nEndTime = 960");
        form.cmdOk->click();
    });
    desk.expectBox(
        "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.",
        "Error");
    select("Anna");
    trigger("mnuAMove");
    EXPECT_EQ(place(anna), "2026-03-11 900-960 REED");
    EXPECT_EQ(item("Anna").ItemStart, 900);
}

TEST_F(Move, HidesThePatientsName) {
    add(anAppointment("O'Brien, Anna").status(ncolor::Pending).with("patientid", "'P1'"));
    openByHand();
    SetNamesHidden(true);
    select("O'Brien, Anna");
    desk.expectForm("frmmove", [](QDialog& dialog) {
        EXPECT_FALSE(formOf(dialog).lblheading->text().contains("Brien"));
        dialog.reject();
    });
    trigger("mnuAMove");
    SetNamesHidden(false);
}

TEST_F(Move, AnActivityOfSeveralGoesOnInTheActivityScheduler) {
    const qint64 staff = add(anAppointment("Staff").status(ncolor::Activity).at(9, 0).until(9, 30));
    run(QStringLiteral("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values(%1, 'REED')").arg(staff));
    openByHand();
    select("Staff");
    desk.expectForm("frmmove", [](QDialog& dialog) {
        frmmove& form = formOf(dialog);
        EXPECT_FALSE(form.cboprovider->isEnabled());
        form.ctdate->setText("3/12/2026");
        form.cmdOk->click();
    });
    desk.expectForm("frmactsc", [](QDialog& dialog) { dialog.reject(); });
    trigger("mnuAMove");
    EXPECT_EQ(place(staff), "2026-03-11 540-570 REED");
}

TEST_F(Move, WhatAnyOfThoseWhoAttendAnActivityHaveBookedIsInTheWay) {
    const qint64 staff = add(anAppointment("Staff").of("~EVT").status(ncolor::Activity).at(9, 0).until(9, 30));
    const qint64 rounds =
        add(anAppointment("Rounds").of("~EVT").status(ncolor::Activity).on(Thursday).at(9, 0).until(9, 30));
    const auto attends = [this](qint64 key, const char* who) {
        run(db::Sql("Insert Into AppointmentsEvents (nkeyid, clinicianid) Values({}, '{}')", key, who));
    };
    attends(staff, "REED");
    attends(staff, "LANE");
    attends(rounds, "LANE");
    add(anAppointment("Anna").of("LANE").on(Thursday).at(9, 0).until(10, 0));
    add(anAppointment("Bert").of("BAKER").on(Thursday).at(9, 0).until(10, 0));
    run("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values('LANE', 5, 600, 1020)");
    openByHand();

    moveBy("Staff", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        EXPECT_EQ(inTheWay(form), (QStringList{"10:00 AM;5:00 PM;Outside the working hours;Lane",
                                               "9:00 AM;9:30 AM;Rounds;Lane", "9:00 AM;10:00 AM;Anna;Lane"}));
        form.ctstart->setText("10:00 AM");
        EXPECT_EQ(form.lblway->text(), "Nothing is in the way.");
        form.reject();
    });
}

TEST_F(Move, WhoHasNoWorkingHoursStoredWorksInThoseOfTheDay) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        EXPECT_EQ(form.lblway->text(), "Nothing is in the way.");
        form.ctstart->setText("5:30 PM");
        EXPECT_EQ(inTheWay(form), QStringList{"8:00 AM;6:00 PM;Outside the working hours;Reed"});
        form.reject();
    });
}

TEST_F(Move, ShowGoesThereWithTheAppointmentSelected) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        form.cboprovider->setCurrentText("Lane");
        form.cmdOk->click();
    });

    take("Show");

    EXPECT_EQ(main.Date(), Thursday);
    EXPECT_EQ(Session().ProviderId, "LANE");
    EXPECT_EQ(main.asked.last(), "provider chosen");
    view_->Reload();
    EXPECT_EQ(view_->SelectedItem()->ItemText, "Anna");
}

TEST_F(Move, PutBackWritesItBackWithItsRoom) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    bookRoom(anna, 540, 590);
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        form.cboprovider->setCurrentText("Lane");
        form.cmdOk->click();
    });
    ASSERT_EQ(place(anna), "2026-03-12 540-590 LANE");

    take("Put back");

    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
    EXPECT_EQ(database_.text("Select nApptDate from roomschedule").left(10), "2026-03-11");
    EXPECT_EQ(bar.Texts(), QStringList{"Put back to Wed, Mar 11 at 9:00 AM."});
    EXPECT_EQ(main.asked.last(), "cycledate 2");
}

TEST_F(Move, PutBackRefusesWhatAnotherDeskChangedMeanwhile) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        form.cmdOk->click();
    });
    otherDeskSets(anna, "nStartTime = 900, nEndTime = 950");
    desk.expectBox(
        "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read.",
        "Error");

    take("Put back");

    EXPECT_EQ(place(anna), "2026-03-12 900-950 REED");
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(Move, PutBackAsksWhenSomethingWasBookedThereMeanwhile) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        form.cmdOk->click();
    });
    add(anAppointment("Bert").at(9, 0).until(9, 30));
    desk.expectForm("AppointmentConflict",
                    [](QDialog& form) { form.findChild<QPushButton*>("cmdreschedule")->click(); });
    take("Put back");
    EXPECT_EQ(place(anna), "2026-03-12 540-590 REED");
    ASSERT_EQ(bar.Texts(), QStringList{"Moved to Thu, Mar 12 at 9:00 AM."}) << "It can still be put back.";

    desk.expectForm("AppointmentConflict", [](QDialog& form) { form.findChild<QPushButton*>("cmdaccept")->click(); });
    take("Put back");
    EXPECT_EQ(place(anna), "2026-03-11 540-590 REED");
}

TEST_F(Move, PutBackTellsThatTheRowWasDeleted) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 50));
    openByHand();
    moveBy("Anna", [](frmmove& form) {
        form.ctdate->setText("3/12/2026");
        form.cmdOk->click();
    });
    otherDeskDeletes(anna);
    desk.expectBox("Error saving appointment. Another user may have deleted this appointment. ", "Error");
    take("Put back");
    EXPECT_EQ(bar.Texts(), QStringList());
}

TEST_F(Move, TheNextMoveTakesThePlaceOfTheBar) {
    add(anAppointment("Anna").at(9, 0).until(9, 50));
    add(anAppointment("Bert").at(11, 0).until(11, 50));
    openByHand();
    for (const char* text : {"Anna", "Bert"})
        moveBy(text, [](frmmove& form) {
            form.ctdate->setText("3/12/2026");
            form.cmdOk->click();
        });
    EXPECT_EQ(bar.Texts(), QStringList{"Moved to Thu, Mar 12 at 11:00 AM."});
}

class DragBar : public WithShelf<AllProviders> {};

TEST_F(DragBar, ADragToAnotherProviderCanBePutBackAndOneWithinItsColumnIsSilent) {
    const qint64 anna = add(anAppointment("Anna").at(9, 0).until(9, 45));
    openByHand();

    moveTo("Anna", 600);
    EXPECT_EQ(bar.Texts(), QStringList());
    mouseDrag(rectOf("Anna").center(), {calendar().CellRect(2, 600).center().x(), rectOf("Anna").center().y()});
    ASSERT_EQ(place(anna), "2026-03-11 600-645 LANE");
    EXPECT_EQ(bar.Texts(), QStringList{"Moved to Wed, Mar 11 at 10:00 AM with Lane."});
    take("Put back");
    EXPECT_EQ(place(anna), "2026-03-11 600-645 REED");
}
