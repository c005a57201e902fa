#include <cstdio>
#include <memory>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>

#include "appointments/appointmentrows.h"
#include "appointments/frmactsc.h"
#include "appointments/frmgrptx.h"
#include "appointments/frmnore.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "data/codes.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "rooms/frmrooms.h"
#include "session/session.h"
#include "tests/shell/fakemainwindow.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

using db::Connection;

namespace {

void printTrips(const char* what, qint64 trips) {
    std::printf("%-56s %6lld\n", what, static_cast<long long>(trips));
}

/// A trip is a way to the server and back, which a branch office waits for.
template <typename Step>
void count(const char* what, const Step& step) {
    const qint64 before = Connection::Trips();
    step();
    printTrips(what, Connection::Trips() - before);
}

/// The whole program, which tells each of its trips when asked.
qint64 tripsOfStart(const Practice& practice, const QStringList& options) {
    const QTemporaryDir pictures;
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("svscheduler.trips.debug=true"));
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationDirPath() + QStringLiteral("/../app/svscheduler"),
                  QStringList{QStringLiteral("--data"), practice.folder, QStringLiteral("--screenshot"),
                              pictures.filePath(QStringLiteral("first.png"))} +
                      options + QStringList{QStringLiteral("1|REED")});
    program.waitForFinished(60'000);
    return program.readAllStandardError().count('\n');
}

/// A row of REED's from today on in that status.
struct Row {
    int key = 0;
    QDate date;
};
Row rowOf(int code) {
    const db::Recordset row(
        db::Sql(
            "Select nkeyid, dapptdate from appointments Where clinicianid = 'REED' and ncolor = {} and dapptdate >= '{}' Order by dapptdate",
            code, QDate::currentDate()),
        Session().Connection);
    return row.Eof() ? Row() : Row{static_cast<int>(row[0].integer()), row[1].date()};
}

void countViews() {
    FakeMainWindow main(QDate::currentDate());
    std::unique_ptr<frmsched> day;
    count("Day view", [&] { day = std::make_unique<frmsched>(main); });
    count("Day view, a step", [&] {
        main.SetDate(main.Date().addDays(1));
        day->Reload();
    });
    count("Week view", [&] { const frmweekv view(main); });
    count("Month view", [&] { const frmmtv view(main); });
    count("All providers", [&] { const frmall view(main); });
    count("Rooms", [&] { const frmrooms view(main); });
}

/// Moves the item to and fro, so that the practice stays as it was.
void drag(ctMDay& calendar, const QString& key, int minutes) {
    const int index = calendar.IndexOfKey(key);
    calendar.Item(index).ItemStart += minutes;
    calendar.Item(index).ItemEnd += minutes;
    Q_EMIT calendar.ItemChanged(index, {});
}

void countCommands() {
    const Row row = rowOf(ncolor::Pending);
    FakeMainWindow main(row.date);
    frmsched day(main);
    auto& calendar = *day.findChild<ctMDay*>();
    const QString key = QString::number(row.key);
    count("A selected appointment", [&] { calendar.setSelectedItem(calendar.IndexOfKey(key)); });
    drag(calendar, key, 5);
    count("A drag", [&] { drag(calendar, key, -5); });
    count("A status", [&] { day.findChild<QAction*>(QStringLiteral("mnuAKept"))->trigger(); });
    day.findChild<QAction*>(QStringLiteral("mnuAMissed"))->trigger();
    SetApptStatus(row.key, ncolor::Pending);
}

void openOn(int key, int kind) {
    Session().ApptKind = kind;
    Session().IsNewAppt = key == 0;
    Session().CurrentApptKey = key;
}

void countEditors() {
    openOn(0, apptkind::Patient);
    count("Editor, a new appointment", [] { const frmnore form; });
    frmnore form;
    count("Editor, a letter of a patient's name", [&] {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("b"));
        QApplication::sendEvent(form.txtpatients, &press);
    });
    const Row row = rowOf(ncolor::Pending);
    openOn(row.key, apptkind::Patient);
    std::unique_ptr<frmnore> editor;
    count("Editor, an appointment", [&] { editor = std::make_unique<frmnore>(); });
    count("Editor, a save", [&] { editor->saveappt(row.key, QStringLiteral("REED")); });
    openOn(rowOf(ncolor::Group).key, apptkind::Patient);
    count("Editor, a group", [] { const frmgrptx group; });
    Session().ActivityKey = 0;
    count("Editor, a new activity", [] { const frmactsc activity; });
}

}  // namespace

void PrintTrips(const Practice& practice) {
    std::printf("\n%-56s %6s\n", "trips to the server", practice.size.toUtf8().constData());
    printTrips("Start to the day", tripsOfStart(practice, {}));
    printTrips("Start to the week", tripsOfStart(practice, {QStringLiteral("--view"), QStringLiteral("week")}));
    practice.openSession();
    countViews();
    countCommands();
    countEditors();
}
