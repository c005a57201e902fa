// Builds the manual's pages: manualpages SOURCES LOOK OUTPUT. SOURCES is the folder of the pages' sources, LOOK that of
// the frame, the style and the search. The names of the pictures that the pages show go into pictures/wanted.txt, one a
// line. What the writer has to mend is told on standard error, and nothing is written then.

#include <cstdio>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include "manual/menukeys.h"
#include "manual/site.h"

namespace {

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw manual::Fault(path, 1, QStringLiteral("the file cannot be read"));
    return file.readAll();
}

/// Writes a file that has changed, so that a build need not install it again.
void write(const QString& path, const QByteArray& content) {
    QFile before(path);
    if (before.open(QIODevice::ReadOnly) && before.readAll() == content)
        return;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit())
        throw manual::Fault(path, 1, QStringLiteral("the file cannot be written"));
}

void build(const QString& from, const QDir& look, const QDir& to) {
    const manual::Sources sources = manual::ReadSources(from, manual::MenuKeyTables());
    const QStringList pictures = manual::PicturesOf(sources);
    auto files = manual::FilesOf(sources, QString::fromUtf8(contentOf(look.filePath(QStringLiteral("page.html")))));
    for (const char* name : {"manual.css", "manual.js"})
        files.insert(QLatin1String(name), contentOf(look.filePath(QLatin1String(name))));
    to.mkpath(QStringLiteral("pictures"));
    // A page or a picture that is no more must not be found any more.
    for (const QString& name : to.entryList({QStringLiteral("*.html")}, QDir::Files))
        if (!files.contains(name))
            QFile::remove(to.filePath(name));
    const QDir taken(to.filePath(QStringLiteral("pictures")));
    for (const QString& name : taken.entryList({QStringLiteral("*.png")}, QDir::Files))
        if (!pictures.contains(name.chopped(4).remove(QStringLiteral("-dark"))))
            QFile::remove(taken.filePath(name));
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        write(to.filePath(file.key()), file.value());
    write(to.filePath(QStringLiteral("pictures/wanted.txt")), pictures.join(QLatin1Char('\n')).toUtf8() + '\n');
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "manualpages SOURCES LOOK OUTPUT\n");
        return 2;
    }
    try {
        build(QString::fromLocal8Bit(argv[1]), QDir(QString::fromLocal8Bit(argv[2])),
              QDir(QString::fromLocal8Bit(argv[3])));
    } catch (const manual::Fault& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
    return 0;
}
