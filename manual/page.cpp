#include "manual/page.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm.h>

#include <algorithm>
#include <memory>
#include <QRegularExpression>

namespace manual {

namespace {

constexpr int Options = CMARK_OPT_UNSAFE | CMARK_OPT_VALIDATE_UTF8;  // The keys are written as HTML.

struct FreeNode {
    void operator()(cmark_node* node) const { cmark_node_free(node); }
};
using Document = std::unique_ptr<cmark_node, FreeNode>;

cmark_syntax_extension* tables() {
    cmark_gfm_core_extensions_ensure_registered();
    return cmark_find_syntax_extension("table");
}

Document parsed(const QByteArray& source) {
    cmark_parser* parser = cmark_parser_new(Options);
    cmark_parser_attach_syntax_extension(parser, tables());
    cmark_parser_feed(parser, source.constData(), static_cast<std::size_t>(source.size()));
    Document document(cmark_parser_finish(parser));
    cmark_parser_free(parser);
    return document;
}

QString rendered(cmark_node* document) {
    cmark_llist* extensions = cmark_llist_append(cmark_get_default_mem_allocator(), nullptr, tables());
    char* html = cmark_render_html(document, Options, extensions);
    const QString text = QString::fromUtf8(html);
    cmark_get_default_mem_allocator()->free(html);
    cmark_llist_free(cmark_get_default_mem_allocator(), extensions);
    return text;
}

/// The line of the block that a node stands in.
int lineOf(cmark_node* node) {
    while (node != nullptr && cmark_node_get_start_line(node) == 0)
        node = cmark_node_parent(node);
    return node == nullptr ? 0 : cmark_node_get_start_line(node);
}

/// The words in a node, without its marks.
QString wordsOf(cmark_node* top) {
    QString words;
    cmark_iter* walk = cmark_iter_new(top);
    for (cmark_event_type event = cmark_iter_next(walk); event != CMARK_EVENT_DONE; event = cmark_iter_next(walk)) {
        cmark_node* node = cmark_iter_get_node(walk);
        const cmark_node_type type = cmark_node_get_type(node);
        const bool isBlock = (type & CMARK_NODE_TYPE_MASK) == CMARK_NODE_TYPE_BLOCK;
        if (type == CMARK_NODE_TEXT || type == CMARK_NODE_CODE || type == CMARK_NODE_CODE_BLOCK)
            words += QString::fromUtf8(cmark_node_get_literal(node));
        else if (type == CMARK_NODE_SOFTBREAK || (event == CMARK_EVENT_EXIT && isBlock))
            words += QLatin1Char(' ');
    }
    cmark_iter_free(walk);
    return words.simplified();
}

QString anchorOf(const QString& heading) {
    static const QRegularExpression dropped(QStringLiteral("[^\\w\\- ]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(dropped).replace(QLatin1Char(' '), QLatin1Char('-'));
}

/// Goes through a parsed page and notes what the rest of the manual has to know of it.
class Reader {
  public:
    Reader(Page& page, const QString& menuKeys) : page_(page), menuKeys_(menuKeys) {}

    void read(cmark_node* document) {
        std::vector<cmark_node*> gone;
        cmark_iter* walk = cmark_iter_new(document);
        for (cmark_event_type event = cmark_iter_next(walk); event != CMARK_EVENT_DONE; event = cmark_iter_next(walk))
            if (event == CMARK_EVENT_ENTER)
                note(cmark_iter_get_node(walk), gone);
        cmark_iter_free(walk);
        for (cmark_node* node : gone) {
            cmark_node_unlink(node);
            cmark_node_free(node);
        }
    }

  private:
    void note(cmark_node* node, std::vector<cmark_node*>& gone) {
        switch (cmark_node_get_type(node)) {
            case CMARK_NODE_HEADING:
                noteHeading(node);
                break;
            case CMARK_NODE_LINK:
                noteLink(node);
                break;
            case CMARK_NODE_IMAGE:
                page_.pictures.push_back(reference(node));
                break;
            case CMARK_NODE_HTML_BLOCK:
                if (!isKept(node))
                    gone.push_back(node);
                break;
            default:
                break;
        }
    }
    Reference reference(cmark_node* node) const {
        return {QString::fromUtf8(cmark_node_get_url(node)), wordsOf(node),
                page_.headings.empty() ? QString() : page_.headings.back().text, lineOf(node)};
    }
    void noteHeading(cmark_node* node) {
        const QString text = wordsOf(node);
        const Heading heading{text, anchorOf(text), cmark_node_get_heading_level(node)};
        if (page_.HasAnchor(heading.anchor))
            throw Fault(page_.file, lineOf(node), QStringLiteral("two headings are \"%1\"").arg(text));
        page_.headings.push_back(heading);
    }
    void noteLink(cmark_node* node) {
        const Reference link = reference(node);
        page_.links.push_back(link);
        static const QRegularExpression source(QStringLiteral("\\.md(#.*)?$"));
        QString target = link.target;
        cmark_node_set_url(node, target.replace(source, QStringLiteral(".html\\1")).toUtf8().constData());
    }
    /// Whether a block of HTML is the page's own text; comments tell the builder something.
    bool isKept(cmark_node* node) {
        const QString literal = QString::fromUtf8(cmark_node_get_literal(node)).trimmed();
        static const QRegularExpression comment(QStringLiteral("^<!--\\s*(\\w+):\\s*(.*?)\\s*-->$"));
        const QRegularExpressionMatch match = comment.match(literal);
        if (!match.hasMatch() && !literal.startsWith(QLatin1String("<!--")))
            return true;
        const QString kind = match.captured(1);
        if (kind == QLatin1String("insert") && match.captured(2) == QLatin1String("menu keys")) {
            cmark_node_set_literal(node, menuKeys_.toUtf8().constData());
            return true;
        }
        if (kind == QLatin1String("forms"))
            page_.forms = match.captured(2).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        else if (kind == QLatin1String("words"))
            page_.words = match.captured(2);
        else
            throw Fault(page_.file, lineOf(node), QStringLiteral("nobody knows the comment %1").arg(literal));
        return false;
    }

    Page& page_;
    const QString& menuKeys_;
};

/// Gives each heading its anchor, in their order.
QString withAnchors(QString html, const std::vector<Heading>& headings) {
    static const QRegularExpression start(QStringLiteral("<h[1-6]>"));
    qsizetype from = 0;
    for (const Heading& heading : headings) {
        const qsizetype at = html.indexOf(start, from);
        const QString id = QStringLiteral(" id=\"%1\"").arg(heading.anchor);
        html.insert(at + 3, id);
        from = at + id.size();
    }
    return html;
}

/// A picture has two forms, of which the browser shows the one of the reader's colour scheme. Both were taken at twice
/// the size in which the program shows itself.
QString withDarkPictures(QString html) {
    static const QRegularExpression image(QStringLiteral("<img src=\"(pictures/[^\"]+)\\.png\" (alt=\"[^\"]*\") />"));
    return html.replace(
        image,
        QStringLiteral(
            "<picture><source media=\"(prefers-color-scheme: dark)\" srcset=\"\\1-dark.png 2x\" /><source srcset=\"\\1.png 2x\" /><img src=\"\\1.png\" \\2 loading=\"lazy\" /></picture>"));
}

}  // namespace

Fault::Fault(const QString& file, int line, const QString& what)
    : std::runtime_error(QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(what).toStdString()) {}

QString Page::Html() const {
    return file.chopped(2) + QStringLiteral("html");
}

bool Page::HasAnchor(const QString& anchor) const {
    return std::any_of(headings.begin(), headings.end(),
                       [&](const Heading& heading) { return heading.anchor == anchor; });
}

Page ReadPage(const QString& file, const QByteArray& source, const QString& menuKeys) {
    Page page;
    page.file = file;
    const Document document = parsed(source);
    Reader(page, menuKeys).read(document.get());
    if (page.headings.empty() || page.headings.front().level != 1)
        throw Fault(file, 1, QStringLiteral("a page begins with \"# \" and its title"));
    page.title = page.headings.front().text;
    page.text = wordsOf(document.get());
    page.html = withDarkPictures(withAnchors(rendered(document.get()), page.headings));
    return page;
}

}  // namespace manual
