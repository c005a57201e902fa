#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Eight groups for each size of the practice, led by its providers; REED's meets on today's day of the week. Needs
/// providers and patients.
void MakeGroups(Practice& practice);
/// Groups and their members, with the groups' keys kept in the practice.
void WriteGroups(Practice& practice, db::Connection& connection);

}  // namespace demo
