#pragma once

#include <functional>
#include <QObject>
#include <QTimer>

#include "platform/database/recordset.h"

class ctList;

/// Fills a list with the rows of a statement, a piece at a time between the events of the form, so that a hundred
/// thousand rows do not hold the form up. The list can be used meanwhile.
class ListFiller : public QObject {
    Q_OBJECT

  public:
    /// Adds the cursor's current row to the list.
    using AddRow = std::function<void(const db::Recordset& row)>;

    /// Reads the rows of the list, at most this many of them, or all with 0. Throws db::DatabaseError.
    using Read = std::function<db::Recordset(int most)>;
    using Failed = std::function<void(const db::DatabaseError& error)>;

    /// How many rows Fill reads at first, which is more than a screen shows.
    static constexpr int FirstRows = 200;

    explicit ListFiller(ctList& list, QObject* parent = nullptr);

    /// Empties the list, and gives up what is still to be added to it and whom Seek still looks for.
    void Clear();
    /// Empties the list and begins to fill it. The first screen is there at once.
    void Fill(db::Recordset rows, AddRow addRow);
    /// The same for a list whose reading alone may take long: the first rows are read and shown at once, and all of
    /// them as soon as the form is idle. Rows that another desk has changed in between are then shown as they are, and
    /// the selected one stays selected. Throws what the first reading throws. When the second one fails, `failed` is
    /// called, and the list keeps its first rows.
    void Fill(const Read& read, AddRow addRow, Failed failed);
    /// Adds all remaining rows at once, for a caller that needs the whole list now.
    void Finish();
    [[nodiscard]] bool IsFilling() const { return timer_.isActive(); }
    /// Whether the rest of the list could not be read, so that it ends with its first rows.
    [[nodiscard]] bool IsCutShort() const { return cutShort_; }

    /// Looks for the first row that fits and calls `found` with it, at once or as soon as it is on the list. When no
    /// row of the whole list fits, `found` gets -1. A new search replaces one that has not ended.
    void Seek(std::function<bool(int row)> fits, std::function<void(int row)> found);
    /// Ends a search without a call of its `found`.
    void StopSeeking();

    [[nodiscard]] int Loaded() const { return loaded_; }
    [[nodiscard]] int Total() const { return total_; }

  Q_SIGNALS:
    /// Tells how many of the rows are on the list now. `total` is -1 while only the first rows are read.
    void Progress(int loaded, int total);

  private:
    void begin(db::Recordset rows, AddRow addRow);
    void readRest();
    void addNext();
    void addPiece(int rows);
    void seekFrom(int row);

    ctList& list_;
    db::Recordset rows_;
    AddRow addRow_;
    Read readAll_;  ///< Empty unless only the first rows are read.
    Failed failed_;
    QTimer timer_;
    int loaded_ = 0;
    int total_ = 0;
    bool cutShort_ = false;
    std::function<bool(int row)> fits_;  ///< Empty unless a search has not ended.
    std::function<void(int row)> found_;
};
