#include "appointments/patientrows.h"

#include "data/phone.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

QString fieldStatement(const QString& patientId, const QString& field) {
    if (field == QStringLiteral("Other_Phone"))
        return Sql("Select {}, Other_Phone_Type from Patient_info Where id = '{}' AND Len(Other_Phone_Type) > 0",
                   db::Raw{field}, patientId);
    return Sql("Select {} from Patient_info Where id = '{}'", db::Raw{field}, patientId);
}

}  // namespace

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
        statements << fieldStatement(patientId, QString::fromLatin1(field));
    return statements;
}

QString PatientFieldText(const QString& patientId, const QString& field) {
    QString value;
    db::Ignoring([&] {
        const Recordset patient(fieldStatement(patientId, field), Session().Connection);
        if (!patient.Eof())
            value = patient[0].text();
    });
    const QString phoneFormat = MaskToFormat(Session().PhoneMask);
    if (field == QStringLiteral("telephone_h") || field == QStringLiteral("Other_Phone"))
        return FormatPhone(value, phoneFormat);
    if (field == QStringLiteral("telephone_b"))
        return FormatPhone(value, WithExtension(phoneFormat));
    return OneLine(value);
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
