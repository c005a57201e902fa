#include "data/holidays.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

QString HolidayStatement(QDate date) {
    return db::Sql(
        "Select * from Holidays where HolidayDate = '{}' or (HolidayRepeat = 1 and MONTH(HolidayDate) = MONTH('{}') and Day(HolidayDate) = Day('{}'))",
        date, date, date);
}

std::optional<QString> HolidayOn(db::Connection& connection, QDate date) {
    const db::Recordset holidays(HolidayStatement(date), connection);
    if (holidays.Eof())
        return std::nullopt;
    return holidays["Holiday"].text();
}

HolidayCalendar::HolidayCalendar(db::Connection& connection) {
    int place = 0;
    for (db::Recordset rows(QStringLiteral("Select * from Holidays Order by HolidayID"), connection); !rows.Eof();
         rows.MoveNext()) {
        const QDate date = rows["HolidayDate"].date();
        const Listed listed{place++, rows["Holiday"].text()};
        once_.emplace(date, listed);
        if (rows["HolidayRepeat"].integer() == 1)
            everyYear_.emplace(std::pair(date.month(), date.day()), listed);
    }
}

std::optional<QString> HolidayCalendar::On(QDate date) const {
    const auto once = once_.find(date);
    const auto yearly = everyYear_.find({date.month(), date.day()});
    if (yearly == everyYear_.end())
        return once == once_.end() ? std::nullopt : std::optional(once->second.name);
    const bool isFirst = once == once_.end() || yearly->second.place < once->second.place;
    return isFirst ? yearly->second.name : once->second.name;
}
