#include "companion/sessioncolumn.h"

#include "platform/database/recordset.h"

QString SessionColumnStatement() {
    return QStringLiteral("SELECT SVSessionID from clientTransactions Where ctrnID = 0");
}

bool IsSVSessionIDColThere(db::Connection& companion) {
    return db::Ignoring([&] { const db::Recordset asked(SessionColumnStatement(), companion); });
}
