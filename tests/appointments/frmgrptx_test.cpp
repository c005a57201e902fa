#include "appointments/frmgrptx.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "tests/appointments/groupfixture.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");
const QString RefreshQuestion = QStringLiteral(
    "Refreshing members will delete the members displayed and re-load members based on their effective dates in group. You will need to re-check attendance for each. Continue?");

class GroupDialog : public GroupFixture {
  protected:
    void refresh(Answer answer) {
        desk.expectBox(RefreshQuestion, QStringLiteral("Solvane"), answer);
        click(dialog->cmdLoadMembers);
    }
    void expectQuestion(Answer answer) {
        desk.expectBox(QStringLiteral("Close without saving what you have changed?"),
                       QStringLiteral("Edit Group Appointment"), answer);
    }
    [[nodiscard]] QString loadCaption() const { return dialog->cmdLoadMembers->text().remove(u'&'); }
    [[nodiscard]] QString hint() const { return dialog->lblmembers->text(); }
};

}  // namespace

TEST_F(GroupDialog, ANewGroupAppointmentHasTheSelectedTimeAndNoGroupYet) {
    const frmgrptx& opened = openNewGroup();
    EXPECT_EQ(opened.windowTitle(), QStringLiteral("New Group Appointment"));
    EXPECT_EQ(opened.ctedate->Date(), day);
    EXPECT_EQ(opened.ctstart->Time(), 540);
    EXPECT_EQ(opened.ctend->Time(), 600);
    EXPECT_EQ(opened.cbogroup->ListIndex(), -1);
    EXPECT_TRUE(opened.cbogroup->hasFocus());
    EXPECT_EQ(listed(), QString());
    EXPECT_FALSE(opened.cmdOk->isEnabled());
    EXPECT_EQ(loadCaption(), QStringLiteral("Load Members"));
    EXPECT_EQ(hint(), QStringLiteral("Choose a group to see its members."));
    EXPECT_FALSE(opened.dirty);
}

TEST_F(GroupDialog, TheGroupsStandInOrder) {
    const frmgrptx& opened = openNewGroup();
    ASSERT_EQ(opened.cbogroup->count(), 2);
    EXPECT_EQ(opened.cbogroup->itemText(0), QStringLiteral("Anger"));
    EXPECT_EQ(opened.cbogroup->itemText(1), QStringLiteral("Sleep"));
    EXPECT_EQ(opened.cbogroup->itemData(1).toInt(), sleep);
}

TEST_F(GroupDialog, TheDateIsShownEverywhereButInTheDayView) {
    openNewGroup();
    EXPECT_FALSE(dialog->ctedate->isVisible());
    EXPECT_FALSE(dialog->lbldate->isVisible());
    Session().CurrentView = View::Week;
    openNewGroup();
    EXPECT_TRUE(dialog->ctedate->isVisible());
    EXPECT_TRUE(dialog->lbldate->isVisible());
}

TEST_F(GroupDialog, AGroupShowsWhoTakesPartOnTheDateScheduled) {
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann; x Baker, Bo"));
    EXPECT_EQ(loadCaption(), QStringLiteral("Refresh Members"));
    EXPECT_EQ(hint(), QStringLiteral("2 of 2 scheduled, 0 kept"));
    EXPECT_TRUE(dialog->cmdOk->isEnabled());
    EXPECT_EQ(dialog->getgrpmembers(), QStringLiteral("Abel, Ann; Baker, Bo; "));
}

TEST_F(GroupDialog, AMemberWhoLeftBeforeTheDateDoesNotAppear) {
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_LT(rowOf("Cole, Cy"), 0);
}

TEST_F(GroupDialog, AMemberTakesPartOnTheLastDay) {
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_GE(rowOf("Abel, Ann"), 0);
}

TEST_F(GroupDialog, AMemberWithoutAnEndTakesPartFromTheFirstDayOn) {
    Session().CurrentView = View::Week;
    openNewGroup();
    dialog->SetSlot({QDate(2031, 5, 1), 540, 600});
    pick(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Baker, Bo; x Drew, Di"));
}

TEST_F(GroupDialog, AMemberWithoutAStartIsInTheGroupAtNoTime) {
    run(QStringLiteral("Update GroupMembers Set startDate = null Where PatientID = 'P2'"));
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann"));
}

TEST_F(GroupDialog, WhoWasGivenToTheGroupTwiceStandsThereOnce) {
    member(anger, QStringLiteral("P1"), QStringLiteral("2026/03/01"));
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann; x Baker, Bo"));
}

TEST_F(GroupDialog, TelephonesStandInThePracticesForm) {
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_EQ(dialog->ctList1->Cell(0, 4), QStringLiteral("(555) 111-0001"));
    EXPECT_EQ(dialog->ctList1->Cell(0, 5).trimmed(), QStringLiteral("(555) 222-0001"));
    EXPECT_EQ(dialog->ctList1->ItemText(0), QStringLiteral("P1|A-1|5551110001"));
}

TEST_F(GroupDialog, ANameWithASemicolonStaysInItsColumn) {
    run(QStringLiteral("Update patient_info Set last_name = 'Abel; Jr', first_name = 'O''Ann' Where id = 'P1'"));
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Abel; Jr, O'Ann; x Baker, Bo"));
}

TEST_F(GroupDialog, AGroupWithoutALeaderOrMembersSaysWhyItIsEmpty) {
    run(QStringLiteral("Update Groups Set Leader = null Where GroupName = 'Anger'"));
    run(QStringLiteral("Delete from GroupMembers Where PatientID = 'P4'"));
    const QString why =
        QStringLiteral("Nobody takes part in this group on this date, or the group has no leader or is not active.");
    for (const char* group : {"Anger", "Sleep"}) {
        openNewGroup(QString::fromLatin1(group));
        EXPECT_EQ(listed(), QString()) << group;
        EXPECT_EQ(hint(), why) << group;
        EXPECT_EQ(loadCaption(), QStringLiteral("Load Members")) << group;
        EXPECT_FALSE(dialog->cmdOk->isEnabled()) << group;
    }
}

TEST_F(GroupDialog, AGroupThatIsNotActiveHasNoMembers) {
    run(QStringLiteral("Update Groups Set activestatus = 0 Where GroupName = 'Anger'"));
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QString());
}

TEST_F(GroupDialog, MembersAreLoadedOnceTheyHaveJoined) {
    run(QStringLiteral("Delete from GroupMembers"));
    openNewGroup(QStringLiteral("Anger"));
    member(anger, QStringLiteral("P3"), QStringLiteral("2026/01/01"));
    click(dialog->cmdLoadMembers);
    EXPECT_EQ(listed(), QStringLiteral("x Cole, Cy"));
    EXPECT_EQ(loadCaption(), QStringLiteral("Refresh Members"));
}

TEST_F(GroupDialog, LoadMembersWithoutAGroupDoesNothing) {
    openNewGroup();
    EXPECT_FALSE(dialog->cmdLoadMembers->isEnabled());
    EXPECT_FALSE(dialog->cmdkept->isEnabled());
}

TEST_F(GroupDialog, AnExistingAppointmentShowsWhoWasScheduledAndWhoCame) {
    const frmgrptx& opened = openGroup(groupAppointment());
    EXPECT_EQ(opened.windowTitle(), QStringLiteral("Edit Group Appointment"));
    EXPECT_EQ(opened.cbogroup->Text(), QStringLiteral("Anger"));
    EXPECT_EQ(opened.cbolocation->Text(), QStringLiteral("Annex"));
    EXPECT_EQ(opened.txtnotes->toPlainText(), QStringLiteral("Bring chairs"));
    EXPECT_EQ(opened.ctstart->Time(), 540);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
    EXPECT_EQ(dialog->ctList1->Cell(0, 4), QStringLiteral("(555) 111-0001"));
    EXPECT_EQ(loadCaption(), QStringLiteral("Refresh Members"));
    EXPECT_FALSE(opened.dirty);
}

TEST_F(GroupDialog, APatientWhoIsGoneStaysOnTheAppointmentWithoutTelephones) {
    const int key = groupAppointment();
    run(QStringLiteral("Delete from patient_info Where id = 'P1'"));
    openGroup(key);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
    EXPECT_EQ(dialog->ctList1->Cell(0, 4), QString());
}

TEST_F(GroupDialog, AMemberWhoIsArchivedSinceStaysOnTheAppointment) {
    const int key = groupAppointment();
    run(QStringLiteral("Update patient_info Set archive = 1 Where id = 'P1'"));
    run(QStringLiteral("Delete from GroupMembers Where PatientID = 'P1'"));
    openGroup(key);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
}

TEST_F(GroupDialog, AGroupThatIsGoneKeepsItsName) {
    const int key = groupAppointment();
    run(QStringLiteral("Delete from Groups Where GroupName = 'Anger'"));
    openGroup(key);
    EXPECT_EQ(dialog->cbogroup->Text(), QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
}

TEST_F(GroupDialog, AGroupThatHasAnotherNameNowIsStillTheSameGroup) {
    const int key = groupAppointment();
    run(QStringLiteral("Update Groups Set GroupName = 'Calm' Where GroupName = 'Anger'"));
    openGroup(key);
    EXPECT_EQ(dialog->cbogroup->Text(), QStringLiteral("Calm"));
    EXPECT_EQ(dialog->cbogroup->ItemData(), anger);
}

TEST_F(GroupDialog, SetmembersMovesTheSelectionOnly) {
    openNewGroup();
    dialog->setmembers(sleep);
    EXPECT_EQ(dialog->cbogroup->Text(), QStringLiteral("Sleep"));
    EXPECT_EQ(listed(), QString());
}

TEST_F(GroupDialog, NoWayOutIsSilentOnceTheStoredMembersAreDeleted) {
    const int key = groupAppointment();
    openGroup(key);
    refresh(Answer::Yes);
    clickKept("Abel, Ann");  // So that the list looks as it did at first.
    expectQuestion(Answer::No);
    press(dialog.get(), Qt::Key_Escape);
    expectQuestion(Answer::No);
    click(dialog->cmdCancel);
    expectQuestion(Answer::No);
    dialog->close();
    EXPECT_TRUE(dialog->isVisible());
    expectQuestion(Answer::Yes);
    click(dialog->cmdCancel);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(GroupDialog, CancelAsksNothingWhereTheStoredMembersStand) {
    openGroup(groupAppointment());
    clickKept("Baker, Bo");
    click(dialog->cmdCancel);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(GroupDialog, AnotherDateDoesNotChangeTheMembersUntilTheyAreRefreshed) {
    Session().CurrentView = View::Week;
    openGroup(groupAppointment());
    type(dialog->ctedate, QStringLiteral("3/12/2026"));
    press(dialog->ctedate, Qt::Key_Tab);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
    EXPECT_EQ(hint(), QStringLiteral(
                          "2 of 2 scheduled, 1 kept\nThese are the members of %1. Refresh Members loads those of the "
                          "new date.")
                          .arg(QStringLiteral("3/11/2026")));
    refresh(Answer::Yes);
    EXPECT_EQ(listed(), QStringLiteral("x Baker, Bo; x Drew, Di"));
}

TEST_F(GroupDialog, ARefreshThatIsDeclinedChangesNothing) {
    const int key = groupAppointment();
    openGroup(key);
    refresh(Answer::No);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
    EXPECT_EQ(members(key), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
    EXPECT_FALSE(dialog->dirty);
}

TEST_F(GroupDialog, ARefreshDeletesTheSavedAttendanceEvenIfTheDialogIsThenCancelled) {
    const int key = groupAppointment();
    openGroup(key);
    refresh(Answer::Yes);
    EXPECT_EQ(members(key), QString());
    EXPECT_TRUE(dialog->dirty);
    expectQuestion(Answer::Yes);
    click(dialog->cmdCancel);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(members(key), QString());
}

TEST_F(GroupDialog, ARefreshedListIsScheduledForAllAndKeptForNone) {
    openGroup(groupAppointment());
    clickScheduled("Baker, Bo");
    refresh(Answer::Yes);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann; x Baker, Bo"));
}

TEST_F(GroupDialog, ARefreshOfANewAppointmentDeletesNobodysMembers) {
    const int other = groupAppointment();
    view.selectedKey = other;
    openNewGroup(QStringLiteral("Anger"));
    clickScheduled("Abel, Ann");
    refresh(Answer::Yes);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann; x Baker, Bo"));
    EXPECT_EQ(members(other), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
}

TEST_F(GroupDialog, MembersThatCannotBeDeletedAreToldAndStayOnTheList) {
    const int key = groupAppointment();
    openGroup(key);
    const QString why = database.refuse(QStringLiteral("Delete"), QStringLiteral("AppointmentsGroup"));
    desk.expectBox(RefreshQuestion, QStringLiteral("Solvane"), Answer::Yes);
    desk.expectBox(QStringLiteral("Error deleting group members. ") + why, Error);
    click(dialog->cmdLoadMembers);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
    EXPECT_EQ(members(key), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
}

TEST_F(GroupDialog, TheGroupPickedAnewKeepsTheAttendance) {
    openGroup(groupAppointment());
    clickKept("Baker, Bo");
    clickScheduled("Abel, Ann");
    Q_EMIT dialog->cbogroup->Click(dialog->cbogroup->ListIndex());
    EXPECT_EQ(listed(), QStringLiteral("- Abel, Ann k; x Baker, Bo k"));
}

TEST_F(GroupDialog, AnotherGroupOnAnExistingAppointmentHasNobodyScheduled) {
    openGroup(groupAppointment());
    pick(QStringLiteral("Sleep"));
    EXPECT_EQ(listed(), QStringLiteral("- Drew, Di"));
    pick(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; x Baker, Bo"));
}

TEST_F(GroupDialog, MarkAllAsKeptFlipsEveryBox) {
    openGroup(groupAppointment());
    click(dialog->cmdkept);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann; x Baker, Bo k"));
    EXPECT_TRUE(dialog->dirty);
    EXPECT_EQ(hint(), QStringLiteral("2 of 2 scheduled, 1 kept"));
}

TEST_F(GroupDialog, WhoIsKeptButNotScheduledIsPointedOut) {
    openGroup(groupAppointment());
    clickScheduled("Abel, Ann");
    EXPECT_EQ(hint(), QStringLiteral("1 of 2 scheduled, 0 kept\nKept is stored only for who is scheduled (1 not)."));
}

TEST_F(GroupDialog, AttendanceIsTakenByKeyboardAlone) {
    openNewGroup(QStringLiteral("Anger"));
    dialog->ctList1->setFocus();
    dialog->ctList1->SelectRow(0);
    press(dialog->ctList1, Qt::Key_Space, Qt::ShiftModifier);
    press(dialog->ctList1, Qt::Key_Down);
    press(dialog->ctList1, Qt::Key_Space);
    EXPECT_EQ(listed(), QStringLiteral("x Abel, Ann k; - Baker, Bo"));
}

TEST_F(GroupDialog, OkWaitsForTimesAndMembers) {
    openNewGroup(QStringLiteral("Anger"));
    type(dialog->ctend, QString());
    press(dialog->ctend, Qt::Key_Delete);
    EXPECT_FALSE(dialog->okenabled());
    EXPECT_FALSE(dialog->cmdOk->isEnabled());
    type(dialog->ctend, QStringLiteral("0:01"));
    press(dialog->ctend, Qt::Key_Tab);
    EXPECT_FALSE(dialog->okenabled()) << "A minute past midnight is not above 1.";
    type(dialog->ctend, QStringLiteral("10:00 AM"));
    press(dialog->ctend, Qt::Key_Tab);
    EXPECT_TRUE(dialog->cmdOk->isEnabled());
}

TEST_F(GroupDialog, InTheWeekViewOkWaitsForADateToo) {
    Session().CurrentView = View::Week;
    openNewGroup(QStringLiteral("Anger"));
    EXPECT_TRUE(dialog->okenabled());
    type(dialog->ctedate, QString());
    press(dialog->ctedate, Qt::Key_Delete);
    EXPECT_FALSE(dialog->okenabled());
}

TEST_F(GroupDialog, ListsThatCannotBeReadAreToldAndTheDialogOpens) {
    for (const auto& [table, text] :
         {std::pair("Groups", "Error loading groups. "), std::pair("locations", "Error loading locations. "),
          std::pair("rooms", "Error loading room list. ")})
        desk.expectBox(QString::fromLatin1(text) + DropTable(database.connection(), QString::fromLatin1(table)), Error);
    openNewGroup();
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(GroupDialog, MembersThatCannotBeReadAreTold) {
    openNewGroup();
    desk.expectBox(QStringLiteral("Error loading groups members. ") +
                       DropTable(database.connection(), QStringLiteral("GroupMembers")),
                   Error);
    pick(QStringLiteral("Anger"));
    EXPECT_EQ(listed(), QString());
    EXPECT_FALSE(dialog->cmdOk->isEnabled());
}

TEST_F(GroupDialog, SavedMembersThatCannotBeReadAreToldAndNobodyIsOnTheList) {
    const int key = groupAppointment();
    desk.expectBox(QStringLiteral("Error loading groups members. ") +
                       DropTable(database.connection(), QStringLiteral("AppointmentsGroup")),
                   Error);
    openGroup(key);
    EXPECT_EQ(listed(), QString());
    EXPECT_FALSE(dialog->cmdOk->isEnabled());
    EXPECT_EQ(
        dialog->lblmembers->text(),
        QStringLiteral("The members that are stored for this appointment are not loaded. Load Members loads them."));
}

TEST_F(GroupDialog, AttendanceThatCannotBeReadIsTold) {
    openGroup(groupAppointment());
    desk.expectBox(QStringLiteral("Error loading groups member attendance list. ") +
                       DropTable(database.connection(), QStringLiteral("AppointmentsGroup")),
                   Error);
    pick(QStringLiteral("Sleep"));
    EXPECT_EQ(listed(), QStringLiteral("- Drew, Di"));
}

TEST_F(GroupDialog, ARowThatIsGoneOpensEmpty) {
    const int key = groupAppointment();
    run(QStringLiteral("Delete from appointments"));
    openGroup(key);
    EXPECT_EQ(dialog->cbogroup->ListIndex(), -1);
    EXPECT_FALSE(dialog->cmdOk->isEnabled());
}
