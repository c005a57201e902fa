#include "output/frmexportopts.h"

#include <algorithm>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>

#include "output/calendarfile.h"
#include "output/icalendar.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/noticebar.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "session/session.h"

namespace {

constexpr int SelectedOnly = 0;
constexpr int AllShown = 1;
constexpr int FromTo = 2;
constexpr qint64 PanelMilliseconds = 1000;  // As long as the panel is shown at least.

QString documentsFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

}  // namespace

frmExportOpts::frmExportOpts(const ExportRequest& request, QWidget* parent) : EditorDialog(parent), request_(request) {
    setObjectName(QStringLiteral("frmExportOpts"));
    setWindowTitle(QStringLiteral("Export Appointments"));
    buildForm();
    bindForm();
    const bool isPreset = request.ExportRange == exportrange::Day || request.ExportRange == exportrange::Week;
    optSelect[isPreset ? AllShown : SelectedOnly]->setChecked(true);
    optSelect[isPreset ? AllShown : SelectedOnly]->setFocus();
    showNaming();
}

void frmExportOpts::bindForm() {
    for (ctDEdit* date : {txtfrom, txtto}) {
        date->setEnabled(false);
        connect(optSelect[FromTo], &QRadioButton::toggled, date, &QWidget::setEnabled);
    }
    connect(cboformat, &QComboBox::currentIndexChanged, this, &frmExportOpts::showNaming);
    connect(cbonames, &QComboBox::activated, this, [this] { keepNaming(*cbonames, format()); });
    connect(cbohtmlnames, &QComboBox::activated, this, [this] { keepNaming(*cbohtmlnames, ExportFormat::HtmlPage); });
    connect(cmdCmdDlg, &QPushButton::clicked, this, &frmExportOpts::cmdCmdDlg_Click);
    connect(cmdok, &QPushButton::clicked, this, &frmExportOpts::cmdok_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

ExportFormat frmExportOpts::format() const {
    return cboformat->currentIndex() == 0 ? ExportFormat::FixedCalendar : ExportFormat::StandardCalendar;
}

void frmExportOpts::showNaming() {
    cbonames->setCurrentIndex(static_cast<int>(NamingIn(format())));
    cbohtmlnames->setCurrentIndex(static_cast<int>(NamingIn(ExportFormat::HtmlPage)));
}

void frmExportOpts::keepNaming(const QComboBox& combo, ExportFormat format) {
    const QString subject = tr("How patients are named in exports could not be kept.");
    if (KeepNaming(format, static_cast<PatientNaming>(combo.currentIndex())))
        DropNotice(subject);
    else
        ShowNotice({.text = subject, .kind = Notice::Kind::Failure, .subject = subject});
}

ExportChoice frmExportOpts::choice() const {
    ExportChoice choice{.request = request_, .from = txtfrom->Date(), .to = txtto->Date()};
    if (optSelect[AllShown]->isChecked())
        choice.which = ExportChoice::Which::All;
    else if (optSelect[FromTo]->isChecked())
        choice.which = ExportChoice::Which::FromTo;
    return choice;
}

// A path that is not whole is taken from the user's documents, because nobody knows where the program was started.
QString frmExportOpts::path() const {
    QString typed = txtFilePath->text().trimmed();
    if (typed.startsWith(QLatin1String("~/")))
        typed.replace(0, 1, QDir::homePath());
    return typed.isEmpty() ? QString() : QDir::cleanPath(QDir(documentsFolder()).absoluteFilePath(typed));
}

void frmExportOpts::cmdCmdDlg_Click() {
    const QString proposal = path().isEmpty() ? documentsFolder() + QStringLiteral("/Appointments.ics") : path();
    QString chosen = ChooseSaveFile(QStringLiteral("Export as iCalendar"), proposal,
                                    QStringLiteral("iCalendar files (*.ics);;All files (*)"), AsksToReplace::Caller);
    if (chosen.isEmpty())
        return;
    if (QFileInfo(chosen).suffix().isEmpty() && !QFileInfo::exists(chosen))
        chosen += QStringLiteral(".ics");
    txtFilePath->setText(chosen);
}

bool frmExportOpts::validate() {
    const auto refuse = [](const char* text, QWidget& field) {
        MsgBox(QString::fromLatin1(text), ExclamationBox, QStringLiteral("Date"));
        field.setFocus();
        return false;
    };
    if (!optSelect[FromTo]->isChecked())
        return true;
    for (ctDEdit* date : {txtfrom, txtto})
        if (!date->Date().isValid())
            return refuse("Enter a valid date.", *date);
    if (txtto->Date() < txtfrom->Date())
        return refuse("Invalid date range. End date must be greater than Start date.", *txtfrom);
    return true;
}

void frmExportOpts::setExporting(bool exporting) {
    if (exporting)
        focus_ = focusWidget();
    exporting_ = exporting;
    for (QWidget* part : std::initializer_list<QWidget*>{fraSelect, fraFile, cmdok, cmdcancel})
        part->setEnabled(!exporting);
    if (!exporting && focus_ != nullptr)
        focus_->setFocus();
}

void frmExportOpts::cmdok_Click() {
    if (!validate())
        return;
    setExporting(true);
    const std::vector<ExportedAppointment> rows = GetExportRows(choice());
    if (rows.empty()) {
        MsgBox(QStringLiteral("There are No Appointments in the Date Range specified."), InformationBox,
               QStringLiteral("No Appointments For Export"));
        setExporting(false);
        if (optSelect[FromTo]->isChecked())
            txtfrom->setFocus();
        return;
    }
    if (path().isEmpty())
        cmdCmdDlg_Click();
    if (path().isEmpty())
        setExporting(false);
    else
        WriteICalFile(path(), rows);
}

QByteArray frmExportOpts::fileOf(const std::vector<ExportedAppointment>& rows) const {
    std::vector<ExportedAppointment> named;
    named.reserve(rows.size());
    for (const ExportedAppointment& row : rows)
        named.push_back(Named(row, static_cast<PatientNaming>(cbonames->currentIndex())));
    const CalendarStamp stamp{Now(), QStringLiteral(SVS_VERSION)};
    return format() == ExportFormat::FixedCalendar
               ? FixedCalendar(named, stamp)
               : StandardCalendar(std::move(named), QTimeZone::systemTimeZone(), stamp);
}

void frmExportOpts::WriteICalFile(const QString& path, const std::vector<ExportedAppointment>& rows) {
    if (QFileInfo(path).isFile() && MsgBox(QStringLiteral("%1 already exists.\nDo you want to replace it?").arg(path),
                                           YesNoWarningBox, QStringLiteral("Export iCal - Save As")) != Answer::Yes) {
        setExporting(false);
        QDialog::reject();
        return;
    }
    showPanel();
    const QDateTime begun = Now();
    QString failure;
    try {
        if (format() == ExportFormat::FixedCalendar)
            WriteAnew(path, fileOf(rows));
        else
            WriteWhole(path, fileOf(rows));
    } catch (const FileError& error) {
        failure = error.description();
    }
    // The clock may have been set meanwhile.
    const qint64 rest = std::clamp(PanelMilliseconds - begun.msecsTo(Now()), qint64{0}, PanelMilliseconds);
    After(static_cast<int>(rest), this, [this, path, failure] { finish(path, failure); });
}

void frmExportOpts::finish(const QString& path, const QString& failure) {
    SSPanel->hide();
    setExporting(false);
    if (failure.isEmpty()) {
        MsgBox(QStringLiteral("iCalender export done. \n") + path, InformationBox,
               QStringLiteral("Exporting Appointments To File"));
        accept();
        return;
    }
    MsgBox(QStringLiteral("Error writing iCalender export file. \n") + failure, ErrorBox,
           QStringLiteral("Error Exporting Appointments To File"));
    closeUnsaved();
}

void frmExportOpts::reject() {
    if (!exporting_)
        EditorDialog::reject();
}

void frmExportOpts::closeEvent(QCloseEvent* event) {
    if (exporting_)
        event->ignore();
    else
        EditorDialog::closeEvent(event);
}
