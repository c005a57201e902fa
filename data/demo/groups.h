#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Makes eight groups for each size of the practice, led by its providers. REED's group meets on today's day of the
/// week. It needs providers and patients.
void MakeGroups(Practice& practice);
/// Writes the groups and their members, and stores the groups' keys in the practice.
void WriteGroups(Practice& practice, db::Connection& connection);

}  // namespace demo
