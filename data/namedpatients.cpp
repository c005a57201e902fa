#include "data/namedpatients.h"

#include <QStringList>

#include "data/codes.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

constexpr int MostKeysOfOneStatement = 500;

bool namesPatient(const Recordset& row) {
    return NamesPatient(static_cast<int>(row["ncolor"].integer()), !row["patientid"].text().isEmpty());
}

}  // namespace

bool NamesPatient(int code, bool hasPatient) {
    if (code == ncolor::Activity || code == ncolor::Unavailable || code == ncolor::Group)
        return false;
    return hasPatient || IsPatientRow(code);
}

QSet<qint64> KeysWithoutPatient(db::Connection& connection, const QSet<qint64>& keys) {
    QSet<qint64> found;
    QStringList some;
    qsizetype left = keys.size();
    for (const qint64 key : keys) {
        if (key > 0)
            some << QString::number(key);
        if (--left > 0 && some.size() < MostKeysOfOneStatement)
            continue;
        if (some.isEmpty())
            break;
        for (Recordset rows(
                 Sql("Select nkeyid, ncolor, patientid from appointments Where nkeyid In ({})", Raw{some.join(u',')}),
                 connection);
             !rows.Eof(); rows.MoveNext())
            if (!namesPatient(rows))
                found.insert(rows["nkeyid"].integer());
        some.clear();
    }
    return found;
}

QSet<QString> TextsWithoutPatient(db::Connection& connection, QDate date) {
    QSet<QString> found;
    for (Recordset rows(Sql("Select cappttext, ncolor, patientid from appointments Where dapptdate = '{}'", date),
                        connection);
         !rows.Eof(); rows.MoveNext())
        if (!namesPatient(rows))
            found.insert(rows["cappttext"].text());
    return found;
}
