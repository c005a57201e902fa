#pragma once

#include <functional>
#include <QString>
#include <QStringList>

#include "platform/printing/printdocument.h"

class VSPrinter;

/// The columns of a schedule report. All its tables have the same widths, so that they stand under each other on every
/// paper.
class ReportColumns {
  public:
    /// `format` and `header` are those of ParseTable. What stands under a row begins at the column `detailColumn`,
    /// which counts from 0.
    ReportColumns(const QString& format, const QString& header, int detailColumn);

    /// Adds the titles of the columns. They also stand on top of each further page.
    void AddTitles(VSPrinter& vp) const;
    /// Each of these adds its lines and the empty height behind them. AddRow adds a row.
    void AddRow(VSPrinter& vp, const QStringList& cells) const;
    /// Adds titles and rows of their own in the same columns, under a row.
    void AddTable(VSPrinter& vp, const QStringList& titles, std::vector<QStringList> rows) const;
    /// Adds lines of text under a row.
    void AddDetails(VSPrinter& vp, const QStringList& lines) const;

  private:
    printing::TableContent columns_;
    int detailColumn_;
};

/// Appends "label: value", unless the value is empty. Line breaks in the value stay.
void AppendDetail(QStringList& lines, const QString& label, const QString& value);

/// Runs the part of a report that reads the database, and returns its answer. When the database fails, the user is told
/// "Error generating report. " with the error's description, and the answer is false.
[[nodiscard]] bool ReportWhole(const std::function<bool()>& make);
