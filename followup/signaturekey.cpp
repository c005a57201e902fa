#include "followup/signaturekey.h"

#include <QLocale>

#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

const QString Failed = QStringLiteral("GetSessionTS failed!");

QString keyTextOf(const QDateTime& modified) {
    return QLocale::c().toString(modified, QStringLiteral("yyyy/MM/dd hh:mm ap"));
}

QString modifiedStatement(int sessionId) {
    return Sql("Select ModifiedDate from sessions Where id = {}", sessionId);
}

}  // namespace

QString SignatureKey(int sessionId) {
    db::Connection& connection = Session().Connection;
    try {
        Recordset note(modifiedStatement(sessionId), connection);
        if (!note.Eof() && note["ModifiedDate"].isNull()) {
            // The server sets its own time, and leaves the one that another desk has set since the row was read.
            connection.Execute(
                Sql("Update sessions Set ModifiedDate = GetDate() Where id = {} And ModifiedDate Is Null", sessionId));
            note.Open(modifiedStatement(sessionId), connection);
        }
        if (QString key = note.Eof() ? QString() : keyTextOf(note["ModifiedDate"].dateTime()); !key.isEmpty())
            return key;
        MsgBox(Failed, ExclamationBox, QStringLiteral("Solvane"));
    } catch (const db::DatabaseError& error) {
        TellError(Failed + u' ', error);
    }
    return {};
}
