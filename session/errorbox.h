#pragma once

#include <QString>

#include "platform/database/error.h"

/// Tells the user what went wrong: the routine's own text, which ends with a blank, followed by the error's
/// description.
void TellError(const QString& text, const db::DatabaseError& error);
