#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "appointments/durationlabel.h"
#include "appointments/editorparts.h"
#include "appointments/frmgrptx.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/controls/notefield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

constexpr int ComboCharacters = 14;
constexpr int NoteLines = 3;
constexpr int ListCharacters = 40;
constexpr int ListLines = 8;
constexpr int SummaryLines = 2;

}  // namespace

void frmgrptx::buildForm() {
    QWidget* fields = buildFields();
    QWidget* people = buildMembers();
    LayInHalves(*this, fields, 2, people, 3, buildButtons());
    auto* save = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return), this);
    connect(save, &QShortcut::activated, cmdOk, &QPushButton::click);
}

QWidget* frmgrptx::buildFields() {
    using Entry = CompletingCombo::Entry;
    auto* fields = new QWidget(this);
    cbogroup = EditorCombo(Entry::ListOnly, "cbogroup", tr("Group"), ComboCharacters, fields);
    ctedate = EditorDate(ctDEdit::Kind::Date, "ctedate", tr("Date"), fields);
    lbldate = Named(FieldLabel(tr("&Date:"), ctedate), "lbldate");
    lblweekday = Named(new QLabel(fields), "lblweekday");
    lblweekday->setForegroundRole(QPalette::PlaceholderText);
    ctstart = EditorDate(ctDEdit::Kind::Time, "ctstart", tr("Start"), fields);
    ctend = EditorDate(ctDEdit::Kind::Time, "ctend", tr("End"), fields);
    ctend->setIsEnd(true);
    lblduration = new DurationLabel(fields);
    cbolocation = EditorCombo(Entry::Free, "cbolocation", tr("Location"), ComboCharacters, fields);
    cborooms = EditorCombo(Entry::ListOnly, "cborooms", tr("Room"), ComboCharacters, fields);
    txtnotes = Named(new NoteField(fields), "txtnotes");
    txtnotes->setAccessibleName(tr("Note"));
    txtnotes->setLines(NoteLines);

    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    int line = 0;
    grid->addWidget(FieldLabel(tr("&Group:"), cbogroup), line, 0);
    grid->addWidget(cbogroup, line, 1);
    grid->addWidget(lbldate, ++line, 0);
    grid->addLayout(InARow({ctedate, lblweekday}), line, 1);
    grid->addWidget(FieldLabel(tr("&Start:"), ctstart), ++line, 0);
    grid->addLayout(InARow({ctstart, new QWidget(fields)}), line, 1);
    grid->addWidget(FieldLabel(tr("&End:"), ctend), ++line, 0);
    grid->addLayout(InARow({ctend, lblduration}), line, 1);
    grid->addWidget(FieldLabel(tr("&Location:"), cbolocation), ++line, 0);
    grid->addWidget(cbolocation, line, 1);
    grid->addWidget(FieldLabel(tr("Roo&m:"), cborooms), ++line, 0);
    grid->addWidget(cborooms, line, 1);
    grid->addWidget(FieldLabel(tr("N&ote:"), txtnotes), ++line, 0, Qt::AlignTop);
    grid->addWidget(txtnotes, line, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(line, 1);
    return fields;
}

QWidget* frmgrptx::buildMembers() {
    auto* members = new QWidget(this);
    ctList1 = Named(new ctList(members), "ctList1");
    ctList1->setAccessibleName(tr("Members"));
    ctList1->SetColumns({{QStringLiteral("Schd"), ListColumn::Kind::Check, 7, Qt::AlignHCenter},
                         {QStringLiteral("Name"), ListColumn::Kind::Text, 26},
                         {QStringLiteral("Kept"), ListColumn::Kind::Check, 7, Qt::AlignHCenter},
                         {QStringLiteral("H Phone"), ListColumn::Kind::Text, 20},
                         {QStringLiteral("W Phone"), ListColumn::Kind::Text, 22}});
    ctList1->setMinimumSize(fontMetrics().averageCharWidth() * ListCharacters, fontMetrics().height() * ListLines);
    ctList1->setToolTip(tr("Space: scheduled. Shift+Space: kept."));
    lblmembers = Named(new QLabel(members), "lblmembers");
    lblmembers->setTextFormat(Qt::PlainText);
    lblmembers->setWordWrap(true);
    lblmembers->setAlignment(Qt::AlignTop);
    // The lines come and go with the boxes; the list above does not jump.
    lblmembers->setMinimumHeight(fontMetrics().lineSpacing() * SummaryLines);
    cmdLoadMembers = FormButton({}, "cmdLoadMembers", members);
    cmdLoadMembers->setIcon(Icon("refresh"));
    cmdkept = FormButton(QStringLiteral("Mark All as &Kept"), "cmdkept", members);
    cmdkept->setIcon(Icon("check"));
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(cmdLoadMembers);
    buttons->addWidget(cmdkept);
    buttons->addStretch(1);
    auto* column = new QVBoxLayout(members);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(8));
    column->addWidget(FieldLabel(tr("Mem&bers:"), ctList1));
    column->addWidget(ctList1, 1);
    column->addWidget(lblmembers);
    column->addLayout(buttons);
    return members;
}

QLayout* frmgrptx::buildButtons() {
    cmdOk = FormButton(tr("OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(tr("Cancel"), "cmdCancel", this);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdCancel);
    return buttons;
}

void frmgrptx::connectFields() {
    const auto setDirty = [this] { dirty = true; };
    for (const ctDEdit* field : {ctedate, ctstart, ctend}) {
        connect(field, &ctDEdit::Change, this, setDirty);
        connect(field, &ctDEdit::Change, this, &frmgrptx::enableOk);
    }
    for (const CompletingCombo* box : {cbogroup, cbolocation, cborooms})
        connect(box, &CompletingCombo::Change, this, setDirty);
    connect(txtnotes, &NoteField::textChanged, this, setDirty);
    connect(cbolocation, &CompletingCombo::Change, this, [this] { locationTyped_ = true; });
    connect(cbolocation, &CompletingCombo::LostFocus, this, &frmgrptx::leaveLocation);
    connect(ctedate, &ctDEdit::Change, this, [this] {
        showWeekday();
        showMembers();
    });
    for (const ctDEdit* time : {ctstart, ctend})
        connect(time, &ctDEdit::Change, this, [this] { lblduration->ShowTimes(ctstart->Time(), ctend->Time()); });
    connect(cmdOk, &QPushButton::clicked, this, &frmgrptx::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &frmgrptx::cmdCancel_Click);
}

void frmgrptx::connectMembers() {
    connect(cbogroup, &CompletingCombo::Click, this, &frmgrptx::chooseGroup);
    connect(cbogroup, &CompletingCombo::Change, this, &frmgrptx::showMembers);
    connect(cmdLoadMembers, &QPushButton::clicked, this, &frmgrptx::cmdLoadMembers_Click);
    connect(cmdkept, &QPushButton::clicked, this, &frmgrptx::cmdkept_Click);
    connect(ctList1, &ctList::CheckChanged, this, [this] {
        dirty = true;
        showMembers();
    });
}
