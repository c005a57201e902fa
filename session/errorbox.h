#pragma once

#include <functional>
#include <QString>

#include "platform/database/error.h"

struct BoxStyle;

/// Tells the user in a message box what went wrong: the routine's own text, which ends with a blank, followed by the
/// error's description.
///
/// A broken connection is told only once. Further errors of the connection in the same routine are not shown until the
/// routine has returned.
void TellError(const QString& text, const db::DatabaseError& error);
/// The same in a box of another style.
void TellError(const QString& text, const db::DatabaseError& error, BoxStyle style);

/// Tells the user in the window's bar what the database refused: `what`, which ends with a blank, followed by the
/// error's description. The notice stays until the user closes it, or until DropNotice(what).
void TellInBar(const QString& what, const db::DatabaseError& error);

/// Runs a step whose failure the system passes over, and tells in the window's bar what the database refused, as
/// TellInBar does. A row that another desk changed or removed in the meantime is not reported. Returns whether the step
/// succeeded; an earlier notice about `what` is then removed.
bool TryAndTell(const QString& what, const std::function<void()>& step);
