#include "output/companionreport.h"

#include <QLocale>

#include "data/companioncodes.h"
#include "data/phone.h"
#include "output/reportpage.h"
#include "output/reporttext.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/printing/vsprinter.h"
#include "platform/text/plaintext.h"
#include "session/hiddennames.h"
#include "session/session.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

constexpr int AppointmentColumn = 3;  // Counted from 0.
constexpr int StatusOfEvents = -1;

struct CompanionRow {
    QDateTime date, time;
    QString duration, appointment, provider;
    int status = 0;
    QString homePhone, workPhone, workExtension, numberName, number, email, service, note;
};

QString statementOf(const ReportRequest& request) {
    const auto only = [&request](const char* column) {
        return Raw{request.provider.isEmpty()
                       ? QString()
                       : Sql(" AND {} = {}", Raw{QString::fromLatin1(column)}, request.provider.toLongLong())};
    };
    return Sql(
        "SELECT CtrnDate as [ApptDate], ClntFirstName + ', ' + ClntLastName AS [Appointment], CtrnId, CtrnTime as [ApptTime], CtrnDuration as [Duration], Appt_status as [ApptStatus], TranName, ctrnNotes, ProvLastName + ', ' + ProvFirstName as [Provider],  ClntOtherNumberOne, LookName, ClntHomePhone , ClntWorkPhone, ClntWorkExt, ClntEmailAddress, TranDescription FROM ClientTransactions INNER JOIN TransactionCodes ON ClientTransactions.TranId = TransactionCodes.TranId INNER JOIN Clients On ClientTransactions.ClntId = Clients.ClntId INNER JOIN Providers On ClientTransactions.ProvId = Providers.ProvId  Left Join LookupValues on LookupValues.LookId = Clients.LookIdNUMBOne  Where LookupValues.LookCode = 'NUMB'  AND CtrnDate >= '{}' AND CtrnDate <= '{}' AND TranType + '' = 'C'  AND CtrnDuration > 0  AND CtrnTime > '12:00:00 AM'{} Union SELECT CalendarEvents.CEveDate as [ApptDate], CEveName AS [Appointment], CalendarEvents.CEveId, CEveTime as [ApptTime], CEveDuration as [Duration], -1 as [ApptStatus], '', '', ProvLastName + ', ' + ProvFirstName as [Provider], '', '', '', '', '', '', '' FROM CalendarEvents LEFT JOIN CalendarProviderEvents On CalendarEvents.CEveId = CalendarProviderEvents.CEveId Inner Join Providers on Providers.ProvId = CalendarProviderEvents.ProvId Where (CEveAllProvidersInd = 1 OR Providers.ProvId IS NULL) AND CEveDate >= '{}' and CEveDate <= '{}' AND (( CEveEndDate IS NULL AND calendarevents.recrid > 0) OR (CEveEndDate IS NULL AND (calendarevents.recrid <> 0) AND CEveDate>= '{}') OR CEveEndDate>= '{}'){} Order by [ApptDate], [ApptTime], [Appointment],[Provider]",
        request.from, request.to, only("ClientTransactions.ProvId"), request.from, request.to, request.from,
        request.from, only("Providers.ProvId"));
}

CompanionRow rowOf(const Recordset& row) {
    return {.date = row["ApptDate"].dateTime(),
            .time = row["ApptTime"].dateTime(),
            .duration = row["Duration"].text(),
            .appointment = row["Appointment"].text(),
            .provider = row["Provider"].text(),
            .status = static_cast<int>(row["ApptStatus"].integer()),
            .homePhone = row["ClntHomePhone"].text(),
            .workPhone = row["ClntWorkPhone"].text(),
            .workExtension = row["ClntWorkExt"].text(),
            .numberName = row["LookName"].text(),
            .number = row["ClntOtherNumberOne"].text(),
            .email = row["ClntEmailAddress"].text(),
            .service = row["TranName"].text() + u' ' + row["TranDescription"].text(),
            .note = row["ctrnNotes"].text()};
}

bool isEvent(const CompanionRow& row) {
    return row.status == StatusOfEvents;
}

// The statement compares with midnight of a day of its own, and so lets midnight of any later day through.
bool isMidnight(const CompanionRow& row) {
    return row.time.isValid() && row.time.time() == QTime(0, 0);
}

std::vector<CompanionRow> readRows(const ReportRequest& request) {
    db::Connection companion;
    companion.Open(Session().FHConnectionString);
    std::vector<CompanionRow> rows;
    for (Recordset read(statementOf(request), companion); !read.Eof(); read.MoveNext()) {
        CompanionRow row = rowOf(read);
        if (isEvent(row) ? !request.patientsOnly : !isMidnight(row))
            rows.push_back(std::move(row));
    }
    return rows;
}

// Without the right to all providers, the own schedule is that of the provider whom the companion is paired with; 0 has
// no rows.
ReportRequest withinRights(ReportRequest request) {
    if (!Session().AllProviders)
        request.provider = QString::number(Session().FHProviderId);
    return request;
}

bool isHidden(const CompanionRow& row) {
    return Session().HidePatientNames && !isEvent(row);
}

QStringList cellsOf(const CompanionRow& row) {
    const QLocale english = QLocale::c();
    return {english.toString(row.date.date(), QStringLiteral("MM/dd/yyyy")),
            english.toString(row.time.time(), QStringLiteral("hh:mm ap")),
            row.duration,
            isHidden(row) ? ShownName(row.appointment) : OneLine(row.appointment),
            OneLine(row.provider),
            ApptStatusText(row.status)};
}

QString workPhoneOf(const CompanionRow& row) {
    const QString phone = FormatPhoneNo(row.workPhone);
    const QString extension = row.workExtension.trimmed();
    return phone.isEmpty() || extension.isEmpty() ? phone : phone + QStringLiteral(" Ext. ") + extension;
}

QStringList detailsOf(const CompanionRow& row) {
    const bool hidden = isHidden(row);
    QStringList lines;
    if (!hidden) {
        AppendDetail(lines, QStringLiteral("Home Phone"), FormatPhoneNo(row.homePhone));
        AppendDetail(lines, QStringLiteral("Work Phone"), workPhoneOf(row));
        AppendDetail(lines, OneLine(row.numberName).trimmed(), row.number);
        AppendDetail(lines, QStringLiteral("Email"), row.email);
    }
    AppendDetail(lines, QStringLiteral("Service"), row.service);
    if (!hidden)
        AppendDetail(lines, QStringLiteral("Note"), row.note);
    return lines;
}

}  // namespace

bool DoScheduleFH(const ReportRequest& request, VSPrinter& vp, const ReportStep& step) {
    const ReportColumns columns(QStringLiteral("1500|1500|1500|3000|2000|1700;"),
                                QStringLiteral("Date|Time|Duration|Appointment|Provider|Status"), AppointmentColumn);
    const ReportRequest allowed = withinRights(request);
    BeginReport(vp, QStringLiteral("Schedule"), allowed, allowed.header);
    columns.AddTitles(vp);
    return ReportWhole([&] {
        const std::vector<CompanionRow> rows = readRows(allowed);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            vp.AddTogether([&] {
                columns.AddRow(vp, cellsOf(rows[i]));
                if (const QStringList details = detailsOf(rows[i]); !details.isEmpty())
                    columns.AddDetails(vp, details);
            });
            if (!step(static_cast<int>(i) + 1, static_cast<int>(rows.size())))
                return false;
        }
        return true;
    });
}
