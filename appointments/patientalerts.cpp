#include "appointments/patientalerts.h"

#include <QLabel>

#include "appointments/frmalert.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

bool holdsToday(QDate begin, QDate end) {
    return !begin.isValid() || !end.isValid() || (begin <= Today() && Today() < end);
}

QString alertText(const QString& patientId, const QString& alertType) {
    const db::Recordset alert(PatientAlertStatement(patientId, alertType), Session().Connection);
    if (alert.Eof() || !holdsToday(alert["BeginDate"].date(), alert["EndDate"].date()))
        return {};
    return alert["alert"].text().trimmed();
}

}  // namespace

QString PatientAlertStatement(const QString& patientId, const QString& alertType) {
    return db::Sql("Select * from Patient_Alerts where patient_id = '{}' and alert_type = '{}' and Status = 1",
                   patientId, alertType);
}

void ShowPatientAlerts(const QString& patientId, const QString& alertType) {
    if (patientId.isEmpty())
        return;
    QString text;
    try {
        text = alertText(patientId, alertType);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading patient alerts. "), error);
        return;
    }
    if (text.isEmpty())
        return;
    frmAlert form;
    form.lblalert->setText(text);
    ShowModal(form);
}
