#include "platform/printing/frmpreview.h"

#include <QAccessible>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "platform/printing/printpreview.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

frmpreview::frmpreview(const printing::Document& document, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("frmpreview"));
    setWindowTitle(document.title.isEmpty() ? tr("Print Preview") : tr("Print Preview - %1").arg(document.title));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    buildForm();
    vp->ShowDocument(document);
    connect(cmdsave, &QPushButton::clicked, this, &frmpreview::cmdsave_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmpreview::cmdprint_Click);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, cmdsave, &QPushButton::click);
    connect(new QShortcut(QKeySequence::Print, this), &QShortcut::activated, cmdprint, &QPushButton::click);
    connect(cmdclose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmpreview::buildForm() {
    vp = new PrintPreview(this);
    vp->setObjectName(QStringLiteral("vp"));
    const auto button = [this](const char* name, const QString& text, const QIcon& icon) {
        auto* made = new QPushButton(icon, text, this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        return made;
    };
    cmdsave = button("cmdsave", tr("&Save as PDF..."), Icon("save"));
    cmdprint = button("cmdprint", tr("&Print..."), Icon("print"));
    cmdprint->setDefault(true);
    cmdclose = button("cmdclose", tr("&Close"), {});
    lblstatus = new QLabel(this);
    lblstatus->setObjectName(QStringLiteral("lblstatus"));
    lblstatus->setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(lblstatus, 1);
    buttons->addWidget(cmdsave);
    buttons->addWidget(cmdprint);
    buttons->addWidget(cmdclose);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(12), Space(8), Space(12), Space(12));
    column->setSpacing(Space(8));
    column->addWidget(vp, 1);
    column->addLayout(buttons);
    cmdprint->setFocus();
    const QSize wanted(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 42);
    resize(wanted.boundedTo(screen()->availableSize()));
}

void frmpreview::cmdsave_Click() {
    const QString path = vp->SaveAsPdf();
    if (!path.isEmpty())
        tellPrinted(tr("Saved as %1").arg(QDir::toNativeSeparators(path)));
}

void frmpreview::cmdprint_Click() {
    if (vp->Print())
        tellPrinted(tr("The document has gone to the printer."));
}

void frmpreview::tellPrinted(const QString& text) {
    hasPrinted_ = true;
    lblstatus->setText(text);
    QAccessibleEvent told(lblstatus, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}
