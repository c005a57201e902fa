#pragma once

#include <QColor>
#include <QPalette>

enum class ThemeMode { Light, Dark };

/// The one palette of the program. `accent` marks what acts or is today: links, the focus ring, the default button; a
/// painted control reads it from its palette's Link role.
struct ThemeColours {
    QColor window;     ///< Behind panels and forms.
    QColor base;       ///< Behind text and calendar cells.
    QColor alternate;  ///< Every other row.
    QColor text;
    QColor mutedText;  ///< Hints, captions, disabled text.
    QColor border;
    QColor hover;
    QColor pressed;
    QColor selection;
    QColor selectedText;
    QColor accent;
    QColor accentText;  ///< On an accent fill.
    QColor caution;     ///< The picture of a warning.
    QColor danger;      ///< The picture of a failure.
    friend bool operator==(const ThemeColours&, const ThemeColours&) = default;
};

[[nodiscard]] const ThemeColours& ColoursOf(ThemeMode mode);
[[nodiscard]] QPalette PaletteOf(const ThemeColours& colours);
/// Whether a palette made elsewhere is a dark one.
[[nodiscard]] ThemeMode ModeOf(const QPalette& palette);
/// WCAG contrast of two opaque colours, 1 to 21.
[[nodiscard]] double Contrast(const QColor& a, const QColor& b);
