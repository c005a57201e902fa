#include "followup/frmesign.h"

#include <QPushButton>

#include "followup/signaturekey.h"
#include "followup/signaturestamp.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "platform/signature/sigplus.h"
#include "session/errorbox.h"
#include "session/rights.h"
#include "session/session.h"

namespace {

const QString Title = QStringLiteral("Solvane");

void stop(const QString& text, QWidget* field) {
    MsgBox(text, ExclamationBox, Title);
    field->setFocus();
}

}  // namespace

frmesign::frmesign(const SignatureRequest& request, QWidget* parent) : QDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmesign"));
    setWindowTitle(QStringLiteral("Electronic Signature"));
    buildForm();
    connectButtons();
    if (request_.way == SignatureWay::Web)
        openPage();
}

void frmesign::connectButtons() {
    connect(cmdSign, &QPushButton::clicked, this, &frmesign::cmdSign_Click);
    connect(cmdsign2, &QPushButton::clicked, this, &frmesign::cmdsign2_Click);
    connect(cmdSign3, &QPushButton::clicked, this, &frmesign::cmdSign3_Click);
    connect(cmdClear, &QPushButton::clicked, SigPlus1, &SigPlus::Clear);
    connect(cmdClearPic, &QPushButton::clicked, this, &frmesign::cmdClearPic_Click);
    for (const QPushButton* cancel : {cmdcancel, cmdcancel2, cmdCancel3})
        connect(cancel, &QPushButton::clicked, this, &frmesign::reject);
}

void frmesign::done(int result) {
    closed_ = true;
    QDialog::done(result);
}

void frmesign::cmdSign_Click() {
    if (txtuserid->text().toUpper() != request_.UserName.toUpper()) {
        stop(QStringLiteral("User ID is not correct for selected Provider."), txtuserid);
        return;
    }
    if (txtuserid->text().isEmpty()) {
        stop(QStringLiteral("Enter a User ID."), txtuserid);
        return;
    }
    if (txtpw->text().isEmpty()) {
        stop(QStringLiteral("Enter a valid password."), txtpw);
        return;
    }
    bool ok = false;
    VerifyPassword(txtuserid->text(), ok);
    if (!ok) {
        txtpw->setFocus();
        txtpw->selectAll();
        return;
    }
    PlaySound(Session().AppPath + QStringLiteral("/findlist.wav"));
    write(request_.UserName, {});
}

void frmesign::VerifyPassword(const QString& userid, bool& ok) const {
    const QString stored = GetStoredPassword(userid);
    ok = !stored.isEmpty() && txtpw->text() == stored;
    if (!ok)
        MsgBox(QStringLiteral("Error validating password for selected user or invalid password. Try again."),
               ExclamationBox, Title);
}

void frmesign::cmdsign2_Click() {
    signWith(*SigPlus1);
}

void frmesign::signWith(SigPlus& pad) {
    if (pad.PointCount() < 1) {
        stop(QStringLiteral("No signature detected."), &pad);
        return;
    }
    pad.SetEncryptionMode(0);
    pad.StartKey();
    const QString key = SignatureKey(request_.SessionId);
    if (key.isEmpty())
        return;
    pad.SetKeyText(key);
    pad.FinishKey();
    pad.SetEncryptionMode(2);
    pad.SetCompressionMode(1);
    write(request_.ProviderName, pad.SignatureText());
}

void frmesign::write(const QString& name, const QString& text) {
    if (isStored())
        TryAndTell(tr("The note is not signed. "), [&] {
            SaveSignature({request_.SessionId, request_.ProviderName, name, request_.ProviderId, text});
        });
    accept();
}

bool frmesign::isStored() const {
    return request_.CallerName.compare(QLatin1String("frmmsdapt"), Qt::CaseInsensitive) == 0;
}
