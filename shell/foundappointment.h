#pragma once

#include <QDate>
#include <QString>

/// The place of an appointment that a search has found.
struct FoundAppointment {
    QString key;
    QDate date;
    int start = 0;  ///< Minutes since midnight.
    bool allDay = false;
};
