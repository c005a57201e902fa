#pragma once

#include <QString>

#include "platform/calendar/content.h"
#include "platform/printing/vsprinter.h"

/// A schedule for paper.
struct ScheduleSheet {
    CalendarContent content;
    QString title;
    QString subtitle;  ///< Below the title; may be empty.
    QString footer;    ///< Whose schedule it is.
    int columnsPerPage = 1;
};

/// The sheet as a document, in the fonts, alignment and time units that the print options hold (category
/// "PrintLayout"): a page for each `columnsPerPage` columns, with the title lines on each. A font without a name is
/// Arial; the colours beside the entries are printed where the option "Taskbar" is on.
[[nodiscard]] VSPrinter PrintedSheet(const ScheduleSheet& sheet);

/// A day as the titles tell it: "Wednesday  March 11, 2026", with two blanks.
[[nodiscard]] QString SheetDate(QDate date);

/// A print option; "" where nobody set it.
[[nodiscard]] QString PrintOption(const char* key);
