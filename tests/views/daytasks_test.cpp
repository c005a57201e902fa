#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/noticebar.h"
#include "platform/printing/printpreview.h"
#include "session/session.h"
#include "tests/views/dayfixture.h"

class DayTasks : public DayFixture {
  protected:
    void addTask(const char* text, int priority, const char* due = "null", int completed = 0,
                 const char* notes = "null") {
        run(QStringLiteral(
                "Insert Into ToDo (ClinicianId, ToDo, Priority, datedue, Completed, Notes) Values('REED', '%1', %2, %3, %4, %5)")
                .arg(QString::fromUtf8(text))
                .arg(priority)
                .arg(QString::fromUtf8(due))
                .arg(completed)
                .arg(QString::fromUtf8(notes)));
    }
    [[nodiscard]] ctList& list() const { return *view_->findChild<ctList*>(QStringLiteral("ctList1")); }
    [[nodiscard]] QStringList rows() const {
        QStringList texts;
        for (int row = 0; row < list().RowCount(); ++row)
            texts << list().Cells(row).join(u';');
        return texts;
    }
};

TEST_F(DayTasks, TasksStandByPriorityWithTheirWord) {
    addTask("Low one", 1);
    addTask("Urgent one", 4);
    addTask("High one", 3);
    addTask("Medium one", 2);
    addTask("Most urgent", 5);

    open();

    EXPECT_EQ(rows(), (QStringList{"0;Most urgent;Urgent;", "0;Urgent one;Urgent;", "0;High one;High;",
                                   "0;Medium one;Medium;", "0;Low one;Low;"}));
}

TEST_F(DayTasks, TasksThatCannotBeReadAnewStayAndTheBarSaysSo) {
    const NoticeBar bar;
    addTask("Urgent one", 4);
    open();
    const QString why = DropTable(Session().Connection, QStringLiteral("ToDo"));

    day().Reload();
    EXPECT_EQ(rows(), QStringList{"0;Urgent one;Urgent;"});
    EXPECT_EQ(bar.Texts(), QStringList{"The tasks could not be read. " + why});

    Session().ProviderId = QStringLiteral("OBRIEN");
    day().Reload();
    EXPECT_TRUE(rows().isEmpty()) << "They are somebody else's.";
    EXPECT_EQ(bar.Texts().size(), 1);
}

TEST_F(DayTasks, APriorityThatIsNoneIsNotShown) {
    addTask("Zero", 0);
    addTask("Six", 6);

    open();

    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DayTasks, TheDueDateFollowsTheDateOrder) {
    addTask("Due", 2, "'2026/03/07'");

    open();
    EXPECT_EQ(rows(), QStringList{"0;Due;Medium;03/07/2026"});

    Session().DateOrder = 1;
    day().LoadToDo();
    EXPECT_EQ(rows(), QStringList{"0;Due;Medium;07/03/2026"});
}

TEST_F(DayTasks, DoneTasksAreTickedAndCanBeHidden) {
    addTask("Done", 2, "null", 1);
    addTask("Open", 1);

    open();
    EXPECT_TRUE(list().Checked(0, 1));
    EXPECT_FALSE(list().Checked(1, 1));

    Session().TaskRollOver = true;
    day().LoadToDo();
    EXPECT_EQ(rows(), QStringList{"0;Open;Low;"});
}

TEST_F(DayTasks, DoneTasksLeaveTheListWhenThePreferencesHideThem) {
    addTask("Done", 1, "null", 1);
    CalendarView& view = open();

    Session().TaskRollOver = true;
    view.ApplyPreferences();

    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DayTasks, ATaskWithNotesIsMarked) {
    addTask("With", 2, "null", 0, "'call the insurer'");
    addTask("Without", 1);

    open();

    EXPECT_TRUE(list().NoteMark(0));
    EXPECT_FALSE(list().NoteMark(1));
}

TEST_F(DayTasks, TheListDoesNotChangeWithTheDateButWithTheProvider) {
    addTask("Reeds", 2);
    CalendarView& view = open();

    main.SetDate(QDate(2026, 5, 1));
    view.Reload();
    EXPECT_EQ(rows().size(), 1);

    Session().ProviderId = "LANE";
    view.Reload();
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DayTasks, TickingATaskStoresThatItIsDone) {
    addTask("Call", 2);
    open();
    const QRect box = list().visualRect(list().model()->index(0, 0));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, box.center());
    EXPECT_EQ(database_.number(QStringLiteral("Select Completed from ToDo")), 1);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, box.center());
    EXPECT_EQ(database_.number(QStringLiteral("Select Completed from ToDo")), 0);
}

TEST_F(DayTasks, TickingATaskThatAnotherUserDeletedTellsSoAndTakesItAway) {
    addTask("Call", 2);
    open();
    run(QStringLiteral("Delete from ToDo"));
    desk.expectBox(QStringLiteral("Error editing task status. Another user may have deleted this task. "),
                   QStringLiteral("Error"));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(list().model()->index(0, 0)).center());
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DayTasks, WhoMayOnlyReadCanTickOpenAndDeleteNothing) {
    Session().ScreenAccess = 1;
    addTask("Call", 2);
    open();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(list().model()->index(0, 0)).center());
    Q_EMIT list().RowActivated(0);
    EXPECT_EQ(database_.number(QStringLiteral("Select Completed from ToDo")), 0);
    EXPECT_FALSE(command("mnuToDo").isEnabled());
}

TEST_F(DayTasks, ANewTaskShowsOnTheListOnceItIsStored) {
    open();
    desk.expectForm("w_Item", [](QDialog& form) {
        form.findChild<QLineEdit*>(QStringLiteral("txtTaskDesc"))->setText(QStringLiteral("Call"));
        form.findChild<QPushButton*>(QStringLiteral("btnOK"))->click();
    });
    command("mnuTNew").trigger();
    EXPECT_EQ(Session().CurrentTaskId, -1);
    EXPECT_EQ(rows(), QStringList{"0;Call;Medium;"});
}

TEST_F(DayTasks, EditingNeedsASelectedTask) {
    addTask("Call", 2);
    open();
    command("mnuTEdit").trigger();
    list().SelectRow(0);
    desk.expectForm("w_Item", [](QDialog& form) {
        EXPECT_EQ(form.findChild<QLineEdit*>(QStringLiteral("txtTaskDesc"))->text(), QStringLiteral("Call"));
    });
    command("mnuTEdit").trigger();
}

TEST_F(DayTasks, ADoubleClickOpensTheTask) {
    addTask("Call", 2);
    open();
    desk.expectForm("w_Item", [](QDialog&) {});
    const QRect text = list().visualRect(list().model()->index(0, 1));
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, text.center());
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, text.center());
}

TEST_F(DayTasks, DeletingAsksFirst) {
    addTask("Call", 2);
    open();
    command("mnuTDelete").trigger();  // Nothing is selected.
    list().SelectRow(0);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        EXPECT_EQ(rows().size(), 1);
        desk.expectBox(QStringLiteral("Are you sure you want to delete this item?"), QStringLiteral("Delete Item"),
                       answer);
        command("mnuTDelete").trigger();
    }
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_EQ(database_.number(QStringLiteral("Select Count(*) from ToDo")), 0);
}

TEST_F(DayTasks, WhoMayNotDeleteIsNotOfferedIt) {
    Session().ScreenAccess = 2;
    open();
    EXPECT_FALSE(command("mnuTDelete").isEnabled());
    EXPECT_TRUE(command("mnuTNew").isEnabled());
}

TEST_F(DayTasks, TheTasksArePrintedAsTheyAreListed) {
    addTask("Call | the; school", 4, "'2026/03/07'");
    addTask("Done", 1, "null", 1);
    Session().ProviderName = QStringLiteral("Reed");
    open();
    desk.expectForm("frmpreview", [](QDialog& preview) {
        const printing::Document& document = preview.findChild<PrintPreview*>()->Document();
        EXPECT_EQ(document.header, QStringLiteral("|To Do List - Reed|"));
        EXPECT_EQ(document.footer, QStringLiteral("||Page %d"));
        const auto& table = std::get<printing::Table>(document.blocks.at(0));
        EXPECT_EQ(table.titles, (QStringList{"Done", "Task", "Priority", "Complete by"}));
        ASSERT_EQ(table.rows.size(), 2);
        EXPECT_EQ(table.rows[0], (QStringList{"", "Call | the; school", "Urgent", "03/07/2026"}));
        EXPECT_EQ(table.rows[1], (QStringList{"Yes", "Done", "Low", ""}));
    });
    command("mnuTPrint").trigger();
}

TEST_F(DayTasks, WithoutTasksThereIsNothingToPrint) {
    addTask("Call", 2);
    open();
    EXPECT_TRUE(command("mnuTPrint").isEnabled());
    list().SelectRow(0);
    desk.expectBox(QStringLiteral("Are you sure you want to delete this item?"), QStringLiteral("Delete Item"),
                   Answer::Yes);
    command("mnuTDelete").trigger();
    EXPECT_FALSE(command("mnuTPrint").isEnabled());
}

TEST_F(DayTasks, OneThatAnotherDeskDeletedCanStillBeTakenOffTheList) {
    addTask("Call", 2);
    open();
    run(QStringLiteral("Delete from ToDo"));
    list().SelectRow(0);
    desk.expectBox(QStringLiteral("Are you sure you want to delete this item?"), QStringLiteral("Delete Item"),
                   Answer::Yes);
    command("mnuTDelete").trigger();
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(DayTasks, ATaskThatAnotherDeskDeletedLeavesTheListWhenTheDayIsReadAnew) {
    addTask("First", 3);
    addTask("Second", 2);
    CalendarView& view = open();
    list().SelectRow(1);

    otherDesk("Delete from ToDo Where ToDo = 'First'");
    otherDesk("Update ToDo Set Priority = 4 Where ToDo = 'Second'");
    view.Reload();

    EXPECT_EQ(rows(), QStringList{"0;Second;Urgent;"});
    EXPECT_EQ(list().SelectedRow(), 0);
}
