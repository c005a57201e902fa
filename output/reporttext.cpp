#include "output/reporttext.h"

#include <numeric>

#include "platform/printing/tabletext.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"

namespace {

constexpr int RowGap = 300;  // Twips, behind a row and behind what stands under it.
const printing::TableLook Plain{.grid = false, .titleShading = false};

}  // namespace

ReportColumns::ReportColumns(const QString& format, const QString& header, int detailColumn)
    : columns_(printing::ParseTable(format, header, {})), detailColumn_(detailColumn) {}

void ReportColumns::AddTitles(VSPrinter& vp) const {
    printing::TableLook look = Plain;
    look.titlesStay = true;
    vp.AddTable(columns_, look);
}

void ReportColumns::AddRow(VSPrinter& vp, const QStringList& cells) const {
    vp.AddTable({.widths = columns_.widths, .rows = {cells}}, Plain);
    vp.AddSpace(RowGap);
}

void ReportColumns::AddTable(VSPrinter& vp, const QStringList& titles, std::vector<QStringList> rows) const {
    vp.AddTable({.widths = columns_.widths, .titles = titles, .rows = std::move(rows)}, Plain);
    vp.AddSpace(RowGap);
}

// A table and no paragraph, because only a table becomes narrower and wider with the columns above it.
void ReportColumns::AddDetails(VSPrinter& vp, const QStringList& lines) const {
    const auto begin = columns_.widths.begin() + detailColumn_;
    const int before = std::accumulate(columns_.widths.begin(), begin, 0);
    const int rest = std::accumulate(begin, columns_.widths.end(), 0);
    vp.AddTable({.widths = {before, rest}, .rows = {{QString(), lines.join(u'\n')}}}, Plain);
    vp.AddSpace(RowGap);
}

void AppendDetail(QStringList& lines, const QString& label, const QString& value) {
    if (!value.trimmed().isEmpty())
        lines << label + QStringLiteral(": ") + ManyLines(value.trimmed());
}

bool ReportWhole(const std::function<bool()>& make) {
    try {
        return make();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error generating report. "), error);
        return false;
    }
}
