#pragma once

#include <QDate>

#include "platform/printing/vsprinter.h"

// The day or the week of the session's provider as an HTML page, in the folder "Documents" of the user's documents.
// Patients are named as the user chose for HTML pages (NamingIn), and not at all while their names are hidden.

/// Writes the page, tells the user where it is and offers to open it. A page that is there already is replaced. When
/// something fails, the user is told, and the page that was there stays as it was.
void ExportDayHtml(QDate day);
void ExportWeekHtml(QDate first);

/// Returns the page's path: "{provider}{date}.HTM" and "{provider}Week{date}.HTM", with the date in the session's date
/// order without separators.
[[nodiscard]] QString DayHtmlPath(QDate day);
[[nodiscard]] QString WeekHtmlPath(QDate first);

/// These routines return the page. They throw db::DatabaseError.
[[nodiscard]] VSPrinter DayPage(QDate day);
/// The page of the seven days from `first` on.
[[nodiscard]] VSPrinter WeekPage(QDate first);
