#pragma once

#include <QString>

/// Starts a program that lives on by itself: nobody waits for it, it takes nothing from this program's terminal, and it
/// holds no file or connection that this program has open. It gets `argument` in one piece, or none when that is empty,
/// and begins in `folder` when one is given. No shell reads anything of it.
///
/// Returns 0 once the program runs, or the number of the system's error that kept it from running: 2 when it is
/// missing, 13 when it may not be executed, 8 when it is no program.
[[nodiscard]] int StartDetached(const QString& path, const QString& argument, const QString& folder);
