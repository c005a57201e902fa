#include "appointments/patientlist.h"

#include <QRegularExpression>
#include <QStringList>

#include "appointments/patientcontacts.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

using db::LikeText;
using db::Recordset;
using db::Sql;

QStringList PatientFacts::ListRow() const {
    return {name, account, homePhone, workPhone, cpt, otherPhone, email};
}

namespace {

QString shownName(const Recordset& row) {
    const QString name = row["last_name"].text().trimmed() + QStringLiteral(", ") + row["first_name"].text().trimmed();
    const QString initial = row["middle_init"].text();
    return initial.isEmpty() ? name : name + QLatin1Char(' ') + initial + QLatin1Char('.');
}

}  // namespace

PatientFacts PatientOf(const Recordset& row) {
    PatientFacts facts;
    facts.id = row["id"].text();
    facts.name = OneLine(shownName(row));
    facts.account = OneLine(row["acctnbr"].text());
    facts.homePhone = ContactText(row, "telephone_h");
    facts.workPhone = ContactText(row, "telephone_b");
    facts.otherPhone = ContactText(row, "Other_Phone");
    facts.cpt = row["defaultCPT"].text();
    facts.email = ContactText(row, "EmailAddress");
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

// The same patients as the look-up's, in its order. The second arm of the union is where the whole name counts.
QString matchesStatement(const QString& typed, int most) {
    const QString pattern = LikeText(typed);
    if (Session().AllProviders)
        return Sql(
            "Select Top {} id, last_name, first_name, middle_init, acctnbr, telephone_h, birth_date From patient_info Where archive = 0 And (last_name + ', ' + first_name Like '{}%' Or last_name + ', ' + first_name + ' ' + middle_init + '.' Like '{}%') Order by last_name, first_name, middle_init",
            most, pattern, pattern);
    const QString& provider = Session().ProviderId;
    return Sql(
        "Select Top {} id, last_name, first_name, middle_init, acctnbr, telephone_h, birth_date From (Select id, last_name, first_name, middle_init, acctnbr, telephone_h, birth_date From patient_info Inner Join incident_hx On patient_info.id = incident_hx.patient_id And patient_info.incident_nbr = incident_hx.incident_nbr Inner Join patientaccess On patient_info.id = patientaccess.patientid Where archive = 0 And patientaccess.providerid = '{}' And last_name Like '{}%' Union Select id, last_name, first_name, middle_init, acctnbr, telephone_h, birth_date From patient_info Inner Join incident_hx On patient_info.id = incident_hx.patient_id Where archive = 0 And patient_info.provider_id = '{}' And (last_name + ', ' + first_name Like '{}%' Or last_name + ', ' + first_name + ' ' + middle_init + '.' Like '{}%')) As fitting Order by last_name, first_name, middle_init",
        most, provider, pattern, provider, pattern, pattern);
}

// "Jordan, Ed L." begins with "Jordan, Ed", and so do "Jordan, Ed M." and "Jordan, Edna": of these only who is shown as
// it was typed.
std::optional<PatientFacts> withInitial(const QString& typed) {
    static const QRegularExpression nameWithInitial(QStringLiteral("^(.*,.*\\S) +(?:\\S\\.?)?$"));
    const QRegularExpressionMatch name = nameWithInitial.match(typed);
    if (!name.hasMatch())
        return std::nullopt;
    for (Recordset rows(lookUpStatement(name.captured(1)), Session().Connection); !rows.Eof(); rows.MoveNext())
        if (shownName(rows).startsWith(typed, Qt::CaseInsensitive))
            return PatientOf(rows);
    return std::nullopt;
}

}  // namespace

std::optional<PatientFacts> FindPatient(const QString& typed) {
    if (typed.isEmpty())
        return std::nullopt;
    const std::optional<PatientFacts> found = firstOf(lookUpStatement(typed));
    return found ? found : withInitial(typed);
}

std::vector<PatientMatch> MatchingPatients(const QString& typed, int most) {
    std::vector<PatientMatch> matches;
    if (typed.isEmpty())
        return matches;
    for (Recordset rows(matchesStatement(typed, most), Session().Connection); !rows.Eof(); rows.MoveNext())
        matches.push_back({rows["id"].text(), shownName(rows), rows["birth_date"].date(), rows["acctnbr"].text(),
                           ContactText(rows, "telephone_h")});
    return matches;
}

std::optional<PatientFacts> PatientOfId(const QString& id) {
    return firstOf(Sql(
        "Select id, last_name, first_name, middle_init, acctnbr, telephone_h, telephone_b, defaultCPT, Other_Phone_Type, Other_Phone, EmailAddress from patient_info Where id = '{}'",
        id));
}
