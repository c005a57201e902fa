#pragma once

#include <QDate>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include "platform/database/recordset.h"

class ctList;

/// Gives a list the seven columns of PatientFacts::ListRow under these headings and, as the eighth, the birth date,
/// which tells namesakes apart and therefore stands beside the name. What a name, its birth date, account and home
/// telephone need is in sight at the width of the editor; the rest is reached by scrolling where there is no room.
void SetPatientColumns(ctList& list, const QStringList& headings);

/// Fills a list with the patients (PatientListStatement), a piece at a time between the events of the form, so that a
/// hundred thousand of them do not hold it up. Column data is PatientFacts::ListRow and the birth date, item data the
/// id, item text the name as it is. On a failure the user is told "Error loading patient list. " with the reason.
/// Without birth dates where only they cannot be read.
class PatientFiller : public QObject {
    Q_OBJECT

  public:
    explicit PatientFiller(ctList& list, QObject* parent = nullptr);

    /// Empties the list and begins anew.
    void loadpatients();
    [[nodiscard]] bool IsFilling() const { return timer_.isActive(); }
    /// Selects the patient of that id and begins the list there, as soon as the patient is on it; without an id the
    /// first whose name begins like `name`, or with as much of it as anybody's does. Nothing for neither. A row that is
    /// selected in the meantime stays.
    void StartAt(const QString& id, const QString& name);
    /// Adds all that is left at once, for who must look through the whole list now.
    void Finish();
    [[nodiscard]] int Loaded() const { return loaded_; }
    [[nodiscard]] int Total() const { return total_; }

  Q_SIGNALS:
    /// So many of the patients are on the list now.
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
    QString startId_;  ///< Where the list is to begin; both empty once it does.
    QString startName_;
};
