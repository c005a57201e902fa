#include "appointments/seriesnumber.h"

#include <QObject>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "session/session.h"

QString SeriesNumberStatement(int key, QDate date, int start) {
    return db::Sql(
        "Select Count(*) As total, Sum(Case When dapptdate < '{}' Or (dapptdate = '{}' And (nStartTime < {} Or (nStartTime = {} And nkeyid <= {}))) Then 1 Else 0 End) As place from appointments Where repeating = 1 And repeating_ref > 0 And repeating_ref = (Select repeating_ref from appointments Where nkeyid = {} And repeating = 1)",
        date, date, start, start, key, key);
}

QString SeriesNumberText(int key, QDate date, int start) {
    const db::Recordset number(SeriesNumberStatement(key, date, start), Session().Connection);
    if (number.Eof() || number["place"].integer() < 1)
        return {};
    return QObject::tr("%1 of %2").arg(number["place"].integer()).arg(number["total"].integer());
}
