#pragma once

#include <QDate>
#include <QString>

/// A range of time in one day of a schedule, in minutes since midnight.
struct SelectedSlot {
    QDate date;
    int start = 0;
    int end = 0;

    friend bool operator==(const SelectedSlot&, const SelectedSlot&) = default;
};

/// The provider in whose schedule something is booked.
struct BookedProvider {
    QString id;
    QString name;
};
