#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "views/frmsched.h"

using db::Ignoring;
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

}  // namespace

void frmsched::LoadToDo() {
    tasksOf_ = Session().ProviderId;
    ctList1->Clear();
    Ignoring([&] {
        const QString statement =
            Session().TaskRollOver
                ? Sql("Select * from ToDo Where Completed = 0 AND ClinicianId = '{}' Order by Priority DESC", tasksOf_)
                : Sql("Select * from ToDo Where ClinicianId = '{}' Order by Priority DESC", tasksOf_);
        const QString dateFormat =
            Session().DateOrder != 0 ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("MM/dd/yyyy");
        for (Recordset tasks(statement, Session().Connection); !tasks.Eof(); tasks.MoveNext()) {
            const QString word = priorityWord(tasks["Priority"].integer());
            if (word.isEmpty())
                continue;
            const QDate due = tasks["datedue"].date();
            QString text = tasks["ToDo"].text();
            text.replace(QLatin1Char(';'), QLatin1Char(','));
            const int row =
                ctList1->AddRow(QStringList{tasks["Completed"].boolean() ? QStringLiteral("1") : QStringLiteral("0"),
                                            text, word, due.isValid() ? due.toString(dateFormat) : QString()}
                                    .join(QLatin1Char(';')),
                                tasks["TaskId"].integer());
            ctList1->SetNoteMark(row, !tasks["Notes"].text().isEmpty());
        }
    });
}
