#include "rooms/slotnames.h"

#include "data/namedpatients.h"
#include "platform/database/error.h"
#include "session/session.h"

std::vector<bool> SlotsOfPatients(std::span<const CalendarItem> slotItems,
                                  const std::function<qint64(const QString&)>& ownerOf) {
    std::vector<qint64> owners;
    owners.reserve(slotItems.size());
    for (const CalendarItem& slot : slotItems)
        owners.push_back(ownerOf(slot.ItemKey));
    QSet<qint64> others;
    db::Ignoring([&] { others = KeysWithoutPatient(Session().Connection, {owners.begin(), owners.end()}); });
    std::vector<bool> named;
    named.reserve(owners.size());
    for (const qint64 owner : owners)
        named.push_back(owner > 0 && !others.contains(owner));
    return named;
}
