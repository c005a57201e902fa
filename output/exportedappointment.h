#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include "output/patientnaming.h"

namespace db {
class Recordset;
}

/// A row of `appointments` as the exports read it.
struct ExportedAppointment {
    qint64 nkeyid = 0;
    QDate DApptDate = {};  ///< Invalid where the row has none.
    int nStartTime = 0;    ///< Minutes since midnight.
    int nEndTime = 0;
    QString cappttext = {};
    QString CapptNote = {};
    QString CLOCATION = {};
    int ncolor = 0;
    bool allday = false;
    QDateTime createddate = {};  ///< Invalid where the row has none.
    bool namesPatient = false;
    QString patientNumber = {};  ///< The account, or the patient's id where there is no account.

    friend bool operator==(const ExportedAppointment&, const ExportedAppointment&) = default;
};

/// Reads the current row of "Select appointments.* ...". Null columns are empty.
[[nodiscard]] ExportedAppointment ExportedRow(const db::Recordset& row);

/// Returns the appointment as it may leave the program. A patient is named as `naming` says; a patient without a number
/// is then named by initials. While patients' names are hidden, the name and the note are hidden instead. The texts of
/// activities, unavailable time and groups stay.
[[nodiscard]] ExportedAppointment Named(ExportedAppointment appointment, PatientNaming naming);
