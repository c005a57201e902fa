#pragma once

#include <deque>
#include <functional>
#include <QDateTime>
#include <QTimer>
#include <QWidget>

#include "platform/calendar/monthpage.h"

/// A month of days with their items, for reading only. Items are counted from 1 in the order in which they were added.
/// A wrong index reads as an empty item.
///
/// A click selects a day, and a double click on it (or on "+3 more") opens it. Keys: arrows step days and weeks, Home
/// and End go to the first and last day of the month, Page Up, Page Down and the wheel ask for another month, Enter
/// opens the selected day.
class ctWeek : public QWidget {
    Q_OBJECT

  public:
    explicit ctWeek(QWidget* parent = nullptr);

    /// Shows the month of a date and selects that date.
    void setDate(QDate date);
    void setTwentyFourHour(bool on);
    void setFirstDayOfWeek(Qt::DayOfWeek day);
    /// Sets the clock by which today is marked. Without a call it is the desktop's clock.
    void setClock(std::function<QDateTime()> clock);
    /// Sets the routine that returns the tip of an item. It is called with 0 where no item is under the pointer.
    void setTip(std::function<QString(int index)> tip) { tip_ = std::move(tip); }

    void ClearItems();
    /// Adds an item and returns its index.
    int AddItem(CalendarItem item);

    /// Changes all items in the same way, for instance to hide their texts.
    void ChangeItems(const std::function<void(CalendarItem& item)>& change);

    [[nodiscard]] QDate Date() const { return selected_; }
    [[nodiscard]] int Month() const { return content_.grid.month.month(); }
    [[nodiscard]] int Year() const { return content_.grid.month.year(); }
    [[nodiscard]] const CalendarItem& Item(int index) const;
    [[nodiscard]] int ItemCount() const { return static_cast<int>(content_.items.size()); }
    [[nodiscard]] QString TipAt(QPoint position) const;
    /// Returns the selected day in words, with its items in order.
    [[nodiscard]] QString SelectionText() const;
    /// Returns the places of all parts as they are now.
    [[nodiscard]] const MonthLayout& Layout() const;

    /// Returns the content of the month, for painting it elsewhere and later (PaintMonthPage).
    [[nodiscard]] const MonthContent& Content() const { return content_; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// Raised when the user selected another day of the month.
    void DaySelected(QDate day);
    /// Raised by a double click or Enter on a day.
    void DayActivated(QDate day);
    /// Raised when an arrow key leads to a day of another month.
    void DayRequested(QDate day);
    /// Raised when the wheel or a page key asks for the month before (-1) or after (+1).
    void MonthStepRequested(int direction);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void invalidate();
    void select(QDate day);
    void waitForMidnight();
    [[nodiscard]] QDate dateForKey(const QKeyEvent& event) const;
    [[nodiscard]] QString lineText(const CalendarItem& item) const;

    MonthContent content_;
    QDate selected_;
    std::function<QDateTime()> clock_;
    std::function<QString(int)> tip_;
    QTimer midnight_;
    int wheelRest_ = 0;
    int hoveredItem_ = 0;

    // These members follow from the others and are computed when they are asked for.
    mutable bool dirty_ = true;
    mutable CalendarStyle style_;
    mutable MonthLayout layout_;
};
