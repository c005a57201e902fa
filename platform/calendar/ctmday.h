#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <QDateTime>
#include <QEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "platform/calendar/content.h"
#include "platform/calendar/drag.h"
#include "platform/calendar/hittest.h"
#include "platform/calendar/painting.h"
#include "platform/calendar/touch.h"

class QLineEdit;
class QScrollBar;
class QTouchEvent;

/// A time grid with items in one column (a day), in days as columns (a week), or in providers as columns.
///
/// Items are counted from 1 in the order in which they were added. RemoveItem moves the later ones down by one. A wrong
/// index is harmless: it reads as an empty item, and a change of that item is lost. Items before and after the hours
/// shown are counted in strips above and below the grid. An item and a range of time are never selected at once.
///
/// On a touch screen one finger scrolls. A tap is a click. A finger that is held still takes the item under it, which
/// then moves with the finger, or draws a range of time; lifted where it was held, it asks for the popup.
///
/// A signal marked (last) is raised at the end of a mouse or key event, so that a view may open boxes and dialogs,
/// reload or remove items in its slot. It never waits for the next event, so that keys typed ahead while the program
/// was busy reach the dialog that the event before them has opened. Only TextEdited waits, at most until CommitEdit.
class ctMDay : public QWidget {
    Q_OBJECT

  public:
    explicit ctMDay(QWidget* parent = nullptr);
    ~ctMDay() override;

    // The day, and its hours.
    void setDate(QDate date);
    void setFirstTime(int minute);  ///< First minute of the grid.
    /// The last minute of the grid: with 1079 it ends at 18:00.
    void setLastTime(int minute);
    void setPrimeStart(int minute);
    void setPrimeEnd(int minute);
    void setTopTime(int minute);        ///< Scrolls this minute to the top, as far as there is room.
    void setTimeInterval(int minutes);  ///< The step of the grid, 5 to 60. Drags snap to it.
    void setTwentyFourHour(bool on);
    void setDayBackColor(int color);
    void setDayHeaderColor(int color);
    void setHolidayFlag(bool on);
    void setReadOnly(bool on);  ///< Forbids moving, sizing and editing. Selecting, popup and activation stay.
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
    /// Adds an item and returns its index. A null day means the date of the control.
    int AddItem(int start, int end, QDate day, const QString& text, const QString& key);
    void RemoveItem(int index);
    /// Returns the item for changing. The control lays its items out anew at the next paint. The reference is valid
    /// until items are added or removed.
    CalendarItem& Item(int index);
    [[nodiscard]] const CalendarItem& Item(int index) const;
    [[nodiscard]] int ItemCount() const;
    [[nodiscard]] int IndexOfKey(const QString& key) const;  ///< The first item with that key, or 0.

    // Painted ranges, from the minute `start` to the minute `end`, both included. Column 0 means every column.
    void AddTimeRange(int start, int end, int color, int column = 0);
    void AddTimeRange(int start, int end, int color, QDate day);
    void ClearTimeRanges();
    [[nodiscard]] const std::vector<TimeRange>& TimeRanges() const { return content_.ranges; }

    // Columns. Without any call, the control shows one column, the day of its date.
    void ClearColumns();
    int AddColumn(const QString& title);  ///< Returns the column's number, from 1.
    void setDayColumns(int count);        ///< Shows days as columns: column n stands for Date() + n - 1.
    /// Sets how many columns share the width. The user scrolls to the others. On a small screen fewer are shown, so
    /// that each can be read. 0 shows as many as fit.
    void setVisibleColumns(int count);
    [[nodiscard]] int ColumnCount() const;
    [[nodiscard]] QString ColumnTitle(int column) const;
    [[nodiscard]] int VisibleColumns() const;
    /// Returns the column of the item, or 0 when it has none.
    [[nodiscard]] int ColumnOfItem(int index) const;

    // Selection.
    void setSelectedItem(int index);
    void selectRange(int column, int start, int end);
    void clearSelection();
    [[nodiscard]] int SelectedItem() const;   ///< Below 1 means none.
    [[nodiscard]] int SelectedRange() const;  ///< The column of the selected range, from 0; below 0 means none.
    [[nodiscard]] int SelStart() const;       ///< The first minute of the range.
    [[nodiscard]] int SelEnd() const;         ///< The minute at which the range ends.
    [[nodiscard]] int SelColumn() const;      ///< The column of the range, from 1; 0 means none.
    /// Whether the range is one row of the grid that the user chose by a click or an arrow key, so that it says when
    /// something begins but not how long it lasts. A range that was drawn, sized or set by selectRange says both.
    [[nodiscard]] bool SelIsOneCell() const;
    void ScrollToItem(int index);
    void ScrollToColumn(int column);  ///< Scrolls sideways only.

    // Editing the text in place, which F2 and a slow second click also begin.
    void EditItem(int index, const QString& typed = {});  ///< `typed` replaces the text that is edited.
    /// Commits an open edit in place and raises its TextEdited at once.
    void CommitEdit();
    [[nodiscard]] bool IsEditing() const;

    /// Sets the clock of the line that marks the present. It is read at every full minute while the control is shown.
    /// Without a call it is the desktop's clock.
    void setClock(std::function<QDateTime()> clock);
    /// Sets a clock that stands still.
    void setNow(const QDateTime& now);

    /// Paints columns firstColumn (from 1) to firstColumn + columnCount - 1 into the area. It paints the whole day
    /// without scrolling, and widens the hours so that no item is left out. The style decides fonts and colours
    /// (PrintStyle).
    void paint(QPainter& painter, const QRectF& area, int firstColumn, int columnCount,
               const CalendarStyle& style) const;
    /// The content of the calendar, for painting it elsewhere and later (PaintPage).
    [[nodiscard]] const CalendarContent& Content() const { return content_; }

    // Items that come from other widgets, or go to them, by the mouse.
    /// Lets the user drop items on another widget of the window. Items whose place is locked cannot be dragged.
    void addDropTarget(QWidget* target);
    /// Shows where an item that the user drags from another widget would start, with its length, and scrolls where the
    /// pointer is near an edge. Returns the place, or nothing where the pointer is not over the columns.
    std::optional<ItemPlace> showIncoming(QPoint globalPos, const CalendarItem& item);
    /// Ends what showIncoming shows.
    void endIncoming();

    // Places in widget coordinates, for tests, popups and accessibility. They are empty for parts outside the control.
    [[nodiscard]] QRect ItemRect(int index) const;  ///< For an item without room: the marker that counts it.
    [[nodiscard]] QRect CellRect(int column, int minute) const;
    [[nodiscard]] QRect HeadingRect(int column) const;
    [[nodiscard]] std::vector<int> ItemsInReadingOrder() const;  ///< In the order of Tab.
    [[nodiscard]] QString AccessibleItemName(int index) const;   ///< "9:00 AM to 9:50 AM, Anna O'Brien, Kept"
    [[nodiscard]] QString ToolTipOf(int index) const;
    /// Sets the routine that tells of an item of a series which one it is. It is asked when the tip is shown; without
    /// an answer the tip says that the item repeats.
    void setSeriesText(std::function<QString(int index)> text) { seriesText_ = std::move(text); }
    [[nodiscard]] QString SelectionText() const;  ///< The selected range in words; empty without a range.

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// Raised when the selected item changed for any reason. 0 means that none is selected now.
    void ItemSelected(int index);
    /// Raised when the user selected a range of time.
    void RangeSelected();
    /// Raised just before the item is edited in place, dragged, sized or moved by key, so that the view can set the
    /// item's locks.
    void BeforeItemWork(int index);
    /// (last) Raised when the user drops the item at a place. Setting *cancel leaves it where it is. The view may show
    /// boxes.
    void BeforeDrop(int index, const ItemPlace& place, bool* cancel);
    /// (last) Raised when the item was moved or sized and holds its new place. `old` is the place before.
    void ItemChanged(int index, const ItemPlace& old);
    /// (last) Raised when the user dropped the item on another widget (addDropTarget). The item stays where it is.
    void DroppedOutside(int index);
    /// (last) Raised when a locked item was dragged or sized and stayed where it is.
    void MoveRefused(int index);
    /// Raised when editing in place changed ItemText, which has at most 100 characters and may be empty.
    void TextEdited(int index, const QString& oldText);
    /// (last) Raised by a double click or Enter on an item.
    void ItemActivated(int index);
    /// (last) Raised by a double click or Enter on free time. The range is selected.
    void RangeActivated();
    /// Raised when a character was typed on a selected range. A view that adds an item there begins to edit it with
    /// this text.
    void RangeTyped(const QString& text);
    /// (last) Raised by the right mouse button or the Menu key. An index of 0 means free time. A right click has
    /// selected what is under the pointer.
    void PopupRequested(int index, const QPoint& globalPos);
    /// (last) Raised when Delete was pressed on the selected item.
    void DeleteRequested(int index);
    void HeadingClicked(int column);
    /// Raised by Ctrl+Page Up (-1) and Ctrl+Page Down (+1).
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
    /// A press of the mouse button that is not released yet.
    struct Press {
        QPoint pos;
        Hit hit;
        bool wasSelected = false;
        bool refused = false;  ///< Whether the item turned out to be locked.
        int anchorStart = 0;   ///< The start of the row in which a range begins.
        int anchorEnd = 0;     ///< The end of that row.
        bool fine = false;     ///< Whether the range is being drawn in the small steps of Shift.
    };
    /// A signal that waits until its event has done the rest of its work.
    struct Report {
        enum class Kind { Drop, DropOutside, Refused, Text, Activated, RangeActivated, Popup, Delete };
        Kind kind = Kind::Activated;
        int index = 0;
        int generation = 0;
        ItemPlace place;
        QString text;
        QPoint pos;
    };

    // Arrangement. Layout, geometry and scroll bars follow from content, style and size, and are computed when they are
    // asked for.
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
    [[nodiscard]] bool isOverTarget(QPoint globalPos) const;
    void extendRangeTo(QPoint pos);
    void drawRangeTo(QPoint pos, bool fine);
    void autoScroll();
    void cancelGesture();
    [[nodiscard]] bool beginDrag();
    [[nodiscard]] bool mayMove(int index);
    [[nodiscard]] bool mayEdit(int index);

    // Touch.
    [[nodiscard]] bool readTouch(QTouchEvent& event);
    [[nodiscard]] TouchActs touchActs();
    void pointAs(QEvent::Type type, QPoint at);
    void take(QPoint at);

    // Keyboard.
    [[nodiscard]] bool stepItem(int direction);
    bool keyOnSelection(QKeyEvent* event);
    bool keyMovesItem(QKeyEvent* event);
    bool keySizesRange(QKeyEvent* event);
    bool keyMovesCell(QKeyEvent* event);
    void goToRow(int column, int minute, bool extend);
    void stepInColumn(int direction);
    void showTime(const SelectedTime& time);
    [[nodiscard]] SelectedTime rowAt(int column, int minute) const;
    /// Returns the row of a grid of five minutes that contains the minute.
    [[nodiscard]] SelectedTime fineRowAt(int column, int minute) const;
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
    CalendarItem noItem_;  ///< The item that a wrong index reads and writes.
    int generation_ = 0;   ///< Grows whenever indexes change their meaning.
    int visibleColumns_ = 0;
    int topTime_ = 0;
    double zoom_ = 1;
    bool readOnly_ = false;
    std::function<QDateTime()> clock_;
    std::function<QString(int)> seriesText_;

    // The results of arrange().
    mutable bool dirty_ = true;
    mutable bool scrolling_ = false;  ///< True while the program moves the scroll bars, not the user.
    mutable CalendarStyle style_;
    mutable CalendarLayout layout_;
    mutable CalendarGrid grid_;
    CalendarState state_;
    QScrollBar* vertical_ = nullptr;
    QScrollBar* horizontal_ = nullptr;

    std::optional<Press> press_;
    std::optional<Drag> drag_;
    std::optional<SelectedTime> rangeBeforePress_;
    std::vector<QPointer<QWidget>> dropTargets_;
    bool sizedBeforePress_ = false;
    int rangeAnchor_ = 0;        ///< The minute from which Shift extends the range.
    bool rangeIsSized_ = false;  ///< Whether the range has a length that was chosen, not that of the grid.
    QPoint lastDragPos_;

    TouchReader touch_{touchActs()};

    QLineEdit* editor_ = nullptr;
    int editedItem_ = 0;

    std::deque<Report> reports_;
    QTimer presentTimer_;
    QTimer scrollTimer_;
    QTimer editTimer_;  ///< Runs from the slow second click to the edit in place.
    QTimer textTimer_;  ///< Runs from the end of an edit in place until it is reported.
};
