#pragma once

class ctMDay;

/// Makes every ctMDay known to screen readers: the calendar as a list, its items as children in the order of Tab, with
/// name, place and state. Calling it again does nothing.
void InstallCalendarAccessibility();

/// Tells screen readers where the calendar's selection is now.
void AnnounceCalendarSelection(ctMDay& calendar);
