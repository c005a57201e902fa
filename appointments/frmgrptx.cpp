#include "appointments/frmgrptx.h"

#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include "appointments/appointmentrows.h"
#include "appointments/apptlists.h"
#include "appointments/editorparts.h"
#include "data/pipefields.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

using db::Recordset;

namespace {

constexpr char GroupsStatement[] = "Select * from Groups Order by GroupName";

}  // namespace

frmgrptx::frmgrptx(const EditorRequest& request, QWidget* parent) : EditorDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmgrptx"));
    setWindowTitle(request_.IsNewAppt ? QStringLiteral("New Group Appointment")
                                      : QStringLiteral("Edit Group Appointment"));
    buildForm();
    connectFields();
    connectMembers();
    load();
    FormHeading* heading = FormHeading::Above(*this, tr("Group Therapy"));
    heading->SetWhom(request_.provider.name);
    heading->FollowDay(*ctedate);
    FitToScreen(*this);
}

// The focus leaves its field when the form goes, which must still find the whole form.
frmgrptx::~frmgrptx() {
    hide();
}

QString frmgrptx::Subject() const {
    return EntrySubject(ctedate->Text(), ctstart->Text());
}

void frmgrptx::setmembers(int groupId) {
    cbogroup->SetListIndex(cbogroup->FindItemData(groupId));
}

void frmgrptx::load() {
    const BusyPointer busy;
    const db::ReadTogether together(Session().Connection, loadStatements());
    ctedate->setDateOrder(Session().DateOrder);
    for (ctDEdit* time : {ctstart, ctend})
        time->setTwentyFourHour(Session().MilitaryTime);
    cbolocation->SetMaxLength(LongestLocation);
    loadgroups();
    LoadLocations(*cbolocation);
    LoadRooms(*cborooms);
    cborooms->setEnabled(cborooms->count() > 0);
    const bool dayStands = request_.CurrentView == View::Day;
    for (QWidget* ofDate :
         {static_cast<QWidget*>(ctedate), static_cast<QWidget*>(lbldate), static_cast<QWidget*>(lblweekday)})
        ofDate->setVisible(!dayStands);
    if (!request_.IsNewAppt)
        LoadAppointment();
    showSlot();
    showMembers();
    locationTyped_ = false;
    dirty = false;
}

QStringList frmgrptx::loadStatements() const {
    QStringList statements{GroupsStatement, LocationsStatement, RoomsStatement};
    if (!request_.IsNewAppt)
        statements << AppointmentStatement(key_) << ApptRoomStatement(key_) << savedPhonesStatement(key_)
                   << savedMembersStatement(key_);
    return statements;
}

void frmgrptx::loadgroups() {
    LoadList(GroupsStatement, QStringLiteral("Error loading groups. "), [this](const Recordset& row) {
        if (const QString name = row["GroupName"].text(); !name.isEmpty())
            cbogroup->AddItem(name, static_cast<int>(row["GroupId"].integer()));
    });
}

void frmgrptx::LoadAppointment() {
    try {
        const Recordset row(AppointmentStatement(key_), Session().Connection);
        if (row.Eof())
            return;
        showRow(row);
        stored_.row = GroupRowState(row);
        storedGroup_ = row["cappttext"].text();
        series_ = row["repeating"].integer() == 1 ? static_cast<int>(row["repeating_ref"].integer()) : 0;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment. "), error);
        return;
    }
    roomUnread_ = !ShowBookedRoom(*cborooms, key_);
    stored_.room = cborooms->ItemData();
    loadsavedmembers();
}

void frmgrptx::showRow(const Recordset& row) {
    ctedate->setDate(row["dapptdate"].date());
    ctstart->setTime(static_cast<int>(row["nStartTime"].integer()));
    ctend->setTime(static_cast<int>(row["nEndTime"].integer()));
    cbolocation->SetText(row["CLOCATION"].text());
    txtnotes->setPlainText(GetPipeField(row["CapptNote"].text(), 2));
    // A group that is on no list any more keeps its name; its members are still those of the appointment.
    const QString group = row["cappttext"].text();
    if (cbogroup->FindExact(group) < 0)
        cbogroup->AddItem(group);
    cbogroup->SetListIndex(cbogroup->FindExact(group));
    membersOf_ = ctedate->Date();
}

void frmgrptx::showSlot() {
    if (!request_.slot)
        return;
    ctedate->setDate(request_.slot->date);
    ctstart->setTime(request_.slot->start);
    ctend->setTime(request_.slot->end);
}

void frmgrptx::showWeekday() {
    const QDate date = ctedate->Date();
    lblweekday->setText(date.isValid() ? QLocale::c().dayName(date.dayOfWeek()) : QString());
}

void frmgrptx::leaveLocation(Qt::FocusReason reason) {
    if (!PressesButton(reason))
        offerUnknownLocation();
}

void frmgrptx::offerUnknownLocation() {
    if (!locationTyped_)
        return;
    locationTyped_ = false;
    OfferUnknownItem(*cbolocation, GrowingList::Locations);
}

bool frmgrptx::okenabled() const {
    return ctstart->Value() > FirstValidTime && ctend->Value() > FirstValidTime && ctList1->RowCount() > 0 &&
           (request_.CurrentView != View::Week || ctedate->Value() > FirstValidDate);
}

void frmgrptx::enableOk() {
    cmdOk->setEnabled(okenabled());
}
