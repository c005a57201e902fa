#include "appointments/inplacechanges.h"

#include <functional>

#include "appointments/appointmentitem.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/appointments/appointmentfixture.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

/// One thing that a view and another desk can both change in a row.
struct Change {
    const char* column;
    const char* readAs;  ///< The column as the row has it before, as the database tells it.
    std::function<void(CalendarItem&)> here;
    const char* writtenAs;
    const char* elsewhere;  ///< What the other desk sets, as SQL.
    const char* elsewhereAs;
};

void PrintTo(const Change& change, std::ostream* out) {
    *out << change.column;
}

const Change changes[] = {
    {"nStartTime", "540", [](CalendarItem& item) { item.ItemStart = 555; }, "555", "570", "570"},
    {"nEndTime", "590", [](CalendarItem& item) { item.ItemEnd = 600; }, "600", "615", "615"},
    {"dapptdate", "2026-03-11 00:00:00", [](CalendarItem& item) { item.ItemDay = QDate(2026, 3, 12); },
     "2026-03-12 00:00:00", "'2026/03/13'", "2026-03-13 00:00:00"},
    {"cappttext", "Anna", [](CalendarItem& item) { item.ItemText = QStringLiteral("Here"); }, "Here", "'There'",
     "There"},
    {"CLOCATION", "Hall", [](CalendarItem& item) { item.ItemLocation = QStringLiteral("Here"); }, "Here", "'There'",
     "There"},
    {"ncolor", "16711681", [](CalendarItem& item) { item.ItemColor = 49152; }, "49152", "192", "192"},
    {"CapptNote", "Svc|Note", [](CalendarItem& item) { item.ItemNote = QStringLiteral("Svc|Here|10017|A-7"); },
     "Svc|Here", "'Svc|There'", "Svc|There"},
    {"patientid", "10017", [](CalendarItem& item) { item.ItemNote = QStringLiteral("Svc|Note|10018|A-7"); }, "10018",
     "'10019'", "10019"},
    {"PatientAcct", "A-7", [](CalendarItem& item) { item.ItemNote = QStringLiteral("Svc|Note|10017|A-8"); }, "A-8",
     "'A-9'", "A-9"},
};

}  // namespace

/// What a view writes back of an item that it changed, while another desk may have changed the row too.
class InPlaceChanges : public AppointmentFixture, public testing::WithParamInterface<Change> {
  protected:
    InPlaceChanges() {
        key_ = appointment({.end = 590, .text = QStringLiteral("Anna")});
        database.connection().Execute(Sql(
            "Update appointments Set ncolor = 16711681, CLOCATION = 'Hall', CapptNote = 'Svc|Note', PatientAcct = 'A-7' Where nkeyid = {}",
            key_));
        before_ = read();
    }

    [[nodiscard]] Recordset row() const {
        return {Sql("Select * from appointments Where nKeyId = {}", key_), Session().Connection, Lock::Optimistic};
    }
    [[nodiscard]] CalendarItem read() const { return ItemFromAppointment(row(), {}); }
    void save(const CalendarItem& item) const {
        Recordset present = row();
        SetInPlaceChanges(present, before_, item, read());
        present.Update();
    }
    void otherDeskSets(const Change& change, const char* value) {
        database.connection().Execute(Sql("Update appointments Set {} = {} Where nKeyId = {}",
                                          db::Raw{QLatin1String(change.column)}, db::Raw{QLatin1String(value)}, key_));
    }
    [[nodiscard]] QString stored(const Change& change) {
        return database.text(Sql("Select {} from appointments", db::Raw{QLatin1String(change.column)}));
    }

    int key_ = 0;
    CalendarItem before_;
};

TEST_P(InPlaceChanges, WhatWasChangedHereIsWritten) {
    ASSERT_EQ(stored(GetParam()), GetParam().readAs);
    CalendarItem item = before_;
    GetParam().here(item);

    save(item);

    EXPECT_EQ(stored(GetParam()), GetParam().writtenAs);
}

TEST_P(InPlaceChanges, WhatOnlyTheOtherDeskChangedStays) {
    otherDeskSets(GetParam(), GetParam().elsewhere);

    save(before_);

    EXPECT_EQ(stored(GetParam()), GetParam().elsewhereAs);
}

TEST_P(InPlaceChanges, WhatBothChangedIsAnErrorAndTheOtherDesksStands) {
    CalendarItem item = before_;
    GetParam().here(item);
    otherDeskSets(GetParam(), GetParam().elsewhere);

    try {
        save(item);
        ADD_FAILURE() << "nobody was told";
    } catch (const db::DatabaseError& error) {
        EXPECT_EQ(error.number, db::RowChanged);
    }

    EXPECT_EQ(stored(GetParam()), GetParam().elsewhereAs);
}

TEST_P(InPlaceChanges, TheSameChangeAtBothDesksIsNone) {
    CalendarItem item = before_;
    GetParam().here(item);
    otherDeskSets(GetParam(), QByteArray("'").append(GetParam().writtenAs).append("'"));

    save(item);

    EXPECT_EQ(stored(GetParam()), GetParam().writtenAs);
}

INSTANTIATE_TEST_SUITE_P(Columns, InPlaceChanges, testing::ValuesIn(changes),
                         [](const auto& test) { return std::string(test.param.column); });
