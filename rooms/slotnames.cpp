#include "rooms/slotnames.h"

#include "data/namedpatients.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/error.h"
#include "session/session.h"

void HideSlotNames(ctMDay& rooms, const std::vector<qint64>& owners, bool hidden) {
    QSet<qint64> others;
    if (hidden)
        db::Ignoring([&] { others = KeysWithoutPatient(Session().Connection, {owners.begin(), owners.end()}); });
    for (std::size_t i = 0; i < owners.size(); ++i) {
        const bool hides = hidden && owners[i] > 0 && !others.contains(owners[i]);
        rooms.Item(static_cast<int>(i) + 1).ItemTextColor = hides ? TextColor::SameAsBackground : TextColor::Normal;
    }
}
