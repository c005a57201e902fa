#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Makes the patients, each with a provider in charge. It needs providers and services.
void MakePatients(Practice& practice);
/// Writes the patients' rows, episodes, further providers' access, alerts and authorizations.
void WritePatients(const Practice& practice, db::Connection& connection);

}  // namespace demo
