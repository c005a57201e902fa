#include <QApplication>

#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "benchmarks/ratioreporter.h"

// svs_bench SIZE=FOLDER ... [--benchmark_filter=...]: each folder holds a demo practice of that size.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the off-screen platform cannot do is no part of the table.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        const QStringList pair = QString::fromLocal8Bit(argv[i]).split(QLatin1Char('='));
        if (pair.size() == 2)
            Practices().push_back({pair[0], pair[1]});
    }
    RegisterViewBenches();
    RegisterCompanionBenches();
    RegisterBookingBenches();
    RegisterLookUpBenches();
    RegisterRecurrenceBenches();
    RegisterStartUpBenches();
    RegisterScrollBenches();
    RegisterSearchBenches();
    RegisterNoteBenches();
    RegisterReportBenches();
    RegisterBoardBenches();
    RegisterWaitBenches();
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (!Practices().empty())
        PrintTrips(Practices().front());
    return 0;
}
