#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// The password of every user of the demo.
inline constexpr char DemoPassword[] = "demo";

/// Makes the fourteen providers (REED and LANE first), once more for each further size, with their hours and their
/// users. It also makes the users ADMIN (administrator), DESK (front desk, everybody's schedule) and VIEW (a trainee
/// who may only look).
void MakeProviders(Practice& practice);
void WriteProviders(const Practice& practice, db::Connection& connection);

}  // namespace demo
