#include <algorithm>
#include <QHash>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include "appointments/frmgrptx.h"
#include "appointments/patientcontacts.h"
#include "data/pipefields.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

// A member without an end stays in the group.
bool takesPart(const Recordset& member, QDate date) {
    const QDate start = member["startDate"].date();
    const QDate end = member["enddate"].date();
    return start.isValid() && start <= date && (!end.isValid() || date <= end);
}

}  // namespace

// Whoever picks the group that stands there already keeps the boxes checked so far.
void frmgrptx::chooseGroup() {
    QHash<QString, Boxes> before;
    if (cbogroup->ItemData() == groupOnList_)
        for (int row = 0; row < ctList1->RowCount(); ++row)
            before.insert(patientId(row), {ctList1->Checked(row, SchdColumn), ctList1->Checked(row, KeptColumn)});
    loadmembers();
    if (key_ != 0)
        loadgroupstatus();
    for (int row = 0; row < ctList1->RowCount(); ++row)
        if (const auto boxes = before.constFind(patientId(row)); boxes != before.cend()) {
            ctList1->SetChecked(row, SchdColumn, boxes->scheduled);
            ctList1->SetChecked(row, KeptColumn, boxes->kept);
        }
    showMembers();
}

void frmgrptx::loadmembers() {
    const BusyPointer busy;
    ctList1->Clear();
    groupOnList_ = cbogroup->ItemData();
    membersOf_ = ctedate->Date();
    try {
        for (
            Recordset rows(
                Sql("SELECT startDate, enddate, patient_info.last_name, patient_info.first_name, patient_info.id, acctnbr, telephone_h, telephone_b  FROM ((Groups INNER JOIN GroupMembers ON Groups.GroupID = GroupMembers.GroupID) INNER JOIN provider_info ON Groups.Leader = provider_info.id) INNER JOIN patient_info ON GroupMembers.PatientID = patient_info.id Where activestatus = 1 and groups.groupid = {} Order by last_name, first_name",
                    groupOnList_),
                Session().Connection);
            !rows.Eof(); rows.MoveNext()) {
            if (!takesPart(rows, membersOf_))
                continue;
            addMember({rows["id"].text(), rows["acctnbr"].text(), rows["telephone_h"].text()},
                      rows["last_name"].text() + QStringLiteral(", ") + rows["first_name"].text(),
                      ContactText(rows, "telephone_h"), ContactText(rows, "telephone_b"),
                      {.scheduled = request_.IsNewAppt, .kept = false});
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading groups members. "), error);
    }
    showMembers();
}

QString frmgrptx::savedMembersStatement(int key) {
    return Sql("Select * from AppointmentsGroup Where nKeyId = {} Order by PatientName", key);
}

// The telephones are the patients' of today, read at once for all of them.
QString frmgrptx::savedPhonesStatement(int key) {
    return Sql(
        "Select id, telephone_h, telephone_b from patient_info Where id In (Select PatientId from AppointmentsGroup Where nKeyId = {})",
        key);
}

void frmgrptx::loadsavedmembers() {
    try {
        struct Phones {
            QString home;
            QString work;
        };
        QHash<QString, Phones> phones;
        for (Recordset rows(savedPhonesStatement(key_), Session().Connection); !rows.Eof(); rows.MoveNext())
            phones.insert(rows["id"].text().toLower(),
                          {ContactText(rows, "telephone_h"), ContactText(rows, "telephone_b")});
        GroupAttendance saved;
        std::vector<GroupFields::Member> first;
        for (Recordset rows(savedMembersStatement(key_), Session().Connection); !rows.Eof(); rows.MoveNext()) {
            const QString id = rows["PatientId"].text();
            const bool kept = rows["kept"].integer() == 1;
            const Phones phone = phones.value(id.toLower());
            addMember({id, rows["PatientAcct"].text(), rows["HPhone"].text()}, rows["PatientName"].text(), phone.home,
                      phone.work, {.scheduled = true, .kept = kept});
            saved.insert(id, kept);
            first.push_back({id, rows["PatientAcct"].text(), rows["PatientName"].text(), kept});
            groupOnList_ = static_cast<int>(rows["GroupId"].integer());
        }
        stored_.members = saved;
        firstMembers_ = std::move(first);
        // The name may be another group's today, and the group may have another name.
        if (cbogroup->FindItemData(groupOnList_) >= 0)
            setmembers(groupOnList_);
        else
            groupOnList_ = cbogroup->ItemData();
    } catch (const db::DatabaseError& error) {
        // Half of the members would be saved as if they were all.
        ctList1->Clear();
        TellError(QStringLiteral("Error loading groups members. "), error);
    }
}

void frmgrptx::loadgroupstatus() {
    try {
        const GroupAttendance saved = AttendanceOf(key_);
        for (int row = 0; row < ctList1->RowCount(); ++row)
            if (const auto member = saved.constFind(patientId(row)); member != saved.cend()) {
                ctList1->SetChecked(row, SchdColumn, true);
                ctList1->SetChecked(row, KeptColumn, *member);
            }
        stored_.members = saved;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading groups member attendance list. "), error);
    }
}

void frmgrptx::cmdLoadMembers_Click() {
    cbogroup->Settle();
    ctedate->setText(ctedate->Text());
    if (cbogroup->ListIndex() < 0)
        return;
    if (ctList1->RowCount() == 0) {
        chooseGroup();
        return;
    }
    if (MsgBox(
            QStringLiteral(
                "Refreshing members will delete the members displayed and re-load members based on their effective dates in group. You will need to re-check attendance for each. Continue?"),
            YesNoBox, QStringLiteral("Solvane")) != Answer::Yes)
        return;
    if (!DeleteSavedMembers())
        return;
    dirty = true;
    loadmembers();
    for (int row = 0; row < ctList1->RowCount(); ++row)
        ctList1->SetChecked(row, SchdColumn, true);
    showMembers();
}

// Nothing is reloaded where the old members are still stored: their attendance would be lost unseen.
bool frmgrptx::DeleteSavedMembers() {
    if (key_ == 0)
        return true;
    try {
        Session().Connection.Execute(Sql("Delete from AppointmentsGroup Where nKeyId = {}", key_));
        membersDeleted_ = membersDeleted_ || !stored_.members || !stored_.members->isEmpty();
        stored_.members = GroupAttendance();
        return true;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting group members. "), error);
        return false;
    }
}

void frmgrptx::cmdkept_Click() {
    for (int row = 0; row < ctList1->RowCount(); ++row)
        ctList1->SetChecked(row, KeptColumn, !ctList1->Checked(row, KeptColumn));
    dirty = true;
    showMembers();
}

// Who was given to the group twice is in it once.
void frmgrptx::addMember(const Mark& mark, const QString& name, const QString& homePhone, const QString& workPhone,
                         Boxes boxes) {
    if (ctList1->FindItemData(mark.patientId) >= 0)
        return;
    const int row = ctList1->AddRow(
        {QString::number(boxes.scheduled ? 1 : 0), name, QString::number(boxes.kept ? 1 : 0), homePhone, workPhone},
        mark.patientId);
    ctList1->SetItemText(row, QStringList{mark.patientId, CleanFieldText(mark.account), mark.homePhone}.join(u'|'));
}

QString frmgrptx::patientId(int row) const {
    return GetPipeField(ctList1->ItemText(row), 1);
}

QString frmgrptx::getgrpmembers() const {
    QString names;
    for (int row = 0; row < ctList1->RowCount(); ++row)
        if (ctList1->Checked(row, SchdColumn))
            names += ctList1->Cell(row, NameColumn) + QStringLiteral("; ");
    return names;
}

void frmgrptx::showMembers() {
    const int count = ctList1->RowCount();
    cmdLoadMembers->setText(count > 0 ? QStringLiteral("Refresh &Members") : QStringLiteral("Load &Members"));
    cmdLoadMembers->setEnabled(cbogroup->ListIndex() >= 0);
    cmdkept->setEnabled(count > 0);
    enableOk();
    QStringList lines;
    if (count > 0) {
        int scheduled = 0;
        int kept = 0;
        int keptOnly = 0;
        for (int row = 0; row < count; ++row) {
            const bool isScheduled = ctList1->Checked(row, SchdColumn);
            const bool isKept = ctList1->Checked(row, KeptColumn);
            scheduled += isScheduled ? 1 : 0;
            kept += isScheduled && isKept ? 1 : 0;
            keptOnly += !isScheduled && isKept ? 1 : 0;
        }
        lines << tr("%1 of %2 scheduled, %3 kept").arg(scheduled).arg(count).arg(kept);
        if (keptOnly > 0)
            lines << tr("Kept is stored only for who is scheduled (%1 not).").arg(keptOnly);
    } else if (key_ != 0 && (!stored_.members || !stored_.members->isEmpty())) {
        lines << tr("The members that are stored for this appointment are not loaded. Load Members loads them.");
    } else if (cbogroup->ListIndex() >= 0) {
        lines << tr("Nobody takes part in this group on this date, or the group has no leader or is not active.");
    } else {
        lines << tr("Choose a group to see its members.");
    }
    if (count > 0 && membersOf_.isValid() && ctedate->Date().isValid() && membersOf_ != ctedate->Date())
        lines << tr("These are the members of %1. Refresh Members loads those of the new date.")
                     .arg(ShortDateText(membersOf_));
    lblmembers->setText(lines.join(u'\n'));
}
