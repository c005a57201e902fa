#pragma once

#include <optional>
#include <QFont>
#include <QObject>

#include "platform/theme/colours.h"

/// The look of the whole program: palette, style and font. It follows the desktop's light or dark mode while the
/// program runs. The mode that the desktop reported last is remembered for the user, so that the first window is
/// painted right without asking.
class Theme : public QObject {
    Q_OBJECT

  public:
    /// Gives the application its style, palette and font. It must be called before the first window. With `forced`, the
    /// desktop is never asked.
    static void Install(std::optional<ThemeMode> forced = std::nullopt);
    /// Asks the desktop for its mode and follows its changes. It is called after the first paint, because reaching the
    /// session bus takes a moment. It does nothing where the mode was forced.
    static void FollowDesktop();
    static Theme& Instance();

    /// Changes the look at once.
    void setMode(ThemeMode mode);

    [[nodiscard]] ThemeMode mode() const { return mode_; }
    [[nodiscard]] const ThemeColours& colours() const { return ColoursOf(mode_); }

  private:
    Theme() = default;

    ThemeMode mode_ = ThemeMode::Light;
    bool forced_ = false;
    bool following_ = false;
};

/// Returns a distance of the spacing grid (4, 8, 12, 16 or 24), in pixels at the application font's size.
[[nodiscard]] int Space(int step);
/// Returns the application font in a heading's size and weight. `steps` is 1 for a panel heading, 2 for a window
/// heading.
[[nodiscard]] QFont HeadingFont(int steps = 1);
