#include <QAbstractButton>
#include <QApplication>

#include "appointments/frmnore.h"
#include "platform/controls/completingcombo.h"
#include "platform/database/recordset.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

/// A list that grows by what is typed in its combo.
struct GrowingList {
    const char* statement;  ///< Opens the list's table for a new row.
    const char* field;
    const char* question;
};

void addToList(const GrowingList& list, const QString& text) {
    try {
        db::Recordset row(QString::fromLatin1(list.statement), Session().Connection, db::Lock::Optimistic);
        row.AddNew();
        row.Set(list.field, text);
        row.Update();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error adding the item to the list. It is saved with the appointment. "), error);
    }
}

void offerUnknownItem(CompletingCombo& box, const GrowingList& list) {
    const QString text = box.Text().trimmed();
    if (text.isEmpty() || box.FindExact(text) >= 0)
        return;
    box.AddItem(text);
    box.SetText(text);
    if (MsgBox(QString::fromLatin1(list.question), YesNoBox, QStringLiteral("Item Not Found")) == Answer::Yes)
        addToList(list, text);
}

}  // namespace

// A press of the mouse on a button leaves the box, and a question would swallow that press: the question then waits for
// the next field, at the latest for OK.
void frmnore::leaveList(Qt::FocusReason reason) {
    if (reason != Qt::MouseFocusReason || qobject_cast<QAbstractButton*>(QApplication::focusWidget()) == nullptr)
        offerUnknownItems();
}

void frmnore::offerUnknownItems() {
    if (availOrEventTyped_) {
        availOrEventTyped_ = false;
        offerUnknownItem(*cboavail, {"Select * from availability where 0=1", "avail",
                                     "Item is not on the list. Do you want to add it?"});
        offerUnknownItem(*cboevents, {"Select * from Events where 0=1", "event",
                                      "Event is not on the list. Do you want to add it?"});
    }
    if (locationTyped_) {
        locationTyped_ = false;
        offerUnknownItem(*cbolocation, {"Select * from locations where 0=1", "location",
                                        "Location is not on the list. Do you want to add it?"});
    }
}
