#include "platform/printing/tabletext.h"

namespace printing {

namespace {

/// Returns the rows of "a|b;c|d;". The text after the last ";" is a row only when it is not empty.
std::vector<QStringList> rowsOf(const QString& text) {
    QStringList rows = text.split(u';');
    if (rows.last().isEmpty())
        rows.removeLast();
    std::vector<QStringList> cells;
    for (const QString& row : rows)
        cells.push_back(row.split(u'|'));
    return cells;
}

QStringList firstRowOf(const QString& text) {
    const std::vector<QStringList> rows = rowsOf(text);
    return rows.empty() ? QStringList() : rows.front();
}

}  // namespace

TableContent ParseTable(const QString& format, const QString& header, const QString& body) {
    TableContent content{.widths = {}, .titles = firstRowOf(header), .rows = rowsOf(body)};
    for (const QString& width : firstRowOf(format))
        content.widths.push_back(width.trimmed().toInt());
    return content;
}

}  // namespace printing
