#pragma once

class ctMDay;

/// Makes every ctMDay known to screen readers: the calendar as a list, and its items as children in the order of Tab,
/// with name, place and state. Calling it again does nothing.
void InstallCalendarAccessibility();

/// Tells screen readers what is selected in the calendar now.
void AnnounceCalendarSelection(ctMDay& calendar);
