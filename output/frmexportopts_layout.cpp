#include <QAccessible>
#include <QComboBox>
#include <QFormLayout>
#include <QFrame>
#include <QGroupBox>
#include <QProgressBar>
#include <QRadioButton>

#include "output/frmexportopts.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/controls/textfield.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

constexpr int PathCharacters = 56;

QString wordForPatients() {
    return Session().WordUsage.isEmpty() ? QStringLiteral("Patient") : Session().WordUsage;
}

QString captionOfAll(int exportRange) {
    if (exportRange == exportrange::Day)
        return QStringLiteral("&All Appointments for Today");
    return exportRange == exportrange::Week ? QStringLiteral("&All Appointments for this Week")
                                            : QStringLiteral("&All Appointments");
}

ctDEdit* dateField(const char* name, QWidget* parent) {
    auto* field = Named(new ctDEdit(ctDEdit::Kind::Date, parent), name);
    field->setDateOrder(Session().DateOrder);
    field->setDate(Today());
    return field;
}

}  // namespace

void frmExportOpts::buildForm() {
    auto* fields = new QWidget(this);
    auto* boxes = new QVBoxLayout(fields);
    boxes->setContentsMargins(0, 0, 0, 0);
    boxes->setSpacing(Space(12));
    boxes->addWidget(buildSelection());
    boxes->addWidget(buildFile());
    boxes->addStretch(1);
    cmdok = FormButton(QStringLiteral("&Export"), "cmdok", this);
    cmdok->setDefault(true);
    cmdcancel = FormButton(QStringLiteral("&Cancel"), "cmdcancel", this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(ButtonRow({cmdok, cmdcancel}));
    buildPanel();
    FitToScreen(*this);
}

QWidget* frmExportOpts::buildSelection() {
    fraSelect = Named(new QGroupBox(tr("Appointments"), this), "fraSelect");
    const QString captions[] = {QStringLiteral("&Selected Appt. Only"), captionOfAll(request_.ExportRange),
                                QStringLiteral("Appts. -    F&rom:")};
    for (std::size_t i = 0; i < optSelect.size(); ++i)
        optSelect.at(i) = Named(new QRadioButton(captions[i], fraSelect), QStringLiteral("optSelect%1").arg(i));
    txtfrom = dateField("txtfrom", fraSelect);
    txtfrom->setAccessibleName(tr("From"));
    txtto = dateField("txtto", fraSelect);
    auto* range = new QHBoxLayout;
    range->setSpacing(Space(8));
    range->addWidget(optSelect[2]);
    range->addWidget(txtfrom);
    range->addWidget(FieldLabel(QStringLiteral("&To:"), txtto));
    range->addWidget(txtto);
    range->addStretch(1);
    auto* rows = new QVBoxLayout(fraSelect);
    rows->setSpacing(Space(8));
    rows->addWidget(optSelect[0]);
    rows->addWidget(optSelect[1]);
    rows->addLayout(range);
    return fraSelect;
}

QComboBox* frmExportOpts::namesCombo(const char* name, QWidget* parent) {
    auto* combo = Named(new QComboBox(parent), name);
    combo->addItems({tr("Full name"), tr("Initials"), tr("%1 number").arg(wordForPatients())});
    return combo;
}

QWidget* frmExportOpts::buildFile() {
    fraFile = Named(new QGroupBox(tr("File"), this), "fraFile");
    txtFilePath = Named(new TextField(fraFile), "txtFilePath");
    txtFilePath->setMinimumWidth(fontMetrics().averageCharWidth() * PathCharacters);
    cmdCmdDlg = FormButton(tr("&Browse..."), "cmdCmdDlg", fraFile);
    cboformat = Named(new QComboBox(fraFile), "cboformat");
    cboformat->addItems({tr("iCalendar"), tr("Standard calendar file (RFC 5545)")});
    cboformat->setToolTip(
        tr("iCalendar is the form that earlier versions wrote. The standard file also tells time zone and status, and "
           "an appointment that is imported again takes its old place."));
    cbonames = namesCombo("cbonames", fraFile);
    cbohtmlnames = namesCombo("cbohtmlnames", fraFile);
    lblhidden = Named(new QLabel(tr("Names are hidden now, and so they are in the file."), fraFile), "lblhidden");
    lblhidden->setForegroundRole(QPalette::PlaceholderText);
    FollowHiddenNames(lblhidden, [this](bool hidden) { lblhidden->setVisible(hidden); });
    auto* path = new QHBoxLayout;
    path->setSpacing(Space(8));
    path->addWidget(txtFilePath, 1);
    path->addWidget(cmdCmdDlg);
    auto* rows = new QFormLayout(fraFile);
    rows->setVerticalSpacing(Space(8));
    rows->addRow(FieldLabel(QStringLiteral("File &Path:"), txtFilePath), path);
    rows->addRow(FieldLabel(tr("F&ormat:"), cboformat), cboformat);
    rows->addRow(FieldLabel(tr("%1 &names:").arg(CaptionText(wordForPatients())), cbonames), cbonames);
    rows->addRow(FieldLabel(tr("In &HTML pages:"), cbohtmlnames), cbohtmlnames);
    rows->addRow(QString(), lblhidden);
    return fraFile;
}

void frmExportOpts::buildPanel() {
    SSPanel = Named(new QFrame(this), "SSPanel");
    SSPanel->setFrameShape(QFrame::StyledPanel);
    SSPanel->setAutoFillBackground(true);
    auto* text = new QLabel(QStringLiteral("Exporting Appointments"), SSPanel);
    text->setFont(HeadingFont());
    text->setAlignment(Qt::AlignCenter);
    SSPanel->setAccessibleName(text->text());
    auto* moving = new QProgressBar(SSPanel);
    moving->setRange(0, 0);
    moving->setTextVisible(false);
    auto* rows = new QVBoxLayout(SSPanel);
    rows->setContentsMargins(Space(24), Space(16), Space(24), Space(16));
    rows->setSpacing(Space(12));
    rows->addWidget(text);
    rows->addWidget(moving);
    SSPanel->hide();
}

void frmExportOpts::showPanel() {
    SSPanel->adjustSize();
    SSPanel->move(rect().center() - SSPanel->rect().center());
    SSPanel->show();
    SSPanel->raise();
    QAccessibleEvent event(SSPanel, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
