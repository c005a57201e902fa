#include "people/frmnewpat.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "people/addressedit.h"
#include "people/patientage.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/controls/formarea.h"
#include "platform/database/recordset.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "session/errorbox.h"
#include "session/session.h"

namespace {

/// A date field that holds a date has a numeric value above this.
constexpr int NoDate = 100;

}  // namespace

frmnewpat::frmnewpat(const Names& known, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmnewpat"));
    buildForm();
    loadAccountLabel();
    loadprovlist();
    presetProvider(known.provider);
    txtdic->setDate(Today());
    watchChanges();
    // A name that was typed already is lost as little as one that is typed here.
    txtlname->setText(known.last);
    txtfname->setText(known.first);
    showMissing();
    FitToScreen(*this);
    // What is known already is not asked for first. The date of birth is always missing.
    missingFields().first().field->setFocus();
}

// Disconnects the date fields. One with the focus is left while the form is destroyed, and would otherwise signal a
// form of which only the base class still exists.
frmnewpat::~frmnewpat() {
    for (const ctDEdit* field : {txtdob, txtdic})
        disconnect(field, nullptr, this, nullptr);
}

void frmnewpat::reject() {
    if (!dirty)
        return QDialog::reject();
    const Answer answer =
        MsgBox(QStringLiteral("Changes made. Do you want to save?"), YesNoBox, QStringLiteral("Save Changes"));
    if (answer == Answer::No)
        return QDialog::reject();
    if (savenewpatient())
        accept();
}

void frmnewpat::watchChanges() {
    for (QLineEdit* field : {txtlname, txtfname, txtmi, txtsal, txtid, txtcity, txtstate, txtzip, txtemail})
        connect(field, &QLineEdit::textChanged, this, &frmnewpat::changed);
    for (ctMEdit* field : {txtssn, txthphone, txtwphone, txtcphone})
        connect(field, &ctMEdit::Change, this, &frmnewpat::changed);
    for (QComboBox* field : {cbosex, cboprovider})
        connect(field, &QComboBox::currentIndexChanged, this, &frmnewpat::changed);
    connect(txtdob, &ctDEdit::Change, this, &frmnewpat::changed);
    connect(txtdic, &ctDEdit::Change, this, &frmnewpat::changed);
    connect(txtaddress, &QPlainTextEdit::textChanged, this, &frmnewpat::changed);
    connect(ckactive, &QCheckBox::toggled, this, &frmnewpat::changed);
    connect(txtdob, &ctDEdit::editingFinished, this, &frmnewpat::txtdob_Leave);
    connect(cmdOk, &QPushButton::clicked, this, &frmnewpat::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &frmnewpat::reject);
}

void frmnewpat::loadprovlist() {
    try {
        db::Recordset providers("SELECT * From provider_info Where archive = 0 Order by prov_lastname",
                                Session().Connection);
        for (; !providers.Eof(); providers.MoveNext()) {
            const QString id = providers["id"].text();
            cboprovider->addItem(OneLine(providers["prov_lastname"].text()));
            // The ids tell providers with the same surname apart.
            cboprovider->setItemData(cboprovider->count() - 1, TipText(id), Qt::ToolTipRole);
            lstproviders->addItem(id);
        }
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error loading provider list. "), error);
    }
    cboprovider->setCurrentIndex(-1);
    if (cboprovider->count() == 0)
        cboprovider->setPlaceholderText(tr("No provider yet: add one in Solvane"));
}

void frmnewpat::presetProvider(const QString& id) {
    for (int row = 0; row < lstproviders->count() && !id.isEmpty(); ++row)
        if (lstproviders->item(row)->text().compare(id, Qt::CaseInsensitive) == 0)
            cboprovider->setCurrentIndex(row);
}

void frmnewpat::loadAccountLabel() {
    db::Ignoring([this] {
        const db::Recordset item("Select * from facesheet Where FacesheetId = 2", Session().Connection);
        if (!item.Eof() && !item["facesheetitem"].text().trimmed().isEmpty())
            lblid->setText(CaptionText(item["facesheetitem"].text().trimmed()));
    });
    QString spoken = lblid->text();
    txtid->setAccessibleName(spoken.replace(QStringLiteral("&&"), QStringLiteral("&")));
}

void frmnewpat::changed() {
    dirty = true;
    if (!txtdob->IsEmpty())
        birthDateNote_.clear();
    const QDate born = birthDate();
    lblage->setText(born.isValid() ? QString::number(AgeInYears(born)) : QString());
    lblage->setAccessibleName(tr("Age %1").arg(lblage->text()).trimmed());
    showMissing();
}

// Removes an impossible date of birth and shows the reason, which the field itself would lose.
void frmnewpat::txtdob_Leave() {
    const bool comesBack = !isActiveWindow() || QApplication::activePopupWidget() != nullptr;
    if (comesBack || txtdob->IsEmpty() || birthDate().isValid())
        return;
    const QString typed = txtdob->Text().simplified();
    const bool isDate = txtdob->Date().isValid();
    txtdob->setText({});
    birthDateNote_ = isDate ? tr("The date of birth %1 is after today.").arg(typed)
                            : tr("The date of birth \"%1\" is not a date.").arg(typed);
    showMissing();
}

void frmnewpat::showMissing() {
    QStringList names;
    for (const MissingField& missing : missingFields())
        names << missing.name;
    QStringList sentences = warnings();
    if (!names.isEmpty())
        sentences << tr("Still missing: %1.").arg(names.join(QStringLiteral(", ")));
    lblmissing->setText(sentences.join(QLatin1Char(' ')));
    cmdOk->setAccessibleDescription(lblmissing->text());
    cmdOk->setEnabled(names.isEmpty());
}

void frmnewpat::cmdOk_Click() {
    if (!dirty || savenewpatient())
        accept();
}

QDate frmnewpat::birthDate() const {
    const QDate date = txtdob->Date();
    return txtdob->Value() > NoDate && date <= Today() ? date : QDate();
}

QString frmnewpat::providerId() const {
    const QListWidgetItem* id = lstproviders->item(cboprovider->currentIndex());
    return id == nullptr ? QString() : id->text();
}

QList<frmnewpat::MissingField> frmnewpat::missingFields() const {
    QList<MissingField> missing;
    if (txtlname->text().trimmed().isEmpty())
        missing.append({tr("last name"), txtlname});
    if (txtfname->text().trimmed().isEmpty())
        missing.append({tr("first name"), txtfname});
    if (!birthDate().isValid())
        missing.append({tr("date of birth"), txtdob});
    if (cbosex->currentIndex() < 0)
        missing.append({tr("sex"), cbosex});
    if (cboprovider->currentIndex() < 0)
        missing.append({tr("provider"), cboprovider});
    return missing;
}

QStringList frmnewpat::warnings() const {
    QStringList warnings;
    if (!birthDateNote_.isEmpty())
        warnings << birthDateNote_;
    if (!txtssn->IsEmpty() && !txtssn->IsFilled())
        warnings << tr("The SSN is not complete and will not be saved.");
    if (!txtdic->IsEmpty() && !txtdic->IsValid())
        warnings << tr("The date of initial contact is not a date and will not be saved.");
    return warnings;
}
