#pragma once

#include "tests/walk/walkplace.h"

class ctMDay;

namespace walk {

/// Adds what can be done on a calendar: on an item of each kind that it shows, and on free time.
void AddCalendar(const ctMDay& calendar, const QString& name, Place& place, Chance& chance);

}  // namespace walk
