#include "tests/walk/walkplugin.h"

#include "platform/desktop/desktop.h"
#include "tests/walk/walker.h"

// A walk starts no other program, and writes no file of the machine.
QObject* WalkPlugin::create(const QString& name, const QString& specification) {
    Q_UNUSED(specification)
    if (name != QLatin1String("walker"))
        return nullptr;
    DesktopSeams& seams = Desktop();
    seams.openWithShell = [](const QString&) { return true; };
    seams.startProgram = [](const QString&, const QString&, const QString&) { return true; };
    seams.playSound = [](const QString&) {};
    seams.chooseSaveFile = [](const QString&, const QString&, const QString&, AsksToReplace) { return QString(); };
    return new walk::Walker(walk::Plan::FromEnvironment());
}
