#include <algorithm>
#include <initializer_list>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include "appointments/durationlabel.h"
#include "appointments/editorparts.h"
#include "appointments/frmnore.h"
#include "appointments/matchlist.h"
#include "appointments/patientfiller.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/controls/textfield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/formheading.h"
#include "session/session.h"

namespace {

constexpr int ComboCharacters = 14;
constexpr int LongestName = 255;    // appointments.cappttext
constexpr int LongestAccount = 50;  // appointments.PatientAcct
constexpr int LongestListed = 100;  // appointments.CLOCATION and the lists that grow by what is typed
constexpr int NoteLines = 4;
constexpr int PhoneCharacters = 16;

/// What is known about the patient: shown, never typed.
QLabel* factLabel(const char* name, QWidget* parent) {
    auto* label = Named(new QLabel(parent), name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QLabel* caption(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QGridLayout* fieldGrid(QWidget* panel) {
    auto* grid = new QGridLayout(panel);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    grid->setColumnStretch(1, 1);
    return grid;
}

}  // namespace

void frmnore::buildForm() {
    auto* fields = new QWidget(this);
    fields_ = fields;
    auto* rows = new QVBoxLayout(fields);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(Space(8));
    buildPatientPage();
    buildOtherPages();
    for (QWidget* page : fraappttype)
        rows->addWidget(page);
    rows->addWidget(buildWhen());
    buildService();
    rows->addWidget(fraservice);
    buildPlace();
    rows->addWidget(Frame1);
    rows->addWidget(XPFrame201);
    buildStatus();
    rows->addWidget(frastatus);
    rows->addWidget(buildNote(), 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(buildButtons());
    buildPatientList();
    pnlmatches = new MatchList(*txtpatients, *this);
    auto* save = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), this);
    connect(save, &QShortcut::activated, cmdOk, &QPushButton::click);
}

void frmnore::buildPatientPage() {
    QWidget* page = fraappttype[0] = Named(new QWidget(this), "fraappttype0");
    auto* name = Named(new TextField(page), "txtpatients");
    name->SetMost(LongestName);
    txtpatients = name;
    txtpatients->setPlaceholderText(tr("Last name, first name"));
    Label1 = Named(FieldLabel({}, txtpatients), "Label1");
    cmdpatients = Named(new QToolButton(page), "cmdpatients");
    cmdpatients->setIcon(Icon("down"));
    cmdpatients->setAccessibleName(tr("List of patients"));
    cmdpatients->setToolTip(tr("List of patients"));
    cmdPatientList = FormButton(tr("Look &Up..."), "cmdPatientList", page);
    cmdnewpat = FormButton({}, "cmdnewpat", page);
    auto* account = Named(new TextField(page), "txtaccount");
    account->SetMost(LongestAccount);
    txtaccount = account;
    Label14 = Named(FieldLabel({}, txtaccount), "Label14");
    lblHPhone = factLabel("lblHPhone", page);
    lblwphone = factLabel("lblwphone", page);
    lblcphone = factLabel("lblcphone", page);
    lblemail = factLabel("lblemail", page);
    lblAuthorization = factLabel("lblAuthorization", page);

    auto* who = new QHBoxLayout;
    who->setSpacing(Space(8));
    who->addWidget(txtpatients, 1);
    who->addWidget(cmdpatients);
    who->addWidget(cmdPatientList);
    who->addWidget(cmdnewpat);
    auto* facts = new QGridLayout;
    facts->setHorizontalSpacing(Space(8));
    facts->setVerticalSpacing(Space(4));
    facts->addWidget(txtaccount, 0, 0, 2, 1);
    facts->addWidget(caption(tr("Home"), page), 0, 1);
    facts->addWidget(lblHPhone, 0, 2);
    facts->addWidget(caption(tr("Work"), page), 0, 3);
    facts->addWidget(lblwphone, 0, 4);
    facts->addWidget(caption(tr("Other"), page), 1, 1);
    facts->addWidget(lblcphone, 1, 2);
    facts->addWidget(caption(tr("E-mail"), page), 1, 3);
    facts->addWidget(lblemail, 1, 4);
    for (QLabel* phone : {lblHPhone, lblcphone})
        phone->setMinimumWidth(fontMetrics().averageCharWidth() * PhoneCharacters);
    facts->setColumnStretch(4, 1);
    txtaccount->setFixedWidth(fontMetrics().averageCharWidth() * PhoneCharacters);

    auto* grid = fieldGrid(page);
    grid->addWidget(Label1, 0, 0);
    grid->addLayout(who, 0, 1);
    grid->addWidget(Label14, 1, 0);
    grid->addLayout(facts, 1, 1);
    grid->addWidget(lblAuthorization, 2, 1);
}

void frmnore::buildOtherPages() {
    using Entry = CompletingCombo::Entry;
    const auto page = [this](int kind, const char* name) {
        return fraappttype[static_cast<std::size_t>(kind)] = Named(new QWidget(this), name);
    };
    QWidget* events = page(1, "fraappttype1");
    cboevents = EditorCombo(Entry::Free, "cboevents", tr("Event"), ComboCharacters, events);
    cboevents->SetMaxLength(LongestListed);
    auto* grid = fieldGrid(events);
    grid->addWidget(FieldLabel(tr("Eve&nt:"), cboevents), 0, 0);
    grid->addWidget(cboevents, 0, 1);

    QWidget* unavailable = page(2, "fraappttype2");
    cboavail = EditorCombo(Entry::Free, "cboavail", tr("Unavailable for"), ComboCharacters, unavailable);
    cboavail->SetMaxLength(LongestListed);
    grid = fieldGrid(unavailable);
    grid->addWidget(FieldLabel(tr("Reaso&n:"), cboavail), 0, 0);
    grid->addWidget(cboavail, 0, 1);

    QWidget* categories = page(3, "fraappttype3");
    cbocats = EditorCombo(Entry::ListOnly, "cbocats", tr("Appointment type"), ComboCharacters, categories);
    lblaptcolor = Named(new QLabel(categories), "lblaptcolor");
    lblaptcolor->setFixedWidth(Space(24));
    lblaptcolor->setAutoFillBackground(true);
    lblaptcolor->setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    grid = fieldGrid(categories);
    grid->addWidget(FieldLabel(tr("T&ype:"), cbocats), 0, 0);
    grid->addWidget(cbocats, 0, 1);
    grid->addWidget(lblaptcolor, 0, 2);
}

QWidget* frmnore::buildWhen() {
    auto* when = new QWidget(this);
    ctedate = Named(new ctDEdit(ctDEdit::Kind::Date, when), "ctedate");
    ctedate->setAccessibleName(tr("Date"));
    lbldate = Named(FieldLabel(tr("&Date:"), ctedate), "lbldate");
    ctstart = Named(new ctDEdit(ctDEdit::Kind::Time, when), "ctstart");
    ctstart->setAccessibleName(tr("Start"));
    ctend = Named(new ctDEdit(ctDEdit::Kind::Time, when), "ctend");
    ctend->setAccessibleName(tr("End"));
    ctend->setIsEnd(true);
    lblduration = new DurationLabel(when);
    SSCheck1 = Named(new QCheckBox(tr("All Day E&vent"), when), "SSCheck1");

    auto* end = new QLabel(tr("&End:"), when);
    end->setBuddy(ctend);
    auto* times = new QHBoxLayout;
    times->setSpacing(Space(8));
    times->addWidget(ctstart);
    times->addSpacing(Space(4));
    times->addWidget(end);
    times->addWidget(ctend);
    times->addWidget(lblduration, 1);
    times->addWidget(SSCheck1);
    auto* grid = fieldGrid(when);
    grid->addWidget(lbldate, 0, 0);
    lblweekday = factLabel("lblweekday", when);
    lblweekday->setForegroundRole(QPalette::PlaceholderText);
    auto* dayOf = new QHBoxLayout;
    dayOf->setSpacing(Space(8));
    dayOf->addWidget(ctedate);
    dayOf->addWidget(lblweekday, 1);
    grid->addLayout(dayOf, 0, 1);
    grid->addWidget(FieldLabel(tr("&Start:"), ctstart), 1, 0);
    grid->addLayout(times, 1, 1);
    return when;
}

void frmnore::buildService() {
    fraservice = Named(new QWidget(this), "fraservice");
    cbocpt = EditorCombo(CompletingCombo::Entry::Free, "cbocpt", tr("Service"), ComboCharacters, fraservice);
    cbocpt->SetForbidden(QStringLiteral(";|"));
    cboapttype = EditorCombo(CompletingCombo::Entry::ListOnly, "cboapttype", tr("Appointment type"), ComboCharacters,
                             fraservice);
    auto* grid = fieldGrid(fraservice);
    grid->addWidget(FieldLabel(tr("Se&rvice:"), cbocpt), 0, 0);
    grid->addWidget(cbocpt, 0, 1);
    grid->addWidget(FieldLabel(tr("T&ype:"), cboapttype), 1, 0);
    grid->addWidget(cboapttype, 1, 1);
}

void frmnore::buildPlace() {
    Frame1 = Named(new QWidget(this), "Frame1");
    cbolocation = EditorCombo(CompletingCombo::Entry::Free, "cbolocation", tr("Location"), ComboCharacters, Frame1);
    cbolocation->SetForbidden(QStringLiteral(";|"));
    cbolocation->SetMaxLength(LongestListed);
    auto* grid = fieldGrid(Frame1);
    grid->addWidget(FieldLabel(tr("&Location:"), cbolocation), 0, 0);
    grid->addWidget(cbolocation, 0, 1);

    XPFrame201 = Named(new QWidget(this), "XPFrame201");
    cborooms = EditorCombo(CompletingCombo::Entry::ListOnly, "cborooms", tr("Room"), ComboCharacters, XPFrame201);
    cmdrooms = FormButton(tr("&Browse..."), "cmdrooms", XPFrame201);
    cmdrooms->setToolTip(tr("Show which rooms are free"));
    grid = fieldGrid(XPFrame201);
    grid->addWidget(FieldLabel(tr("Roo&m:"), cborooms), 0, 0);
    grid->addWidget(cborooms, 0, 1);
    grid->addWidget(cmdrooms, 0, 2);
}

void frmnore::buildStatus() {
    frastatus = Named(new QWidget(this), "frastatus");
    cbostatus = EditorCombo(CompletingCombo::Entry::ListOnly, "cbostatus", tr("Status"), ComboCharacters, frastatus);
    auto* grid = fieldGrid(frastatus);
    grid->addWidget(FieldLabel(tr("S&tatus:"), cbostatus), 0, 0);
    grid->addWidget(cbostatus, 0, 1);
}

QWidget* frmnore::buildNote() {
    auto* note = new QWidget(this);
    txtnotes = Named(new NoteField(note), "txtnotes");
    txtnotes->setAccessibleName(tr("Note"));
    txtnotes->setLines(NoteLines);
    ckAlarm = Named(new QCheckBox(tr("Set &Alarm"), note), "ckAlarm");
    ckemail = Named(new QCheckBox(tr("Send E-Ma&il Confirmation"), note), "ckemail");
    auto* options = new QHBoxLayout;
    options->setSpacing(Space(16));
    options->addWidget(ckAlarm);
    options->addWidget(ckemail);
    options->addStretch(1);
    auto* grid = fieldGrid(note);
    grid->addWidget(FieldLabel(tr("N&ote:"), txtnotes), 0, 0, Qt::AlignTop);
    grid->addWidget(txtnotes, 0, 1);
    grid->addLayout(options, 1, 1);
    return note;
}

// The kinds share their captions, and the day view's editor shows no date.
void frmnore::headForm() {
    QString what;
    switch (request_.ApptKind) {
        case apptkind::Activity:
            what = tr("Activity/Event");
            break;
        case apptkind::Unavailable:
            what = tr("Unavailable Time");
            break;
        case apptkind::TypeSlot:
            what = tr("Appointment Type");
            break;
        default:
            what =
                tr("%1 Appointment").arg(Session().WordUsage.trimmed().isEmpty() ? tr("Patient") : Session().WordUsage);
            break;
    }
    FormHeading* heading = FormHeading::Above(*this, what);
    heading->SetWhom(request_.provider.name);
    heading->FollowDay(*ctedate);
}

// The labels of all panels make one column, so that the fields stand in one line.
void frmnore::alignLabels() {
    QList<QLabel*> labels;
    int widest = 0;
    for (QLabel* label : findChildren<QLabel*>())
        if (label->buddy() != nullptr && label->isVisibleTo(this)) {
            labels << label;
            widest = std::max(widest, label->sizeHint().width());
        }
    for (QLabel* label : labels)
        label->setMinimumWidth(widest);
    // The form takes its size before an event loop has told the layouts what changed, from the inside out.
    QList<QWidget*> panels = fields_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    panels << fields_ << this;
    for (const QWidget* panel : panels)
        if (panel->layout() != nullptr) {
            panel->layout()->invalidate();
            panel->layout()->activate();
        }
}

// The order of the questions. The buttons beside the patient come last: they have Alt keys, and the way from the name
// to the time is the one that is gone most.
void frmnore::orderFields() {
    const std::initializer_list<QWidget*> order{
        txtpatients, txtaccount, cboevents,  cboavail,    cbocats,     ctedate,        ctstart,   ctend,
        SSCheck1,    cbocpt,     cboapttype, cbolocation, cborooms,    cmdrooms,       cbostatus, txtnotes,
        ckAlarm,     ckemail,    cmdOk,      cmdCancel,   cmdpatients, cmdPatientList, cmdnewpat};
    for (const auto* field = order.begin(); field + 1 != order.end(); ++field)
        setTabOrder(*field, *(field + 1));
    for (QWidget* first : {static_cast<QWidget*>(txtpatients), static_cast<QWidget*>(cboevents),
                           static_cast<QWidget*>(cboavail), static_cast<QWidget*>(cbocats)})
        if (first->isVisibleTo(this) && request_.IsNewAppt)
            first->setFocus();
    if (!request_.IsNewAppt)
        ctstart->setFocus();
}

void frmnore::buildPatientList() {
    auto* panel = Named(new QFrame(this), "pnlpatlist");
    pnlpatlist = panel;
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setAutoFillBackground(true);
    ctList1 = Named(new ctList(panel), "ctList1");
    ctList1->setAccessibleName(tr("List of patients"));
    SetPatientColumns(*ctList1, {QStringLiteral("Name"), QStringLiteral("Acct #"), QStringLiteral("Home Phone"),
                                 QStringLiteral("Work Phone"), QStringLiteral("CPT"), QStringLiteral("Other Phone"),
                                 QStringLiteral("Email")});
    txtfind = Named(new TextField(panel), "txtfind");
    txtfind->setPlaceholderText(tr("Part of a name"));
    auto* label = new QLabel(tr("&Find:"), panel);
    label->setBuddy(txtfind);
    cmdfind = FormButton(tr("Find"), "cmdfind", panel);
    cmdfind->setEnabled(false);
    cmdnew = FormButton(tr("&New"), "cmdnew", panel);
    auto* find = new QHBoxLayout;
    find->setSpacing(Space(8));
    find->addWidget(label);
    find->addWidget(txtfind, 1);
    find->addWidget(cmdfind);
    find->addWidget(cmdnew);
    lblcount = Named(new QLabel(panel), "lblcount");
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(Space(8), Space(8), Space(8), Space(8));
    column->setSpacing(Space(8));
    column->addWidget(ctList1, 1);
    column->addWidget(lblcount);
    column->addLayout(find);
    panel->hide();
}

// Over the fields below the patient's name, as a list drops from its box.
void frmnore::placePatientList() {
    const QPoint below = txtpatients->mapTo(this, QPoint(0, txtpatients->height()));
    const int left = Space(16);
    const int top = std::min(below.y(), height() / 3);
    pnlpatlist->setGeometry(left, top, width() - 2 * left, height() - top - left);
    pnlpatlist->raise();
}

QLayout* frmnore::buildButtons() {
    lblcreated = factLabel("lblcreated", this);
    lblmodified = factLabel("lblmodified", this);
    auto* history = new QVBoxLayout;
    history->setSpacing(0);
    for (QLabel* label : {lblcreated, lblmodified}) {
        label->setForegroundRole(QPalette::PlaceholderText);
        history->addWidget(label);
    }
    cmdOk = FormButton(tr("O&K"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(tr("Cancel"), "cmdCancel", this);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addLayout(history, 1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    return buttons;
}

void frmnore::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    placePatientList();
    pnlmatches->PlaceBelowBox();
}
