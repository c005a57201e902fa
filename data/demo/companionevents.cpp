#include "data/demo/companion.h"
#include "data/demo/tablewriter.h"

#include <algorithm>
#include <initializer_list>

namespace demo {

namespace {

/// Stands for the provider who is in no pair, where an index of a provider is asked for.
constexpr std::size_t Quintana = 1000000;

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

    /// `attending` holds indexes of providers, or Quintana.
    void add(const Event& event, std::initializer_list<std::size_t> attending) {
        events_.add({event.name, event.first, event.last,
                     QDateTime(event.first, QTime(0, 0), Qt::UTC).addSecs(qint64{60} * event.hours.start),
                     event.hours.end - event.hours.start, event.allDay ? 1 : 0, event.everybody ? 1 : 0,
                     event.reminder ? 1 : 0, event.reminder ? 15 : 0, event.series, today_.addDays(-30),
                     keys_.providers[0]});
        const int key = events_.key();
        for (const std::size_t provider : attending)
            attending_.add({key, provider == Quintana ? keys_.unpaired : keys_.providers[provider]});
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
    events.add({"License renewal week", today.addDays(-1), today.addDays(3), {480, 1020}, true}, {1});
    events.add({"Computer upgrade", today.addDays(1), today.addDays(1), {1020, 1080}, false, true}, {0});
    events.add({"Site visit", today.addDays(4), today.addDays(4), {540, 720}, false, false, true}, {0, 1, 2});
    events.add({"Flu shots", today.addDays(-6), today.addDays(-6), {600, 660}}, {5});
    events.add({"Fire drill", today, today, {690, 705}, false, true}, {});
    events.add({"Painters in room 4", today, today.addDays(1), {1035, 1095}}, {});
    events.add({"Licensing board exams", today.addDays(-1), today.addDays(2), {1050, 1110}}, {0, 4});
    events.add({"Delivery of the new desks", today.addDays(1), today.addDays(1), {390, 420}}, {0, Quintana});
    events.add({"Call the roofer", today.addDays(2), today.addDays(2), {540, 555}, false, false, true}, {Quintana});
    // The day was moved in the scheduler, which leaves the last day.
    events.add({"Budget talk", today.addDays(3), today.addDays(1), {840, 900}}, {0, 2});
}

// The first day after a day that is one of the weekdays, from Monday, 1.
QDate upcoming(QDate after, std::initializer_list<int> weekdays) {
    QDate day = after.addDays(1);
    while (std::find(weekdays.begin(), weekdays.end(), day.dayOfWeek()) == weekdays.end())
        day = day.addDays(1);
    return day;
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
    const QDate workday = upcoming(today, {1, 2, 3, 4, 5});
    exceptions.add({weekdays, workday, nullptr});
    daily.add({0, 3, 0});
    events.add({"Water the plants", start, today.addDays(120), {1050, 1060}, false, false, false, daily.key()}, {1});
    weekly.add({1, 1, 0, 1, 0, 1, 0});
    const int billing = weekly.key();
    events.add({"Billing hour", start, {}, {780, 840}, false, false, false, billing}, {2, 3});
    const QDate billingDay = upcoming(today, {2, 4});
    exceptions.add({billing, billingDay, keys.providers[2]});
    exceptions.add({billing, upcoming(billingDay, {2, 4}), 0});
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
    // Of a pattern that the scheduler does not know.
    yearly.add({9, 0, 1, 1, 1, 2});
    events.add({"Full moon walk", start, {}, {1140, 1200}, false, true, false, yearly.key()}, {0});
    weekly.add({1, 1, 1, 1, 1, 1, 1});
    const int tidying = weekly.key();
    events.add({"Tidy the desks", start, {}, {1060, 1070}, false, true, true, tidying}, {Quintana});
    exceptions.add({tidying, workday, keys.providers[1]});
}

}  // namespace

void WriteCompanionEvents(const Practice& practice, const Companion& keys, db::Connection& companion) {
    EventRows events(keys, practice.options.today, companion);
    writeSingleEvents(practice.options.today, events);
    writeSeries(practice, keys, companion, events);
}

}  // namespace demo
