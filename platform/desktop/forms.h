#pragma once

#include <QString>

class QWidget;

/// The open form (top-level window) of that object name; null where there is none.
[[nodiscard]] QWidget* FindForm(const QString& name);
[[nodiscard]] bool IsFormLoaded(const QString& name);
