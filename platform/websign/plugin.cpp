#include "platform/websign/plugin.h"

#include <QCoreApplication>
#include <QOpenGLContext>
#include <QQuickWindow>

#include "platform/websign/sandbox.h"
#include "platform/websign/signaturebrowser.h"

// Qt's own, for whoever loads the browser late. No header of Qt tells it.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
Q_GUI_EXPORT QOpenGLContext* qt_gl_global_share_context();
QT_END_NAMESPACE

namespace {

/// Lets the browser paint without a graphics card. It would otherwise want a graphics context from before the first
/// window, at the cost of every start of the program; a signature page is painted as well without one. The browser
/// looks at the context's format only, so that the context need not be created.
void paintWithoutGraphicsCard() {
    if (qt_gl_global_share_context() != nullptr)
        return;
    qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

}  // namespace

WebSurface* WebSignPlugin::Make(const WebSurfaceLimits& limits, QWidget* parent, QString* why) {
    *why = WhyThereIsNoSandbox();
    if (!why->isEmpty())
        return nullptr;
    paintWithoutGraphicsCard();
    return new SignatureBrowser(limits, parent);
}
