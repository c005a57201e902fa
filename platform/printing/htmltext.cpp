#include <numeric>

#include "platform/printing/output.h"

namespace printing {

namespace {

constexpr double PointsPerTwip = 1.0 / TwipsPerPoint;

QString escaped(const QString& text) {
    QString html = text.toHtmlEscaped();
    html.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return html.replace(u'\n', QStringLiteral("<br>"));
}

QString fontStyle(const QFont& font) {
    QString style =
        QStringLiteral("font-family:'%1',sans-serif;font-size:%2pt").arg(font.family()).arg(font.pointSizeF());
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
        .arg(paragraph.text.isEmpty() ? QStringLiteral("&nbsp;") : escaped(paragraph.text));
}

QString row(const QStringList& cells, std::size_t columns, const QString& tag, const QString& style) {
    QString html = style.isEmpty() ? QStringLiteral("<tr>") : QStringLiteral("<tr style=\"%1\">").arg(style);
    for (qsizetype column = 0; column < static_cast<qsizetype>(columns); ++column) {
        const bool isLast = column == static_cast<qsizetype>(columns) - 1;
        const QString cell = isLast ? QStringList(cells.mid(column)).join(u' ') : cells.value(column);
        html += QStringLiteral("<%1>%2</%1>").arg(tag, escaped(cell));
    }
    return html + QStringLiteral("</tr>\n");
}

QString html(const Table& table) {
    const int width = std::accumulate(table.widths.begin(), table.widths.end(), 0);
    QString html = QStringLiteral("<table class=\"%1\" style=\"width:%2pt;%3\">\n")
                       .arg(table.grid ? QStringLiteral("grid") : QStringLiteral("plain"))
                       .arg(width * PointsPerTwip)
                       .arg(fontStyle(table.font));
    html += QStringLiteral("<colgroup>");
    for (const int column : table.widths)
        html += QStringLiteral("<col style=\"width:%1pt\">").arg(column * PointsPerTwip);
    html += QStringLiteral("</colgroup>\n");
    if (!table.titles.isEmpty())
        html += QStringLiteral("<thead>") +
                row(table.titles, table.widths.size(), QStringLiteral("th"),
                    table.titleShading ? QStringLiteral("background:#e6e6e6") : QString()) +
                QStringLiteral("</thead>\n");
    const QString style = table.shading ? QStringLiteral("background:") + table.shading->name() : QString();
    html += QStringLiteral("<tbody>\n");
    for (const QStringList& cells : table.rows)
        html += row(cells, table.widths.size(), QStringLiteral("td"), style);
    return html + QStringLiteral("</tbody>\n</table>\n");
}

QString html(const Gap& gap) {
    return QStringLiteral("<div style=\"height:%1pt\"></div>\n").arg(gap.height * PointsPerTwip);
}

QString html(const PageBreak& /*pageBreak*/) {
    return QStringLiteral("<div style=\"page-break-before:always\"></div>\n");
}

// A picture is painted for paper only.
QString html(const Figure& /*figure*/) {
    return {};
}

}  // namespace

QString HtmlText(const Document& document) {
    QString text = QStringLiteral(
                       "<!DOCTYPE html>\n"
                       "<html>\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n<style>\n"
                       "table { border-collapse: collapse; table-layout: fixed; max-width: 100%; }\n"
                       "th, td { text-align: left; vertical-align: top; padding: 2pt 4pt; overflow-wrap: anywhere; }\n"
                       ".grid th, .grid td { border: 1px solid #9a9a9a; }\n"
                       "</style>\n</head>\n<body>\n")
                       .arg(escaped(document.title));
    for (const Block& block : document.blocks)
        text += std::visit([](const auto& content) { return html(content); }, block);
    return text + QStringLiteral("</body>\n</html>\n");
}

}  // namespace printing
