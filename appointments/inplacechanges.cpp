#include "appointments/inplacechanges.h"

#include "data/pipefields.h"
#include "platform/database/rowmerge.h"
#include "platform/text/plaintext.h"

namespace {

db::RowState stateOf(const CalendarItem& item) {
    return {{"nStartTime", item.ItemStart},
            {"nEndTime", item.ItemEnd},
            {"dapptdate", item.ItemDay},
            {"cappttext", FirstCharacters(item.ItemText, LongestApptText)},
            {"CLOCATION", item.ItemLocation},
            {"BLOCATEICO", item.ItemLocationIcon},
            {"BremindIco", item.ItemReminderIcon},
            {"BTentIco", item.ItemTentativeIcon},
            {"ncolor", item.ItemColor},
            {"CapptNote", item.ItemNote.section(QLatin1Char('|'), 0, 1)},
            {"patientid", GetPipeField(item.ItemNote, 3)},
            {"PatientAcct", GetPipeField(item.ItemNote, 4)}};
}

}  // namespace

void SetInPlaceChanges(db::Recordset& row, const CalendarItem& before, const CalendarItem& item,
                       const CalendarItem& now) {
    db::SetChanges(row, stateOf(before), stateOf(item), stateOf(now));
}
