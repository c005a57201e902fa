#pragma once

class ctMDay;
class ctWeek;

/// Makes every ctMDay known to screen readers: the calendar as a list, and its items as children in the order of Tab,
/// with name, place and state. A ctWeek is described by its selected day, as it is when the description is read.
/// Calling it again does nothing.
void InstallCalendarAccessibility();

/// Tells screen readers what is selected in the calendar now.
void AnnounceCalendarSelection(ctMDay& calendar);

/// Tells screen readers that the month has another selected day, or other items on it.
void AnnounceMonthSelection(ctWeek& month);
