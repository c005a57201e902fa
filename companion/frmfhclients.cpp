#include "companion/frmfhclients.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "companion/companionfields.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/fillprogress.h"
#include "session/listfiller.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int NameColumn = 1;
constexpr int NumberColumn = 2;
constexpr int NumberCharacters = 10;

void tellFailure(const db::DatabaseError& error) {
    TellError(QStringLiteral("Error loading Fernhall clients. "), error);
}

Recordset companionClients(int most) {
    db::Connection companion;
    companion.Open(Session().FHConnectionString);
    Recordset clients;
    clients.Open(
        QStringLiteral(
            "Select ClntId, ClntLastName + ', ' + ClntFirstName from Clients Where ClntActiveInd = 1 Order by ClntLastName, ClntFirstName"),
        companion, db::Lock::ReadOnly, most);
    return clients;
}

// The pairs of every companion database count, as they do for the provider.
Recordset pairedPatients(const QString& provider, int most) {
    Recordset patients;
    patients.Open(
        Sql("Select Distinct last_name + ', ' + first_name as Patient, FHDataValue provider_id from patient_info inner join FHDataPairs on FHDataPairs.SVDataValue = patient_info.id left join PatientAccess on PatientAccess.patientId = patient_info.id Where Archive = 0 And FHDataList = 4 and (patient_info.provider_id = '{}' or PatientAccess.providerid = '{}') order by [Patient]",
            provider, provider),
        Session().Connection, db::Lock::ReadOnly, most);
    return patients;
}

}  // namespace

frmFHClients::frmFHClients(int ProvId, const QString& providerName, QWidget* parent)
    : QDialog(parent), provId_(ProvId) {
    setObjectName(QStringLiteral("frmFHClients"));
    setWindowTitle(tr("Select Fernhall Client"));
    buildForm(providerName);
    layOutForm();
    load();
    connect(txtfind, &TextField::textEdited, this, &frmFHClients::findTyped);
    connect(List1, &ctList::SelectionChanged, this, [this] { cmdOk->setEnabled(List1->SelectedRow() >= 0); });
    connect(List1, &ctList::RowActivated, this, &frmFHClients::cmdOk_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmFHClients::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmFHClients::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 58, fontMetrics().height() * 28};
}

void frmFHClients::buildForm(const QString& providerName) {
    lblProvider = Named(new QLabel(tr("Provider: %1").arg(OneLine(providerName)), this), "lblProvider");
    lblProvider->setTextFormat(Qt::PlainText);
    lblProvider->setFont(HeadingFont(1));
    lblProvider->setWordWrap(true);
    txtfind = Named(new TextField(this), "txtfind");
    txtfind->setClearButtonEnabled(true);
    txtfind->setPlaceholderText(tr("First letters of a name"));
    txtfind->installEventFilter(this);
    List1 = Named(new ctList(this), "List1");
    List1->setAccessibleName(tr("Clients"));
    List1->SetColumns({{tr("Client")}, {.header = tr("Number"), .widthCharacters = NumberCharacters}});
    List1->setColumnHidden(NumberColumn - 1, true);
    lblnobody = Named(new QLabel(this), "lblnobody");
    lblnobody->setWordWrap(true);
    lblnobody->hide();
    filler_ = new ListFiller(*List1, this);
    pnlprogress = new FillProgress(*filler_, this);
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdOk->setEnabled(false);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);
}

void frmFHClients::layOutForm() {
    auto* find = new QHBoxLayout;
    find->addWidget(FieldLabel(tr("&Find:"), txtfind));
    find->addWidget(txtfind, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    buttons->addWidget(pnlprogress, 1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdcancel);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(lblProvider);
    column->addLayout(find);
    column->addWidget(lblnobody);
    column->addWidget(List1, 1);
    column->addLayout(buttons);
    FitToScreen(*this);
    txtfind->setFocus();
}

// Up and Down move in the list while the cursor stays in the name.
bool frmFHClients::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtfind && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
            return QApplication::sendEvent(List1, event);
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            enterPressed();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

QString frmFHClients::GetSVProviderID() const {
    const Recordset pair(Sql("Select SVDataValue from FHDataPairs where FHDataValue = {} and FHDataList = 1", provId_),
                         Session().Connection);
    return pair.Eof() ? QString() : pair[0].text();
}

void frmFHClients::load() {
    const BusyPointer busy;
    try {
        const QString svProviderId = GetSVProviderID();
        if (svProviderId.isEmpty() && !Session().AllProviders)
            MsgBox(QStringLiteral("There is no matching provider in Solvane."), ExclamationBox,
                   QStringLiteral("Solvane"));
        else
            LoadClients(svProviderId);
    } catch (const db::DatabaseError& error) {
        tellFailure(error);
    }
    if (List1->RowCount() > 0)
        return;
    lblnobody->setText(tr("There is no client to choose."));
    lblnobody->show();
}

void frmFHClients::LoadClients(const QString& svProviderId) {
    const bool all = Session().AllProviders;
    filler_->Fill(
        [all, svProviderId](int most) { return all ? companionClients(most) : pairedPatients(svProviderId, most); },
        [this](const Recordset& row) { addClient(row); }, tellFailure);
}

// The two statements give name and key in different order.
void frmFHClients::addClient(const Recordset& row) {
    const bool all = Session().AllProviders;
    const int client = static_cast<int>(row[all ? 0 : 1].integer());
    const QString name = NameOrKey(row[all ? 1 : 0].text(), client);
    const int added = List1->AddRow({name, {}}, client);
    // The list is in the order of the names, so that those of one name follow each other.
    if (List1->Cell(added - 1, NameColumn).compare(name, Qt::CaseInsensitive) == 0)
        showNumbers({added - 1, added});
}

void frmFHClients::showNumbers(std::initializer_list<int> rows) {
    for (const int row : rows)
        List1->SetCell(row, NumberColumn, List1->ItemData(row).toString());
    List1->setColumnHidden(NumberColumn - 1, false);
}

void frmFHClients::findTyped() {
    const QString wanted = txtfind->text().trimmed().toUpper();
    filler_->StopSeeking();
    if (wanted.isEmpty())
        return;
    List1->SelectRow(-1);
    filler_->Seek([this, wanted](int row) { return List1->Cell(row, NameColumn).toUpper().startsWith(wanted); },
                  [this](int row) { List1->SelectRow(row); });
}

void frmFHClients::enterPressed() {
    filler_->Finish();
    if (List1->SelectedRow() >= 0)
        return cmdOk_Click();
    if (!txtfind->text().trimmed().isEmpty())
        MsgBox(QStringLiteral("Name not found."), InformationBox, QStringLiteral("Find"));
}

void frmFHClients::cmdOk_Click() {
    const int row = List1->SelectedRow();
    if (row < 0)
        return;
    clientId_ = List1->ItemData(row).toInt();
    clientName_ = List1->Cell(row, NameColumn);
    accept();
}
