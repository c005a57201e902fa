#include <algorithm>
#include <numeric>

#include "platform/printing/output.h"
#include "platform/text/plaintext.h"

namespace printing {

namespace {

constexpr double PointsPerTwip = 1.0 / TwipsPerPoint;
const QColor TitleShade(0xe6, 0xe6, 0xe6);

QString escaped(const QString& text) {
    return ManyLines(text).toHtmlEscaped().replace(u'\n', QStringLiteral("<br/>"));
}

QString fontStyle(const QFont& font) {
    QString style = QStringLiteral("font-family:'%1',sans-serif;font-size:%2pt")
                        .arg(font.family().remove(u'\'').toHtmlEscaped())
                        .arg(font.pointSizeF());
    if (font.bold())
        style += QStringLiteral(";font-weight:bold");
    if (font.italic())
        style += QStringLiteral(";font-style:italic");
    return style;
}

QString alignmentWord(Qt::Alignment alignment) {
    if (alignment & Qt::AlignHCenter)
        return QStringLiteral("center");
    if (alignment & Qt::AlignRight)
        return QStringLiteral("right");
    return alignment & Qt::AlignJustify ? QStringLiteral("justify") : QStringLiteral("left");
}

QString html(const Paragraph& paragraph) {
    return QStringLiteral("<p style=\"%1;text-align:%2;margin:0 0 0 %3pt\">%4</p>\n")
        .arg(fontStyle(paragraph.font), alignmentWord(paragraph.alignment))
        .arg(paragraph.indent * PointsPerTwip)
        .arg(paragraph.text.isEmpty() ? QStringLiteral("&#160;") : escaped(paragraph.text));
}

QString between(const QString& tag, const QString& html) {
    return QStringLiteral("<%1>%2</%1>").arg(tag, html);
}

/// Returns a row of a table. `tags` are the elements around each cell's text, from the outside in.
QString row(const QStringList& cells, std::size_t columns, const QStringList& tags,
            const std::optional<QColor>& shading) {
    QString html =
        shading ? QStringLiteral("<tr style=\"background:%1\">").arg(shading->name()) : QStringLiteral("<tr>");
    for (qsizetype column = 0; column < static_cast<qsizetype>(columns); ++column) {
        const bool isLast = column == static_cast<qsizetype>(columns) - 1;
        QString cell = escaped(isLast ? QStringList(cells.mid(column)).join(u' ') : cells.value(column));
        std::for_each(tags.rbegin(), tags.rend(), [&](const auto& tag) { cell = between(tag, cell); });
        html += cell;
    }
    return html + QStringLiteral("</tr>\n");
}

/// Returns the rows of a table without its titles.
QString bodyOf(const Table& table) {
    QStringList tags{QStringLiteral("td")};
    if (table.headingLevel > 0)
        tags << QStringLiteral("h%1").arg(table.headingLevel);
    QString html = QStringLiteral("<tbody>\n");
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        html += row(table.rows[i], table.widths.size(), tags, table.shadingOf(i));
    return html + QStringLiteral("</tbody>\n");
}

QString html(const Table& table) {
    const int width = std::accumulate(table.widths.begin(), table.widths.end(), 0);
    // A table of headings is read as headings, and not as data.
    QString html = QStringLiteral("<table class=\"%1\"%2 style=\"width:%3pt;%4\">\n")
                       .arg(table.grid ? QStringLiteral("grid") : QStringLiteral("plain"),
                            table.headingLevel > 0 ? QStringLiteral(" role=\"presentation\"") : QString())
                       .arg(width * PointsPerTwip)
                       .arg(fontStyle(table.font));
    html += QStringLiteral("<colgroup>");
    for (const int column : table.widths)
        html += QStringLiteral("<col style=\"width:%1pt\"/>").arg(column * PointsPerTwip);
    html += QStringLiteral("</colgroup>\n");
    if (!table.titles.isEmpty())
        html += between(QStringLiteral("thead"), row(table.titles, table.widths.size(), {QStringLiteral("th")},
                                                     table.titleShading ? std::optional(TitleShade) : std::nullopt)) +
                QStringLiteral("\n");
    return html + bodyOf(table) + QStringLiteral("</table>\n");
}

QString html(const Gap& gap) {
    return QStringLiteral("<div style=\"height:%1pt\"></div>\n").arg(gap.height * PointsPerTwip);
}

QString html(const PageBreak& /*pageBreak*/) {
    return QStringLiteral("<div style=\"page-break-before:always\"></div>\n");
}

// A picture is painted for paper only, and only paper has pages to keep something on.
QString html(const Figure& /*figure*/) {
    return {};
}

QString html(const Together& /*together*/) {
    return {};
}

}  // namespace

// The page is also well-formed XML, so that any program can read it. A text in letters that run from right to left
// keeps that direction in its cell.
QString HtmlText(const Document& document) {
    const PageMargins& margins = document.setup.margins;
    QString text =
        QStringLiteral(
            "<!DOCTYPE html>\n"
            "<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
            "<meta name=\"viewport\" content=\"width=device-width\"/>\n<title>%1</title>\n<style>\n"
            "body { color: black; background: white; }\n"
            "h1, h2, h3, h4, h5, h6 { font: inherit; margin: 0; }\n"
            "p, h1, h2, h3, h4, h5, h6, th, td { unicode-bidi: plaintext; }\n"
            "table { border-collapse: collapse; table-layout: fixed; max-width: 100%; }\n"
            "th, td { text-align: left; vertical-align: top; padding: 2pt 4pt; overflow-wrap: anywhere; }\n"
            ".grid th, .grid td { border: 1px solid #9a9a9a; }\n"
            "tr { break-inside: avoid; print-color-adjust: exact; -webkit-print-color-adjust: exact; }\n"
            "table[role] { break-after: avoid; }\n"
            "@page { margin: %2pt %3pt %4pt %5pt; }\n"
            "</style>\n</head>\n<body>\n")
            .arg(OneLine(document.title).toHtmlEscaped(), QString::number(margins.top * PointsPerTwip),
                 QString::number(margins.right * PointsPerTwip), QString::number(margins.bottom * PointsPerTwip),
                 QString::number(margins.left * PointsPerTwip));
    for (const Block& block : document.blocks)
        text += std::visit([](const auto& content) { return html(content); }, block);
    return text + QStringLiteral("</body>\n</html>\n");
}

}  // namespace printing
