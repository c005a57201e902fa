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

/// What a view decides about the items of its board. A rule that is left out locks nothing and names nobody.
struct BoardRules {
    /// Sets the item's two locks by the user's rights and the kind of item. It is called whenever an item is shown, and
    /// again just before the user works on it.
    std::function<void(CalendarItem& item)> lock;
    /// Returns which of the items name a patient, in their order. It is called only while the patients' names are
    /// hidden. It gets all items of a load at once, so that a view that has to look this up asks the database once.
    std::function<std::vector<bool>(std::span<const CalendarItem> items)> namesPatients;
    /// Whether an item whose key is that of another item is of the same row. Without this rule it always is. A view
    /// that shows the rows of two tables needs it, because the selection must not go over to a row of the other table.
    std::function<bool(const CalendarItem& item, const CalendarItem& other)> sameRow = {};
};

/// A day grid together with the way in which a view loads it: the preferred hours, the shading around working hours,
/// the locks, the hidden names, and the place that a reload keeps. Only the view knows what the items stand for.
///
/// A load goes from BeginLoad to EndLoad. Between them the view widens the grid to its rows and adds the items. EndLoad
/// is also called when reading failed half way.
class DayBoard : public QObject {
  public:
    /// Makes the grid under this object name. Board and grid belong to `view`.
    DayBoard(const QString& gridName, BoardRules rules, QWidget* view);

    /// Sets the grid's step in minutes, and the 12 or 24 hour clock of the preferences.
    void SetScale(int slotMinutes);

    /// Empties the grid for the items of this date and of `of`. `of` is the id of the provider or the room when the
    /// view shows one at a time, and "" when it shows them all. Text that is being typed is stored before its item is
    /// removed. The grid gets the preferred hours and loses the marks of a holiday. Columns and shading stay.
    void BeginLoad(QDate date, const QString& of = {});
    /// Makes the grid begin at this minute of the day when it would begin later. A minute below 0, which a row without
    /// a start has, changes nothing.
    void WidenTo(int startMinute);
    /// Adds the item that was made of a row of the database, and returns its index. When a join gives the row more than
    /// once, only its first item in a column and a day is added; for the others the routine returns 0.
    int AddRow(CalendarItem item);
    /// Adds an item that belongs to no row, such as a banner, and returns its index.
    int AddItem(CalendarItem item);
    /// Hides the patients' names if they are to be hidden, and scrolls the grid. A reload of the same date and `of`
    /// keeps the place and the selected item. When several items have its key, the one in the same column and on the
    /// same day is selected. Any other load starts at the first minute.
    void EndLoad();

    /// Shades the time outside the working hours that a row of ProvSched holds, in a column (in every column when it is
    /// 0) or on a day. A start that is null or 0 shades the whole day.
    void ShadeAround(const db::Recordset& hours, int column = 0);
    void ShadeAround(const db::Recordset& hours, QDate day);

    /// Replaces the item at the index, to show what is stored now or to undo a change of the user's. An index below 1
    /// is ignored.
    void Show(int index, CalendarItem item);
    /// Sets the locks of the item anew.
    void Lock(int index);

    /// Whether the last load was of this date and this `of`.
    [[nodiscard]] bool Shows(QDate date, const QString& of = {}) const;
    /// Returns the selected item as the grid holds it, or nothing when none is selected.
    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const;
    [[nodiscard]] ctMDay& Grid() const { return *grid_; }

    static constexpr int NonWorkingColor = 0x808080;

  private:
    /// Identifies the item of a row. Rows of two tables may have the same key, but never the same colour.
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
    /// The place and the selection that EndLoad restores.
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
