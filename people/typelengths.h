#pragma once

#include <QHash>
#include <QString>

// How long the visits of an appointment type last. The table of the types is shared with other programs and has no
// column for it, so the lengths are kept as preferences that hold for all users, by `aptcategoryid`.

/// The statement that TypeLengths reads.
[[nodiscard]] QString TypeLengthsStatement();
/// Returns the minutes of the types that have a length, by `aptcategoryid`. It is empty when they cannot be read: a new
/// visit then takes the length that it would have without a type.
[[nodiscard]] QHash<int, int> TypeLengths();
/// Stores the minutes of a type; 0 means that the type has no length of its own. Returns false on any failure, and
/// shows the user no message.
[[nodiscard]] bool SetTypeLength(int typeId, int minutes);
