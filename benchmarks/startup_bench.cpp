#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include "benchmarks/benches.h"
#include "benchmarks/practice.h"

namespace {

// Whole processes, from start to end: an empty window that is painted once, and the program with its first view.
void runProcess(benchmark::State& state, const QString& program, const QStringList& arguments) {
    for (auto _ : state) {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(60'000) || process.exitCode() != 0) {
            state.SkipWithError(process.readAllStandardError().constData());
            return;
        }
    }
}

QString beside(const char* relative) {
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(relative);
}

}  // namespace

void RegisterStartUpBenches() {
    static const QTemporaryDir pictures;
    const QString picture = pictures.filePath(QStringLiteral("first.png"));
    for (const Practice& practice : Practices()) {
        const std::string name = "Process start to first painted view/" + practice.size.toStdString();
        benchmark::RegisterBenchmark((name + "/bare").c_str(), runProcess, beside("emptywindow"), QStringList{picture})
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(3);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), runProcess, beside("../app/svscheduler"),
                                     QStringList{QStringLiteral("--data"), practice.folder,
                                                 QStringLiteral("--screenshot"), picture, QStringLiteral("1|REED")})
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime()
            ->Iterations(3);
    }
}
