#include "platform/printing/printpreview.h"

#include <algorithm>
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QPrinter>
#include <QProgressBar>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSpinBox>
#include <QStandardPaths>
#include <QToolBar>
#include <QVBoxLayout>

#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/output.h"
#include "platform/printing/pagelayout.h"
#include "platform/printing/pageview.h"
#include "platform/printing/printerror.h"
#include "platform/printing/printers.h"
#include "platform/theme/icon.h"
#include "platform/theme/theme.h"

namespace {

constexpr double ZoomStep = 1.25;
constexpr int MostPagesForSure = 9999;
constexpr int PagesOfALongSave = 200;  // Nobody waits for fewer.

/// Returns a path for the document's title in the user's documents. Characters that a file name cannot hold become
/// blanks.
QString proposedFile(const QString& title) {
    static const QRegularExpression unfit(QStringLiteral("[\\\\/:*?\"<>|\\x00-\\x1f]+"));
    const QString name = QString(title).replace(unfit, QStringLiteral(" ")).simplified();
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
        .filePath((name.isEmpty() ? QStringLiteral("Document") : name) + QStringLiteral(".pdf"));
}

}  // namespace

PrintPreview::PrintPreview(QWidget* parent) : QWidget(parent) {
    pages_ = new PageView(this);
    pages_->setObjectName(QStringLiteral("pages"));
    pages_->setAccessibleName(tr("Pages"));
    buildToolBar();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(4));
    column->addWidget(toolBar_);
    column->addWidget(pages_, 1);
    connect(pages_, &PageView::CurrentPageChanged, this, &PrintPreview::followPage);
}

PrintPreview::~PrintPreview() {
    // The view goes last, and must not reach for pages that are gone.
    pages_->ShowPages(nullptr);
}

QAction* PrintPreview::command(const char* name, const QString& text, const char* icon, const QKeySequence& key) {
    QAction* action = toolBar_->addAction(Icon(icon), text);
    action->setObjectName(QLatin1String(name));
    action->setShortcut(key);
    action->setToolTip(QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    return action;
}

void PrintPreview::buildToolBar() {
    toolBar_ = new QToolBar(this);
    addPageCommands();
    toolBar_->addSeparator();
    addZoomCommands();
    toolBar_->addSeparator();
    across_ = command("cmdlandscape", tr("Landscape"), "landscape", tr("Ctrl+L"));
    across_->setCheckable(true);
    connect(across_, &QAction::triggered, this, &PrintPreview::turnPaper);
}

void PrintPreview::addPageCommands() {
    first_ = command("cmdfirst", tr("First Page"), "first", tr("Ctrl+Home"));
    previous_ = command("cmdprevious", tr("Previous Page"), "previous", tr("Ctrl+PgUp"));
    txtpage_ = new QSpinBox(toolBar_);
    txtpage_->setObjectName(QStringLiteral("txtpage"));
    txtpage_->setAccessibleName(tr("Page"));
    txtpage_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    txtpage_->setKeyboardTracking(false);
    txtpage_->setMinimum(1);
    toolBar_->addWidget(txtpage_);
    lblpages_ = new QLabel(toolBar_);
    lblpages_->setObjectName(QStringLiteral("lblpages"));
    lblpages_->setContentsMargins(Space(4), 0, Space(4), 0);
    // The commands behind it stay where they are while a document grows.
    lblpages_->setMinimumWidth(fontMetrics().horizontalAdvance(tr("of %1").arg(MostPagesForSure)) + 2 * Space(4));
    toolBar_->addWidget(lblpages_);
    next_ = command("cmdnext", tr("Next Page"), "next", tr("Ctrl+PgDown"));
    last_ = command("cmdlast", tr("Last Page"), "last", tr("Ctrl+End"));
    connect(first_, &QAction::triggered, this, [this] { goTo(1); });
    connect(previous_, &QAction::triggered, this, [this] { goTo(CurrentPage() - 1); });
    connect(next_, &QAction::triggered, this, [this] { goTo(CurrentPage() + 1); });
    connect(last_, &QAction::triggered, this, [this] { goTo(PageCount()); });
    connect(txtpage_, &QSpinBox::valueChanged, this, &PrintPreview::goTo);
}

void PrintPreview::addZoomCommands() {
    connect(command("cmdzoomout", tr("Smaller"), "zoomout", QKeySequence::ZoomOut), &QAction::triggered, this,
            [this] { zoomBy(1 / ZoomStep); });
    QAction* larger = command("cmdzoomin", tr("Larger"), "zoomin", QKeySequence::ZoomIn);
    // Without this, the plus of most keyboards would need the Shift key.
    larger->setShortcuts({QKeySequence::ZoomIn, tr("Ctrl+=")});
    connect(larger, &QAction::triggered, this, [this] { zoomBy(ZoomStep); });
    connect(command("cmdfitwidth", tr("Page Width"), "fitwidth", tr("Ctrl+1")), &QAction::triggered, pages_,
            &PageView::FitWidth);
    connect(command("cmdfitpage", tr("Whole Page"), "fitpage", tr("Ctrl+0")), &QAction::triggered, pages_,
            &PageView::FitPage);
}

void PrintPreview::ShowDocument(const printing::Document& document) {
    document_ = document;
    layOut();
    goTo(1);
}

void PrintPreview::Grow(const printing::Document& document) {
    const auto shown = static_cast<std::ptrdiff_t>(document_.blocks.size());
    document_.blocks.insert(document_.blocks.end(), document.blocks.begin() + shown, document.blocks.end());
    const int before = PageCount();
    laid_->Grow();
    pages_->viewport()->update();
    if (PageCount() == before)
        return;
    pages_->PagesAdded();
    followPage();
}

void PrintPreview::turnPaper(bool across) {
    document_.setup.orientation = across ? QPageLayout::Landscape : QPageLayout::Portrait;
    layOut();
    followPage();
}

void PrintPreview::layOut() {
    const BusyPointer busy;
    auto laid = std::make_unique<printing::PageLayout>(document_);
    pages_->ShowPages(laid.get());
    laid_ = std::move(laid);
    across_->setChecked(document_.setup.orientation == QPageLayout::Landscape);
}

void PrintPreview::followPage() {
    const int page = CurrentPage();
    const int count = PageCount();
    const QSignalBlocker quiet(txtpage_);
    txtpage_->setMaximum(count);
    txtpage_->setValue(page);
    lblpages_->setText(tr("of %1").arg(count));
    first_->setEnabled(page > 1);
    previous_->setEnabled(page > 1);
    next_->setEnabled(page < count);
    last_->setEnabled(page < count);
}

void PrintPreview::goTo(int page) {
    pages_->GoTo(std::clamp(page, 1, PageCount()) - 1);
    followPage();
}

void PrintPreview::zoomBy(double factor) {
    pages_->SetZoom(Zoom() * factor);
}

int PrintPreview::PageCount() const {
    return laid_ ? laid_->pageCount() : 1;
}

int PrintPreview::CurrentPage() const {
    return std::clamp(pages_->CurrentPage() + 1, 1, PageCount());
}

double PrintPreview::Zoom() const {
    return pages_->Zoom();
}

bool PrintPreview::Print() {
    if (!Printers().anyInstalled()) {
        MsgBox(tr("No printer is installed on this computer. You can save the document as a PDF file instead."),
               InformationBox, tr("Print"));
        return false;
    }
    QPrinter printer(QPrinter::HighResolution);
    printing::GiveSetup(printer, document_);
    if (!Printers().choose(printer, PageCount()))
        return false;
    try {
        const BusyPointer busy;
        printing::PrintOn(printer, document_, CurrentPage());
        return true;
    } catch (const PrintError& error) {
        MsgBox(error.description(), ErrorBox, tr("Print"));
        return false;
    }
}

// What the user does in a step may take this widget away, and the document is another by then.
bool PrintPreview::save(const QString& path) {
    if (PageCount() < PagesOfALongSave) {
        const BusyPointer busy;
        return printing::SavePdf(document_, path);
    }
    const printing::Document document = document_;
    const QPointer<QProgressDialog> progress(
        new QProgressDialog(tr("Saving the document ..."), tr("Cancel"), 0, PageCount(), this));
    const auto taken = qScopeGuard([&progress] { delete progress; });
    progress->setWindowTitle(tr("Save as PDF"));
    progress->setWindowModality(Qt::WindowModal);
    auto* bar = new QProgressBar;
    bar->setRange(0, PageCount());
    progress->setBar(bar);
    progress->show();
    return printing::SavePdf(document, path, [&progress, bar](int page, int) {
        bar->setValue(page);
        QCoreApplication::processEvents();
        return progress != nullptr && !progress->wasCanceled();
    });
}

QString PrintPreview::SaveAsPdf() {
    QString path =
        ChooseSaveFile(tr("Save as PDF"), proposedFile(document_.title), tr("PDF files (*.pdf);;All files (*)"));
    if (path.isEmpty())
        return {};
    try {
        return save(path) ? path : QString();
    } catch (const PrintError& error) {
        MsgBox(error.description(), ErrorBox, tr("Save as PDF"));
        return {};
    }
}
