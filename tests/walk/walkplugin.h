#pragma once

#include <QGenericPlugin>

/// Loaded by Qt into a running program; see walk::Walker.
class WalkPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "walkplugin.json")

  public:
    QObject* create(const QString& name, const QString& specification) override;
};
