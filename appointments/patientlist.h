#pragma once

#include <optional>
#include <QString>

#include "platform/database/recordset.h"

/// A patient as the look-ups of an appointment show them.
struct PatientFacts {
    QString id;
    QString name;                              ///< "O'Brien, Anna M."
    QString account;                           ///< As the practice writes it.
    QString homePhone, workPhone, otherPhone;  ///< In the form of the practice's telephone mask; empty stays empty.
    QString cpt;                               ///< The code of the patient's usual service.
    QString email;

    /// The seven columns of a patient list joined by ";": name, account, home and work telephone, service, other
    /// telephone, e-mail address.
    [[nodiscard]] QString ListRow() const;
};

/// The facts of the current row of a statement with the columns of the patient list.
[[nodiscard]] PatientFacts PatientOf(const db::Recordset& row);

/// The statement of the patient list: every patient who is not archived or, without the right to all schedules, those
/// of the session's provider; by name.
[[nodiscard]] QString PatientListStatement();

/// The first patient whose name, as "last, first", begins with the text in any case; the same patients as in the list.
/// What means more than itself in a pattern ("%") stands for itself. Nothing for an empty text. Throws
/// db::DatabaseError.
[[nodiscard]] std::optional<PatientFacts> FindPatient(const QString& typed);

/// The patient of that id, archived or not. Throws db::DatabaseError.
[[nodiscard]] std::optional<PatientFacts> PatientOfId(const QString& id);
