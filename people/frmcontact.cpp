#include "people/frmcontact.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QStackedWidget>

#include "people/addressedit.h"
#include "people/owncontact.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/notefield.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Lock;
using db::Recordset;
using db::Sql;

namespace {

Recordset contactOf(int cid, Lock lock) {
    return {Sql("Select * from ContactList Where cid = {}", cid), Session().Connection, lock};
}

void tellGone() {
    MsgBox(QStringLiteral("Record not found. Another user may have deleted this record."), InformationBox,
           QStringLiteral("Solvane"));
}

}  // namespace

frmcontact::frmcontact(int EditContactId, QWidget* parent) : EditorDialog(parent), contactId_(EditContactId) {
    setObjectName(QStringLiteral("frmcontact"));
    setWindowTitle(QStringLiteral("Contact Information"));
    buildForm();
    if (contactId_ != NewContact)
        loadcontact(contactId_);
    before_ = columns();
    connect(SSRibbon1, &QPushButton::clicked, this, [this] { showPage(0); });
    connect(SSRibbon2, &QPushButton::clicked, this, [this] { showPage(1); });
    connect(cmdOk, &QPushButton::clicked, this, &frmcontact::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmcontact::IsChanged() const {
    return columns() != before_;
}

bool frmcontact::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (typed == QLatin1String(";") || typed == QLatin1String("|"))
            return true;
    }
    return EditorDialog::eventFilter(watched, event);
}

void frmcontact::showPage(int page) {
    pages_->setCurrentIndex(page);
    if (page == 0)
        txtlname->setFocus();
    else
        txtnotes->setFocus();
}

void frmcontact::loadcontact(int cid) {
    loaded_ = false;
    try {
        const Recordset contact = contactOf(cid, Lock::ReadOnly);
        if (!IsOwnContact(contact))
            return tellGone();
        const std::pair<TextField*, const char*> fields[]{
            {txtco, "company"},         {txtfname, "fname"},  {txtlname, "lname"}, {txtmi, "mi"},
            {txtcity, "city"},          {txtstate, "state"},  {txtzip, "zip"},     {txthphone, "hphone"},
            {txtwphone, "wphone"},      {txtfax, "fax"},      {txtpager, "pager"}, {txtmphone, "mobilephone"},
            {txtemail, "emailaddress"}, {txttitle, "ctitle"}, {txtdept, "cdept"}};
        for (const auto& [field, column] : fields)
            field->ShowWhole(contact[column].text());
        txtaddress->setPlainText(contact["address"].text());
        txtnotes->setPlainText(contact["notes"].text());
        loaded_ = true;
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading contact. "), error);
    }
}

std::vector<frmcontact::ColumnText> frmcontact::columns() const {
    const auto text = [](const TextField* field) { return field->Stored().trimmed(); };
    const auto phone = [](const ctMEdit* field) { return field->Raw().trimmed(); };
    return {{"company", text(txtco)},
            {"fname", text(txtfname)},
            {"lname", text(txtlname)},
            {"address", txtaddress->StoredText()},
            {"hphone", phone(txthphone)},
            {"wphone", phone(txtwphone)},
            {"emailaddress", text(txtemail)},
            {"fax", phone(txtfax)},
            {"pager", phone(txtpager)},
            {"mi", text(txtmi)},
            {"ctitle", text(txttitle)},
            {"cdept", text(txtdept)},
            {"city", text(txtcity)},
            {"state", text(txtstate)},
            {"zip", text(txtzip)},
            {"notes", txtnotes->StoredText()},
            {"mobilephone", phone(txtmphone)}};
}

bool frmcontact::savecontacts() {
    Recordset contact(QStringLiteral("Select * from contactList where 0=1"), Session().Connection, Lock::Optimistic);
    contact.AddNew();
    contact.Set("uid", Session().UID);
    for (const auto& [column, text] : columns())
        contact.Set(column, text);
    contact.Update();
    contactId_ = static_cast<int>(contact["cid"].integer());
    return true;
}

bool frmcontact::updatecontact(int cid) {
    Recordset contact = contactOf(cid, Lock::Optimistic);
    if (!IsOwnContact(contact)) {
        tellGone();
        contactId_ = NewContact;
        return false;
    }
    const std::vector<ColumnText> now = columns();
    // What was left alone stays as it is stored, even where the form shows it in another way.
    for (std::size_t i = 0; i < now.size(); ++i)
        if (now[i] != before_[i])
            contact.Set(now[i].first, now[i].second);
    contact.Update();
    return true;
}

void frmcontact::cmdOk_Click() {
    if (!IsChanged())
        return accept();
    const BusyPointer busy;
    try {
        if (contactId_ == NewContact ? savecontacts() : updatecontact(contactId_))
            return accept();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error saving contact. "), error);
    }
    closeUnsaved();
}
