#include "appointments/writeoutcome.h"
#include "companion/companionrefusals.h"
#include "companion/companiontime.h"
#include "companion/frmfhappt.h"
#include "companion/keyedcombo.h"
#include "data/minutetime.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/notefield.h"
#include "platform/controls/noticebar.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Raw;
using db::Recordset;
using db::Sql;

namespace {

void warn(const QString& text) {
    ShowNotice({text, Notice::Kind::Caution});
}

QString insertStatement(int ClientId, int ProvId, const CompanionAppointment& appointment) {
    const bool hasMemo = !appointment.memo.isEmpty();
    const Raw memoColumn{hasMemo ? QStringLiteral("CtrnNotes, ") : QString()};
    const Raw memoValue{hasMemo ? Sql("'{}', ", appointment.memo) : QString()};
    const QString now = CompanionNowText();
    const int user = Session().FHProviderId;
    return Sql(
        "Insert Into ClientTransactions (ClntID, TranID, Provid, CtrnDate, CtrnTime,  CtrnDuration, CtrnStatus, CTRNDiagnosisPointer, CTRNDiagnosisPointerS, ClaimSubmStatus, isICDBlock12, {}DateCreated, UserIDCreated, LastModifiedDate, UserIdLastModified, appt_status) Values({}, {}, {}, '{}', '{}', {}, 'S', 1, 'A', 0, 1, {}'{}', {}, '{}', {}, {})",
        memoColumn, ClientId, appointment.TranId, ProvId, appointment.date,
        CompanionTimeText(appointment.date, appointment.start.value_or(0)), appointment.duration, memoValue, now, user,
        now, user, appointment.status);
}

QString updateStatement(int CtrnId, const CompanionAppointment& appointment) {
    const Raw memo{appointment.memo.isEmpty() ? QStringLiteral("CTRNNotes = NUll, ")
                                              : Sql("CTRNNotes = '{}', ", appointment.memo)};
    return Sql(
        "Update ClientTransactions Set TranID = {}, CtrnDate = '{}', CtrnTime = '{}', CTRNDuration = {}, {}LastModifiedDate = '{}', UserIdLastModified = '{}', appt_status = {} Where CtrnId = {}",
        appointment.TranId, appointment.date, CompanionTimeText(appointment.date, appointment.start.value_or(0)),
        appointment.duration, memo, CompanionNowText(), Session().FHProviderId, appointment.status, CtrnId);
}

/// How the write of an appointment ended. Gone tells that the row was deleted meanwhile.
struct UpdateOutcome : WriteOutcome {
    QString refusal;  ///< Why the row, as it is now, was left alone.
    MergedAppointment merged;
};

/// Writes over the row what `merge` makes of it as it is now.
template <typename Merge>
void writeOver(db::Connection& companion, int CtrnId, UpdateOutcome& outcome, Merge&& merge) {
    // The row is held, so that nobody charges or moves it between this look and the write.
    const Recordset row(Sql("Select * from ClientTransactions With (UpdLock) Where CtrnId = {}", CtrnId), companion);
    if (row.Eof()) {
        outcome.end = WriteOutcome::End::Gone;
        return;
    }
    outcome.refusal = RefusalOf(row, NotModified);
    if (!outcome.refusal.isEmpty())
        return;
    outcome.merged = merge(AppointmentOf(row));
    companion.Execute(updateStatement(CtrnId, outcome.merged.appointment));
}

}  // namespace

CompanionAppointment frmFHAppt::entered() const {
    const int start = txtstarttime->Time();
    return {.TranId = cboChargetype->Key(),
            .date = txtdate->Date(),
            .start = start < 0 ? std::nullopt : std::optional(start % MinutesPerDay),
            .duration = static_cast<int>(txtduration->Value()),
            .memo = txtmemo->StoredText(),
            .status = cbostatus->ItemData()};
}

// A memo that was only shown keeps its own line ends.
MergedAppointment frmFHAppt::mergedWith(const CompanionAppointment& now) const {
    const CompanionAppointment wanted = MergeAppointment(shown_, entered(), loaded_).appointment;
    return MergeAppointment(loaded_, wanted, now);
}

bool frmFHAppt::SaveFHAppointment() {
    const BusyPointer busy;
    try {
        db::Connection companion;
        companion.Open(Session().FHConnectionString);
        companion.Execute(insertStatement(clientId_, cboProviders->Key(), entered()));
        // The key only serves to find the new row again in the schedule.
        db::Ignoring([&] { ctrnKey_ = static_cast<int>(companion.LastIdentity()); });
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error saving appointment to Fernhall. Error "), error, ExclamationBox);
        return false;
    }
    warnOfMidnight(entered());
    return true;
}

bool frmFHAppt::UpdateAppt(int CtrnId) {
    const BusyPointer busy;
    const auto outcome = AttemptWrite<UpdateOutcome>([&](UpdateOutcome& update) {
        db::Connection companion;
        companion.Open(Session().FHConnectionString);
        db::InTransaction(companion, [&] {
            writeOver(companion, CtrnId, update, [this](const CompanionAppointment& now) { return mergedWith(now); });
        });
    });
    if (outcome.failure)
        TellError(QStringLiteral("Error updating appointment in Fernhall. Error "), *outcome.failure, ExclamationBox);
    else if (!outcome.refusal.isEmpty())
        TellRefusal(outcome.refusal);
    else if (outcome.IsDone())
        tellWhatDiffers(outcome.merged);
    else
        warn(tr("The %1 was deleted in Fernhall meanwhile. Nothing was saved.").arg(Subject()));
    return !outcome.failure && outcome.refusal.isEmpty();
}

void frmFHAppt::tellWhatDiffers(const MergedAppointment& merged) const {
    QString changes;
    if (!merged.kept.isEmpty())
        changes += tr(" Kept from there: %1.").arg(merged.kept.join(QStringLiteral(", ")));
    if (!merged.replaced.isEmpty())
        changes += tr(" Replaced by yours: %1.").arg(merged.replaced.join(QStringLiteral(", ")));
    if (!changes.isEmpty())
        warn(tr("The %1 was changed in Fernhall meanwhile.").arg(Subject()) + changes);
    if (cboProviders->Key() != origProvId_)
        warn(tr("The %1 keeps its provider. Move it to another provider in the schedule or in Fernhall.")
                 .arg(Subject()));
    warnOfMidnight(merged.appointment);
}

void frmFHAppt::warnOfMidnight(const CompanionAppointment& appointment) const {
    if (appointment.start == 0)
        warn(tr("The %1 was saved, but the schedule shows no appointment that starts at midnight.").arg(Subject()));
}

void frmFHAppt::CompareSVNoteToFHTrans() const {
    QString changes;
    if (txtdate->Date() != origDate_)
        changes += QStringLiteral("Date, ");
    if (cboChargetype->Key() != origTranId_)
        changes += QStringLiteral("Service Code, ");
    if (cboProviders->Key() != origProvId_)
        changes += QStringLiteral("Provider, ");
    if (changes.isEmpty())
        return;
    changes.chop(2);
    MsgBox(
        QStringLiteral(
            "This appointment has a corresponding note in Solvane.\n\nThe change(s) you made to the %1 will not be reflected in the note.")
            .arg(changes),
        ExclamationBox, QStringLiteral("Solvane-Fernhall"));
}
