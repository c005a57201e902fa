#include <algorithm>
#include <QComboBox>
#include <QLocale>

#include "platform/calendar/ctmday.h"
#include "platform/controls/datefield.h"
#include "rooms/frmrooms.h"
#include "session/namedpreview.h"
#include "session/session.h"

namespace {

/// Returns how long the room is booked: "Bookings: 3, 2:30 hours". Time that is booked twice counts once.
QString bookedTime(const std::vector<CalendarItem>& bookings) {
    std::vector<std::pair<int, int>> times;
    times.reserve(bookings.size());
    for (const CalendarItem& booking : bookings)
        times.emplace_back(booking.ItemStart, booking.ItemEnd);
    std::ranges::sort(times);
    int minutes = 0;
    int until = 0;
    for (const auto& [start, end] : times) {
        minutes += std::max(end - std::max(start, until), 0);
        until = std::max(until, end);
    }
    return frmrooms::tr("Bookings: %1, %2:%3 hours")
        .arg(times.size())
        .arg(minutes / 60)
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

}  // namespace

void frmrooms::printS() {
    ctDays1->CommitEdit();
    const PrintOptions options = ReadPrintOptions();
    PreviewWithNames([&] { return PrintedSheet(sheet(options), options); }, window());
}

ScheduleSheet frmrooms::sheet(const PrintOptions& options) const {
    ScheduleSheet sheet;
    sheet.content = ctDays1->Content();
    sheet.content.headingFormat = QString::fromLatin1(DayAndNumbers);
    sheet.title = static_cast<DateOrder>(Session().DateOrder) == DateOrder::DayFirst
                      ? QLocale::c().toString(date_, QStringLiteral("dddd, d MMMM yyyy"))
                      : SheetDate(date_);
    sheet.subtitle = QStringLiteral("Room Schedule - ") + cborooms->currentText();
    if (options.timeStats)
        sheet.footer = bookedTime(sheet.content.items);
    return sheet;
}
