#pragma once

#include <optional>
#include <QDate>
#include <QWidget>

#include "platform/controls/datelayout.h"

class FieldFlag;
class QLineEdit;

/// A month calendar with one selected date. A ring marks today, and weekends are paler.
///
/// A click or a key selects a date and raises Click. The wheel and the arrows beside the heading only turn the month.
/// Keys: arrows step days and weeks, Page Up and Page Down step months (with Ctrl years), Home and End go to the first
/// and last day of the month, and Enter raises Click for the selected date again. The user can also type a date
/// ("3/12", "today", "+2w"). Enter goes to that date, and Escape cancels.
class ctDate : public QWidget {
    Q_OBJECT

  public:
    explicit ctDate(QWidget* parent = nullptr);

    /// Selects a date and shows its month without raising a signal. An invalid date is ignored. A date that no database
    /// can hold, before 1753 or after 9999, becomes the nearest that it can.
    void SetDate(QDate date);
    /// Sets the order of the heading and of the tips: 0 month first, 1 day first, 2 year first.
    void SetDateOrder(int order);
    void SetFirstDayOfWeek(Qt::DayOfWeek day);
    /// Shows a month without selecting a date.
    void ShowMonth(QDate month);

    [[nodiscard]] QDate Date() const { return date_; }
    /// The first day of the month shown.
    [[nodiscard]] QDate ShownMonth() const { return {grid_.month.year(), grid_.month.month(), 1}; }
    [[nodiscard]] QString HeadingText() const;
    /// Returns a date as a person reads it, in the calendar's date order: "Wednesday, March 11, 2026".
    [[nodiscard]] QString LongText(QDate date) const;
    [[nodiscard]] const MonthGrid& Grid() const { return grid_; }
    [[nodiscard]] DateLayout Layout() const;
    /// Does what a click or a key on that date does. A date of a neighbouring month turns the page.
    void Choose(QDate date);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// Raised when the user has selected this date.
    void Click(QDate date);
    /// Raised by a double click on a day and by Enter.
    void DblClick(QDate date);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // These members are in ctdate_type.cpp.
    [[nodiscard]] static bool beginsDate(const QKeyEvent& event);
    void beginTyping(const QString& text);
    void goToTyped();
    void endTyping();

    void paintHeading(QPainter& painter) const;
    void paintDayNames(QPainter& painter) const;
    void paintDay(QPainter& painter, int position) const;
    void setHover(const DateLayout::Hit& hit);
    [[nodiscard]] std::optional<QDate> dateForKey(const QKeyEvent& event) const;

    QDate date_;
    MonthGrid grid_;
    int dateOrder_ = 0;
    int wheelRest_ = 0;
    DateLayout::Hit hover_;
    QLineEdit* typed_ = nullptr;  ///< The field over the heading while a date is being typed, else null.
    FieldFlag* flag_ = nullptr;   ///< The flag of that field.
};
