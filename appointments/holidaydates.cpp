#include "appointments/holidaydates.h"

#include "platform/database/recordset.h"
#include "session/session.h"

void HolidayDates::Read() {
    if (!holidays_.empty())
        return;
    for (db::Recordset rows(QStringLiteral("Select Holiday, HolidayDate, HolidayRepeat from Holidays"),
                            Session().Connection);
         !rows.Eof(); rows.MoveNext())
        holidays_.push_back({rows["HolidayDate"].date(), rows["HolidayRepeat"].integer() == 1, rows["Holiday"].text()});
}

QString HolidayDates::On(QDate date) const {
    QString name;
    for (const Holiday& holiday : holidays_)
        if (holiday.date == date ||
            (holiday.everyYear && holiday.date.month() == date.month() && holiday.date.day() == date.day()))
            name = holiday.name;
    return name;
}
