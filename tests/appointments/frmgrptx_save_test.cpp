#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "appointments/frmgrptx.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "platform/controls/noticebar.h"
#include "tests/appointments/groupfixture.h"

using db::Sql;

namespace {

const QString Error = QStringLiteral("Error");
const QString Saving = QStringLiteral("Error saving appointment. ");
const QString SavingMembers = QStringLiteral("Error saving group members. ");
const QString ChangedMeanwhile =
    QStringLiteral("Row cannot be located for updating. Some values may have been changed since it was last read.");
const QString Both = QStringLiteral("x Abel, Ann k; x Baker, Bo");

class GroupSave : public GroupFixture {
  protected:
    void ok() { click(dialog->cmdOk); }
    [[nodiscard]] bool isOpen() const { return dialog->isVisible(); }
    void expectRefusal(const char* message, QWidget* field) {
        desk.expectBox(QString::fromLatin1(message), QStringLiteral("Missing Data"));
        ok();
        EXPECT_TRUE(field->hasFocus()) << message;
        EXPECT_TRUE(isOpen()) << message;
    }
    void refuse(const char* operation, const char* table) {
        why_ = database.refuse(QString::fromLatin1(operation), QString::fromLatin1(table));
    }
    void allow(const char* operation, const char* table) {
        database.allow(QString::fromLatin1(operation), QString::fromLatin1(table));
    }
    /// The save failed and closed the form, and the user opens it again.
    void openAgain() {
        EXPECT_FALSE(isOpen());
        EXPECT_TRUE(dialog->IsUnsaved());
        dialog->show();
    }
    QString why_;
};

}  // namespace

TEST_F(GroupSave, ANewGroupAppointmentIsOneRowWithARowForEachScheduledMember) {
    openNewGroup(QStringLiteral("Anger"));
    clickKept("Baker, Bo");
    dialog->txtnotes->setPlainText(QStringLiteral("Chairs"));
    ok();
    EXPECT_FALSE(isOpen());
    const int key = newestKey();
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_EQ(stored(key), QStringLiteral("540-600 2026-03-11 Anger @ "));
    EXPECT_EQ(column("ncolor", key), QStringLiteral("12632064"));
    EXPECT_EQ(column("clinicianid", key), QStringLiteral("REED"));
    EXPECT_EQ(column("CapptNote", key), QStringLiteral("|Chairs|||"));
    EXPECT_EQ(column("BLOCATEICO", key), QStringLiteral("0"));
    EXPECT_EQ(column("createduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(members(key), QStringLiteral("x Abel, Ann; x Baker, Bo k"));
    const db::Recordset row(Sql("Select * from AppointmentsGroup Where nKeyId = {} Order by PatientName", key),
                            database.connection());
    EXPECT_EQ(row["PatientId"].text(), QStringLiteral("P1"));
    EXPECT_EQ(row["PatientAcct"].text(), QStringLiteral("A-1"));
    EXPECT_EQ(row["GroupId"].integer(), anger);
    EXPECT_TRUE(row["HPhone"].isNull());
}

TEST_F(GroupSave, ANewGroupAppointmentIsAudited) {
    openNewGroup(QStringLiteral("Anger"));
    ok();
    EXPECT_EQ(database.text(QStringLiteral("Select LogListId from AuditLog")), QStringLiteral("Add Appointment"));
    EXPECT_EQ(database.text(QStringLiteral("Select LogDescription from AuditLog")),
              QStringLiteral("Added Group Appointment of %1 for Anger").arg(dialog->ctedate->Text()));
}

TEST_F(GroupSave, OkWithoutAChangeWritesNothing) {
    const int key = groupAppointment();
    openGroup(key);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(column("lastmodifieduid", key), QString());
    EXPECT_EQ(members(key), Both);
}

TEST_F(GroupSave, CancelAndEscapeWriteNothingAndEscapeAsks) {
    const int key = groupAppointment();
    openGroup(key);
    clickScheduled("Baker, Bo");
    click(dialog->cmdCancel);
    openGroup(key);
    clickScheduled("Baker, Bo");
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"),
                   QStringLiteral("Edit Group Appointment"), Answer::No);
    press(dialog->ctList1, Qt::Key_Escape);
    EXPECT_TRUE(isOpen());
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"),
                   QStringLiteral("Edit Group Appointment"), Answer::Yes);
    press(dialog->ctList1, Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(members(key), Both);
}

TEST_F(GroupSave, AnEditWritesTheRowAndItsAttendance) {
    const int key = groupAppointment();
    openGroup(key);
    clickKept("Baker, Bo");
    type(dialog->ctstart, QStringLiteral("9:30 AM"));
    type(dialog->ctend, QStringLiteral("11:00 AM"));
    press(dialog->ctend, Qt::Key_Tab);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("570-660 2026-03-11 Anger @ Annex"));
    EXPECT_EQ(members(key), QStringLiteral("x Abel, Ann k; x Baker, Bo k"));
    EXPECT_EQ(column("lastmodifieduid", key), QStringLiteral("FRONT"));
    EXPECT_EQ(database.text(QStringLiteral("Select LogListId from AuditLog")), QStringLiteral("Modify Appointment"));
    EXPECT_EQ(database.text(QStringLiteral("Select LogDescription from AuditLog")),
              QStringLiteral("Modified Group Appointment of %1 for Anger").arg(dialog->ctedate->Text()));
}

TEST_F(GroupSave, WhoIsNotScheduledAnyMoreIsTakenOff) {
    const int key = groupAppointment();
    openGroup(key);
    clickScheduled("Abel, Ann");
    ok();
    EXPECT_EQ(members(key), QStringLiteral("x Baker, Bo"));
}

TEST_F(GroupSave, ARefreshedListIsSavedAlthoughNothingElseChanged) {
    const int key = groupAppointment();
    openGroup(key);
    desk.expectBox(
        QStringLiteral(
            "Refreshing members will delete the members displayed and re-load members based on their effective dates in group. You will need to re-check attendance for each. Continue?"),
        QStringLiteral("Solvane"), Answer::Yes);
    click(dialog->cmdLoadMembers);
    ok();
    EXPECT_EQ(members(key), QStringLiteral("x Abel, Ann; x Baker, Bo"));
}

TEST_F(GroupSave, OkAsksForWhatIsWrongWithTheTimes) {
    openNewGroup(QStringLiteral("Anger"));
    type(dialog->ctstart, QStringLiteral("11:00 AM"));
    press(dialog->ctstart, Qt::Key_Tab);
    expectRefusal("End time must be greater than start time", dialog->ctstart);
    type(dialog->ctstart, QStringLiteral("10:00 AM"));
    press(dialog->ctstart, Qt::Key_Tab);
    expectRefusal("End time must be greater than start time", dialog->ctstart);
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(GroupSave, TheAllProvidersViewAsksForADate) {
    Session().CurrentView = View::AllProviders;
    openNewGroup(QStringLiteral("Anger"));
    type(dialog->ctedate, QString());
    press(dialog->ctedate, Qt::Key_Delete);
    expectRefusal("Enter a valid date.", dialog->ctedate);
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(GroupSave, InTheAllProvidersViewItIsTheChosenProviders) {
    Session().CurrentView = View::AllProviders;
    view.chosenProvider = BookedProvider{QStringLiteral("OBRIEN"), QStringLiteral("O'Brien")};
    openNewGroup(QStringLiteral("Anger"));
    ok();
    EXPECT_EQ(column("clinicianid", newestKey()), QStringLiteral("OBRIEN"));
}

TEST_F(GroupSave, AViewWithoutAnEditorSavesNothing) {
    Session().CurrentView = View::Month;
    openNewGroup(QStringLiteral("Anger"));
    ok();
    EXPECT_EQ(rowCount("appointments"), 0);
    EXPECT_TRUE(isOpen());
}

TEST_F(GroupSave, ATypedGroupShowsItsMembersBeforeItIsSaved) {
    openNewGroup(QStringLiteral("Anger"));
    dialog->cbogroup->setFocus();
    dialog->cbogroup->SetText(QStringLiteral("Slee"));
    QTest::keyClicks(dialog->cbogroup, QStringLiteral("p"));
    press(dialog->cbogroup, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(listed(), QStringLiteral("x Drew, Di"));
    EXPECT_EQ(rowCount("appointments"), 0);
    ok();
    EXPECT_EQ(members(newestKey()), QStringLiteral("x Drew, Di"));
}

TEST_F(GroupSave, AConflictThatIsNotAcceptedStopsTheSave) {
    appointment({});
    openNewGroup(QStringLiteral("Anger"));
    desk.expectForm("AppointmentConflict", [](QDialog& conflict) { conflict.reject(); });
    ok();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(GroupSave, AnAppointmentIsNotInConflictWithItself) {
    const int key = groupAppointment();
    booking(office, 540, 600, QStringLiteral("Anger"), key);
    openGroup(key);
    clickKept("Baker, Bo");
    ok();
    EXPECT_FALSE(isOpen());
}

TEST_F(GroupSave, ATakenRoomIsAskedAbout) {
    booking(office, 540, 600, QStringLiteral("Training"));
    openNewGroup(QStringLiteral("Anger"));
    dialog->cborooms->SetText(QStringLiteral("Room 2"));
    desk.expectForm("AppointmentConflict", [](QDialog& conflict) { conflict.reject(); });
    ok();
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(GroupSave, ARoomIsBookedUnderTheGroupsName) {
    openNewGroup(QStringLiteral("Anger"));
    dialog->cborooms->SetText(QStringLiteral("Room 2"));
    ok();
    EXPECT_EQ(database.text(
                  Sql("Select croomtext from roomschedule Where apptid = {} and croomid = {}", newestKey(), office)),
              QStringLiteral("Anger"));
}

TEST_F(GroupSave, ARoomThatIsGivenUpIsFree) {
    const int key = groupAppointment();
    booking(office, 540, 600, QStringLiteral("Anger"), key);
    openGroup(key);
    EXPECT_EQ(dialog->cborooms->Text(), QStringLiteral("Room 2"));
    dialog->cborooms->SetListIndex(-1);
    ok();
    EXPECT_EQ(rowCount("roomschedule"), 0);
}

TEST_F(GroupSave, ALocationIsOfferedToTheList) {
    openNewGroup(QStringLiteral("Anger"));
    type(dialog->cbolocation, QStringLiteral("Garden"));
    desk.expectBox(QStringLiteral("Location is not on the list. Do you want to add it?"),
                   QStringLiteral("Item Not Found"), Answer::Yes);
    press(dialog->cbolocation, Qt::Key_Tab);
    ok();
    EXPECT_EQ(column("CLOCATION", newestKey()), QStringLiteral("Garden"));
    EXPECT_EQ(column("BLOCATEICO", newestKey()), QStringLiteral("1"));
    EXPECT_EQ(database.number(QStringLiteral("Select Count(*) from Locations Where Location = 'Garden'")), 1);
}

TEST_F(GroupSave, AGroupAndMembersWithApostrophesAreSaved) {
    run(QStringLiteral("Update Groups Set GroupName = 'Women''s Group' Where GroupName = 'Anger'"));
    run(QStringLiteral("Update patient_info Set last_name = 'O''Abel' Where id = 'P1'"));
    openNewGroup(QStringLiteral("Women's Group"));
    dialog->cborooms->SetText(QStringLiteral("Room 2"));
    ok();
    EXPECT_EQ(stored(newestKey()), QStringLiteral("540-600 2026-03-11 Women's Group @ "));
    EXPECT_EQ(members(newestKey()), QStringLiteral("x Baker, Bo; x O'Abel, Ann"));
}

TEST_F(GroupSave, AMemberIsSavedUnderTheNameAsItStands) {
    run(QStringLiteral("Update patient_info Set last_name = 'Abel; Jr|' Where id = 'P1'"));
    openNewGroup(QStringLiteral("Anger"));
    ok();
    EXPECT_EQ(members(newestKey()), QStringLiteral("x Abel; Jr|, Ann; x Baker, Bo"));
}

TEST_F(GroupSave, ThreeHundredMembersAreSavedAndComeBack) {
    for (int i = 0; i < 300; ++i) {
        const QString id = QStringLiteral("G%1").arg(i);
        run(Sql("Insert Into patient_info (id, last_name, first_name) Values('{}', 'Many{}', 'Al')", id, i));
        member(sleep, id, QStringLiteral("2026/01/01"));
    }
    openNewGroup(QStringLiteral("Sleep"));
    ASSERT_EQ(dialog->ctList1->RowCount(), 301);
    click(dialog->cmdkept);
    ok();
    openGroup(newestKey());
    EXPECT_EQ(dialog->ctList1->RowCount(), 301);
    EXPECT_EQ(database.number(QStringLiteral("Select Sum(Kept) from AppointmentsGroup")), 301);
}

// Failures and other desks.

TEST_F(GroupSave, ARowThatCannotBeAddedIsToldAndNothingTypedIsLost) {
    openNewGroup(QStringLiteral("Anger"));
    clickScheduled("Abel, Ann");
    refuse("Insert", "appointments");
    desk.expectBox(Saving + why_, Error);
    ok();
    EXPECT_EQ(rowCount("appointments") + rowCount("AppointmentsGroup") + rowCount("AuditLog"), 0);
    openAgain();
    EXPECT_EQ(listed(), QStringLiteral("- Abel, Ann; x Baker, Bo"));
    allow("Insert", "appointments");
    ok();
    EXPECT_EQ(members(newestKey()), QStringLiteral("x Baker, Bo"));
}

TEST_F(GroupSave, ANewOneIsWrittenWithRoomAndMembersOrNotAtAll) {
    const std::pair<const char*, QString> steps[] = {{"roomschedule", Saving}, {"AppointmentsGroup", SavingMembers}};
    for (const auto& [table, trouble] : steps) {
        run(QStringLiteral("Delete from appointments"));
        run(QStringLiteral("Delete from roomschedule"));
        run(QStringLiteral("Delete from AppointmentsGroup"));
        run(QStringLiteral("Delete from AuditLog"));
        openNewGroup(QStringLiteral("Anger"));
        dialog->cborooms->SetText(QStringLiteral("Room 2"));
        refuse("Insert", table);
        desk.expectBox(trouble + why_, Error);
        ok();
        EXPECT_EQ(rowCount("appointments") + rowCount("roomschedule") + rowCount("AppointmentsGroup"), 0) << table;
        EXPECT_EQ(rowCount("AuditLog"), 0) << table;
        openAgain();
        allow("Insert", table);
        ok();
        EXPECT_FALSE(isOpen()) << table;
        EXPECT_EQ(rowCount("appointments"), 1) << table;
        EXPECT_EQ(rowCount("roomschedule"), 1) << table;
        EXPECT_EQ(members(newestKey()), QStringLiteral("x Abel, Ann; x Baker, Bo")) << table;
        EXPECT_EQ(database.text(QStringLiteral("Select LogListId from AuditLog")), QStringLiteral("Add Appointment"));
    }
}

TEST_F(GroupSave, AnOldOneIsChangedWithRoomAndMembersOrNotAtAll) {
    struct Step {
        const char* operation;
        const char* table;
        QString trouble;
    };
    const Step steps[] = {{"Delete", "roomschedule", Saving},
                          {"Update", "appointments", Saving},
                          {"Insert", "roomschedule", Saving},
                          {"Delete", "AppointmentsGroup", SavingMembers},
                          {"Insert", "AppointmentsGroup", SavingMembers}};
    for (const Step& step : steps) {
        run(QStringLiteral("Delete from appointments"));
        run(QStringLiteral("Delete from roomschedule"));
        run(QStringLiteral("Delete from AppointmentsGroup"));
        const int key = groupAppointment();
        booking(database.number(QStringLiteral("Select roomid from rooms Where room = 'Room 2'")), 540, 600,
                QStringLiteral("Anger"), key);
        openGroup(key);
        clickScheduled("Abel, Ann");
        type(dialog->ctend, QStringLiteral("11:00 AM"));
        press(dialog->ctend, Qt::Key_Tab);
        refuse(step.operation, step.table);
        desk.expectBox(step.trouble + why_, Error);
        ok();
        EXPECT_EQ(members(key), Both) << step.operation << step.table;
        EXPECT_EQ(stored(key), QStringLiteral("540-600 2026-03-11 Anger @ Annex")) << step.operation << step.table;
        EXPECT_EQ(database.number(QStringLiteral("Select nEndTime from roomschedule")), 600) << step.operation;
        openAgain();
        allow(step.operation, step.table);
        ok();
        EXPECT_EQ(members(key), QStringLiteral("x Baker, Bo")) << step.operation << step.table;
        EXPECT_EQ(database.number(QStringLiteral("Select nEndTime from roomschedule")), 660) << step.operation;
    }
}

TEST_F(GroupSave, ARoomThatAnotherDeskGaveItIsNotWrittenOver) {
    const int key = groupAppointment();
    openGroup(key);
    clickScheduled("Abel, Ann");
    booking(database.number(QStringLiteral("Select roomid from rooms Where room = 'Room 2'")), 540, 600,
            QStringLiteral("Anger"), key);
    desk.expectBox(Saving + ChangedMeanwhile, Error);
    ok();
    EXPECT_EQ(rowCount("roomschedule"), 1);
    EXPECT_EQ(members(key), Both);
}

TEST_F(GroupSave, ALostDatabaseIsToldAndTheDialogStaysOpen) {
    openNewGroup(QStringLiteral("Anger"));
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error checking for conflicts. Nothing has been saved. ") + why, Error);
    ok();
    EXPECT_TRUE(isOpen());
}

TEST_F(GroupSave, AnAppointmentThatAnotherDeskMovedIsNotWrittenOver) {
    const int key = groupAppointment();
    openGroup(key);
    clickScheduled("Abel, Ann");
    run(QStringLiteral("Update appointments Set nStartTime = 800, nEndTime = 860"));
    desk.expectBox(Saving + ChangedMeanwhile, Error);
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(key), QStringLiteral("800-860 2026-03-11 Anger @ Annex"));
    EXPECT_EQ(members(key), Both);
}

TEST_F(GroupSave, AttendanceThatAnotherDeskTookIsNotWrittenOver) {
    const int key = groupAppointment();
    openGroup(key);
    clickScheduled("Abel, Ann");
    run(QStringLiteral("Update AppointmentsGroup Set Kept = 1 Where PatientId = 'P2'"));
    desk.expectBox(Saving + ChangedMeanwhile, Error);
    ok();
    EXPECT_EQ(members(key), QStringLiteral("x Abel, Ann k; x Baker, Bo k"));
}

TEST_F(GroupSave, AnAppointmentThatAnotherDeskDeletedIsMadeAnewAndThatIsSaid) {
    const NoticeBar bar;
    const int key = groupAppointment();
    openGroup(key);
    clickKept("Baker, Bo");
    run(QStringLiteral("Delete from appointments"));
    run(QStringLiteral("Delete from AppointmentsGroup"));
    ok();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(bar.Texts().size(), 1);
    EXPECT_EQ(rowCount("appointments"), 1);
    EXPECT_EQ(stored(newestKey()), QStringLiteral("540-600 2026-03-11 Anger @ Annex"));
    EXPECT_EQ(members(newestKey()), QStringLiteral("x Abel, Ann k; x Baker, Bo k"));
}
