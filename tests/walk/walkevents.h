#pragma once

#include <functional>
#include <QPoint>
#include <QString>
#include <vector>

/// Mouse and keys as the window system delivers them: to the window under the pointer, and to the one that has the
/// keyboard. Places are those of the screen.
namespace walk {

/// One after the other, each by itself from the event loop that runs then: the second of them already meets the dialog
/// that the first has opened.
using Events = std::vector<std::function<void()>>;

[[nodiscard]] Events Key(int key, Qt::KeyboardModifiers modifiers = {});
[[nodiscard]] Events Text(const QString& text);
[[nodiscard]] Events Click(QPoint at, Qt::MouseButton button = Qt::LeftButton);
[[nodiscard]] Events DoubleClick(QPoint at);
[[nodiscard]] Events Drag(QPoint from, QPoint to);

[[nodiscard]] Events operator+(Events first, const Events& then);

}  // namespace walk
