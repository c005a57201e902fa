#include "manual/site.h"

#include <algorithm>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace manual {

namespace {

const QString Contents = QStringLiteral("contents.md");
const QString Index = QStringLiteral("index.html");

QByteArray contentOf(const QDir& folder, const QString& name) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        throw Fault(name, 1, QStringLiteral("the page cannot be read"));
    return file.readAll();
}

const Page* find(const Sources& sources, const QString& file) {
    if (file == Contents)
        return &sources.contents;
    const auto found =
        std::find_if(sources.pages.begin(), sources.pages.end(), [&](const Page& page) { return page.file == file; });
    return found == sources.pages.end() ? nullptr : &*found;
}

void readPages(Sources& sources, const QDir& folder, const QString& menuKeys) {
    QSet<QString> titles;
    for (const Reference& entry : sources.contents.links) {
        if (entry.section == sources.contents.title)
            continue;  // The welcome leads to some pages, too.
        if (find(sources, entry.target) != nullptr)
            throw Fault(Contents, entry.line, QStringLiteral("\"%1\" is listed twice").arg(entry.target));
        Page page = ReadPage(entry.target, contentOf(folder, entry.target), menuKeys);
        if (page.title != entry.text)
            throw Fault(Contents, entry.line,
                        QStringLiteral("the title of \"%1\" is \"%2\"").arg(entry.target, page.title));
        if (titles.contains(page.title))
            throw Fault(Contents, entry.line, QStringLiteral("two pages are \"%1\"").arg(page.title));
        titles.insert(page.title);
        sources.pages.push_back(std::move(page));
        sources.sections << entry.section;
    }
}

void requireAllListed(const Sources& sources, const QDir& folder) {
    for (const QString& file : folder.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name))
        if (find(sources, file) == nullptr)
            throw Fault(file, 1, QStringLiteral("the contents do not list the page"));
}

void requireLink(const Sources& sources, const Page& page, const Reference& link) {
    if (link.target.contains(QLatin1String("://")) || link.target.startsWith(QLatin1String("mailto:")))
        return;
    const QString file = link.target.section(QLatin1Char('#'), 0, 0);
    const QString anchor = link.target.section(QLatin1Char('#'), 1);
    const Page* target = file.isEmpty() ? &page : find(sources, file);
    if (target == nullptr)
        throw Fault(page.file, link.line, QStringLiteral("there is no page \"%1\"").arg(file));
    if (!anchor.isEmpty() && !target->HasAnchor(anchor))
        throw Fault(page.file, link.line, QStringLiteral("\"%1\" has no heading \"%2\"").arg(target->file, anchor));
}

void requireForms(const Sources& sources) {
    QMap<QString, QString> pages;
    for (const Page& page : sources.pages)
        for (const QString& form : page.forms) {
            if (pages.contains(form))
                throw Fault(page.file, 1, QStringLiteral("\"%1\" is explained by \"%2\" too").arg(form, pages[form]));
            pages.insert(form, page.file);
        }
}

/// The list of all pages, with the one that is shown marked.
QString navigation(const Sources& sources, const Page& shown) {
    QString html;
    QString section;
    for (std::size_t at = 0; at < sources.pages.size(); ++at) {
        const Page& page = sources.pages[at];
        const QString& its = sources.sections[static_cast<qsizetype>(at)];
        if (its != section)
            html += QStringLiteral("%1<h2>%2</h2>\n<ul>\n")
                        .arg(section.isEmpty() ? QString() : QStringLiteral("</ul>\n"), its.toHtmlEscaped());
        section = its;
        html += QStringLiteral("<li><a href=\"%1\"%2>%3</a></li>\n")
                    .arg(page.Html(), &page == &shown ? QStringLiteral(" aria-current=\"page\"") : QString(),
                         page.title.toHtmlEscaped());
    }
    return html + (section.isEmpty() ? QString() : QStringLiteral("</ul>\n"));
}

QString step(const char* name, const char* words, const QString& file, const QString& title) {
    return QStringLiteral("<a class=\"%1\" rel=\"%1\" href=\"%2\"><span>%3</span> %4</a>\n")
        .arg(QLatin1String(name), file, QLatin1String(words), title.toHtmlEscaped());
}

/// The way to the pages before and after.
QString steps(const Sources& sources, const Page& shown) {
    if (&shown == &sources.contents)
        return sources.pages.empty() ? QString()
                                     : step("next", "Next:", sources.pages.front().Html(), sources.pages.front().title);
    const auto at = static_cast<std::size_t>(&shown - sources.pages.data());
    QString html = at == 0 ? step("prev", "Back:", Index, sources.contents.title)
                           : step("prev", "Back:", sources.pages[at - 1].Html(), sources.pages[at - 1].title);
    if (at + 1 < sources.pages.size())
        html += step("next", "Next:", sources.pages[at + 1].Html(), sources.pages[at + 1].title);
    return html;
}

QByteArray framed(const Sources& sources, const Page& page, const QString& frame) {
    QString html = frame;
    const bool isContents = &page == &sources.contents;
    html.replace(QLatin1String("{title}"),
                 isContents ? page.title.toHtmlEscaped()
                            : QStringLiteral("%1 - %2").arg(page.title.toHtmlEscaped(), sources.contents.title));
    html.replace(QLatin1String("{manual}"), sources.contents.title.toHtmlEscaped());
    html.replace(QLatin1String("{navigation}"), navigation(sources, page));
    html.replace(QLatin1String("{steps}"), steps(sources, page));
    html.replace(QLatin1String("{page}"), page.html);
    return html.toUtf8();
}

/// What the search looks through, as a script, because a page that is read from a file may not read another file.
QByteArray searchIndex(const Sources& sources) {
    QJsonArray pages;
    for (const Page& page : sources.pages) {
        QJsonArray headings;
        for (std::size_t at = 1; at < page.headings.size(); ++at)
            headings.append(QJsonArray{page.headings[at].text, page.headings[at].anchor});
        pages.append(QJsonObject{{QStringLiteral("file"), page.Html()},
                                 {QStringLiteral("title"), page.title},
                                 {QStringLiteral("words"), page.words},
                                 {QStringLiteral("headings"), headings},
                                 {QStringLiteral("text"), page.text}});
    }
    return "const manualPages = " + QJsonDocument(pages).toJson(QJsonDocument::Compact) + ";\n";
}

QByteArray formPages(const Sources& sources) {
    QByteArray lines;
    for (const Page& page : sources.pages)
        for (const QString& form : page.forms)
            lines += form.section(QLatin1Char('#'), 0, 0).toUtf8() + ' ' + page.Html().toUtf8() +
                     (form.contains(QLatin1Char('#')) ? '#' + form.section(QLatin1Char('#'), 1).toUtf8() : "") + '\n';
    return lines;
}

}  // namespace

Sources ReadSources(const QString& folder, const QString& menuKeys) {
    const QDir where(folder);
    Sources sources;
    sources.contents = ReadPage(Contents, contentOf(where, Contents), menuKeys);
    readPages(sources, where, menuKeys);
    requireAllListed(sources, where);
    requireForms(sources);
    for (const Reference& link : sources.contents.links)
        requireLink(sources, sources.contents, link);
    for (const Page& page : sources.pages)
        for (const Reference& link : page.links)
            requireLink(sources, page, link);
    return sources;
}

QStringList PicturesOf(const Sources& sources) {
    QStringList names;
    for (const Page& page : sources.pages)
        for (const Reference& picture : page.pictures) {
            const QString name = picture.target.section(QLatin1Char('/'), -1).chopped(4);
            if (picture.target != QStringLiteral("pictures/%1.png").arg(name) || picture.text.isEmpty())
                throw Fault(page.file, picture.line,
                            QStringLiteral("a picture is \"pictures/NAME.png\" with words for who cannot see it"));
            names << name;
        }
    names.removeDuplicates();
    return names;
}

QMap<QString, QByteArray> FilesOf(const Sources& sources, const QString& frame) {
    QMap<QString, QByteArray> files;
    files.insert(Index, framed(sources, sources.contents, frame));
    for (const Page& page : sources.pages)
        files.insert(page.Html(), framed(sources, page, frame));
    files.insert(QStringLiteral("search.js"), searchIndex(sources));
    files.insert(QStringLiteral("forms.txt"), formPages(sources));
    return files;
}

}  // namespace manual
