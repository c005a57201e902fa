#include "appointments/frmwait.h"

#include <algorithm>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "appointments/frmwaitentry.h"
#include "data/pipefields.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/printing/tabletext.h"
#include "platform/printing/vsprinter.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/namedpreview.h"
#include "session/rights.h"
#include "session/session.h"

using db::Recordset;

namespace {

constexpr int PatientColumn = 1;
constexpr int NoteColumn = 8;
constexpr char ProvidersStatement[] = "Select id, prov_lastname, archive From provider_info";
const QString Title = QStringLiteral("Wait List");

QString cell(QString text) {
    return CleanFieldText(text.replace(u'\n', u' '));
}

}  // namespace

frmwait::frmwait(WaitOpening opening, QWidget* parent) : QDialog(parent), opening_(std::move(opening)) {
    setObjectName(QStringLiteral("frmwait"));
    setWindowTitle(Title);
    buildForm();
    layOutForm();
    connectControls();
    load(0);
}

QSize frmwait::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 160, fontMetrics().height() * 28};
}

void frmwait::buildForm() {
    ctList1 = Named(new ctList(this), "ctList1");
    ctList1->setAccessibleName(tr("Who waits"));
    const QString patient = Session().WordUsage.isEmpty() ? tr("Patient") : Session().WordUsage;
    ctList1->SetColumns({{patient, ListColumn::Kind::Text, 22},
                         {tr("Length"), ListColumn::Kind::Text, 14},
                         {tr("Providers"), ListColumn::Kind::Text, 16},
                         {tr("Days"), ListColumn::Kind::Text, 14},
                         {tr("Times"), ListColumn::Kind::Text, 20},
                         {tr("Until"), ListColumn::Kind::Text, 13},
                         {tr("Since"), ListColumn::Kind::Text, 13},
                         {tr("Note")},
                         {tr("State"), ListColumn::Kind::Text, 17}});
    FollowHiddenNames(ctList1);
    lblcount = Named(new QLabel(this), "lblcount");
    cmdadd = FormButton(tr("&Add..."), "cmdadd", this);
    cmdadd->setIcon(Icon("add"));
    cmdedit = FormButton(tr("&Edit..."), "cmdedit", this);
    cmdedit->setIcon(Icon("edit"));
    cmdclosed = FormButton(tr("Waits &No Longer"), "cmdclosed", this);
    cmdprint = FormButton(tr("&Print..."), "cmdprint", this);
    cmdprint->setIcon(Icon("print"));
    cmdclose = FormButton(tr("&Close"), "cmdclose", this);
}

void frmwait::layOutForm() {
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(cmdadd);
    buttons->addWidget(cmdedit);
    buttons->addWidget(cmdclosed);
    buttons->addWidget(cmdprint);
    buttons->addSpacing(Space(8));
    buttons->addWidget(lblcount, 1);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(ctList1, 1);
    column->addLayout(buttons);
    FitToScreen(*this);
    ctList1->setFocus();
}

void frmwait::connectControls() {
    connect(ctList1, &ctList::SelectionChanged, this, &frmwait::allowCommands);
    connect(ctList1, &ctList::RowActivated, this, &frmwait::cmdedit_Click);
    connect(cmdadd, &QPushButton::clicked, this, &frmwait::cmdadd_Click);
    connect(cmdedit, &QPushButton::clicked, this, &frmwait::cmdedit_Click);
    connect(cmdclosed, &QPushButton::clicked, this, &frmwait::cmdclosed_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmwait::cmdprint_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmwait::load(int selectId) {
    const BusyPointer busy;
    const int before = std::max(ctList1->SelectedRow(), 0);
    ctList1->Clear();
    rows_.clear();
    bool isRead = false;
    try {
        read();
        isRead = true;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading wait list. "), error);
    }
    for (const WaitRow& row : rows_)
        addRow(row);
    const int row = ctList1->FindItemData(selectId);
    ctList1->SelectRow(row >= 0 ? row : std::min(before, ctList1->RowCount() - 1));
    lblcount->setText(!isRead             ? QString()
                      : rows_.empty()     ? tr("Nobody waits.")
                      : rows_.size() == 1 ? tr("1 patient waits.")
                                          : tr("%1 patients wait.").arg(rows_.size()));
    allowCommands();
}

void frmwait::read() {
    const QString providers = QString::fromLatin1(ProvidersStatement);
    const db::ReadTogether together(Session().Connection, {providers, OpenWaitRowsStatement()});
    names_.clear();
    active_.clear();
    for (Recordset row(providers, Session().Connection); !row.Eof(); row.MoveNext()) {
        const QString id = row["id"].text().toUpper();
        names_.insert(id, row["prov_lastname"].text());
        if (row["archive"].integer() == 0)
            active_.insert(id);
    }
    rows_ = OpenWaitRows();
}

void frmwait::addRow(const WaitRow& row) {
    const int added = ctList1->AddRow(
        {row.patientName, WaitLengthText(row.entry.minutes), providersText(row), WaitDaysText(row.entry.days),
         WaitTimesText(row.entry.times), row.entry.until.isValid() ? ShortDateText(row.entry.until) : QString(),
         row.since.isValid() ? ShortDateText(row.since.date()) : QString(), row.note, stateOf(row)},
        row.id);
    ctList1->NameCell(added, PatientColumn);
    if (!row.note.isEmpty())
        ctList1->NameCell(added, NoteColumn);
}

QString frmwait::stateOf(const WaitRow& row) const {
    if (row.patientGone)
        return tr("Patient deleted");
    if (!row.entry.patientActive)
        return tr("Patient archived");
    if (row.entry.until.isValid() && row.entry.until < Today())
        return tr("Date has passed");
    const QStringList& wanted = row.entry.providers;
    const bool anybody =
        std::any_of(wanted.begin(), wanted.end(), [this](const QString& id) { return active_.contains(id.toUpper()); });
    if (!wanted.isEmpty() && !anybody)
        return wanted.size() == 1 ? tr("Provider archived") : tr("Providers archived");
    return tr("Waiting");
}

QString frmwait::providersText(const WaitRow& row) const {
    QStringList names;
    for (const QString& id : row.entry.providers) {
        const QString name = names_.value(id.toUpper());
        names << (name.isEmpty() ? id : name);
    }
    return names.isEmpty() ? tr("any") : names.join(QStringLiteral(", "));
}

void frmwait::allowCommands() {
    const QString why = MayWrite() ? tr("Select an entry first.") : tr("Not available to you.");
    const bool onRow = ctList1->SelectedRow() >= 0;
    cmdadd->setEnabled(MayWrite());
    cmdadd->setToolTip(MayWrite() ? QString() : why);
    for (QPushButton* button : {cmdedit, cmdclosed}) {
        button->setEnabled(MayWrite() && onRow);
        button->setToolTip(button->isEnabled() ? QString() : why);
    }
    cmdprint->setEnabled(!rows_.empty());
    cmdprint->setToolTip(rows_.empty() ? lblcount->text() : QString());
    (rows_.empty() && MayWrite() ? cmdadd : MayWrite() ? cmdedit : cmdclose)->setDefault(true);
}

void frmwait::cmdadd_Click() {
    WaitRow row;
    row.entry.patientId = opening_.patientId;
    row.entry.minutes = opening_.minutes;
    if (!opening_.providerId.isEmpty())
        row.entry.providers << opening_.providerId;
    else if (!Session().AllProviders)
        row.entry.providers << Session().ProviderId;
    runEntry(row);
}

void frmwait::cmdedit_Click() {
    const int row = ctList1->SelectedRow();
    if (row >= 0 && MayWrite())
        runEntry(rows_[static_cast<std::size_t>(row)]);
}

void frmwait::runEntry(const WaitRow& row) {
    frmwaitentry form(row, this);
    const int id = row.id;  // The row may be one of those that are read anew.
    const int before = ctList1->RowCount();
    ShowModal(form);
    load(id);
    // Who was added waits last.
    if (id == 0 && ctList1->RowCount() > before)
        ctList1->SelectRow(ctList1->RowCount() - 1);
    ctList1->setFocus();
}

void frmwait::cmdclosed_Click() {
    const int row = ctList1->SelectedRow();
    if (row < 0 || MsgBox(tr("Take this entry off the wait list?"), YesNoBox, Title) != Answer::Yes)
        return;
    const WriteOutcome outcome = CloseWaitRow(ctList1->ItemData(row).toInt());
    if (outcome.failure)
        TellError(WriteTrouble(outcome.step), *outcome.failure);
    load(0);
    ctList1->setFocus();
}

void frmwait::cmdprint_Click() {
    PreviewWithNames([this] { return printedList(); }, this);
}

VSPrinter frmwait::printedList() const {
    QString body;
    for (int row = 0; row < ctList1->RowCount(); ++row) {
        QStringList cells = ctList1->ShownCells(row);
        for (QString& each : cells)
            each = cell(each);
        body += cells.join(u'|') + u';';
    }
    VSPrinter vp;
    vp.SetTitle(Title);
    vp.SetHeader(QStringLiteral("|Wait List|"));
    vp.SetFooter(ShortDateText(Today()) + QStringLiteral("||Page %d"));
    vp.SetOrientation(QPageLayout::Landscape);
    QStringList titles;
    for (int column = 1; column <= ctList1->ColumnCount(); ++column)
        titles << ctList1->Header(column);
    vp.AddTable(printing::ParseTable(QStringLiteral("2300|1100|1700|1500|1900|1100|1100|2200|1500;"),
                                     titles.join(u'|') + u';', body));
    return vp;
}
