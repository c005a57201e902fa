#pragma once

#include <QColor>
#include <QIcon>

/// The program's own picture of that name (the files of platform/theme/icons without their ending), in the colours of
/// the palette of the moment and sharp at every scale. A name that is not there is a null icon.
[[nodiscard]] QIcon Icon(const QString& name);
[[nodiscard]] inline QIcon Icon(const char* name) {
    return Icon(QString::fromLatin1(name));
}
/// The same picture as an icon of one colour, whatever the palette.
[[nodiscard]] QIcon Icon(const QString& name, const QColor& colour);
/// The same picture in one colour, whatever the palette.
[[nodiscard]] QPixmap IconPixmap(const QString& name, const QColor& colour, int size, double devicePixelRatio);
