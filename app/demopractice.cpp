#include "app/demopractice.h"

#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QStandardPaths>

#include "data/demo/demo.h"
#include "data/demo/notesstandin.h"
#include "platform/database/error.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"

namespace {

/// Making a practice takes some seconds, in which a user would otherwise see nothing.
class MakingNotice : public QLabel {
  public:
    MakingNotice() {
        setWindowFlag(Qt::SplashScreen);
        setText(QCoreApplication::translate("DemoPractice", "Making the demo practice. This is done once ..."));
        setMargin(Space(24));
        show();
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        repaint();
    }
};

QString make(const QString& folder) {
    const MakingNotice notice;
    demo::Options options;
    options.today = QDate::currentDate();
    options.notesProgram = demo::NotesStandIn();
    try {
        demo::MakeDemoFolder(options, folder);
        return {};
    } catch (const db::DatabaseError& error) {
        return error.description;
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace

QString DemoPracticeFolder() {
    QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/svscheduler-demo");
    if (QFileInfo::exists(folder + QStringLiteral("/solvane.ini")))
        return folder;
    const QString why = make(folder);
    if (why.isEmpty())
        return folder;
    MsgBox(QCoreApplication::translate("DemoPractice", "The demo practice could not be made. ") + why, ErrorBox,
           QStringLiteral("Error"));
    return {};
}
