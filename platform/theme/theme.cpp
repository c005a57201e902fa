#include "platform/theme/theme.h"

#include <QApplication>
#include <QFontMetrics>
#include <QToolTip>
#include "platform/desktop/userstore.h"

#include "platform/desktop/userstore.h"
#include "platform/theme/desktopmode.h"
#include "platform/theme/quietstyle.h"

namespace {

constexpr double LeastPointSize = 9;
/// The height of the font for which the spacing grid is in whole pixels.
constexpr double GridFontHeight = 15;

const QString RememberedMode = QStringLiteral("Look");

std::optional<ThemeMode> remembered() {
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return std::nullopt;
    const QString text = ReadUserSetting(RememberedMode);
    if (text.isEmpty())
        return std::nullopt;
    return text == QLatin1String("dark") ? ThemeMode::Dark : ThemeMode::Light;
}

void remember(ThemeMode mode) {
    if (remembered() != mode)
        WriteUserSetting(RememberedMode, mode == ThemeMode::Dark ? QStringLiteral("dark") : QStringLiteral("light"));
}

}  // namespace

Theme& Theme::Instance() {
    static Theme theme;
    return theme;
}

void Theme::Install(std::optional<ThemeMode> forced) {
    Theme& theme = Instance();
    const ThemeMode platform = ModeOf(QApplication::palette());
    theme.forced_ = forced.has_value();
    QApplication::setStyle(new QuietStyle);
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0 && font.pointSizeF() < LeastPointSize)
        font.setPointSizeF(LeastPointSize);
    QApplication::setFont(font);
    theme.setMode(forced.value_or(remembered().value_or(platform)));
}

void Theme::FollowDesktop() {
    Theme& theme = Instance();
    if (theme.forced_ || theme.following_)
        return;
    theme.following_ = true;
    auto* desktop = new DesktopMode(&theme);
    connect(desktop, &DesktopMode::told, &theme, [&theme](ThemeMode mode) {
        remember(mode);
        if (mode != theme.mode())
            theme.setMode(mode);
    });
    desktop->watch();
}

void Theme::setMode(ThemeMode mode) {
    mode_ = mode;
    const QPalette palette = PaletteOf(colours());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

int Space(int step) {
    const int height = QFontMetrics(QApplication::font()).height();
    return qRound(step * height / GridFontHeight);
}

QFont HeadingFont(int steps) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * (steps > 1 ? 1.45 : 1.15));
    font.setWeight(QFont::DemiBold);
    return font;
}
