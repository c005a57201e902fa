#pragma once

#include <QColor>
#include <QPalette>

enum class ThemeMode { Light, Dark };

/// The colours of the program. `accent` marks what acts or is today: links, the focus ring, the default button. A
/// painted control reads it from its palette's Link role.
struct ThemeColours {
    QColor window;     ///< The ground of panels and forms.
    QColor base;       ///< The ground of text and calendar cells.
    QColor alternate;  ///< The ground of every other row.
    QColor text;
    QColor mutedText;  ///< For hints, captions and disabled text.
    QColor border;
    QColor hover;
    QColor pressed;
    QColor selection;
    QColor selectedText;
    QColor accent;
    QColor accentText;  ///< For text on an accent fill.
    QColor caution;     ///< For the picture of a warning.
    QColor danger;      ///< For the picture of a failure.
    friend bool operator==(const ThemeColours&, const ThemeColours&) = default;
};

[[nodiscard]] const ThemeColours& ColoursOf(ThemeMode mode);
[[nodiscard]] QPalette PaletteOf(const ThemeColours& colours);
/// Returns whether a palette that was made elsewhere is a light or a dark one.
[[nodiscard]] ThemeMode ModeOf(const QPalette& palette);
/// Returns the WCAG contrast of two opaque colours, from 1 to 21.
[[nodiscard]] double Contrast(const QColor& a, const QColor& b);
