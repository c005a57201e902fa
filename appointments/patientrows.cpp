#include "appointments/patientrows.h"

#include "appointments/patientcontacts.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

QString PatientStatement(const QString& patientId) {
    return Sql("Select * from patient_info where id = '{}'", patientId);
}

QString AuthInfoStatement(const QString& patientId, QDate date) {
    return Sql(
        "Select sess_remaining, cpt_allowed from authorizations Where patient_id = '{}' AND sess_remaining > 0 AND authoriz_active = 0 AND (start_date <= '{}' AND end_date >= '{}')",
        patientId, date, date);
}

QStringList ShownPatientStatements(const QString& patientId, QDate date) {
    if (patientId.isEmpty())
        return {};
    QStringList statements{AuthInfoStatement(patientId, date)};
    for (const char* field : {"telephone_h", "telephone_b", "Other_Phone", "EmailAddress"})
        statements << FieldStatement(patientId, QString::fromLatin1(field));
    return statements;
}

QString checkForEmailAddress(const QString& patientId) {
    try {
        const Recordset patient(Sql("Select emailaddress from Patient_info Where id = '{}'", patientId),
                                Session().Connection);
        return patient.Eof() ? QString() : patient["emailaddress"].text().trimmed();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error retrieving patient e-mail address. "), error);
        return {};
    }
}

bool patientinDB(const QString& patientId, std::optional<db::DatabaseError>* failure) {
    try {
        return !Recordset(PatientStatement(patientId), Session().Connection).Eof();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading patient list. "), error);
        if (failure != nullptr)
            *failure = error;
        return false;
    }
}

QString GetAuthInfo(const QString& patientId, QDate date) {
    try {
        const Recordset authorization(AuthInfoStatement(patientId, date), Session().Connection);
        if (authorization.Eof())
            return QStringLiteral("No current active authorizations found for patient.");
        return authorization["sess_remaining"].text() + QStringLiteral(" sessions remaining in current authorization");
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error retrieving patient authorization information. "), error);
        return {};
    }
}
