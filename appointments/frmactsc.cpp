#include "appointments/frmactsc.h"

#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>

#include "appointments/apptlists.h"
#include "appointments/attendeelist.h"
#include "appointments/attendeepanel.h"
#include "appointments/conflictstatus.h"
#include "appointments/durationlabel.h"
#include "appointments/frmeconflict.h"
#include "data/codes.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr char ProvidersStatement[] =
    "Select id, prov_lastname from provider_info Where Archive = 0 Order by prov_lastname";

}  // namespace

frmactsc::frmactsc(const ActivityRequest& request, QWidget* parent) : EditorDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmactsc"));
    setWindowTitle(QStringLiteral("Activity Scheduler"));
    buildForm();
    connectFields();
    load();
    HeadByAttendees(*FormHeading::Above(*this, tr("Activity/Event")), *ctDEditComp, *List1);
    FitToScreen(*this);
}

// The focus leaves its field when the form goes, which must still find the whole form.
frmactsc::~frmactsc() {
    hide();
}

QString frmactsc::Subject() const {
    return tr("activity on %1 at %2").arg(ctDEditComp->Text(), ctstart->Text());
}

void frmactsc::load() {
    const BusyPointer busy;
    const db::ReadTogether together(Session().Connection, loadStatements());
    ctDEditComp->setDateOrder(Session().DateOrder);
    for (ctDEdit* time : {ctstart, ctend})
        time->setTwentyFourHour(Session().MilitaryTime);
    LoadEvents(*cboevents);
    loadprovs();
    LoadLocations(*cbolocation);
    if (key_ == 0)
        ctDEditComp->setDate(request_.date);
    else
        LoadGroupEvent();
    showSlot();
    eventTyped_ = false;
    locationTyped_ = false;
    attendeesChanged = false;
    dirty = key_ != 0 && request_.slot.has_value();
}

QString frmactsc::eventStatement(int key) {
    return Sql(
        "Select * from Appointments Inner Join AppointmentsEvents on appointments.nkeyid = appointmentsevents.nkeyid Where appointments.nkeyid = {}",
        key);
}

QStringList frmactsc::loadStatements() const {
    QStringList statements{EventsStatement, ProvidersStatement, LocationsStatement};
    if (key_ != 0)
        statements << eventStatement(key_);
    return statements;
}

void frmactsc::loadprovs() {
    QList<ListedProvider> providers;
    LoadList(ProvidersStatement, QStringLiteral("Error loading provider list. "), [&](const Recordset& row) {
        providers.append({row["id"].text(), row["prov_lastname"].text()});
    });
    List1->AddProviders(providers);
}

void frmactsc::LoadGroupEvent() {
    try {
        Recordset rows(eventStatement(key_), Session().Connection);
        if (rows.Eof())
            return;
        const db::RowState state = ActivityState(rows);
        cboevents->SetText(rows["cappttext"].text());
        cbolocation->SetText(rows["CLOCATION"].text());
        ctDEditComp->setDate(rows["dapptdate"].date());
        ctstart->setTime(static_cast<int>(rows["nStartTime"].integer()));
        ctend->setTime(static_cast<int>(rows["nEndTime"].integer()));
        QStringList attendees;
        for (; !rows.Eof(); rows.MoveNext())
            attendees << rows[QStringLiteral("appointmentsevents.clinicianid")].text();
        // A server promises no order, and who left the practice would stand elsewhere each time.
        attendees.sort(Qt::CaseInsensitive);
        for (const QString& id : attendees)
            showAttendee(id);
        storedAttendees_ = attendees;
        storedState_ = state;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment. "), error);
    }
}

// Who has left the practice since is on no list, and would leave the Activity unseen with the next save.
void frmactsc::showAttendee(const QString& id) {
    if (List1->FindProvider(id) < 0) {
        const Recordset provider(Sql("Select prov_lastname from provider_info Where id = '{}'", id),
                                 Session().Connection);
        const QString name = provider.Eof() ? QString() : provider["prov_lastname"].text();
        List1->AddProvider(id, tr("%1 (no longer on the list)").arg(name.isEmpty() ? id : name));
    }
    List1->SelectProvider(List1->FindProvider(id));
}

void frmactsc::showSlot() {
    if (const std::optional<SelectedSlot>& slot = request_.slot) {
        ctDEditComp->setDate(slot->date);
        ctstart->setTime(slot->start);
        ctend->setTime(slot->end);
    }
}

void frmactsc::showWeekday() {
    const QDate date = ctDEditComp->Date();
    lblweekday->setText(date.isValid() ? QLocale::c().dayName(date.dayOfWeek()) : QString());
}

void frmactsc::showCut() {
    QStringList hints;
    if (cboevents->Text().size() > LongestText)
        hints << tr("Only the first %1 characters of the event are kept.").arg(LongestText);
    if (cbolocation->Text().size() > LongestLocation)
        hints << tr("Only the first %1 characters of the location are kept.").arg(LongestLocation);
    lblcut->setText(hints.join(QLatin1Char('\n')));
}

void frmactsc::leaveList(Qt::FocusReason reason) {
    if (!PressesButton(reason))
        offerUnknownItems();
}

void frmactsc::offerUnknownItems() {
    if (eventTyped_) {
        eventTyped_ = false;
        OfferUnknownItem(*cboevents, GrowingList::Events);
    }
    if (locationTyped_) {
        locationTyped_ = false;
        OfferUnknownItem(*cbolocation, GrowingList::Locations);
    }
}

// Enter and the Alt key do not leave the field in which the user stands.
void frmactsc::settleFields() {
    for (ctDEdit* field : {ctDEditComp, ctstart, ctend})
        field->setText(field->Text());
}

bool frmactsc::refuse(const QString& message, QWidget* field, const QString& title) {
    MsgBox(message, ExclamationBox, title);
    field->setFocus();
    return false;
}

QString frmactsc::ListedProviders() const {
    QStringList quoted;
    for (const QString& id : List1->SelectedIds())
        quoted << Sql("'{}'", id);
    return quoted.join(QStringLiteral(", "));
}

void frmactsc::busySearch() {
    settleFields();
    if (!searchIsComplete())
        return;
    try {
        const QStringList names = busyNames();
        if (names.isEmpty()) {
            MsgBox(QStringLiteral("No conflicts found for selected attendees."), InformationBox, windowTitle());
            return;
        }
        frmeConflict conflicts(this);
        const QHash<QString, QStringList> statuses = busyStatuses();
        for (const QString& name : names)
            conflicts.AddProvider(name, statuses.value(name).join(QLatin1Char('\n')));
        ShowModal(conflicts);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error checking for conflicts. "), error);
    }
}

bool frmactsc::searchIsComplete() {
    if (ctDEditComp->Value() < FirstValidDate)
        return refuse(QStringLiteral("Enter a valid date."), ctDEditComp);
    if (ctstart->Value() == NoTime)
        return refuse(QStringLiteral("Enter a start time"), ctstart);
    if (ctend->Value() == NoTime)
        return refuse(QStringLiteral("Enter a start time"), ctend);
    if (ctstart->Time() >= ctend->Time())
        return refuse(QStringLiteral("End time must be later than start time"), ctend);
    if (List1->SelectedIds().isEmpty())
        return refuse(QStringLiteral("Enter one or more providers to attend"), List1);
    return true;
}

// By name, as the list knows the providers. What cannot be read is left out of the tips.
QHash<QString, QStringList> frmactsc::busyStatuses() const {
    QHash<QString, QStringList> byId;
    db::Ignoring([&] {
        byId =
            BusyStatuses(Session().Connection, ListedProviders(), ctDEditComp->Date(), ctstart->Time(), ctend->Time());
    });
    QHash<QString, QStringList> byName;
    for (auto each = byId.cbegin(); each != byId.cend(); ++each)
        if (const int row = List1->FindProvider(each.key()); row >= 0)
            byName[List1->ProviderName(row)] << each.value();
    return byName;
}

QStringList frmactsc::busyNames() const {
    const BusyPointer busy;
    const db::Raw ids{ListedProviders()};
    const int start = ctstart->Time();
    const int end = ctend->Time();
    QStringList names;
    for (
        Recordset rows(
            Sql("SELECT appointments.ClinicianId as [AptClId], appointmentsEvents.ClinicianId as [EvClId] FROM appointments LEFT JOIN appointmentsEvents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE ((appointments.ClinicianID IN({}))  or  (appointmentsEvents.ClinicianID IN({}))) AND dapptdate = '{}' AND (({} BETWEEN nstarttime AND nendtime) OR ({} BETWEEN nstarttime AND nendtime) OR (nstarttime BETWEEN {} AND {}))",
                ids, ids, ctDEditComp->Date(), start, end, start, end),
            Session().Connection);
        !rows.Eof(); rows.MoveNext()) {
        const QString owner = rows["AptClId"].text();
        const int row = List1->FindProvider(owner == QLatin1String(EventClinicianId) ? rows["EvClId"].text() : owner);
        if (row >= 0)
            names << List1->ProviderName(row);
    }
    return names;
}
