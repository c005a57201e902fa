#include "data/codes.h"
#include "data/demo/schedule.h"

namespace demo {

namespace {

constexpr int Reed = 0, Lane = 1, Castellanos = 3;

class ShowDay {
  public:
    explicit ShowDay(const Practice& practice) : practice_(practice) {
        for (std::size_t i = 0; i < practice.patients.size(); ++i) {
            const Patient& patient = practice.patients[i];
            if (patient.provider == Reed && !patient.archived && !patient.homePhone.isEmpty())
                patients_.push_back(static_cast<int>(i));
        }
    }

    std::vector<Booking> weekday() {
        using namespace ncolor;
        patient({435, 480}, Kept, "Before work, leaves at 8 sharp.", "CF").noteToWrite = true;
        patient(ShowSeriesHours, Kept, "Sleep diary reviewed. Bring the second one next week.", "CF").series =
            FirstShowSeries;
        Booking& arrived = patient({540, 590}, CheckedIn, "Copay paid. New insurance card copied.", "CF");
        arrived.room = 2;
        patient({570, 600}, Pending, "Squeezed in between: medication question only.", "LM").service = 2;
        patient({600, 650}, PatientCancelled, "Called at 8:40, child is ill.", "CX");
        patient({610, 650}, Pending, "Took the time that came free.", "").location = "Telehealth";
        patient({660, 710}, Missed, "", "NA");
        other({720, 765}, BookingKind::Unavailable, Unavailable).text = "Lunch";
        // The group from 13:00 to 14:15 is in the schedule already.
        Booking& conference = other({870, 915}, BookingKind::Activity, Activity);
        conference.text = "Case Conference";
        conference.provider = -1;
        conference.attending = {Reed, Lane, Castellanos};
        conference.location = "Main Office";
        conference.room = 12;
        Booking& family = patient({930, 980}, Tentative, "Both parents come, grandmother may join.", "");
        family.category = 1;
        family.service = 4;
        family.room = 7;
        Booking& slot = other({990, 1020}, BookingKind::TypeSlot, practice_.categories[0].color);
        slot.category = 0;
        slot.location = "Main Office";
        patient({1020, 1065}, Blank, "", "BZ").reminder = true;
        patient({1020, 1050}, TherapistCancelled, "Moved to next week.", "");
        patient({1070, 1115}, Pending, "", "LM");
        return std::move(bookings_);
    }

    std::vector<Booking> weekend() {
        using namespace ncolor;
        patient({600, 650}, Kept, "Weekend appointment, by arrangement.", "CF");
        patient({660, 710}, Pending, "", "LM");
        other({720, 765}, BookingKind::Unavailable, Unavailable).text = "Paperwork";
        patient({780, 830}, Tentative, "Will confirm by telephone.", "");
        return std::move(bookings_);
    }

  private:
    Booking& other(const Hours& hours, BookingKind kind, int color) {
        Booking booking;
        booking.date = practice_.options.today;
        booking.start = hours.start;
        booking.end = hours.end;
        booking.kind = kind;
        booking.color = color;
        booking.provider = Reed;
        booking.locked = true;
        bookings_.push_back(booking);
        return bookings_.back();
    }

    Booking& patient(const Hours& hours, int color, const char* note, const char* callStatus) {
        Booking& booking = other(hours, BookingKind::Patient, color);
        booking.patient = patients_[next_++ % patients_.size()];
        booking.service = 1;
        booking.note = QString::fromUtf8(note);
        booking.callStatus = QString::fromUtf8(callStatus);
        booking.location = "Main Office";
        return booking;
    }

    const Practice& practice_;
    std::vector<int> patients_;
    std::size_t next_ = 0;
    std::vector<Booking> bookings_;
};

// REED's patient of eight o'clock today comes every week, four times before today and six times after.
void addSeries(const Practice& practice, std::vector<Booking>& bookings) {
    Booking model;
    for (const Booking& booking : bookings) {
        if (booking.series == FirstShowSeries)
            model = booking;
    }
    for (int week = -4; week <= 6 && model.series >= 0; ++week) {
        Booking booking = model;
        booking.date = practice.options.today.addDays(qint64{7} * week);
        if (week == 0 || booking.date < practice.firstDay || booking.date > practice.lastDay)
            continue;
        booking.color = week < 0 ? ncolor::Kept : ncolor::Pending;
        booking.note.clear();
        booking.callStatus.clear();
        bookings.push_back(booking);
    }
}

}  // namespace

std::vector<Booking> MakeShowDay(const Practice& practice) {
    const int day = Weekday(practice.options.today);
    ShowDay show(practice);
    std::vector<Booking> bookings = day == 1 || day == 7 ? show.weekend() : show.weekday();
    addSeries(practice, bookings);
    return bookings;
}

}  // namespace demo
