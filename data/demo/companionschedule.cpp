#include "data/codes.h"
#include "data/demo/companion.h"
#include "data/demo/tablewriter.h"

#include <initializer_list>
#include <QTime>

namespace demo {

namespace {

// appt_status
constexpr int NotSeen = 1, Cancelled = 2, MissedThere = 3, Arrived = 4, Seen = 5;

int apptStatus(int color, Random& random) {
    switch (color) {
        case ncolor::Kept:
            return Seen;
        case ncolor::CheckedIn:
            return Arrived;
        case ncolor::Missed:
            return MissedThere;
        case ncolor::PatientCancelled:
        case ncolor::TherapistCancelled:
            return Cancelled;
        default:
            return random.chance(50) ? 0 : NotSeen;
    }
}

QDateTime at(QDate date, int minutes) {
    return QDateTime(date, QTime(0, 0), Qt::UTC).addSecs(qint64{60} * minutes);
}

class TransactionRows {
  public:
    TransactionRows(const Practice& practice, const Companion& keys, db::Connection& companion)
        : keys_(keys),
          today_(practice.options.today),
          random_(practice.options.seed, "transactions"),
          rows_(companion, "ClientTransactions",
                {"ClntId",
                 "TranId",
                 "ProvId",
                 "ProvIdAdditional",
                 "CtrnDate",
                 "CtrnTime",
                 "CtrnDuration",
                 "CtrnStatus",
                 "CtrnNotes",
                 "RecurTranId",
                 "CtrnCallStatus",
                 "appt_status",
                 "SVSessionID",
                 "CTRNDiagnosisPointer",
                 "CTRNDiagnosisPointerS",
                 "ClaimSubmStatus",
                 "isICDBlock12",
                 "DateCreated",
                 "UserIDCreated",
                 "LastModifiedDate",
                 "UserIdLastModified"}) {}

    /// Adds nothing for a booking that is not paired or was over a year ago.
    void add(const Booking& booking) {
        if (booking.kind != BookingKind::Patient || booking.date < today_.addDays(-366))
            return;
        const int client = keys_.clients[static_cast<std::size_t>(booking.patient)];
        const int provider = keys_.providers[static_cast<std::size_t>(booking.provider)];
        if (client == 0 || provider == 0)
            return;
        const bool kept = booking.color == ncolor::Kept;
        const bool charged = kept && (booking.date < today_.addDays(-3) || random_.chance(60));
        addAppointment(booking, client, provider, charged);
        if (charged && random_.chance(15))
            addPayment(booking, client, provider);
    }

    void finish() { rows_.finish(); }

  private:
    void addAppointment(const Booking& booking, int client, int provider, bool charged) {
        const int second = random_.chance(3) ? random_.pick(keys_.providers) : 0;
        const bool repeats = booking.series >= 0 && booking.series % 3 == 0;
        const bool linked = booking.session > 0 && booking.color == ncolor::Kept;
        const QDate made = qMin(today_, booking.date).addDays(-random_.between(0, 20));
        rows_.add({client,
                   keys_.services[static_cast<std::size_t>(booking.service)],
                   provider,
                   second > 0 ? db::Value(second) : db::Value(),
                   booking.date,
                   at(booking.date, booking.start),
                   booking.end - booking.start,
                   charged ? "C" : "S",
                   booking.note,
                   repeats ? booking.series + 1 : 0,
                   booking.callStatus,
                   apptStatus(booking.color, random_),
                   linked ? db::Value(booking.session) : db::Value(),
                   1,
                   "A",
                   0,
                   1,
                   made,
                   provider,
                   made,
                   provider});
    }

    // A payment is a row without a time and a length.
    void addPayment(const Booking& booking, int client, int provider) {
        rows_.add({client,
                   keys_.payment,
                   provider,
                   nullptr,
                   booking.date,
                   at(booking.date, 0),
                   0,
                   "C",
                   "Copay, check",
                   0,
                   "",
                   0,
                   nullptr,
                   1,
                   "A",
                   0,
                   1,
                   booking.date,
                   provider,
                   booking.date,
                   provider});
    }

    const Companion& keys_;
    QDate today_;
    Random random_;
    BatchWriter rows_;
};

class EventRows {
  public:
    EventRows(const Companion& keys, QDate today, db::Connection& companion)
        : keys_(keys),
          today_(today),
          events_(companion, "CalendarEvents",
                  {"CEveName", "CEveDate", "CEveEndDate", "CEveTime", "CEveDuration", "CEveAllDayInd",
                   "CEveAllProvidersInd", "CEveReminderInd", "CEveReminderLeadMinutes", "RecrId", "DateCreated",
                   "UserIDCreated"}),
          attending_(companion, "CalendarProviderEvents", {"CEveId", "ProvId"}) {}

    struct Event {
        const char* name;
        QDate first;
        QDate last;  ///< Invalid for a series without end.
        Hours hours;
        bool allDay = false;
        bool everybody = false;
        bool reminder = false;
        int series = 0;
    };

    /// `attending` holds indexes of providers.
    void add(const Event& event, std::initializer_list<std::size_t> attending) {
        events_.add({event.name, event.first, event.last, at(event.first, event.hours.start),
                     event.hours.end - event.hours.start, event.allDay ? 1 : 0, event.everybody ? 1 : 0,
                     event.reminder ? 1 : 0, event.reminder ? 15 : 0, event.series, today_.addDays(-30),
                     keys_.providers[0]});
        const int key = events_.key();
        for (const std::size_t provider : attending)
            attending_.add({key, keys_.providers[provider]});
    }

  private:
    const Companion& keys_;
    QDate today_;
    TableWriter events_;
    TableWriter attending_;
};

void writeSingleEvents(QDate today, EventRows& events) {
    events.add({"Team huddle", today, today, {510, 525}, false, true}, {0});
    events.add({"Call with Blue Harbor Health", today, today, {735, 765}}, {0, 3});
    events.add({"License renewal week", today.addDays(-1), today.addDays(3), {0, 0}, true}, {1});
    events.add({"Computer upgrade", today.addDays(1), today.addDays(1), {1020, 1080}, false, true}, {0});
    events.add({"Site visit", today.addDays(4), today.addDays(4), {540, 720}, false, false, true}, {0, 1, 2});
    events.add({"Flu shots", today.addDays(-6), today.addDays(-6), {600, 660}}, {5});
}

// A series of each pattern, the monthly and yearly ones by day and by numbered weekday.
void writeSeries(const Practice& practice, const Companion& keys, db::Connection& companion, EventRows& events) {
    const QDate today = practice.options.today;
    const QDate start = today.addDays(-90);
    TableWriter daily(companion, "RecurringEvents", {"RecrPattern", "RecrDailyDays", "RecrDailyWeekdayInd"});
    TableWriter weekly(companion, "RecurringEvents",
                       {"RecrPattern", "RecrWeeklyWeeks", "RecrWeeklyMonInd", "RecrWeeklyTueInd", "RecrWeeklyWedInd",
                        "RecrWeeklyThuInd", "RecrWeeklyFriInd"});
    TableWriter monthly(companion, "RecurringEvents",
                        {"RecrPattern", "RecrMonthlyScaleInd", "RecrMonthlyDay", "RecrMonthlyMonths",
                         "RecrMonthlyScale", "RecrMonthlyWeekday", "RecrMaxEvents"});
    TableWriter yearly(companion, "RecurringEvents",
                       {"RecrPattern", "RecrYearlyScaleInd", "RecrYearlyDay", "RecrYearlyMonth", "RecrYearlyScale",
                        "RecrYearlyWeekday"});
    TableWriter exceptions(companion, "RecurringEventExceptions", {"RecrId", "RExcDate", "ProvId"});

    // The key must be read before another row is added.
    daily.add({0, 1, 1});
    const int weekdays = daily.key();
    events.add({"Open the office", start, {}, {450, 465}, false, true, false, weekdays}, {0});
    exceptions.add({weekdays, today.addDays(1), nullptr});
    daily.add({0, 3, 0});
    events.add({"Water the plants", start, today.addDays(120), {1050, 1060}, false, false, false, daily.key()}, {1});
    weekly.add({1, 1, 0, 1, 0, 1, 0});
    const int billing = weekly.key();
    events.add({"Billing hour", start, {}, {780, 840}, false, false, false, billing}, {2, 3});
    exceptions.add({billing, today.addDays(7), keys.providers[2]});
    weekly.add({1, 2, 1, 0, 1, 0, 1});
    events.add({"Supervision", start, today.addDays(200), {960, 1005}, false, false, true, weekly.key()}, {0, 1});
    monthly.add({2, 0, 15, 1, 1, 2, nullptr});
    events.add({"Statements go out", start, {}, {600, 630}, false, true, false, monthly.key()}, {0});
    monthly.add({2, 1, 1, 1, 2, 3, 12});
    events.add({"Peer review", start, {}, {720, 780}, false, false, false, monthly.key()}, {0, 4});
    monthly.add({2, 1, 1, 1, 5, 6, nullptr});
    events.add({"Supply order", start, {}, {900, 915}, false, false, false, monthly.key()}, {5});
    yearly.add({3, 0, today.addDays(9).day(), today.addDays(9).month(), 1, 2});
    events.add({"Founders' Day", today.addDays(9 - 365), {}, {0, 0}, true, true, false, yearly.key()}, {0});
    yearly.add({3, 1, 1, 10, 2, 2});
    events.add({"Annual audit", start.addYears(-1), {}, {540, 1020}, false, false, false, yearly.key()}, {0, 1});
}

}  // namespace

void WriteCompanionSchedule(const Practice& practice, const Companion& keys, const std::vector<Booking>& bookings,
                            db::Connection& companion) {
    TransactionRows transactions(practice, keys, companion);
    for (const Booking& booking : bookings)
        transactions.add(booking);
    transactions.finish();
    EventRows events(keys, practice.options.today, companion);
    writeSingleEvents(practice.options.today, events);
    writeSeries(practice, keys, companion, events);
}

}  // namespace demo
