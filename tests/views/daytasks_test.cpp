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
            texts << list().RowText(row);
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
    view_->LoadToDo();
    EXPECT_EQ(rows(), QStringList{"0;Due;Medium;07/03/2026"});
}

TEST_F(DayTasks, DoneTasksAreTickedAndCanBeHidden) {
    addTask("Done", 2, "null", 1);
    addTask("Open", 1);

    open();
    EXPECT_TRUE(list().Checked(0, 1));
    EXPECT_FALSE(list().Checked(1, 1));

    Session().TaskRollOver = true;
    view_->LoadToDo();
    EXPECT_EQ(rows(), QStringList{"0;Open;Low;"});
}

TEST_F(DayTasks, DoneTasksLeaveTheListWhenThePreferencesHideThem) {
    addTask("Done", 1, "null", 1);
    frmsched& view = open();

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
    frmsched& view = open();

    main.SetDate(QDate(2026, 5, 1));
    view.Reload();
    EXPECT_EQ(rows().size(), 1);

    Session().ProviderId = "LANE";
    view.Reload();
    EXPECT_TRUE(rows().isEmpty());
}
