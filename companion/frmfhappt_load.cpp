#include <QLabel>
#include <QPushButton>

#include "companion/companionappointment.h"
#include "companion/companionrefusals.h"
#include "companion/frmfhappt.h"
#include "companion/keyedcombo.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

/// Adds the rows of a statement, each a key and a name.
void fill(KeyedCombo& box, const QString& statement, db::Connection& companion) {
    for (Recordset rows(statement, companion); !rows.Eof(); rows.MoveNext())
        box.AddRow(rows[1].text(), static_cast<int>(rows[0].integer()));
    box.setCurrentIndex(-1);
}

/// Returns 0 when the client has no standard charge.
int GetClientStandardCharge(db::Connection& companion, int ClntId) {
    try {
        const Recordset charge(Sql("Select TranIDQuickCharge from Clients Where ClntID = {}", ClntId), companion);
        return charge.Eof() ? 0 : static_cast<int>(charge[0].integer());
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error retreiving client's standard charge in Fernhall. "), error);
        return 0;
    }
}

/// Returns the provider's name, the last name first.
QString GetFHProvider(db::Connection& companion, int ProvId) {
    try {
        const Recordset provider(
            Sql("Select ProvLastName + ', ' + ProvFirstName from Providers Where ProvId = {}", ProvId), companion);
        return provider.Eof() ? QString() : provider[0].text();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error retreiving provider in Fernhall. "), error);
        return {};
    }
}

}  // namespace

// All of it on one connection, so that a companion that cannot be reached is waited for and told once.
void frmFHAppt::load() {
    const BusyPointer busy;
    const bool isNew = request_.CtrnKey == 0;
    if (isNew)
        showNew();
    else
        cmdOk->setEnabled(false);
    db::Connection companion;
    try {
        companion.Open(Session().FHConnectionString);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading Fernhall providers. "), error);
        return;
    }
    LoadProviders(companion);
    LoadTransactions(companion);
    if (!isNew)
        return LoadAppt(companion, request_.CtrnKey);
    showProvider(companion, request_.ProvId);
    showStandardCharge(companion);
}

void frmFHAppt::LoadProviders(db::Connection& companion) {
    try {
        if (Session().AllProviders)
            fill(
                *cboProviders,
                QStringLiteral(
                    "Select ProvId, ProvLastName + ', ' + ProvFirstName from Providers Order by ProvLastName, ProvFirstName"),
                companion);
        else
            fill(*cboProviders,
                 Sql("Select ProvId, ProvLastName + ', ' + ProvFirstName from Providers Where provid = {}",
                     Session().FHProviderId),
                 companion);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading Fernhall providers. "), error);
    }
}

void frmFHAppt::LoadTransactions(db::Connection& companion) {
    try {
        fill(*cboChargetype,
             QStringLiteral("SELECT TranId, TranName + ' ' + TranDescription FROM TransactionCodes order by TranName"),
             companion);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading Fernhall charge types. "), error);
    }
}

// A row that could not be read must not be written, because the empty fields would replace what it holds.
void frmFHAppt::LoadAppt(db::Connection& companion, int CtrnId) {
    try {
        const Recordset row(
            Sql("Select ClientTransactions.*, Clients.ClntLastName + ', ' + Clients.ClntFirstName AS [Client] from ClientTransactions Inner Join Clients ON ClientTransactions.ClntID = Clients.ClntId Where CtrnID = {}",
                CtrnId),
            companion);
        if (row.Eof())
            return setStatusText(tr("This appointment is no longer in Fernhall."));
        showAppointment(companion, row);
        const QString refusal = RefusalOf(row, NotModified);
        if (!refusal.isEmpty())
            return setStatusText(refusal);
        cmdOk->setEnabled(true);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading client appointment from Fernhall. "), error);
    }
}

void frmFHAppt::showAppointment(db::Connection& companion, const Recordset& row) {
    const CompanionAppointment appointment = AppointmentOf(row);
    txtdate->setDate(appointment.date);
    txtstarttime->setTime(appointment.start.value_or(-1));
    txtduration->setValue(appointment.duration);
    origDate_ = appointment.date;
    origTranId_ = appointment.TranId;
    origProvId_ = static_cast<int>(row["provid"].integer());
    showProvider(companion, origProvId_);
    cboChargetype->SelectKey(origTranId_);
    txtmemo->setPlainText(appointment.memo);
    showClient(static_cast<int>(row["ClntID"].integer()), row["Client"].text());
    cbostatus->SetListIndex(cbostatus->FindItemData(appointment.status));
    if (request_.HasSVSessionCol && row.HasColumn(QStringLiteral("SVSessionID")))
        sessionId_ = static_cast<int>(row["SVSessionID"].integer());
    loaded_ = appointment;
    shown_ = entered();
}

void frmFHAppt::showNew() {
    showClient(request_.ClientId, request_.ClientName);
    txtdate->setDate(request_.date);
    txtstarttime->setTime(request_.start);
    txtduration->setValue(request_.duration);
}

void frmFHAppt::showClient(int ClientId, const QString& ClientName) {
    clientId_ = ClientId;
    FollowHiddenNames(
        this, [this, ClientName](bool) { lblClient->setText(tr("Client: %1").arg(OneLine(ShownName(ClientName)))); });
}

void frmFHAppt::showProvider(db::Connection& companion, int ProvId) {
    if (ProvId == 0 || cboProviders->SelectKey(ProvId))
        return;
    cboProviders->AddRow(GetFHProvider(companion, ProvId), ProvId);
    cboProviders->SelectKey(ProvId);
}

void frmFHAppt::showStandardCharge(db::Connection& companion) {
    const int charge = GetClientStandardCharge(companion, clientId_);
    if (charge == 0 || !cboChargetype->SelectKey(charge))
        setStatusText(QStringLiteral("Client does not have a standard charge setup in Fernhall"));
}

void frmFHAppt::setStatusText(const QString& text) {
    lblstatus->setText(text);
    setAccessibleDescription(text);  // Read out when the form opens.
    lblstatus->show();
}
