#include <cstdio>
#include <QApplication>
#include <QTimer>

#include "app/demopractice.h"
#include "app/firststart.h"
#include "app/options.h"
#include "app/screenshot.h"
#include "app/viewfactories.h"
#include "app/wiring.h"
#include "appointments/frmnore.h"
#include "platform/desktop/errorlog.h"
#include "platform/desktop/installation.h"
#include "platform/theme/theme.h"
#include "session/databasewait.h"
#include "session/session.h"
#include "session/startup.h"
#include "shell/frmabout.h"
#include "shell/mdisched.h"
#include "shell/viewtable.h"

namespace {

constexpr int Failed = 1;
constexpr int BadUsage = 2;
constexpr int QuickLookUpMilliseconds = 20;

int refuse(const QString& why, int status) {
    std::fprintf(stderr, "svscheduler: %s\n", qUtf8Printable(why));
    return status;
}

QStringList argumentsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// The platform's plugins in the order in which to try them; empty when there is no display. The last one needs none:
/// on it a picture can be made, and a display that does not answer can be told.
QByteArray platformsFor(const AppOptions& options) {
    QByteArray platforms;
    if (!qEnvironmentVariableIsEmpty("DISPLAY"))
        platforms += "xcb;";
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        platforms += "wayland;";
    return platforms.isEmpty() && options.screenshotFile.isEmpty() ? platforms : platforms + "offscreen";
}

QString viewName(View view) {
    return QString::fromLatin1(FindView(view)->option);
}

/// What the options ask that cannot be done, found before a window opens.
QString whyNot(const AppOptions& options, const ViewFactories& factories) {
    if (options.view != View::None && !factories.contains(options.view))
        return QStringLiteral("the view \"%1\" is not available in this version").arg(viewName(options.view));
    return {};
}

int run(const AppOptions& options, ViewFactories factories) {
    const bool picture = !options.screenshotFile.isEmpty();
    mdisched window(std::move(factories));
    WireMainWindow(window);
    if (options.date.isValid())
        window.OpenAt(options.date);
    if (picture || !options.size.isEmpty())
        window.OpenWithSize(options.size.isEmpty() ? PictureSize : options.size);
    if (picture)
        AnswerWithoutUser();
    QString folder = options.demo ? DemoPracticeFolder() : options.dataFolder;
    if (!picture && IsFirstStart(options, InstallationFile())) {
        const std::optional<QString> begun = BeginPractice(InstallationFile());
        if (!begun)
            return 0;
        folder = *begun;
    }
    // Who asks for a view, a date or a picture gets it, wherever the user was last.
    const bool returns = options.view == View::None && !options.date.isValid() && !picture;
    window.StartWith(options.view);
    if ((options.demo && folder.isEmpty()) || !StartUp(options.commandLine, {folder, {}, returns}, window))
        return Failed;
    if (options.view != View::None && !window.ViewAvailable(options.view))
        return refuse(QStringLiteral("the view \"%1\" is not available to this user").arg(viewName(options.view)),
                      Failed);
    if (options.view != View::None)
        window.changeview(options.view);
    if (!picture)
        OfferCrashNote(&window);
    if (picture)
        return SaveScreenshot(window, options.screenshotFile) ? 0 : Failed;
    QTimer::singleShot(0, &window, &Theme::FollowDesktop);
    return QApplication::exec();
}

int start(int argc, char** argv, const AppOptions& options, ViewFactories factories) {
    const bool picture = !options.screenshotFile.isEmpty();
    const bool platformGiven = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (!platformGiven) {
        const QByteArray platforms = platformsFor(options);
        if (platforms.isEmpty())
            return refuse(QStringLiteral("there is no display; --screenshot FILE makes a picture without one"), Failed);
        qputenv("QT_QPA_PLATFORM", platforms);
    }
    if (picture)
        QuietenPlatform();
    QApplication app(argc, argv);
    if (!platformGiven) {
        // The programs that this one starts choose for themselves.
        qunsetenv("QT_QPA_PLATFORM");
        if (!picture && QApplication::platformName() == QLatin1String("offscreen"))
            return refuse(QStringLiteral("the display does not answer; --screenshot FILE makes a picture without one"),
                          Failed);
    }
    QApplication::setApplicationName(QStringLiteral("svscheduler"));
    QApplication::setApplicationDisplayName(QStringLiteral("Solvane Scheduler"));
    QApplication::setApplicationVersion(QStringLiteral(SVS_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("svscheduler"));
    KeepErrorLog();
    KeepCrashNotes();
    Theme::Install(options.mode);
    frmnore::QuickLookUp = QuickLookUpMilliseconds;
    ShowDatabaseWaits();
    return run(options, std::move(factories));
}

}  // namespace

int main(int argc, char** argv) {
    const ParsedOptions parsed = ParseOptions(argumentsOf(argc, argv));
    const AppOptions& options = parsed.options;
    if (!parsed.error.isEmpty()) {
        refuse(parsed.error, BadUsage);
        std::fprintf(stderr, "%s", qUtf8Printable(UsageText()));
        return BadUsage;
    }
    if (options.help || options.version) {
        std::printf("%s", options.help ? qUtf8Printable(UsageText()) : "SVScheduler " SVS_VERSION "\n");
        return 0;
    }
    ViewFactories factories = MakeViewFactories();
    if (const QString why = whyNot(options, factories); !why.isEmpty())
        return refuse(why, BadUsage);
    return start(argc, argv, options, std::move(factories));
}
