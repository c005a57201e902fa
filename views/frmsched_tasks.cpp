#include <QAction>
#include <QMenu>
#include <utility>
#include <vector>

#include "data/pipefields.h"
#include "people/w_item.h"
#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"
#include "views/frmsched.h"

using db::Recordset;
using db::Sql;

namespace {

QString priorityWord(qint64 priority) {
    switch (priority) {
        case 5:
        case 4:
            return QStringLiteral("Urgent");
        case 3:
            return QStringLiteral("High");
        case 2:
            return QStringLiteral("Medium");
        case 1:
            return QStringLiteral("Low");
        default:
            return {};
    }
}

struct Task {
    qint64 id = 0;
    QStringList cells;
    bool hasNotes = false;
};

std::vector<Task> readTasks(const QString& statement) {
    const QString dateFormat = Session().DateOrder != 0 ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("MM/dd/yyyy");
    std::vector<Task> read;
    for (Recordset tasks(statement, Session().Connection); !tasks.Eof(); tasks.MoveNext()) {
        const QString word = priorityWord(tasks["Priority"].integer());
        if (word.isEmpty())
            continue;
        const QDate due = tasks["datedue"].date();
        const QStringList cells{tasks["Completed"].boolean() ? QStringLiteral("1") : QStringLiteral("0"),
                                tasks["ToDo"].text(), word, due.isValid() ? due.toString(dateFormat) : QString()};
        read.push_back({tasks["TaskId"].integer(), cells, !tasks["Notes"].text().isEmpty()});
    }
    return read;
}

constexpr int NewTask = -1;

}  // namespace

void frmsched::bindTaskCommands() {
    const auto selected = [this] { return ctList1->ItemData(ctList1->SelectedRow()).toInt(); };
    menus().Bind(menu::mnuTNew, [this] { openTask(NewTask); });
    menus().Bind(menu::mnuTEdit, [this, selected] {
        if (ctList1->SelectedRow() >= 0)
            openTask(selected());
    });
    menus().Bind(menu::mnuTDelete, [this] { deleteTask(); });
    menus().Bind(menu::mnuTPrint, [this] { printTasks(); });
    ctList1->SetChecksEnabled(MayWrite());
    if (!MayWrite())
        return;
    connect(ctList1, &ctList::RowActivated, this, [this, selected] { openTask(selected()); });
    connect(ctList1, &ctList::CheckChanged, this, [this](int row, int, bool done) { tickTask(row, done); });
    connect(ctList1, &ctList::PopupRequested, this,
            [this](int, QPoint place) { menus().Command(menu::mnuToDo).menu()->popup(place); });
}

void frmsched::openTask(int taskId) {
    Session().CurrentTaskId = taskId;
    w_Item dialog(window());
    ShowModal(dialog);
    // Also where nothing was changed: the task may be gone.
    LoadToDo();
}

void frmsched::tickTask(int row, bool done) {
    const QString failed = QStringLiteral("Error editing task status. Another user may have deleted this task. ");
    try {
        Recordset task(Sql("Select * from todo Where TaskId = {}", ctList1->ItemData(row).toInt()),
                       Session().Connection, db::Lock::Optimistic);
        if (!task.Eof()) {
            task.Set("completed", done ? 1 : 0);
            task.Update();
            return;
        }
        MsgBox(failed, ErrorBox, QStringLiteral("Error"));
    } catch (const db::DatabaseError& error) {
        TellError(failed, error);
    }
    LoadToDo();
}

void frmsched::deleteTask() {
    const int row = ctList1->SelectedRow();
    if (row < 0 || MsgBox(QStringLiteral("Are you sure you want to delete this item?"), YesNoBox,
                          QStringLiteral("Delete Item")) != Answer::Yes)
        return;
    try {
        Recordset task(Sql("Select * from ToDo Where TaskId = {}", ctList1->ItemData(row).toInt()),
                       Session().Connection, db::Lock::Optimistic);
        if (!task.Eof())
            task.Delete();
        ctList1->RemoveRow(row);
        offerTaskPrint();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting task. "), error);
    }
}

void frmsched::offerTaskPrint() {
    menus().Suit(menu::mnuTPrint, ctList1->RowCount() > 0, tr("There are no tasks to print."));
}

void frmsched::printTasks() {
    std::vector<QStringList> rows;
    for (int row = 0; row < ctList1->RowCount(); ++row) {
        QStringList cells{ctList1->Checked(row, 1) ? tr("Yes") : QString()};
        for (int column = 2; column <= ctList1->ColumnCount(); ++column)
            cells << OneLine(ctList1->Cell(row, column));
        rows.push_back(cells);
    }
    VSPrinter vp;
    vp.SetTitle(tr("Tasks"));
    vp.SetHeader(QStringLiteral("|To Do List - %1|").arg(CleanFieldText(Session().ProviderName)));
    vp.SetFooter(QStringLiteral("||Page %d"));
    vp.AddTable({.widths = {720, 6000, 1300, 1500},
                 .titles = {QStringLiteral("Done"), QStringLiteral("Task"), QStringLiteral("Priority"),
                            QStringLiteral("Complete by")},
                 .rows = std::move(rows)});
    vp.Preview(window());
}

QString frmsched::tasksStatement() {
    const QString& provider = Session().ProviderId;
    return Session().TaskRollOver
               ? Sql("Select * from ToDo Where Completed = 0 AND ClinicianId = '{}' Order by Priority DESC", provider)
               : Sql("Select * from ToDo Where ClinicianId = '{}' Order by Priority DESC", provider);
}

void frmsched::LoadToDo() {
    const bool sameProvider = std::exchange(tasksOf_, Session().ProviderId) == Session().ProviderId;
    std::vector<Task> tasks;
    const bool read = TryAndTell(tr("The tasks could not be read. "), [&] { tasks = readTasks(tasksStatement()); });
    // An empty list would say that nothing is to do.
    if (!read && sameProvider)
        return;
    const QVariant selected = ctList1->ItemData(ctList1->SelectedRow());
    ctList1->Clear();
    for (const Task& task : tasks)
        ctList1->SetNoteMark(ctList1->AddRow(task.cells, task.id), task.hasNotes);
    if (selected.isValid())
        ctList1->SelectRow(ctList1->FindItemData(selected));
    offerTaskPrint();
}
