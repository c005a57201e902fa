#pragma once

class ctDate;

/// Lets assistive programs read a ctDate as a table of 42 days that can be pressed. Once per process is enough; more
/// calls do nothing.
void InstallDateAccess();
/// Tells them that another day is the selected one.
void TellDateChanged(ctDate& calendar);
