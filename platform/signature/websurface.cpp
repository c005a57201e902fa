#include "platform/signature/websurface.h"

#include <QFileInfo>
#include <QLoggingCategory>
#include <QPluginLoader>

#include "platform/files/ownfile.h"
#include "platform/signature/websurfaceplugin.h"

namespace {

Q_LOGGING_CATEGORY(lcWebSign, "svscheduler.websign", QtWarningMsg)

WebSurface* fromBesideTheProgram(QWidget* parent, QString* why) {
    const QString file =
        files::OwnFile(QStringLiteral("plugins/websign.so"), QStringLiteral(SVS_PLUGINS "/websign.so"));
    return LoadWebSurfacePlugin(QFileInfo(file).path(), {}, parent, why);
}

}  // namespace

WebSurface* LoadWebSurface(QWidget* parent, QString* why) {
    return MakeWebSurface()(parent, why);
}

WebSurfaceMaker& MakeWebSurface() {
    static WebSurfaceMaker maker = WebSurfacePluginMaker();
    return maker;
}

WebSurfaceMaker WebSurfacePluginMaker() {
    return fromBesideTheProgram;
}

WebSurface* LoadWebSurfacePlugin(const QString& folder, const WebSurfaceLimits& limits, QWidget* parent, QString* why) {
    const QString file = folder + QStringLiteral("/websign.so");
    if (!QFileInfo::exists(file)) {
        *why = QStringLiteral("The web signature is not installed on this computer.");
        return nullptr;
    }
    QPluginLoader loader(file);
    auto* plugin = qobject_cast<WebSurfacePlugin*>(loader.instance());
    if (plugin == nullptr) {
        qCWarning(lcWebSign) << loader.errorString();
        *why =
            QStringLiteral("The web signature could not be loaded. It may belong to another version of SVScheduler.");
        return nullptr;
    }
    return plugin->Make(limits, parent, why);
}
