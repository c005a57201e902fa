#pragma once

#include <QString>

#include "platform/database/recordset.h"

// The ways to reach a patient: the columns telephone_h, telephone_b, Other_Phone and EmailAddress of the record. The
// routines also take any other column that is shown beside them.

/// Returns a value of the column as it is shown. A telephone number takes the form of the practice's telephone mask,
/// the work telephone with room for an extension. Any other value stands in one line.
[[nodiscard]] QString ContactText(const QString& field, const QString& value);
/// Returns the same for a column of the cursor's current row.
[[nodiscard]] QString ContactText(const db::Recordset& row, const char* column);

/// The statement by which the editor reads the column. It finds the other telephone only when the kind of that
/// telephone is known.
[[nodiscard]] QString FieldStatement(const QString& patientId, const QString& field);
/// The statement by which the panel beside the day reads the column and the kind of the other telephone.
[[nodiscard]] QString DetailStatement(const QString& patientId, const QString& field);

/// Returns a column of a patient's record, read by FieldStatement, in the form of ContactText. The text is empty
/// without a patient or a value, and when the record cannot be read.
[[nodiscard]] QString PatientFieldText(const QString& patientId, const QString& field);

/// The values that DetailStatement reads. Both are empty without a patient, and when the record cannot be read.
struct ContactDetail {
    QString text;            ///< The value of the column in the form of ContactText.
    QString otherPhoneType;  ///< The kind of the patient's other telephone; empty when there is none.
};
[[nodiscard]] ContactDetail PatientDetail(const QString& patientId, const QString& field);
