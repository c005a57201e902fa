#include <array>
#include <optional>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "appointments/appointmentroom.h"
#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "appointments/editorparts.h"
#include "appointments/frmnore.h"
#include "appointments/patientrows.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/rowmerge.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/database/waiting.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int UsualLeadMinutes = 10;
constexpr int LongestPhoneCopy = 40;  // appointments.hphone and wphone
constexpr int LongestAuditedText = 100;

}  // namespace

void frmnore::cmdOk_Click() {
    if (asksForPatient())
        return;
    // Enter and the Alt key do not leave the field in which the user stands.
    for (CompletingCombo* box : {cbocpt, cboapttype, cbocats, cborooms, cbostatus})
        box->Settle();
    for (ctDEdit* field : {ctedate, ctstart, ctend})
        field->setText(field->Text());
    offerUnknownItems();
    if (!dirty)
        return accept();
    if (entryText().trimmed().isEmpty())
        return;
    const db::ReadTogether together(Session().Connection, savingStatements(key_, request_.provider.id));
    if (request_.ApptKind == apptkind::Patient && !patientIsKnown())
        return;
    settlePatient();
    if (conflicts(key_, request_.provider.id) || !ViewHasEditor(request_.CurrentView) ||
        !TimesAreValid(*ctstart, *ctend, *ctedate))
        return;
    if (!saveappt(key_, request_.provider.id))
        return closeUnsaved();
    sendConfirmation();
    accept();
}

bool frmnore::patientIsKnown() {
    std::optional<db::DatabaseError> failure;
    if (patientinDB(patientTag_, &failure))
        return true;
    if (failure && db::IsUnanswered(*failure))
        return false;
    const Answer answer =
        MsgBox(QStringLiteral("Patient not found in database. Add patient now?"), YesNoBox, QStringLiteral("Solvane"));
    if (answer == Answer::Yes) {
        // Who was just added is chosen already, and the user looks at the appointment again.
        if (!AddNewPatient())
            showPatientList();
        return false;
    }
    // What could not be looked up may well be there.
    if (!failure) {
        txtaccount->clear();
        for (QLabel* fact : {lblHPhone, lblwphone, lblcphone, lblemail})
            fact->clear();
    }
    if (txtpatients->isEnabled())
        txtpatients->setFocus();
    return false;
}

QStringList frmnore::savingStatements(int key, const QString& providerId) const {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    QStringList statements{ApptConflictStatement(key, date, start, end, patientTag_, providerId),
                           AppointmentStatement(key)};
    if (request_.ApptKind == apptkind::Patient)
        statements << PatientStatement(patientTag_);
    if (cborooms->ListIndex() >= 0)
        statements << RoomConflictStatements(key, date, start, end, cborooms->ItemData(), key);
    return statements;
}

// The conflicts are asked before the times are checked: the order is fixed.
bool frmnore::conflicts(int key, const QString& providerId) {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    if (ViewHasEditor(request_.CurrentView) && CheckApptConflicts(key, date, start, end, patientTag_, providerId))
        return true;
    return cborooms->ListIndex() >= 0 && CheckRoomConflicts(key, date, start, end, cborooms->ItemData(), key);
}

QString frmnore::entryText() const {
    switch (request_.ApptKind) {
        case apptkind::Patient:
            return txtpatients->text();
        case apptkind::Activity:
            return cboevents->Text();
        case apptkind::Unavailable:
            return cboavail->Text();
        default:
            return cbocats->Text();
    }
}

bool frmnore::saveappt(int key, const QString& providerId) {
    const BusyPointer busy;
    bool isNew = false;
    try {
        db::InTransaction(Session().Connection, [&] { isNew = writeEntry(key, providerId); });
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error saving appointment. "), error);
        return false;
    }
    auditSave(isNew);
    if (isNew && key > 0)
        TellAddedAgain();
    return true;
}

bool frmnore::writeEntry(int key, const QString& providerId) {
    Recordset row(AppointmentStatement(key), Session().Connection, db::Lock::Optimistic);
    const bool isNew = row.Eof();
    if (!isNew)
        db::RequireUnchanged(loadedState_, writtenState(row));
    if (isNew)
        row.AddNew();
    writeFields(row, isNew, providerId);
    if (!isNew && key > 0 && !(roomUnread_ && cborooms->ListIndex() < 0))
        Session().Connection.Execute(Sql("Delete  from roomschedule Where apptid = {}", key));
    row.Update();
    if (cborooms->ListIndex() >= 0)
        insertRoom(static_cast<int>(row["nkeyid"].integer()));
    return isNew;
}

db::RowState frmnore::writtenState(const Recordset& row) {
    static constexpr std::array columns{
        "nStartTime", "nEndTime",         "dapptdate",      "cappttext",   "appointment_type", "CLOCATION",
        "BLOCATEICO", "BremindIco",       "ReminderTime",   "BPrivateIco", "appttype",         "ncolor",
        "BTentIco",   "patientid",        "PatientAcct",    "hphone",      "wphone",           "clinicianid",
        "CapptNote",  "lastmodifieddate", "lastmodifieduid"};
    return {row, columns};
}

void frmnore::writeFields(Recordset& row, bool isNew, const QString& providerId) {
    if (isNew) {
        row.Set("createddate", Now());
        row.Set("createduid", Session().UID);
    }
    const int start = ctstart->Time();
    row.Set("nStartTime", start);
    row.Set("nEndTime", ctend->Time());
    row.Set("dapptdate", ctedate->Date());
    row.Set("cappttext", entryText());
    row.Set("appointment_type", cboapttype->ListIndex() >= 0 ? db::Value(cboapttype->ItemData()) : db::Value());
    row.Set("CLOCATION", cbolocation->Text());
    row.Set("BLOCATEICO", cbolocation->Text().isEmpty() ? 0 : 1);
    row.Set("BremindIco", ckAlarm->isChecked() ? 1 : 0);
    const int lead = alarmLeadMinutes_ > 0 ? alarmLeadMinutes_ : UsualLeadMinutes;
    row.Set("ReminderTime", ckAlarm->isChecked() ? db::Value(start - lead) : db::Value());
    row.Set("BPrivateIco", 0);
    if (request_.ApptKind == apptkind::TypeSlot)
        row.Set("appttype", ApptTypeSlot);
    writeKind(row);
    row.Set("clinicianid", providerId);
    row.Set("CapptNote", cbocpt->Text() + QLatin1Char('|') + txtnotes->StoredText());
    row.Set("lastmodifieddate", Now());
    row.Set("lastmodifieduid", Session().UID);
}

void frmnore::writeKind(Recordset& row) {
    switch (request_.ApptKind) {
        case apptkind::Patient:
            writePatient(row);
            break;
        case apptkind::Activity:
            row.Set("ncolor", ncolor::Activity);
            break;
        case apptkind::Unavailable:
            row.Set("ncolor", ncolor::Unavailable);
            break;
        default:
            row.Set("ncolor", categoryColour_);
            row.Set("appointment_type", categoryColour_);
    }
}

void frmnore::writePatient(Recordset& row) {
    if (cbostatus->ListIndex() >= 0)
        row.Set("ncolor", cbostatus->ItemData());
    row.Set("BTentIco", cbostatus->ItemData() == ncolor::Tentative ? 1 : 0);
    row.Set("patientid", patientTag_);
    row.Set("PatientAcct", txtaccount->text());
    row.Set("hphone", lblHPhone->text().left(LongestPhoneCopy));
    row.Set("wphone", lblwphone->text().left(LongestPhoneCopy));
}

void frmnore::insertRoom(int apptKey) {
    QString text;
    switch (request_.ApptKind) {
        case apptkind::Patient:
            text = request_.provider.name;
            break;
        case apptkind::Activity:
            text = cboevents->Text();
            break;
        case apptkind::TypeSlot:
            text = cbocats->Text();
            break;
        default:
            break;
    }
    BookRoom(cborooms->ItemData(), apptKey, ctstart->Time(), ctend->Time(), ctedate->Date(), text);
}

void frmnore::auditSave(bool isNew) const {
    const QString date = ctedate->Text();
    const QString time = ctstart->Text();
    if (isNew)
        AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Add Appointment"), {},
                 QStringLiteral("Added Appointment on %1 at %2 for %3").arg(date, time, entryText()));
    else
        AuditLog(Session().UID, QStringLiteral("Scheduler"), QStringLiteral("Modify Appointment"), {},
                 QStringLiteral("Modified Appointment (%1) to %2 at %3 for %4")
                     .arg(originalSlot_, date, time, entryText().left(LongestAuditedText)));
}
