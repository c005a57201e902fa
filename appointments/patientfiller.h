#pragma once

#include <QDate>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include "platform/database/recordset.h"

class ctList;

/// Gives a list the seven columns of PatientFacts::ListRow with these headings and, as the eighth, the birth date. The
/// birth date stands beside the name, because it tells namesakes apart. At the width of the editor the name, birth
/// date, account and home telephone are in sight; the user scrolls to the other columns where there is no room for
/// them.
void SetPatientColumns(ctList& list, const QStringList& headings);

/// Fills a list with the patients (PatientListStatement), a piece at a time between the events of the form, so that a
/// hundred thousand patients do not hold the form up. The column data is PatientFacts::ListRow and the birth date, the
/// item data is the patient's id, and the item text is the name. On a failure the user is told "Error loading patient
/// list. " with the reason. When only the birth dates cannot be read, the list is filled without them.
class PatientFiller : public QObject {
    Q_OBJECT

  public:
    explicit PatientFiller(ctList& list, QObject* parent = nullptr);

    /// Empties the list and begins anew.
    void loadpatients();
    [[nodiscard]] bool IsFilling() const { return timer_.isActive(); }
    /// Selects a patient and begins the list there, as soon as the patient is on the list. With an id this is the
    /// patient of that id. Without an id it is the first whose name begins with `name` or, where no name does, with the
    /// longest beginning of `name` that fits anybody. Without an id and a name nothing is selected. A row that the user
    /// selects in the meantime stays selected.
    void StartAt(const QString& id, const QString& name);
    /// Adds all remaining patients at once, for a caller that must search the whole list now.
    void Finish();
    [[nodiscard]] int Loaded() const { return loaded_; }
    [[nodiscard]] int Total() const { return total_; }

  Q_SIGNALS:
    /// Tells how many of the patients are on the list now.
    void Progress(int loaded, int total);

  private:
    void readBirthDates();
    void startFrom(int row);
    [[nodiscard]] bool isStart(int row) const;
    void addPiece(int rows);

    ctList& list_;
    db::Recordset rows_;
    QHash<QString, QDate> birthDates_;  ///< By the patient's id.
    QTimer timer_;
    int loaded_ = 0;
    int total_ = 0;
    QString startId_;  ///< Where the list is to begin; both are empty once it does.
    QString startName_;
};
