#pragma once

#include <functional>
#include <QObject>
#include <QTimer>

#include "platform/database/recordset.h"

class ctList;

/// Fills a list with the rows of a cursor, a piece at a time between the events of the form, so that a hundred thousand
/// rows do not hold the form up. The list can be used meanwhile.
class ListFiller : public QObject {
    Q_OBJECT

  public:
    /// Adds the cursor's current row to the list.
    using AddRow = std::function<void(const db::Recordset& row)>;

    explicit ListFiller(ctList& list, QObject* parent = nullptr);

    /// Empties the list, and gives up what is still to be added to it and whom Seek still looks for.
    void Clear();
    /// Empties the list and begins to fill it. The first screen is there at once.
    void Fill(db::Recordset rows, AddRow addRow);
    /// Adds all remaining rows at once, for a caller that needs the whole list now.
    void Finish();
    [[nodiscard]] bool IsFilling() const { return timer_.isActive(); }

    /// Looks for the first row that fits and calls `found` with it, at once or as soon as it is on the list. When no
    /// row of the whole list fits, `found` gets -1. A new search replaces one that has not ended.
    void Seek(std::function<bool(int row)> fits, std::function<void(int row)> found);
    /// Ends a search without a call of its `found`.
    void StopSeeking();

    [[nodiscard]] int Loaded() const { return loaded_; }
    [[nodiscard]] int Total() const { return total_; }

  Q_SIGNALS:
    /// Tells how many of the rows are on the list now.
    void Progress(int loaded, int total);

  private:
    void addPiece(int rows);
    void seekFrom(int row);

    ctList& list_;
    db::Recordset rows_;
    AddRow addRow_;
    QTimer timer_;
    int loaded_ = 0;
    int total_ = 0;
    std::function<bool(int row)> fits_;  ///< Empty unless a search has not ended.
    std::function<void(int row)> found_;
};
