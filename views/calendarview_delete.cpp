#include <QAction>

#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"
#include "views/calendarview.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

void auditDeletion(const CalendarItem& item, QDate day) {
    AuditDeletedAppointment(ShortDateText(day), MinutesToTimeText(item.ItemStart, Session().MilitaryTime),
                            item.ItemText);
}

}  // namespace

void CalendarView::bindDeletion() {
    menus_.Bind(QStringLiteral("mnuADelete"), [this] { deleteCommand(); });
    connect(ctMDay1, &ctMDay::DeleteRequested, this, [this] {
        if (menus_.Command(QStringLiteral("mnuADelete")).isEnabled())
            deleteCommand();
    });
}

void CalendarView::deleteCommand() {
    // No appointment is being added while the user can choose a command: a flag left on must not spare the question.
    Session().IsNewAppt = false;
    ctMDay1->CommitEdit();
    DeleteSelectedAppointment();
}

void CalendarView::DeleteSelectedAppointment() {
    const std::optional<CalendarItem> item = SelectedItem();
    if (!item || item->ItemKey.toInt() < 1)
        return;
    try {
        if (Session().IsNewAppt)
            cancelAddedAppointment(item->ItemKey.toInt());
        else
            deleteAppointment(*item);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting appointment. "), error);
    }
}

void CalendarView::deleteAppointment(const CalendarItem& item) {
    if (MsgBox(QStringLiteral("Are you sure you want to delete this appointment?"), YesNoBox,
               QStringLiteral("Delete Appointment")) != Answer::Yes)
        return;
    const int key = item.ItemKey.toInt();
    Recordset row(Sql("Select * from appointments Where nKeyId = {}", key), Session().Connection, Lock::Optimistic);
    if (!row.Eof()) {
        deleteRow(row, key);
        auditDeletion(item, item.ItemDay.isValid() ? item.ItemDay : ctMDay1->Date());
    }
    removeItemsOf(key);
}

void CalendarView::deleteRow(Recordset& row, int key) {
    db::Connection& connection = Session().Connection;
    const qint64 code = row["Ncolor"].integer();
    db::InTransaction(connection, [&] {
        if (code == ncolor::Group)
            connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyid = {}", key));
        connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key));
        if (code == ncolor::Activity)
            connection.Execute(Sql("Delete  from appointmentsevents Where nkeyid = {}", key));
        row.Delete();
    });
}

void CalendarView::cancelAddedAppointment(int key) {
    db::Connection& connection = Session().Connection;
    Recordset row(Sql("Select * from appointments Where nKeyId = {}", key), connection, Lock::Optimistic);
    db::InTransaction(connection, [&] {
        if (!row.Eof())
            row.Delete();
        connection.Execute(Sql("Delete from roomschedule Where apptid = {}", key));
    });
    removeItemsOf(key);
}

void CalendarView::removeItemsOf(int key) {
    for (int index = 0; (index = ctMDay1->IndexOfKey(QString::number(key))) > 0;)
        ctMDay1->RemoveItem(index);
}
