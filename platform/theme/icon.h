#pragma once

#include <QColor>
#include <QIcon>

/// Returns the program's own picture of that name (a file of platform/theme/icons without its ending). It follows the
/// current palette and is sharp at every scale. An unknown name gives a null icon.
[[nodiscard]] QIcon Icon(const QString& name);
[[nodiscard]] inline QIcon Icon(const char* name) {
    return Icon(QString::fromLatin1(name));
}
/// Returns the same picture as an icon of one colour, whatever the palette.
[[nodiscard]] QIcon Icon(const QString& name, const QColor& colour);
/// Returns the same picture as a pixmap in one colour, whatever the palette. `size` is its side before
/// `devicePixelRatio`.
[[nodiscard]] QPixmap IconPixmap(const QString& name, const QColor& colour, int size, double devicePixelRatio);
