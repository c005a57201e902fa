#pragma once

#include "data/demo/practice.h"
#include "platform/database/connection.h"

namespace demo {

/// Makes session types, appointment types, locations and room names.
void MakeLists(Practice& practice);
/// Writes the lists behind the editors and stores the rooms' keys in the practice. It also writes holidays, none of
/// them today; courtesy-call codes, note types, contacts, insurers, referral sources, and the facesheet's labels and
/// masks.
void WriteLists(Practice& practice, db::Connection& connection);
/// Writes the settings row, which names the companion database, the practice's own details and the preferences of all
/// users.
void WriteSettings(const Practice& practice, db::Connection& connection, const QString& companionServer,
                   const QString& companionCatalog);

}  // namespace demo
