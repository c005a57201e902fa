#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include "output/frmemail.h"
#include "platform/desktop/desktop.h"
#include "session/errorbox.h"

namespace {

const QString Title = QStringLiteral("Solvane");
const QString WhereToSet =
    QStringLiteral("\nPlease have an admin user login, and go to Setup, Preferences, e-Prescribing, Email.");

}  // namespace

void frmEmail::loadSettings() {
    try {
        settings_ = GetSMTPSettings();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading SMTP Settings. "), error);
    }
}

void frmEmail::loadCompany() {
    try {
        company_ = GetCompanyInfo();
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading company information. "), error);
    }
}

// What could not be read when the form opened is read now, so that a message need not be typed again.
void frmEmail::SSRibbon1_Click() {
    if (!settings_)
        loadSettings();
    if (!company_)
        loadCompany();
    if (!settings_ || !company_)
        return;
    lblfrom->setText(company_->emailaddress);
    if (settings_->SMTPServer.isEmpty()) {
        MsgBox(QStringLiteral("SMTP Server name needs to be set."), ExclamationBox, Title);
        return;
    }
    if (company_->emailaddress.isEmpty()) {
        MsgBox(QStringLiteral("A company email address is required.") + WhereToSet, ExclamationBox, Title);
        return;
    }
    if (const auto ready = message())
        settings_->SMTPSSL ? SendSecureMail(*ready) : SendPlainMail(*ready);
}

void frmEmail::cmdCancel_Click() {
    if (!takesEscape())
        reject();
}

std::optional<mail::Message> frmEmail::message() {
    const auto from = mail::Address::From(company_->emailaddress);
    if (!from) {
        MsgBox(tr("The company email address is not valid: %1").arg(company_->emailaddress) + WhereToSet,
               ExclamationBox, Title);
        return std::nullopt;
    }
    const auto to = addressesOf(*txtto);
    const auto cc = to ? addressesOf(*txtcc) : std::nullopt;
    const auto bcc = cc ? addressesOf(*txtbcc) : std::nullopt;
    if (!bcc)
        return std::nullopt;
    if (to->empty()) {
        MsgBox(tr("Enter the address of whom the message goes to."), ExclamationBox, Title);
        txtto->setFocus();
        return std::nullopt;
    }
    return mail::Message{*from, *to, *cc, *bcc, txtsubject->text(), txtbody->toPlainText()};
}

std::optional<std::vector<mail::Address>> frmEmail::addressesOf(QLineEdit& field) {
    const mail::AddressList list = mail::ReadAddresses(field.text());
    if (list.refused.isEmpty())
        return list.addresses;
    const QString refused = list.refused.front();
    MsgBox(
        tr("This is not an e-mail address: %1\nSeveral addresses are separated by commas or semicolons. A name that holds one of these stands in quotes.")
            .arg(refused),
        ExclamationBox, Title);
    field.setFocus();
    field.setSelection(static_cast<int>(list.firstRefused), static_cast<int>(refused.size()));
    return std::nullopt;
}

void frmEmail::SendPlainMail(const mail::Message& message) {
    send(message, &frmEmail::tellPlain);
}

void frmEmail::SendSecureMail(const mail::Message& message) {
    send(message, &frmEmail::tellSecure);
}

void frmEmail::send(const mail::Message& message, void (frmEmail::*tell)(const mail::Outcome&)) {
    showSending(true);
    sending_ = std::make_unique<mail::Sending>(MailServerOf(*settings_), message);
    connect(sending_.get(), &mail::Sending::Progressed, this, &frmEmail::showStep);
    connect(sending_.get(), &mail::Sending::Finished, this, [this, tell](const mail::Outcome& outcome) {
        sending_.release()->deleteLater();
        showSending(false);
        showStatus(outcome.description);
        if (!outcome.cancelled)
            (this->*tell)(outcome);
    });
}

void frmEmail::tellPlain(const mail::Outcome& outcome) {
    if (!outcome.isSent()) {
        MsgBox(QStringLiteral("There was an error sending your message. Error: %1").arg(outcome.number), ErrorBox,
               Title);
        return;
    }
    MsgBox(QStringLiteral("Message sent successfully."), InformationBox, Title);
    accept();
}

void frmEmail::tellSecure(const mail::Outcome& outcome) {
    if (!outcome.isSent()) {
        MsgBox(QStringLiteral("Error sending email. %1, %2").arg(outcome.number).arg(outcome.description), ErrorBox,
               Title);
        return;
    }
    MsgBox(QStringLiteral("E-Mail Sent"), InformationBox, Title);
    accept();
}

void frmEmail::showStep(mail::Step step) {
    const QString texts[] = {tr("Connecting to %1 ...").arg(settings_->SMTPServer), tr("Signing in ..."),
                             tr("Sending the message ..."), tr("Waiting for the server to confirm the message ...")};
    pnlprogress->setValue(static_cast<int>(step) + 1);
    showStatus(texts[static_cast<int>(step)]);
}

// The form itself takes the focus while it sends. A key that was meant for Send would otherwise press Cancel.
void frmEmail::showSending(bool isSending) {
    if (isSending) {
        focusBefore_ = focusWidget();
        setFocus();
    }
    for (QLineEdit* field : {txtto, txtcc, txtbcc, txtsubject})
        field->setReadOnly(isSending);
    txtbody->setReadOnly(isSending);
    SSRibbon1->setEnabled(!isSending);
    pnlprogress->setValue(0);
    pnlprogress->setVisible(isSending);
    if (!isSending && focusBefore_)
        focusBefore_->setFocus();
}

void frmEmail::showStatus(const QString& text) {
    lblstatus->setText(text);
    lblstatus->setAccessibleName(text);
    QAccessibleEvent told(lblstatus, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}
