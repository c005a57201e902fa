#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>
#include <vector>

namespace manual {

/// What the manual's writer has to mend, as "book.md:12: there is no page \"moove.md\"".
struct Fault : std::runtime_error {
    Fault(const QString& file, int line, const QString& what);
};

/// A link or a picture of a page.
struct Reference {
    QString target;  ///< "move.md#by-mouse", "pictures/frmmove.png", "https://..."
    QString text;
    QString section;  ///< The heading above it.
    int line = 0;
};

struct Heading {
    QString text;
    QString anchor;  ///< In lower case, words joined by hyphens, everything else dropped.
    int level = 1;
};

/// A page of the manual, read from its source.
struct Page {
    QString file;  ///< "book.md"
    QString title;
    QStringList forms;  ///< The windows that F1 opens it for, by their class names.
    QString words;      ///< More words under which it is found.
    QString text;       ///< All of its words, for the search.
    QString html;
    std::vector<Heading> headings;
    std::vector<Reference> links;
    std::vector<Reference> pictures;

    /// "book.html"
    [[nodiscard]] QString Html() const;
    [[nodiscard]] bool HasAnchor(const QString& anchor) const;
};

/// Reads a page: CommonMark with tables (UTF-8). A line `<!-- forms: frmmove frmrest -->` names the page's forms,
/// `<!-- words: shift, reschedule -->` more words, and `menuKeys` takes the place of `<!-- insert: menu keys -->`.
/// Throws Fault for a page without a title, with two anchors of one name or with a comment that means nothing.
[[nodiscard]] Page ReadPage(const QString& file, const QByteArray& source, const QString& menuKeys);

}  // namespace manual
