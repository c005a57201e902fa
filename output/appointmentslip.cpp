#include "output/appointmentslip.h"

#include <QLocale>
#include <QStringList>

#include "data/codes.h"
#include "data/minutetime.h"
#include "output/frmpappt.h"
#include "platform/controls/datefield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

struct StoredAppointment {
    AppointmentSlip slip;
    int code = 0;
    int apptType = 0;
};

/// Returns the texts that are filled, joined by a comma.
QString joined(QStringList texts) {
    texts.removeAll(QString());
    return texts.join(QStringLiteral(", "));
}

/// Returns nothing when the row no longer exists. Throws DatabaseError.
std::optional<StoredAppointment> stored(const SlipRequest& request) {
    const db::Recordset row(
        db::Sql(
            "Select appointments.*, prov_lastname from appointments Left Join provider_info On appointments.clinicianid = provider_info.id Where nkeyid = {}",
            request.key),
        Session().Connection);
    if (row.Eof())
        return std::nullopt;
    StoredAppointment found;
    found.slip.appointmentFor = row["cappttext"].text();
    const QString provider = row["prov_lastname"].text();
    found.slip.appointmentWith = provider.isEmpty() ? row["clinicianid"].text() : provider;
    found.slip.location = joined({row["CLOCATION"].text().trimmed(), request.room});
    found.slip.date = row["dapptdate"].date();
    if (!row["allday"].boolean() && !row["nStartTime"].value().isNull())
        found.slip.start = static_cast<int>(row["nStartTime"].integer());
    found.code = static_cast<int>(row["ncolor"].integer());
    found.apptType = static_cast<int>(row["appttype"].integer());
    return found;
}

}  // namespace

QString SlipDateText(const AppointmentSlip& slip) {
    const bool isDayFirst = static_cast<DateOrder>(Session().DateOrder) == DateOrder::DayFirst;
    const QString date = QLocale::c().toString(
        slip.date, isDayFirst ? QStringLiteral("dddd, d MMM yyyy") : QStringLiteral("dddd MMM d, yyyy"));
    return slip.start ? date + QStringLiteral(" at ") + MinutesToTimeText(*slip.start, Session().MilitaryTime) : date;
}

bool HasSlip(int code, int apptType) {
    const bool isAwaited = code == ncolor::Blank || code == ncolor::Pending || code == ncolor::Tentative;
    return isAwaited && apptType != ApptTypeSlot;
}

void OpenAppointmentSlip(const SlipRequest& request, QWidget* window, const std::function<void()>& reload) {
    std::optional<StoredAppointment> found;
    try {
        found = stored(request);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment. "), error);
        return;
    }
    if (!found) {
        MsgBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
               ExclamationBox, QStringLiteral("Appointment not found"));
        reload();
        return;
    }
    if (!request.has(found->code, found->apptType)) {
        MsgBox(QStringLiteral("Another user has changed this appointment. ") + request.whyNot, InformationBox,
               QStringLiteral("Print Appointment Slip"));
        reload();
        return;
    }
    if (found->slip.date != request.date || found->slip.start.value_or(request.start) != request.start)
        reload();
    frmpappt form(found->slip, window);
    ShowModal(form);
}
