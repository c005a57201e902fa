#include "output/frmschrpt.h"

#include <algorithm>
#include <QAccessible>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <utility>

#include "output/callreport.h"
#include "output/cancelreport.h"
#include "output/companionreport.h"
#include "output/schedulereport.h"
#include "platform/controls/ctdedit.h"
#include "platform/desktop/desktop.h"
#include "platform/printing/printpreview.h"
#include "platform/printing/vsprinter.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

constexpr int SliceMilliseconds = 50;  // How long the report is made before the window lives again.
constexpr int GapAboveEnd = 240;       // Twips.

QString numberText(int number) {
    return QLocale().toString(number);
}

/// Makes the report of that mode. Returns whether it is whole.
bool runRoutine(ReportMode mode, const ReportRequest& request, VSPrinter& document, const ReportStep& step) {
    switch (mode) {
        case ReportMode::Cancellation:
            return docancelreport(request, document, step);
        case ReportMode::CourtesyCalls:
            return CourtesyCallStatusReport(request, document, step);
        case ReportMode::Companion:
            return DoScheduleFH(request, document, step);
        case ReportMode::Schedule:
            break;
    }
    const bool byProvider = request.provider.isEmpty() && request.sort == ReportSort::ByProvider;
    return byProvider ? DoSchedule2(request, document, step) : doschedule(request, document, step);
}

}  // namespace

frmschrpt::frmschrpt(const ReportOpening& opening, QWidget* parent) : QDialog(parent), opening_(opening) {
    setObjectName(QStringLiteral("frmschrpt"));
    setWindowTitle(QStringLiteral("Report"));
    buildForm();
    LoadSorts();
    loadLists();
    bindForm();
    setGenerating(false);
    for (QPushButton* button : {cmdsave, cmdprint})
        button->setEnabled(false);
}

void frmschrpt::bindForm() {
    connect(cmdgenerate1, &QPushButton::clicked, this, &frmschrpt::cmdgenerate1_Click);
    connect(cmdfilter, &QPushButton::clicked, this, &frmschrpt::cmdfilter_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &frmschrpt::stop);
    connect(cmdsave, &QPushButton::clicked, this, &frmschrpt::cmdsave_Click);
    connect(cmdprint, &QPushButton::clicked, this, &frmschrpt::cmdprint_Click);
    connect(cmdclose, &QPushButton::clicked, this, &QWidget::close);
    const auto key = [this](const QKeySequence& keys, QPushButton* button) {
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QPushButton::click);
    };
    key(QKeySequence::Refresh, cmdgenerate1);
    key(QKeySequence::Save, cmdsave);
    key(QKeySequence::Print, cmdprint);
    FollowHiddenNames(this, [this, hidden = Session().HidePatientNames](bool hides) mutable {
        if (std::exchange(hidden, hides) != hides)
            makeAnew();
    });
}

// The report that was made goes from the screen at once. The new one begins when everything else has followed the
// switch.
void frmschrpt::makeAnew() {
    if (!wanted_.from.isValid())
        return;
    for (QPushButton* button : {cmdsave, cmdprint})
        button->setEnabled(false);
    if (!generating_) {
        printing::Document empty;
        empty.setup = vp->Document().setup;
        vp->ShowDocument(empty);
    }
    QTimer::singleShot(0, this, &frmschrpt::generate);
}

// The form is painted before its first report begins.
void frmschrpt::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(begun_, true))
        QTimer::singleShot(0, this, &frmschrpt::cmdgenerate1_Click);
}

// Escape ends the report that is being made, and closes the form only when there is none.
void frmschrpt::reject() {
    if (generating_)
        stop();
    else
        QDialog::reject();
}

void frmschrpt::stop() {
    stopped_ = true;
    again_ = false;
}

// The routine that makes the report goes on with the form and closes it when it has ended.
void frmschrpt::closeEvent(QCloseEvent* event) {
    if (generating_) {
        stopped_ = closing_ = true;
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

bool frmschrpt::validate() {
    const auto refuse = [](const QString& text, QWidget& field) {
        MsgBox(text, ExclamationBox, QStringLiteral("Date Missing"));
        field.setFocus();
        return false;
    };
    if (!ctdate[0]->Date().isValid())
        return refuse(QStringLiteral("Start Date must be entered!"), *ctdate[0]);
    if (!ctdate[1]->Date().isValid())
        return refuse(QStringLiteral("End Date must be entered!"), *ctdate[1]);
    if (ctdate[1]->Date() < ctdate[0]->Date()) {
        MsgBox(tr("The end date is before the start date."), ExclamationBox, windowTitle());
        ctdate[1]->setFocus();
        return false;
    }
    return true;
}

ReportRequest frmschrpt::request() const {
    return {.from = ctdate[0]->Date(),
            .to = ctdate[1]->Date(),
            .provider = List1.value(cboprovider->currentIndex()),
            .providerName = cboprovider->currentText(),
            .sort = static_cast<ReportSort>(cbosort->currentIndex()),
            .patientsOnly = cmdfilter->isChecked(),
            .header = header_};
}

void frmschrpt::cmdgenerate1_Click() {
    if (!listsRead_)
        loadLists();
    if (!listsRead_ || !validate())
        return;
    wanted_ = request();
    generate();
}

void frmschrpt::cmdfilter_Click() {
    cmdfilter->setText(cmdfilter->isChecked() ? QStringLiteral("Show Patient &Appointments Only")
                                              : QStringLiteral("Show &All Appointments"));
    cmdgenerate1_Click();
}

// A second report never begins inside the first one: the first ends, and the loop begins the second.
void frmschrpt::generate() {
    if (generating_) {
        stopped_ = again_ = true;
        return;
    }
    do {
        again_ = false;
        if (!makeReport())
            return;
    } while (again_ && !closing_);
    if (std::exchange(closing_, false))
        QDialog::reject();
}

bool frmschrpt::makeReport() {
    // What the user does in a step may take the form away, and the routine still goes on to its end.
    const QPointer<frmschrpt> form(this);
    VSPrinter document;
    document.SetOrientation(vp->Document().setup.orientation);
    QElapsedTimer slice;
    slice.start();
    setGenerating(true);
    // A Refresh in the middle asks for another report, while this one goes on to its end.
    const ReportRequest made = wanted_;
    const bool whole = runRoutine(opening_.mode, made, document, [&](int row, int rows) {
        if (form.isNull())
            return false;
        form->row_ = row;
        form->rows_ = rows;
        // Each row is laid out at once. Many of them, with long notes, would take longer than a slice.
        form->addShown(document);
        if (slice.elapsed() >= SliceMilliseconds) {
            form->tellProgress();
            QCoreApplication::processEvents();
            slice.restart();
        }
        return !form.isNull() && !form->stopped_;
    });
    if (form.isNull())
        return false;
    endReport(document, whole);
    return true;
}

void frmschrpt::setGenerating(bool generating) {
    generating_ = generating;
    stopped_ = false;
    if (generating) {
        row_ = rows_ = 0;
        shown_ = false;
        lblstatus->setText(tr("Making the report ..."));
        pnlprogress->setRange(0, 0);
    }
    pnlprogress->setVisible(generating);
    const bool hadFocus = cmdcancel->hasFocus();
    cmdcancel->setVisible(generating);
    if (hadFocus && !generating)
        cmdgenerate1->setFocus();
    for (QPushButton* button : {cmdsave, cmdprint})
        button->setEnabled(!generating);
}

// Until the new report has a row, the one before it stays.
void frmschrpt::addShown(const VSPrinter& document) {
    if (std::exchange(shown_, true))
        vp->Grow(document.Document());
    else
        vp->ShowDocument(document.Document());
}

void frmschrpt::tellProgress() {
    pnlprogress->setRange(0, rows_);
    pnlprogress->setValue(row_);
    lblstatus->setText(tr("%1 of %2 entries").arg(numberText(row_), numberText(rows_)));
}

void frmschrpt::endReport(VSPrinter& document, bool whole) {
    QString said = rows_ == 0 ? tr("No appointments.") : QString();
    if (!whole) {
        said = rows_ == 0 ? tr("The report could not be made.")
                          : tr("The report is cut short: it ends after %1 of %2 entries.")
                                .arg(numberText(row_), numberText(rows_));
        document.AddSpace(GapAboveEnd);
        document.SetIndent(0);
        document.SetFontBold(true);
        document.AddParagraph(said);
    }
    addShown(document);
    setGenerating(false);
    lblstatus->setText(said);
    QAccessibleEvent event(lblstatus, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void frmschrpt::cmdprint_Click() {
    if (vp->Print())
        lblstatus->setText(tr("The document has gone to the printer."));
}

void frmschrpt::cmdsave_Click() {
    const QString path = vp->SaveAsPdf();
    if (!path.isEmpty())
        lblstatus->setText(tr("Saved as %1").arg(QDir::toNativeSeparators(path)));
}
