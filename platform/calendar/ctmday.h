#pragma once

#include <functional>
#include <optional>
#include <QDateTime>
#include <QWidget>

#include "platform/calendar/content.h"
#include "platform/calendar/item.h"

class QPainter;
struct CalendarStyle;

/// One day in a column, days as columns (a week), or providers as columns: a time grid with items.
///
/// Items are counted from 1 in the order they were added; RemoveItem moves the later ones down by one. A wrong index is
/// harmless: it reads as an empty item, and what is written to it is lost. Selecting an item and selecting a range of
/// time exclude each other.
///
/// Signals marked (queued) come after the mouse or key event that caused them has ended, so that a view may open boxes
/// and dialogs, reload or remove items there. A test lets them through with QCoreApplication::processEvents().
class ctMDay : public QWidget {
    Q_OBJECT

  public:
    explicit ctMDay(QWidget* parent = nullptr);
    ~ctMDay() override;

    // The day, and its hours.
    void setDate(QDate date);
    void setFirstTime(int minute);  ///< First minute of the grid.
    void setLastTime(
        int minute);  ///< Last minute of the grid (1079: it ends at 18:00). Later items are counted below it.
    void setPrimeStart(int minute);
    void setPrimeEnd(int minute);
    void setTopTime(int minute);        ///< Scrolls so that this minute stands at the top, as far as there is room.
    void setTimeInterval(int minutes);  ///< Grid step, 5 to 60; drags snap to it.
    void setTwentyFourHour(bool on);
    void setDayBackColor(int color);
    void setDayHeaderColor(int color);
    void setHolidayFlag(bool on);
    void setReadOnly(bool on);  ///< Nothing can be moved, sized or edited; selecting, popup and activation stay.
    [[nodiscard]] QDate Date() const;
    [[nodiscard]] int FirstTime() const;
    [[nodiscard]] int LastTime() const;
    [[nodiscard]] int PrimeStart() const;
    [[nodiscard]] int PrimeEnd() const;
    [[nodiscard]] int TopTime() const;
    [[nodiscard]] int TimeInterval() const;
    [[nodiscard]] bool TwentyFourHour() const;
    [[nodiscard]] int DayBackColor() const;
    [[nodiscard]] int DayHeaderColor() const;
    [[nodiscard]] bool HolidayFlag() const;
    [[nodiscard]] bool ReadOnly() const;

    // Items. An open in-place edit is committed (TextEdited) before ClearItems, RemoveItem and setDate do their work.
    void ClearItems();
    /// Adds an item and returns its index. A null day means Date().
    int AddItem(int start, int end, QDate day, const QString& text, const QString& key);
    void RemoveItem(int index);
    /// The item for changing; the control lays out anew at the next paint. The reference holds until items are added or
    /// removed.
    CalendarItem& Item(int index);
    [[nodiscard]] const CalendarItem& Item(int index) const;
    [[nodiscard]] int ItemCount() const;
    [[nodiscard]] int IndexOfKey(const QString& key) const;  ///< The first item with that key; 0 when none.

    // Painted ranges, from the minute `start` through the minute `end`. Column 0 means every column.
    void AddTimeRange(int start, int end, int color, int column = 0);
    void AddTimeRange(int start, int end, int color, QDate day);
    void ClearTimeRanges();
    [[nodiscard]] const std::vector<TimeRange>& TimeRanges() const { return content_.ranges; }

    // Columns. Without any, the control shows one column, its Date.
    void ClearColumns();
    int AddColumn(const QString& title);  ///< Returns its 1-based number.
    void setDayColumns(int count);        ///< Days as columns: column n stands for Date() + n - 1.
    void setVisibleColumns(int count);    ///< So many share the width, further ones are scrolled to; 0: as many as fit.
    /// QLocale date format of day headings, "ddd M/d"; empty: the control's own, which also depends on the width.
    void setHeadingFormat(const QString& format);
    [[nodiscard]] int ColumnCount() const;
    [[nodiscard]] QString ColumnTitle(int column) const;
    [[nodiscard]] int VisibleColumns() const;
    /// The column in which the item stands; 0 when it has none.
    [[nodiscard]] int ColumnOfItem(int index) const;

    // Selection.
    void setSelectedItem(int index);
    void selectRange(int column, int start, int end);
    void clearSelection();
    [[nodiscard]] int SelectedItem() const;   ///< Below 1: none.
    [[nodiscard]] int SelectedRange() const;  ///< Below 0: none; else the 0-based column of the selected range.
    [[nodiscard]] int SelStart() const;       ///< First minute of the range.
    [[nodiscard]] int SelEnd() const;         ///< Minute at which the range ends.
    [[nodiscard]] int SelColumn() const;      ///< 1-based column of the range; 0: none.
    void ScrollToItem(int index);

    // In-place text, also by F2 and a slow second click.
    void EditItem(int index);
    /// Commits an open in-place edit and delivers its TextEdited at once.
    void CommitEdit();
    [[nodiscard]] bool IsEditing() const;

    /// The clock of the line that marks the present; the desktop's unless a test gives another.
    void setClock(std::function<QDateTime()> clock);
    /// Sets the present time until the clock is next read, at the next full minute.
    void setNow(const QDateTime& now);

    /// Paints columns firstColumn (1-based) to firstColumn + columnCount - 1 into the area, the whole day without
    /// scrolling; the hours widen so that no item is left out. The style decides fonts and colours (PrintStyle).
    void paint(QPainter& painter, const QRectF& area, int firstColumn, int columnCount,
               const CalendarStyle& style) const;

    // Places in widget coordinates, for tests, popups and accessibility; empty when not on the control.
    [[nodiscard]] QRect ItemRect(int index) const;
    [[nodiscard]] QRect CellRect(int column, int minute) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The selected item changed, by whatever means; 0: none is selected now.
    void ItemSelected(int index);
    /// The user selected a range of time.
    void RangeSelected();
    /// Just before the item is edited in place, dragged, sized or moved by key: the view sets its locks now.
    void BeforeItemWork(int index);
    /// (queued) The user wants the item there; set *cancel to leave it where it is. Boxes may be shown.
    void BeforeDrop(int index, const ItemPlace& place, bool* cancel);
    /// (queued) The item was moved or sized and holds its new place; `old` is where it was.
    void ItemChanged(int index, const ItemPlace& old);
    /// (queued) A locked item was dragged or sized and stayed where it is.
    void MoveRefused(int index);
    /// (queued) In-place editing changed ItemText (at most 100 characters, possibly empty).
    void TextEdited(int index, const QString& oldText);
    /// (queued) Double click or Enter on an item.
    void ItemActivated(int index);
    /// (queued) Double click or Enter on empty time; the range is selected.
    void RangeActivated();
    /// (queued) Right mouse or Menu key; index 0: on empty time. A right click has selected what is under it.
    void PopupRequested(int index, const QPoint& globalPos);
    /// (queued) Delete was pressed on the selected item.
    void DeleteRequested(int index);
    void HeadingClicked(int column);
    /// Ctrl+Page Up (-1) and Ctrl+Page Down (+1).
    void DayStepRequested(int direction);

  private:
    struct Range {
        int column = 1;
        int start = 0;
        int end = 0;
    };

    CalendarContent content_;
    CalendarItem noItem_;  ///< What a wrong index reads and writes.
    int selectedItem_ = 0;
    std::optional<Range> range_;
    int visibleColumns_ = 0;
    int topTime_ = 0;
    bool readOnly_ = false;
};
