#pragma once

#include <optional>
#include <QString>

#include "appointments/appointmentitem.h"
#include "appointments/writeoutcome.h"

// What a view and the board have in common around a command on a row that stands on the screen.

/// Reads the row of an appointment as it is stored now. Returns nothing when another desk has deleted it, which the
/// user has been told; the caller reads its rows anew. Throws db::DatabaseError.
[[nodiscard]] std::optional<ShownAppointment> RowForCommand(int key, const ItemPainting& painted);

/// Tells the user that the row which was to be saved is not there any more.
void TellSavedRowIsGone();
/// Tells the user why a write failed: in the window's bar under `subject`, else in a box. That another desk has changed
/// the row is always told in a box, since the caller reads its rows anew then.
void TellUnsaved(const WriteOutcome& outcome, const QString& subject = {});
