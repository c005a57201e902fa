#include <algorithm>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include "appointments/alarmpreferences.h"
#include "appointments/appointmentrows.h"
#include "appointments/apptlists.h"
#include "appointments/frmnore.h"
#include "appointments/listicons.h"
#include "appointments/patientcontacts.h"
#include "appointments/patientrows.h"
#include "data/codes.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "data/statuses.h"
#include "people/typelengths.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int FacesheetAccountLabel = 2;
constexpr int AccountColumn = 2;
constexpr int LongestListItem = 50;
constexpr int PendingIndex = 2;

int numberIn(const Recordset& row, const char* column) {
    return static_cast<int>(row[column].integer());
}

QString momentText(const QDateTime& moment) {
    if (!moment.isValid())
        return {};
    const int minute = moment.time().hour() * 60 + moment.time().minute();
    return ShortDateText(moment.date()) + u' ' + MinutesToTimeText(minute, Session().MilitaryTime);
}

constexpr char AvailabilityStatement[] = "Select * from availability Order by avail";
constexpr char CategoriesStatement[] = "Select * from AptCategories Order by AptCategory";
constexpr char SessionTypesStatement[] = "Select * from session_types Order by sess_cpt_code";

QString facesheetStatement(int id) {
    return Sql("Select * from facesheet Where FacesheetId = {}", id);
}

QString typeStatement(int key) {
    return Sql("Select Appointment_Type from appointments Where Appointment_Type is not null and nkeyid = {}", key);
}

QString facesheetLabel(int id) {
    QString label;
    db::Ignoring([&] {
        const Recordset item(facesheetStatement(id), Session().Connection);
        if (!item.Eof())
            label = item["facesheetitem"].text();
    });
    return label;
}

}  // namespace

// The order of the steps is fixed: which list was read last decides which error is told first.
void frmnore::load() {
    const BusyPointer busy;
    const db::ReadTogether together(Session().Connection, loadStatements());
    showFormats();
    showCaptions();
    for (CompletingCombo* box : {cbolocation, cboevents, cboavail})
        box->SetMaxLength(LongestListItem);
    ckAlarm->setChecked(GetAlarmStatus(Session().ProviderId));
    alarmLeadMinutes_ = GetAlarmTime(Session().ProviderId);
    loadKind();
    const bool dayStands = request_.CurrentView == View::Day;
    for (QWidget* ofDate :
         {static_cast<QWidget*>(ctedate), static_cast<QWidget*>(lbldate), static_cast<QWidget*>(lblweekday)})
        ofDate->setVisible(!dayStands);
    if (!request_.IsNewAppt) {
        setWindowTitle(QStringLiteral("Edit Appointment"));
        cmdnewpat->hide();
        cmdPatientList->setEnabled(false);
        LoadAppointment();
    }
    originalSlot_ = ctedate->Text() + QStringLiteral(" at ") + ctstart->Text();
    availOrEventTyped_ = false;
    locationTyped_ = false;
    dirty = false;
    showSlot();
}

QStringList frmnore::loadStatements() const {
    const QString& provider = Session().ProviderId;
    QStringList statements = statementsOfKind() << facesheetStatement(FacesheetAccountLabel)
                                                << AlarmStatusStatement(provider) << AlarmTimeStatement(provider);
    if (!request_.IsNewAppt)
        statements << AppointmentStatement(key_) << ApptRoomStatement(key_);
    return statements;
}

QStringList frmnore::statementsOfKind() const {
    switch (request_.ApptKind) {
        case apptkind::Activity:
            return {LocationsStatement, EventsStatement, RoomsStatement};
        case apptkind::Unavailable:
            return {AvailabilityStatement};
        case apptkind::TypeSlot:
            return {LocationsStatement, CategoriesStatement, RoomsStatement, TypeLengthsStatement()};
        default:
            return {SessionTypesStatement, LocationsStatement,     RoomsStatement,
                    CategoriesStatement,   TypeLengthsStatement(), typeStatement(key_)};
    }
}

void frmnore::showFormats() {
    ctedate->setDateOrder(Session().DateOrder);
    for (ctDEdit* time : {ctstart, ctend})
        time->setTwentyFourHour(Session().MilitaryTime);
}

void frmnore::showCaptions() {
    const QString account = facesheetLabel(FacesheetAccountLabel);
    Label14->setText(CaptionText(account));
    // A practice may have no word for it on paper; a screen reader needs one.
    txtaccount->setAccessibleName(account.isEmpty() ? tr("Acct #") : account);
    if (!account.isEmpty())
        ctList1->SetHeader(AccountColumn, account);
    const QString patient = CaptionText(Session().WordUsage);
    Label1->setText(QLatin1Char('&') + patient + QLatin1Char(':'));
    cmdnewpat->setText(QStringLiteral("Add Ne&w ") + patient);
}

void frmnore::loadKind() {
    const int kind = request_.ApptKind;
    for (int page = 0; page < KindCount; ++page)
        fraappttype[static_cast<std::size_t>(page)]->setVisible(page == kind - apptkind::Patient);
    for (QWidget* ofPatient : {fraservice, frastatus, static_cast<QWidget*>(ckemail)})
        ofPatient->setVisible(kind == apptkind::Patient);
    Frame1->setVisible(kind != apptkind::Unavailable);
    XPFrame201->setVisible(kind != apptkind::Unavailable);
    SSCheck1->setEnabled(kind != apptkind::Patient);
    switch (kind) {
        case apptkind::Activity:
            LoadLocations(*cbolocation);
            LoadEvents(*cboevents);
            loadroomslist();
            break;
        case apptkind::Unavailable:
            loadavail();
            break;
        case apptkind::TypeSlot:
            LoadLocations(*cbolocation);
            loadcats();
            loadroomslist();
            break;
        default:
            loadPatientKind();
    }
}

void frmnore::loadPatientKind() {
    loadsesstypes();
    LoadLocations(*cbolocation);
    loadroomslist();
    loadcats();
    SetApptType(key_);
    fillStatus();
    if (request_.IsNewAppt)
        cbostatus->SetListIndex(PendingIndex);
}

void frmnore::loadavail() {
    LoadList(AvailabilityStatement, QStringLiteral("Error loading availability items. "),
             [this](const Recordset& row) { cboavail->AddItem(row["avail"].text()); });
}

void frmnore::loadcats() {
    const QHash<int, int> lengths = TypeLengths();
    LoadList(CategoriesStatement, QStringLiteral("Error loading appointment categories. "),
             [this, &lengths](const Recordset& row) {
                 const QString name = row["aptcategory"].text();
                 const int colour = numberIn(row, "aptcategorycolor");
                 if (name.isEmpty())
                     return;
                 cbocats->AddItem(name, colour, ColourIcon(colour));
                 cboapttype->AddItem(name, colour, ColourIcon(colour));
                 typeMinutes_.insert(colour, lengths.value(numberIn(row, "aptcategoryid")));
             });
}

void frmnore::loadsesstypes() {
    LoadList(SessionTypesStatement, QStringLiteral("Error loading session types. "), [this](const Recordset& row) {
        cbocpt->AddItem(row["sess_cpt_code"].text() + QStringLiteral("  ") + row["sess_cpt_name"].text(),
                        numberIn(row, "sess_cpt_time"));
    });
}

void frmnore::loadroomslist() {
    LoadRooms(*cborooms);
    cborooms->setEnabled(cborooms->count() > 0);
    cmdrooms->setEnabled(cborooms->count() > 0);
}

void frmnore::fillStatus() {
    for (const int code : ncolor::PatientRows)
        cbostatus->AddItem(QString::fromLatin1(StatusOf(code).word), code, StatusIcon(code));
}

void frmnore::SetApptType(int key) {
    if (cboapttype->count() == 0)
        return;
    try {
        const Recordset row(typeStatement(key), Session().Connection);
        if (!row.Eof())
            cboapttype->SetListIndex(cboapttype->FindItemData(numberIn(row, "Appointment_Type")));
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error setting appointment type. "), error);
    }
}

void frmnore::LoadAppointment() {
    const bool ofPatient = request_.ApptKind == apptkind::Patient;
    try {
        const Recordset row(AppointmentStatement(key_), Session().Connection);
        if (row.Eof())
            return;
        const db::ReadTogether patient(
            Session().Connection,
            ofPatient ? ShownPatientStatements(row["patientid"].text(), row["dapptdate"].date()) : QStringList());
        showRow(row);
        loadedState_ = EntryState(row);
        showRoom();
        if (ofPatient)
            showAuthorization();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading appointment. "), error);
    }
}

void frmnore::showRow(const Recordset& row) {
    ctstart->setTime(numberIn(row, "nStartTime"));
    ctend->setTime(numberIn(row, "nEndTime"));
    ctedate->setDate(row["dapptdate"].date());
    lblcreated->setText(
        QStringLiteral("Created: %1 (%2)").arg(momentText(row["createddate"].dateTime()), row["createduid"].text()));
    lblmodified->setText(QStringLiteral("Last Modified: %1 (%2)")
                             .arg(momentText(row["lastmodifieddate"].dateTime()), row["lastmodifieduid"].text()));
    switch (request_.ApptKind) {
        case apptkind::Activity:
            cboevents->SetText(row["cappttext"].text());
            break;
        case apptkind::Unavailable:
            cboavail->SetText(row["cappttext"].text());
            break;
        case apptkind::TypeSlot:
            showCategory(row);
            break;
        default:
            showPatient(row);
    }
    cbolocation->SetText(row["CLOCATION"].text());
    ckAlarm->setChecked(row["BremindIco"].boolean());
    txtnotes->setPlainText(GetPipeField(row["CapptNote"].text(), 2));
}

void frmnore::showPatient(const Recordset& row) {
    const QString id = row["patientid"].text();
    txtpatients->setText(row["cappttext"].text());
    txtpatients->setReadOnly(true);
    SetPatientTag(id);
    txtaccount->setText(row["PatientAcct"].text());
    // The patient's present record wins over the copies in the row.
    lblHPhone->setText(PatientFieldText(id, QStringLiteral("telephone_h")));
    lblwphone->setText(PatientFieldText(id, QStringLiteral("telephone_b")));
    lblcphone->setText(PatientFieldText(id, QStringLiteral("Other_Phone")));
    lblemail->setText(PatientFieldText(id, QStringLiteral("EmailAddress")));
    cmdpatients->setEnabled(false);
    if (const int status = cbostatus->FindItemData(numberIn(row, "ncolor")); status >= 0)
        cbostatus->SetListIndex(status);
    cbocpt->SetText(GetPipeField(row["CapptNote"].text(), 1));
    // A type that is on no list any more, or whose list could not be read, must not be lost by a save.
    const int type = numberIn(row, "appointment_type");
    if (type > 0 && cboapttype->ListIndex() < 0) {
        cboapttype->AddItem(tr("(no longer on the list)"), type, ColourIcon(type));
        cboapttype->SetListIndex(cboapttype->FindItemData(type));
    }
}

void frmnore::showCategory(const Recordset& row) {
    const QString name = row["cappttext"].text();
    if (cbocats->FindExact(name) < 0) {
        const int colour = numberIn(row, "appointment_type");
        cbocats->AddItem(name, colour, ColourIcon(colour));
    }
    cbocats->SetListIndex(cbocats->FindExact(name));
}

void frmnore::showRoom() {
    roomUnread_ = !ShowBookedRoom(*cborooms, key_);
}

void frmnore::showSlot() {
    if (!request_.slot)
        return;
    ctedate->setDate(request_.slot->date);
    ctstart->setTime(request_.slot->start);
    ctend->setTime(request_.slot->end);
    followedEnd_ = request_.endIsOpen ? request_.slot->end : -1;
    showKnown();
    dirty = true;
}

// What the search that found the time already knows. The alerts of the patient come when the form stands, or with OK.
void frmnore::showKnown() {
    if (request_.category)
        cboapttype->SetListIndex(cboapttype->FindItemData(*request_.category));
    if (!request_.patientId.isEmpty() && choosePatientOfId(request_.patientId))
        QTimer::singleShot(0, this, [this] {
            if (isVisible())
                settlePatient();
        });
    else if (!request_.patientName.isEmpty())
        txtpatients->setText(request_.patientName);
    followLength();
}

// The type that was chosen counts before the service that the patient usually has.
void frmnore::followLength() {
    const int start = ctstart->Time();
    if (followedEnd_ < 0 || start < 0 || ctend->Time() != followedEnd_)
        return;
    const CompletingCombo& type = request_.ApptKind == apptkind::TypeSlot ? *cbocats : *cboapttype;
    int minutes = type.ListIndex() >= 0 ? typeMinutes_.value(type.ItemData()) : 0;
    if (minutes < 1 && cbocpt->ListIndex() >= 0)
        minutes = cbocpt->ItemData();
    if (minutes < 1)
        minutes = request_.slot->end - request_.slot->start;
    followedEnd_ = std::min(start + minutes, MinutesPerDay);
    ctend->setTime(followedEnd_);
}
