#include <QLabel>

#include "data/phone.h"
#include "people/frmabook.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/listfiller.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

// A missing name leaves no comma behind.
QString fullName(const QString& last, const QString& first) {
    const QString lastName = OneLine(last).trimmed();
    const QString firstName = OneLine(first).trimmed();
    return lastName.isEmpty() || firstName.isEmpty() ? lastName + firstName
                                                     : lastName + QStringLiteral(", ") + firstName;
}

QString patientsStatement() {
    if (Session().AllProviders)
        return QStringLiteral(
            "Select id, last_name, first_name, address, city, state, zipcode, telephone_h, telephone_b, other_phone_type, other_phone from patient_Info Where archive = 0 Order by last_name, first_name");
    const QString& provider = Session().ProviderId;
    return Sql(
        "SELECT id, last_name, first_name, address, city, state, zipcode, telephone_h, telephone_b, other_phone_type, other_phone From patient_info, incident_hx, patientaccess WHERE patient_info.id = incident_hx.patient_id AND patient_info.id = patientaccess.patientid AND patientaccess.patientid = incident_hx.patient_id AND patient_info.incident_nbr = incident_hx.incident_nbr AND Archive = 0 AND patientaccess.providerid = '{}' UNION Select id, last_name, first_name, address, city, state, zipcode, telephone_h, telephone_b, other_phone_type, other_phone from patient_info, incident_hx Where Archive = 0 AND patient_info.id = incident_hx.patient_id AND patient_info.provider_id = '{}' Order by last_name, first_name",
        provider, provider);
}

/// The initial widths of the columns in characters. The other columns hold telephone numbers.
int widthOf(const QString& heading) {
    static constexpr std::pair<const char*, int> widths[]{
        {"Name", 28}, {"Company", 26}, {"Contact", 26}, {"Address", 32},    {"City", 18},
        {"State", 7}, {"Zip", 10},     {"Phone", 23},   {"Work Phone", 23}, {"E-Mail", 30}};
    constexpr int phone = 17;
    for (const auto& [name, width] : widths)
        if (heading == QLatin1String(name))
            return width;
    return phone;
}

}  // namespace

QString frmabook::stripcr(const QString& text) {
    QString stripped;
    for (const QChar c : text) {
        if (c == QLatin1Char('\r'))
            stripped += QStringLiteral(", ");
        else if (c != QLatin1Char('\n'))
            stripped += c;
    }
    return stripped;
}

QString frmabook::phone(const Recordset& row, const char* column) const {
    return FormatPhone(row[column].text(), phoneFormat_);
}

QString frmabook::phoneWithExtension(const Recordset& row, const char* column) const {
    return FormatPhone(row[column].text(), WithExtension(phoneFormat_));
}

void frmabook::setHeadings(const QStringList& headings) {
    std::vector<ListColumn> columns;
    for (const QString& heading : headings)
        columns.push_back({heading, ListColumn::Kind::Text, widthOf(heading)});
    ctList1->SetColumns(std::move(columns));
}

void frmabook::load(const Source& source) {
    setHeadings(source.headings);
    phoneFormat_ = MaskToFormat(Session().PhoneMask);
    const bool patients = ShownList() == AddressList::Patients;
    const auto read = [statement = source.statement](int most) {
        const BusyPointer busy;
        Recordset rows;
        rows.Open(statement, Session().Connection, db::Lock::ReadOnly, most);
        return rows;
    };
    const auto add = [this, patients, key = source.key, cells = source.cells](const Recordset& row) {
        const int added = ctList1->AddRow(cells(row), row[key].text());
        // All of it tells who the patient is, or where to be found.
        for (int column = 1; patients && column <= ctList1->ColumnCount(); ++column)
            ctList1->NameCell(added, column);
    };
    const auto tell = [failure = source.failure](const db::DatabaseError& error) {
        TellError(QLatin1String(failure), error);
    };
    try {
        filler_->Fill(read, add, tell);
    } catch (const db::DatabaseError& error) {
        tell(error);
    }
}

void frmabook::loadcontacts() {
    load({{QStringLiteral("Name"), QStringLiteral("Company"), QStringLiteral("Address"), QStringLiteral("City"),
           QStringLiteral("State"), QStringLiteral("Zip"), QStringLiteral("Home Phone"), QStringLiteral("Work Phone"),
           QStringLiteral("Fax"), QStringLiteral("Mobile Phone"), QStringLiteral("E-Mail")},
          Sql("Select * from ContactList Where uid = '{}' Order by lname;", Session().UID),
          "cid",
          "Error loading contact list. ",
          [this](const Recordset& row) {
              return QStringList{fullName(row["lname"].text(), row["fname"].text()),
                                 row["company"].text(),
                                 stripcr(row["address"].text()),
                                 row["city"].text(),
                                 row["state"].text(),
                                 row["zip"].text(),
                                 phone(row, "hphone"),
                                 phoneWithExtension(row, "wphone"),
                                 phone(row, "fax"),
                                 phone(row, "mobilephone"),
                                 row["emailaddress"].text()};
          }});
}

// A telephone at work may have an extension, as everywhere else where this column is shown.
void frmabook::loadpatients() {
    load({{QStringLiteral("Name"), QStringLiteral("Address"), QStringLiteral("City"), QStringLiteral("State"),
           QStringLiteral("Zip"), QStringLiteral("Home Phone"), QStringLiteral("Work Phone"),
           QStringLiteral("Other Phone Type"), QStringLiteral("Other Phone")},
          patientsStatement(),
          "id",
          "Error loading patient list. ",
          [this](const Recordset& row) {
              return QStringList{fullName(row["last_name"].text(), row["first_name"].text()),
                                 stripcr(row["address"].text()),
                                 row["city"].text(),
                                 row["state"].text(),
                                 row["zipcode"].text(),
                                 phone(row, "telephone_h"),
                                 phoneWithExtension(row, "telephone_b"),
                                 row["other_phone_type"].text(),
                                 phone(row, "other_phone")};
          }});
}

void frmabook::loadref() {
    loadcompanies(
        QStringLiteral(
            "Select id, ref_name, contact, address, telephone, fax from ref_source_info Where archive = 0 Order by ref_name"),
        "ref_name", "Error loading referral source list. ");
}

void frmabook::loadins() {
    loadcompanies(
        QStringLiteral(
            "Select id, ins_name, contact, address, telephone, fax from insurance_info Where 0 = 0 Order by ins_name"),
        "ins_name", "Error loading insurance list. ");
}

void frmabook::loadcompanies(const QString& statement, const char* name, const char* failure) {
    load({{QStringLiteral("Name"), QStringLiteral("Contact"), QStringLiteral("Address"), QStringLiteral("Phone"),
           QStringLiteral("Fax")},
          statement,
          "id",
          failure,
          [this, name](const Recordset& row) {
              return QStringList{row[name].text(), row["contact"].text(), stripcr(row["address"].text()),
                                 phoneWithExtension(row, "telephone"), phone(row, "fax")};
          }});
}
