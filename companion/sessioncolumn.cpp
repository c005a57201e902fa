#include "companion/sessioncolumn.h"

#include "platform/database/recordset.h"

bool IsSVSessionIDColThere(db::Connection& companion) {
    return db::Ignoring(
        [&] { const db::Recordset asked("SELECT SVSessionID from clientTransactions Where ctrnID = 0", companion); });
}
