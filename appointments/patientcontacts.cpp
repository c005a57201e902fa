#include "appointments/patientcontacts.h"

#include "data/phone.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/text/plaintext.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

/// The first row's columns as texts; none without a row, and where it cannot be read.
QStringList firstRow(const QString& statement, int columns) {
    QStringList texts;
    db::Ignoring([&] {
        const Recordset patient(statement, Session().Connection);
        for (int column = 0; column < columns && !patient.Eof(); ++column)
            texts << patient[column].text();
    });
    return texts;
}

}  // namespace

QString ContactText(const QString& field, const QString& value) {
    const QString phoneFormat = MaskToFormat(Session().PhoneMask);
    if (field == QStringLiteral("telephone_h") || field == QStringLiteral("Other_Phone"))
        return FormatPhone(value, phoneFormat);
    if (field == QStringLiteral("telephone_b"))
        return FormatPhone(value, WithExtension(phoneFormat));
    return OneLine(value);
}

QString ContactText(const db::Recordset& row, const char* column) {
    return ContactText(QString::fromLatin1(column), row[column].text());
}

QString FieldStatement(const QString& patientId, const QString& field) {
    if (field == QStringLiteral("Other_Phone"))
        return Sql("Select {}, Other_Phone_Type from Patient_info Where id = '{}' AND Len(Other_Phone_Type) > 0",
                   db::Raw{field}, patientId);
    return Sql("Select {} from Patient_info Where id = '{}'", db::Raw{field}, patientId);
}

QString DetailStatement(const QString& patientId, const QString& field) {
    return Sql("Select {} , Other_Phone_Type from Patient_info Where id = '{}'", db::Raw{field}, patientId);
}

QString PatientFieldText(const QString& patientId, const QString& field) {
    return ContactText(field, firstRow(FieldStatement(patientId, field), 1).value(0));
}

ContactDetail PatientDetail(const QString& patientId, const QString& field) {
    const QStringList row = firstRow(DetailStatement(patientId, field), 2);
    return {ContactText(field, row.value(0)), row.value(1)};
}
