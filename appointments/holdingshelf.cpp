#include "appointments/holdingshelf.h"

#include "data/codes.h"
#include "data/minutetime.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/formheading.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

/// Where the user last saw an appointment of the shelf.
ShownAppointment placeSeen(const Recordset& row) {
    ShownAppointment seen;
    seen.stored.ItemDay = row["ShelfDate"].date();
    seen.stored.ItemStart = static_cast<int>(row["ShelfStart"].integer());
    seen.stored.ItemEnd = static_cast<int>(row["ShelfEnd"].integer());
    seen.clinicianId = row["ShelfProvider"].text();
    return seen;
}

void rememberPlace(int shelfId, const ShownAppointment& row) {
    Session().Connection.Execute(Sql(
        "Update HoldingShelf Set ApptDate = '{}', StartTime = {}, EndTime = {}, ClinicianId = '{}' Where ShelfId = {}",
        SqlDate(row.stored.ItemDay), row.stored.ItemStart, row.stored.ItemEnd, row.clinicianId, shelfId));
}

QString whenOf(const ShownAppointment& row) {
    return WeekdayText(row.stored.ItemDay, row.stored.ItemStart);
}

QString deletedNews(const ShownAppointment& seen) {
    return QStringLiteral("The appointment of %1 was deleted, and was taken off the holding shelf.").arg(whenOf(seen));
}

QString movedNews(const ShownAppointment& seen, const ShelvedAppointment& now) {
    return QStringLiteral(
               "The appointment of %1 on the holding shelf was moved by another user. It is on %2 with %3 now.")
        .arg(whenOf(seen), whenOf(now.row), now.provider);
}

ShelvedAppointment shelvedFrom(const Recordset& row) {
    ShelvedAppointment shelved;
    shelved.key = static_cast<int>(row["ShelfKey"].integer());
    shelved.row = RowOf(row, ItemFromAppointment(row, UnpaintedItems()));
    const QString name = row["ShelfProviderName"].text();
    if (shelved.row.clinicianId == QLatin1String(EventClinicianId))
        shelved.provider = QStringLiteral("its attendees");
    else
        shelved.provider = name.isEmpty() ? shelved.row.clinicianId : name;
    return shelved;
}

}  // namespace

QString ShelvedAppointment::When() const {
    return QStringLiteral("%1, %2").arg(NamedDayText(row.stored.ItemDay),
                                        MinutesToTimeText(row.stored.ItemStart, Session().MilitaryTime));
}

QString ShelvedAppointment::Length() const {
    return MinutesText(row.stored.ItemEnd - row.stored.ItemStart);
}

QString HoldingShelfStatement() {
    return Sql(
        "Select HoldingShelf.ShelfId, HoldingShelf.nkeyid As ShelfKey, HoldingShelf.ApptDate As ShelfDate, HoldingShelf.StartTime As ShelfStart, HoldingShelf.EndTime As ShelfEnd, HoldingShelf.ClinicianId As ShelfProvider, provider_info.prov_lastname As ShelfProviderName, appointments.* From HoldingShelf Left Join appointments On appointments.nkeyid = HoldingShelf.nkeyid Left Join provider_info On provider_info.id = appointments.clinicianid Where HoldingShelf.UserId = '{}' Order By HoldingShelf.ShelfId",
        Session().UID);
}

HoldingShelf ReadHoldingShelf() {
    HoldingShelf shelf;
    std::vector<int> gone;
    std::vector<std::pair<int, ShownAppointment>> moved;
    for (Recordset rows(HoldingShelfStatement(), Session().Connection); !rows.Eof(); rows.MoveNext()) {
        const ShownAppointment seen = placeSeen(rows);
        const int shelfId = static_cast<int>(rows["ShelfId"].integer());
        if (rows["nkeyid"].isNull()) {
            gone.push_back(shelfId);
            shelf.news << deletedNews(seen);
            continue;
        }
        shelf.appointments.push_back(shelvedFrom(rows));
        const ShownAppointment& now = shelf.appointments.back().row;
        if (now.StandsAs(seen))
            continue;
        moved.emplace_back(shelfId, now);
        // Users know what they did themselves.
        if (rows["lastmodifieduid"].text().compare(Session().UID, Qt::CaseInsensitive) != 0)
            shelf.news << movedNews(seen, shelf.appointments.back());
    }
    for (const int shelfId : gone)
        Session().Connection.Execute(Sql("Delete From HoldingShelf Where ShelfId = {}", shelfId));
    for (const auto& [shelfId, row] : moved)
        rememberPlace(shelfId, row);
    return shelf;
}

WriteOutcome PutOnShelf(const ShownAppointment& row) {
    return AttemptWrite([&](WriteOutcome&) {
        const int key = row.stored.ItemKey.toInt();
        Recordset shelved(Sql("Select * From HoldingShelf Where UserId = '{}' And nkeyid = {}", Session().UID, key),
                          Session().Connection, db::Lock::Optimistic);
        if (!shelved.Eof())
            return;
        shelved.AddNew();
        shelved.Set("UserId", Session().UID);
        shelved.Set("nkeyid", key);
        shelved.Set("PlacedAt", Now());
        shelved.Set("ApptDate", row.stored.ItemDay);
        shelved.Set("StartTime", row.stored.ItemStart);
        shelved.Set("EndTime", row.stored.ItemEnd);
        shelved.Set("ClinicianId", row.clinicianId);
        shelved.Update();
    });
}

WriteOutcome TakeOffShelf(int key) {
    return AttemptWrite([&](WriteOutcome&) {
        Session().Connection.Execute(
            Sql("Delete From HoldingShelf Where UserId = '{}' And nkeyid = {}", Session().UID, key));
    });
}

QString WeekdayText(QDate date, int start) {
    return QStringLiteral("%1 at %2").arg(NamedDayText(date), MinutesToTimeText(start, Session().MilitaryTime));
}

QString MinutesText(int minutes) {
    return minutes == 1 ? QStringLiteral("1 minute") : QStringLiteral("%1 minutes").arg(minutes);
}
