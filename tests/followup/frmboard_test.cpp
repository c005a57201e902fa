#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

#include "data/codes.h"
#include "session/hiddennames.h"
#include "tests/followup/boardfixture.h"

namespace {

class Board : public BoardFixture {};

}  // namespace

TEST_F(Board, SortsTodaysVisitsIntoWhereTheirPatientsAre) {
    put({.text = QStringLiteral("Due"), .start = 600, .code = ncolor::Tentative});
    put({.text = QStringLiteral("Late"), .start = 530});
    putCheckedIn(QStringLiteral("Waiting"), QStringLiteral("03/11/26 08:50 AM"));
    put({.text = QStringLiteral("Inside"), .start = 540, .code = ncolor::Kept, .provider = QStringLiteral("LANE")});
    put({.text = QStringLiteral("Gone"), .start = 480, .code = ncolor::Kept, .end = 530});
    put({.text = QStringLiteral("Away"), .code = ncolor::PatientCancelled});
    put({.text = QStringLiteral("Lunch"), .code = ncolor::Unavailable});
    put({.text = QStringLiteral("Tomorrow"), .date = day.addDays(1)});

    EXPECT_EQ(cards(BoardPlace::Due), QStringList{"Due|in 55 min|10:00 AM · Reed · Tentative"});
    EXPECT_EQ(cards(BoardPlace::Late), QStringList{"Late|15 min|8:50 AM · Reed"});
    EXPECT_EQ(cards(BoardPlace::Waiting), QStringList{"Waiting|15 min|9:00 AM · Reed · here since 8:50 AM"});
    EXPECT_EQ(cards(BoardPlace::InSession), QStringList{"Inside|45 min left|9:00 AM · Lane"});
    EXPECT_EQ(cards(BoardPlace::Gone), QStringList{"Gone|no note|8:00 AM · Reed"});
    EXPECT_EQ(cards(BoardPlace::NotComing), QStringList{"Away|Patient Cancelled|9:00 AM · Reed"});
    EXPECT_EQ(board().lblday->text(), "Wednesday, March 11, 2026");
    EXPECT_EQ(board().lblclock->text(), "9:05 AM");
    EXPECT_EQ(board().lblstatus->text(), "As of 9:05 AM");
}

TEST_F(Board, ListsTheNotesOfThirtyDaysThatAreMissingOrNotSigned) {
    run("Insert Into sessions (stype) Values (1)");
    run("Insert Into sessions (stype, SignatureDate) Values (1, '2026/03/10')");
    run("Insert Into sessions (stype) Values (1)");
    run("Insert Into SessionSignatures (session_id) Values (3)");
    const auto kept = [this](const char* name, int daysBefore, const char* note) {
        put({.text = QString::fromLatin1(name),
             .code = ncolor::Kept,
             .date = day.addDays(-daysBefore),
             .more = QStringLiteral(", NoteID"),
             .moreValues = QStringLiteral(", ") + QLatin1String(note)});
    };
    kept("Missing", 2, "Null");
    kept("Unsigned", 3, "1");
    kept("Signed", 3, "2");
    kept("Drawn", 3, "3");
    kept("Deleted", 30, "77");
    kept("Old", 31, "Null");
    EXPECT_EQ(cards(BoardPlace::UnwrittenNote), (QStringList{"Deleted|no note|Mon 2/9/2026 · 9:00 AM · Reed",
                                                             "Unsigned|note not signed|Sun 3/8/2026 · 9:00 AM · Reed",
                                                             "Missing|no note|Mon 3/9/2026 · 9:00 AM · Reed"}));
}

TEST_F(Board, ListsTheSeriesOfWhichFourVisitsOrFewerAreLeft) {
    const auto series = [this](const char* name, int ref, int weeks, int code = ncolor::Pending) {
        for (int week = -1; week < weeks; ++week)
            put({.text = QString::fromLatin1(name),
                 .start = 600,
                 .code = week == 0 ? code : ncolor::Pending,
                 .date = day.addDays(7 * week),
                 .more = QStringLiteral(", repeating, repeating_ref"),
                 .moreValues = QStringLiteral(", 1, %1").arg(ref)});
    };
    series("Four", 1, 4);
    series("Five", 2, 5);
    series("Cancelled", 3, 5, ncolor::PatientCancelled);
    series("One", 4, 1);
    EXPECT_EQ(cards(BoardPlace::EndingSeries),
              (QStringList{"One|1 left|on Wed 3/11/2026 · Reed", "Four|4 left|last on Wed 4/1/2026 · Reed",
                           "Cancelled|4 left|last on Wed 4/8/2026 · Reed"}));
}

TEST_F(Board, WhoWaitsLongestStandsFirstAndWhoseTimeIsUnknownLast) {
    putCheckedIn(QStringLiteral("Short"), QStringLiteral("03/11/26 09:00 AM"));
    putCheckedIn(QStringLiteral("Unread"), QStringLiteral("about nine"));
    putCheckedIn(QStringLiteral("None"), QString());
    putCheckedIn(QStringLiteral("Long"), QStringLiteral("03/11/26 08:00 AM"));
    EXPECT_EQ(cards(BoardPlace::Waiting), (QStringList{"Long|65 min|9:00 AM · Reed · here since 8:00 AM",
                                                       "Short|5 min|9:00 AM · Reed · here since 9:00 AM",
                                                       "Unread|time unknown|9:00 AM · Reed · arrival \"about nine\"",
                                                       "None|time unknown|9:00 AM · Reed · no time of arrival"}));
}

TEST_F(Board, AVisitWithoutAStartIsDueAndSaysSo) {
    put({.text = QStringLiteral("Some day")});
    run("Update appointments Set nStartTime = Null");
    EXPECT_EQ(cards(BoardPlace::Due), QStringList{"Some day||no time · Reed"});
}

TEST_F(Board, AProviderWhoIsGoneIsNamedByTheId) {
    put({.text = QStringLiteral("Anna"), .start = 600, .provider = QStringLiteral("LEFT")});
    EXPECT_EQ(cards(BoardPlace::Due), QStringList{"Anna|in 55 min|10:00 AM · LEFT"});
    choose("LEFT");
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
    run("Delete from appointments");
    board().Load();
    EXPECT_EQ(board().Count(BoardPlace::Due), 0);
    EXPECT_EQ(board().cboprovider->currentData().toString(), "LEFT") << "What was chosen stays chosen.";
}

TEST_F(Board, EachMinuteOfTheClockBringsItUpToDate) {
    put({.text = QStringLiteral("Anna"), .start = 546});
    EXPECT_EQ(cards(BoardPlace::Due), QStringList{"Anna|in 1 min|9:06 AM · Reed"});
    ASSERT_FALSE(desk.waits.isEmpty());
    EXPECT_EQ(desk.waits.back(), 60000);
    put({.text = QStringLiteral("Of another desk"), .start = 600});
    setClock(9, 7);
    desk.passTime();
    EXPECT_EQ(cards(BoardPlace::Late), QStringList{"Anna|1 min|9:06 AM · Reed"});
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Of another desk"});
    EXPECT_EQ(board().lblstatus->text(), "As of 9:07 AM");
}

TEST_F(Board, IsReadAnewAfterEachWriteOfTheProgram) {
    const int key = put({.text = QStringLiteral("Anna"), .start = 600});
    EXPECT_EQ(board().Count(BoardPlace::Due), 1);
    Session().Connection.Execute(db::Sql("Update appointments Set ncolor = 192 Where nkeyid = {}", key));
    EXPECT_EQ(board().Count(BoardPlace::Due), 0);
    EXPECT_EQ(board().Count(BoardPlace::NotComing), 1);
}

TEST_F(Board, IsNotReadAfterAWriteThatIsRolledBack) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    board();
    Session().Connection.BeginTrans();
    Session().Connection.Execute(QStringLiteral("Update appointments Set ncolor = 192"));
    EXPECT_FALSE(board().IsReading());
    Session().Connection.RollbackTrans();
    EXPECT_FALSE(board_->IsReading());
}

TEST_F(Board, F5ReadsWhatAnotherDeskHasWritten) {
    board();
    put({.text = QStringLiteral("Anna"), .start = 600});
    QTest::keyClick(&board(), Qt::Key_F5);
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
}

TEST_F(Board, AtMidnightTheNextDayBegins) {
    put({.text = QStringLiteral("Today"), .start = 600});
    put({.text = QStringLiteral("Next"), .start = 600, .date = day.addDays(1)});
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Today"});
    desk.setNow(QDateTime(day.addDays(1), QTime(0, 0)));
    desk.passTime();
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Next"});
    EXPECT_EQ(board().Count(BoardPlace::Late), 0);
    EXPECT_EQ(board().lblday->text(), "Thursday, March 12, 2026");
}

TEST_F(Board, ALostDatabaseIsToldWhatIsKnownStaysAndItRecoversByItself) {
    put({.text = QStringLiteral("Anna"), .start = 546});
    board();
    Session().Connection.Close();
    setClock(9, 7);
    desk.passTime();
    EXPECT_TRUE(board().pnlproblem->isVisible());
    EXPECT_EQ(
        board().lblproblem->text(),
        "The board could not be read at 9:07 AM. It shows what was known at 9:05 AM. There is no connection to the database.");
    EXPECT_EQ(cards(BoardPlace::Late), QStringList{"Anna|1 min|9:06 AM · Reed"}) << "The minutes go on.";
    EXPECT_TRUE(board().List(BoardPlace::Late).IsStale());

    Session().Connection.Open(database.connectionText());
    setClock(9, 8);
    desk.passTime();
    EXPECT_EQ(cards(BoardPlace::Late), QStringList{"Anna|2 min|9:06 AM · Reed"});
    EXPECT_FALSE(board().pnlproblem->isVisible());
    EXPECT_FALSE(board().List(BoardPlace::Late).IsStale());
}

TEST_F(Board, ATableThatCannotBeReadIsToldWithItsReasonAndCanBeTriedAgain) {
    const QString reason = DropTable(database.connection(), QStringLiteral("SessionSignatures"));
    EXPECT_EQ(board().lblproblem->text(), QStringLiteral("The board could not be read at 9:05 AM. ") + reason);
    run("Create Table SessionSignatures (session_id int null)");
    board().cmdtryagain->click();
    EXPECT_FALSE(board().pnlproblem->isVisible());
}

TEST_F(Board, MidnightPassesOverALostDatabaseWithoutTakingYesterdayForToday) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    board();
    Session().Connection.Close();
    desk.setNow(QDateTime(day.addDays(1), QTime(0, 1)));
    desk.passTime();
    EXPECT_EQ(board().lblday->text(), "Wednesday, March 11, 2026");
}

TEST_F(Board, HidesTheNamesWhileTheyAreHiddenAndDoesNotFindByThem) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    board();
    SetNamesHidden(true);
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"(hidden)"});
    EXPECT_FALSE(board().List(BoardPlace::Due).Card(0).tip.contains(QStringLiteral("Anna")));
    board().txtfind->setText(QStringLiteral("ann"));
    EXPECT_EQ(names(BoardPlace::Due), QStringList());
    SetNamesHidden(false);
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Anna"});
}

TEST_F(Board, ALetterTypedOnACardSearchesAndEscapeShowsEverybodyAgain) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    put({.text = QStringLiteral("Bert"), .start = 610, .provider = QStringLiteral("LANE")});
    BoardList& due = select(BoardPlace::Due);
    QTest::keyClicks(&due, QStringLiteral("b"));
    QTest::keyClicks(board().txtfind, QStringLiteral("ert lan"));
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Bert"});
    EXPECT_EQ(due.accessibleName(), "Due, 1 of 2");
    EXPECT_EQ(board().Count(BoardPlace::Due), 2) << "The count is not what is found.";
    QTest::keyClick(board().txtfind, Qt::Key_Escape);
    EXPECT_EQ(names(BoardPlace::Due), (QStringList{"Anna", "Bert"}));
}

TEST_F(Board, TheArrowsGoFromPlaceToPlaceOverTheEmptyOnes) {
    put({.text = QStringLiteral("Anna"), .start = 600});
    put({.text = QStringLiteral("Inside"), .start = 540, .code = ncolor::Kept});
    BoardList& due = select(BoardPlace::Due);
    QTest::keyClick(&due, Qt::Key_Right);
    BoardList& inside = board().List(BoardPlace::InSession);
    EXPECT_EQ(inside.SelectedRow(), 0);
    QTest::keyClick(&inside, Qt::Key_Left);
    EXPECT_EQ(due.SelectedRow(), 0);
}

TEST_F(Board, KeepsTheSelectedCardWhereItGoesOnStanding) {
    put({.text = QStringLiteral("Bert"), .start = 620});
    BoardList& due = select(BoardPlace::Due);
    const int key = due.SelectedKey();
    put({.text = QStringLiteral("Anna"), .start = 600});
    board().Load();
    board();
    EXPECT_EQ(due.CardCount(), 2);
    EXPECT_EQ(due.SelectedKey(), key);
}

TEST_F(Board, WithoutTheRightToAllSchedulesThereIsNoChoiceOfAProvider) {
    Session().AllProviders = false;
    put({.text = QStringLiteral("Mine"), .start = 600});
    put({.text = QStringLiteral("Other"), .start = 600, .provider = QStringLiteral("LANE")});
    EXPECT_EQ(names(BoardPlace::Due), QStringList{"Mine"});
    EXPECT_FALSE(board().cboprovider->isVisible());
}

TEST_F(Board, IsOneWindowThatOpensAgainAsItWas) {
    QWidget parent;
    parent.show();
    frmboard::Open(main, &parent);
    auto* first = parent.findChild<frmboard*>();
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(first->isModal());
    first->close();
    EXPECT_FALSE(first->isVisible());
    frmboard::Open(main, &parent);
    EXPECT_EQ(parent.findChildren<frmboard*>().size(), 1);
    EXPECT_TRUE(first->isVisible());
    parent.hide();
    EXPECT_FALSE(first->isVisible()) << "It ends with the main window.";
}

TEST_F(Board, ADatabaseThatWasOpenedAgainShowsNothingOfTheOneBefore) {
    put({.text = QStringLiteral("Anna"), .start = 546});
    QWidget parent;
    parent.show();
    frmboard::Open(main, &parent);
    auto* shown = parent.findChild<frmboard*>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !shown->IsReading(); }, 20000));
    EXPECT_EQ(shown->Count(BoardPlace::Due), 1);
    Session().Connection.Close();
    frmboard::OpenAgain(parent);
    EXPECT_EQ(shown->Count(BoardPlace::Due), 0);
    EXPECT_EQ(shown->lblproblem->text(),
              "The board could not be read at 9:05 AM. There is no connection to the database.");
    Session().Connection.Open(database.connectionText());
}

TEST_F(Board, TheChoiceOfProvidersIsLeftAloneWhereNothingHasChanged) {
    put({.text = QStringLiteral("Anna"), .start = 546});
    int filled = 0;
    QObject::connect(board().cboprovider->model(), &QAbstractItemModel::rowsInserted, [&filled] { ++filled; });
    board().Load();
    board();
    EXPECT_EQ(filled, 0) << "An open list would lose the line that the user is about to choose.";
    put({.text = QStringLiteral("Bert"), .start = 600, .provider = QStringLiteral("GONE")});
    board().Load();
    board();
    EXPECT_GT(filled, 0);
}

TEST_F(Board, ReadsAndTicksOnlyWhileItIsOpen) {
    board();
    board_->close();
    Session().Connection.Execute(QStringLiteral("Update appointments Set ncolor = 192"));
    desk.passTime();
    EXPECT_FALSE(board_->IsReading());
    board_->show();
    EXPECT_TRUE(board_->IsReading()) << "It is read anew when it opens.";
}

TEST_F(Board, TellsAScreenReaderWhoStandsWhere) {
    put({.text = QStringLiteral("Anna"), .start = 530});
    BoardList& late = board().List(BoardPlace::Late);
    EXPECT_EQ(late.accessibleName(), "Late, 1");
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&late);
    ASSERT_NE(list, nullptr);
    ASSERT_GE(list->childCount(), 1);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), "Anna, 15 min late, 8:50 AM · Reed");
    for (const QWidget* part : board().findChildren<QWidget*>())
        if (part->focusPolicy() != Qt::NoFocus && part->isVisible()) {
            const QAccessibleInterface* known = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(part));
            EXPECT_FALSE(known->text(QAccessible::Name).isEmpty()) << part->objectName().toStdString();
        }
}
