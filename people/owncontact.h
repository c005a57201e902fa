#pragma once

#include "platform/database/recordset.h"

/// Whether the cursor stands on a contact of the logged-on user. The key of a contact that was deleted may have been
/// given to another user's contact, which nobody else may see, change or delete.
[[nodiscard]] bool IsOwnContact(const db::Recordset& contact);
