#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// The providers' tasks of every priority, some done, some overdue; REED has the most.
void WriteTasks(const Practice& practice, db::Connection& connection);

}  // namespace demo
