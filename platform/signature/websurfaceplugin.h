#pragma once

#include <chrono>
#include <QtPlugin>

#include "platform/signature/websurface.h"

/// How long a signature page may take, and how much it may tell.
struct WebSurfaceLimits {
    std::chrono::milliseconds patience{30000};  ///< For a load, and for the answer of a page that is asked something.
    int characters = 1000000;                   ///< The longest text that is read from a page.
};

/// What the plugin in platform/websign/ offers. The program and the plugin are built together; the name below changes
/// with this class.
class WebSurfacePlugin {
  public:
    virtual ~WebSurfacePlugin() = default;

    /// Makes a web surface inside `parent`. Returns null where no page can be shown on this computer, and tells so in
    /// `why`, a sentence for the user.
    [[nodiscard]] virtual WebSurface* Make(const WebSurfaceLimits& limits, QWidget* parent, QString* why) = 0;
};
Q_DECLARE_INTERFACE(WebSurfacePlugin, "svscheduler.WebSurfacePlugin/1")

/// Makes a web surface by the plugin in this folder. Returns null and tells the reason in `why`, as LoadWebSurface
/// does.
[[nodiscard]] WebSurface* LoadWebSurfacePlugin(const QString& folder, const WebSurfaceLimits& limits, QWidget* parent,
                                               QString* why);
