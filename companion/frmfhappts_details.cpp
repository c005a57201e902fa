#include <cmath>
#include <QLabel>
#include <QLocale>

#include "companion/companionitem.h"
#include "companion/frmfhappts.h"
#include "data/companioncodes.h"
#include "data/courtesycalls.h"
#include "platform/calendar/ctmday.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/waiting.h"
#include "platform/desktop/desktop.h"
#include "session/afterroutine.h"
#include "session/session.h"
#include "shell/detailspane.h"

using About = DetailsPane::About;
using db::ReadTogether;
using db::Recordset;
using db::Sql;

namespace {

QString clientStatement(int CtrnId) {
    return Sql(
        "select clients.*, ClientTransactions.CtrnNotes, ClientTransactions.CtrnCallStatus, ClientTransactions.appt_status from clients  inner join clienttransactions on clientTransactions.clntid = clients.clntID  where ctrnID = {}",
        CtrnId);
}

QString serviceStatement(int CtrnId) {
    return Sql(
        "select TranName, TranDescription from TransactionCodes inner Join clienttransactions On clienttransactions.tranid = TransactionCodes.TranID Where ctrnid = {}",
        CtrnId);
}

QString insuranceStatement(int ClntId) {
    return Sql(
        "select insco.insrname , cpol.cpoltype from InsuranceCompanies insco  inner join clientInsurancePolicies cpol on insco.insrid = cpol.insrid  where clntid = {} and cpolactiveind = 1  order by cpol.cpoltype ",
        ClntId);
}

QString ownShareStatement(int ClntId) {
    return Sql("SELECT * from ClientChargeDistributions Where CDisType = 0 AND ClntID = {}", ClntId);
}

QString partySharesStatement(int ClntId) {
    return Sql(
        " SELECT * from ClientChargeDistributions  Left Join ClientParties on ClientChargeDistributions.PartId=ClientParties.PartId Where ClientParties.clntid = {}",
        ClntId);
}

QString attendeesStatement(int CEveId) {
    return Sql(
        "SELECT Providers.ProvLastName + ', ' + Providers.ProvFirstName AS [Provider], CalendarEvents.CEveAllProvidersInd, CalendarEvents.RecrId FROM (CalendarEvents INNER JOIN CalendarProviderEvents ON CalendarEvents.CEveId = CalendarProviderEvents.CEveId) INNER JOIN Providers ON CalendarProviderEvents.ProvId = Providers.ProvId WHERE CalendarEvents.CEveId = {};",
        CEveId);
}

/// Returns the parts that are not empty, with a blank between each two.
QString joined(const Recordset& row, std::initializer_list<const char*> columns) {
    QStringList parts;
    for (const char* column : columns)
        if (const QString part = row[column].text(); !part.isEmpty())
            parts << part;
    return parts.join(QLatin1Char(' '));
}

QString phone(const QString& number, const QString& extension) {
    return extension.isEmpty() ? number : number + QStringLiteral(" x:") + extension;
}

/// Returns "$1234.50" with so many decimals, and with commas between the thousands if they are wanted.
QString money(double amount, int decimals, bool thousands = false) {
    QLocale locale = QLocale::c();
    locale.setNumberOptions(thousands ? QLocale::DefaultNumberOptions : QLocale::OmitGroupSeparator);
    const double unit = std::pow(10.0, decimals);
    const double rounded = std::round(amount * unit) / unit;
    const QString text = QLatin1Char('$') + locale.toString(std::abs(rounded), 'f', decimals);
    return rounded < 0 ? QLatin1Char('-') + text : text;
}

double dueOf(const Recordset& share, double charge) {
    if (const double percent = share["cdispercentdue"].real(); percent > 0)
        return charge * (percent / 100);
    return share["cdisfixedamount"].real();
}

// An item may be selected while the mouse button is down, and no box may open then.
void tellLater(const QString& text, const db::DatabaseError& error) {
    AfterRoutine(
        [told = text + error.description] { MsgBox(told, ErrorBox, QStringLiteral("Error Getting Information")); });
}

}  // namespace

QStringList frmFHAppts::detailStatements(const CalendarItem& item) {
    const int key = item.ItemKey.toInt();
    if (item.ItemColor == companioncolor::Event)
        return {attendeesStatement(key)};
    return {clientStatement(key), serviceStatement(key)};
}

void frmFHAppts::showDetails(int index) {
    details_->Clear();
    lblCPT->clear();
    if (index < 1) {
        details_->AddRow(QStringLiteral("Appointment"), QStringLiteral("No Appointment Selected"));
        return;
    }
    const CalendarItem item = std::as_const(Grid()).Item(index);
    const int key = item.ItemKey.toInt();
    if (key <= 0)
        return;
    if (item.ItemColor == companioncolor::Event) {
        SetEventDetails(key, item.ItemText);
    } else {
        lblCPT->setText(services_.value(item.ItemKey));
        setclientdetails(key);
    }
}

void frmFHAppts::setclientdetails(int CtrnId) {
    try {
        const std::shared_ptr<db::Connection> companion = Companion();
        const ReadTogether together(*companion, {clientStatement(CtrnId), serviceStatement(CtrnId)});
        const Recordset client(clientStatement(CtrnId), *companion);
        if (client.Eof())
            return;
        const int ClntId = static_cast<int>(client["ClntId"].integer());
        const ReadTogether ofClient(
            *companion, {insuranceStatement(ClntId), ownShareStatement(ClntId), partySharesStatement(ClntId)});
        addContacts(client);
        if (!client["clntusualfee"].isNull())
            LoadCoPayDetails(*companion, ClntId, client["clntusualfee"].real(), client["clntfeeadjustment"].real());
        if (!Session().FHLedgerHidden && !client["clntcurrentbalance"].isNull())
            details_->AddRow(QStringLiteral("Balance"), money(client["clntcurrentbalance"].real(), 0, true));
        details_->ShowNote(QStringLiteral("Note: "), client["CtrnNotes"].text(), About::Patient);
        if (const QString call = client["CtrnCallStatus"].text(); !call.isEmpty())
            details_->AddRow(QStringLiteral("Courtesy Call Status"), GetCallStatusText(Session().Connection, call));
        addInsurances(*companion, ClntId);
        if (const Recordset service(serviceStatement(CtrnId), *companion); !service.Eof())
            details_->AddRow(QStringLiteral("Service"),
                             service["TranName"].text() + QLatin1Char(' ') + service["TranDescription"].text());
        if (const QString status = ApptStatusText(static_cast<int>(client["appt_status"].integer())); !status.isEmpty())
            details_->AddRow(QStringLiteral("Appointment Status"), status);
    } catch (const db::DatabaseError& error) {
        tellLater(QStringLiteral("An error occurred getting Client Info. - "), error);
    }
}

void frmFHAppts::addContacts(const Recordset& client) {
    const auto add = [this](const char* caption, const QString& value) {
        details_->AddRow(QString::fromLatin1(caption), value, About::Patient);
    };
    add("Name", joined(client, {"clntmr", "ClntFirstName", "clntmiddleinitial", "clntlastname", "clntsuffix"}));
    add("Address", client["clntaddressone"].text());
    if (const QString second = client["clntaddresstwo"].text(); !second.isEmpty())
        add("", second);
    add("", QStringLiteral("%1, %2  %3")
                .arg(client["clntcity"].text(), client["clntstate"].text(), client["clntzipcode"].text()));
    add("Home Phone", phone(client["clntHomePhone"].text(), client["clnthomeext"].text()));
    add("Work Phone", phone(client["clntworkphone"].text(), client["clntworkext"].text()));
    add("E-Mail", client["clntemailaddress"].text());
}

void frmFHAppts::addInsurances(db::Connection& companion, int ClntId) {
    for (Recordset rows(insuranceStatement(ClntId), companion); !rows.Eof(); rows.MoveNext()) {
        const bool primary = rows["cpoltype"].text() == QLatin1String("P");
        details_->AddRow(primary ? QStringLiteral("Insurance (P)") : QStringLiteral("Insurance (S)"),
                         rows["insrname"].text());
    }
}

void frmFHAppts::LoadCoPayDetails(db::Connection& companion, int ClntId, double fee, double adjustment) {
    const QString caption = QStringLiteral("Co-Pay");
    const double charge = fee - adjustment;
    double total = 0;
    try {
        if (const Recordset own(ownShareStatement(ClntId), companion); !own.Eof()) {
            const double due = dueOf(own, charge);
            details_->AddRow(caption, QStringLiteral("Client: ") + money(due, 2));
            total += due;
        }
        for (Recordset rows(partySharesStatement(ClntId), companion); !rows.Eof(); rows.MoveNext()) {
            const double due = dueOf(rows, charge);
            const QString party =
                joined(rows, {"PartMr", "PartFirstName", "PartMiddleInitial", "PartLastName", "PartSuffix"});
            details_->AddRow(caption, QStringLiteral("%1: %2").arg(party, money(due, 2)), About::Patient);
            total += due;
        }
        details_->AddRow(QStringLiteral("Co-Pay Total"), money(total, 0));
    } catch (const db::DatabaseError& error) {
        if (db::IsUnanswered(error))  // The caller's box tells it.
            throw;
        tellLater(QStringLiteral("An error occurred getting CoPay Details. - "), error);
    }
}

void frmFHAppts::SetEventDetails(int CEveId, const QString& text) {
    details_->AddRow(QStringLiteral("Event"), text);
    try {
        const std::shared_ptr<db::Connection> companion = Companion();
        Recordset rows(attendeesStatement(CEveId), *companion);
        if (rows.Eof())
            return;
        const bool allDay = allDayEvents_.contains(QString::number(CEveId));
        details_->AddRow(QStringLiteral("All Day?"), allDay ? QStringLiteral("Yes") : QStringLiteral("No"));
        QString caption = QStringLiteral("Providers");
        if (rows["CEveAllProvidersInd"].integer() == 1) {
            details_->AddRow(caption, QStringLiteral("All Providers"));
            return;
        }
        for (; !rows.Eof(); rows.MoveNext()) {
            details_->AddRow(caption, rows["Provider"].text());
            caption.clear();
        }
    } catch (const db::DatabaseError& error) {
        tellLater(QStringLiteral("An error Occurred getting event info. - "), error);
    }
}
