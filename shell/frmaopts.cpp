#include "shell/frmaopts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/desktop/desktop.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"
#include "session/preferences.h"
#include "session/session.h"

namespace {

constexpr std::string_view Reminder = "eMailReminder";
constexpr int FirstStartHour = 6;
constexpr int FirstEndHour = 17;
constexpr int LeastColumns = 5;
constexpr int MostColumns = 10;

QString truth(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

QButtonGroup* radioGroup(QWidget* parent, QBoxLayout& layout, const QString& name,
                         const std::vector<std::pair<QString, int>>& choices) {
    auto* group = new QButtonGroup(parent);
    group->setObjectName(name);
    for (const auto& [text, id] : choices) {
        auto* button = new QRadioButton(text, parent);
        button->setObjectName(name + QString::number(group->buttons().size()));
        group->addButton(button, id);
        layout.addWidget(button);
    }
    return group;
}

void check(const QButtonGroup& group, int id) {
    if (QAbstractButton* button = group.button(id))
        button->setChecked(true);
}

QCheckBox* checkBox(QWidget* parent, const char* name, const QString& text) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

QLabel* hint(QWidget* parent, const QString& text) {
    auto* label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

}  // namespace

frmaopts::frmaopts(std::function<void()> refreshView, QWidget* parent)
    : EditorDialog(parent), refreshView_(std::move(refreshView)) {
    setObjectName(QStringLiteral("frmaopts"));
    setWindowTitle(QStringLiteral("Preferences"));
    buildForm();
    loadPreferences();
    for (const Preference& preference : entered())
        held_[preference.detail] = preference.value;
    connect(cmdOk, &QPushButton::clicked, this, &frmaopts::cmdOk_Click);
    connect(cmdcancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmaopts::buildForm() {
    cmdOk = FormButton(tr("&OK"), "cmdOk", this);
    cmdOk->setDefault(true);
    cmdcancel = FormButton(tr("&Cancel"), "cmdcancel", this);
    auto* buttons = ButtonRow({cmdOk, cmdcancel});

    auto* fields = new QWidget(this);
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Space(12));
    grid->addWidget(buildHours(), 0, 0);
    grid->addWidget(buildColumns(), 0, 1);
    grid->addWidget(buildInterval(), 1, 0);
    grid->addWidget(buildBehaviour(), 1, 1);
    grid->addWidget(buildReminder(), 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(12));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(buttons);
    FitToScreen(*this);
}

QWidget* frmaopts::buildHours() {
    auto* box = new QGroupBox(tr("Hours of the Day"), this);
    cbostart = new QComboBox(box);
    cbostart->setObjectName(QStringLiteral("cbostart"));
    cbostart->addItems({QStringLiteral("6:00 am"), QStringLiteral("7:00 am"), QStringLiteral("8:00 am"),
                        QStringLiteral("9:00 am"), QStringLiteral("10:00 am"), QStringLiteral("11:00 am"),
                        QStringLiteral("12:00 pm"), QStringLiteral("1:00 pm")});
    cboend = new QComboBox(box);
    cboend->setObjectName(QStringLiteral("cboend"));
    cboend->addItems({QStringLiteral(" 5:00 pm"), QStringLiteral(" 6:00 pm"), QStringLiteral(" 7:00 pm"),
                      QStringLiteral(" 8:00 pm"), QStringLiteral(" 9:00 pm"), QStringLiteral("10:00 pm"),
                      QStringLiteral("11:00 pm")});
    cknonprime = checkBox(box, "cknonprime", QStringLiteral("Show Non-Prime Hours"));
    auto* form = new QFormLayout(box);
    form->addRow(tr("Day &starts at:"), cbostart);
    form->addRow(tr("Day &ends at:"), cboend);
    form->addRow(cknonprime);
    return box;
}

QWidget* frmaopts::buildInterval() {
    auto* box = new QGroupBox(tr("Time Interval"), this);
    auto* units = new QVBoxLayout;
    optunits = radioGroup(box, *units, QStringLiteral("optunits"),
                          {{QStringLiteral("5 mins."), 5},
                           {QStringLiteral("10 mins."), 10},
                           {QStringLiteral("15 mins."), 15},
                           {QStringLiteral("30 mins."), 30},
                           {QStringLiteral("60 mins."), 60}});
    units->addStretch(1);
    auto* clock = new QVBoxLayout;
    opttime = radioGroup(box, *clock, QStringLiteral("opttime"), {{tr("12-hour"), 12}, {tr("24-hour"), 24}});
    clock->addStretch(1);
    auto* choices = new QHBoxLayout;
    choices->addLayout(units);
    choices->addLayout(clock);
    txtvisit = new QSpinBox(box);
    txtvisit->setObjectName(QStringLiteral("txtvisit"));
    txtvisit->setRange(0, LongestVisit);
    txtvisit->setSingleStep(5);
    txtvisit->setSpecialValueText(tr("One interval"));
    txtvisit->setSuffix(tr(" mins."));
    auto* visitLabel = new QLabel(tr("&Length of a new visit:"), box);
    visitLabel->setBuddy(txtvisit);
    auto* visit = new QHBoxLayout;
    visit->addWidget(visitLabel);
    visit->addWidget(txtvisit, 1);
    auto* rows = new QVBoxLayout(box);
    rows->addLayout(choices);
    rows->addLayout(visit);
    return box;
}

QWidget* frmaopts::buildColumns() {
    auto* box = new QGroupBox(tr("Columns"), this);
    auto* week = new QVBoxLayout;
    optdisplaycols = radioGroup(box, *week, QStringLiteral("optdisplaycols"),
                                {{QStringLiteral("7 (Mon-Sun)"), 7}, {QStringLiteral("5 (Mon-Fri)"), 5}});
    tctcols = new QSpinBox(box);
    tctcols->setObjectName(QStringLiteral("tctcols"));
    tctcols->setRange(LeastColumns, MostColumns);
    auto* providers = new QHBoxLayout;
    providers->addWidget(tctcols);
    providers->addWidget(hint(box, QStringLiteral("(Allowed range 5-10)")), 1);
    auto* columnsLabel = new QLabel(QStringLiteral("Columns to Display"), box);
    columnsLabel->setBuddy(tctcols);
    auto* form = new QFormLayout(box);
    form->addRow(tr("Week view:"), week);
    form->addRow(columnsLabel, providers);
    return box;
}

QWidget* frmaopts::buildBehaviour() {
    auto* box = new QGroupBox(tr("Tasks and Sounds"), this);
    cktasks = checkBox(box, "cktasks", QStringLiteral("Hide Completed Tasks"));
    cksound = checkBox(box, "cksound", QStringLiteral("Sound Effects"));
    auto* column = new QVBoxLayout(box);
    column->addWidget(cktasks);
    column->addWidget(cksound);
    column->addWidget(hint(box, tr("Sounds last until the program ends.")));
    column->addStretch(1);
    return box;
}

QWidget* frmaopts::buildReminder() {
    auto* box = new QGroupBox(tr("E-Mail Reminder"), this);
    txtemail = new QPlainTextEdit(box);
    txtemail->setObjectName(QStringLiteral("txtemail"));
    txtemail->setAccessibleName(tr("Text of the e-mail reminder"));
    txtemail->setTabChangesFocus(true);
    txtemail->setMinimumHeight(txtemail->fontMetrics().height() * 5);
    txtemail->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto* column = new QVBoxLayout(box);
    column->addWidget(txtemail, 1);
    column->addWidget(hint(box, QStringLiteral("Use [DATE], [TIME], [THERAPIST] for placeholders")));
    return box;
}

void frmaopts::loadPreferences() {
    const SessionValues& session = Session();
    const auto preference = [&](const char* detail, const char* category) {
        return GetPreference(session.SchedulerIni, QString::fromLatin1(detail), QString::fromLatin1(category),
                             QString::fromLatin1(AllUsers));
    };
    const auto choose = [](QComboBox& list, int index) { list.setCurrentIndex(index < list.count() ? index : -1); };
    choose(*cbostart, session.DayStartHour - FirstStartHour);
    choose(*cboend, session.DayEndHour - FirstEndHour);
    check(*optunits, session.TimeUnit);
    txtvisit->setValue(session.VisitLength);
    check(*opttime, session.MilitaryTime ? 24 : 12);
    check(*optdisplaycols, preference("WeekCols", "SchedulerGeneral") == QLatin1String("7") ? 7 : 5);
    const int columns = preference("AllCols", "Scheduler").toInt();
    tctcols->setValue(columns < LeastColumns || columns > MostColumns ? LeastColumns : columns);
    cknonprime->setChecked(session.ShowNonPrime);
    cktasks->setChecked(session.TaskRollOver);
    cksound->setChecked(session.SoundEffects);
    txtemail->setPlainText(session.EmailReminderText);
}

// In the order in which they are stored.
std::vector<frmaopts::Preference> frmaopts::entered() const {
    const SessionValues& session = Session();
    const int unit = optunits->checkedId() > 0 ? optunits->checkedId() : session.TimeUnit;
    const int start = cbostart->currentIndex() >= 0 ? cbostart->currentIndex() + FirstStartHour : session.DayStartHour;
    const int end = cboend->currentIndex() >= 0 ? cboend->currentIndex() + FirstEndHour : session.DayEndHour;
    return {
        {"TaskRollOver", truth(cktasks->isChecked())},
        {"WeekCols", QString::number(optdisplaycols->checkedId())},
        {"MilitaryTime", truth(opttime->checkedId() == 24)},
        {"TimeUnit", QString::number(unit)},
        {"VisitLength", QString::number(txtvisit->value())},
        {"StartTime", QString::number(start)},
        {"EndTime", QString::number(end)},
        {"ShowNonPrime", cknonprime->isChecked() ? QStringLiteral("1") : QStringLiteral("0")},
        {Reminder, reminderText()},
        {"AllCols", QString::number(tctcols->value()), "Scheduler"},
    };
}

QString frmaopts::reminderText() const {
    return ManyLines(txtemail->toPlainText());
}

void frmaopts::takeOver() const {
    SessionValues& session = Session();
    session.TaskRollOver = cktasks->isChecked();
    session.MilitaryTime = opttime->checkedId() == 24;
    if (optunits->checkedId() > 0)
        session.TimeUnit = optunits->checkedId();
    session.VisitLength = txtvisit->value();
    if (cbostart->currentIndex() >= 0)
        session.DayStartHour = cbostart->currentIndex() + FirstStartHour;
    if (cboend->currentIndex() >= 0)
        session.DayEndHour = cboend->currentIndex() + FirstEndHour;
    session.ShowNonPrime = cknonprime->isChecked();
    session.SoundEffects = cksound->isChecked();
}

void frmaopts::cmdOk_Click() {
    const std::vector<Preference> wanted = entered();
    takeOver();
    bool refused = false;
    for (const Preference& preference : wanted) {
        if (preference.detail == Reminder && refreshView_)
            refreshView_();
        refused = !store(preference) || refused;
    }
    Session().EmailReminderText = reminderText();
    if (!refused) {
        accept();
        return;
    }
    // The store tells nobody: the form stays open, so that nothing is lost.
    MsgBox(tr("The preferences could not be saved. They hold until the program ends."), ExclamationBox, windowTitle());
}

// What was left alone may have been changed by the same user at another desk.
bool frmaopts::store(const Preference& preference) {
    QString& held = held_[preference.detail];
    if (held == preference.value)
        return true;
    // The store sends its values as they are: a quote is doubled for the statement, and stored as one.
    const QString quoted = QString(preference.value).replace(u'\'', QStringLiteral("''"));
    const bool stored = SetPreference(quoted, QString::fromLatin1(preference.detail.data()),
                                      QString::fromLatin1(preference.category.data()));
    if (stored)
        held = preference.value;
    return stored;
}
