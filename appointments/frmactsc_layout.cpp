#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/attendeelist.h"
#include "appointments/attendeepanel.h"
#include "appointments/durationlabel.h"
#include "appointments/editorparts.h"
#include "appointments/frmactsc.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formparts.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

constexpr int ComboCharacters = 22;

}  // namespace

void frmactsc::buildForm() {
    QWidget* fields = buildFields();
    QWidget* people = buildAttendees();
    LayInHalves(*this, fields, 3, people, 2, buildButtons());
}

QWidget* frmactsc::buildFields() {
    auto* fields = new QWidget(this);
    cboevents =
        EditorCombo(CompletingCombo::Entry::Free, "cboevents", tr("Activity or event"), ComboCharacters, fields);
    cboevents->SetMaxLength(LongestText);
    ctDEditComp = EditorDate(ctDEdit::Kind::Date, "ctDEditComp", tr("Date"), fields);
    lblweekday = Named(new QLabel(fields), "lblweekday");
    lblweekday->setForegroundRole(QPalette::PlaceholderText);
    ctstart = EditorDate(ctDEdit::Kind::Time, "ctstart", tr("Start"), fields);
    ctend = EditorDate(ctDEdit::Kind::Time, "ctend", tr("End"), fields);
    ctend->setIsEnd(true);
    lblduration = new DurationLabel(fields);
    cbolocation = EditorCombo(CompletingCombo::Entry::Free, "cbolocation", tr("Location"), ComboCharacters, fields);
    cbolocation->SetMaxLength(LongestLocation);
    lblcut = Named(new QLabel(fields), "lblcut");
    lblcut->setWordWrap(true);
    lblcut->setForegroundRole(QPalette::PlaceholderText);

    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    grid->addWidget(FieldLabel(tr("Eve&nt:"), cboevents), 0, 0);
    grid->addWidget(cboevents, 0, 1);
    grid->addWidget(FieldLabel(tr("&Date:"), ctDEditComp), 1, 0);
    grid->addLayout(InARow({ctDEditComp, lblweekday}), 1, 1);
    grid->addWidget(FieldLabel(tr("&Start:"), ctstart), 2, 0);
    grid->addLayout(InARow({ctstart, new QWidget(fields)}), 2, 1);
    grid->addWidget(FieldLabel(tr("&End:"), ctend), 3, 0);
    grid->addLayout(InARow({ctend, lblduration}), 3, 1);
    grid->addWidget(FieldLabel(tr("&Location:"), cbolocation), 4, 0);
    grid->addWidget(cbolocation, 4, 1);
    grid->addWidget(lblcut, 5, 1, Qt::AlignTop);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    return fields;
}

QWidget* frmactsc::buildAttendees() {
    auto* attendees = new AttendeePanel(this);
    List1 = attendees->List1;
    lblattendees = attendees->lblattendees;
    return attendees;
}

QLayout* frmactsc::buildButtons() {
    cmdbusy = FormButton(tr("&Busy Search"), "cmdbusy", this);
    cmdbusy->setIcon(Icon("find"));
    cmdbusy->setToolTip(tr("Show which attendees are taken at this time"));
    cmdOk = FormButton(tr("O&K"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(tr("Cancel"), "cmdCancel", this);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(cmdbusy);
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    return buttons;
}

void frmactsc::connectFields() {
    const auto setDirty = [this] { dirty = true; };
    for (const ctDEdit* field : {ctDEditComp, ctstart, ctend})
        connect(field, &ctDEdit::Change, this, setDirty);
    for (const CompletingCombo* box : {cboevents, cbolocation}) {
        connect(box, &CompletingCombo::Change, this, setDirty);
        connect(box, &CompletingCombo::Change, this, &frmactsc::showCut);
        connect(box, &CompletingCombo::LostFocus, this, &frmactsc::leaveList);
    }
    connect(cboevents, &CompletingCombo::Change, this, [this] { eventTyped_ = true; });
    connect(cbolocation, &CompletingCombo::Change, this, [this] { locationTyped_ = true; });
    connect(ctDEditComp, &ctDEdit::Change, this, &frmactsc::showWeekday);
    for (const ctDEdit* time : {ctstart, ctend})
        connect(time, &ctDEdit::Change, this, [this] { lblduration->ShowTimes(ctstart->Time(), ctend->Time()); });
    connect(List1, &QListWidget::itemSelectionChanged, this, [this] { dirty = attendeesChanged = true; });
    connect(cmdbusy, &QPushButton::clicked, this, &frmactsc::busySearch);
    connect(cmdOk, &QPushButton::clicked, this, &frmactsc::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmactsc::reject);
}
