#include "companion/frmfhappt.h"

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include "appointments/patientalerts.h"
#include "bridge/link.h"
#include "companion/companionfields.h"
#include "companion/keyedcombo.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/controls/noticebar.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/formheading.h"
#include "session/session.h"

namespace {

constexpr int FirstDateValue = 100;  // A date field with a value below this holds no date.
constexpr int MostMinutes = 99'999;
constexpr int MemoLines = 4;
constexpr int StatusCharacters = 16;

constexpr int Arrived = 4;

struct Status {
    const char* text;
    int apptStatus;
};
constexpr Status Statuses[] = {{"Not Seen", 1}, {"Cancelled", 2}, {"Missed", 3}, {"Arrived", Arrived}, {"Seen", 5}};

CompletingCombo* statusBox(QWidget* parent) {
    auto* box = Named(new CompletingCombo(CompletingCombo::Entry::ListOnly, parent), "cbostatus");
    box->SetAccessibleName(QObject::tr("Appointment status"));
    box->setMinimumContentsLength(StatusCharacters);
    for (const Status& status : Statuses)
        box->AddItem(QString::fromLatin1(status.text), status.apptStatus);
    box->SetListIndex(-1);
    return box;
}

QLayout* inMinutes(QWidget* field) {
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(8));
    row->addWidget(field);
    row->addWidget(new QLabel(QObject::tr("minutes"), field->parentWidget()), 1);
    return row;
}

}  // namespace

frmFHAppt::frmFHAppt(const CompanionAppointmentRequest& request, QWidget* parent)
    : EditorDialog(parent), request_(request), ctrnKey_(request.CtrnKey) {
    setObjectName(QStringLiteral("frmFHAppt"));
    setWindowTitle(QStringLiteral("Fernhall Appointment"));
    buildForm();
    load();
    layOutForm();
    connect(cbostatus, &CompletingCombo::Click, this, &frmFHAppt::cbostatus_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmFHAppt::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

// A field with the focus is left while the form is destroyed, so the form is hidden while it is still whole.
frmFHAppt::~frmFHAppt() {
    hide();
}

QString frmFHAppt::Subject() const {
    return tr("Fernhall appointment on %1 at %2").arg(txtdate->Text(), txtstarttime->Text());
}

void frmFHAppt::buildForm() {
    lblClient = Named(new QLabel(this), "lblClient");
    lblClient->setTextFormat(Qt::PlainText);
    lblClient->setFont(HeadingFont(1));
    lblClient->setWordWrap(true);
    txtdate = CompanionDateField("txtdate", tr("Date"), this);
    txtstarttime = new StartTimeField("txtstarttime", tr("Start time"), this);
    txtduration = Named(new ctNEdit(this), "txtduration");
    txtduration->setAccessibleName(tr("Duration in minutes"));
    txtduration->setRange(0, MostMinutes);
    cboProviders = new KeyedCombo("cboProviders", tr("Provider"), this);
    cboChargetype = new KeyedCombo("cboChargetype", tr("Charge type"), this);
    lblstatus = Named(new QLabel(this), "lblstatus");
    lblstatus->setWordWrap(true);
    lblstatus->hide();
    cbostatus = statusBox(this);
    txtmemo = Named(new NoteField(this), "txtmemo");
    txtmemo->setAccessibleName(tr("Memo"));
    txtmemo->setLines(MemoLines);
    txtmemo->setKeepsSeparators(true);
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(QStringLiteral("Cancel"), "cmdCancel", this);
}

void frmFHAppt::layOutForm() {
    auto* fields = new QWidget(this);
    auto* form = new QFormLayout(fields);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(Space(8));
    form->addRow(lblClient);
    form->addRow(tr("&Date:"), txtdate);
    form->addRow(tr("S&tart time:"), txtstarttime);
    form->addRow(FieldLabel(tr("D&uration:"), txtduration), inMinutes(txtduration));
    form->addRow(tr("&Provider:"), cboProviders);
    form->addRow(tr("C&harge type:"), cboChargetype);
    form->addRow({}, lblstatus);
    form->addRow(tr("&Status:"), cbostatus);
    form->addRow(tr("&Memo:"), txtmemo);
    for (QWidget* field : {static_cast<QWidget*>(txtdate), static_cast<QWidget*>(txtstarttime),
                           static_cast<QWidget*>(txtduration), static_cast<QWidget*>(cbostatus)})
        field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(16));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(ButtonRow({cmdOk, cmdCancel}));
    headForm();
    FitToScreen(*this);
    txtdate->setFocus();
}

void frmFHAppt::headForm() {
    FormHeading* heading = FormHeading::Above(*this, tr("Fernhall Appointment"));
    heading->FollowDay(*txtdate);
    heading->SetWhom(cboProviders->currentText());
    connect(cboProviders, &QComboBox::currentTextChanged, heading, &FormHeading::SetWhom);
}

bool frmFHAppt::ValidateEntries() {
    struct Rule {
        bool broken;
        const char* message;
        QWidget* field;
    };
    const Rule rules[] = {
        {txtdate->Value() < FirstDateValue, "Enter a valid date.", txtdate},
        {txtstarttime->Value() < 0, "Enter a valid time.", txtstarttime},
        {txtduration->Value() <= 0, "Enter a valid duration.", txtduration},
        {cboProviders->currentIndex() < 0, "Enter a provider.", cboProviders},
        {cboChargetype->currentIndex() < 0, "Enter a charge type for the appointment.", cboChargetype},
    };
    for (const Rule& rule : rules) {
        if (!rule.broken)
            continue;
        MsgBox(QString::fromLatin1(rule.message), ExclamationBox, QStringLiteral("Solvane"));
        rule.field->setFocus();
        return false;
    }
    return true;
}

void frmFHAppt::cmdOk_Click() {
    cbostatus->Settle();
    if (!ValidateEntries())
        return;
    const bool isNew = request_.CtrnKey == 0;
    if (!isNew && sessionId_ > 0)
        CompareSVNoteToFHTrans();
    if (isNew ? !SaveFHAppointment() : !UpdateAppt(request_.CtrnKey))
        return;
    written_ = true;
    if (isNew)
        showAlerts(AppointmentAlert);
    accept();
}

void frmFHAppt::cbostatus_Click() {
    if (cbostatus->ItemData() == Arrived)
        showAlerts(CheckInAlert);
}

void frmFHAppt::showAlerts(const char* alertType) const {
    const QString unread = QStringLiteral("Error reading patient alerts. ");
    std::optional<db::DatabaseError> failure;
    const QString patient = GetSVPatientFromFH(Session().Connection, Session().FHDatabaseId, clientId_, &failure);
    if (failure)
        return TellInBar(unread, *failure);
    DropNotice(unread);
    ShowPatientAlerts(patient, QString::fromLatin1(alertType));
}
