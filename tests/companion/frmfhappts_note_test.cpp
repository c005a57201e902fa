#include <QDialog>
#include <QPushButton>

#include "followup/frmsnotetype.h"
#include "platform/controls/ctlist.h"
#include "tests/companion/commandsfixture.h"

namespace {

class CompanionNoteCommand : public CommandsFixture {
  protected:
    CompanionNoteCommand() {
        run(QStringLiteral(
            "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access) Values('REED', 0, '333333336')"));
        run(QStringLiteral(
            "Insert Into patient_info (id, last_name, first_name, provider_id, defaultCPT) Values('P1', 'O''Brien', 'Anna', 'LANE', '90837')"));
        run(QStringLiteral("Insert Into NoteTypes (NoteType, applyauths) Values('Progress Note', 1)"));
        Desktop().startProgram = [this](const QString&, const QString& arguments, const QString&) {
            started << arguments;
            return true;
        };
    }
    void expectType() {
        desk.expectForm("frmSNoteType", [](QDialog& dialog) {
            auto& form = dynamic_cast<frmSNoteType&>(dialog);
            form.List1->SelectRow(0);
            form.cmdOk->click();
        });
    }

    QStringList started;
};

}  // namespace

TEST_F(CompanionNoteCommand, WithoutASelectedAppointmentIsRefused) {
    open();
    desk.expectBox(QStringLiteral("No appointment selected. First select an appointment."), QStringLiteral("Warning"));
    trigger("mnuSessionNote");
    calendar().selectRange(Reed, 600, 660);
    desk.expectBox(QStringLiteral("No appointment selected. First select an appointment."), QStringLiteral("Warning"));
    trigger("mnuSessionNote");
}

TEST_F(CompanionNoteCommand, OnAnEventIsRefused) {
    const int meeting = addEvent({});
    open();
    select(event(meeting));
    expectInformation("Select a patient appointment.");
    trigger("mnuSessionNote");
}

TEST_F(CompanionNoteCommand, MakesTheNoteOfTheDayAndShowsItsIconAndThenOpensIt) {
    for (const char* status : {"S", "C"}) {
        started.clear();
        const int key = add({.status = status});
        open();
        const auto index = [&] { return status[0] == 'S' ? scheduled(key) : charged(key); };
        select(index());
        expectType();
        trigger("mnuSessionNote");
        const QString id = stored(key, "SVSessionID");
        EXPECT_TRUE(HasNoteIcon(at(index())));
        EXPECT_EQ(started, QStringList{id + QStringLiteral("|REED|1|P1")});
        EXPECT_EQ(database_.text(db::Sql("Select CPTCode from sessions Where id = {}", id.toInt())), "90834");
        trigger("mnuSessionNote");
        EXPECT_EQ(started.back(), id + QStringLiteral("|REED|2|P1"));
        view_->Reload();
        EXPECT_TRUE(HasNoteIcon(at(index())));
        view_.reset();
        there("Delete from ClientTransactions");
    }
}

TEST_F(CompanionNoteCommand, InTheWeekSetsTheStatusIcon) {
    const int key = add({});
    openWeek();
    select(scheduled(key));
    expectType();
    trigger("mnuSessionNote");
    EXPECT_EQ(at(scheduled(key)).ItemStatusIcon, 1);
    EXPECT_FALSE(HasNoteIcon(at(scheduled(key))));
    view_->Reload();
    EXPECT_TRUE(HasNoteIcon(at(scheduled(key))));
}

TEST_F(CompanionNoteCommand, AsksForThePairOfTheColumnsProvider) {
    const int key = add({.provider = 3, .second = 1});
    open();
    select(indexOf(key, companioncolor::Scheduled, Moss));
    desk.expectBox(
        QStringLiteral("The provider for this session is not linked to a provider in Solvane. Unable to do a note."),
        QStringLiteral("Solvane"));
    trigger("mnuSessionNote");
    select(indexOf(key, companioncolor::Scheduled, Reed));
    expectType();
    trigger("mnuSessionNote");
    EXPECT_TRUE(HasNoteIcon(at(scheduled(key, Moss))));
}

TEST_F(CompanionNoteCommand, OnAnAppointmentThatIsGoneReloads) {
    const int key = add({});
    open();
    select(scheduled(key));
    there("Delete from ClientTransactions");
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Appointment not found"));
    trigger("mnuSessionNote");
    EXPECT_EQ(calendar().ItemCount(), 0);
    EXPECT_TRUE(started.isEmpty());
}
