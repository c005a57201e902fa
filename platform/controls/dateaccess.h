#pragma once

class ctDate;

/// Lets assistive programs read a ctDate as a table of 42 days that can be pressed. One call per process is enough;
/// more calls do nothing.
void InstallDateAccess();
/// Tells assistive programs that the calendar's selected date has changed.
void TellDateChanged(ctDate& calendar);
