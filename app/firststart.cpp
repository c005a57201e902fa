#include "app/firststart.h"

#include <QDir>
#include <QStandardPaths>

#include "app/demopractice.h"
#include "app/frmfirststart.h"
#include "app/options.h"
#include "data/scramble.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/installation.h"

namespace {

QString ownFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

}  // namespace

bool IsFirstStart(const AppOptions& options, const QString& installationFile) {
    return options.commandLine.isEmpty() && options.dataFolder.isEmpty() && !options.demo &&
           !CentralInstallation(installationFile) && QDir(ownFolder()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot);
}

std::optional<QString> BeginPractice(const QString& installationFile) {
    frmfirststart form(ownFolder(), InstallationScrambleKey(installationFile, DefaultScrambleKey));
    if (ShowModal(form) != QDialog::Accepted)
        return std::nullopt;
    if (form.Chosen() != frmfirststart::Choice::Demo)
        return QString();
    const QString demo = DemoPracticeFolder();
    return demo.isEmpty() ? std::nullopt : std::optional(demo);
}
