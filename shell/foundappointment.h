#pragma once

#include <QDate>
#include <QString>

/// Where an appointment stands to which a search leads.
struct FoundAppointment {
    QString key;
    QDate date;
    int start = 0;  ///< Minutes since midnight.
    bool allDay = false;
};
