// Takes the manual's pictures: manualpictures FOLDER light|dark. The folder has a list of the wanted ones (wanted.txt),
// which manualpages writes. It needs no display. A picture that no scene gives ends it with an error.

#include <cstdio>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "app/screenshot.h"
#include "manual/scenes.h"

namespace {

/// A screen off any display, large enough for each form and with fine pixels, in a home without settings.
void useOwnDesk(const QTemporaryDir& home) {
    QFile screen(home.filePath(QStringLiteral("screen.json")));
    if (!screen.open(QIODevice::WriteOnly))
        throw std::runtime_error("There is no room for temporary files.");
    screen.write(R"({"screens": [{"name": "manual", "x": 0, "y": 0, "width": 1920, "height": 1200,
                     "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
    for (const char* name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(name, QFile::encodeName(home.path()));
    qputenv("CUPS_SERVER", "/nowhere");
    qputenv("TZ", "UTC");
    qputenv("LC_ALL", "en_US.UTF-8");
}

QStringList wantedIn(const QDir& folder) {
    QFile list(folder.filePath(QStringLiteral("wanted.txt")));
    if (!list.open(QIODevice::ReadOnly))
        throw std::runtime_error("There is no list of the wanted pictures.");
    return QString::fromUtf8(list.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "manualpictures FOLDER light|dark\n");
        return 2;
    }
    try {
        const QTemporaryDir home;
        useOwnDesk(home);
        QuietenPlatform();
        const QApplication app(argc, argv);
        QApplication::setApplicationVersion(QStringLiteral(SVS_VERSION));
        const QString folder = QString::fromLocal8Bit(argv[1]);
        const QStringList untaken =
            TakePictures(wantedIn(folder), qstrcmp(argv[2], "dark") == 0 ? ThemeMode::Dark : ThemeMode::Light, folder,
                         home.filePath(QStringLiteral("practice")));
        for (const QString& name : untaken)
            std::fprintf(stderr, "No scene gives the picture %s.\n", qUtf8Printable(name));
        return untaken.isEmpty() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "manualpictures: %s\n", error.what());
        return 1;
    }
}
