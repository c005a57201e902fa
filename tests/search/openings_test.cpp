#include "search/openings.h"

#include <algorithm>
#include <QRandomGenerator>

#include "tests/search/searchfixture.h"
#include "tests/support/triplog.h"

namespace {

using Starts = std::vector<int>;

/// "2026-03-11 600-660 Reed", a line each.
class NextOpenings : public SearchFixture {
  protected:
    OpeningWish wish(int minutes = 60) {
        OpeningWish wanted;
        wanted.minutes = minutes;
        wanted.providers = {{QStringLiteral("REED"), QStringLiteral("Reed")}};
        wanted.from = day;
        return wanted;
    }
    static QString told(const Opening& opening) {
        return QStringLiteral("%1 %2-%3 %4")
            .arg(opening.date.toString(Qt::ISODate))
            .arg(opening.start)
            .arg(opening.end)
            .arg(opening.provider.name);
    }
    /// The openings of the first stretch.
    QStringList first(const OpeningWish& wanted, int most = 3) {
        OpeningSearch search(wanted, QDateTime(day, now), 15);
        QStringList lines;
        for (const Opening& opening : search.Next())
            if (lines.size() < most)
                lines << told(opening);
        return lines;
    }
    void works(const char* provider, int weekday, int start, int end) {
        run(db::Sql("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values ('{}', {}, {}, {})",
                    provider, weekday, start, end));
    }
    QTime now{9, 0};
};

}  // namespace

TEST(FreeStarts, FollowOneAnotherOnTheGrid) {
    EXPECT_EQ(FreeStarts({540, 720}, {}, 50, 15), (Starts{540, 600, 660}));
    EXPECT_EQ(FreeStarts({540, 720}, {}, 60, 15), (Starts{540, 600, 660}));
    EXPECT_EQ(FreeStarts({547, 720}, {}, 60, 15), (Starts{555, 615}));
    EXPECT_EQ(FreeStarts({540, 580}, {}, 50, 15), Starts{});
}

TEST(FreeStarts, BeginWhereABookingEndsIfTheTimeDoesNotFitFromTheGrid) {
    EXPECT_EQ(FreeStarts({540, 720}, {{540, 590}, {650, 720}}, 60, 15), Starts{590});
    EXPECT_EQ(FreeStarts({540, 720}, {{540, 590}, {660, 720}}, 60, 15), Starts{600});
}

TEST(FreeStarts, TouchBookingsButDoNotOverlapThem) {
    EXPECT_EQ(FreeStarts({540, 720}, {{540, 600}, {660, 720}}, 60, 15), Starts{600});
    EXPECT_EQ(FreeStarts({540, 720}, {{540, 601}, {660, 720}}, 60, 15), Starts{});
    EXPECT_EQ(FreeStarts({540, 600}, {{570, 570}}, 60, 15), Starts{}) << "a booking of no length is one";
}

// No free time is missed, and none is offered that is not free: held against every minute of the day.
TEST(FreeStarts, AgreeWithATestOfEachMinute) {
    QRandomGenerator random(7);
    for (int round = 0; round < 3000; ++round) {
        const int from = static_cast<int>(random.bounded(400, 700));
        const MinuteSpan window{double(from), double(from + static_cast<int>(random.bounded(0, 500)))};
        const int minutes = static_cast<int>(random.bounded(5, 120));
        const int grid = std::array{5, 10, 15, 30, 60}.at(random.bounded(5U));
        std::vector<MinuteSpan> booked;
        for (int i = static_cast<int>(random.bounded(6)); i > 0; --i) {
            const int start = static_cast<int>(random.bounded(380, 1200));
            booked.push_back({double(start), double(start + static_cast<int>(random.bounded(-5, 120)))});
        }
        const Starts starts = FreeStarts(window, booked, minutes, grid);
        const auto isFree = [&](int start) {
            return start >= window.start && start + minutes <= window.end &&
                   std::none_of(booked.begin(), booked.end(), [&](MinuteSpan each) {
                       return Overlaps({double(start), double(start + minutes)}, each);
                   });
        };
        for (std::size_t i = 0; i < starts.size(); ++i) {
            EXPECT_TRUE(isFree(starts[i])) << "round " << round << " start " << starts[i];
            EXPECT_TRUE(i == 0 || starts[i] >= starts[i - 1] + minutes) << "round " << round;
        }
        for (int minute = 0; minute < 1440; ++minute) {
            if (!isFree(minute))
                continue;
            EXPECT_TRUE(std::any_of(starts.begin(), starts.end(),
                                    [&](int start) { return start < minute + minutes && minute < start + minutes; }))
                << "round " << round << " misses " << minute;
        }
    }
}

TEST_F(NextOpenings, TheFirstIsTheNextFromNow) {
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 540-600 Reed")});
    now = QTime(9, 0, 1);
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 555-615 Reed")});
    now = QTime(17, 1);
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-12 480-540 Reed")});
    OpeningWish past = wish();
    past.from = day.addDays(-30);
    EXPECT_EQ(first(past, 1), QStringList{QStringLiteral("2026-03-12 480-540 Reed")});
}

TEST_F(NextOpenings, WhatIsBookedIsLeftOutWhateverItIs) {
    for (const int code : {0xFF0001, 0xC0, 0xC000, 0xFFFFFF, 0xFFFF80, 0xFF80FF, 0xC0C000}) {
        run(QStringLiteral("Delete from appointments"));
        book({.start = 540, .end = 600, .code = code});
        EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 600-660 Reed")}) << code;
    }
}

TEST_F(NextOpenings, ACancelledHourIsOfferedAndSaidToBeOne) {
    for (const int code : {0xC1, 0xC2}) {
        run(QStringLiteral("Delete from appointments"));
        book({.start = 540, .end = 600, .code = code});
        OpeningSearch search(wish(), QDateTime(day, now), 15);
        const std::vector<Opening> found = search.Next();
        ASSERT_GE(found.size(), 2U);
        EXPECT_EQ(found[0].start, 540);
        EXPECT_TRUE(found[0].overCancelled);
        EXPECT_FALSE(found[1].overCancelled);
    }
}

TEST_F(NextOpenings, ASlotOfAnAppointmentTypeIsFree) {
    book({.start = 540, .end = 720, .kind = 4});
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 540-600 Reed")});
}

TEST_F(NextOpenings, ARowThatNobodyGaveAKindMakesBusyToo) {
    const qint64 key = book({.start = 540, .end = 600});
    run(db::Sql("Update appointments Set appttype = Null Where nkeyid = {}", key));
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 600-660 Reed")});
}

TEST_F(NextOpenings, WhoAttendsASharedActivityIsBusy) {
    share(book({.start = 540, .end = 630, .text = QStringLiteral("Staff Meeting"), .provider = QStringLiteral("~EVT")}),
          "reed");
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 630-690 Reed")});
}

TEST_F(NextOpenings, ThePatientMustBeFreeToo) {
    const qint64 key = book({.start = 540, .end = 600, .provider = QStringLiteral("OBRIEN")});
    run(db::Sql("Update appointments Set patientid = '10017' Where nkeyid = {}", key));
    OpeningWish ofPatient = wish();
    ofPatient.patientId = QStringLiteral("10017");
    EXPECT_EQ(first(ofPatient, 1), QStringList{QStringLiteral("2026-03-11 600-660 Reed")});
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 540-600 Reed")});
    run(db::Sql("Update appointments Set ncolor = 193 Where nkeyid = {}", key));
    EXPECT_EQ(first(ofPatient, 1), QStringList{QStringLiteral("2026-03-11 540-600 Reed")});
}

TEST_F(NextOpenings, AGroupSessionOfThePatientIsInTheWay) {
    const qint64 key = book({.start = 540, .end = 600, .provider = QStringLiteral("OBRIEN"), .kind = 2});
    run(db::Sql("Insert Into AppointmentsGroup (nKeyId, PatientId) Values ({}, '10017')", key));
    OpeningWish ofPatient = wish();
    ofPatient.patientId = QStringLiteral("10017");
    EXPECT_EQ(first(ofPatient, 1), QStringList{QStringLiteral("2026-03-11 600-660 Reed")});
    ofPatient.patientId = QStringLiteral("10018");
    EXPECT_EQ(first(ofPatient, 1), QStringList{QStringLiteral("2026-03-11 540-600 Reed")});
}

TEST_F(NextOpenings, AProviderWorksInTheStoredHoursAndWithoutAnyInThoseOfTheDay) {
    works("OBRIEN", 4, 0, 0);
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 540-600 Reed")});
    works("reed", 4, 600, 690);  // Wednesday
    works("REED", 5, 0, 0);      // A day off, and so are the days without a row.
    works("REED", 2, 780, 900);  // Monday
    EXPECT_EQ(first(wish()),
              (QStringList{QStringLiteral("2026-03-11 600-660 Reed"), QStringLiteral("2026-03-16 780-840 Reed"),
                           QStringLiteral("2026-03-16 840-900 Reed")}));
    works("REED", 4, 0, 0);
    EXPECT_EQ(first(wish(), 1), QStringList{QStringLiteral("2026-03-11 600-660 Reed")}) << "the first row counts";
}

TEST_F(NextOpenings, DaysOfTheWeekAndThePartOfTheDayAreKept) {
    OpeningWish wanted = wish();
    wanted.weekdays = {true, false, false, false, true, false, false};  // Sunday and Thursday
    wanted.hours = {780, 960};
    EXPECT_EQ(first(wanted, 4),
              (QStringList{QStringLiteral("2026-03-12 780-840 Reed"), QStringLiteral("2026-03-12 840-900 Reed"),
                           QStringLiteral("2026-03-12 900-960 Reed"), QStringLiteral("2026-03-15 780-840 Reed")}));
}

TEST_F(NextOpenings, HolidaysAreLeftOutUnlessTheyAreWanted) {
    run(QStringLiteral(
        "Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('Founder''s Day', '2019/03/11', 1)"));
    run(QStringLiteral("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('Move', '2026/03/12', 0)"));
    OpeningSearch search(wish(), QDateTime(day, now), 15);
    EXPECT_EQ(told(search.Next().front()), QStringLiteral("2026-03-13 480-540 Reed"));
    EXPECT_EQ(search.HolidaysLeftOut(), 2);
    OpeningWish all = wish();
    all.holidays = true;
    OpeningSearch withThem(all, QDateTime(day, now), 15);
    EXPECT_EQ(withThem.Next().front().holiday, QStringLiteral("Founder's Day"));
    EXPECT_EQ(withThem.HolidaysLeftOut(), 0);
}

TEST_F(NextOpenings, AHolidayIsOneInTheCalendarToo) {
    for (const char* row : {"'A', '2020/02/29', 1", "'B', '2026/03/12', 0", "'C', '2019/03/12', 1",
                            "'D', '2019/03/13', 0", "'E', '2018/03/14', 1", "'F', '2026/03/14', 0"})
        run(QStringLiteral("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values (%1)")
                .arg(QLatin1String(row)));
    const HolidayCalendar holidays(Session().Connection);
    for (const QDate date : {QDate(2026, 2, 28), QDate(2026, 3, 1), QDate(2026, 3, 11), QDate(2026, 3, 12),
                             QDate(2026, 3, 13), QDate(2026, 3, 14), QDate(2028, 2, 29), QDate(2019, 3, 13)})
        EXPECT_EQ(holidays.On(date), HolidayOn(Session().Connection, date)) << date.toString().toStdString();
    EXPECT_EQ(holidays.On(QDate(2026, 3, 12)), QStringLiteral("B"));
    EXPECT_EQ(holidays.On(QDate(2026, 3, 14)), QStringLiteral("E"));
}

TEST_F(NextOpenings, AreOrderedByTimeAndThenAsTheProvidersStand) {
    OpeningWish both = wish();
    both.providers = {{QStringLiteral("OBRIEN"), QStringLiteral("O'Brien")},
                      {QStringLiteral("REED"), QStringLiteral("Reed")}};
    book({.start = 540, .end = 600, .provider = QStringLiteral("OBRIEN")});
    EXPECT_EQ(first(both),
              (QStringList{QStringLiteral("2026-03-11 540-600 Reed"), QStringLiteral("2026-03-11 600-660 O'Brien"),
                           QStringLiteral("2026-03-11 600-660 Reed")}));
}

TEST_F(NextOpenings, AnIdWithAQuoteIsSearched) {
    provider("O'N", "O'Neil");
    OpeningWish wanted = wish();
    wanted.providers = {{QStringLiteral("O'N"), QStringLiteral("O'Neil")}};
    EXPECT_EQ(first(wanted, 1), QStringList{QStringLiteral("2026-03-11 540-600 O'Neil")});
}

TEST_F(NextOpenings, TheSearchEndsAfterAYear) {
    OpeningWish never = wish();
    never.weekdays.fill(false);
    OpeningSearch search(never, QDateTime(day, now), 15);
    int stretches = 0;
    while (!search.Ended()) {
        EXPECT_TRUE(search.Next().empty());
        ++stretches;
    }
    EXPECT_EQ(search.Last(), day.addDays(365));
    EXPECT_LE(stretches, 16);
    EXPECT_TRUE(search.Next().empty()) << "and stays at its end";
}

TEST_F(NextOpenings, ALostDatabaseIsThrownAndTheStretchIsNotTakenForSearched) {
    OpeningSearch search(wish(), QDateTime(day, now), 15);
    loseDatabase();
    EXPECT_THROW((void)search.Next(), db::DatabaseError);
    Session().Connection.Open(database.connectionText());
    EXPECT_EQ(told(search.Next().front()), QStringLiteral("2026-03-11 540-600 Reed"));
    loseDatabase();
    EXPECT_THROW(OpeningSearch(wish(), QDateTime(day, now), 15), db::DatabaseError);
}

TEST_F(NextOpenings, AStretchIsOneTripForAnyNumberOfProviders) {
    for (const int providers : {1, 100}) {
        OpeningWish wanted = wish();
        wanted.patientId = QStringLiteral("10017");
        for (int i = 1; i < providers; ++i)
            wanted.providers.push_back({QStringLiteral("P%1").arg(i), QStringLiteral("P")});
        OpeningSearch search(wanted, QDateTime(day, now), 15);
        EXPECT_TRUE(TakesAtMost(1, [&] { (void)search.Next(); })) << providers;
    }
}
