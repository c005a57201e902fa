#pragma once

#include <QDate>
#include <QHash>
#include <QStringList>

#include "session/listfiller.h"

class ctList;

/// Gives a list the seven columns of PatientFacts::ListRow with these headings and, as the eighth, the birth date. The
/// birth date stands beside the name, because it tells namesakes apart. At the width of the editor the name, birth
/// date, account and home telephone are in sight; the user scrolls to the other columns where there is no room for
/// them.
void SetPatientColumns(ctList& list, const QStringList& headings);

/// Fills a list with the patients (PatientListStatement). The column data is PatientFacts::ListRow and the birth date,
/// the item data is the patient's id, and the item text is the name. On a failure the user is told "Error loading
/// patient list. " with the reason. When only the birth dates cannot be read, the list is filled without them.
class PatientFiller : public ListFiller {
    Q_OBJECT

  public:
    explicit PatientFiller(ctList& list, QObject* parent = nullptr);

    /// Empties the list and begins anew.
    void loadpatients();
    /// Selects a patient and begins the list there, as soon as the patient is on the list. With an id this is the
    /// patient of that id. Without an id it is the first whose name begins with `name` or, where no name does, with the
    /// longest beginning of `name` that fits anybody. Without an id and a name nothing is selected. A row that the user
    /// selects in the meantime stays selected.
    void StartAt(const QString& id, const QString& name);

  private:
    void readBirthDates();
    void addPatient(const db::Recordset& row);
    void startAtName(const QString& name);
    void start(int row);

    ctList& list_;
    QHash<QString, QDate> birthDates_;  ///< By the patient's id.
};
