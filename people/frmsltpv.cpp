#include "people/frmsltpv.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/controls/ctlist.h"
#include "platform/controls/formparts.h"
#include "platform/controls/listfilter.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

constexpr int NameColumn = 1;

}  // namespace

frmsltpv::frmsltpv(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmsltpv"));
    setWindowTitle(tr("Select Provider"));
    buildForm();
    loadProviders();
    List1->SelectRow(List1->FindItemData(Session().ProviderId));
    if (List1->SelectedRow() < 0 && List1->RowCount() > 0)
        List1->SelectRow(0);
    cmdOk->setEnabled(List1->SelectedRow() >= 0);

    connect(txtfind, &TextField::textChanged, this,
            [this](const QString& text) { cmdfind->setEnabled(!text.isEmpty()); });
    connect(txtfind, &TextField::textChanged, this, &frmsltpv::filter);
    connect(txtfind, &TextField::textEdited, this, &frmsltpv::cmdfind_Click);
    connect(cmdfind, &QPushButton::clicked, this, &frmsltpv::cmdfind_Click);
    connect(List1, &ctList::SelectionChanged, this, [this] { cmdOk->setEnabled(List1->SelectedRow() >= 0); });
    connect(List1, &ctList::RowActivated, this, &frmsltpv::cmdOk_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmsltpv::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

QSize frmsltpv::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 58, fontMetrics().height() * 28};
}

void frmsltpv::buildForm() {
    txtfind = new TextField(this);
    txtfind->setObjectName(QStringLiteral("txtfind"));
    txtfind->setClearButtonEnabled(true);
    txtfind->setPlaceholderText(tr("Part of a name"));
    txtfind->installEventFilter(this);
    auto* label = new QLabel(tr("&Find:"), this);
    label->setBuddy(txtfind);
    cmdfind = new QPushButton(Icon("find"), tr("F&ind"), this);
    cmdfind->setObjectName(QStringLiteral("cmdfind"));
    cmdfind->setAutoDefault(false);
    cmdfind->setEnabled(false);

    List1 = new ctList(this);
    List1->setObjectName(QStringLiteral("List1"));
    List1->setAccessibleName(tr("Providers"));
    List1->SetColumns({{tr("Provider")}, {tr("User Id"), ListColumn::Kind::Text, 18}});

    lblnobody = new QLabel(
        tr("There is no provider to choose yet. Add a provider with a password in Solvane, then start the scheduler again."),
        this);
    lblnobody->setObjectName(QStringLiteral("lblnobody"));
    lblnobody->setWordWrap(true);
    lblnobody->hide();

    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);

    auto* find = new QHBoxLayout;
    find->addWidget(label);
    find->addWidget(txtfind, 1);
    find->addWidget(cmdfind);
    lblcount = Named(new QLabel(this), "lblcount");
    auto* buttons = ButtonRow({cmdOk, cmdcancel});
    buttons->insertWidget(0, lblcount);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addLayout(find);
    column->addWidget(lblnobody);
    column->addWidget(List1, 1);
    column->addLayout(buttons);
    txtfind->setFocus();
}

// Up and Down move in the list while the cursor stays in the name.
bool frmsltpv::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtfind && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown)
            return QApplication::sendEvent(List1, event);
    }
    return QDialog::eventFilter(watched, event);
}

void frmsltpv::loadProviders() {
    db::Ignoring([this] {
        db::Recordset providers(
            db::Sql(
                "Select id, prov_lastname, pswd_type_of_access from provider_info, passwords Where provider_info.id = passwords.pswd_user_id AND archive = 0 and ((ExcludeFromScheduler IS NULL or ExcludeFromScheduler = 0) or id = '{}') Order by prov_lastname",
                Session().UID),
            Session().Connection);
        for (; !providers.Eof(); providers.MoveNext()) {
            const QString id = providers["id"].text();
            const int row = List1->AddRow({providers["prov_lastname"].text(), id}, id);
            List1->SetItemText(row, providers["prov_lastname"].text());
        }
        filter();
        lblnobody->setVisible(List1->RowCount() == 0);
        List1->setVisible(List1->RowCount() > 0);
    });
}

void frmsltpv::filter() {
    List1->SetFilter(txtfind->text().trimmed(), NameColumn);
    lblcount->setText(CountText(*List1, {tr("provider"), tr("providers")}));
}

void frmsltpv::cmdfind_Click() {
    const QString wanted = txtfind->text();
    if (wanted.isEmpty())
        return;
    for (int row = 0; row < List1->RowCount(); ++row)
        if (List1->Cell(row, NameColumn).startsWith(wanted, Qt::CaseInsensitive)) {
            List1->SelectRow(row);
            return;
        }
    // Enter must not open the schedule of another provider than the one whose name was typed.
    List1->SelectRow(-1);
}

void frmsltpv::cmdOk_Click() {
    const int row = List1->SelectedRow();
    if (row < 0)
        return;
    Session().ProviderId = List1->ItemData(row).toString();
    Session().ProviderName = List1->ItemText(row);
    accept();
}
