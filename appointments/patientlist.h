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
    QString account;                           ///< As the practice writes it.
    QString homePhone, workPhone, otherPhone;  ///< In the form of the practice's telephone mask; empty stays empty.
    QString cpt;                               ///< The code of the patient's usual service.
    QString email;

    /// The seven columns of a patient list: name, account, home and work telephone, service, other telephone, e-mail
    /// address.
    [[nodiscard]] QStringList ListRow() const;
};

/// The facts of the current row of a statement with the columns of the patient list.
[[nodiscard]] PatientFacts PatientOf(const db::Recordset& row);

/// The statement of the patient list: every patient who is not archived or, without the right to all schedules, those
/// of the session's provider; by name.
[[nodiscard]] QString PatientListStatement();

/// The first patient whose name, as "last, first", begins with the text in any case; the same patients as in the list.
/// Where there is none and the text ends like a name that is shown with its middle initial ("Jordan, Ed L."), the first
/// whose shown name begins with it. What means more than itself in a pattern ("%") stands for itself. Nothing for an
/// empty text. Throws db::DatabaseError.
[[nodiscard]] std::optional<PatientFacts> FindPatient(const QString& typed);

/// What tells one patient from the others whose names begin alike.
struct PatientMatch {
    QString id;
    QString name;     ///< As PatientFacts::name.
    QDate birthDate;  ///< Invalid where it is not known.
    QString account;
    QString homePhone;
};

/// The patients among whom FindPatient takes the first, and those whose shown name with the middle initial begins with
/// the text, in the same order; no more than `most`. One statement. Throws db::DatabaseError.
[[nodiscard]] std::vector<PatientMatch> MatchingPatients(const QString& typed, int most);

/// The patient of that id, archived or not. Throws db::DatabaseError.
[[nodiscard]] std::optional<PatientFacts> PatientOfId(const QString& id);
