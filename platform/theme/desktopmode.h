#pragma once

#include <optional>
#include <QDBusVariant>
#include <QObject>
#include <QVariant>

#include "platform/theme/colours.h"

/// Reads the answer of the desktop's settings portal for "color-scheme": 1 dark, 2 light, wrapped in one variant or
/// two. Returns nothing for "no preference" and for anything else.
[[nodiscard]] std::optional<ThemeMode> ModeFromPortal(const QVariant& answer);

/// Follows the desktop's wish for a light or a dark look through the settings portal. It never waits: an answer or a
/// change arrives as the signal `told`. A desktop without a portal sends none.
class DesktopMode : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;
    ~DesktopMode() override;

    void watch();

  Q_SIGNALS:
    void told(ThemeMode mode);

  private:
    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
};
