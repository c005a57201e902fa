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

/// A list of the dates of a series. Each date shows what stands in its way, and a tick that decides whether it is
/// booked. Space or a click flips the tick.
///
/// A date that is taken begins undecided, with a half tick, and the user is asked about it when the series is written.
/// A date that the user has ticked although it is taken is undecided again once something else is booked there.
///
/// The bookings are read shortly after the dates have changed and for a year at a time, so that typing a number does
/// not wait for them. A longer series is read in pieces, between which the user goes on typing.
class SeriesDates : public QWidget {
    Q_OBJECT

  public:
    explicit SeriesDates(QWidget* parent = nullptr);

    /// Sets the appointment that is repeated, and its own date, which is listed without a tick.
    void SetSource(const SeriesSource& source, QDate own);
    void ShowDates(const std::vector<QDate>& dates);
    /// Reads the obstacles of the dates anew. On a failure the reason is shown and returned, and no date counts as
    /// read.
    std::optional<db::DatabaseError> Read();

    enum class Plan { Own, Ask, Book, LeaveOut };
    [[nodiscard]] Plan PlanFor(QDate date) const;
    [[nodiscard]] Obstacles InTheWay(QDate date) const;
    /// Whether the user has decided about any date.
    [[nodiscard]] bool HasDecisions() const { return !decided_.empty(); }
    /// Returns the number of dates besides the appointment's own.
    [[nodiscard]] int NewDates() const;

    QTreeWidget* lstdates = nullptr;
    QLabel* lblway = nullptr;        ///< The obstacles of the current date, in full.
    QLabel* lblcount = nullptr;      ///< How many dates will be booked.
    QPushButton* cmdskip = nullptr;  ///< Leaves out all dates that are taken or a holiday.

  private:
    enum Column { DateColumn, InTheWayColumn, PlanColumn };

    void buildControls();
    void readIfNeeded();
    void readPiece();
    void tellUnread(const db::DatabaseError& error);
    void fillRows();
    void showRows();
    void showRow(QTreeWidgetItem& row, QDate date);
    void showCount();
    void decide(QTreeWidgetItem& row);
    void cmdskip_Click();

    SeriesObstacles obstacles_{SeriesSource()};
    QDate own_;
    std::vector<QDate> dates_;
    /// What the user has decided about a date, and what stood in its way then.
    struct Decision {
        bool book = false;
        QString seen;
    };
    std::map<QDate, Decision> decided_;
    QTimer due_;   ///< Begins to read after a pause in the typing.
    QTimer next_;  ///< Reads the next piece of a long series.
    bool filling_ = false;
};
