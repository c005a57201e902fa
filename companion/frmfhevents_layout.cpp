#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/attendeelist.h"
#include "appointments/attendeepanel.h"
#include "appointments/editorparts.h"
#include "appointments/notice.h"
#include "companion/companionfields.h"
#include "companion/frmfhevents.h"
#include "data/minutetime.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/theme/theme.h"
#include "session/rights.h"
#include "session/session.h"

namespace {

constexpr int NameCharacters = 34;
constexpr int LongestDuration = 99999;

QLabel* quietLabel(const char* name, QWidget* parent) {
    auto* label = Named(new QLabel(parent), name);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

}  // namespace

void frmFHEvents::buildForm() {
    QWidget* fields = buildFields();
    auto* attendees = new AttendeePanel(this);
    List1 = attendees->List1;
    LayInHalves(*this, fields, 3, attendees, 2, buildButtons());
    static_cast<QBoxLayout*>(layout())->insertWidget(0, buildNotice());
}

QWidget* frmFHEvents::buildNotice() {
    auto* notice = new QWidget(this);
    lblnotice = NoticeLabel(QStringLiteral("lblnotice"), {}, notice);
    auto* text = new QVBoxLayout;
    text->addWidget(lblnotice);
    notice->setLayout(NoticeLayout(text, notice));
    notice->layout()->setContentsMargins(0, 0, 0, 0);
    notice->hide();
    return notice;
}

QWidget* frmFHEvents::buildFields() {
    auto* fields = new QWidget(this);
    txtevent = Named(new TextField(fields), "txtevent");
    txtevent->setAccessibleName(tr("Event"));
    txtevent->SetMost(CompanionEvent::LongestName);
    txtevent->setMinimumWidth(fontMetrics().averageCharWidth() * NameCharacters);
    txtdate = CompanionDateField("txtdate", tr("Date"), fields);
    lblweekday = quietLabel("lblweekday", fields);
    txtstarttime = new StartTimeField("txtstarttime", tr("Start"), fields);
    txtduration = Named(new ctNEdit(fields), "txtduration");
    txtduration->setAccessibleName(tr("Duration in minutes"));
    txtduration->setRange(0, LongestDuration);
    lblend = quietLabel("lblend", fields);
    ckallday = Named(new QCheckBox(tr("All Da&y?"), fields), "ckallday");
    ckAllProviders = Named(new QCheckBox(tr("All &Providers?"), fields), "ckAllProviders");
    ckAllProviders->setToolTip(tr("Show the event to every provider. Somebody must attend all the same."));

    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    grid->addWidget(FieldLabel(tr("&Event:"), txtevent), 0, 0);
    grid->addWidget(txtevent, 0, 1);
    grid->addWidget(FieldLabel(tr("&Date:"), txtdate), 1, 0);
    grid->addLayout(InARow({txtdate, lblweekday}), 1, 1);
    grid->addWidget(FieldLabel(tr("&Start:"), txtstarttime), 2, 0);
    grid->addLayout(InARow({txtstarttime, new QWidget(fields)}), 2, 1);
    grid->addWidget(FieldLabel(tr("&for"), txtduration), 3, 0);
    grid->addLayout(InARow({txtduration, new QLabel(tr("minutes"), fields), lblend}), 3, 1);
    grid->addWidget(ckallday, 4, 1);
    grid->addWidget(ckAllProviders, 5, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(6, 1);
    return fields;
}

QLayout* frmFHEvents::buildButtons() {
    cmdDelete = FormButton(tr("De&lete..."), "cmdDelete", this);
    cmdDelete->setVisible(request_.ceveid != 0);
    cmdDelete->setEnabled(MayDelete());
    if (!MayDelete())
        cmdDelete->setToolTip(tr("You do not have rights to delete appointments or events."));
    cmdOk = FormButton(tr("O&K"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(tr("Cancel"), "cmdCancel", this);
    auto* buttons = ButtonRow({cmdOk, cmdCancel});
    buttons->setSpacing(Space(8));
    buttons->insertWidget(0, cmdDelete);
    return buttons;
}

void frmFHEvents::connectFields() {
    connect(txtdate, &ctDEdit::Change, this, &frmFHEvents::showWeekday);
    connect(txtstarttime, &ctDEdit::Change, this, &frmFHEvents::showEnd);
    connect(txtduration, &ctNEdit::Change, this, &frmFHEvents::showEnd);
    connect(ckallday, &QCheckBox::toggled, this, &frmFHEvents::showEnd);
    connect(cmdDelete, &QPushButton::clicked, this, &frmFHEvents::cmdDelete_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmFHEvents::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmFHEvents::reject);
}

void frmFHEvents::showWeekday() {
    const QDate date = txtdate->Date();
    lblweekday->setText(date.isValid() ? QLocale::c().dayName(date.dayOfWeek()) : QString());
}

void frmFHEvents::showEnd() {
    const int start = txtstarttime->Time();
    const int end = start + static_cast<int>(txtduration->Value());
    QString text;
    if (ckallday->isChecked())
        text = tr("shown all day");
    else if (start >= 0 && end > MinutesPerDay)
        text = tr("past midnight");
    else if (start >= 0 && end > start)
        text = tr("until %1").arg(MinutesToTimeText(end, Session().MilitaryTime));
    lblend->setText(text);
}
