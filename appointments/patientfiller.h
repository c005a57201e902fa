#pragma once

#include <functional>
#include <QObject>
#include <QTimer>

#include "platform/database/recordset.h"

class ctList;

/// Fills a list with the patients (PatientListStatement), a piece at a time between the events of the form, so that a
/// hundred thousand of them do not hold it up. Column data is PatientFacts::ListRow, item data the id, item text the
/// name as it is. On a failure the user is told "Error loading patient list. " with the reason.
class PatientFiller : public QObject {
    Q_OBJECT

  public:
    explicit PatientFiller(ctList& list, QObject* parent = nullptr);

    /// Empties the list and begins anew.
    void loadpatients();
    [[nodiscard]] bool IsFilling() const { return timer_.isActive(); }
    /// Adds all that is left at once, for who must look through the whole list now.
    void Finish();
    [[nodiscard]] int Loaded() const { return loaded_; }
    [[nodiscard]] int Total() const { return total_; }

  Q_SIGNALS:
    /// So many of the patients are on the list now.
    void Progress(int loaded, int total);

  private:
    void addPiece(int rows);

    ctList& list_;
    db::Recordset rows_;
    QTimer timer_;
    int loaded_ = 0;
    int total_ = 0;
};
