#include "data/demo/notesstandin.h"

#include <QFileInfo>

#include "platform/files/ownfile.h"

namespace demo {

QString NotesStandIn() {
    // Where it was built, it lies in another folder than the scheduler itself.
    for (const char* beside : {"svscheduler-demo-notes", "../data/demo/svscheduler-demo-notes"}) {
        const QFileInfo program(
            files::OwnFile(QLatin1String(beside), QStringLiteral(SVS_HELPERS "/svscheduler-demo-notes")));
        if (program.isExecutable())
            return program.canonicalFilePath();
    }
    return {};
}

}  // namespace demo
