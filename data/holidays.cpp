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
