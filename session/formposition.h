#pragma once

#include <QList>
#include <QRect>

class QWidget;

/// Get moves a window to its stored place. Set stores the place; it is called when the window closes.
enum class FormMode { Get, Set };

/// Keeps a window's place in the per-user store under the window's object name. It is a text of five numbers:
/// "{left},{top},{width},{height},{state}" in pixels. The state is 0 normal, 1 minimised, 2 maximised. A minimised
/// window comes back maximised. A stored place that no screen shows any more, for instance after a monitor was removed,
/// is moved onto the nearest screen. A text that cannot be read leaves the window as designed.
void FormPosition(QWidget& form, FormMode mode);

/// Returns the place nearest to `wanted` at which the top of a window can be seen and dragged on one of the screens,
/// and which is no larger than all of them together. `screens` holds their free areas. Without screens it returns
/// `wanted`.
[[nodiscard]] QRect OnSomeScreen(const QRect& wanted, const QList<QRect>& screens);
