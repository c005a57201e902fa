#pragma once

#include <QString>

#include "platform/calendar/content.h"
#include "platform/printing/vsprinter.h"

/// A schedule that is to be printed.
struct ScheduleSheet {
    CalendarContent content;
    QString title;
    QString subtitle;  ///< The line below the title. It may be empty.
    QString footer;    ///< The provider whose schedule it is. It is empty for all providers.
    int columnsPerPage = 1;
};

/// Returns the sheet as a document, in the fonts, alignment and time units of the print options (category
/// "PrintLayout"). Each page holds `columnsPerPage` columns under the title lines. A font without a name is Arial. The
/// colours beside the entries are printed when the option "Taskbar" is on.
[[nodiscard]] VSPrinter PrintedSheet(const ScheduleSheet& sheet);

/// Returns a date as the titles show it: "Wednesday  March 11, 2026", with two blanks after the weekday.
[[nodiscard]] QString SheetDate(QDate date);

/// Returns how many columns of providers the print options put on a page (AllViewCols): 1 to 9, and 5 when they say
/// nothing valid.
[[nodiscard]] int AllViewColumns();

/// Returns a print option, or "" when it is not set.
[[nodiscard]] QString PrintOption(const char* key);
