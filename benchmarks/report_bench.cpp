#include <functional>
#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QPainter>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "output/frmschrpt.h"
#include "output/schedulereport.h"
#include "platform/database/sql.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "session/session.h"

using db::Raw;
using db::Sql;

namespace {

struct ReportBench {
    const char* name;
    QDate from, to;
    const char* provider = "";
    int providers = 0;  ///< They share the practice's appointments of the month; 0 leaves them to their own.
};

std::vector<ReportBench> reports() {
    const QDate today = QDate::currentDate();
    const QDate month(today.year(), today.month(), 1);
    const QDate end(today.year(), today.month(), today.daysInMonth());
    return {{"Report, month of 14 providers", month, end, "", 14},
            {"Report, month of 100 providers", month, end, "", 100},
            {"Report, year of one provider", today.addDays(-364), today, "REED"}};
}

ReportRequest requestOf(const ReportBench& bench) {
    return {.from = bench.from,
            .to = bench.to,
            .provider = QString::fromLatin1(bench.provider),
            .providerName = QStringLiteral("Providers"),
            .sort = *bench.provider == '\0' ? ReportSort::ByProvider : ReportSort::ByTime};
}

VSPrinter reportOf(const ReportBench& bench, const ReportStep& step) {
    VSPrinter paper;
    const ReportRequest request = requestOf(bench);
    const bool isWhole =
        request.provider.isEmpty() ? DoSchedule2(request, paper, step) : doschedule(request, paper, step);
    if (!isWhole)
        qFatal("The report is not whole.");
    return paper;
}

QString statementOf(const ReportBench& bench) {
    const Raw provider{*bench.provider == '\0' ? QString() : Sql(" AND ClinicianId = '{}'", bench.provider)};
    return Sql(
        "Select * from appointments where DApptDate >= '{}' AND DApptDate <= '{}'{} Order by clinicianid, DApptDate, NStartTime, nendtime",
        bench.from, bench.to, provider);
}

/// What Qt alone needs for the same text: each cell is broken into lines once.
void drawBare(const std::vector<std::pair<QString, QFont>>& texts, QPainter& painter) {
    constexpr double Room = 160;  // Dots, about a column.
    QRectF place(20, 20, Room, 1e6);
    for (const auto& [text, font] : texts) {
        painter.setFont(font);
        painter.drawText(place, Qt::TextWordWrap, text);
    }
}

std::vector<std::pair<QString, QFont>> textsOf(const printing::Document& document) {
    std::vector<std::pair<QString, QFont>> texts;
    for (const printing::Block& block : document.blocks) {
        if (const auto* paragraph = std::get_if<printing::Paragraph>(&block))
            texts.emplace_back(paragraph->text, paragraph->font);
        if (const auto* table = std::get_if<printing::Table>(&block))
            for (const QStringList& row : table->rows)
                for (const QString& cell : row)
                    if (!cell.isEmpty())
                        texts.emplace_back(cell, table->font);
    }
    return texts;
}

/// The session of the practice, in which the month's appointments belong to that many providers while it lives.
class SharedMonth {
  public:
    SharedMonth(const Practice& practice, const ReportBench& bench) : adds_(bench.providers > 0) {
        practice.openSession();
        Session().AllProviders = true;
        if (!adds_)
            return;
        db::Connection& connection = Session().Connection;
        connection.BeginTrans();
        for (int i = 0; i < bench.providers; ++i)
            connection.Execute(
                Sql("Insert Into provider_info (id, prov_lastname, archive) Values('B{}', 'Provider {}', 0)", i, i));
        connection.Execute(Sql(
            "Update appointments Set clinicianid = 'B' + Convert(varchar(9), nkeyid % {}) Where dapptdate >= '{}' and dapptdate <= '{}'",
            bench.providers, bench.from, bench.to));
    }
    ~SharedMonth() {
        if (adds_)
            Session().Connection.RollbackTrans();
    }
    SharedMonth(const SharedMonth&) = delete;
    SharedMonth& operator=(const SharedMonth&) = delete;

  private:
    bool adds_;
};

// The statements of the report with the patients, and its text on one sheet.
void bareReport(benchmark::State& state, const Practice& practice, const ReportBench& bench) {
    std::vector<std::pair<QString, QFont>> texts;
    {
        const SharedMonth month(practice, bench);
        texts = textsOf(reportOf(bench, [](int, int) { return true; }).Document());
    }
    BareDatabase bare(practice.databaseFile().toStdString());
    QImage sheet(816, 1056, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        bare.read(statementOf(bench).toStdString());
        bare.read(
            Sql("Select id, telephone_h, telephone_b, Other_Phone, EmailAddress from patient_info Where id In (Select patientid from appointments where DApptDate >= '{}' AND DApptDate <= '{}')",
                bench.from, bench.to)
                .toStdString());
        QPainter painter(&sheet);
        drawBare(texts, painter);
    }
}

// From the click to the whole report in the form, which lives meanwhile.
void ourReport(benchmark::State& state, const Practice& practice, const ReportBench& bench) {
    const SharedMonth month(practice, bench);
    for (auto _ : state) {
        frmschrpt form({.from = bench.from, .to = bench.to, .provider = QString::fromLatin1(bench.provider)});
        form.cbosort->setCurrentIndex(static_cast<int>(requestOf(bench).sort));
        form.show();
        QApplication::processEvents();
        while (form.IsGenerating())
            QApplication::processEvents();
        benchmark::DoNotOptimize(form.vp->PageCount());
    }
}

}  // namespace

void RegisterReportBenches() {
    for (const ReportBench& bench : reports()) {
        for (const Practice& practice : Practices()) {
            const std::string name = std::string(bench.name) + "/" + practice.size.toStdString();
            benchmark::RegisterBenchmark((name + "/bare").c_str(), bareReport, practice, bench)
                ->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark((name + "/ours").c_str(), ourReport, practice, bench)
                ->Unit(benchmark::kMillisecond);
        }
    }
}
