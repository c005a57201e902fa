#include <algorithm>
#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "appointments/editorparts.h"
#include "appointments/frmrest.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "session/rights.h"
#include "session/session.h"

namespace {

constexpr int MostMinutes = 1439;
constexpr int ComboCharacters = 16;
constexpr int DateCharacters = 25;  ///< With the box that chooses the date.
constexpr int TimeCharacters = 24;
constexpr int ThenCharacters = 38;
constexpr int Lines = 5;
constexpr int LinesWanted = 11;
constexpr int FormCharacters = 130;

QRadioButton* option(QButtonGroup* group, int id, const QString& text, QWidget* parent) {
    auto* button = Named(new QRadioButton(text, parent), QStringLiteral("%1%2").arg(group->objectName()).arg(id));
    group->addButton(button, id);
    // The button's Alt key clicks it a moment later, which may be after the Enter that follows.
    QObject::connect(button, &QRadioButton::pressed, button, [button] { button->setChecked(true); });
    return button;
}

int idOf(RestChange::Kind kind) {
    return static_cast<int>(kind);
}

}  // namespace

void frmrest::buildForm() {
    setObjectName(QStringLiteral("frmrest"));
    setWindowTitle(tr("Rest of Series"));
    lblsource = Named(new QLabel(this), "lblsource");
    lblsource->setFont(HeadingFont());
    lblseries = Named(new QLabel(this), "lblseries");
    lblseries->setForegroundRole(QPalette::PlaceholderText);
    for (QLabel* label : {lblsource, lblseries}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    auto* fields = new QWidget(this);
    auto* inner = new QVBoxLayout(fields);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(Space(12));
    inner->addWidget(buildWhat());
    inner->addWidget(buildWhich());
    buildList();
    // The height of what is scrolled is asked for once; it must be that of the polished parts.
    const QList<QWidget*> parts = fields->findChildren<QWidget*>();
    for (const QWidget* part : parts)
        part->ensurePolished();
    auto* area = new FormArea(fields, this);
    area->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(8));
    column->addWidget(lblsource);
    column->addWidget(lblseries);
    column->addWidget(area);
    column->addWidget(lstrows, 1);
    column->addWidget(lblway);
    column->addWidget(lblcount);
    column->addLayout(buildButtons());
}

// Wide enough for the list's columns, and high enough for a quarter of a year; the list itself asks for no height.
QSize frmrest::sizeHint() const {
    const QSize needed = QDialog::sizeHint();
    return {std::max(needed.width(), fontMetrics().averageCharWidth() * FormCharacters),
            needed.height() + fontMetrics().height() * 3 / 2 * LinesWanted};
}

QWidget* frmrest::buildWhat() {
    using Kind = RestChange::Kind;
    auto* box = Named(new QGroupBox(tr("What"), this), "fraWhat");
    radWhat = Named(new QButtonGroup(box), "radWhat");
    txtminutes = Named(new ctNEdit(box), "txtminutes");
    txtminutes->setRange(0, MostMinutes);
    txtminutes->setStep(5);
    txtminutes->setAccessibleName(tr("Minutes"));
    cmblater = Named(new QComboBox(box), "cmblater");
    cmblater->setAccessibleName(tr("Direction"));
    cmblater->addItems({tr("minutes later"), tr("minutes earlier")});
    cmbweekday = Named(new QComboBox(box), "cmbweekday");
    cmbweekday->setAccessibleName(tr("Weekday"));
    cmbweekday->addItems({tr("Same weekday"), tr("Sunday"), tr("Monday"), tr("Tuesday"), tr("Wednesday"),
                          tr("Thursday"), tr("Friday"), tr("Saturday")});
    cmbweekday->setToolTip(tr("In the same week, which begins on Sunday"));
    ctstart = EditorDate(ctDEdit::Kind::Time, "ctstart", tr("Start"), box);
    ctstart->setTwentyFourHour(Session().MilitaryTime);
    cborooms = EditorCombo(CompletingCombo::Entry::ListOnly, "cborooms", tr("Room"), ComboCharacters, box);
    cboproviders = Named(new QComboBox(box), "cboproviders");
    cboproviders->setAccessibleName(tr("Provider"));

    auto* grid = new QGridLayout(box);
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(4));
    grid->addWidget(option(radWhat, idOf(Kind::Shift), tr("Move &by"), box), 0, 0);
    grid->addLayout(InARow({txtminutes, cmblater}), 0, 1);
    grid->addWidget(option(radWhat, idOf(Kind::MoveTo), tr("Move &to"), box), 1, 0);
    grid->addLayout(InARow({ctstart, cmbweekday}), 1, 1);
    grid->addWidget(option(radWhat, idOf(Kind::Room), tr("&Room"), box), 2, 0);
    grid->addWidget(cborooms, 2, 1);
    grid->addWidget(option(radWhat, idOf(Kind::Provider), tr("&Provider"), box), 3, 0);
    grid->addWidget(cboproviders, 3, 1);
    auto* ends = new QHBoxLayout;
    ends->setSpacing(Space(24));
    ends->addWidget(option(radWhat, idOf(Kind::PatientCancel), tr("Patient &Cancel"), box));
    ends->addWidget(option(radWhat, idOf(Kind::TherapistCancel), tr("T&herapist Cancel"), box));
    ends->addWidget(option(radWhat, idOf(Kind::Delete), tr("&Delete"), box));
    ends->addStretch(1);
    grid->addLayout(ends, 4, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget* frmrest::buildWhich() {
    auto* box = Named(new QGroupBox(tr("Which"), this), "fraWhich");
    radWhich = Named(new QButtonGroup(box), "radWhich");
    auto* row = new QHBoxLayout(box);
    row->setSpacing(Space(24));
    const QStringList texts{tr("Th&is appointment"), tr("This and &following"), tr("&All")};
    for (int scope = 0; scope < texts.size(); ++scope)
        row->addWidget(option(radWhich, scope, texts[scope], box));
    row->addStretch(1);
    return box;
}

void frmrest::buildList() {
    lstrows = Named(new QTreeWidget(this), "lstrows");
    lstrows->setAccessibleName(tr("Appointments of the series"));
    lstrows->setRootIsDecorated(false);
    lstrows->setUniformRowHeights(true);
    lstrows->setAllColumnsShowFocus(true);
    lstrows->setTabKeyNavigation(false);
    lstrows->setHeaderLabels({tr("Date"), tr("Time"), tr("Then"), tr("In the way")});
    const int character = fontMetrics().averageCharWidth();
    lstrows->header()->resizeSection(DateColumn, DateCharacters * character);
    lstrows->header()->resizeSection(TimeColumn, TimeCharacters * character);
    lstrows->header()->resizeSection(ThenColumn, ThenCharacters * character);
    lstrows->header()->setStretchLastSection(true);
    lstrows->setMinimumHeight(fontMetrics().height() * 3 / 2 * Lines);
    // On a small screen the list gives way before the fields above it do.
    lstrows->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    lblway = Named(new QLabel(this), "lblway");
    lblcount = Named(new QLabel(this), "lblcount");
    for (QLabel* label : {lblway, lblcount}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    // What it says comes and goes with the current row; the list above does not jump.
    lblway->setMinimumHeight(fontMetrics().lineSpacing());
}

QLayout* frmrest::buildButtons() {
    cmdskip = FormButton(tr("Leave O&ut What Is Taken"), "cmdskip", this);
    cmdOk = FormButton(QStringLiteral("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdCancel = FormButton(QStringLiteral("Cancel"), "cmdCancel", this);
    auto* row = new QHBoxLayout;
    row->setSpacing(Space(8));
    row->addWidget(cmdskip);
    row->addStretch(1);
    row->addWidget(cmdOk);
    row->addWidget(cmdCancel);
    return row;
}

// What is changed in a field of a choice makes that choice.
void frmrest::connectControls() {
    using Kind = RestChange::Kind;
    connect(radWhat, &QButtonGroup::idToggled, this, [this](int, bool checked) { checked ? planAnew() : void(); });
    connect(radWhich, &QButtonGroup::idToggled, this, [this](int, bool checked) { checked ? planAnew() : void(); });
    connect(txtminutes, &FieldEdit::Change, this, [this] { choose(Kind::Shift); });
    connect(cmblater, &QComboBox::currentIndexChanged, this, [this] { choose(Kind::Shift); });
    connect(cmbweekday, &QComboBox::currentIndexChanged, this, [this] { choose(Kind::MoveTo); });
    connect(ctstart, &FieldEdit::Change, this, [this] { choose(Kind::MoveTo); });
    connect(cborooms, &CompletingCombo::Change, this, [this] { choose(Kind::Room); });
    connect(cboproviders, &QComboBox::currentIndexChanged, this, [this] { choose(Kind::Provider); });
    connect(lstrows, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* row) { tick(*row); });
    connect(lstrows, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* row) {
        lblway->setText(row != nullptr ? row->text(InTheWayColumn) : QString());
    });
    connect(&due_, &QTimer::timeout, this, [this] { ReadObstacles(); });
    connect(cmdskip, &QPushButton::clicked, this, &frmrest::cmdskip_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmrest::cmdOk_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmrest::limitToRights() {
    if (!MayDelete()) {
        QAbstractButton* deletes = radWhat->button(idOf(RestChange::Kind::Delete));
        deletes->setEnabled(false);
        deletes->setToolTip(tr("Your rights do not include deleting appointments."));
    }
    if (!Session().AllProviders) {
        QAbstractButton* gives = radWhat->button(idOf(RestChange::Kind::Provider));
        for (QWidget* part : {static_cast<QWidget*>(gives), static_cast<QWidget*>(cboproviders)}) {
            part->setEnabled(false);
            part->setToolTip(tr("Your rights do not include the schedules of other providers."));
        }
    }
}
