#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <QDateTime>
#include <QTimer>
#include <QWidget>

#include "platform/calendar/content.h"
#include "platform/calendar/drag.h"
#include "platform/calendar/hittest.h"
#include "platform/calendar/painting.h"

class QLineEdit;
class QScrollBar;

/// One day in a column, days as columns (a week), or providers as columns: a time grid with items.
///
/// Items are counted from 1 in the order they were added; RemoveItem moves the later ones down by one. A wrong index is
/// harmless: it reads as an empty item, and what is written to it is lost. Selecting an item and selecting a range of
/// time exclude each other.
///
/// Signals marked (last) are the last thing that a mouse or key event does here, so that a view may open boxes and
/// dialogs, reload or remove items there. They never wait for the next event: what was typed ahead while the program
/// was busy finds what the event before it has opened. TextEdited alone waits, at most until CommitEdit.
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
    /// So many share the width, further ones are scrolled to; fewer where none could be read. 0: as many as fit.
    void setVisibleColumns(int count);
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
    void ScrollToColumn(int column);  ///< Sideways only.

    // In-place text, also by F2 and a slow second click.
    void EditItem(int index, const QString& typed = {});  ///< `typed` takes the place of the text that is edited.
    /// Commits an open in-place edit and delivers its TextEdited at once.
    void CommitEdit();
    [[nodiscard]] bool IsEditing() const;

    /// The clock of the line that marks the present, read at every full minute while the control is shown; the
    /// desktop's unless another is given.
    void setClock(std::function<QDateTime()> clock);
    /// A clock that stands still.
    void setNow(const QDateTime& now);

    /// Paints columns firstColumn (1-based) to firstColumn + columnCount - 1 into the area, the whole day without
    /// scrolling; the hours widen so that no item is left out. The style decides fonts and colours (PrintStyle).
    void paint(QPainter& painter, const QRectF& area, int firstColumn, int columnCount,
               const CalendarStyle& style) const;
    /// What the calendar shows, for who paints it elsewhere and later (PaintPage).
    [[nodiscard]] const CalendarContent& Content() const { return content_; }

    // Places in widget coordinates, for tests, popups and accessibility; empty when not on the control.
    [[nodiscard]] QRect ItemRect(int index) const;  ///< Of an item without room: the marker that counts it.
    [[nodiscard]] QRect CellRect(int column, int minute) const;
    [[nodiscard]] QRect HeadingRect(int column) const;
    [[nodiscard]] std::vector<int> ItemsInReadingOrder() const;  ///< As Tab goes through them.
    [[nodiscard]] QString AccessibleItemName(int index) const;   ///< "9:00 AM to 9:50 AM, Anna O'Brien, Kept"
    [[nodiscard]] QString ToolTipOf(int index) const;
    [[nodiscard]] QString SelectionText() const;  ///< The selected range in words; empty without one.

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The selected item changed, by whatever means; 0: none is selected now.
    void ItemSelected(int index);
    /// The user selected a range of time.
    void RangeSelected();
    /// Just before the item is edited in place, dragged, sized or moved by key: the view sets its locks now.
    void BeforeItemWork(int index);
    /// (last) The user wants the item there; set *cancel to leave it where it is. Boxes may be shown.
    void BeforeDrop(int index, const ItemPlace& place, bool* cancel);
    /// (last) The item was moved or sized and holds its new place; `old` is where it was.
    void ItemChanged(int index, const ItemPlace& old);
    /// (last) A locked item was dragged or sized and stayed where it is.
    void MoveRefused(int index);
    /// In-place editing changed ItemText (at most 100 characters, possibly empty).
    void TextEdited(int index, const QString& oldText);
    /// (last) Double click or Enter on an item.
    void ItemActivated(int index);
    /// (last) Double click or Enter on empty time; the range is selected.
    void RangeActivated();
    /// A letter was typed on a selected range: whoever makes an item of it edits it with this text.
    void RangeTyped(const QString& text);
    /// (last) Right mouse or Menu key; index 0: on empty time. A right click has selected what is under it.
    void PopupRequested(int index, const QPoint& globalPos);
    /// (last) Delete was pressed on the selected item.
    void DeleteRequested(int index);
    void HeadingClicked(int column);
    /// Ctrl+Page Up (-1) and Ctrl+Page Down (+1).
    void DayStepRequested(int direction);

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// What a press has begun.
    struct Press {
        QPoint pos;
        Hit hit;
        bool wasSelected = false;
        bool refused = false;  ///< The item turned out to be locked.
        int anchorStart = 0;   ///< The row in which a range begins.
        int anchorEnd = 0;
    };
    /// A signal that waits for its event to do the rest of its work.
    struct Report {
        enum class Kind { Drop, Refused, Text, Activated, RangeActivated, Popup, Delete };
        Kind kind = Kind::Activated;
        int index = 0;
        int generation = 0;
        ItemPlace place;
        QString text;
        QPoint pos;
    };

    // Arrangement: layout, geometry and scroll bars follow from content, style and size, when someone asks.
    void invalidate();
    void arrange() const;
    void fitInto(const QSize& size) const;
    void placeScrollBars(bool vertical, bool horizontal) const;
    void scrollTo(int x, int y);
    [[nodiscard]] int scrollXFor(int column) const;
    void scrolled();
    void zoomAt(int y, double factor);
    void tick();
    [[nodiscard]] const CalendarGrid& grid() const;
    [[nodiscard]] const CalendarLayout& layout() const;
    [[nodiscard]] Hit hitAt(QPoint pos) const;
    /// Where an item without a place in the grid stands: its banner, or the marker that counts it.
    [[nodiscard]] QRect stripOf(int index, int column) const;

    // Selection.
    [[nodiscard]] bool hasItem(int index) const { return index >= 1 && index <= ItemCount(); }
    void selectTime(const SelectedTime& time);
    void announceSelection();
    void selectMarked(const MarkerHit& marker);

    // Mouse.
    void pressLeft(QMouseEvent* event, const Hit& hit);
    void pressCell(const CellHit& cell, bool extend);
    void rightClick(QPoint pos, QPoint globalPos);
    void showHover(const Hit& hit);
    void dragTo(QPoint pos);
    [[nodiscard]] bool isUnder(QPoint globalPos) const;
    void extendRangeTo(QPoint pos);
    void autoScroll();
    void cancelGesture();
    [[nodiscard]] bool beginDrag();
    [[nodiscard]] bool mayMove(int index);
    [[nodiscard]] bool mayEdit(int index);

    // Keyboard.
    [[nodiscard]] bool stepItem(int direction);
    bool keyOnSelection(QKeyEvent* event);
    bool keyMovesItem(QKeyEvent* event);
    bool keyMovesCell(QKeyEvent* event);
    void goToRow(int column, int minute, bool extend);
    void stepInColumn(int direction);
    [[nodiscard]] SelectedTime rowAt(int column, int minute) const;
    [[nodiscard]] SelectedTime startCell() const;
    [[nodiscard]] QPoint popupPlace() const;

    // In-place text.
    void placeEditor() const;
    void closeEditor(bool commit);

    // Signals at the end of an event.
    void report(Report::Kind kind, int index, const QString& text = {}, QPoint pos = {});
    void reportText(int index, const QString& oldText);
    void reportDrop(int index, const ItemPlace& place);
    void deliverReports();
    void deliverTexts();
    void deliver(const Report& report);
    void deliverDrop(const Report& report);

    CalendarContent content_;
    CalendarItem noItem_;  ///< What a wrong index reads and writes.
    int generation_ = 0;   ///< Grows whenever indexes change their meaning.
    int visibleColumns_ = 0;
    int topTime_ = 0;
    double zoom_ = 1;
    bool readOnly_ = false;
    std::function<QDateTime()> clock_;

    // What arrange makes of the rest.
    mutable bool dirty_ = true;
    mutable bool scrolling_ = false;  ///< The scroll bars are being set, not used.
    mutable CalendarStyle style_;
    mutable CalendarLayout layout_;
    mutable CalendarGrid grid_;
    CalendarState state_;
    QScrollBar* vertical_ = nullptr;
    QScrollBar* horizontal_ = nullptr;

    std::optional<Press> press_;
    std::optional<Drag> drag_;
    std::optional<SelectedTime> rangeBeforePress_;
    int rangeAnchor_ = 0;  ///< Minute from which Shift extends the range.
    QPoint lastDragPos_;

    QLineEdit* editor_ = nullptr;
    int editedItem_ = 0;

    std::deque<Report> reports_;
    QTimer presentTimer_;
    QTimer scrollTimer_;
    QTimer editTimer_;  ///< Runs between the slow second click and the in-place edit.
    QTimer textTimer_;  ///< Runs from the end of an in-place edit until it is reported.
};
