#include "output/icalendar.h"

#include <gtest/gtest.h>

namespace {

const CalendarStamp Stamp{QDateTime(QDate(2026, 3, 11), QTime(10, 7, 9), Qt::UTC), QStringLiteral("1.0.0")};

ExportedAppointment intake() {
    return {.nkeyid = 812,
            .DApptDate = QDate(2024, 3, 7),
            .nStartTime = 545,
            .nEndTime = 590,
            .cappttext = QStringLiteral("Jones, Mary"),
            .CapptNote = QStringLiteral("|Intake|call first"),
            .CLOCATION = QStringLiteral("Main Office")};
}

QStringList linesOf(const ExportedAppointment& appointment) {
    return QString::fromUtf8(FixedCalendar({appointment}, Stamp)).split(QStringLiteral("\r\n"));
}

/// What stands behind "NAME:" in the file.
QString valueOf(const ExportedAppointment& appointment, const QString& name) {
    for (const QString& line : linesOf(appointment))
        if (line.startsWith(name + u':'))
            return line.mid(name.size() + 1);
    return QStringLiteral("(none)");
}

}  // namespace

TEST(FixedCalendarFile, IsAsItHasAlwaysBeenToTheByte) {
    EXPECT_EQ(FixedCalendar({intake()}, Stamp).toStdString(),
              "BEGIN:VCALENDAR\r\n"
              "METHOD:PUBLISH\r\n"
              "VERSION:2.0\r\n"
              "PRODID:-//solvane.example//Solvane Schedular v1.0.0//EN\r\n"
              "BEGIN:VEVENT\r\n"
              "DTSTAMP:20260311T10070900\r\n"
              "DTSTART:20240307T090500\r\n"
              "DTEND:20240307T095000\r\n"
              "DESCRIPTION:Intake\\ncall first\r\n"
              "SUMMARY:Jones, Mary\r\n"
              "PRIORITY:0\r\n"
              "LOCATION:Main Office\r\n"
              "CLASS:PRIVATE\r\n"
              "UID:20240307T090500-812@solvane.example\r\n"
              "END:VEVENT\r\n"
              "END:VCALENDAR\r\n");
}

TEST(FixedCalendarFile, ANoteWithTwoBarsInFrontLosesOnlyTheFirst) {
    ExportedAppointment appointment = intake();
    appointment.CapptNote = QStringLiteral("||bring the card");
    EXPECT_EQ(valueOf(appointment, "DESCRIPTION"), "\\nbring the card");
}

TEST(FixedCalendarFile, BarsAndLineEndsOfANoteStandInOneLine) {
    ExportedAppointment appointment = intake();
    appointment.CapptNote = QStringLiteral("  90834  Psychotherapy|first\r\nsecond\r\n ");
    EXPECT_EQ(valueOf(appointment, "DESCRIPTION"), "90834  Psychotherapy\\nfirst\\nsecond");
    appointment.CapptNote = QStringLiteral("| ");
    EXPECT_EQ(valueOf(appointment, "DESCRIPTION"), "");
}

TEST(FixedCalendarFile, CommasAndSemicolonsStandAsTheyAre) {
    ExportedAppointment appointment = intake();
    appointment.cappttext = QStringLiteral(" Jones, Mary; Smith\\Lee ");
    appointment.CLOCATION = QStringLiteral("Room 1, left; up");
    EXPECT_EQ(valueOf(appointment, "SUMMARY"), "Jones, Mary; Smith\\Lee");
    EXPECT_EQ(valueOf(appointment, "LOCATION"), "Room 1, left; up");
}

TEST(FixedCalendarFile, EmptyColumnsAreEmptyLines) {
    const QStringList lines = linesOf({.nkeyid = 7, .DApptDate = QDate(2026, 3, 11)});
    EXPECT_TRUE(lines.contains("DESCRIPTION:"));
    EXPECT_TRUE(lines.contains("SUMMARY:"));
    EXPECT_TRUE(lines.contains("LOCATION:"));
    EXPECT_TRUE(lines.contains("DTSTART:20260311T000000"));
}

TEST(FixedCalendarFile, NoLineIsFoldedHoweverLong) {
    ExportedAppointment appointment = intake();
    appointment.CapptNote = QStringLiteral("long ").repeated(100);
    EXPECT_EQ(valueOf(appointment, "DESCRIPTION"), QStringLiteral("long ").repeated(100).trimmed());
}

TEST(FixedCalendarFile, AnEndAtMidnightStaysOnItsDay) {
    ExportedAppointment appointment = intake();
    appointment.nEndTime = 1440;
    EXPECT_EQ(valueOf(appointment, "DTEND"), "20240307T240000");
}

TEST(FixedCalendarFile, ARowThatComesTwiceStandsTwice) {
    EXPECT_EQ(FixedCalendar({intake(), intake()}, Stamp).count("UID:20240307T090500-812@"), 2);
}

TEST(FixedCalendarFile, LettersOfEveryScriptAreUtf8) {
    ExportedAppointment appointment = intake();
    appointment.cappttext = QStringLiteral("Åkesson, Zoë 山田 😀 כהן");
    EXPECT_TRUE(FixedCalendar({appointment}, Stamp).contains("SUMMARY:Åkesson, Zoë 山田 😀 כהן\r\n"));
}
