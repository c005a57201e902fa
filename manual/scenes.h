#pragma once

#include <QStringList>

#include "platform/theme/colours.h"

/// Takes the pictures of these names into a folder, as NAME.png or NAME-dark.png. `practice` is a folder that does not
/// exist yet, in which a demo practice is made. Returns the names that no scene gives.
[[nodiscard]] QStringList TakePictures(const QStringList& names, ThemeMode look, const QString& folder,
                                       const QString& practice);
