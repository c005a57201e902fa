#include "session/audit.h"

#include <QLocale>

#include "data/settings.h"
#include "platform/controls/datefield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

void GetALSettings() {
    Session().ALEnabled = false;
    try {
        const db::Recordset settings(SettingsStatement(), Session().Connection);
        if (!settings.Eof())
            Session().ALEnabled = settings["ALEnabled"].real() == 1;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading global setings from database. "), error);
    }
}

void AuditLog(const QString& user, const QString& location, const QString& listId, const QString& notes,
              const QString& description) {
    const SessionValues& session = Session();
    if (!session.ALEnabled)
        return;
    const QString now = QLocale::c().toString(Now(), QStringLiteral("yyyy/MM/dd hh:mm:ss AP"));
    try {
        Session().Connection.Execute(db::Sql(
            "Insert into AuditLog (LogUser, LogDate, LogLocation, LogDescription, LogListId, LogNotes, CompUser, CompName) Values('{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}')",
            user, now, location, description, listId, notes.isEmpty() ? QStringLiteral("-") : notes, session.OsUserName,
            session.ComputerName));
    } catch (const db::DatabaseError& error) {
        // The notice stays, because writing the next line does not bring this one back.
        TellInBar(QStringLiteral("The audit log was not written. "), error);
    }
}

QString AuditDate(QDate date) {
    return DateFieldText(date, static_cast<DateOrder>(Session().DateOrder));
}

void AuditDeletedAppointment(const QString& date, const QString& timeText, const QString& text) {
    AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Delete Appointment"), {},
             QStringLiteral("Deleted appointment - %1 at %2 on %3").arg(text, timeText, date));
}
