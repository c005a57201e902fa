#include <algorithm>
#include <QAction>
#include <tuple>
#include <vector>

#include "appointments/appointmentdelete.h"
#include "appointments/appointmentrows.h"
#include "appointments/frmdeleteevent.h"
#include "appointments/frmdelrepeat.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/namedpatients.h"
#include "platform/database/sql.h"
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

const QString DeletionFailed = QStringLiteral("Error deleting appointment. ");

AuditedAppointment auditedAs(const CalendarItem& item, QDate day) {
    return {AuditDate(day), MinutesToTimeText(item.ItemStart, Session().MilitaryTime), item.ItemText};
}

/// A row of a series for the list, which stands in the order of time.
struct SeriesMember {
    QDate date;
    int start = 0;
    frmdelrepeat::Row shown;

    friend bool operator<(const SeriesMember& left, const SeriesMember& right) {
        return std::tie(left.date, left.start) < std::tie(right.date, right.start);
    }
};

SeriesMember memberOf(const Recordset& row, int chosenKey) {
    const QDate date = row["Dapptdate"].date();
    const int start = static_cast<int>(row["nStartTime"].integer());
    const int key = static_cast<int>(row["nKeyid"].integer());
    return {date,
            start,
            {key, AuditDate(date), MinutesToTimeText(start, Session().MilitaryTime), row["cappttext"].text(),
             row["Ncolor"].integer() == ncolor::Group, key == chosenKey,
             NamesPatient(static_cast<int>(row["Ncolor"].integer()), !row["patientid"].text().isEmpty())}};
}

}  // namespace

void CalendarView::bindDeletion() {
    menus_.Bind(menu::mnuADelete, [this] { deleteCommand(); });
    connect(ctMDay1, &ctMDay::DeleteRequested, this, [this] {
        if (menus_.Command(menu::mnuADelete).isEnabled())
            deleteCommand();
    });
}

void CalendarView::deleteCommand() {
    ctMDay1->CommitEdit();
    const int key = SelectedItem().value_or(CalendarItem()).ItemKey.toInt();
    if (key < 1)
        return;
    bool shared = false;
    try {
        shared = IsSharedActivity(key);
    } catch (const db::DatabaseError& error) {
        TellError(DeletionFailed, error);
        return;
    }
    if (shared)
        deleteActivity(key);
    else
        // No appointment is being added while the user can choose a command.
        DeleteSelectedAppointment(false);
}

void CalendarView::deleteActivity(int key) {
    frmDeleteEvent question(key, Provider().id, window());
    ShowModal(question);
    if (question.WantsSpecificAttendees())
        scheduleActivity(key);
    else
        Reload();
}

void CalendarView::DeleteSelectedAppointment(bool IsNewAppt) {
    const std::optional<CalendarItem> item = SelectedItem();
    if (!item || item->ItemKey.toInt() < 1)
        return;
    if (IsNewAppt) {
        if (isDeleted(CancelAddedAppointment(item->ItemKey.toInt())))
            removeItemsOf(item->ItemKey.toInt());
        return;
    }
    try {
        deleteAppointment(*item);
    } catch (const db::DatabaseError& error) {
        TellError(DeletionFailed, error);
    }
}

bool CalendarView::isDeleted(const WriteOutcome& outcome) {
    if (outcome.failure)
        TellError(DeletionFailed, *outcome.failure);
    return outcome.IsDone();
}

void CalendarView::deleteAppointment(const CalendarItem& item) {
    if (MsgBox(QStringLiteral("Are you sure you want to delete this appointment?"), YesNoBox,
               QStringLiteral("Delete Appointment")) != Answer::Yes)
        return;
    const int key = item.ItemKey.toInt();
    Recordset row(AppointmentStatement(key), Session().Connection, Lock::Optimistic);
    if (row.Eof()) {
        removeItemsOf(key);
        return;
    }
    if (row["repeating"].integer() != 0 && deleteFromSeries(key, static_cast<int>(row["repeating_ref"].integer())))
        return;
    if (isDeleted(DeleteAppointment(row, auditedAs(item, dateOf(item)))))
        removeItemsOf(key);
}

// False where the row says that it repeats but belongs to no series: it is deleted as one of its own then.
bool CalendarView::deleteFromSeries(int key, int ref) {
    if (ref < 1)
        return false;
    Recordset rows(Sql("Select * from appointments Where repeating = 1 AND repeating_ref = {}", ref),
                   Session().Connection);
    std::vector<SeriesMember> members;
    bool listed = false;
    for (; !rows.Eof(); rows.MoveNext()) {
        members.push_back(memberOf(rows, key));
        listed = listed || members.back().shown.checked;
    }
    if (!listed)
        return false;
    std::stable_sort(members.begin(), members.end());
    frmdelrepeat list([&main = main_] { main.cycledate(2); }, window());
    for (const SeriesMember& member : members)
        list.AddAppointment(member.shown);
    ShowModal(list);
    Reload();
    return true;
}

void CalendarView::removeItemsOf(int key) {
    for (int index = 0; (index = ctMDay1->IndexOfKey(QString::number(key))) > 0;)
        ctMDay1->RemoveItem(index);
    seriesTips_.clear();
    leaveShelf(key);
}
