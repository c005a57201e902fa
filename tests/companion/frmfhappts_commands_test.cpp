#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "companion/frmfhappt.h"
#include "companion/frmfhclients.h"
#include "companion/frmfhevents.h"
#include "companion/keyedcombo.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/textfield.h"
#include "tests/companion/commandsfixture.h"

namespace {

const char* const NoRightsToAdd = "You do not have rights to add appointments or events.";
const char* const NoRightsToModify = "You do not have rights to modify appointments or events.";
const char* const NoRightsToDelete = "You do not have rights to delete appointments or events.";
const char* const NoTime = "No appointment time selected. Select an appointment time and try again.";
const char* const NoEventTime = "No event time selected. Select an event time and try again.";
const char* const NothingSelected = "No appointment selected.";
const char* const DeleteAppointment = "Are you sure you want to delete this appointment?";
const char* const DeleteEvent = "Are you sure you want to delete this event?";
const QString DeletionFailed = QStringLiteral("Error deleting appointment. ");
const QString EventDeletionFailed = QStringLiteral("Error deleting event. ");

class CompanionCommands : public CommandsFixture {
  protected:
    void expectQuestion(const char* text, Answer answer) {
        desk.expectBox(QString::fromUtf8(text), QStringLiteral("Delete Appointment"), answer);
    }
    void expectClient(int row) {
        desk.expectForm("frmFHClients", [row](QDialog& dialog) {
            auto& form = dynamic_cast<frmFHClients&>(dialog);
            form.List1->SelectRow(row);
            form.cmdOk->click();
        });
    }
    void expectEditor(const std::function<void(frmFHAppt&)>& act) {
        desk.expectForm("frmFHAppt", [act](QDialog& dialog) { act(dynamic_cast<frmFHAppt&>(dialog)); });
    }
    void expectEventEditor(const std::function<void(frmFHEvents&)>& act) {
        desk.expectForm("frmFHEvents", [act](QDialog& dialog) { act(dynamic_cast<frmFHEvents&>(dialog)); });
    }
    [[nodiscard]] QString newest(const char* table, const char* column) {
        return companion.text(
            QStringLiteral("Select Max(%2) from %1").arg(QLatin1String(table), QLatin1String(column)));
    }
    void popupAt(int index) { rightClick(calendar().ItemRect(index).center()); }
    [[nodiscard]] QStringList shownPopup() {
        for (QMenu* menu : view_->findChildren<QMenu*>())
            if (menu->isVisible()) {
                QStringList names;
                for (const QAction* action : menu->actions())
                    if (!action->isSeparator())
                        names << action->objectName();
                menu->close();
                settle();
                return names;
            }
        return {};
    }
};

}  // namespace

TEST_F(CompanionCommands, AddingWithoutTheRightIsRefusedBeforeTheTimeIsAskedFor) {
    Session().ScreenAccess = 1;
    open();
    expectInformation(NoRightsToAdd);
    view_->AddAppointment();
    expectInformation(NoRightsToAdd);
    key(Qt::Key_Insert);
    expectInformation(NoRightsToAdd);
    doubleClick(calendar().CellRect(Reed, 600).center());
}

TEST_F(CompanionCommands, AddingWithoutATimeIsRefused) {
    const int key = add({});
    open();
    expectInformation(NoTime);
    trigger("mnuAddAppt");
    expectInformation(NoEventTime);
    trigger("mnuAddEvent");
    select(scheduled(key));
    expectInformation(NoTime);
    trigger("mnuAddAppt");
}

TEST_F(CompanionCommands, AnAppointmentIsAddedForAClientOfTheColumnAndStandsSelected) {
    for (const int column : {Reed, Lane}) {
        open();
        calendar().selectRange(column, 600, 660);
        desk.expectForm("frmFHClients", [](QDialog& dialog) {
            auto& form = dynamic_cast<frmFHClients&>(dialog);
            form.List1->SelectRow(0);
            form.cmdOk->click();
        });
        expectEditor([](frmFHAppt& form) {
            EXPECT_EQ(form.lblClient->text(), "Client: O'Brien, Anna");
            EXPECT_EQ(form.txtduration->Value(), 60);
            form.cboChargetype->SelectKey(1);
            form.cmdOk->click();
        });
        trigger("mnuAddAppt");
        const int key = newest("ClientTransactions", "CtrnId").toInt();
        EXPECT_EQ(storedTime(key, "CtrnTime"), QDateTime(QDate(2026, 3, 11), QTime(10, 0), Qt::UTC));
        EXPECT_EQ(stored(key, "CtrnDuration"), "60");
        EXPECT_EQ(stored(key, "ProvId"), column == Reed ? "1" : "2");
        EXPECT_EQ(calendar().SelectedItem(), scheduled(key));
        EXPECT_EQ(calendar().ColumnOfItem(scheduled(key)), column);
    }
    EXPECT_EQ(countThere("ClientTransactions"), 2);
}

TEST_F(CompanionCommands, InTheWeekAnAppointmentIsAddedOnTheDayOfTheColumn) {
    openWeek();
    calendar().selectRange(2, 600, 660);
    const QDate day = view_->DateOfColumn(2);
    expectClient(0);
    expectEditor([](frmFHAppt& form) {
        form.cboChargetype->SelectKey(1);
        form.cmdOk->click();
    });
    key(Qt::Key_Insert);
    const int added = newest("ClientTransactions", "CtrnId").toInt();
    EXPECT_EQ(storedTime(added, "CtrnDate").date(), day);
    EXPECT_EQ(stored(added, "ProvId"), "1");
    EXPECT_EQ(calendar().SelectedItem(), scheduled(added));
}

TEST_F(CompanionCommands, WithoutAClientNoEditorOpens) {
    open();
    calendar().selectRange(Reed, 600, 660);
    for (int time = 0; time < 2; ++time) {
        desk.expectForm("frmFHClients", [](QDialog& dialog) { dialog.reject(); });
        trigger("mnuAddAppt");
    }
    EXPECT_EQ(countThere("ClientTransactions"), 0);
}

TEST_F(CompanionCommands, AnEventIsAddedForTheProviderOfTheColumnAndStandsSelected) {
    open();
    calendar().selectRange(Lane, 600, 660);
    expectEventEditor([](frmFHEvents& form) {
        form.txtevent->setText(QStringLiteral("Supervision"));
        form.cmdOk->click();
    });
    trigger("mnuAddEvent");
    const int key = newest("CalendarEvents", "CEveId").toInt();
    EXPECT_EQ(companion.text("Select CEveName from CalendarEvents"), "Supervision");
    EXPECT_EQ(companion.text("Select ProvId from CalendarProviderEvents"), "2");
    EXPECT_EQ(calendar().SelectedItem(), event(key));
    EXPECT_EQ(calendar().ColumnOfItem(event(key)), Lane);
}

TEST_F(CompanionCommands, ModifyingWithoutTheRightIsRefusedBeforeAnythingElse) {
    const int charge = add({.status = "C"});
    Session().ScreenAccess = 1;
    open();
    select(charged(charge));
    expectInformation(NoRightsToModify);
    key(Qt::Key_Return);
    expectInformation(NoRightsToModify);
    doubleClick(calendar().ItemRect(charged(charge)).center());
}

TEST_F(CompanionCommands, WhatCannotBeModifiedSaysWhy) {
    const int charge = add({.status = "C"});
    const int series = add({.time = "2026/03/11 10:00 AM", .series = 3});
    open();
    expectInformation(NothingSelected);
    trigger("mnuModify");
    calendar().selectRange(Reed, 600, 660);
    expectInformation(NothingSelected);
    trigger("mnuModify");
    select(charged(charge));
    expectInformation("This appointment has been charged. You cannot modify an appointment once it has been charged.");
    trigger("mnuModify");
    select(scheduled(series));
    expectInformation("You cannot modify a recurring appointment in Solvane. Use Fernhall to modify this appointment.");
    trigger("mnuModify");
}

TEST_F(CompanionCommands, AnEventOfASeriesIsRefusedByEachCommand) {
    there("Insert Into RecurringEvents (RecrPattern, RecrDailyDays) Values (0, 1)");
    const int meeting = addEvent({.series = 1});
    there("Update CalendarEvents Set CEveEndDate = Null");
    open();
    select(event(meeting));
    expectInformation("You cannot modify a recurring event in Solvane. Use Fernhall to modify this event.");
    key(Qt::Key_Return);
    expectInformation("Unable to delete a recurring event in Solvane. Use Fernhall to delete this event.");
    key(Qt::Key_Delete);
    expectInformation("You cannot modify a recurring event in Solvane. Use Fernhall to modify this event.");
    dragTo(event(meeting), Reed, 660);
    EXPECT_EQ(countThere("CalendarEvents"), 1);
}

TEST_F(CompanionCommands, ADoubleClickAndEnterModifyTheAppointment) {
    const int key = add({});
    open();
    expectEditor([](frmFHAppt& form) {
        EXPECT_EQ(form.txtduration->Value(), 50);
        form.txtduration->setValue(55);
        form.cmdOk->click();
    });
    doubleClick(calendar().ItemRect(scheduled(key)).center());
    EXPECT_EQ(stored(key, "CtrnDuration"), "55");
    EXPECT_EQ(at(scheduled(key)).ItemEnd, 595);
    EXPECT_EQ(calendar().SelectedItem(), scheduled(key));
    expectEditor([](frmFHAppt& form) {
        form.txtduration->setValue(30);
        form.cmdOk->click();
    });
    this->key(Qt::Key_Return);
    EXPECT_EQ(stored(key, "CtrnDuration"), "30");
    EXPECT_EQ(at(scheduled(key)).ItemEnd, 570);
}

TEST_F(CompanionCommands, AnEditorThatIsCancelledChangesNothing) {
    const int key = add({});
    const int meeting = addEvent({});
    open();
    select(scheduled(key));
    expectEditor([](frmFHAppt& form) { form.cmdCancel->click(); });
    trigger("mnuModify");
    EXPECT_EQ(calendar().SelectedItem(), scheduled(key));
    select(event(meeting));
    expectEventEditor([](frmFHEvents& form) { form.cmdCancel->click(); });
    trigger("mnuModify");
    EXPECT_EQ(stored(key, "LastModifiedDate"), "");
    EXPECT_EQ(companion.text("Select LastModifiedDate from CalendarEvents"), "");
}

TEST_F(CompanionCommands, AnEventIsModifiedInItsForm) {
    const int meeting = addEvent({.attendees = {1, 2}});
    open();
    select(event(meeting, Lane));
    expectEventEditor([](frmFHEvents& form) {
        EXPECT_EQ(form.txtevent->text(), "Staff meeting");
        form.txtevent->setText(QStringLiteral("Case conference"));
        form.cmdOk->click();
    });
    key(Qt::Key_Return);
    EXPECT_EQ(at(event(meeting, Lane)).ItemText, "Case conference");
    EXPECT_EQ(calendar().SelectedItem(), event(meeting, Lane));
}

TEST_F(CompanionCommands, AnAppointmentChargedWhileItIsShownIsShownSoAfterItsEditor) {
    const int key = add({});
    open();
    select(scheduled(key));
    there("Update ClientTransactions Set CtrnStatus = 'C'");
    expectEditor([](frmFHAppt& form) { form.cmdCancel->click(); });
    trigger("mnuModify");
    EXPECT_EQ(scheduled(key), 0);
    EXPECT_GT(charged(key), 0);
}

TEST_F(CompanionCommands, DeletingWithoutTheRightIsRefusedBeforeAnythingElse) {
    const int key = add({});
    for (const int rights : {1, 2}) {
        Session().ScreenAccess = rights;
        open();
        select(scheduled(key));
        expectInformation(NoRightsToDelete);
        this->key(Qt::Key_Delete);
        view_.reset();
    }
    EXPECT_EQ(countThere("ClientTransactions"), 1);
}

TEST_F(CompanionCommands, WhatCannotBeDeletedSaysWhy) {
    const int charge = add({.status = "C"});
    const int series = add({.time = "2026/03/11 10:00 AM", .series = 3});
    open();
    expectInformation(NothingSelected);
    trigger("mnuDelete");
    select(charged(charge));
    expectInformation("This appointment has been charged. You cannot delete an appointment once it has been charged.");
    key(Qt::Key_Delete);
    select(scheduled(series));
    expectInformation("Unable to delete a recurring appointment in Solvane. Use Fernhall to delete this appointment.");
    key(Qt::Key_Delete);
    EXPECT_EQ(countThere("ClientTransactions"), 2);
}

TEST_F(CompanionCommands, AnAppointmentIsDeletedAfterTheQuestion) {
    const int key = add({});
    open();
    select(scheduled(key));
    expectQuestion(DeleteAppointment, Answer::No);
    this->key(Qt::Key_Delete);
    EXPECT_EQ(countThere("ClientTransactions"), 1);
    expectQuestion(DeleteAppointment, Answer::Yes);
    this->key(Qt::Key_Delete);
    EXPECT_EQ(countThere("ClientTransactions"), 0);
    EXPECT_EQ(calendar().ItemCount(), 0);
}

TEST_F(CompanionCommands, AnAppointmentChargedMeanwhileStaysWithoutABox) {
    const int key = add({});
    open();
    select(scheduled(key));
    there("Update ClientTransactions Set CtrnStatus = 'C'");
    expectQuestion(DeleteAppointment, Answer::Yes);
    trigger("mnuDelete");
    EXPECT_GT(charged(key), 0);
    EXPECT_EQ(bar.Texts(), QStringList{"The appointment was not deleted, because it has been charged meanwhile."});
}

TEST_F(CompanionCommands, AnAppointmentThatIsGoneGoesWithoutAWord) {
    const int key = add({});
    open();
    select(scheduled(key));
    there("Delete from ClientTransactions");
    expectQuestion(DeleteAppointment, Answer::Yes);
    trigger("mnuDelete");
    EXPECT_EQ(calendar().ItemCount(), 0);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(CompanionCommands, ADeletionThatFailsIsToldAndLeavesTheViewAsItWas) {
    const int key = add({});
    const int meeting = addEvent({});
    companion.refuse("Delete", "ClientTransactions");
    companion.refuse("Delete", "CalendarEvents");
    open();
    for (int time = 0; time < 2; ++time) {
        select(scheduled(key));
        expectQuestion(DeleteAppointment, Answer::Yes);
        desk.expectBox(DeletionFailed + FailureOf(companion.connection(), "Delete from ClientTransactions"),
                       QStringLiteral("Error"));
        trigger("mnuDelete");
        EXPECT_EQ(calendar().SelectedItem(), scheduled(key));
        select(event(meeting));
        expectQuestion(DeleteEvent, Answer::Yes);
        desk.expectBox(EventDeletionFailed + FailureOf(companion.connection(), "Delete from CalendarEvents"),
                       QStringLiteral("Error"));
        trigger("mnuDelete");
        EXPECT_EQ(calendar().SelectedItem(), event(meeting));
    }
}

TEST_F(CompanionCommands, AnEventForSeveralGoesFromOneColumnUntilNobodyIsLeft) {
    const int meeting = addEvent({.attendees = {1, 2}});
    open();
    select(event(meeting, Reed));
    expectQuestion(DeleteEvent, Answer::Yes);
    key(Qt::Key_Delete);
    EXPECT_EQ(event(meeting, Reed), 0);
    select(event(meeting, Lane));
    expectQuestion(DeleteEvent, Answer::Yes);
    key(Qt::Key_Delete);
    EXPECT_EQ(countThere("CalendarEvents"), 0);
    EXPECT_EQ(calendar().ItemCount(), 0);
    EXPECT_TRUE(bar.Texts().isEmpty());
}

TEST_F(CompanionCommands, AnEventThatStaysSaysWhy) {
    const int everybodys = addEvent({.attendees = {1, 2}, .allProviders = true});
    const int nobodys = addEvent({.attendees = {}, .time = "2026/03/11 3:00 PM"});
    const int others = addEvent({.time = "2026/03/11 4:00 PM"});
    open();
    const auto remove = [&](int index) {
        select(index);
        expectQuestion(DeleteEvent, Answer::Yes);
        trigger("mnuDelete");
        return bar.Texts();
    };
    EXPECT_EQ(
        remove(event(everybodys, Reed)),
        QStringList{"The provider does not attend the event any more. It stays here because it is for all providers."});
    attend(everybodys, 3);
    EXPECT_EQ(remove(event(everybodys, Reed)),
              QStringList{"The event is for all providers. To delete it for everybody, open it."});
    EXPECT_EQ(remove(event(nobodys, Reed)),
              QStringList{"The event was not deleted, because nobody attends it. Only Fernhall can delete it."});
    there(db::Sql("Update CalendarProviderEvents Set ProvId = 2 Where CEveId = {}", others));
    EXPECT_EQ(remove(event(others, Reed)),
              QStringList{"The event was not deleted, because the provider does not attend it any more."});
    EXPECT_EQ(event(others, Reed), 0);
    EXPECT_EQ(countThere("CalendarEvents"), 3);
}

TEST_F(CompanionCommands, AnEventOfASeriesByNowIsRefusedAfterTheQuestion) {
    const int meeting = addEvent({});
    open();
    select(event(meeting));
    there("Update CalendarEvents Set RecrId = 9");
    expectQuestion(DeleteEvent, Answer::Yes);
    expectInformation("Unable to delete a recurring event in Solvane. Use Fernhall to delete this event.");
    trigger("mnuDelete");
    EXPECT_EQ(countThere("CalendarEvents"), 1);
}

TEST_F(CompanionCommands, AreGreyedByTheUsersRights) {
    struct Case {
        int rights, notes;
        bool writes, deletes, makesNotes;
    };
    for (const Case& user : {Case{0, 0, false, false, false}, Case{1, 1, false, false, false},
                             Case{2, 2, true, false, true}, Case{3, 3, true, true, true}}) {
        Session().ScreenAccess = user.rights;
        Session().NotesAccess = user.notes;
        open();
        for (const char* name : {"mnuAddAppt", "mnuAddEvent", "mnuModify"})
            EXPECT_EQ(command(name).isEnabled(), user.writes) << name << user.rights;
        EXPECT_EQ(command("mnuDelete").isEnabled(), user.deletes) << user.rights;
        EXPECT_EQ(command("mnuSessionNote").isEnabled(), user.makesNotes) << user.notes;
        EXPECT_EQ(view_->CanAdd(), user.writes);
        view_.reset();
    }
}

TEST_F(CompanionCommands, ACompanionWithoutTheColumnOffersNoSessionNote) {
    dropSessionColumn();
    const int key = addPlain();
    open();
    EXPECT_FALSE(command("mnuSessionNote").isEnabled());
    EXPECT_TRUE(command("mnuModify").isEnabled());
    dragTo(scheduled(key), Lane, 660);
    EXPECT_EQ(stored(key, "ProvId"), "2");
}

TEST_F(CompanionCommands, APopupOffersWhatCanBeDoneThere) {
    const int key = add({});
    open();
    for (int time = 0; time < 2; ++time) {
        popupAt(scheduled(key));
        EXPECT_EQ(calendar().SelectedItem(), scheduled(key));
        EXPECT_EQ(shownPopup(), (QStringList{"mnuModify", "mnuDelete", "mnuSessionNote"}));
        rightClick(calendar().CellRect(Lane, 600).center());
        EXPECT_EQ(shownPopup(), (QStringList{"mnuAddAppt", "mnuAddEvent"}));
    }
    openWeek();
    popupAt(scheduled(key));
    EXPECT_EQ(shownPopup(), (QStringList{"mnuModify", "mnuDelete", "mnuSessionNote"}));
}
