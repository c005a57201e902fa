#pragma once

#include <QString>

class QWidget;

/// Returns the visible form (top-level window) of that object name, or null.
[[nodiscard]] QWidget* FindForm(const QString& name);
[[nodiscard]] bool IsFormLoaded(const QString& name);
