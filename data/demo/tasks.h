#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Writes the providers' tasks of every priority. Some are done and some overdue, and REED has the most.
void WriteTasks(const Practice& practice, db::Connection& connection);

}  // namespace demo
