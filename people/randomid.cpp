#include "people/randomid.h"

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

namespace {

constexpr int MostTries = 200;

bool isTaken(const QString& table, const QString& id) {
    const db::Recordset row(db::Sql("Select Id From {} Where Id = '{}'", db::Raw{table}, id), Session().Connection);
    return !row.Eof();
}

}  // namespace

QString GenerateRandomId(const QString& table, int low, int high, const QString& prefix) {
    for (int attempt = 0; attempt < MostTries; ++attempt) {
        const auto number = static_cast<int>((high - low + 1) * RandomNumber()) + low;
        QString id = prefix + QString::number(number);
        if (!isTaken(table, id))
            return id;
    }
    return {};
}
