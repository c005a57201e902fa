#include "data/codes.h"
#include "data/demo/appointments.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace demo {

namespace {

constexpr std::array Notes{"Bring homework sheets.",
                           "Copay $20.",
                           "Collect copay of last visit too.",
                           "First visit after discharge.",
                           "Mother brings the patient, father picks up.",
                           "New referral from the school.",
                           "Prefers to wait in the car. Call the cell phone.",
                           "Reschedule if snow closes the schools.",
                           "Release of information to be signed.",
                           "Review treatment plan: due this month.",
                           "Interpreter booked.",
                           "Asked for a later time next week.",
                           "Telephone session if the roads are bad.",
                           "Check authorization before the session.",
                           "Will be ten minutes late.",
                           "Lab results to be discussed.",
                           "Letter to the court handed over today.",
                           "Spouse joins for the last twenty minutes."};

QString callFor(const Booking& booking, QDate today, Random& random) {
    const qint64 ahead = today.daysTo(booking.date);
    const int percent = ahead > 4 ? 0 : ahead > -20 ? 55 : 25;
    if (!random.chance(percent))
        return {};
    static constexpr std::array Codes{"CF", "LM", "AM", "NA", "BZ", "WN"};
    if (booking.color == ncolor::PatientCancelled)
        return QStringLiteral("CX");
    return QString::fromLatin1(Codes[random.weighted({50, 22, 10, 12, 4, 2})]);
}

int serviceFor(const Practice& practice, const Booking& booking, Random& random) {
    const int minutes = booking.end - booking.start;
    const Work work = practice.providers[static_cast<std::size_t>(booking.provider)].work;
    if (work == Work::Prescriber)
        return random.chance(85) ? 6 : 7;
    if (minutes >= 120)
        return 9;
    return static_cast<int>(random.weighted({8, 62, 6, 4, 14, 6}));
}

void fillPatient(const Practice& practice, Booking& booking, Random& random) {
    booking.service = serviceFor(practice, booking, random);
    booking.location = practice.locations[random.weighted({70, 9, 5, 12, 2, 2})];
    if (random.chance(16))
        booking.note = QString::fromUtf8(random.pick(Notes));
    booking.callStatus = callFor(booking, practice.options.today, random);
    booking.reminder = random.chance(8);
    if (random.chance(11))
        booking.category = random.between(1, static_cast<int>(practice.categories.size()) - 2);
    const std::size_t main = 0;
    if (booking.location == practice.locations[main] && random.chance(60))
        booking.room = practice.providers[static_cast<std::size_t>(booking.provider)].room;
}

void fill(const Practice& practice, Booking& booking, Random& random) {
    const int rooms = static_cast<int>(practice.roomNames.size());
    switch (booking.kind) {
        case BookingKind::Patient:
            fillPatient(practice, booking, random);
            break;
        case BookingKind::Group:
            booking.location = practice.locations[0];
            booking.room = booking.group % 2 == 0 ? 10 : 11;
            if (random.chance(20))
                booking.note = QString::fromUtf8(random.pick(Notes));
            break;
        case BookingKind::Activity:
            if (booking.attending.size() > 2)
                booking.room = 12;
            break;
        case BookingKind::TypeSlot:
            booking.location = random.chance(60) ? practice.locations[0] : QString();
            break;
        case BookingKind::Unavailable:
            break;
    }
    if (booking.room >= rooms)
        booking.room %= rooms;
}

}  // namespace

void FillDetails(const Practice& practice, std::vector<Booking>& bookings) {
    std::stable_sort(bookings.begin(), bookings.end(), [](const Booking& a, const Booking& b) {
        return std::tie(a.date, a.start, a.provider) < std::tie(b.date, b.start, b.provider);
    });
    Random random(practice.options.seed, "details");
    for (Booking& booking : bookings) {
        if (!booking.locked)
            fill(practice, booking, random);
    }
}

}  // namespace demo
