#include "views/inplacechanges.h"

#include "data/pipefields.h"
#include "platform/database/rowmerge.h"

namespace {

constexpr int MostTextCharacters = 100;

// The columns that a save writes, as it writes them.
db::RowState stateOf(const CalendarItem& item) {
    return {{"nStartTime", item.ItemStart},
            {"nEndTime", item.ItemEnd},
            {"dapptdate", item.ItemDay},
            {"cappttext", FirstCharacters(item.ItemText)},
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

QString FirstCharacters(const QString& text) {
    QString first = text.left(MostTextCharacters);
    if (!first.isEmpty() && first.back().isHighSurrogate())
        first.chop(1);
    return first;
}

void SetInPlaceChanges(db::Recordset& row, const CalendarItem& before, const CalendarItem& item,
                       const CalendarItem& now) {
    SetChanges(row, stateOf(before), stateOf(item), stateOf(now));
}
