#pragma once

#include <QString>

#include "platform/database/connection.h"

/// Whether the companion database can link an appointment to a session note (SVSessionID). Older ones cannot. An error
/// of the connection counts as no.
[[nodiscard]] bool IsSVSessionIDColThere(db::Connection& companion);

/// Returns the statement that IsSVSessionIDColThere sends.
[[nodiscard]] QString SessionColumnStatement();
