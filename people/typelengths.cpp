#include "people/typelengths.h"

#include "platform/database/recordset.h"
#include "session/preferences.h"
#include "session/session.h"

namespace {

const QString Category = QStringLiteral("AppointmentTypeLength");

}  // namespace

QString TypeLengthsStatement() {
    return PreferenceStatement({}, Category, {}, QString::fromLatin1(AllUsers));
}

QHash<int, int> TypeLengths() {
    QHash<int, int> lengths;
    db::Ignoring([&] {
        for (db::Recordset rows(TypeLengthsStatement(), Session().Connection); !rows.Eof(); rows.MoveNext()) {
            const int minutes = rows["UP_PD_Value"].text().toInt();
            if (minutes > 0 && minutes <= LongestVisit)
                lengths.insert(rows["UP_Pref_Detail"].text().toInt(), minutes);
        }
    });
    return lengths;
}

bool SetTypeLength(int typeId, int minutes) {
    return SetPreference(QString::number(minutes), QString::number(typeId), Category, QString::fromLatin1(AllUsers));
}
