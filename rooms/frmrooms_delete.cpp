#include "platform/calendar/ctmday.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "rooms/frmrooms.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"

void frmrooms::deleteappt() {
    const RoomMeeting* selected = meetingAt(ctDays1->SelectedItem());
    if (selected == nullptr || !MayDeleteMeetings())
        return;
    const int key = selected->key;
    ctDays1->CommitEdit();
    if (MsgBox(QStringLiteral("Are you sure you want to delete this meeting?"), YesNoBox,
               QStringLiteral("Delete Meeting")) != Answer::Yes)
        return;
    try {
        db::Recordset row(db::Sql("Select * from roomschedule Where nKeyId = {}", key), Session().Connection,
                          db::Lock::Optimistic);
        if (!row.Eof())
            row.Delete();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting room schedule. "), error);
        return;
    }
    ctDays1->RemoveItem(ctDays1->IndexOfKey(QString::number(key)));
    rows_.remove(QString::number(key));
}
