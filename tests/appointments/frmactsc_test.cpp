#include "appointments/frmactsc.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "appointments/attendeelist.h"
#include "appointments/durationlabel.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/database/sql.h"
#include "tests/appointments/activityfixture.h"

using db::Sql;

namespace {

const QString MissingData = QStringLiteral("Missing Data");
const QString NotFound = QStringLiteral("Item Not Found");

class ActivityScheduler : public ActivityFixture {
  protected:
    QStringList providers() {
        QStringList names;
        for (int row = 0; row < scheduler->List1->count(); ++row)
            names << scheduler->List1->ProviderName(row);
        return names;
    }
    [[nodiscard]] QString attendeesShown() const { return scheduler->List1->SelectedNames().join(QLatin1Char(' ')); }
    /// Presses Busy Search and expects these names.
    void expectBusy(const QStringList& names) {
        desk.expectForm("frmeConflict", [names](QDialog& dialog) {
            auto* list = dialog.findChild<QListWidget*>(QStringLiteral("List1"));
            QStringList shown;
            for (int row = 0; row < list->count(); ++row)
                shown << list->item(row)->text();
            shown.sort();
            EXPECT_EQ(shown, names);
            dialog.accept();
        });
        clickButton(scheduler->cmdbusy);
    }
    void expectNobodyBusy() {
        desk.expectBox(QStringLiteral("No conflicts found for selected attendees."),
                       QStringLiteral("Activity Scheduler"));
        clickButton(scheduler->cmdbusy);
    }
    void expectRefusal(const char* message, QPushButton* button, QWidget* field) {
        desk.expectBox(QString::fromLatin1(message), MissingData);
        clickButton(button);
        EXPECT_TRUE(field->hasFocus()) << message;
        EXPECT_TRUE(scheduler->isVisible());
    }
};

}  // namespace

TEST_F(ActivityScheduler, ANewActivityIsForTheDateOfTheView) {
    view.shownDate = QDate(2026, 4, 2);
    const frmactsc& dialog = openNewActivity();
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Activity Scheduler"));
    EXPECT_EQ(dialog.ctDEditComp->Date(), QDate(2026, 4, 2));
    EXPECT_EQ(dialog.lblweekday->text(), QStringLiteral("Thursday"));
    EXPECT_EQ(dialog.ctstart->Time(), -1);
    EXPECT_EQ(dialog.ctend->Time(), -1);
    EXPECT_TRUE(dialog.cboevents->hasFocus());
    EXPECT_EQ(dialog.lblattendees->text(), QStringLiteral("Nobody attends yet"));
}

TEST_F(ActivityScheduler, ANewActivityTakesTheTimeThatIsSelectedInTheView) {
    view.selectedTime = SelectedSlot{QDate(2026, 3, 12), 600, 690};
    const frmactsc& dialog = openNewActivity();
    EXPECT_EQ(dialog.ctDEditComp->Date(), QDate(2026, 3, 12));
    EXPECT_EQ(dialog.ctstart->Time(), 600);
    EXPECT_EQ(dialog.ctend->Time(), 690);
    EXPECT_EQ(dialog.lblduration->text(), QStringLiteral("1 h 30 min"));
}

TEST_F(ActivityScheduler, ListsTheActiveProvidersByName) {
    database.connection().Execute("Update provider_info Set Archive = 1 Where id = 'STONE'");
    openNewActivity();
    EXPECT_EQ(providers(), (QStringList{QStringLiteral("Lane"), QStringLiteral("O'Brien"), QStringLiteral("Reed")}));
}

TEST_F(ActivityScheduler, ProvidersOfOneNameAreToldApart) {
    provider(QStringLiteral("REED2"), QStringLiteral("Reed"));
    openNewActivity();
    EXPECT_GE(rowOf("Reed (REED)"), 0);
    EXPECT_GE(rowOf("Reed (REED2)"), 0);
    EXPECT_GE(rowOf("Lane"), 0);
}

TEST_F(ActivityScheduler, AnExistingActivityShowsItsTimePlaceAndAttendees) {
    const frmactsc& dialog = openActivity(activity({QStringLiteral("REED"), QStringLiteral("LANE")}));
    EXPECT_EQ(dialog.cboevents->Text(), QStringLiteral("Staff Meeting"));
    EXPECT_EQ(dialog.cbolocation->Text(), QStringLiteral("Annex"));
    EXPECT_EQ(dialog.ctDEditComp->Date(), day);
    EXPECT_EQ(dialog.ctstart->Time(), 540);
    EXPECT_EQ(dialog.ctend->Time(), 600);
    EXPECT_EQ(attendeesShown(), QStringLiteral("Lane Reed"));
    EXPECT_EQ(dialog.lblattendees->text(), QStringLiteral("2 attendees: Lane, Reed"));
    EXPECT_FALSE(dialog.dirty);
    EXPECT_FALSE(dialog.attendeesChanged);
}

TEST_F(ActivityScheduler, AClickMakesAnAttendeeAndAnotherTakesThemOutAgain) {
    const frmactsc& dialog = openNewActivity();
    clickProvider("Reed");
    EXPECT_EQ(dialog.lblattendees->text(), QStringLiteral("1 attendee: Reed"));
    clickProvider("Lane");
    clickProvider("Stone");
    EXPECT_EQ(dialog.lblattendees->text(), QStringLiteral("3 attendees: Lane, Reed, Stone"));
    EXPECT_EQ(dialog.ListedProviders(), QStringLiteral("'LANE', 'REED', 'STONE'"));
    clickProvider("Reed");
    EXPECT_EQ(attendeesShown(), QStringLiteral("Lane Stone"));
    EXPECT_TRUE(dialog.attendeesChanged);
    EXPECT_TRUE(dialog.dirty);
}

TEST_F(ActivityScheduler, AttendeesAreChosenByKeyboardAlone) {
    const frmactsc& dialog = openNewActivity();
    dialog.List1->setFocus();
    dialog.List1->setCurrentRow(0, QItemSelectionModel::NoUpdate);
    press(dialog.List1, Qt::Key_Space);
    press(dialog.List1, Qt::Key_Down);
    EXPECT_EQ(attendeesShown(), QStringLiteral("Lane"));
    press(dialog.List1, Qt::Key_Down);
    press(dialog.List1, Qt::Key_Space);
    EXPECT_EQ(attendeesShown(), QStringLiteral("Lane Reed"));
    press(dialog.List1, Qt::Key_Space);
    EXPECT_EQ(attendeesShown(), QStringLiteral("Lane"));
}

TEST_F(ActivityScheduler, ATypedLetterGoesToAProviderWithoutChoosing) {
    const frmactsc& dialog = openNewActivity();
    dialog.List1->setFocus();
    press(dialog.List1, Qt::Key_S);
    EXPECT_EQ(dialog.List1->currentRow(), rowOf("Stone"));
    EXPECT_EQ(attendeesShown(), QString());
    press(dialog.List1, Qt::Key_Space);
    EXPECT_EQ(attendeesShown(), QStringLiteral("Stone"));
}

TEST_F(ActivityScheduler, ManyAttendeesAreCountedAndTheFirstNamed) {
    for (int i = 0; i < 10; ++i)
        provider(QStringLiteral("P%1").arg(i), QStringLiteral("Aa%1").arg(i));
    const frmactsc& dialog = openNewActivity();
    dialog.List1->selectAll();
    EXPECT_EQ(dialog.lblattendees->text(), QStringLiteral("14 attendees: Aa0, Aa1, Aa2, Aa3 and 10 more"));
}

TEST_F(ActivityScheduler, AnAttendeeWhoHasLeftThePracticeIsStillShown) {
    database.connection().Execute("Update provider_info Set Archive = 1 Where id = 'STONE'");
    const int key = activity({QStringLiteral("REED"), QStringLiteral("STONE"), QStringLiteral("GONE")});
    openActivity(key);
    EXPECT_EQ(attendeesShown(), QStringLiteral("Reed GONE (no longer on the list) Stone (no longer on the list)"));
    EXPECT_FALSE(scheduler->attendeesChanged);
}

TEST_F(ActivityScheduler, AnActivityThatIsGoneOpensEmpty) {
    const frmactsc& dialog = openActivity(4711);
    EXPECT_EQ(dialog.cboevents->Text(), QString());
    EXPECT_EQ(dialog.ctstart->Time(), -1);
    EXPECT_EQ(attendeesShown(), QString());
}

TEST_F(ActivityScheduler, AListThatCannotBeReadIsToldAndTheFormOpensAllTheSame) {
    const QString why = DropTable(database.connection(), QStringLiteral("provider_info"));
    desk.expectBox(QStringLiteral("Error loading provider list. ") + why, QStringLiteral("Error"));
    EXPECT_EQ(openNewActivity().List1->count(), 0);
}

TEST_F(ActivityScheduler, AnActivityThatCannotBeReadIsTold) {
    const int key = activity({QStringLiteral("REED")});
    const QString why = DropTable(database.connection(), QStringLiteral("AppointmentsEvents"));
    desk.expectBox(QStringLiteral("Error loading appointment. ") + why, QStringLiteral("Error"));
    EXPECT_EQ(openActivity(key).cboevents->Text(), QString());
}

TEST_F(ActivityScheduler, AnEndBeforeTheStartIsShownBesideTheTimes) {
    const frmactsc& dialog = openNewActivity();
    type(dialog.ctstart, QStringLiteral("10:00 AM"));
    type(dialog.ctend, QStringLiteral("9:00 AM"));
    press(dialog.ctend, Qt::Key_Tab);
    EXPECT_EQ(dialog.lblduration->text(), QStringLiteral("ends before it starts"));
}

TEST_F(ActivityScheduler, ATextThatWillBeCutIsSaidWhileItIsTyped) {
    const frmactsc& dialog = openNewActivity();
    type(dialog.cboevents, QString(100, u'x'));
    EXPECT_EQ(dialog.lblcut->text(), QString());
    type(dialog.cboevents, QString(101, u'x'));
    EXPECT_EQ(dialog.cboevents->Text().size(), 100);
    const auto* line = dialog.findChild<QLabel*>(QStringLiteral("lblkept"));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), QStringLiteral("Kept 100 characters; more does not fit here."));
    dialog.cboevents->SetText(QString(101, u'x'));
    EXPECT_EQ(dialog.lblcut->text(), QStringLiteral("Only the first 100 characters of the event are kept."));
}

// Busy Search.

TEST_F(ActivityScheduler, BusySearchAsksForWhatIsMissing) {
    const frmactsc& dialog = openNewActivity();
    type(dialog.ctDEditComp, QString());
    press(dialog.ctDEditComp, Qt::Key_Delete);
    expectRefusal("Enter a valid date.", dialog.cmdbusy, dialog.ctDEditComp);
    type(dialog.ctDEditComp, QStringLiteral("3/11/2026"));
    expectRefusal("Enter a start time", dialog.cmdbusy, dialog.ctstart);
    type(dialog.ctstart, QStringLiteral("9:00 AM"));
    expectRefusal("Enter a start time", dialog.cmdbusy, dialog.ctend);
    type(dialog.ctend, QStringLiteral("9:00 AM"));
    expectRefusal("End time must be later than start time", dialog.cmdbusy, dialog.ctend);
    type(dialog.ctend, QStringLiteral("10:00 AM"));
    expectRefusal("Enter one or more providers to attend", dialog.cmdbusy, dialog.List1);
}

TEST_F(ActivityScheduler, BusySearchFindsNobodyOnAFreeMorning) {
    appointment({.start = 660, .end = 720});
    appointment({.date = day.addDays(1)});
    appointment({.provider = QStringLiteral("STONE")});
    openFilledActivity();
    expectNobodyBusy();
}

TEST_F(ActivityScheduler, BusySearchNamesAProviderWithAnOrdinaryAppointment) {
    appointment({.start = 570, .end = 630});
    openFilledActivity();
    expectBusy({QStringLiteral("Reed")});
}

TEST_F(ActivityScheduler, BusySearchNamesAttendeesOfAnotherActivity) {
    activity({QStringLiteral("OBRIEN"), QStringLiteral("REED"), QStringLiteral("STONE")});
    openFilledActivity();
    expectBusy({QStringLiteral("O'Brien"), QStringLiteral("Reed")});
}

TEST_F(ActivityScheduler, BusySearchFindsAnAppointmentWithinTheTime) {
    appointment({.start = 550, .end = 560});
    openFilledActivity();
    expectBusy({QStringLiteral("Reed")});
}

TEST_F(ActivityScheduler, BusySearchTellsTheTimesAndTheStatusesInTips) {
    const int key = appointment({.start = 550, .end = 560});
    database.connection().Execute(db::Sql("Update appointments Set ncolor = 193 Where nkeyid = {}", key));
    openFilledActivity();
    desk.expectForm("frmeConflict", [](QDialog& dialog) {
        const auto* row = dialog.findChild<QListWidget*>(QStringLiteral("List1"))->item(0);
        EXPECT_TRUE(row->toolTip().contains("9:10 AM - 9:20 AM: Patient Cancelled")) << row->toolTip().toStdString();
        EXPECT_EQ(row->data(Qt::AccessibleDescriptionRole).toString(), "9:10 AM - 9:20 AM: Patient Cancelled");
        dialog.accept();
    });
    clickButton(scheduler->cmdbusy);
}

TEST_F(ActivityScheduler, BusySearchCountsTouchingTimes) {
    appointment({.start = 480, .end = 540});
    appointment({.start = 600, .end = 660, .provider = QStringLiteral("OBRIEN")});
    openFilledActivity();
    expectBusy({QStringLiteral("O'Brien"), QStringLiteral("Reed")});
}

TEST_F(ActivityScheduler, BusySearchNamesAProviderForEachAppointmentInTheWay) {
    appointment({.start = 540, .end = 560});
    appointment({.start = 560, .end = 600});
    openFilledActivity();
    expectBusy({QStringLiteral("Reed"), QStringLiteral("Reed")});
}

TEST_F(ActivityScheduler, TheActivityUnderEditReportsItsOwnAttendees) {
    openActivity(activity({QStringLiteral("LANE"), QStringLiteral("REED")}));
    expectBusy({QStringLiteral("Lane"), QStringLiteral("Reed")});
}

TEST_F(ActivityScheduler, BusySearchKnowsAProviderWithAQuoteInTheId) {
    provider(QStringLiteral("D'ARCY"), QStringLiteral("Darcy"));
    appointment({.provider = QStringLiteral("D'ARCY")});
    openFilledActivity();
    clickProvider("Darcy");
    EXPECT_EQ(scheduler->ListedProviders(), QStringLiteral("'D''ARCY', 'OBRIEN', 'REED'"));
    expectBusy({QStringLiteral("Darcy")});
}

TEST_F(ActivityScheduler, BusySearchThatFailsSaysSo) {
    openFilledActivity();
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error checking for conflicts. ") + why, QStringLiteral("Error"));
    clickButton(scheduler->cmdbusy);
    EXPECT_TRUE(scheduler->isVisible());
}

// Items that are on no list.

TEST_F(ActivityScheduler, AnUnknownEventIsOfferedToTheListAndKept) {
    const frmactsc& dialog = openNewActivity();
    type(dialog.cboevents, QStringLiteral("Fire drill"));
    desk.expectBox(QStringLiteral("Event is not on the list. Do you want to add it?"), NotFound, Answer::Yes);
    press(dialog.cboevents, Qt::Key_Tab);
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from Events Where Event = 'Fire drill'")), 1);
}

TEST_F(ActivityScheduler, AnUnknownLocationAnsweredNoIsStillSaved) {
    frmactsc& dialog = openFilledActivity();
    type(dialog.cbolocation, QStringLiteral("The park"));
    desk.expectBox(QStringLiteral("Location is not on the list. Do you want to add it?"), NotFound, Answer::No);
    press(dialog.cbolocation, Qt::Key_Tab);
    clickButton(dialog.cmdOk);
    EXPECT_EQ(stored(newestKey()), QStringLiteral("540-600 2026-03-11 Staff Meeting @ The park"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from Locations Where Location = 'The park'")), 0);
}

TEST_F(ActivityScheduler, AnItemThatCannotBeAddedIsTold) {
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("Locations"));
    const frmactsc& dialog = openNewActivity();
    type(dialog.cbolocation, QStringLiteral("The park"));
    desk.expectBox(QStringLiteral("Location is not on the list. Do you want to add it?"), NotFound, Answer::Yes);
    desk.expectBox(QStringLiteral("Error adding item to database. ") + why, QStringLiteral("Error"));
    press(dialog.cbolocation, Qt::Key_Tab);
    EXPECT_EQ(dialog.cbolocation->Text(), QStringLiteral("The park"));
}

TEST_F(ActivityScheduler, OkAsksForTheUnknownItemInWhoseBoxTheUserStands) {
    frmactsc& dialog = openFilledActivity();
    type(dialog.cboevents, QStringLiteral("Fire drill"));
    desk.expectBox(QStringLiteral("Event is not on the list. Do you want to add it?"), NotFound, Answer::No);
    press(dialog.cboevents, Qt::Key_Return);
    EXPECT_EQ(stored(newestKey()), QStringLiteral("540-600 2026-03-11 Fire drill @ "));
}

TEST_F(ActivityScheduler, AnEventThatLeftTheListIsNotAskedForAtOpening) {
    const int key = activity({QStringLiteral("REED")});
    database.connection().Execute("Delete from Events");
    const frmactsc& dialog = openActivity(key);
    dialog.cboevents->setFocus();
    press(dialog.cboevents, Qt::Key_Tab);
    EXPECT_EQ(dialog.cboevents->Text(), QStringLiteral("Staff Meeting"));
}
