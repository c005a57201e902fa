#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QSpinBox>

#include "benchmarks/baredatabase.h"
#include "benchmarks/benches.h"
#include "benchmarks/practice.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "search/frmfinda.h"
#include "search/frmfirstatype.h"
#include "search/frmnextfree.h"
#include "search/frmsavail.h"
#include "session/session.h"
#include "shell/providerpanel.h"

using db::Sql;
using db::SqlDate;

namespace {

/// The last name of a patient of REED.
QString aName() {
    const db::Recordset row(
        QStringLiteral(
            "Select cappttext from appointments Where clinicianid = 'REED' and patientid <> '' Order by nkeyid"),
        Session().Connection);
    return row[0].text().section(u',', 0, 0);
}

/// In every fourth text.
QString aPartOfMany() {
    return QStringLiteral("an");
}

template <QString (*Text)()>
void bareFind(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    BareDatabase bare(practice.databaseFile().toStdString());
    const std::string statement =
        Sql("Select * from appointments Where CapptText Like '%{}%' AND ClinicianId = 'REED' Order by dapptdate",
            Text())
            .toStdString();
    for (auto _ : state)
        bare.read(statement);
}

template <QString (*Text)()>
void bareFindAll(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    BareDatabase bare(practice.databaseFile().toStdString());
    const QString text = Text();
    const std::string statements[] = {
        Sql("Select nkeyid, dapptdate, nstarttime, nendtime, cappttext, clocation, ncolor, clinicianid, patientid from appointments Where CapptText Like '%{}%' Or nkeyid In (Select nKeyId from AppointmentsGroup Where PatientName Like '%{}%')",
            text, text)
            .toStdString(),
        Sql("Select nKeyId, PatientName from AppointmentsGroup Where PatientName Like '%{}%' Order by PatientName",
            text)
            .toStdString(),
        "Select id, prov_lastname from provider_info"};
    for (auto _ : state)
        for (const std::string& statement : statements)
            bare.read(statement);
}

template <QString (*Text)()>
void ourFindAll(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    Session().AllProviders = true;
    frmfinda form;
    form.ckall->setChecked(true);
    form.show();
    form.txtfind->setText(Text());
    QApplication::processEvents();
    for (auto _ : state) {
        form.cmdfind->click();
        benchmark::DoNotOptimize(form.grab());
    }
    if (form.ctList1->RowCount() == 0)
        state.SkipWithError("nothing was found");
}

template <QString (*Text)()>
void ourFind(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    frmfinda form;
    form.show();
    form.txtfind->setText(Text());
    QApplication::processEvents();
    for (auto _ : state) {
        form.cmdfind->click();
        benchmark::DoNotOptimize(form.grab());
    }
    if (form.ctList1->RowCount() == 0)
        state.SkipWithError("nothing was found");
}

void bareOpenings(benchmark::State& state, const Practice& practice) {
    BareDatabase bare(practice.databaseFile().toStdString());
    const std::string busy =
        Sql("Select ClinicianId from appointments Where dapptdate = '{}' AND ((601 BETWEEN nstarttime AND nendtime) OR (659 BETWEEN nstarttime AND nendtime) OR (nstarttime BETWEEN 601 AND 659))",
            SqlDate(QDate::currentDate()))
            .toStdString();
    for (auto _ : state) {
        bare.read(busy);
        bare.read("Select id, prov_lastname, archive from provider_info Order by prov_lastname");
    }
}

void ourOpenings(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    frmsavail form;
    form.show();
    form.ctdate->setDate(QDate::currentDate());
    form.ctstart->setTime(600);
    form.ctend->setTime(660);
    QApplication::processEvents();
    for (auto _ : state) {
        form.cmdsearch->click();
        benchmark::DoNotOptimize(form.grab());
    }
    if (form.List1->RowCount() == 0)
        state.SkipWithError("nobody was free");
}

constexpr int openingMinutes = 30;

/// The provider and the type with the most blocks of time from today on.
struct Blocks {
    QString provider;
    int color = 0;
};

Blocks mostBlocks() {
    const db::Recordset row(
        Sql("Select clinicianid, ncolor, Count(*) as n from appointments Where dapptdate >= '{}' and appttype = 4 Group by clinicianid, ncolor Order by n DESC",
            QDate::currentDate()),
        Session().Connection);
    return {row[0].text(), static_cast<int>(row[1].integer())};
}

/// The statements that the search by type runs, one after the other.
std::vector<std::string> typeStatements(const Blocks& wanted) {
    std::vector<std::string> statements{
        Sql("Select * from appointments Where dapptdate >= '{}' AND clinicianid = '{}' AND ncolor = {} Order by dapptdate",
            SqlDate(QDate::currentDate()), wanted.provider, wanted.color)
            .toStdString()};
    for (db::Recordset block(QString::fromStdString(statements[0]), Session().Connection); !block.Eof();
         block.MoveNext()) {
        const QDate date = block["dapptdate"].date();
        const int end = static_cast<int>(block["nendtime"].integer());
        for (int start = static_cast<int>(block["nstarttime"].integer()); start + 5 <= end; start += 5) {
            const QString parts[] = {
                Sql("Select * from appointments Where appttype <> 4 AND DApptDate = '{}' And Clinicianid = '{}' And {} Between nstarttime and (nendtime - .1)",
                    SqlDate(date), wanted.provider, start),
                Sql("Select * from appointments Where appttype <> 4 AND DApptDate = '{}' And Clinicianid = '{}' And {} Between (nstarttime + .1) and nendtime",
                    SqlDate(date), wanted.provider, start + openingMinutes),
                Sql("Select * from appointments Where appttype <> 4 AND DApptDate = '{}' And Clinicianid = '{}' And (nstarttime + .1) Between {} And {}",
                    SqlDate(date), wanted.provider, start, start + openingMinutes)};
            bool booked = false;
            for (const QString& part : parts) {
                statements.push_back(part.toStdString());
                booked = !db::Recordset(part, Session().Connection).Eof();
                if (booked)
                    break;
            }
            if (!booked || start + 5 + openingMinutes > end)
                break;
        }
    }
    return statements;
}

void bareType(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const std::vector<std::string> statements = typeStatements(mostBlocks());
    BareDatabase bare(practice.databaseFile().toStdString());
    for (auto _ : state)
        for (const std::string& statement : statements)
            bare.read(statement);
}

void ourType(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    const Blocks wanted = mostBlocks();
    Session().ProviderId = wanted.provider;
    frmfirstatype form;
    form.show();
    form.cboatypes->setCurrentIndex(form.cboatypes->findData(wanted.color));
    form.txtlength->setText(QString::number(openingMinutes));
    QApplication::processEvents();
    for (auto _ : state) {
        form.cmdsearch->click();
        benchmark::DoNotOptimize(form.grab());
    }
    if (form.ctList1->RowCount() == 0)
        state.SkipWithError("no opening was found");
}

constexpr int visitMinutes = 50;

/// The statements of one stretch of days for these providers, with what the search reads once.
std::vector<std::string> nextFreeStatements(const QString& ids, QDate until) {
    const QDate from = QDate::currentDate();
    QStringList quoted;
    for (const QString& id : ids.split(u'|', Qt::SkipEmptyParts))
        quoted << QStringLiteral("'%1'").arg(id);
    return {
        "Select * from Holidays", "Select providerid, workdayvalue, starttime, endtime From ProvSched",
        Sql("Select clinicianid, dapptdate, nstarttime, nendtime, ncolor from appointments Where dapptdate >= '{}' And dapptdate <= '{}' And clinicianid In ({}) And (appttype Is Null Or appttype <> 4)",
            from, until, db::Raw{quoted.join(u',')})
            .toStdString(),
        Sql("Select appointmentsevents.clinicianid, dapptdate, nstarttime, nendtime, cappttext from appointmentsevents Inner Join appointments On appointmentsevents.nkeyid = appointments.nkeyid Where dapptdate >= '{}' And dapptdate <= '{}' Order by dapptdate, nstarttime",
            from, until)
            .toStdString()};
}

QString idsOfAll() {
    QString ids;
    for (db::Recordset rows(ListedProvidersStatement(), Session().Connection); !rows.Eof(); rows.MoveNext())
        ids += rows["Id"].text() + u'|';
    return ids;
}

void bareNextFree(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    BareDatabase bare(practice.databaseFile().toStdString());
    const std::vector<std::string> statements =
        nextFreeStatements(idsOfAll(), QDate::currentDate().addDays(OpeningSearch::FirstStretch - 1));
    for (auto _ : state)
        for (const std::string& statement : statements)
            bare.read(statement);
}

/// From the change of a field to the list of the first hundred openings of all providers.
void ourNextFree(benchmark::State& state, const Practice& practice) {
    practice.openSession();
    Session().AllProviders = true;
    frmnextfree form({{Session().ProviderId, Session().ProviderName}, {}, true});
    form.show();
    form.txtlength->setValue(visitMinutes);
    QApplication::processEvents();
    for (auto _ : state) {
        form.ckholidays->toggle();
        QApplication::processEvents();
        benchmark::DoNotOptimize(form.grab());
    }
    if (form.ctList1->RowCount() == 0)
        state.SkipWithError("no opening was found");
}

}  // namespace

void RegisterSearchBenches() {
    struct Row {
        const char* name;
        void (*bare)(benchmark::State&, const Practice&);
        void (*ours)(benchmark::State&, const Practice&);
    };
    const Row rows[] = {{"Find, a name", bareFind<aName>, ourFind<aName>},
                        {"Find, a quarter of all", bareFind<aPartOfMany>, ourFind<aPartOfMany>},
                        {"Find in all schedules, a name", bareFindAll<aName>, ourFindAll<aName>},
                        {"Find in all schedules, a quarter", bareFindAll<aPartOfMany>, ourFindAll<aPartOfMany>},
                        {"Availability by opening", bareOpenings, ourOpenings},
                        {"Availability by type", bareType, ourType},
                        {"Next free hour", bareNextFree, ourNextFree}};
    for (const Row& row : rows) {
        for (const Practice& practice : Practices()) {
            const std::string name = std::string(row.name) + "/" + practice.size.toStdString();
            benchmark::RegisterBenchmark((name + "/bare").c_str(), row.bare, practice)->Unit(benchmark::kMillisecond);
            benchmark::RegisterBenchmark((name + "/ours").c_str(), row.ours, practice)->Unit(benchmark::kMillisecond);
        }
    }
}
