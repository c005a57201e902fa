#include "appointments/patientlist.h"

#include <QStringList>

#include "data/phone.h"
#include "data/pipefields.h"
#include "platform/database/sql.h"
#include "session/session.h"

using db::LikeText;
using db::Recordset;
using db::Sql;

QString PatientFacts::ListRow() const {
    QStringList cells;
    for (const QString& cell : {name, account, homePhone, workPhone, cpt, otherPhone, email})
        cells << CleanFieldText(cell);
    return cells.join(u';');
}

PatientFacts PatientOf(const Recordset& row) {
    const QString phoneFormat = MaskToFormat(Session().PhoneMask);
    const auto phone = [&row](const char* column, const QString& format) {
        const QString number = row[column].text().trimmed();
        return number.isEmpty() ? QString() : FormatPhone(number, format);
    };
    PatientFacts facts;
    facts.id = row["id"].text();
    facts.name = row["last_name"].text().trimmed() + QStringLiteral(", ") + row["first_name"].text().trimmed();
    if (const QString initial = row["middle_init"].text(); !initial.isEmpty())
        facts.name += QLatin1Char(' ') + initial + QLatin1Char('.');
    facts.account = row["acctnbr"].text();
    facts.homePhone = phone("telephone_h", phoneFormat);
    facts.workPhone = phone("telephone_b", WithExtension(phoneFormat));
    facts.otherPhone = phone("Other_Phone", phoneFormat);
    facts.cpt = row["defaultCPT"].text();
    facts.email = row["EmailAddress"].text();
    return facts;
}

QString PatientListStatement() {
    if (Session().AllProviders)
        return QStringLiteral(
            "Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_Info Where archive = 0 Order by last_name, first_name, middle_init");
    const QString& provider = Session().ProviderId;
    return Sql(
        "SELECT id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress From patient_info, incident_hx, patientaccess WHERE patient_info.id = incident_hx.patient_id AND patient_info.id = patientaccess.patientid AND patientaccess.patientid = incident_hx.patient_id AND patient_info.incident_nbr = incident_hx.incident_nbr AND Archive = 0 AND patientaccess.providerid = '{}' UNION Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_info, incident_hx Where Archive = 0 AND patient_info.id = incident_hx.patient_id AND patient_info.provider_id = '{}' Order by last_name, first_name, middle_init",
        provider, provider);
}

namespace {

// The two arms of the union differ on purpose: patients of other providers to whom the user was given access are found
// by their last name alone.
QString lookUpStatement(const QString& typed) {
    const QString pattern = LikeText(typed);
    if (Session().AllProviders)
        return Sql(
            "Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_Info Where archive = 0 and last_name + ', ' + first_name Like '{}%' Order by last_name, first_name, middle_init",
            pattern);
    const QString& provider = Session().ProviderId;
    return Sql(
        "SELECT id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress From patient_info, incident_hx, patientaccess WHERE patient_info.id = incident_hx.patient_id AND patient_info.id = patientaccess.patientid AND patientaccess.patientid = incident_hx.patient_id AND patient_info.incident_nbr = incident_hx.incident_nbr AND Archive = 0 AND patientaccess.providerid = '{}' and last_name Like '{}%' UNION Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_info, incident_hx Where Archive = 0 AND patient_info.id = incident_hx.patient_id AND patient_info.provider_id = '{}' and last_name + ', ' + first_name Like '{}%' Order by last_name, first_name, middle_init",
        provider, pattern, provider, pattern);
}

std::optional<PatientFacts> firstOf(const QString& statement) {
    Recordset rows;
    // One letter is the beginning of thousands of names; one of them is wanted.
    rows.Open(statement, Session().Connection, db::Lock::ReadOnly, 1);
    if (rows.Eof())
        return std::nullopt;
    return PatientOf(rows);
}

}  // namespace

std::optional<PatientFacts> FindPatient(const QString& typed) {
    if (typed.isEmpty())
        return std::nullopt;
    return firstOf(lookUpStatement(typed));
}

std::optional<PatientFacts> PatientOfId(const QString& id) {
    return firstOf(Sql(
        "Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_info Where id = '{}'",
        id));
}
