#pragma once

#include <optional>
#include <QDate>
#include <QWidget>

#include "platform/controls/datelayout.h"

class FieldFlag;
class QLineEdit;

/// A month calendar with one selected date, today marked by a ring, weekends paler.
///
/// A click or a key selects a date and raises Click; the wheel and the arrows beside the heading only turn the month.
/// Keys: arrows step days and weeks, Page Up and Page Down months (with Ctrl years), Home and End go to the first and
/// last day of the month, Enter raises Click for the selected date again. A date that is typed ("3/12", "today", "+2w")
/// is gone to by Enter; Escape gives it up.
class ctDate : public QWidget {
    Q_OBJECT

  public:
    explicit ctDate(QWidget* parent = nullptr);

    /// Selects a date and shows its month; raises nothing. An invalid date is ignored; one that no database can hold,
    /// before 1753 or after 9999, becomes the nearest that it can.
    void SetDate(QDate date);
    /// 0 month first, 1 day first, 2 year first: the order of the heading and of the tips.
    void SetDateOrder(int order);
    void SetFirstDayOfWeek(Qt::DayOfWeek day);
    /// Turns the pages only.
    void ShowMonth(QDate month);

    [[nodiscard]] QDate Date() const { return date_; }
    /// First day of the month shown.
    [[nodiscard]] QDate ShownMonth() const { return {grid_.month.year(), grid_.month.month(), 1}; }
    [[nodiscard]] QString HeadingText() const;
    /// A date as a person reads it: "Wednesday, March 11, 2026" in the calendar's date order.
    [[nodiscard]] QString LongText(QDate date) const;
    [[nodiscard]] const MonthGrid& Grid() const { return grid_; }
    [[nodiscard]] DateLayout Layout() const;
    /// What a click or a key on that date does. A date of a neighbouring month turns the page.
    void Choose(QDate date);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// The user selected this date.
    void Click(QDate date);
    /// Double click on a day or Enter.
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
    // ctdate_type.cpp
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
    QLineEdit* typed_ = nullptr;  ///< While a date is being typed.
    FieldFlag* flag_ = nullptr;   ///< Of that field.
};
