#include "output/exportrows.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

using db::Sql;

namespace {

QString whichRows(const ExportChoice& choice) {
    const auto between = [](QDate first, QDate last) {
        return Sql(" WHERE dapptdate BETWEEN '{} 00:00 ' And '{} 23:59 ' ", first, last);
    };
    const ExportRequest& request = choice.request;
    switch (choice.which) {
        case ExportChoice::Which::Selected:
            return Sql(" WHERE appointments.nkeyid = {} ", request.SelectedKey);
        case ExportChoice::Which::FromTo:
            return between(choice.from, choice.to);
        case ExportChoice::Which::All:
            break;
    }
    if (request.ExportRange == exportrange::Day)
        return Sql(" WHERE dapptdate = '{}' ", Today());
    if (request.ExportRange == exportrange::Week)
        return between(request.WeekStart, request.WeekEnd);
    return {};
}

}  // namespace

QString ExportStatement(const ExportChoice& choice) {
    const QString& provider = Session().ProviderId;
    return QStringLiteral(
               "SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid ") +
           whichRows(choice) +
           Sql(" and (appointments.clinicianid = '{}' or appointmentsevents.clinicianid = '{}') ", provider, provider) +
           QStringLiteral("Order by DApptDate, NStartTime");
}

std::vector<ExportedAppointment> GetExportRows(const ExportChoice& choice) {
    std::vector<ExportedAppointment> rows;
    try {
        for (db::Recordset row(ExportStatement(choice), Session().Connection); !row.Eof(); row.MoveNext())
            rows.push_back(ExportedRow(row));
    } catch (const db::DatabaseError& error) {
        MsgBox(QStringLiteral("Error getting appointments from database. \n") + error.description, ErrorBox,
               QStringLiteral("Error Exporting Appointments From DB"));
        return {};
    }
    return rows;
}
