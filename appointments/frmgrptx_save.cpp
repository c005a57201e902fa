#include <array>

#include "appointments/appointmentroom.h"
#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "appointments/editorparts.h"
#include "appointments/frmgrptx.h"
#include "data/codes.h"
#include "data/pipefields.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

void frmgrptx::cmdOk_Click() {
    // Enter and the Alt key do not leave the field in which the user stands.
    for (ctDEdit* field : {ctedate, ctstart, ctend})
        field->setText(field->Text());
    const int group = groupOnList_;
    for (CompletingCombo* box : {cbogroup, cborooms})
        box->Settle();
    offerUnknownLocation();
    if (!dirty)
        return accept();
    // The members of a group that was only just typed are looked at before they are saved.
    if (cbogroup->ListIndex() < 0 || group != groupOnList_ || !ViewHasEditor(request_.CurrentView) ||
        !TimesAreValid(*ctstart, *ctend, *ctedate))
        return;
    const db::ReadTogether together(Session().Connection, savingStatements(key_, request_.provider.id));
    if (conflicts(key_, request_.provider.id))
        return;
    if (saveappt(key_, request_.provider.id))
        accept();
    else
        closeUnsaved();
}

void frmgrptx::cmdCancel_Click() {
    if (!membersDeleted_ || mayGiveUp())
        reject();
}

bool frmgrptx::conflicts(int key, const QString& providerId) const {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    return CheckApptConflicts(key, date, start, end, {}, providerId) ||
           (cborooms->ListIndex() >= 0 && CheckRoomConflicts(key, date, start, end, cborooms->ItemData(), key));
}

QStringList frmgrptx::savingStatements(int key, const QString& providerId) const {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    QStringList statements{ApptConflictStatement(key, date, start, end, {}, providerId), AppointmentStatement(key),
                           attendanceStatement(key), ApptRoomStatement(key)};
    if (cborooms->ListIndex() >= 0)
        statements << RoomConflictStatements(key, date, start, end, cborooms->ItemData(), key);
    return statements;
}

bool frmgrptx::saveappt(int key, const QString& providerId) {
    const BusyPointer busy;
    bool isNew = false;
    QString trouble = QStringLiteral("Error saving appointment. ");
    try {
        db::InTransaction(Session().Connection, [&] {
            Recordset row(AppointmentStatement(key), Session().Connection, Lock::Optimistic);
            isNew = row.Eof();
            if (!isNew)
                requireUnchanged(row, key);
            const int saved = writeEntry(row, providerId);
            trouble = QStringLiteral("Error saving group members. ");
            savemembers(saved);
        });
    } catch (const db::DatabaseError& error) {
        TellError(trouble, error);
        return false;
    }
    audit(isNew);
    if (isNew && key > 0)
        TellAddedAgain();
    return true;
}

void frmgrptx::requireUnchanged(const Recordset& row, int key) const {
    db::RequireUnchanged(storedState_, writtenState(row));
    if (storedMembers_ != attendanceOf(key))
        throw db::RowChangedError();
    if (roomUnread_)
        return;
    const Recordset booking(ApptRoomStatement(key), Session().Connection);
    if (storedRoom_ != (booking.Eof() ? 0 : static_cast<int>(booking["croomid"].integer())))
        throw db::RowChangedError();
}

int frmgrptx::writeEntry(Recordset& row, const QString& providerId) const {
    const bool isNew = row.Eof();
    if (isNew)
        row.AddNew();
    writeFields(row, isNew, providerId);
    if (!isNew && !(roomUnread_ && cborooms->ListIndex() < 0))
        Session().Connection.Execute(Sql("Delete from roomschedule Where apptid = {}", row["nkeyid"].integer()));
    row.Update();
    const int key = static_cast<int>(row["nkeyid"].integer());
    if (cborooms->ListIndex() >= 0)
        BookRoom(cborooms->ItemData(), key, ctstart->Time(), ctend->Time(), ctedate->Date(), cbogroup->Text());
    return key;
}

void frmgrptx::writeFields(Recordset& row, bool isNew, const QString& providerId) const {
    if (isNew) {
        row.Set("createddate", Now());
        row.Set("createduid", Session().UID);
    }
    const QString location = cbolocation->Text();
    row.Set("nStartTime", ctstart->Time());
    row.Set("nEndTime", ctend->Time());
    row.Set("dapptdate", ctedate->Date());
    row.Set("cappttext", cbogroup->Text());
    row.Set("CLOCATION", location.left(LongestLocation));
    row.Set("BLOCATEICO", location.isEmpty() ? 0 : 1);
    row.Set("BremindIco", 0);
    row.Set("BPrivateIco", 0);
    row.Set("ncolor", ncolor::Group);
    row.Set("BTentIco", 0);
    row.Set("clinicianid", providerId);
    row.Set("CapptNote", QLatin1Char('|') + txtnotes->StoredText() + QStringLiteral("|||"));
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

db::RowState frmgrptx::writtenState(const Recordset& row) {
    static constexpr std::array columns{"nStartTime", "nEndTime",    "dapptdate", "cappttext",
                                        "CLOCATION",  "clinicianid", "ncolor",    "CapptNote"};
    return {row, columns};
}

void frmgrptx::savemembers(int key) const {
    db::Connection& connection = Session().Connection;
    connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyId = {}", key));
    Recordset rows(QStringLiteral("Select * from AppointmentsGroup Where 0=1"), connection, Lock::Optimistic);
    for (int row = 0; row < ctList1->RowCount(); ++row) {
        if (!ctList1->Checked(row, SchdColumn))
            continue;
        const QString mark = ctList1->ItemText(row);
        rows.AddNew();
        rows.Set("nKeyId", key);
        rows.Set("PatientId", GetPipeField(mark, 1));
        rows.Set("PatientAcct", GetPipeField(mark, 2));
        rows.Set("PatientName", ctList1->Cell(row, NameColumn));
        rows.Set("Kept", ctList1->Checked(row, KeptColumn) ? 1 : 0);
        rows.Set("GroupId", cbogroup->ItemData());
        rows.Update();
    }
}

void frmgrptx::audit(bool isNew) const {
    const QString date = ctedate->Text();
    const QString group = cbogroup->Text();
    if (isNew)
        AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Add Appointment"), {},
                 QStringLiteral("Added Group Appointment of %1 for %2").arg(date, group));
    else
        AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
                 QStringLiteral("Modified Group Appointment of %1 for %2").arg(date, group));
}
