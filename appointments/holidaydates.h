#pragma once

#include <QDate>
#include <QString>
#include <vector>

/// The practice's holidays, read once for a whole list of dates.
class HolidayDates {
  public:
    /// Reads the holidays, unless they were read before. Throws db::DatabaseError.
    void Read();
    /// Returns the name of the holiday on a date, or an empty text.
    [[nodiscard]] QString On(QDate date) const;

  private:
    struct Holiday {
        QDate date;
        bool everyYear = false;
        QString name;
    };

    std::vector<Holiday> holidays_;
};
