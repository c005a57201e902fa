#include "shell/finddialog.h"

#include <QCheckBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "data/pipefields.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/tabletext.h"
#include "platform/printing/vsprinter.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/namedpreview.h"
#include "session/session.h"

using db::Recordset;

namespace {

QString tableRow(QStringList cells) {
    for (QString& cell : cells)
        cell = CleanFieldText(cell);
    return insertpipes(cells.join(u';')) + u';';
}

}  // namespace

FindDialog::FindDialog(Texts texts, std::vector<ListColumn> columns, QWidget* parent)
    : QDialog(parent), texts_(std::move(texts)) {
    buildForm(std::move(columns));
    layOutForm();
    connect(txtfind, &QLineEdit::textChanged, this, [this](const QString& text) {
        cmdfind->setEnabled(!text.isEmpty());
        cmdfind->setDefault(true);
    });
    connect(cmdfind, &QPushButton::clicked, this, &FindDialog::cmdfind_Click);
    connect(ctList1, &ctList::RowActivated, this, &FindDialog::cmdgoto_Click);
    connect(cmdgoto, &QPushButton::clicked, this, &FindDialog::cmdgoto_Click);
    connect(cmdprint, &QPushButton::clicked, this, &FindDialog::cmdprint_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

QSize FindDialog::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 30};
}

void FindDialog::buildForm(std::vector<ListColumn> columns) {
    auto* wanted = Named(new TextField(this), "txtfind");
    wanted->setClearButtonEnabled(true);
    // These signs would break the printed row or the statement.
    wanted->SetAccepts([](QChar c) { return c != u'"' && c != u'*' && c != u';' && c != u'|'; });
    txtfind = wanted;
    cmdfind = FormButton(tr("&Find"), "cmdfind", this);
    cmdfind->setIcon(Icon("find"));
    cmdfind->setEnabled(false);
    ckselected = Named(new QCheckBox(QStringLiteral("Print &Selected Items Only"), this), "ckselected");
    cmdprint = FormButton(tr("&Print..."), "cmdprint", this);
    cmdprint->setIcon(Icon("print"));
    cmdgoto = FormButton(tr("&Go To"), "cmdgoto", this);
    cmdclose = FormButton(tr("&Close"), "cmdclose", this);
    ctList1 = Named(new ctList(this), "ctList1");
    ctList1->setAccessibleName(GetPipeField(texts_.header, 2));
    ctList1->SetMultiSelect(true);
    ctList1->SetColumns(std::move(columns));
    lblcount = Named(new QLabel(this), "lblcount");
    lblcount->setWordWrap(true);
    FollowHiddenNames(ctList1);
    allowResults(false);
}

void FindDialog::layOutForm() {
    auto* label = FieldLabel(texts_.question, txtfind);
    label->setWordWrap(true);
    auto* find = new QHBoxLayout;
    find->addWidget(txtfind, 1);
    find->addWidget(cmdfind);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(ckselected);
    buttons->addSpacing(Space(8));
    buttons->addWidget(cmdprint);
    buttons->addWidget(cmdgoto);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(label);
    choices_ = new QVBoxLayout;
    choices_->setSpacing(Space(8));
    choices_->addLayout(find);
    column->addLayout(choices_);
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    FitToScreen(*this);
    txtfind->setFocus();
}

void FindDialog::addChoice(QWidget* choice) {
    choices_->addWidget(choice);
    setTabOrder(cmdfind, choice);
}

void FindDialog::changeColumns(std::vector<ListColumn> columns, const QString& widths, const QString& titles) {
    const bool again = ctList1->RowCount() > 0 && !txtfind->text().isEmpty();
    texts_.widths = widths;
    texts_.titles = titles;
    ctList1->SetColumns(std::move(columns));
    lblcount->clear();
    allowResults(false);
    if (again)
        cmdfind_Click();
}

void FindDialog::allowResults(bool allowed) {
    ckselected->setEnabled(allowed);
    cmdprint->setEnabled(allowed);
    cmdgoto->setEnabled(allowed);
}

void FindDialog::cmdfind_Click() {
    const BusyPointer busy;
    allowResults(false);
    ctList1->Clear();
    lblcount->clear();
    try {
        addHits();
    } catch (const db::DatabaseError& error) {
        TellError(texts_.failure, error);
    }
    const int hits = ctList1->RowCount();
    if (hits == 0)
        return;
    lblcount->setText(countText(hits));
    ctList1->SelectRow(0);
    allowResults(true);
    cmdgoto->setDefault(true);
    ctList1->setFocus();
}

void FindDialog::addHits() {
    Recordset rows(statementFor(txtfind->text()), Session().Connection);
    if (rows.Eof()) {
        MsgBox(QStringLiteral("No Matching Records."), InformationBox, QStringLiteral("Find"));
        txtfind->setFocus();
        txtfind->selectAll();
        return;
    }
    listHits(rows);
}

void FindDialog::listHits(Recordset& rows) {
    for (; !rows.Eof(); rows.MoveNext())
        ctList1->AddRow(listLine(rows), rows["nkeyid"].integer());
    rows.MoveFirst();
    nameHits(rows);
}

QString FindDialog::countText(int hits) const {
    return hits == 1 ? texts_.one : texts_.many.arg(hits);
}

void FindDialog::cmdgoto_Click() {
    const int row = ctList1->SelectedRow();
    if (row < 0)
        return;
    try {
        goTo(ctList1->ItemData(row).toLongLong());
    } catch (const db::DatabaseError& error) {
        TellError(texts_.failure, error);
    }
}

void FindDialog::cmdprint_Click() {
    const bool selectedOnly = ckselected->isChecked();
    if (selectedOnly && ctList1->SelectedRow() < 0) {
        lblcount->setText(texts_.selectOne);
        return;
    }
    PreviewWithNames([this, selectedOnly] { return printedList(selectedOnly); }, this);
}

VSPrinter FindDialog::printedList(bool selectedOnly) const {
    QString body;
    for (int row = 0; row < ctList1->RowCount(); ++row)
        if (!selectedOnly || ctList1->selectionModel()->isRowSelected(row))
            body += tableRow(ctList1->ShownCells(row));
    VSPrinter vp;
    vp.SetTitle(GetPipeField(texts_.header, 2));
    vp.SetHeader(texts_.header);
    vp.SetFooter(QStringLiteral("||Page %d"));
    vp.AddTable(printing::ParseTable(texts_.widths, texts_.titles, body));
    return vp;
}
