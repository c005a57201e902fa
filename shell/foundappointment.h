#pragma once

#include <QDate>
#include <QString>

/// The place of an appointment that a search has found.
struct FoundAppointment {
    QString key;
    QDate date;
    int start = 0;  ///< Minutes since midnight.
    bool allDay = false;
    /// The provider whose column shows it in the view of all providers; empty for the session's provider.
    QString provider = {};
};
