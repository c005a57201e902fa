#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include "followup/frmesign.h"
#include "followup/frmmsdapt.h"
#include "followup/signaturekey.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/fieldflag.h"
#include "platform/controls/notefield.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/signature/sigplus.h"
#include "platform/theme/theme.h"
#include "session/errorbox.h"
#include "session/session.h"

using db::Recordset;
using db::Sql;

namespace {

constexpr int SealedUnderKey = 2;
constexpr int Compressed = 1;
constexpr int PadHeight = 6;  // In steps of 16 of the spacing grid.

QString dateText(const QDateTime& moment) {
    return QLocale::c().toString(moment, QStringLiteral("MMM dd, yyyy"));
}

QString signatureLine(const StoredSignature& signature) {
    return QStringLiteral("Electronically signed by %1 on %2 %3")
        .arg(signature.name, dateText(signature.date),
             QLocale::c().toString(signature.date, QStringLiteral("hh:mm ap")));
}

QString confirmation() {
    return QStringLiteral(
               "By clicking SIGN, you hereby confirm that you have reviewed and verified the contents of the data entered in this document on ") +
           QLocale::c().toString(Now(), QStringLiteral("MMM dd, yyyy h:mm ap"));
}

QString firstText(const QString& statement) {
    const Recordset row(statement, Session().Connection);
    return row.Eof() ? QString() : row[0].text().trimmed();
}

}  // namespace

void frmmsdApt::btnsign_Click(SignatureWay way) {
    settleFields();
    if (ctdate->Value() < FirstValidDate) {
        refuse(QStringLiteral("Enter a valid date."), ctdate, QStringLiteral("Solvane"));
        return;
    }
    if (!hasReason()) {
        refuse(QStringLiteral("Enter a note."), txtreason, QStringLiteral("Solvane"));
        return;
    }
    // Somebody must have been there to sign.
    if (!isComplete())
        return;
    const MissedNoteState shown = shownNote();
    // Whoever signs a note that had no provider becomes its provider.
    if (stored_ && shown != *stored_)
        savedState_->clear();
    if (!save())
        return;
    if (*stored_ != shown) {
        MsgBox(tr("Another user has changed this note. Read it again before you sign it."), ExclamationBox,
               QStringLiteral("Solvane"));
        return;
    }
    // Another desk may have signed it. A drawing that the save has torn goes before the new signature comes.
    if (!ReloadNote())
        return;
    if (signed_) {
        MsgBox(tr("Another user has signed this note."), ExclamationBox, QStringLiteral("Solvane"));
        return;
    }
    ReloadNote(SignMissedAppointmentNote(way));
}

bool frmmsdApt::SignMissedAppointmentNote(SignatureWay way) {
    const std::optional<SignatureRequest> request = signatureRequest(way);
    if (!request)
        return false;
    frmesign form(*request, this);
    return ShowModal(form) == QDialog::Accepted;
}

std::optional<SignatureRequest> frmmsdApt::signatureRequest(SignatureWay way) const {
    SignatureRequest request;
    request.way = way;
    request.SessionId = noteId_;
    request.CallerName = QStringLiteral("frmmsdApt");
    request.ProviderId = providerId();
    const QString name =
        Sql("Select pfirst_name + ' ' + plast_name AS [ProviderName] from provider_info Where id = '{}'",
            request.ProviderId);
    const QString login = Sql("select pswd_user_id from passwords where pswd_user_id = '{}'", request.ProviderId);
    try {
        const db::ReadTogether together(Session().Connection, {name, login});
        request.ProviderName = firstText(name);
        request.UserName = firstText(login);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading provider. "), error);
        return std::nullopt;
    }
    // The full name is missing where one of its two parts is.
    if (request.ProviderName.isEmpty())
        request.ProviderName = providerName();
    request.DateText = dateText(Now());
    request.Message = confirmation();
    return request;
}

bool frmmsdApt::ReloadNote(bool signedHere) {
    std::optional<StoredSignature> signature;
    std::optional<MissedNoteState> now;
    const bool read = TryAndTell(tr("The note could not be read. "), [&] {
        Recordset rows(MissedNoteStatement(noteId_), Session().Connection);
        if (rows.Eof())
            return;
        now = MissedNoteStateOf(rows);
        signature = StoredSignatureOf(rows);
    });
    if (now && now != stored_)
        showChangedNote(*now, *signature, signedHere);
    else if (signature)
        showSignature(*signature);
    else if (read)
        MsgBox(QStringLiteral("Another user has deleted this note."), ExclamationBox, QStringLiteral("Solvane"));
    return signature.has_value();
}

// Another desk changed the note while it was being signed. Who signed it here has not seen what it says now; a
// signature of the other desk is none of this desk's business.
void frmmsdApt::showChangedNote(const MissedNoteState& note, const StoredSignature& signature, bool signedHere) {
    keep(note);
    if (!signedHere)
        return showSignature(signature);
    clearSignature();
    if (signature.date.isValid())
        voidSignature(signature);
    lblsignstatus->setVisible(signature.date.isValid());
    enableFields();
}

void frmmsdApt::showSignature(const StoredSignature& signature) {
    clearSignature();
    signed_ = signature.date.isValid();
    if (signed_ && signature.drawn.isEmpty()) {
        pnlSig->setText(signatureLine(signature));
        pnlSig->show();
    } else if (signed_) {
        showDrawn(signature);
    }
    lblsignstatus->setVisible(!lblsignstatus->text().isEmpty());
    SigPlus1->setAccessibleDescription(lblsignstatus->text());
    enableFields();
}

void frmmsdApt::clearSignature() {
    signed_ = false;
    pnlSig->setMinimumHeight(0);
    pnlSig->setFrameShape(QFrame::StyledPanel);
    pnlSig->hide();
    SigPlus1->hide();
    for (QLabel* label : {pnlSig, lblsignstatus})
        label->clear();
    lblsignstatus->setPalette({});
}

void frmmsdApt::showDrawn(const StoredSignature& signature) {
    const QString key = SignatureKey(noteId_);
    // Without the key nobody can tell whether the signature fits, so it is neither shown nor taken away.
    if (key.isEmpty())
        return warnOfSignature(tr("The signature could not be checked."));
    pnlSig->setMinimumHeight(PadHeight * Space(16));
    pnlSig->setFrameShape(QFrame::NoFrame);  // The pad has a frame of its own.
    pnlSig->show();
    SigPlus1->show();
    SigPlus1->Clear();
    SigPlus1->StartKey();
    SigPlus1->SetKeyText(key);
    SigPlus1->FinishKey();
    SigPlus1->SetEncryptionMode(SealedUnderKey);
    SigPlus1->SetCompressionMode(Compressed);
    SigPlus1->SetSignatureText(signature.drawn);
    if (SigPlus1->PointCount() > 0)
        lblsignstatus->setText(signatureLine(signature));
    else
        voidSignature(signature);
}

void frmmsdApt::voidSignature(const StoredSignature& signature) {
    warnOfSignature(QStringLiteral("Signature is invalid! Cause: Note modified."));
    const WriteOutcome outcome = TakeSignatureAway(noteId_, signature);
    if (outcome.failure && outcome.failure->number == db::RowChanged)
        warnOfSignature(tr("Another user has signed this note. Open it again to see the signature."));
    else if (outcome.failure)
        TellInBar(tr("The invalid signature could not be taken away. "), *outcome.failure);
    signed_ = !outcome.IsDone();
}

void frmmsdApt::warnOfSignature(const QString& text) {
    QPalette colours = lblsignstatus->palette();
    colours.setColor(QPalette::WindowText, FieldFlag::Colour(palette()));
    lblsignstatus->setPalette(colours);
    lblsignstatus->setText(text);
}
