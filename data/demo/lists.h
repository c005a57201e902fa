#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Session types, appointment types, locations and room names.
void MakeLists(Practice& practice);
/// The lists behind the editors, with the rooms' keys kept in the practice; holidays, none of them today; courtesy-call
/// codes, note types, contacts, insurers, referral sources, the facesheet's labels and masks.
void WriteLists(Practice& practice, db::Connection& connection);
/// The settings row, which names the companion database, the practice's own details and the preferences of all users.
void WriteSettings(const Practice& practice, db::Connection& connection, const QString& companionServer,
                   const QString& companionCatalog);

}  // namespace demo
