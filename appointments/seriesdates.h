#pragma once

#include <map>
#include <optional>
#include <QTimer>
#include <QWidget>
#include <vector>

#include "appointments/seriesobstacles.h"

namespace db {
class DatabaseError;
}
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The dates of a series as they will be: each with what stands in its way, and a tick that decides whether it is
/// booked. Space or a click flips the tick.
///
/// A date that is taken begins undecided, as a half tick, and is asked for when the series is written. What is booked
/// is read a moment after the dates have changed, for a year at a time, so that typing a number does not wait for it.
class SeriesDates : public QWidget {
    Q_OBJECT

  public:
    explicit SeriesDates(QWidget* parent = nullptr);

    /// What is repeated, and its own date, which is listed without a tick.
    void SetSource(const SeriesSource& source, QDate own);
    void ShowDates(const std::vector<QDate>& dates);
    /// Reads what stands in the way of the dates anew. Where that fails the reason is shown and returned, and nothing
    /// is known to be in the way of any date.
    std::optional<db::DatabaseError> Read();

    enum class Plan { Own, Ask, Book, LeaveOut };
    [[nodiscard]] Plan PlanFor(QDate date) const;
    [[nodiscard]] Obstacles InTheWay(QDate date) const;
    /// Whether the user said of any date whether it is booked.
    [[nodiscard]] bool HasDecisions() const { return !decided_.empty(); }
    /// How many dates there are besides the appointment's own.
    [[nodiscard]] int NewDates() const;

    QTreeWidget* lstdates = nullptr;
    QLabel* lblway = nullptr;        ///< What stands in the way of the date that has the cursor, in full.
    QLabel* lblcount = nullptr;      ///< How many will be booked.
    QPushButton* cmdskip = nullptr;  ///< Leaves out all that are taken or a holiday.

  private:
    enum Column { DateColumn, InTheWayColumn, PlanColumn };

    void buildControls();
    void readIfNeeded();
    void fillRows();
    void showRow(QTreeWidgetItem& row, QDate date);
    void showCount();
    void decide(QTreeWidgetItem& row);
    void cmdskip_Click();

    SeriesObstacles obstacles_{SeriesSource()};
    QDate own_;
    std::vector<QDate> dates_;
    std::map<QDate, bool> decided_;  ///< Whether the date is booked, where the user said so.
    QTimer due_;
    bool filling_ = false;
};
