#include "followup/frmsnotetype.h"

#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/theme/theme.h"
#include "session/session.h"

using db::Recordset;

namespace {

constexpr int NameColumn = 1;

QString ownTypesStatement() {
    return db::Sql(
        "Select * from DocNewMenu  Inner Join NoteTypes on DocNewMenu.NoteID = NoteTypes.NoteTypeID where  applyauths = 1 and UID = '{}' Order By NoteName",
        Session().UID);
}

QString allTypesStatement() {
    return QStringLiteral("Select * from NoteTypes where applyauths = 1 Order by NoteType");
}

}  // namespace

frmSNoteType::frmSNoteType(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmSNoteType"));
    setWindowTitle(QStringLiteral("Select Note Type"));
    buildForm();
    LoadNoteTypes();
    connect(List1, &ctList::SelectionChanged, this, [this] { cmdOk->setEnabled(List1->SelectedRow() >= 0); });
    connect(List1, &ctList::RowActivated, this, &frmSNoteType::cmdOk_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmSNoteType::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmSNoteType::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 52, fontMetrics().height() * 22};
}

void frmSNoteType::buildForm() {
    List1 = Named(new ctList(this), "List1");
    List1->setAccessibleName(tr("Note types"));
    List1->SetColumns({{tr("Note Type")}});
    lblnothing = Named(new QLabel(this), "lblnothing");
    lblnothing->setWordWrap(true);
    lblnothing->setAlignment(Qt::AlignTop);
    cmdOk = Named(new QPushButton(tr("&OK"), this), "cmdOk");
    cmdOk->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(List1, 1);
    column->addWidget(lblnothing, 1);
    column->addLayout(ButtonRow({cmdOk, cmdcancel}));
    FitToScreen(*this);
    List1->setFocus();
}

void frmSNoteType::LoadNoteTypes() {
    const db::ReadTogether together(Session().Connection, {ownTypesStatement(), allTypesStatement()});
    List1->Clear();
    const bool wasRead = db::Ignoring([this] {
        addOwnTypes();
        addAllTypes();
    });
    const bool isEmpty = List1->RowCount() == 0;
    lblnothing->setText(wasRead ? tr("There is no note type to choose yet. Note types are set up in Solvane.")
                                : tr("The note types could not be read."));
    lblnothing->setVisible(isEmpty);
    List1->setVisible(!isEmpty);
    List1->SelectRow(isEmpty ? -1 : 0);
    cmdOk->setEnabled(!isEmpty);
}

void frmSNoteType::addOwnTypes() {
    for (Recordset types(ownTypesStatement(), Session().Connection); !types.Eof(); types.MoveNext())
        List1->AddRow({types["NoteName"].text()}, types["NoteId"].integer());
    if (List1->RowCount() > 0)
        List1->AddRow({QStringLiteral("---------------------------------------------")}, 0);
}

void frmSNoteType::addAllTypes() {
    for (Recordset types(allTypesStatement(), Session().Connection); !types.Eof(); types.MoveNext())
        if (const QString name = types["NoteType"].text(); !holds(name))
            List1->AddRow({name}, types["NoteTypeId"].integer());
}

bool frmSNoteType::holds(const QString& name) const {
    for (int row = 0; row < List1->RowCount(); ++row)
        if (List1->Cell(row, NameColumn).compare(name, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

void frmSNoteType::cmdOk_Click() {
    const int row = List1->SelectedRow();
    if (row < 0)
        return;
    noteType_ = List1->ItemData(row).toInt();
    accept();
}
