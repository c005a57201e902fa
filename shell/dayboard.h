#pragma once

#include <functional>
#include <optional>
#include <QDate>
#include <QObject>
#include <QSet>
#include <QString>
#include <span>
#include <vector>

#include "platform/calendar/item.h"
#include "platform/database/recordset.h"

class ctMDay;

/// What a view decides about the items of its board; a rule that is left out locks nothing and names nobody.
struct BoardRules {
    /// Sets the item's two locks, as the user's rights and the kind of item say. It is asked whenever an item is shown,
    /// and again just before the user works on it.
    std::function<void(CalendarItem& item)> lock;
    /// Which of the items name a patient, in their order. It is asked only while the patients' names are hidden, of all
    /// items of a load at once, so that a view which has to look that up does so once.
    std::function<std::vector<bool>(std::span<const CalendarItem> items)> namesPatients;
};

/// A day grid as the views are made of it: how it is loaded, with the preferred hours, the shading around working
/// hours, the hidden names and the locks. What its items stand for only the view knows.
///
/// A load goes from BeginLoad to EndLoad; between them the view widens the grid to its rows and adds the items. A load
/// that fails half way is ended all the same.
class DayBoard : public QObject {
  public:
    /// Makes the grid, a child of `view`, under this object name.
    DayBoard(const QString& gridName, BoardRules rules, QWidget* view);

    /// The grid's step in minutes, and the hours counted to 12 or 24 as the preferences say.
    void SetScale(int slotMinutes);

    /// Empties the grid for what stands under this date and belongs to `of`: a provider, a room, whatever the view
    /// shows one of at a time; "" where it shows them all. What is being typed is stored before its item goes. The grid
    /// has the preferred hours, neither a holiday nor its colours; columns and shading stay.
    void BeginLoad(QDate date, const QString& of = {});
    /// Opens the grid earlier where this minute is before its first; a row without a start, below 0, opens nothing.
    void WidenTo(int startMinute);
    /// Adds the item that was made of a row of the database, and returns its index. A row that a join gives more than
    /// once makes one item in a column and a day: for the others it is 0.
    int AddRow(CalendarItem item);
    /// Adds an item with all its attributes, and returns its index.
    int AddItem(CalendarItem item);
    /// A reload of what was shown before keeps its place and its selected item, the one of the same column where
    /// several have its key. Anything else starts at its first minute.
    void EndLoad();

    /// Shades what lies outside the working hours of a row of ProvSched, in a column (0: in each) or on a day; a null
    /// or no start shades the whole day.
    void ShadeAround(const db::Recordset& hours, int column = 0);
    void ShadeAround(const db::Recordset& hours, QDate day);

    /// Shows the item in place of the one that stands at the index, as it is stored now or was stored before; an index
    /// below 1 is ignored.
    void Show(int index, CalendarItem item);
    /// Asks anew what of the item is locked.
    void Lock(int index);

    /// Whether this is what was loaded last.
    [[nodiscard]] bool Shows(QDate date, const QString& of = {}) const;
    /// The selected item as the grid holds it; nothing where none is selected.
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const;
    [[nodiscard]] ctMDay& Grid() const { return *grid_; }

    static constexpr int NonWorkingColor = 0x808080;

  private:
    /// What tells the item of one row from those of all others, of another kind with the same key among them.
    struct RowPlace {
        QString key;
        QDate day;
        int column = 0;
        int color = 0;

        friend bool operator==(const RowPlace&, const RowPlace&) = default;
        friend std::size_t qHash(const RowPlace& place, std::size_t seed = 0) {
            return qHashMulti(seed, place.key, place.day.toJulianDay(), place.column, place.color);
        }
    };
    /// What EndLoad puts back.
    struct KeptPlace {
        std::optional<int> topTime;
        std::optional<CalendarItem> selected;
    };

    void setHours();
    void hideNames(int first, int count);
    [[nodiscard]] int indexOf(const CalendarItem& kept) const;

    ctMDay* grid_;
    BoardRules rules_;
    QDate date_;
    QString of_;
    bool loading_ = false;
    KeptPlace kept_;
    QSet<RowPlace> rows_;
};
