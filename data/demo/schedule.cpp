#include "data/demo/schedule.h"

#include "data/codes.h"

#include <algorithm>
#include <map>

namespace demo {

namespace {

constexpr int UsualWeeks = 78;
constexpr int WeeksAhead = 26;
constexpr int MostWeeks = 520 + WeeksAhead;
constexpr int LunchStart = 720, LunchEnd = 780;
constexpr int StaffMeetingDay = 3;  // Tuesday

bool overlaps(const Hours& a, int start, int end) {
    return a.start < end && start < a.end;
}

// The patient who has one time of the week: a series, or a single appointment in its place.
struct Slot {
    Hours hours;
    int patient = -1;
    int left = 0;      // Appointments of the series that are still to come.
    int interval = 1;  // Weeks.
    int phase = 0;
    int series = -1;
};

int statusOn(QDate date, int start, QDate today, Random& random) {
    using namespace ncolor;
    static const std::vector<int> codes{Kept,  CheckedIn, Pending,          Tentative,
                                        Blank, Missed,    PatientCancelled, TherapistCancelled};
    static const std::vector<int> past{80, 0, 1, 0, 1, 6, 9, 3};
    static const std::vector<int> early{85, 0, 0, 0, 0, 7, 8, 0};
    static const std::vector<int> now{0, 60, 30, 0, 0, 0, 10, 0};
    static const std::vector<int> later{0, 0, 66, 9, 17, 0, 6, 2};
    static const std::vector<int> future{0, 0, 60, 9, 26, 0, 3, 2};
    if (date < today)
        return codes[random.weighted(past)];
    if (date > today)
        return codes[random.weighted(future)];
    if (start < NowMinute - 70)
        return codes[random.weighted(early)];
    return codes[random.weighted(start < NowMinute + 10 ? now : later)];
}

class ProviderWeeks {
  public:
    ProviderWeeks(const Practice& practice, int provider, const std::vector<int>& caseload, Random& random,
                  std::vector<Booking>& out, int& nextSeries)
        : practice_(practice),
          provider_(provider),
          who_(practice.providers[static_cast<std::size_t>(provider)]),
          caseload_(caseload),
          random_(random),
          out_(out),
          nextSeries_(nextSeries) {
        const int weeks = static_cast<int>(practice.firstDay.daysTo(practice.lastDay)) / 7 + 1;
        for (int i = 0; i < std::max(1, weeks / 17); ++i)
            vacations_.push_back(random_.between(0, weeks));
        for (int day = 1; day <= 7; ++day)
            layOut(day);
    }

    void fill() {
        int week = 0;
        for (QDate date = practice_.firstDay; date <= practice_.lastDay; date = date.addDays(1)) {
            if (date.dayOfWeek() == Qt::Monday)
                ++week;
            const bool showDay = provider_ == 0 && date == practice_.options.today;
            const Hours& hours = who_.hours[static_cast<std::size_t>(Weekday(date))];
            if (hours.end == 0 || showDay)
                continue;
            if (onVacation(week) && date != practice_.options.today) {
                add(date, hours, BookingKind::Unavailable, ncolor::Unavailable).text = QStringLiteral("Vacation");
                continue;
            }
            fillDay(date, week);
        }
    }

  private:
    bool onVacation(int week) const {
        return std::find(vacations_.begin(), vacations_.end(), week) != vacations_.end();
    }

    // The times of one day of the week at which this provider sees patients, around lunch and the provider's groups.
    void layOut(int day) {
        const Hours& work = who_.hours[static_cast<std::size_t>(day)];
        int step = 60, length = 50;
        if (who_.work == Work::Prescriber)
            step = 30, length = 20;
        if (who_.work == Work::Trainee)
            step = 180;
        for (int start = work.start; start + length <= work.end; start += step) {
            const bool testing = who_.work == Work::Psychologist && start == 540 && day % 2 == 0;
            const int end = start + (testing ? 120 : length);
            if (overlaps({LunchStart, LunchEnd}, start, end) || reserved(day, start, end))
                continue;
            Slot slot;
            slot.hours = {start, end};
            slots_[day].push_back(slot);
            if (testing)
                start += 60;
        }
    }

    bool reserved(int day, int start, int end) const {
        if (provider_ == 0 && day == Weekday(practice_.options.today) && overlaps(ShowSeriesHours, start, end))
            return true;
        return std::any_of(practice_.groups.begin(), practice_.groups.end(), [&](const Group& group) {
            return group.leader == provider_ && group.weekday == day && overlaps(group.hours, start, end);
        });
    }

    void fillDay(QDate date, int week) {
        const Hours& hours = who_.hours[static_cast<std::size_t>(Weekday(date))];
        for (Slot& slot : slots_[Weekday(date)])
            fillSlot(slot, date, week);
        const bool meeting = Weekday(date) == StaffMeetingDay;
        if (!meeting && hours.start < LunchStart && hours.end > LunchEnd && random_.chance(75))
            add(date, {LunchStart, LunchEnd - 15}, BookingKind::Unavailable, ncolor::Unavailable).text =
                QStringLiteral("Lunch");
        if (random_.chance(3))
            addPatient(date, {hours.start - 60, hours.start - 15}, somebody());
        if (random_.chance(3))
            addPatient(date, {hours.end, hours.end + 50}, somebody());
    }

    void fillSlot(Slot& slot, QDate date, int week) {
        if (slot.left > 0 && (week - slot.phase) % slot.interval == 0) {
            --slot.left;
            addPatient(date, slot.hours, slot.patient).series = slot.series;
        } else {
            fillOnce(slot, date, week);
        }
        // Now and then another appointment is booked over it.
        if (random_.chance(1))
            addPatient(date, {slot.hours.start + 15, slot.hours.end + 15}, somebody());
    }

    // Fills a slot without a series: a new series begins, a patient comes once, the time is set aside, or it stays
    // free. Slots farther ahead are emptier.
    void fillOnce(Slot& slot, QDate date, int week) {
        const int ahead = static_cast<int>(practice_.options.today.daysTo(date)) / 7;
        const bool between = slot.left > 0;
        const int seriesWeight = between || ahead > 3 ? 0 : 30;
        const int onceWeight = ahead > 10 ? 12 : ahead > 3 ? 30 : 50;
        const int setAsideWeight = ahead < 0 ? 1 : ahead > 10 ? 1 : 5;
        switch (random_.weighted({seriesWeight, onceWeight, setAsideWeight, 6 + std::max(0, ahead) * 2})) {
            case 0:
                slot.patient = somebody();
                slot.left = random_.between(4, 40);
                slot.interval = random_.chance(70) ? 1 : 2;
                slot.phase = week;
                slot.series = nextSeries_++;
                --slot.left;
                addPatient(date, slot.hours, slot.patient).series = slot.series;
                break;
            case 1:
                addPatient(date, slot.hours, somebody());
                break;
            case 2:
                addTypeSlot(date, slot.hours);
                break;
            default:
                break;
        }
    }

    int somebody() { return random_.pick(caseload_); }

    Booking& add(QDate date, const Hours& hours, BookingKind kind, int color) {
        Booking booking;
        booking.date = date;
        booking.start = hours.start;
        booking.end = hours.end;
        booking.kind = kind;
        booking.color = color;
        booking.provider = provider_;
        out_.push_back(booking);
        return out_.back();
    }

    Booking& addPatient(QDate date, const Hours& hours, int patient) {
        Booking& booking =
            add(date, hours, BookingKind::Patient, statusOn(date, hours.start, practice_.options.today, random_));
        booking.patient = patient;
        return booking;
    }

    void addTypeSlot(QDate date, const Hours& hours) {
        const int category = random_.between(0, static_cast<int>(practice_.categories.size()) - 1);
        add(date, hours, BookingKind::TypeSlot, practice_.categories[static_cast<std::size_t>(category)].color)
            .category = category;
    }

    const Practice& practice_;
    int provider_;
    const Provider& who_;
    const std::vector<int>& caseload_;
    Random& random_;
    std::vector<Booking>& out_;
    int& nextSeries_;
    std::vector<int> vacations_;
    std::map<int, std::vector<Slot>> slots_;
};

std::vector<std::vector<int>> caseloads(const Practice& practice) {
    std::vector<std::vector<int>> all(practice.providers.size());
    for (std::size_t i = 0; i < practice.patients.size(); ++i) {
        if (!practice.patients[i].archived)
            all[static_cast<std::size_t>(practice.patients[i].provider)].push_back(static_cast<int>(i));
    }
    for (auto& caseload : all) {
        if (caseload.empty())
            caseload.push_back(0);
    }
    return all;
}

void addGroups(const Practice& practice, std::vector<Booking>& out, int& nextSeries) {
    for (std::size_t i = 0; i < practice.groups.size(); ++i) {
        const Group& group = practice.groups[i];
        const int series = nextSeries++;
        for (QDate date = practice.firstDay; date <= practice.lastDay; date = date.addDays(1)) {
            if (Weekday(date) != group.weekday)
                continue;
            Booking booking;
            booking.date = date;
            booking.start = group.hours.start;
            booking.end = group.hours.end;
            booking.kind = BookingKind::Group;
            booking.color = ncolor::Group;
            booking.provider = group.leader;
            booking.group = static_cast<int>(i);
            booking.series = series;
            out.push_back(booking);
        }
    }
}

Booking meeting(const QString& text, QDate date, const Hours& hours, std::vector<int> attending) {
    Booking booking;
    booking.date = date;
    booking.start = hours.start;
    booking.end = hours.end;
    booking.kind = BookingKind::Activity;
    booking.color = ncolor::Activity;
    booking.text = text;
    booking.location = QStringLiteral("Main Office");
    booking.attending = std::move(attending);
    return booking;
}

// Makes the weekly staff meeting of everybody who works that day, and the small meetings of a few.
void addMeetings(const Practice& practice, Random& random, std::vector<Booking>& out) {
    const QDate today = practice.options.today;
    for (QDate date = practice.firstDay; date <= practice.lastDay; date = date.addDays(1)) {
        std::vector<int> working;
        for (std::size_t i = 0; i < practice.providers.size(); ++i) {
            // REED's day of today is arranged separately.
            const bool showDay = i == 0 && date == today;
            if (practice.providers[i].hours[static_cast<std::size_t>(Weekday(date))].end > 0 && !showDay)
                working.push_back(static_cast<int>(i));
        }
        if (Weekday(date) == StaffMeetingDay)
            out.push_back(meeting(QStringLiteral("Staff Meeting"), date, {LunchStart, LunchEnd}, working));
        if (working.size() < 4 || date == today)
            continue;
        if (random.chance(14)) {
            out.push_back(meeting(QStringLiteral("Peer Supervision"), date, {LunchStart, LunchEnd}, {}));
            out.back().provider = random.pick(working);
        }
        if (date.day() == 14)
            out.push_back(
                meeting(QStringLiteral("Inservice Training"), date, {960, 1020}, {working[0], working[1], working[3]}));
    }
    Booking retreat = meeting(QStringLiteral("Board Retreat"), today.addDays(23), {480, 1080}, {0, 1, 4});
    retreat.allDay = true;
    if (retreat.date <= practice.lastDay)
        out.push_back(retreat);
}

}  // namespace

void MakeSpan(Practice& practice) {
    const Options& options = practice.options;
    constexpr int MostOfOneSize = MostWeeks * 14 * AppointmentsOfAWeek;
    practice.size = options.appointments / MostOfOneSize + 1;
    const int weeks = std::max(3, options.appointments / (14 * practice.size * AppointmentsOfAWeek));
    const int ahead = std::min(WeeksAhead, std::max(1, weeks * WeeksAhead / UsualWeeks));
    practice.firstDay = options.today.addDays(qint64{-7} * (weeks - ahead));
    practice.lastDay = options.today.addDays(qint64{7} * ahead);
}

std::vector<Booking> MakeSchedule(const Practice& practice) {
    std::vector<Booking> bookings;
    int nextSeries = 0;
    const auto loads = caseloads(practice);
    for (std::size_t i = 0; i < practice.providers.size(); ++i) {
        Random random(practice.options.seed, "weeks of " + practice.providers[i].id.toStdString());
        ProviderWeeks(practice, static_cast<int>(i), loads[i], random, bookings, nextSeries).fill();
    }
    addGroups(practice, bookings, nextSeries);
    Random random(practice.options.seed, "meetings");
    addMeetings(practice, random, bookings);
    return bookings;
}

}  // namespace demo
