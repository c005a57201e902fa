// The page of the web signature service: how it is shown, and when what it says is a signature.

#include <QAccessible>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedLayout>

#include "followup/frmesign.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/userstore.h"
#include "platform/files/privatefile.h"
#include "platform/signature/sigplus.h"
#include "platform/signature/websurface.h"
#include "session/preferences.h"

namespace {

QString signatureFile() {
    return UserDataFolder() + QStringLiteral("/my.sig");
}

/// Writes the text of the page into a file of the user's own. What lies there from before goes first, so that nothing
/// is written through a link. Returns what went wrong, or an empty text.
QString writeFile(const QString& path, const QString& text) {
    QFile::remove(path);
    if (!files::MakePrivate(path))
        return QStringLiteral("The file %1 cannot be written.").arg(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return file.errorString();
    const QByteArray bytes = text.toUtf8();
    return file.write(bytes) == bytes.size() && file.flush() ? QString() : file.errorString();
}

}  // namespace

// A page may still tell something while it ends, and the form must be there to hear it.
frmesign::~frmesign() {
    delete webMain;
}

void frmesign::openPage() {
    const BusyPointer busy;
    QString why;
    webMain = LoadWebSurface(pnlweb, &why);
    if (webMain == nullptr) {
        cmdClearPic->setEnabled(false);
        showTrouble(why);
        return;
    }
    webMain->setObjectName(QStringLiteral("webMain"));
    // The browser keeps Escape to itself once the user has clicked on the page.
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &frmesign::reject);
    surface_->addWidget(webMain);
    connect(webMain, &WebSurface::DocumentComplete, this, &frmesign::webMain_DocumentComplete);
    connect(webMain, &WebSurface::LoadFailed, this, &frmesign::webMain_LoadFailed);
    address_ = GetPreference({}, QStringLiteral("SignURL"), QStringLiteral("Notes"), {}, QLatin1String(AllUsers));
    if (address_.isEmpty()) {
        cmdClearPic->setEnabled(false);
        showTrouble(tr("The practice has set no address of a web signature service, or it could not be read."));
        return;
    }
    showWaiting();
    webMain->Navigate(address_);
}

void frmesign::webMain_DocumentComplete(const QString& address) {
    if (closed_)
        return;
    webMain->SetBodyAttribute(QStringLiteral("scroll"), QStringLiteral("no"));
    if (!holdsDrawing())
        showOnSurface(webMain);
    if (address.toUpper().contains(QLatin1String("SVSIGN")))
        webMain->ReadBodyText([this](const QString& text) { takePage(text); });
}

void frmesign::webMain_LoadFailed(const QString& reason) {
    if (!holdsDrawing())
        showTrouble(reason);
}

bool frmesign::holdsDrawing() const {
    return surface_->currentWidget() == SigPlus2 && SigPlus2->PointCount() > 0;
}

void frmesign::takePage(const QString& text) {
    if (closed_ || text.toUpper().contains(QLatin1String("PLEASE")))
        return;
    const QString path = signatureFile();
    const QString trouble = writeFile(path, text);
    SigPlus2->ImportFile(path);
    QFile::remove(path);
    if (!trouble.isEmpty()) {
        showTrouble(tr("The signature could not be taken from the page. %1").arg(trouble));
        return;
    }
    showOnSurface(SigPlus2);
    if (isStored())
        signWith(*SigPlus2);
}

/// A signature that came from the page and could not be written yet is written by the second try.
void frmesign::cmdSign3_Click() {
    if (surface_->currentWidget() == SigPlus2)
        signWith(*SigPlus2);
    else
        webMain->ClickInputs(QStringLiteral("Save Signature"));
}

/// Begins again with the service's first page once the page of the finished signature has been taken, because that one
/// would only say the same again.
void frmesign::cmdClearPic_Click() {
    const bool isTaken = surface_->currentWidget() == SigPlus2;
    showWaiting();
    if (isTaken)
        webMain->Navigate(address_);
    else
        webMain->Refresh();
}

void frmesign::showWaiting() {
    pnlwait->setText(QStringLiteral("Signature surface loading..."));
    showOnSurface(pnlwait);
}

void frmesign::showTrouble(const QString& text) {
    pnlwait->setText(cmdClearPic->isEnabled() ? text + u' ' + tr("Choose Clear to try again.") : text);
    showOnSurface(pnlwait);
    QAccessibleEvent alert(pnlwait, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void frmesign::showOnSurface(QWidget* shown) {
    surface_->setCurrentWidget(shown);
    cmdSign3->setEnabled(shown != pnlwait);
}
