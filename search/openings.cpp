#include "search/openings.h"

#include <algorithm>
#include <tuple>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/recurrence.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "search/attendance.h"
#include "session/session.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

// What is not found in the first stretch is far away, and is read in longer pieces.
constexpr int LongestStretch = 28;

/// The ids as the list of In takes them: "'A','B'".
QString idsOf(const std::vector<BookedProvider>& providers) {
    QStringList ids;
    for (const BookedProvider& provider : providers)
        ids << Sql("'{}'", provider.id);
    return ids.join(u',');
}

QString bookingsStatement(const std::vector<BookedProvider>& providers, QDate from, QDate until) {
    return Sql(
        "Select clinicianid, dapptdate, nstarttime, nendtime, ncolor from appointments Where dapptdate >= '{}' And dapptdate <= '{}' And clinicianid In ({}) And (appttype Is Null Or appttype <> {})",
        from, until, Raw{idsOf(providers)}, ApptTypeSlot);
}

QString patientStatement(const QString& patientId, QDate from, QDate until) {
    return Sql(
        "Select dapptdate, nstarttime, nendtime, ncolor from appointments Where patientid = '{}' And dapptdate >= '{}' And dapptdate <= '{}' And (appttype Is Null Or appttype <> {})",
        patientId, from, until, ApptTypeSlot);
}

/// The sessions of the groups in which the patient is.
QString groupsStatement(const QString& patientId, QDate from, QDate until) {
    return Sql(
        "Select dapptdate, nstarttime, nendtime, ncolor from AppointmentsGroup Inner Join appointments On AppointmentsGroup.nKeyId = appointments.nkeyid Where AppointmentsGroup.PatientId = '{}' And dapptdate >= '{}' And dapptdate <= '{}'",
        patientId, from, until);
}

bool isCancelled(const Recordset& row) {
    const qint64 code = row["ncolor"].integer();
    return code == ncolor::PatientCancelled || code == ncolor::TherapistCancelled;
}

MinuteSpan spanOf(const Recordset& row) {
    return {row["nstarttime"].real(), row["nendtime"].real()};
}

const MinuteSpan* firstInTheWay(MinuteSpan proposed, const std::vector<MinuteSpan>& booked) {
    const auto found =
        std::find_if(booked.begin(), booked.end(), [&](MinuteSpan each) { return Overlaps(proposed, each); });
    return found == booked.end() ? nullptr : &*found;
}

int onGrid(int minute, int grid) {
    return (minute + grid - 1) / grid * grid;
}

}  // namespace

std::vector<int> FreeStarts(MinuteSpan window, const std::vector<MinuteSpan>& booked, int minutes, int grid) {
    std::vector<int> starts;
    const auto fits = [&](int start) {
        return start + minutes <= window.end &&
               firstInTheWay({double(start), double(start + minutes)}, booked) == nullptr;
    };
    int edge = static_cast<int>(window.start);
    while (edge + minutes <= window.end) {
        // A gap before the next line of the grid that holds the time itself is not given away.
        const int rounded = onGrid(edge, grid);
        const bool onTheGrid = rounded < edge + minutes && fits(rounded);
        if (onTheGrid || fits(edge)) {
            starts.push_back(onTheGrid ? rounded : edge);
            edge = starts.back() + minutes;
            continue;
        }
        // Whatever begins before the end of what is in the way overlaps it too.
        const MinuteSpan* inTheWay = firstInTheWay({double(edge), double(edge + minutes)}, booked);
        edge = std::max(edge + 1, static_cast<int>(inTheWay->end));
    }
    return starts;
}

OpeningSearch::OpeningSearch(OpeningWish wish, const QDateTime& now, int grid)
    : wish_(std::move(wish)),
      now_(now),
      grid_(grid),
      first_(std::max(wish_.from, now.date())),
      last_(first_.addDays(Days)),
      next_(first_),
      stretch_(FirstStretch),
      holidays_(Session().Connection),
      hours_(WorkingHours::Read()) {}

MinuteSpan OpeningSearch::windowOf(const QString& provider, QDate date) const {
    const MinuteRange work = hours_.On(provider, date).value_or(MinuteRange());
    MinuteSpan window{std::max({0.0, double(work.start), wish_.hours.start}),
                      std::min({double(MinutesPerDay), double(work.end), wish_.hours.end})};
    if (date == now_.date()) {
        const int second = now_.time().msecsSinceStartOfDay() / 1000;
        const int nextMinute = (second + 59) / 60;
        window.start = std::max(window.start, double(nextMinute));
    }
    return window;
}

std::map<OpeningSearch::Day, OpeningSearch::Booked> OpeningSearch::readBookings(QDate until) const {
    std::map<Day, Booked> booked;
    for (Recordset rows(bookingsStatement(wish_.providers, next_, until), Session().Connection); !rows.Eof();
         rows.MoveNext()) {
        Booked& day = booked[{rows["clinicianid"].text().toLower(), rows["dapptdate"].date()}];
        (isCancelled(rows) ? day.cancelled : day.busy).push_back(spanOf(rows));
    }
    for (const Attendance& each : AttendancesBetween(next_, until))
        booked[{each.providerId.toLower(), each.date}].busy.push_back({double(each.start), double(each.end)});
    return booked;
}

std::map<QDate, std::vector<MinuteSpan>> OpeningSearch::readPatient(QDate until) const {
    std::map<QDate, std::vector<MinuteSpan>> busy;
    if (wish_.patientId.isEmpty())
        return busy;
    for (const auto& statement : {patientStatement, groupsStatement})
        for (Recordset rows(statement(wish_.patientId, next_, until), Session().Connection); !rows.Eof();
             rows.MoveNext())
            if (!isCancelled(rows))
                busy[rows["dapptdate"].date()].push_back(spanOf(rows));
    return busy;
}

QStringList OpeningSearch::statements(QDate until) const {
    QStringList read{bookingsStatement(wish_.providers, next_, until), AttendancesStatement(next_, until)};
    if (!wish_.patientId.isEmpty())
        read << patientStatement(wish_.patientId, next_, until) << groupsStatement(wish_.patientId, next_, until);
    return read;
}

std::vector<Opening> OpeningSearch::Next() {
    std::vector<Opening> found;
    if (Ended() || wish_.providers.empty() || wish_.minutes < 1) {
        next_ = last_.addDays(1);
        return found;
    }
    const QDate until = std::min(next_.addDays(stretch_ - 1), last_);
    const db::ReadTogether together(Session().Connection, statements(until));
    const std::map<Day, Booked> bookings = readBookings(until);
    const std::map<QDate, std::vector<MinuteSpan>> ofPatient = readPatient(until);
    for (QDate date = next_; date <= until; date = date.addDays(1)) {
        if (!wish_.weekdays.at(static_cast<std::size_t>(WeekdayNumber(date)) - 1))
            continue;
        const std::optional<QString> holiday = holidays_.On(date);
        if (holiday && !wish_.holidays) {
            ++holidaysLeftOut_;
            continue;
        }
        const std::size_t before = found.size();
        for (const BookedProvider& provider : wish_.providers) {
            const QString id = provider.id.toLower();
            const auto stored = bookings.find({id, date});
            Booked booked = stored == bookings.end() ? Booked() : stored->second;
            if (const auto own = ofPatient.find(date); own != ofPatient.end())
                booked.busy.insert(booked.busy.end(), own->second.begin(), own->second.end());
            for (const int start : FreeStarts(windowOf(id, date), booked.busy, wish_.minutes, grid_)) {
                const int end = start + wish_.minutes;
                const bool cancelled = firstInTheWay({double(start), double(end)}, booked.cancelled) != nullptr;
                found.push_back({date, start, end, provider, holiday.value_or(QString()), cancelled});
            }
        }
        std::stable_sort(found.begin() + static_cast<std::ptrdiff_t>(before), found.end(),
                         [](const Opening& a, const Opening& b) { return a.start < b.start; });
    }
    next_ = until.addDays(1);
    stretch_ = std::min(stretch_ * 2, LongestStretch);
    return found;
}
