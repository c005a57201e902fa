#include "people/frmabook.h"

#include <algorithm>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>

#include "people/frmcontact.h"
#include "people/mailtarget.h"
#include "people/owncontact.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "platform/database/transaction.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/listfiller.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int NameColumn = 1;

/// The column with this heading, or 0.
int columnOf(const ctList& list, const QString& heading) {
    for (int column = 1; column <= list.ColumnCount(); ++column)
        if (list.Header(column) == heading)
            return column;
    return 0;
}

QString tipOf(const QAction& command, const QString& instead = {}) {
    if (!instead.isEmpty())
        return instead;
    return QStringLiteral("%1 (%2)").arg(command.iconText(), command.shortcut().toString(QKeySequence::NativeText));
}

/// Deletes a contact of the logged-on user. One that is gone or another user's is left alone.
void deleteContact(int cid) {
    db::Connection& connection = Session().Connection;
    db::InTransaction(connection, [&] {
        const Recordset contact(Sql("Select uid from ContactList Where cid = {}", cid), connection);
        if (IsOwnContact(contact))
            connection.Execute(Sql("Delete from ContactList Where cid = {}", cid));
    });
}

}  // namespace

frmabook::frmabook(QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmabook"));
    setWindowTitle(QStringLiteral("Address Book"));
    buildForm();
    connectControls();
    mnuFPrint->setToolTip(tipOf(*mnuFPrint));
    mnuFExit->setToolTip(tr("Exit (Esc)"));
    cbogroups_Click();
}

void frmabook::connectControls() {
    connect(cbogroups, &QComboBox::activated, this, &frmabook::cbogroups_Click);
    connect(Text1, &QLineEdit::textChanged, this, &frmabook::Text1_Change);
    connect(filler_, &ListFiller::Progress, this, &frmabook::tellCount);
    connect(ctList1, &ctList::RowActivated, mnuFEdit, &QAction::trigger);
    connect(ctList1, &ctList::PopupRequested, this, [this](int, QPoint place) { mnuFile->popup(place); });
    connect(mnuFPrint, &QAction::triggered, this, &frmabook::printlist);
    connect(mnuFemail, &QAction::triggered, this, &frmabook::mnuFemail_Click);
    connect(mnuFNew, &QAction::triggered, this, [this] { openContact(frmcontact::NewContact); });
    connect(mnuFEdit, &QAction::triggered, this, &frmabook::mnuFEdit_Click);
    connect(mnuFDelete, &QAction::triggered, this, &frmabook::mnuFDelete_Click);
    connect(mnuFExit, &QAction::triggered, this, &QDialog::reject);
}

AddressList frmabook::ShownList() const {
    return static_cast<AddressList>(cbogroups->currentIndex());
}

bool frmabook::eventFilter(QObject* watched, QEvent* event) {
    if (watched != Text1 || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return QApplication::sendEvent(ctList1, event);
        default:
            return QDialog::eventFilter(watched, event);
    }
}

void frmabook::cbogroups_Click() {
    ctList1->setAccessibleName(cbogroups->currentText());
    switch (ShownList()) {
        case AddressList::Personal:
            loadcontacts();
            break;
        case AddressList::Patients:
            loadpatients();
            break;
        case AddressList::ReferralSources:
            loadref();
            break;
        case AddressList::InsuranceCompanies:
            loadins();
            break;
    }
    setcommands();
    Text1_Change();
}

// New stays on in an empty personal list, because an empty list is where one begins.
void frmabook::setcommands() {
    const bool personal = ShownList() == AddressList::Personal;
    enablecmenu(ctList1->RowCount() > 0);
    mnuFNew->setEnabled(personal && MayWrite());
    for (QAction* ofContacts : {mnuFEdit, mnuFDelete, mnuFemail})
        ofContacts->setEnabled(ofContacts->isEnabled() && personal);
    const QString ofPersonal = personal ? QString() : tr("Only for personal contacts.");
    for (QAction* writing : {mnuFNew, mnuFEdit, mnuFDelete})
        writing->setToolTip(personal && !MayWrite() ? tr("Not available to you.") : tipOf(*writing, ofPersonal));
    mnuFemail->setToolTip(tipOf(*mnuFemail, ofPersonal));
}

void frmabook::enablecmenu(bool enabled) {
    for (QAction* writing : {mnuFNew, mnuFEdit, mnuFDelete})
        writing->setEnabled(enabled && MayWrite());
    mnuFemail->setEnabled(enabled);
    mnuFPrint->setEnabled(enabled);
}

// A name that nobody has selects nobody, so that no command works on a row that was not asked for.
void frmabook::Text1_Change() {
    const QString typed = Text1->text();
    ctList1->SelectRow(-1);
    filler_->Seek(
        [this, typed](int row) { return ctList1->Cell(row, NameColumn).startsWith(typed, Qt::CaseInsensitive); },
        [this](int row) {
            if (ctList1->SelectedRow() < 0)
                ctList1->SelectRow(row);
            tellCount();
        });
}

void frmabook::tellCount() {
    const int loaded = filler_->Loaded();
    if (filler_->IsCutShort())
        pnlcount->setText(
            tr("Only the first %1 could be read. Choose the list again.").arg(QLocale().toString(ctList1->RowCount())));
    else if (!filler_->IsFilling() && loaded > 0 && !Text1->text().isEmpty() && ctList1->SelectedRow() < 0)
        pnlcount->setText(tr("No name begins with \"%1\".").arg(Text1->text()));
    else if (ctList1->RowCount() == 0)
        pnlcount->setText(tr("The list is empty."));
    else
        pnlcount->setText(QLocale().toString(ctList1->RowCount()));
}

int frmabook::selectedContact() const {
    return ctList1->ItemData(ctList1->SelectedRow()).toInt();
}

void frmabook::openContact(int contactId) {
    const int position = ctList1->SelectedRow();
    auto editor = std::make_unique<frmcontact>(contactId, parentWidget());
    const frmcontact& contact = *editor;
    if (!contact.IsLoaded())
        return reloadContacts(contactId, position);
    // The editor may be kept for longer than this form is open.
    RunEditor(std::move(editor),
              [this, &contact, position] {
                  const bool added = contact.ContactId() != frmcontact::NewContact;
                  reloadContacts(added ? contact.ContactId() : selectedContact(), position);
              },
              {});
}

void frmabook::reloadContacts(int contactId, int position) {
    loadcontacts();
    setcommands();
    filler_->Seek([this, contactId](int row) { return ctList1->ItemData(row).toInt() == contactId; },
                  [this, position](int row) {
                      ctList1->SelectRow(row >= 0 ? row : std::min(position, ctList1->RowCount() - 1));
                  });
}

void frmabook::mnuFEdit_Click() {
    if (ctList1->SelectedRow() >= 0)
        openContact(selectedContact());
}

// The list may go on being filled behind the question, so the row is found again by its key.
void frmabook::mnuFDelete_Click() {
    const QVariant key = ctList1->ItemData(ctList1->SelectedRow());
    if (!key.isValid() || MsgBox(QStringLiteral("Are you sure you want to delete this contact."), YesNoBox,
                                 QStringLiteral("Delete Contact")) != Answer::Yes)
        return;
    try {
        deleteContact(key.toInt());
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error deleting contact. "), error);
        return;
    }
    const int row = ctList1->FindItemData(key);
    ctList1->RemoveRow(row);
    setcommands();
    ctList1->SelectRow(std::min(row, ctList1->RowCount() - 1));
    tellCount();
}

void frmabook::mnuFemail_Click() {
    const int row = ctList1->SelectedRow();
    const QString address = ctList1->Cell(row, columnOf(*ctList1, QStringLiteral("E-Mail"))).trimmed();
    if (row < 0 || address.isEmpty())
        return;
    if (!OpenWithShell(MailTarget(address)))
        MsgBox(tr("No mail program could be opened."), ErrorBox, QStringLiteral("Error"));
}
