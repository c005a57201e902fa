#pragma once

#include <functional>
#include <QString>

#include "platform/database/error.h"

/// Tells the user what went wrong: the routine's own text, which ends with a blank, followed by the error's
/// description.
///
/// Of a connection that broke off the user is told once: what the same routine meets after it, until it has returned to
/// the user, stays unsaid.
void TellError(const QString& text, const db::DatabaseError& error);

/// Tells in the window's bar what the database refused, `what` first, which ends with a blank. It stays until the user
/// closes it, or DropNotice(what).
void TellInBar(const QString& what, const db::DatabaseError& error);

/// For a step whose failure the system passes over: runs it, and tells in the window's bar what the database refused,
/// `what` first, which ends with a blank. A row that another desk changed or removed meanwhile is passed over without a
/// word. True where the step went well; what the bar told of it before is then settled, and goes.
bool TryAndTell(const QString& what, const std::function<void()>& step);
