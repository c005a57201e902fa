#pragma once

#include <QString>

class QWidget;

/// Returns the page of the manual that explains a window: that of its class, else that of the window it stands in or
/// belongs to, else the contents. The path may name a heading behind a "#". Returns "" where there is no manual.
[[nodiscard]] QString ManualPageOf(const QWidget* window);

/// The folder of the manual's pages. A test gives it another.
QString& ManualFolder();
