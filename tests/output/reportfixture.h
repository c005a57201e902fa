#pragma once

#include "output/report.h"
#include "platform/printing/vsprinter.h"
#include "tests/output/exportfixture.h"

/// The practice of Reed and Lane with patients, and what a report on it holds.
class ReportFixture : public ExportFixture {
  protected:
    ReportFixture() {
        Session().AllProviders = true;
        addProvider("REED", "Reed", "Anna");
        addProvider("LANE", "Lane", "Tom");
        addPatient("10017", "Jones", "Mary", "5551234567");
        addPatient("10018", "Smith", "Bo", "");
    }

    void addProvider(const char* id, const char* surname, const char* firstName) {
        run(db::Sql(
            "Insert Into provider_info (id, prov_lastname, plast_name, pfirst_name) Values ('{}', '{}', '{}', '{}')",
            id, surname, surname, firstName));
    }
    void addPatient(const char* id, const QString& surname, const char* firstName, const QString& phone) {
        run(db::Sql("Insert Into patient_info (id, last_name, first_name, telephone_h) Values ('{}', '{}', '{}', '{}')",
                    id, surname, firstName, phone));
    }
    [[nodiscard]] ReportRequest march(const char* provider = "", ReportSort sort = ReportSort::ByTime) const {
        const QString id = QString::fromUtf8(provider);
        return {.from = QDate(2026, 3, 1),
                .to = QDate(2026, 3, 31),
                .provider = id,
                .providerName = id == QStringLiteral("LANE") ? QStringLiteral("Lane") : QStringLiteral("Reed"),
                .sort = sort};
    }
    /// The paragraphs by their texts and the tables' rows by their cells in bars, titles in brackets; a paragraph in
    /// bold letters stands between stars, and one that is set in has blanks before it, one a quarter of an inch.
    [[nodiscard]] static QStringList linesOf(const VSPrinter& vp) {
        QStringList lines;
        for (const printing::Block& block : vp.Document().blocks) {
            if (const auto* paragraph = std::get_if<printing::Paragraph>(&block))
                lines << QString(paragraph->indent / 360, u' ') +
                             (paragraph->font.bold() ? u'*' + paragraph->text + u'*' : paragraph->text);
            if (const auto* table = std::get_if<printing::Table>(&block))
                lines << linesOf(*table);
        }
        return lines;
    }

    VSPrinter vp;
    const ReportStep everyStep = [](int, int) { return true; };

  private:
    [[nodiscard]] static QStringList linesOf(const printing::Table& table) {
        QStringList lines;
        if (!table.titles.isEmpty())
            lines << u'[' + table.titles.join(u'|') + u']';
        for (const QStringList& row : table.rows)
            lines << row.join(u'|');
        return lines;
    }
};
