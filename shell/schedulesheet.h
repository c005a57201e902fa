#pragma once

#include <QString>

#include "platform/calendar/content.h"
#include "platform/calendar/monthpage.h"
#include "platform/printing/vsprinter.h"
#include "shell/printoptions.h"

/// The heading of a day's column on paper: "Wed 3/11".
inline constexpr char DayAndNumbers[] = "ddd M/d";
/// The heading of a day's column on paper with the month's name: "Wed Mar 11".
inline constexpr char DayAndMonthName[] = "ddd MMM d";

/// What stands around a schedule on paper.
struct SheetFrame {
    QString title;
    QString subtitle;  ///< The line below the title. It may be empty.
    QString footer;    ///< Stands at the left of the foot: whose schedule it is. It may be empty.
};

/// A schedule of columns that is to be printed.
struct ScheduleSheet : SheetFrame {
    CalendarContent content;
    int columnsPerPage = 1;
    QString owner;  ///< Whose days the columns are; empty where the headings are the owners.
};

/// A month that is to be printed on one page.
struct MonthSheet : SheetFrame {
    MonthContent content;
};

/// Returns the sheet as a document, in the fonts, alignment and time units of the options. Each page holds
/// `columnsPerPage` columns under the title lines, and tells at its foot when it was printed. The colours beside the
/// entries are printed when the options say so. The headings also tell the owner and how many visits have which status,
/// and the foot explains the glyphs. Several days beside each other begin on paper across.
[[nodiscard]] VSPrinter PrintedSheet(const ScheduleSheet& sheet, const PrintOptions& options);
/// The same for a month, on paper across.
[[nodiscard]] VSPrinter PrintedSheet(const MonthSheet& sheet, const PrintOptions& options);

/// Tells how a week is printed across the paper. It comes before each preview of a week.
void TellLandscape();
/// Tells that a schedule is not printed because it could not be read: paper would show the time as free.
void TellUnreadSchedule();

/// Returns a date as the titles show it: "Wednesday  March 11, 2026", with two blanks after the weekday.
[[nodiscard]] QString SheetDate(QDate date);
