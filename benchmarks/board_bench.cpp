#include <QApplication>
#include <QFile>
#include <QPixmap>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "followup/boardvisits.h"
#include "followup/frmboard.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/shell/fakemainwindow.h"

using db::Sql;

namespace {

constexpr int manyProviders = 100;

/// The practice with its appointments shared among a hundred providers. It is made once and lies beside the practice.
/// The board reads on a session of its own, so that rows of an open transaction would not do.
class BenchBoard {
  public:
    explicit BenchBoard(const Practice& practice) : folder_(practice.folder) {
        if (QFile::exists(file()))
            return;
        const QString made = folder_ + QStringLiteral("/made-board.db");
        QFile::remove(made);
        QFile::copy(practice.databaseFile(), made);
        share(made);
        QFile::rename(made, file());
    }

    [[nodiscard]] QString file() const { return folder_ + QStringLiteral("/practice-of-100.db"); }
    void openSession(const Practice& practice) const {
        practice.openSession();
        Session().Connection.Close();
        Session().Connection.Open(
            QStringLiteral("Provider=SQLOLEDB;Data Source=%1;Initial Catalog=practice-of-100;User Id=SVMaster;")
                .arg(folder_));
        Session().AllProviders = true;
    }

  private:
    static void share(const QString& file) {
        BareDatabase bare(file.toStdString());
        for (int i = 0; i < manyProviders; ++i)
            bare.read(
                Sql("Insert Into provider_info (id, prov_lastname, archive) Values('B{}', 'Provider {}', 0)", i, i)
                    .toStdString());
        bare.read(
            Sql("Update appointments Set clinicianid = 'B' || (nkeyid % {}) Where clinicianid <> '~EVT'", manyProviders)
                .toStdString());
    }

    QString folder_;
};

void bareBoard(benchmark::State& state, const Practice& practice) {
    const BenchBoard board(practice);
    BareDatabase bare(board.file().toStdString());
    // The bare engine has another word for it.
    const QStringList statements = BoardStatements(QDate::currentDate(), {})
                                       .replaceInStrings(QStringLiteral("IsNull("), QStringLiteral("IfNull("));
    for (auto _ : state)
        for (const QString& statement : statements)
            bare.read(statement.toStdString());
}

// From the call that reads it to the painted window.
void ourBoard(benchmark::State& state, const Practice& practice) {
    BenchBoard(practice).openSession(practice);
    FakeMainWindow main(QDate::currentDate());
    frmboard board(main);
    board.resize(1280, 760);
    board.show();
    QPixmap screen(board.size());
    const auto read = [&board] {
        while (board.IsReading())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    read();
    for (auto _ : state) {
        board.Load();
        read();
        QApplication::processEvents();  // The lists lay out their cards.
        board.render(&screen);
    }
    if (board.Count(BoardPlace::UnwrittenNote) == 0)
        state.SkipWithError("the board is empty");
}

}  // namespace

void RegisterBoardBenches() {
    for (const Practice& practice : Practices()) {
        const std::string name = "Today's board, 100 providers/" + practice.size.toStdString();
        benchmark::RegisterBenchmark((name + "/bare").c_str(), bareBoard, practice)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((name + "/ours").c_str(), ourBoard, practice)->Unit(benchmark::kMillisecond);
    }
}
