#pragma once

#include <QString>

#include "platform/database/recordset.h"

// How a patient is reached: the columns telephone_h, telephone_b, Other_Phone and EmailAddress of the record, and any
// other column that is shown beside them.

/// A value of the column as it is shown: a telephone in the form of the practice's telephone mask, that of the work
/// with room for an extension, anything else in one line.
[[nodiscard]] QString ContactText(const QString& field, const QString& value);
/// The same for the column of the cursor's current row.
[[nodiscard]] QString ContactText(const db::Recordset& row, const char* column);

/// The statement of the column as the editor reads it; of the other telephone only where its kind is known.
[[nodiscard]] QString FieldStatement(const QString& patientId, const QString& field);
/// The statement of the column and of the kind of the other telephone, as the panel beside the day reads them.
[[nodiscard]] QString DetailStatement(const QString& patientId, const QString& field);

/// One column of a patient's record as FieldStatement reads and ContactText shows it; "" without a patient or a value,
/// and where it cannot be read.
[[nodiscard]] QString PatientFieldText(const QString& patientId, const QString& field);

/// What DetailStatement reads; empty without a patient, and where it cannot be read.
struct ContactDetail {
    QString text;            ///< See ContactText.
    QString otherPhoneType;  ///< The kind of the patient's other telephone; empty where there is none.
};
[[nodiscard]] ContactDetail PatientDetail(const QString& patientId, const QString& field);
