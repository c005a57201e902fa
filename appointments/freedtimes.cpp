#include "appointments/freedtimes.h"

#include <algorithm>
#include <utility>

#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/writeshape.h"

using db::Recordset;
using db::RowState;
using db::Sql;
using db::WriteShape;

namespace {

bool isSame(const QString& left, const char* right) {
    return left.compare(QLatin1String(right), Qt::CaseInsensitive) == 0;
}

// The table as the statement writes it: [appointments], dbo.Appointments.
QString tableOf(const QString& written) {
    QString name = written.section(u'.', -1).trimmed();
    if (name.startsWith(u'[') && name.endsWith(u']'))
        name = name.sliced(1, name.size() - 2);
    return name;
}

bool cancels(const WriteShape::Written& written, const std::vector<db::Value>& bound) {
    db::Value value;
    if (const auto* place = std::get_if<std::size_t>(&written); place != nullptr && *place < bound.size())
        value = bound[*place];
    else if (const auto* literal = std::get_if<db::Value>(&written))
        value = *literal;
    else
        return true;
    return value.integer() == ncolor::PatientCancelled || value.integer() == ncolor::TherapistCancelled;
}

bool mayFree(const WriteShape::Assignment& assignment, const std::vector<db::Value>& bound) {
    for (const char* column : {"dapptdate", "nStartTime", "nEndTime", "clinicianid"})
        if (isSame(assignment.column, column))
            return true;
    return isSame(assignment.column, "ncolor") && cancels(assignment.value, bound);
}

bool mayFreeTime(const WriteShape& shape, const std::vector<db::Value>& bound) {
    const QString table = tableOf(shape.table);
    if (isSame(table, "appointmentsevents"))
        return shape.verb == WriteShape::Verb::Delete;
    if (!isSame(table, "appointments"))
        return false;
    return shape.verb == WriteShape::Verb::Delete ||
           (shape.verb == WriteShape::Verb::Update &&
            std::any_of(shape.assignments.begin(), shape.assignments.end(),
                        [&](const WriteShape::Assignment& assignment) { return mayFree(assignment, bound); }));
}

QString textIn(const RowState& row, const char* column) {
    const db::Value* value = row.Find(QString::fromLatin1(column));
    return value == nullptr ? QString() : value->text();
}

qint64 numberIn(const RowState& row, const char* column) {
    const db::Value* value = row.Find(QString::fromLatin1(column));
    return value == nullptr ? 0 : value->integer();
}

// A cancelled appointment and a slot that waits for a patient hold no time.
bool heldTime(const RowState& row) {
    const qint64 code = numberIn(row, "ncolor");
    return code != ncolor::PatientCancelled && code != ncolor::TherapistCancelled &&
           numberIn(row, "appttype") != ApptTypeSlot && numberIn(row, "nStartTime") < numberIn(row, "nEndTime");
}

FreedTime timeOf(const RowState& row) {
    const db::Value* date = row.Find(QStringLiteral("dapptdate"));
    return {textIn(row, "clinicianid"),
            date == nullptr ? QDate() : date->date(),
            {static_cast<int>(numberIn(row, "nStartTime")), static_cast<int>(numberIn(row, "nEndTime"))},
            textIn(row, "patientid")};
}

}  // namespace

FreedTimes::FreedTimes(db::Connection& connection, std::function<void()> changed)
    : connection_(connection), changed_(std::move(changed)) {
    connection_.Observe([this](const db::Write& write) { see(write); }, db::Told::RowsBefore, mayFreeTime);
}

FreedTimes::~FreedTimes() {
    connection_.Observe({});
}

void FreedTimes::see(const db::Write& write) {
    const QString table = tableOf(write.table);
    if (isSame(table, "appointmentsevents")) {
        for (const db::RowChange& change : write.changes)
            attendances_.insert(numberIn(*change.before, "nkeyid"), textIn(*change.before, "clinicianid"));
    } else if (isSame(table, "appointments")) {
        std::for_each(write.changes.begin(), write.changes.end(),
                      [this](const db::RowChange& change) { noteRow(change); });
    } else {
        return;
    }
    changed_();
}

void FreedTimes::noteRow(const db::RowChange& change) {
    if (!change.before || !heldTime(*change.before))
        return;
    const FreedTime freed = timeOf(*change.before);
    if (isSame(freed.provider, EventClinicianId))
        activities_.insert(numberIn(*change.before, "nkeyid"), freed);
    else
        noted_.push_back(freed);
}

void FreedTimes::Note(const FreedTime& freed) {
    noted_.push_back(freed);
    changed_();
}

// Who attended an activity is known by those who attend no longer and by those who still do. Nothing is given up here,
// because a read may fail.
std::vector<FreedTime> FreedTimes::attended() const {
    auto activities = activities_;
    auto attendances = attendances_;
    std::vector<FreedTime> freed;
    for (const qint64 key : activities.uniqueKeys())
        for (Recordset row(Sql("Select clinicianid From appointmentsevents Where nkeyid = {}", key), connection_);
             !row.Eof(); row.MoveNext())
            attendances.insert(key, row["clinicianid"].text());
    for (const qint64 key : attendances.uniqueKeys()) {
        if (activities.contains(key))
            continue;
        const Recordset row(Sql("Select dapptdate, nStartTime, nEndTime From appointments Where nkeyid = {}", key),
                            connection_);
        if (!row.Eof())
            activities.insert(
                key, {{},
                      row["dapptdate"].date(),
                      {static_cast<int>(row["nStartTime"].integer()), static_cast<int>(row["nEndTime"].integer())},
                      {}});
    }
    for (auto activity = activities.cbegin(); activity != activities.cend(); ++activity)
        for (const QString& provider : attendances.values(activity.key())) {
            freed.push_back(*activity);
            freed.back().provider = provider;
        }
    return freed;
}

void FreedTimes::Forget() {
    noted_.clear();
    activities_.clear();
    attendances_.clear();
}

std::vector<FreedTime> FreedTimes::Take() {
    const std::vector<FreedTime> together = attended();
    std::vector<FreedTime> all = noted_;
    all.insert(all.end(), together.begin(), together.end());
    Forget();
    std::vector<FreedTime> once;
    for (const FreedTime& freed : all) {
        const bool known = std::any_of(once.begin(), once.end(), [&](const FreedTime& other) {
            return other.date == freed.date && other.time == freed.time &&
                   other.provider.compare(freed.provider, Qt::CaseInsensitive) == 0;
        });
        if (freed.date.isValid() && !known)
            once.push_back(freed);
    }
    return once;
}
