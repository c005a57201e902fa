#pragma once

#include <optional>
#include <QDate>
#include <QMap>
#include <QString>
#include <vector>

#include "appointments/appointmentroom.h"
#include "appointments/entrywrite.h"

/// The patients of an appointment in `AppointmentsGroup`, by id, and whether each attended.
using GroupAttendance = QMap<QString, bool>;

/// The statement that AttendanceOf reads.
[[nodiscard]] QString AttendanceStatement(int key);
/// Reads the attendance of the appointment `key`. Throws db::DatabaseError.
[[nodiscard]] GroupAttendance AttendanceOf(int key);

/// The data of a group appointment, as its dialog stores it.
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
    QString text;      ///< The group's name.
    QString location;  ///< Only the first LongestLocation characters are stored.
    QString note;
    QString provider;
    int groupId = 0;
    WantedRoom room;
    std::vector<Member> members;  ///< The scheduled patients.

    static constexpr int LongestLocation = 50;
};

/// The state of a group appointment in the database, as far as the dialog knows it.
struct GroupState {
    db::RowState row;
    std::optional<GroupAttendance> members;
    int room = 0;
};

/// The columns of the current row of `appointments` that a save of a group compares.
[[nodiscard]] db::RowState GroupRowState(const db::Recordset& row);

/// Writes a group appointment with its room and members to the row `key`, or to a new row when there is none. The save
/// fails when row, members or room are not as they were `loaded`.
[[nodiscard]] EntryOutcome SaveGroup(int key, const GroupFields& fields, const GroupState& loaded);
