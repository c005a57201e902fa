#pragma once

#include <optional>

#include "session/slot.h"

/// Returns the provider with this id if the user may choose the provider, as the provider list offers them. Returns
/// nothing for one who is gone, archived or not offered, and for any other than `ProviderId` while the user may see one
/// schedule only. Throws db::DatabaseError.
[[nodiscard]] std::optional<BookedProvider> OfferedProvider(const QString& id);
