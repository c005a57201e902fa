#include "tests/output/calendarreaders.h"

#include <gtest/gtest.h>

#include <libical/ical.h>
#include <memory>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/support/files.h"
#include "tests/support/testdatabase.h"

namespace {

using Component = std::unique_ptr<icalcomponent, decltype(&icalcomponent_free)>;

QString textOf(const char* text) {
    return text == nullptr ? QString() : QString::fromUtf8(text);
}

QString clockText(const icaltimetype& time) {
    if (icaltime_is_null_time(time) != 0)
        return {};
    const QDate date(time.year, time.month, time.day);
    return time.is_date != 0 ? date.toString(Qt::ISODate)
                             : QDateTime(date, QTime(time.hour, time.minute, time.second)).toString(Qt::ISODate);
}

QString utcText(const icaltimetype& time) {
    if (icaltime_is_null_time(time) != 0 || time.is_date != 0 || time.zone == nullptr)
        return {};
    icaltimetype utc = icaltime_convert_to_zone(time, icaltimezone_get_utc_timezone());
    return clockText(utc);
}

QString categoriesOf(icalcomponent* event) {
    icalproperty* categories = icalcomponent_get_first_property(event, ICAL_CATEGORIES_PROPERTY);
    return categories == nullptr ? QString() : textOf(icalproperty_get_categories(categories));
}

QString statusOf(icalcomponent* event) {
    const icalproperty_status status = icalcomponent_get_status(event);
    return status == ICAL_STATUS_NONE ? QString() : textOf(icalproperty_status_to_string(status));
}

// The library gives an event without an end the end of its duration, which is its start.
icaltimetype endOf(icalcomponent* event) {
    return icalcomponent_get_first_property(event, ICAL_DTEND_PROPERTY) == nullptr ? icaltime_null_time()
                                                                                   : icalcomponent_get_dtend(event);
}

ReadEvent eventOf(icalcomponent* event) {
    const icaltimetype start = icalcomponent_get_dtstart(event);
    const icaltimetype end = endOf(event);
    return {textOf(icalcomponent_get_uid(event)),
            clockText(start),
            utcText(start),
            clockText(end),
            utcText(end),
            utcText(icalcomponent_get_dtstamp(event)),
            textOf(icalcomponent_get_summary(event)),
            textOf(icalcomponent_get_description(event)),
            textOf(icalcomponent_get_location(event)),
            statusOf(event),
            categoriesOf(event)};
}

QString two(const QJsonValue& pair, int place) {
    return pair.toArray().at(place).toString();
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ReadEvent& event) {
    for (const QString& part : {event.uid, event.start, event.startUtc, event.end, event.endUtc, event.stampUtc,
                                event.summary, event.description, event.location, event.status, event.categories})
        out << part.toStdString() << " | ";
    return out;
}

std::vector<ReadEvent> ReadByLibical(const QByteArray& file) {
    const Component calendar(icalparser_parse_string(file.constData()), icalcomponent_free);
    if (!calendar) {
        ADD_FAILURE() << "This is no calendar file:\n" << file.constData();
        return {};
    }
    EXPECT_EQ(icalcomponent_isa(calendar.get()), ICAL_VCALENDAR_COMPONENT);
    EXPECT_EQ(icalcomponent_count_errors(calendar.get()), 0) << icalcomponent_as_ical_string(calendar.get());
    EXPECT_NE(icalrestriction_check(calendar.get()), 0) << icalcomponent_as_ical_string(calendar.get());
    std::vector<ReadEvent> events;
    for (icalcomponent* event = icalcomponent_get_first_component(calendar.get(), ICAL_VEVENT_COMPONENT);
         event != nullptr; event = icalcomponent_get_next_component(calendar.get(), ICAL_VEVENT_COMPONENT))
        events.push_back(eventOf(event));
    return events;
}

std::vector<ReadEvent> ReadByPython(const QByteArray& file) {
    const QTemporaryDir folder(TestFolderTemplate());
    const QString path = folder.filePath(QStringLiteral("calendar.ics"));
    PutFile(path, file);
    QProcess reader;
    reader.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(SVS_READCALENDAR), path});
    EXPECT_TRUE(reader.waitForFinished(60000) && reader.exitCode() == 0)
        << reader.readAllStandardError().toStdString() << file.constData();
    std::vector<ReadEvent> events;
    for (const QJsonValue& event : QJsonDocument::fromJson(reader.readAllStandardOutput()).array())
        events.push_back({event["uid"].toString(), two(event["start"], 0), two(event["start"], 1), two(event["end"], 0),
                          two(event["end"], 1), event["stamp"].toString(), event["summary"].toString(),
                          event["description"].toString(), event["location"].toString(), event["status"].toString(),
                          event["categories"].toString()});
    return events;
}
