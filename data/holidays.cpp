#include "data/holidays.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"

std::optional<QString> HolidayOn(db::Connection& connection, QDate date) {
    const QString day = db::SqlDate(date);
    const db::Recordset holidays(
        db::Sql(
            "Select * from Holidays where HolidayDate = '{}' or (HolidayRepeat = 1 and MONTH(HolidayDate) = MONTH('{}') and Day(HolidayDate) = Day('{}'))",
            day, day, day),
        connection);
    if (holidays.Eof())
        return std::nullopt;
    return holidays["Holiday"].text();
}
