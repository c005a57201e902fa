#include "views/inplacechanges.h"

#include "data/pipefields.h"

using db::Value;

namespace {

constexpr int MostTextCharacters = 100;

struct SavedField {
    const char* column;
    Value (*of)(const CalendarItem& item);
};

constexpr SavedField savedFields[] = {
    {"nStartTime", [](const CalendarItem& item) { return Value(item.ItemStart); }},
    {"nEndTime", [](const CalendarItem& item) { return Value(item.ItemEnd); }},
    {"dapptdate", [](const CalendarItem& item) { return Value(item.ItemDay); }},
    {"cappttext", [](const CalendarItem& item) { return Value(FirstCharacters(item.ItemText)); }},
    {"CLOCATION", [](const CalendarItem& item) { return Value(item.ItemLocation); }},
    {"BLOCATEICO", [](const CalendarItem& item) { return Value(item.ItemLocationIcon); }},
    {"BremindIco", [](const CalendarItem& item) { return Value(item.ItemReminderIcon); }},
    {"BTentIco", [](const CalendarItem& item) { return Value(item.ItemTentativeIcon); }},
    {"ncolor", [](const CalendarItem& item) { return Value(item.ItemColor); }},
    {"CapptNote", [](const CalendarItem& item) { return Value(item.ItemNote.section(QLatin1Char('|'), 0, 1)); }},
    {"patientid", [](const CalendarItem& item) { return Value(GetPipeField(item.ItemNote, 3)); }},
    {"PatientAcct", [](const CalendarItem& item) { return Value(GetPipeField(item.ItemNote, 4)); }},
};

}  // namespace

QString FirstCharacters(const QString& text) {
    QString first = text.left(MostTextCharacters);
    if (!first.isEmpty() && first.back().isHighSurrogate())
        first.chop(1);
    return first;
}

void SetInPlaceChanges(db::Recordset& row, const CalendarItem& before, const CalendarItem& item,
                       const CalendarItem& now) {
    for (const SavedField& field : savedFields) {
        const Value wanted = field.of(item);
        const Value read = field.of(before);
        const Value present = field.of(now);
        if (wanted == read)
            continue;
        if (present != read && present != wanted)
            throw db::RowChangedError();
        row.Set(field.column, wanted);
    }
}
