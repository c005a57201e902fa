#pragma once

#include <optional>
#include <QDate>
#include <QMap>
#include <QString>
#include <vector>

#include "appointments/appointmentroom.h"
#include "appointments/entrywrite.h"

/// Who is scheduled by the rows of `AppointmentsGroup`, by patient id, and whether they attended.
using GroupAttendance = QMap<QString, bool>;

[[nodiscard]] QString AttendanceStatement(int key);
/// Throws db::DatabaseError.
[[nodiscard]] GroupAttendance AttendanceOf(int key);

/// What the dialog of a group appointment leaves to be stored.
struct GroupFields {
    struct Member {
        QString patientId;
        QString account;
        QString name;
        bool kept = false;
    };

    QDate date;
    int start = 0;  ///< Minutes since midnight, as end.
    int end = 0;
    QString text;  ///< The group's name.
    QString location;
    QString note;
    QString provider;
    int groupId = 0;
    WantedRoom room;
    std::vector<Member> members;  ///< Who is scheduled.
};

/// What the database held of a group appointment, as far as the dialog knows.
struct GroupState {
    db::RowState row;
    std::optional<GroupAttendance> members;
    int room = 0;
};

/// The current row of `appointments` in the columns that a save of a group compares.
[[nodiscard]] db::RowState GroupRowState(const db::Recordset& row);

/// Writes a group appointment into the row `key`, or into a new one where there is none (any more), its room and its
/// members. Where row, members or room are not as they were `loaded` nothing is written over: that is a failure.
[[nodiscard]] EntryOutcome SaveGroup(int key, const GroupFields& fields, const GroupState& loaded);
