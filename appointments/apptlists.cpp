#include "appointments/apptlists.h"

#include <QAbstractButton>
#include <QApplication>

#include "appointments/appointmentrows.h"
#include "platform/controls/completingcombo.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;

namespace {

struct ListFacts {
    const char* statement;  ///< Opens the list's table for a new row.
    const char* field;
    const char* question;
};

const ListFacts& factsOf(GrowingList list) {
    static constexpr ListFacts availability{"Select * from availability where 0=1", "avail",
                                            "Item is not on the list. Do you want to add it?"};
    static constexpr ListFacts events{"Select * from Events where 0=1", "event",
                                      "Event is not on the list. Do you want to add it?"};
    static constexpr ListFacts locations{"Select * from locations where 0=1", "location",
                                         "Location is not on the list. Do you want to add it?"};
    switch (list) {
        case GrowingList::Availability:
            return availability;
        case GrowingList::Events:
            return events;
        case GrowingList::Locations:
            break;
    }
    return locations;
}

}  // namespace

void LoadList(const char* statement, const QString& failure, const std::function<void(const Recordset&)>& addRow) {
    try {
        for (Recordset rows(QString::fromLatin1(statement), Session().Connection); !rows.Eof(); rows.MoveNext())
            addRow(rows);
    } catch (const db::DatabaseError& error) {
        TellError(failure, error);
    }
}

void LoadEvents(CompletingCombo& box) {
    LoadList(EventsStatement, QStringLiteral("Error loading events items. "),
             [&box](const Recordset& row) { box.AddItem(row["event"].text()); });
}

void LoadLocations(CompletingCombo& box) {
    LoadList(LocationsStatement, QStringLiteral("Error loading locations. "),
             [&box](const Recordset& row) { box.AddItem(row["location"].text()); });
}

void LoadRooms(CompletingCombo& box) {
    LoadList(RoomsStatement, QStringLiteral("Error loading room list. "), [&box](const Recordset& row) {
        if (const QString room = row["room"].text(); !room.isEmpty())
            box.AddItem(room, static_cast<int>(row["roomid"].integer()));
    });
}

bool ShowBookedRoom(CompletingCombo& box, int apptKey) {
    const int room = ApptRoomId(apptKey);
    if (room > 0) {
        if (box.FindItemData(room) < 0) {
            box.AddItem(QCoreApplication::translate("ShowBookedRoom", "(no longer on the list)"), room);
            box.setEnabled(true);
        }
        box.SetListIndex(box.FindItemData(room));
    }
    return room >= 0;
}

void OfferUnknownItem(CompletingCombo& box, GrowingList list) {
    const QString text = box.Text().trimmed();
    if (text.isEmpty() || box.FindExact(text) >= 0)
        return;
    box.AddItem(text);
    box.SetText(text);
    const ListFacts& facts = factsOf(list);
    if (MsgBox(QString::fromLatin1(facts.question), YesNoBox, QStringLiteral("Item Not Found")) != Answer::Yes)
        return;
    try {
        Recordset row(QString::fromLatin1(facts.statement), Session().Connection, db::Lock::Optimistic);
        row.AddNew();
        row.Set(facts.field, text);
        row.Update();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error adding item to database. "), error);
    }
}

bool PressesButton(Qt::FocusReason reason) {
    return reason == Qt::MouseFocusReason && qobject_cast<QAbstractButton*>(QApplication::focusWidget()) != nullptr;
}
