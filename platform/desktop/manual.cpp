#include "platform/desktop/manual.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QWidget>

#include "platform/files/ownfile.h"

namespace {

/// The pages by the classes of the windows, as the manual's builder has written them.
QHash<QString, QString> pagesOf(const QDir& manual) {
    QHash<QString, QString> pages;
    QFile file(manual.filePath(QStringLiteral("forms.txt")));
    if (!file.open(QIODevice::ReadOnly))
        return pages;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        pages.insert(line.section(QLatin1Char(' '), 0, 0), line.section(QLatin1Char(' '), 1));
    }
    return pages;
}

}  // namespace

QString& ManualFolder() {
    static QString folder =
        QFileInfo(files::OwnFile(QStringLiteral("../manual/html/forms.txt"), QStringLiteral(SVS_MANUAL "/forms.txt")))
            .path();
    return folder;
}

QString ManualPageOf(const QWidget* window) {
    const QDir manual(ManualFolder());
    const QHash<QString, QString> pages = pagesOf(manual);
    for (const QWidget* at = window; at != nullptr; at = at->parentWidget()) {
        const QString page = pages.value(QString::fromLatin1(at->metaObject()->className()));
        if (!page.isEmpty())
            return QDir::cleanPath(manual.filePath(page));
    }
    return manual.exists(QStringLiteral("index.html")) ? QDir::cleanPath(manual.filePath(QStringLiteral("index.html")))
                                                       : QString();
}
