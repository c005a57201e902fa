#pragma once

#include <QMap>
#include <QString>

#include "manual/page.h"

namespace manual {

/// The manual's sources in a folder: contents.md and the pages that it lists.
struct Sources {
    Page contents;
    std::vector<Page> pages;  ///< In the order of the contents.
    QStringList sections;     ///< The section of each page.
};

/// Reads the sources. Throws Fault for the first thing that is not in order: a page that the contents do not list, one
/// that they list twice or under another title, a form or a title on two pages, a link to a page, an anchor or a file
/// that is not there.
[[nodiscard]] Sources ReadSources(const QString& folder, const QString& menuKeys);

/// Returns the names of the pictures of all pages ("frmmove"), each once.
[[nodiscard]] QStringList PicturesOf(const Sources& sources);

/// Returns the files of the manual by their names: the pages, the index of the search ("search.js") and the pages of
/// the forms ("forms.txt", lines "frmmove move.html"). `frame` is the HTML around each page.
[[nodiscard]] QMap<QString, QByteArray> FilesOf(const Sources& sources, const QString& frame);

}  // namespace manual
