#pragma once

#include <optional>
#include <QDate>
#include <QString>
#include <vector>

#include "platform/database/recordset.h"

/// A patient as the look-ups of an appointment show them.
struct PatientFacts {
    QString id;
    QString name;                              ///< "O'Brien, Anna M."
    QString account;                           ///< The account number as the practice writes it.
    QString homePhone, workPhone, otherPhone;  ///< In the form of the practice's telephone mask, or empty.
    QString cpt;                               ///< The code of the patient's usual service.
    QString email;

    /// The seven columns of a patient list: name, account, home and work telephone, service, other telephone, e-mail
    /// address.
    [[nodiscard]] QStringList ListRow() const;
};

/// The facts of the current row of a statement with the columns of the patient list.
[[nodiscard]] PatientFacts PatientOf(const db::Recordset& row);

/// The statement of the patient list, ordered by name: every patient who is not archived. Without the right to all
/// schedules it holds only the patients of the session's provider and those to whom this provider was given access.
[[nodiscard]] QString PatientListStatement();

/// Returns the first patient of the list whose name, as "last, first", begins with the text, in any letter case.
/// Without the right to all schedules, a patient to whom the provider was given access is found by the last name alone.
/// When nobody is found and the text ends like a name with its middle initial ("Jordan, Ed L."), the first patient
/// whose shown name begins with the text is returned. A character with a meaning in a pattern ("%") stands for itself.
/// An empty text finds nobody. Throws db::DatabaseError.
[[nodiscard]] std::optional<PatientFacts> FindPatient(const QString& typed);

/// A patient with the data that tells apart patients whose names begin alike.
struct PatientMatch {
    QString id;
    QString name;     ///< The name in the form of PatientFacts::name.
    QDate birthDate;  ///< Invalid when it is not known.
    QString account;
    QString homePhone;
};

/// Returns the patients among whom FindPatient takes the first, and those whose shown name with the middle initial
/// begins with the text, in the order of the list and at most `most` of them. One statement reads them. Throws
/// db::DatabaseError.
[[nodiscard]] std::vector<PatientMatch> MatchingPatients(const QString& typed, int most);

/// Returns the patient with this id, archived or not. Throws db::DatabaseError.
[[nodiscard]] std::optional<PatientFacts> PatientOfId(const QString& id);
