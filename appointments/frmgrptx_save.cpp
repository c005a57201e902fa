#include <algorithm>
#include <iterator>

#include "appointments/appointmentrows.h"
#include "appointments/conflicts.h"
#include "appointments/editorparts.h"
#include "appointments/frmgrptx.h"
#include "appointments/frmroster.h"
#include "data/pipefields.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/audit.h"
#include "session/errorbox.h"
#include "session/session.h"

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
    if (!saveappt(key_, request_.provider.id))
        return closeUnsaved();
    offerRoster();
    accept();
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

void frmgrptx::offerRoster() {
    // Another group has other members on purpose.
    if (series_ < 1 || !firstMembers_ || cbogroup->Text() != storedGroup_)
        return;
    using Member = GroupFields::Member;
    const std::vector<Member> now = entered(request_.provider.id).members;
    const auto without = [](const std::vector<Member>& members, const std::vector<Member>& others) {
        std::vector<Member> left;
        std::ranges::copy_if(members, std::back_inserter(left), [&](const Member& member) {
            return std::ranges::find(others, member.patientId, &Member::patientId) == others.end();
        });
        return left;
    };
    OfferRoster({key_, series_, cbogroup->ItemData(), storedGroup_, request_.provider.id, without(now, *firstMembers_),
                 without(*firstMembers_, now)},
                this);
}

QStringList frmgrptx::savingStatements(int key, const QString& providerId) const {
    const QDate date = ctedate->Date();
    const int start = ctstart->Time();
    const int end = ctend->Time();
    QStringList statements{ApptConflictStatement(key, date, start, end, {}, providerId), AppointmentStatement(key),
                           AttendanceStatement(key), ApptRoomStatement(key)};
    if (cborooms->ListIndex() >= 0)
        statements << RoomConflictStatements(key, date, start, end, cborooms->ItemData(), key);
    return statements;
}

bool frmgrptx::saveappt(int key, const QString& providerId) {
    const BusyPointer busy;
    const EntryOutcome outcome = SaveGroup(key, entered(providerId), stored_);
    if (outcome.failure) {
        TellError(WriteTrouble(outcome.step), *outcome.failure);
        return false;
    }
    audit(outcome.isNew);
    if (outcome.isNew && key > 0)
        TellAddedAgain();
    return true;
}

GroupFields frmgrptx::entered(const QString& providerId) const {
    GroupFields fields;
    fields.date = ctedate->Date();
    fields.start = ctstart->Time();
    fields.end = ctend->Time();
    fields.text = cbogroup->Text();
    fields.location = cbolocation->Text();
    fields.note = txtnotes->StoredText();
    fields.provider = providerId;
    fields.groupId = cbogroup->ItemData();
    fields.room = {cborooms->ItemData(), cbogroup->Text(), roomUnread_};
    for (int row = 0; row < ctList1->RowCount(); ++row) {
        const QString mark = ctList1->ItemText(row);
        if (ctList1->Checked(row, SchdColumn))
            fields.members.push_back({GetPipeField(mark, 1), GetPipeField(mark, 2), ctList1->Cell(row, NameColumn),
                                      ctList1->Checked(row, KeptColumn)});
    }
    return fields;
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
