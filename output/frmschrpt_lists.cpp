#include <algorithm>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "output/frmschrpt.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

// The companion's schedule and the cancellation report have an order of their own, and only the schedules can leave
// something out.
void frmschrpt::LoadSorts() {
    cbosort->addItems({QStringLiteral("By Appointment"), QStringLiteral("By Time")});
    if (Session().AllProviders)
        cbosort->addItem(QStringLiteral("By Provider"));
    const bool isSchedule = opening_.mode == ReportMode::Schedule;
    const bool hasSorts = isSchedule || opening_.mode == ReportMode::CourtesyCalls;
    cbosort->setCurrentIndex(static_cast<int>(ReportSort::ByTime));
    cbosort->setEnabled(hasSorts);
    cmdfilter->setEnabled(isSchedule || opening_.mode == ReportMode::Companion);
    if (!hasSorts)
        cbosort->setToolTip(tr("The order of this report is fixed."));
    if (!cmdfilter->isEnabled())
        cmdfilter->setToolTip(tr("This report has only patients' appointments."));
}

// What could not be read is told once: the first report, which would fail for the same reason, then waits for Refresh,
// which reads it again.
void frmschrpt::loadLists() {
    List1.clear();
    cboprovider->clear();
    if (Session().AllProviders)
        addAllProviders();
    try {
        if (opening_.mode == ReportMode::Companion)
            LoadFHProviders();
        else
            LoadProviders();
        listsRead_ = true;
    } catch (const db::DatabaseError& error) {
        begun_ = true;
        lblstatus->setText(tr("No report has been made."));
        TellError(QStringLiteral("Error loading list of providers. "), error);
    }
    const auto wanted = std::ranges::find_if(
        List1, [this](const QString& id) { return id.compare(opening_.provider, Qt::CaseInsensitive) == 0; });
    cboprovider->setCurrentIndex(wanted == List1.end() ? 0 : static_cast<int>(wanted - List1.begin()));
}

void frmschrpt::addProviders(const QString& statement, db::Connection& connection) {
    for (Recordset row(statement, connection); !row.Eof(); row.MoveNext()) {
        List1 << row[0].text();
        cboprovider->addItem(OneLine(row[1].text()));
    }
}

void frmschrpt::addAllProviders() {
    List1 << QString();
    cboprovider->addItem(QStringLiteral("All Providers"));
}

namespace {

QString headerStatement() {
    return QStringLiteral("Select * from report_headers Where [default] = 1");
}

}  // namespace

void frmschrpt::readHeader() {
    const Recordset header(headerStatement(), Session().Connection);
    if (!header.Eof())
        header_ = header["header"].text();
}

void frmschrpt::LoadProviders() {
    const QString providers =
        Session().AllProviders
            ? Sql("Select id, prov_lastname from provider_info Where archive = 0 Order by prov_lastname")
            : Sql("Select id, prov_lastname from provider_info Where id = '{}'", Session().UID);
    const db::ReadTogether together(Session().Connection, {providers, headerStatement()});
    addProviders(providers, Session().Connection);
    readHeader();
}

void frmschrpt::LoadFHProviders() {
    readHeader();
    db::Connection companion;
    companion.Open(Session().FHConnectionString);
    addProviders(
        Session().AllProviders
            ? Sql("Select ProvID, ProvLastName + ', ' + ProvFirstName from providers Order by ProvLastName, ProvFirstName")
            : Sql("Select ProvID, ProvLastName + ', ' + ProvFirstName from providers where ProvID = {}",
                  Session().FHProviderId),
        companion);
}
