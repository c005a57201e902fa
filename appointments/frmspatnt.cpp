#include "appointments/frmspatnt.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/patientfiller.h"
#include "appointments/patientsearch.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/textfield.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/fillprogress.h"
#include "session/session.h"

namespace {

constexpr int NameColumn = 1;

}  // namespace

frmspatnt::frmspatnt(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmspatnt"));
    setWindowTitle(QStringLiteral("Select Patient"));
    buildForm();
    layOutForm();
    connectControls();
    filler_->loadpatients();
}

QSize frmspatnt::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 162, fontMetrics().height() * 30};
}

void frmspatnt::buildForm() {
    const auto named = [](auto* widget, const char* name) {
        widget->setObjectName(QLatin1String(name));
        return widget;
    };
    const auto button = [&](const char* name, const QString& text, const QIcon& icon, bool enabled) {
        auto* made = named(new QPushButton(icon, text, this), name);
        made->setAutoDefault(false);
        made->setEnabled(enabled);
        return made;
    };
    ctList1 = named(new ctList(this), "ctList1");
    ctList1->setAccessibleName(tr("List of patients"));
    SetPatientColumns(*ctList1, {QStringLiteral("Patient"), QStringLiteral("Account"), QStringLiteral("Home Phone"),
                                 QStringLiteral("Work Phone"), QStringLiteral("CPT"), QStringLiteral("Other Phone"),
                                 QStringLiteral("EMail")});
    ctList1->SetHeader(1, Session().WordUsage);
    txtfind = named(new TextField(this), "txtfind");
    txtfind->setPlaceholderText(tr("Part of a name"));
    txtfind->setClearButtonEnabled(true);
    cmdfind = button("cmdfind", tr("F&ind"), Icon("find"), false);
    cmdselect = button("cmdselect", tr("&Select"), {}, false);
    cmdcancel = button("cmdcancel", tr("&Cancel"), {}, true);
    pnlcount = named(new QLabel(this), "pnlcount");
    filler_ = new PatientFiller(*ctList1, this);
    pnlprogress = new FillProgress(*filler_, this);
}

void frmspatnt::layOutForm() {
    auto* label = new QLabel(tr("&Find:"), this);
    label->setBuddy(txtfind);
    auto* find = new QHBoxLayout;
    find->addWidget(label);
    find->addWidget(txtfind, 1);
    find->addWidget(cmdfind);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(pnlcount);
    buttons->addWidget(pnlprogress, 1);
    buttons->addWidget(cmdselect);
    buttons->addWidget(cmdcancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(find);
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    FitToScreen(*this);
    txtfind->setFocus();
}

void frmspatnt::connectControls() {
    connect(txtfind, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdfind->setEnabled(!text.isEmpty());
        cmdfind->setDefault(!text.isEmpty());
        filter(text);
    });
    PressOnEnter(*txtfind, *cmdfind);
    connect(cmdfind, &QPushButton::clicked, this, [this] {
        filler_->Finish();
        FindInPatientList(*ctList1, txtfind->text());
    });
    connect(ctList1, &ctList::SelectionChanged, this, [this] {
        cmdselect->setEnabled(ctList1->SelectedRow() >= 0);
        cmdselect->setDefault(true);
    });
    connect(ctList1, &ctList::RowActivated, this, &frmspatnt::select);
    connect(cmdselect, &QPushButton::clicked, this, [this] { select(ctList1->SelectedRow()); });
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(filler_, &PatientFiller::Progress, pnlcount, [this] { pnlcount->setText(PatientCount(*ctList1)); });
}

// The whole list must be there before some of it is hidden.
void frmspatnt::filter(const QString& text) {
    filler_->Finish();
    ctList1->SetFilter(text.trimmed(), NameColumn);
    pnlcount->setText(PatientCount(*ctList1));
}

void frmspatnt::select(int row) {
    if (row < 0)
        return;
    chosenId_ = ctList1->ItemData(row).toString();
    accept();
}
