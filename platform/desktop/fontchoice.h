#pragma once

#include <optional>
#include <QFont>
#include <QString>

/// Lets the user choose a font in a window of this title. The choice begins with `proposal`. Returns nothing when the
/// user gives up. A family, size or style that the user leaves alone stays as proposed, even if this computer lacks it.
[[nodiscard]] std::optional<QFont> ChooseFont(const QString& title, const QFont& proposal);
