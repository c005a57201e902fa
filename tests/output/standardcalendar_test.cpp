#include <gtest/gtest.h>

#include <algorithm>

#include "data/codes.h"
#include "output/icalendar.h"
#include "tests/output/calendarreaders.h"
#include "tests/support/timezone.h"

namespace {

const CalendarStamp Stamp{QDateTime(QDate(2026, 3, 11), QTime(10, 7, 9), Qt::UTC), QStringLiteral("1.0.0")};
const QTimeZone NewYork("America/New_York");

ExportedAppointment visit(qint64 key, QDate date, int start, int end) {
    return {.nkeyid = key,
            .DApptDate = date,
            .nStartTime = start,
            .nEndTime = end,
            .cappttext = QStringLiteral("Jones, Mary"),
            .CapptNote = QStringLiteral("90834  Psychotherapy|call first"),
            .CLOCATION = QStringLiteral("Main Office"),
            .ncolor = ncolor::Pending,
            .createddate = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5), Qt::UTC)};
}

ExportedAppointment visit() {
    return visit(812, QDate(2026, 3, 11), 545, 590);
}

ExportedAppointment named(const QString& text) {
    ExportedAppointment appointment = visit();
    appointment.cappttext = text;
    return appointment;
}

QString clockText(QDate date, int minutes) {
    return QDateTime(date, QTime(0, 0), Qt::UTC).addSecs(minutes * 60).toString("yyyy-MM-dd'T'HH:mm:ss");
}

QString utcText(QDate date, int minutes, const QTimeZone& zone) {
    const QDateTime clock = QDateTime(date, QTime(0, 0), Qt::UTC).addSecs(minutes * 60);
    return QDateTime(clock.date(), clock.time(), zone).toUTC().toString("yyyy-MM-dd'T'HH:mm:ss");
}

/// The file of the appointments, read by both programs, which must agree.
std::vector<ReadEvent> readBack(const std::vector<ExportedAppointment>& appointments, const QTimeZone& zone = NewYork) {
    const QByteArray file = StandardCalendar(appointments, zone, Stamp);
    std::vector<ReadEvent> events = ReadByLibical(file);
    EXPECT_EQ(events, ReadByPython(file));
    return events;
}

ReadEvent readBack(const ExportedAppointment& appointment) {
    const std::vector<ReadEvent> events = readBack(std::vector{appointment});
    EXPECT_EQ(events.size(), 1U);
    return events.empty() ? ReadEvent() : events.front();
}

}  // namespace

TEST(StandardCalendarFile, GivesTheAppointmentBackAsItWas) {
    const ReadEvent event = readBack(visit());
    EXPECT_EQ(event.uid, "812-20260102T030405@solvane.example");
    EXPECT_EQ(event.start, "2026-03-11T09:05:00");
    EXPECT_EQ(event.startUtc, "2026-03-11T13:05:00");
    EXPECT_EQ(event.end, "2026-03-11T09:50:00");
    EXPECT_EQ(event.endUtc, "2026-03-11T13:50:00");
    EXPECT_EQ(event.stampUtc, "2026-03-11T14:07:09");
    EXPECT_EQ(event.summary, "Jones, Mary");
    EXPECT_EQ(event.description, "90834  Psychotherapy\ncall first");
    EXPECT_EQ(event.location, "Main Office");
    EXPECT_EQ(event.status, "CONFIRMED");
    EXPECT_EQ(event.categories, "Pending");
}

TEST(StandardCalendarFile, GivesEveryTimeOfTheDayBackAcrossBothChangesOfTheClocks) {
    std::vector<ExportedAppointment> appointments;
    for (const QDate change : {QDate(2026, 3, 8), QDate(2026, 11, 1)})
        for (int day = -1; day <= 1; ++day)
            for (int start = 0; start < 1440; start += 30)
                appointments.push_back(
                    visit(static_cast<qint64>(appointments.size()) + 1, change.addDays(day), start, start + 45));
    const std::vector<ReadEvent> events = ReadByLibical(StandardCalendar(appointments, NewYork, Stamp));
    const std::vector<ReadEvent> others = ReadByPython(StandardCalendar(appointments, NewYork, Stamp));
    ASSERT_EQ(events.size(), appointments.size());
    ASSERT_EQ(others.size(), appointments.size());
    for (std::size_t i = 0; i < appointments.size(); ++i) {
        const ExportedAppointment& row = appointments[i];
        for (const ReadEvent& event : {events[i], others[i]}) {
            EXPECT_EQ(event.start, clockText(row.DApptDate, row.nStartTime));
            EXPECT_EQ(event.end, clockText(row.DApptDate, row.nEndTime));
        }
        // Between one and three the clocks show a time twice, or never, on these nights.
        if (row.nStartTime >= 180 || row.nEndTime < 60) {
            EXPECT_EQ(events[i].startUtc, utcText(row.DApptDate, row.nStartTime, NewYork)) << events[i];
            EXPECT_EQ(events[i].endUtc, utcText(row.DApptDate, row.nEndTime, NewYork)) << events[i];
            EXPECT_EQ(others[i].startUtc, events[i].startUtc) << others[i];
        }
    }
}

TEST(StandardCalendarFile, HasTheRightHoursInEveryZoneForTenYears) {
    for (const char* id : {"America/New_York", "America/Santiago", "Africa/Cairo", "America/Havana", "Europe/Dublin",
                           "Australia/Lord_Howe", "Asia/Kathmandu", "America/Phoenix", "UTC"}) {
        const QTimeZone zone(id);
        ASSERT_TRUE(zone.isValid()) << id;
        std::vector<ExportedAppointment> appointments;
        for (int week = 0; week < 520; ++week)
            appointments.push_back(visit(week + 1, QDate(2020, 1, 1).addDays(week * 7), 600, 660));
        const std::vector<ReadEvent> events = readBack(appointments, zone);
        ASSERT_EQ(events.size(), appointments.size());
        for (std::size_t i = 0; i < events.size(); ++i)
            ASSERT_EQ(events[i].startUtc, utcText(appointments[i].DApptDate, 600, zone)) << id << ' ' << events[i];
    }
}

TEST(StandardCalendarFile, IsRightOnAComputerThatKnowsItsZoneAsARuleAlone) {
    for (const ZoneOfTest& rule : zonesOfTest) {
        const InTimeZone there(rule);
        const QTimeZone zone = QTimeZone::systemTimeZone();
        const std::vector<ExportedAppointment> appointments{visit(1, rule.change.addDays(-1), 600, 660),
                                                            visit(2, rule.change, 600, 660)};
        const QByteArray file = StandardCalendar(appointments, zone, Stamp);
        const std::vector<ReadEvent> events = ReadByLibical(file);
        ASSERT_EQ(events.size(), 2U) << rule;
        const auto hours = [&events](std::size_t i) {
            return QDateTime::fromString(events[i].startUtc, Qt::ISODate)
                       .secsTo(QDateTime::fromString(events[i].start, Qt::ISODate)) /
                   3600.0;
        };
        EXPECT_EQ(hours(1), hours(0) + 1) << rule << file.constData();
        EXPECT_EQ(events, ReadByPython(file)) << rule;
    }
}

TEST(StandardCalendarFile, TellsTheClocksOfItsDatesAlone) {
    const QByteArray winter = StandardCalendar({visit(1, QDate(2026, 1, 14), 540, 600)}, NewYork, Stamp);
    EXPECT_EQ(winter.count("BEGIN:STANDARD"), 1);
    EXPECT_EQ(winter.count("BEGIN:DAYLIGHT"), 0);
    EXPECT_TRUE(winter.contains("DTSTART:20251102T020000\r\nTZOFFSETFROM:-0400\r\nTZOFFSETTO:-0500\r\nTZNAME:EST"));
    const QByteArray india = StandardCalendar({visit()}, QTimeZone("Asia/Kolkata"), Stamp);
    EXPECT_TRUE(india.contains("TZOFFSETTO:+0530"));
    EXPECT_EQ(StandardCalendar({visit()}, QTimeZone::utc(), Stamp).count("BEGIN:STANDARD"), 1);
}

// In the summers of the war the clocks of London went on by a second hour, from one daylight time into another.
TEST(StandardCalendarFile, BeginsWithStandardTimeAlsoWhereOneDaylightTimeFollowedAnother) {
    const QTimeZone london("Europe/London");
    const QByteArray file = StandardCalendar({visit(1, QDate(1944, 7, 3), 600, 660)}, london, Stamp);
    EXPECT_LT(file.indexOf("BEGIN:STANDARD"), file.indexOf("BEGIN:DAYLIGHT")) << file.constData();
    EXPECT_TRUE(file.contains("TZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200")) << file.constData();
    const std::vector<ReadEvent> events = ReadByLibical(file);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events.front().startUtc, "1944-07-03T08:00:00");
    EXPECT_EQ(events, ReadByPython(file));
}

TEST(StandardCalendarFile, ATextComesBackAsItStandsWhateverIsInIt) {
    for (const QString& text :
         {QStringLiteral("Jones; Mary, \\ \"quoted\" <b>&amp;</b> | bar: 'x'"), QStringLiteral("BEGIN:VEVENT"),
          QStringLiteral("Åkesson, Zoë 山田 😀 כהן محمد"), QStringLiteral("x").repeated(500),
          QStringLiteral("😀").repeated(120), QStringLiteral("ab,;\\").repeated(100)}) {
        EXPECT_EQ(readBack(named(text)).summary, text) << text.toStdString();
        ExportedAppointment noted = visit();
        noted.CapptNote = text;
        noted.CLOCATION = text;
        const ReadEvent event = readBack(noted);
        EXPECT_EQ(event.location, text);
        EXPECT_EQ(event.description, QString(text).replace(u'|', u'\n'));
    }
}

// Python's reader takes a backslash before an n for a line end even where it is doubled.
TEST(StandardCalendarFile, ABackslashBeforeAnNIsNoLineEnd) {
    const QString text = QStringLiteral("C:\\new\\names \\\\n \\N");
    EXPECT_EQ(ReadByLibical(StandardCalendar({named(text)}, NewYork, Stamp)).at(0).summary, text);
}

TEST(StandardCalendarFile, LineEndsComeBackAsLineEndsAndControlCharactersAsBlanks) {
    ExportedAppointment appointment = visit();
    appointment.CapptNote = QStringLiteral(
        "a\r\nb\rc\nd\te\x01"
        "f");
    EXPECT_EQ(readBack(appointment).description, QStringLiteral("a\nb\nc\nd e f"));
    EXPECT_EQ(readBack(named(QStringLiteral("x\r\nEND:VEVENT\r\ny"))).summary, QStringLiteral("x\nEND:VEVENT\ny"));
}

TEST(StandardCalendarFile, NoLineIsLongerThan75OctetsAndNoCharacterIsDivided) {
    for (int shift = 0; shift < 8; ++shift) {
        const QString text = QStringLiteral("x").repeated(shift) + QStringLiteral("é山😀").repeated(60);
        const QByteArray file = StandardCalendar({named(text)}, NewYork, Stamp);
        for (const QByteArray& line : file.split('\n')) {
            EXPECT_LE(line.size(), 76) << line.constData();  // With its carriage return.
            EXPECT_EQ(QString::fromUtf8(line).toUtf8(), line);
            EXPECT_FALSE(QString::fromUtf8(line).contains(QChar::ReplacementCharacter)) << line.constData();
        }
        EXPECT_FALSE(file.contains("\r\n\r\n"));
        EXPECT_EQ(file.count('\n'), file.count("\r\n"));
    }
}

TEST(StandardCalendarFile, TheStatusIsTold) {
    const auto status = [](int code) {
        ExportedAppointment appointment = visit();
        appointment.ncolor = code;
        const ReadEvent event = readBack(appointment);
        return event.status + u' ' + event.categories;
    };
    EXPECT_EQ(status(ncolor::Blank), "CONFIRMED ");
    EXPECT_EQ(status(ncolor::Tentative), "TENTATIVE Tentative");
    EXPECT_TRUE(status(ncolor::LegendTentative).startsWith("TENTATIVE"));
    EXPECT_EQ(status(ncolor::Kept), "CONFIRMED Kept");
    EXPECT_EQ(status(ncolor::Missed), "CONFIRMED Missed");
    EXPECT_EQ(status(ncolor::PatientCancelled), "CANCELLED Patient Cancelled");
    EXPECT_EQ(status(ncolor::TherapistCancelled), "CANCELLED Therapist Cancelled");
    EXPECT_EQ(status(ncolor::Unavailable), "CONFIRMED Unavailable Time");
    EXPECT_EQ(status(0x808080), "CONFIRMED ");
}

TEST(StandardCalendarFile, AnAppointmentKeepsItsIdentityWhenItIsMoved) {
    const ReadEvent before = readBack(visit());
    EXPECT_EQ(readBack(visit(812, QDate(2026, 4, 1), 600, 660)).uid, before.uid);
    EXPECT_NE(readBack(visit(813, QDate(2026, 3, 11), 545, 590)).uid, before.uid);
    ExportedAppointment old = visit();
    old.createddate = {};
    EXPECT_EQ(readBack(old).uid, "812@solvane.example");
}

TEST(StandardCalendarFile, ARowThatComesTwiceStandsOnceAndTheOrderIsAlwaysTheSame) {
    const std::vector<ExportedAppointment> appointments{
        visit(3, QDate(2026, 3, 12), 540, 600), visit(2, QDate(2026, 3, 11), 540, 600),
        visit(2, QDate(2026, 3, 11), 540, 600), visit(1, QDate(2026, 3, 11), 540, 570)};
    const QByteArray file = StandardCalendar(appointments, NewYork, Stamp);
    QStringList keys;
    for (const ReadEvent& event : readBack(appointments))
        keys << event.uid.section(u'-', 0, 0);
    EXPECT_EQ(keys, (QStringList{"1", "2", "3"}));
    std::vector<ExportedAppointment> shuffled = appointments;
    std::ranges::reverse(shuffled);
    EXPECT_EQ(StandardCalendar(shuffled, NewYork, Stamp), file);
}

TEST(StandardCalendarFile, ABookingUntilMidnightEndsAtTheBeginningOfTheNextDay) {
    EXPECT_EQ(readBack(visit(1, QDate(2026, 12, 31), 1380, 1440)).end, "2027-01-01T00:00:00");
}

TEST(StandardCalendarFile, ABookingThatDoesNotEndAfterItsStartHasNoEnd) {
    EXPECT_EQ(readBack(visit(1, QDate(2026, 3, 11), 540, 540)).end, "");
    EXPECT_EQ(readBack(visit(1, QDate(2026, 3, 11), 540, 480)).end, "");
}

TEST(StandardCalendarFile, ABookingForAllOfADayIsADate) {
    ExportedAppointment appointment = visit();
    appointment.allday = true;
    const ReadEvent event = readBack(appointment);
    EXPECT_EQ(event.start, "2026-03-11");
    EXPECT_EQ(event.end, "2026-03-12");
}

TEST(StandardCalendarFile, ARowWithoutADateIsLeftOut) {
    EXPECT_EQ(readBack({visit(), visit(813, QDate(), 540, 600)}).size(), 1U);
}
