#include "output/icalendar.h"

#include <algorithm>
#include <QStringList>
#include <tuple>

#include "data/codes.h"
#include "data/minutetime.h"
#include "data/statuses.h"
#include "output/calendarzone.h"

namespace {

const QString Domain = QStringLiteral("solvane.example");
const QString DateForm = QStringLiteral("yyyyMMdd");
const QString MomentForm = QStringLiteral("yyyyMMdd'T'HHmmss");
constexpr qsizetype MostOctetsOfLine = 75;

QString productLine(const CalendarStamp& stamp) {
    return QStringLiteral("PRODID:-//%1//Solvane Schedular v%2//EN").arg(Domain, stamp.version);
}

// The fixed form.

QString momentText(QDate date, int minutes) {
    return QStringLiteral("%1T%2%3")
        .arg(date.toString(DateForm))
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

/// Returns the note in one line. Bars and line ends become a backslash and an n.
QString descriptionText(const QString& note) {
    QString text = note.trimmed();
    if (text.startsWith(u'|'))
        text.remove(0, 1);
    return text.replace(u'|', QStringLiteral("\\n")).replace(QStringLiteral("\r\n"), QStringLiteral("\\n")).trimmed();
}

QStringList fixedLines(const ExportedAppointment& appointment, const QDateTime& now) {
    const QString start = momentText(appointment.DApptDate, appointment.nStartTime) + QStringLiteral("00");
    const QString end = momentText(appointment.DApptDate, appointment.nEndTime) + QStringLiteral("00");
    return {QStringLiteral("BEGIN:VEVENT"),
            QStringLiteral("DTSTAMP:") + now.toString(MomentForm) + QStringLiteral("00"),
            QStringLiteral("DTSTART:") + start,
            QStringLiteral("DTEND:") + end,
            QStringLiteral("DESCRIPTION:") + descriptionText(appointment.CapptNote),
            QStringLiteral("SUMMARY:") + appointment.cappttext.trimmed(),
            QStringLiteral("PRIORITY:0"),
            QStringLiteral("LOCATION:") + appointment.CLOCATION.trimmed(),
            QStringLiteral("CLASS:PRIVATE"),
            QStringLiteral("UID:%1-%2@%3").arg(start, QString::number(appointment.nkeyid), Domain),
            QStringLiteral("END:VEVENT")};
}

// The form of RFC 5545.

/// Returns the text as a value of the file. Control characters cannot stand in one, so that they become blanks.
QString escaped(const QString& text) {
    QString value;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            continue;
        if (c == u'\n' || c == u'\r')
            value += QStringLiteral("\\n");
        else if (c == u'\\' || c == u';' || c == u',')
            value += QStringLiteral("\\") + c;
        else
            value += c.category() == QChar::Other_Control ? QChar(u' ') : c;
    }
    return value;
}

/// Returns where to cut a line, so that its first part has at most that many octets and no character is divided.
qsizetype cutOf(const QByteArray& line, qsizetype from, qsizetype most) {
    qsizetype end = std::min(from + most, line.size());
    while (end < line.size() && (static_cast<unsigned char>(line[end]) & 0xC0U) == 0x80U)
        --end;
    return end;
}

/// Returns the line with its line end, divided into lines of at most 75 octets. The blank with which a further line
/// begins is one of them.
QByteArray folded(const QString& line) {
    const QByteArray octets = line.toUtf8();
    QByteArray text;
    for (qsizetype from = 0; from < octets.size();) {
        const qsizetype end = cutOf(octets, from, from == 0 ? MostOctetsOfLine : MostOctetsOfLine - 1);
        text += (from == 0 ? QByteArray() : QByteArray(" ")) + octets.mid(from, end - from) + "\r\n";
        from = end;
    }
    return text;
}

QString statusOf(int code) {
    if (code == ncolor::PatientCancelled || code == ncolor::TherapistCancelled)
        return QStringLiteral("CANCELLED");
    if (code == ncolor::Tentative || code == ncolor::LegendTentative)
        return QStringLiteral("TENTATIVE");
    return QStringLiteral("CONFIRMED");
}

QStringList timeLines(const ExportedAppointment& appointment, const QString& zone) {
    const QDate date = appointment.DApptDate;
    if (appointment.allday)
        return {QStringLiteral("DTSTART;VALUE=DATE:") + date.toString(DateForm),
                QStringLiteral("DTEND;VALUE=DATE:") + date.addDays(1).toString(DateForm)};
    const QDateTime midnight(date, QTime(0, 0), Qt::UTC);
    const auto line = [&](const char* name, int minutes) {
        return QStringLiteral("%1;TZID=%2:%3")
            .arg(QLatin1String(name), zone, midnight.addSecs(qint64{minutes} * 60).toString(MomentForm));
    };
    QStringList lines{line("DTSTART", appointment.nStartTime)};
    // An event without an end ends where it starts; an end that is no later than the start is not allowed.
    if (appointment.nEndTime > appointment.nStartTime)
        lines << line("DTEND", appointment.nEndTime);
    return lines;
}

/// Returns a UID that no other appointment has, even in another practice, and that stays when the appointment is moved.
QString uidOf(const ExportedAppointment& appointment) {
    const QString created = appointment.createddate.toString(MomentForm);
    return QStringLiteral("%1%2@%3").arg(QString::number(appointment.nkeyid),
                                         created.isEmpty() ? QString() : u'-' + created, Domain);
}

QStringList standardLines(const ExportedAppointment& appointment, const QString& zone, const QDateTime& nowUtc) {
    QStringList lines{QStringLiteral("BEGIN:VEVENT"), QStringLiteral("UID:") + uidOf(appointment),
                      QStringLiteral("DTSTAMP:") + nowUtc.toString(MomentForm) + u'Z'};
    lines += timeLines(appointment, zone);
    lines << QStringLiteral("SUMMARY:") + escaped(appointment.cappttext.trimmed());
    const auto add = [&lines](const char* name, const QString& text) {
        if (!text.isEmpty())
            lines << QLatin1String(name) + escaped(text);
    };
    QString description = appointment.CapptNote;
    add("DESCRIPTION:", description.replace(u'|', u'\n').trimmed());
    add("LOCATION:", appointment.CLOCATION.trimmed());
    add("CATEGORIES:", QString::fromLatin1(StatusOf(appointment.ncolor).word));
    const QString status = statusOf(appointment.ncolor);
    lines << QStringLiteral("STATUS:") + status;
    // A cancelled appointment takes no time.
    if (status == QLatin1String("CANCELLED"))
        lines << QStringLiteral("TRANSP:TRANSPARENT");
    return lines << QStringLiteral("CLASS:PRIVATE") << QStringLiteral("END:VEVENT");
}

/// Brings the appointments into an order that is the same in every export, each of them once.
void sortOnce(std::vector<ExportedAppointment>& appointments) {
    const auto place = [](const ExportedAppointment& appointment) {
        return std::make_tuple(appointment.DApptDate, appointment.nStartTime, appointment.nkeyid);
    };
    std::erase_if(appointments, [](const ExportedAppointment& one) { return !one.DApptDate.isValid(); });
    std::ranges::sort(appointments, {}, place);
    const auto surplus = std::unique(
        appointments.begin(), appointments.end(),
        [](const ExportedAppointment& one, const ExportedAppointment& next) { return one.nkeyid == next.nkeyid; });
    appointments.erase(surplus, appointments.end());
}

}  // namespace

QByteArray FixedCalendar(const std::vector<ExportedAppointment>& appointments, const CalendarStamp& stamp) {
    QStringList lines{QStringLiteral("BEGIN:VCALENDAR"), QStringLiteral("METHOD:PUBLISH"),
                      QStringLiteral("VERSION:2.0"), productLine(stamp)};
    for (const ExportedAppointment& appointment : appointments)
        lines += fixedLines(appointment, stamp.now);
    lines << QStringLiteral("END:VCALENDAR") << QString();
    return lines.join(QStringLiteral("\r\n")).toUtf8();
}

QByteArray StandardCalendar(std::vector<ExportedAppointment> appointments, const QTimeZone& zone,
                            const CalendarStamp& stamp) {
    sortOnce(appointments);
    QStringList lines{QStringLiteral("BEGIN:VCALENDAR"), QStringLiteral("VERSION:2.0"), productLine(stamp),
                      QStringLiteral("CALSCALE:GREGORIAN")};
    if (!appointments.empty())
        lines += ZoneLines(zone, appointments.front().DApptDate, appointments.back().DApptDate);
    const QDateTime nowUtc = QDateTime(stamp.now.date(), stamp.now.time(), zone).toUTC();
    for (const ExportedAppointment& appointment : appointments)
        lines += standardLines(appointment, ZoneName(zone), nowUtc);
    lines << QStringLiteral("END:VCALENDAR");
    QByteArray text;
    for (const QString& line : lines)
        text += folded(line);
    return text;
}
