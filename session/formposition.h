#pragma once

#include <QList>
#include <QRect>

class QWidget;

/// Get brings a window back to its stored place, Set stores it (call it as the window closes).
enum class FormMode { Get, Set };

/// Keeps a window's place in the per-user store under the window's object name, as "{left},{top},{width},{height},
/// {state}" in pixels, state 0 normal, 1 minimised, 2 maximised. A minimised window comes back maximised. A stored
/// place that no screen shows any more, as after a monitor was taken away, is moved onto the nearest one; a text that
/// cannot be read leaves the window as designed.
void FormPosition(QWidget& form, FormMode mode);

/// The place nearest to `wanted` at which the top of a window can be seen and dragged on one of the screens (their free
/// areas) and that is no larger than all of them together. No screens: `wanted`.
[[nodiscard]] QRect OnSomeScreen(const QRect& wanted, const QList<QRect>& screens);
