#pragma once

#include <QObject>

#include "platform/signature/websurfaceplugin.h"

/// The plugin's only object, which makes the browsers.
class WebSignPlugin : public QObject, public WebSurfacePlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "svscheduler.WebSurfacePlugin/1" FILE "plugin.json")
    Q_INTERFACES(WebSurfacePlugin)

  public:
    [[nodiscard]] WebSurface* Make(const WebSurfaceLimits& limits, QWidget* parent, QString* why) override;
};
