#include <QComboBox>
#include <QPushButton>

#include "output/frmschrpt.h"
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

void frmschrpt::addProviders(const QString& statement, db::Connection& connection) {
    for (Recordset row(statement, connection); !row.Eof(); row.MoveNext()) {
        List1 << row[0].text();
        cboprovider->addItem(OneLine(row[1].text()));
    }
}

void frmschrpt::LoadProviders() {
    const bool all = Session().AllProviders;
    try {
        if (all) {
            List1 << QString();
            cboprovider->addItem(QStringLiteral("All Providers"));
        }
        addProviders(all ? Sql("Select id, prov_lastname from provider_info Where archive = 0 Order by prov_lastname")
                         : Sql("Select id, prov_lastname from provider_info Where id = '{}'", Session().UID),
                     Session().Connection);
        const Recordset header(Sql("Select * from report_headers Where [default] = 1"), Session().Connection);
        if (!header.Eof())
            header_ = header["header"].text();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading list of providers. "), error);
    }
}

// Without the companion there is no list; the report itself tells why.
void frmschrpt::LoadFHProviders() {
    const bool all = Session().AllProviders;
    if (all) {
        List1 << QString();
        cboprovider->addItem(QStringLiteral("All Providers"));
    }
    try {
        db::Connection companion;
        companion.Open(Session().FHConnectionString);
        addProviders(
            all ? Sql("Select ProvID, ProvLastName + ', ' + ProvFirstName from providers Order by ProvLastName, ProvFirstName")
                : Sql("Select ProvID, ProvLastName + ', ' + ProvFirstName from providers where ProvID = {}",
                      Session().FHProviderId),
            companion);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading list of providers. "), error);
    }
}
