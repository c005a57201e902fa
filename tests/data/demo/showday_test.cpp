// The day that a first look shows.

#include <gtest/gtest.h>

#include "data/codes.h"
#include "data/demo/groups.h"
#include "data/demo/lists.h"
#include "data/demo/patients.h"
#include "data/demo/people.h"
#include "data/demo/schedule.h"

#include <algorithm>
#include <set>

namespace {

using demo::Booking;
using demo::BookingKind;

std::vector<Booking> reedsDay(QDate today) {
    demo::Practice practice;
    practice.options = {1, 1000, today};
    demo::MakeSpan(practice);
    demo::MakeLists(practice);
    demo::MakeProviders(practice);
    demo::MakePatients(practice);
    demo::MakeGroups(practice);
    std::vector<Booking> all = demo::MakeSchedule(practice);
    const std::vector<Booking> shown = demo::MakeShowDay(practice);
    all.insert(all.end(), shown.begin(), shown.end());
    std::vector<Booking> day;
    std::copy_if(all.begin(), all.end(), std::back_inserter(day), [&](const Booking& booking) {
        const bool attends = std::count(booking.attending.begin(), booking.attending.end(), 0) > 0;
        return booking.date == today && (booking.provider == 0 || attends);
    });
    std::sort(day.begin(), day.end(), [](const Booking& a, const Booking& b) { return a.start < b.start; });
    return day;
}

bool overlap(const Booking& a, const Booking& b) {
    return a.start < b.end && b.start < a.end;
}

TEST(ShowDay, AWeekdayHasEveryKindOfRow) {
    for (int day = 16; day <= 20; ++day) {
        const std::vector<Booking> bookings = reedsDay(QDate(2026, 11, day));
        std::set<int> colors;
        std::set<BookingKind> kinds;
        for (const Booking& booking : bookings) {
            colors.insert(booking.color);
            kinds.insert(booking.kind);
        }
        for (const int color : ncolor::PatientRows)
            EXPECT_TRUE(colors.count(color)) << color << " on " << day;
        EXPECT_EQ(kinds.size(), 5U) << day;
        EXPECT_GE(bookings.size(), 15U);
    }
}

TEST(ShowDay, TheFirstComesAtAQuarterPastSeven) {
    EXPECT_EQ(reedsDay(QDate(2026, 11, 18)).front().start, 7 * 60 + 15);
}

TEST(ShowDay, SomeOverlapAndTheMeetingsDoNot) {
    const std::vector<Booking> bookings = reedsDay(QDate(2026, 11, 17));
    int overlaps = 0;
    for (std::size_t i = 0; i < bookings.size(); ++i) {
        for (std::size_t j = i + 1; j < bookings.size(); ++j) {
            const bool both = overlap(bookings[i], bookings[j]);
            overlaps += both;
            const bool patients = bookings[i].kind == BookingKind::Patient && bookings[j].kind == BookingKind::Patient;
            EXPECT_TRUE(patients || !both) << bookings[i].start << " and " << bookings[j].start;
        }
    }
    EXPECT_GE(overlaps, 2);
}

TEST(ShowDay, NotesAndCourtesyCallsOfEveryPictureStandOnIt) {
    const std::vector<Booking> bookings = reedsDay(QDate(2026, 11, 18));
    std::set<QString> calls;
    for (const Booking& booking : bookings)
        calls.insert(booking.callStatus);
    for (const char* code : {"CF", "LM", "NA", "CX"})
        EXPECT_TRUE(calls.count(code)) << code;
    EXPECT_GE(
        std::count_if(bookings.begin(), bookings.end(), [](const Booking& booking) { return !booking.note.isEmpty(); }),
        6);
}

TEST(ShowDay, AKeptVisitIsOverWhoseNoteIsStillToBeWritten) {
    const auto isOpen = [](const Booking& booking) {
        return booking.noteToWrite && booking.color == ncolor::Kept && booking.end < demo::NowMinute;
    };
    const std::vector<Booking> bookings = reedsDay(QDate(2026, 11, 18));
    EXPECT_EQ(std::count_if(bookings.begin(), bookings.end(), isOpen), 1);
}

TEST(ShowDay, AWeekendIsModestButNotEmpty) {
    for (const QDate day : {QDate(2026, 11, 21), QDate(2026, 11, 22)}) {
        const std::vector<Booking> bookings = reedsDay(day);
        EXPECT_GE(bookings.size(), 3U);
        EXPECT_LE(bookings.size(), 6U);
    }
}

}  // namespace
