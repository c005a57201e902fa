#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// The patients, each with a provider in charge. Needs providers and services.
void MakePatients(Practice& practice);
/// Their rows, episodes, further providers' access, alerts and authorizations.
void WritePatients(const Practice& practice, db::Connection& connection);

}  // namespace demo
