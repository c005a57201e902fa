#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include "appointments/frmnore.h"
#include "data/codes.h"
#include "followup/frmarrivaltime.h"
#include "followup/frmsnotetype.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "tests/followup/boardfixture.h"

namespace {

class BoardCommands : public BoardFixture {
  protected:
    void expectArrival(const char* typed) {
        desk.expectForm("frmarrivalTime", [typed](QDialog& dialog) {
            auto& form = static_cast<frmarrivalTime&>(dialog);
            form.ctstart->setText(QLatin1String(typed));
            form.cmdOk->click();
        });
    }
    QString rowChanged() { return QStringLiteral("Error loading appointment. ") + db::RowChangedError().description; }
};

struct StatusKey {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int code;
};

class BoardStatusKeys : public BoardCommands, public testing::WithParamInterface<StatusKey> {};

}  // namespace

TEST_F(BoardCommands, CheckInAsksForTheArrivalAndThePatientWaits) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 540});
    select(BoardPlace::Late);
    expectArrival("8:55");
    press(BoardCommand::CheckIn);
    EXPECT_EQ(statusOf(key), ncolor::CheckedIn);
    EXPECT_EQ(arrivalOf(key), "03/11/26 08:55 AM");
    EXPECT_EQ(cards(BoardPlace::Waiting), QStringList{"Anna|10 min|9:00 AM · Reed · here since 8:55 AM"});
    EXPECT_TRUE(main.asked.contains(QStringLiteral("cycledate 2"))) << "The calendar shows it too.";
}

TEST_F(BoardCommands, CheckInShowsThePatientsAlert) {
    run("Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values ('10017', 'Check-In', 1, 'Owes a copay')");
    put({.text = QStringLiteral("Anna"), .start = 600});
    select(BoardPlace::Due);
    expectArrival("9:00");
    desk.expectForm("frmAlert", [](QDialog&) {});
    press(BoardCommand::CheckIn);
}

TEST_F(BoardCommands, CheckInThatIsGivenUpWritesNothing) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 600});
    select(BoardPlace::Due);
    desk.expectForm("frmarrivalTime", [](QDialog& dialog) { dialog.reject(); });
    press(BoardCommand::CheckIn);
    EXPECT_EQ(statusOf(key), ncolor::Blank);
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
}

TEST_P(BoardStatusKeys, SetsTheStatusOfTheSelectedVisitByOneKey) {
    const int key = put({.text = QStringLiteral("Anna"),
                         .start = 600,
                         .code = ncolor::Tentative,
                         .more = QStringLiteral(", BTentIco"),
                         .moreValues = QStringLiteral(", 1")});
    BoardList& list = select(BoardPlace::Due);
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(board_.get()));
    QTest::keyClick(&list, GetParam().key, GetParam().modifiers);
    EXPECT_EQ(statusOf(key), GetParam().code);
    EXPECT_EQ(board().Count(BoardPlace::Due), GetParam().code == ncolor::Pending ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Each, BoardStatusKeys,
                         testing::Values(StatusKey{"Kept", Qt::Key_K, Qt::ControlModifier, ncolor::Kept},
                                         StatusKey{"Missed", Qt::Key_M, Qt::ControlModifier, ncolor::Missed},
                                         StatusKey{"PatientCancel", Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier,
                                                   ncolor::PatientCancelled},
                                         StatusKey{"TherapistCancel", Qt::Key_T,
                                                   Qt::ControlModifier | Qt::ShiftModifier, ncolor::TherapistCancelled},
                                         StatusKey{"Pending", Qt::Key_D, Qt::ControlModifier, ncolor::Pending}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(BoardCommands, OneClickOnACardsButtonWorksOnThatCardWhateverIsSelected) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    const int bert = put({.text = QStringLiteral("Bert"), .start = 620});
    BoardList& due = select(BoardPlace::Due);
    QTest::mouseMove(due.viewport(), due.visualRect(due.model()->index(1, 0)).center());
    auto* missed = due.findChild<QToolButton*>(QStringLiteral("cardMissed"));
    ASSERT_NE(missed, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return missed->isVisible(); }));
    missed->click();
    EXPECT_EQ(statusOf(bert), ncolor::Missed);
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
}

TEST_F(BoardCommands, AStatusThatWasChosenByMistakeGoesBackToPendingByKeyAndByMouse) {
    const int anna = put({.text = QStringLiteral("Anna"), .start = 600});
    for (int i = 0; i < 2; ++i) {
        select(BoardPlace::Due);
        press(BoardCommand::Miss);
        BoardList& list = select(BoardPlace::NotComing);
        EXPECT_TRUE(board().Command(BoardCommand::Pend).isEnabled());
        if (i == 0) {
            press(BoardCommand::Pend);
        } else {
            QTest::mouseMove(list.viewport(), list.visualRect(list.model()->index(0, 0)).center());
            auto* button = list.findChild<QToolButton*>(QStringLiteral("cardPending"));
            ASSERT_TRUE(QTest::qWaitFor([&] { return button->isVisible(); }));
            button->click();
        }
        EXPECT_EQ(statusOf(anna), ncolor::Pending);
        EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
    }
    select(BoardPlace::Due);
    EXPECT_FALSE(board().Command(BoardCommand::Pend).isEnabled());
    EXPECT_EQ(board().Command(BoardCommand::Pend).toolTip(), "The visit is pending.");
}

TEST_F(BoardCommands, GoingBackToPendingKeepsTheRefusalsOfTheOtherStatuses) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 600, .code = ncolor::Missed});
    put({.text = QStringLiteral("Old"), .code = ncolor::Kept, .date = day.addDays(-2)});
    select(BoardPlace::UnwrittenNote);
    EXPECT_EQ(board().Command(BoardCommand::Pend).toolTip(), "The board sets the status of today's visits only.");
    select(BoardPlace::NotComing);
    run(db::Sql("Update appointments Set ncolor = 193 Where nkeyid = {}", key));
    desk.expectBox(rowChanged(), QStringLiteral("Error"));
    press(BoardCommand::Pend);
    EXPECT_EQ(statusOf(key), ncolor::PatientCancelled);
    select(BoardPlace::NotComing);
    const QString reason = database.refuse(QStringLiteral("Update"), QStringLiteral("appointments"));
    press(BoardCommand::Pend);
    EXPECT_EQ(statusOf(key), ncolor::PatientCancelled);
    EXPECT_EQ(board().lblstatus->text(), QStringLiteral("The status was not saved. ") + reason);
    Session().ScreenAccess = 1;
    board().Load();
    select(BoardPlace::NotComing);
    EXPECT_FALSE(board().Command(BoardCommand::Pend).isEnabled());
}

TEST_F(BoardCommands, TheButtonsOfACardGoWhenTheCardsChange) {
    put({.text = QStringLiteral("Bert"), .start = 620});
    BoardList& due = select(BoardPlace::Due);
    QTest::mouseMove(due.viewport(), due.visualRect(due.model()->index(0, 0)).center());
    auto* missed = due.findChild<QToolButton*>(QStringLiteral("cardMissed"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return missed->isVisible(); }));
    put({.text = QStringLiteral("Anna"), .start = 600});
    board().Load();
    board();
    EXPECT_FALSE(missed->isVisible()) << "Under the pointer stands somebody else now.";
}

TEST_F(BoardCommands, AnotherDesksStatusIsToldAndNotWrittenOver) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 600});
    select(BoardPlace::Due);
    run("Update appointments Set ncolor = 193");
    desk.expectBox(rowChanged(), QStringLiteral("Error"));
    press(BoardCommand::Keep);
    EXPECT_EQ(statusOf(key), ncolor::PatientCancelled);
    EXPECT_EQ(names(BoardPlace::NotComing), QStringList{"Anna"});
}

TEST_F(BoardCommands, ARowThatAnotherDeskMovedToAnotherDayIsToldAndNotOpened) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    select(BoardPlace::Due);
    run("Update appointments Set dapptdate = '2026/03/12'");
    desk.expectBox(rowChanged(), QStringLiteral("Error"));
    press(BoardCommand::Edit);
    EXPECT_EQ(board().Count(BoardPlace::Due), 0);
}

TEST_F(BoardCommands, ARowThatAnotherDeskDeletedIsToldAndLeavesTheBoard) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    select(BoardPlace::Due);
    run("Delete from appointments");
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Appointment not found"));
    press(BoardCommand::Miss);
    EXPECT_EQ(board().Count(BoardPlace::Due), 0);
}

TEST_F(BoardCommands, AStatusThatTheDatabaseRefusesIsToldOnTheBoard) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 600});
    select(BoardPlace::Due);
    const QString reason = database.refuse(QStringLiteral("Update"), QStringLiteral("appointments"));
    press(BoardCommand::Miss);
    EXPECT_EQ(statusOf(key), ncolor::Blank);
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
    EXPECT_EQ(board().lblstatus->text(), QStringLiteral("The status was not saved. ") + reason);
    database.allow(QStringLiteral("Update"), QStringLiteral("appointments"));
    press(BoardCommand::Miss);
    EXPECT_EQ(names(BoardPlace::NotComing), QStringList{"Anna"});
    EXPECT_EQ(board().lblstatus->text(), "As of 9:05 AM");
}

TEST_F(BoardCommands, EnterOpensTheEditorInTheProvidersScheduleAndTheBoardFollows) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 600, .provider = QStringLiteral("LANE")});
    BoardList& due = select(BoardPlace::Due);
    desk.expectForm("frmnore", [key](QDialog& dialog) {
        const EditorRequest& request = static_cast<frmnore&>(dialog).Request();
        EXPECT_EQ(request.CurrentApptKey, key);
        EXPECT_EQ(request.provider.id, "LANE");
        EXPECT_EQ(request.provider.name, "Lane");
        Session().Connection.Execute(QStringLiteral("Update appointments Set nStartTime = 630"));
    });
    QTest::keyClick(&due, Qt::Key_Return);
    EXPECT_EQ(cards(BoardPlace::Due), QStringList{"Anna||10:30 AM · Lane"});
}

TEST_F(BoardCommands, GoToShowsTheDayInTheScheduleOfTheProvider) {
    put({.text = QStringLiteral("Anna"),
         .code = ncolor::Kept,
         .provider = QStringLiteral("LANE"),
         .date = day.addDays(-2)});
    Session().ProviderId = QStringLiteral("REED");
    select(BoardPlace::UnwrittenNote);
    press(BoardCommand::GoTo);
    EXPECT_EQ(Session().ProviderId, "LANE");
    EXPECT_EQ(Session().ProviderName, "Lane");
    EXPECT_EQ(main.Date(), day.addDays(-2));
    EXPECT_TRUE(main.asked.contains(QStringLiteral("changeview 0"))) << main.asked.join(u',').toStdString();
}

TEST_F(BoardCommands, TheNoteOfAKeptVisitIsBegunWhoeversScheduleTheMainWindowShows) {
    put({.text = QStringLiteral("Anna"), .code = ncolor::Kept, .date = day.addDays(-2)});
    Session().ProviderId = QStringLiteral("LANE");
    select(BoardPlace::UnwrittenNote);
    desk.expectForm("frmSNoteType", [](QDialog& dialog) { dialog.reject(); });
    press(BoardCommand::Note);
}

TEST_F(BoardCommands, ANoteOfAnotherProvidersVisitIsRefused) {
    put({.text = QStringLiteral("Anna"),
         .code = ncolor::Kept,
         .provider = QStringLiteral("LANE"),
         .date = day.addDays(-2)});
    select(BoardPlace::UnwrittenNote);
    desk.expectBox(
        QStringLiteral(
            "In order to create a note or view an existing associated note, you must be logged on as the rendering provider for this appointment."),
        QStringLiteral("Solvane"));
    press(BoardCommand::Note);
}

TEST_F(BoardCommands, WhatDoesNotSuitTheSelectedVisitIsGreyedAndSaysWhy) {
    put({.text = QStringLiteral("Due"), .start = 600});
    put({.text = QStringLiteral("Old"), .code = ncolor::Kept, .date = day.addDays(-2)});
    select(BoardPlace::Due);
    EXPECT_TRUE(board().Command(BoardCommand::Keep).isEnabled());
    EXPECT_FALSE(board().Command(BoardCommand::Note).isEnabled());
    EXPECT_EQ(board().Command(BoardCommand::Note).toolTip(),
              "A note is about a visit that was kept, missed or cancelled.");
    select(BoardPlace::UnwrittenNote);
    EXPECT_TRUE(board().Command(BoardCommand::Note).isEnabled());
    EXPECT_FALSE(board().Command(BoardCommand::Keep).isEnabled());
    EXPECT_EQ(board().Command(BoardCommand::Keep).toolTip(), "The board sets the status of today's visits only.");
}

TEST_F(BoardCommands, WhoMayOnlyReadSetsNoStatusAndOpensNoEditor) {
    Session().ScreenAccess = 1;
    put({.text = QStringLiteral("Anna"), .start = 600});
    BoardList& due = select(BoardPlace::Due);
    EXPECT_FALSE(board().Command(BoardCommand::Miss).isEnabled());
    EXPECT_FALSE(board().Command(BoardCommand::Edit).isEnabled());
    EXPECT_TRUE(board().Command(BoardCommand::GoTo).isEnabled());
    QTest::keyClick(&due, Qt::Key_Return);
}
