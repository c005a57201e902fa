#pragma once

#include <map>
#include <optional>
#include <QDate>
#include <QString>
#include <utility>

#include "platform/database/connection.h"

/// Returns the statement that HolidayOn reads.
QString HolidayStatement(QDate date);

/// Returns the name of the holiday on a date: one of that very date or one that repeats every year. Where there are
/// several, it is the first. Throws DatabaseError.
std::optional<QString> HolidayOn(db::Connection& connection, QDate date);

/// All holidays of the practice, read once, for a search through many days. It tells of each date what HolidayOn tells.
class HolidayCalendar {
  public:
    /// Throws DatabaseError.
    explicit HolidayCalendar(db::Connection& connection);

    [[nodiscard]] std::optional<QString> On(QDate date) const;

  private:
    struct Listed {
        int place = 0;  ///< In the order of the table.
        QString name;
    };
    std::map<QDate, Listed> once_;
    std::map<std::pair<int, int>, Listed> everyYear_;  ///< By month and day.
};
