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

// What could not be read is told once: the first report, which would fail for the same reason, then waits for Refresh.
void frmschrpt::readLists(const std::function<void()>& read) {
    try {
        read();
    } catch (const db::DatabaseError& error) {
        begun_ = true;
        lblstatus->setText(tr("No report has been made."));
        TellError(QStringLiteral("Error loading list of providers. "), error);
    }
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

void frmschrpt::LoadProviders() {
    if (Session().AllProviders)
        addAllProviders();
    readLists([this] {
        const QString providers =
            Session().AllProviders
                ? Sql("Select id, prov_lastname from provider_info Where archive = 0 Order by prov_lastname")
                : Sql("Select id, prov_lastname from provider_info Where id = '{}'", Session().UID);
        const QString headers = QStringLiteral("Select * from report_headers Where [default] = 1");
        const db::ReadTogether together(Session().Connection, {providers, headers});
        addProviders(providers, Session().Connection);
        const Recordset header(headers, Session().Connection);
        if (!header.Eof())
            header_ = header["header"].text();
    });
}

void frmschrpt::LoadFHProviders() {
    if (Session().AllProviders)
        addAllProviders();
    readLists([this] {
        db::Connection companion;
        companion.Open(Session().FHConnectionString);
        addProviders(
            Session().AllProviders
                ? Sql("Select ProvID, ProvLastName + ', ' + ProvFirstName from providers Order by ProvLastName, ProvFirstName")
                : Sql("Select ProvID, ProvLastName + ', ' + ProvFirstName from providers where ProvID = {}",
                      Session().FHProviderId),
            companion);
    });
}
