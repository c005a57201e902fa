#pragma once

#include <ostream>
#include <QByteArray>
#include <QString>
#include <vector>

/// An event as another program reads it from a calendar file. Times are written "2026-03-11T09:05:00" on the clocks of
/// their zone and in UTC, dates without a time "2026-03-11"; what the file does not hold is empty.
struct ReadEvent {
    QString uid;
    QString start, startUtc;
    QString end, endUtc;
    QString stampUtc;
    QString summary, description, location, status, categories;

    friend bool operator==(const ReadEvent&, const ReadEvent&) = default;
};

std::ostream& operator<<(std::ostream& out, const ReadEvent& event);

/// These read the events in the order of the file. A complaint of theirs fails the test.
[[nodiscard]] std::vector<ReadEvent> ReadByLibical(const QByteArray& file);
[[nodiscard]] std::vector<ReadEvent> ReadByPython(const QByteArray& file);
