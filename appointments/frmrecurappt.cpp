#include "appointments/frmrecurappt.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>

#include "appointments/appointmentitem.h"
#include "appointments/frmslist.h"
#include "appointments/recurrencetext.h"
#include "appointments/seriesdates.h"
#include "appointments/seriestexts.h"
#include "data/minutetime.h"
#include "data/pipefields.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/database/error.h"
#include "platform/desktop/busypointer.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

constexpr int FirstEvents = 2;
constexpr int EndAfter = 0;
constexpr int PatientPiece = 3;  // Of an item's note.

int value(const ctNEdit* field) {
    return static_cast<int>(field->Value());
}

}  // namespace

frmRecurAppt::frmRecurAppt(const CalendarItem& item, BookedProvider provider, std::function<void()> rowsChanged,
                           QWidget* parent)
    : EditorDialog(parent), source_(item), provider_(std::move(provider)), rowsChanged_(std::move(rowsChanged)) {
    setObjectName(QStringLiteral("frmRecurAppt"));
    setWindowTitle(QStringLiteral("Recurrance"));
    buildForm();
    if (!loadSource()) {
        MsgBox(QStringLiteral("Error retreiving Appointment values."), ExclamationBox, QStringLiteral("Error"));
        QTimer::singleShot(0, this, &QDialog::reject);
    }
    presetPattern();
    connectControls();
    describe();
    FitToScreen(*this);
}

QString frmRecurAppt::Subject() const {
    return tr("series of the appointment on %1").arg(ShortDateText(source_.ItemDay));
}

// A date that was decided is typed as much as a number is.
bool frmRecurAppt::IsChanged() const {
    return EditorDialog::IsChanged() || seriesdates->HasDecisions();
}

bool frmRecurAppt::loadSource() {
    if (sourceKey() < 1)
        return false;
    const QString patientId = GetPipeField(source_.ItemNote, PatientPiece);
    FollowHiddenNames(this, [this](bool) { showSource(); });
    seriesdates->SetSource({sourceKey(), source_.ItemStart, source_.ItemEnd, provider_.id, patientId}, source_.ItemDay);
    return source_.ItemDay.isValid() && !source_.ItemText.isEmpty();
}

void frmRecurAppt::showSource() {
    const bool military = Session().MilitaryTime;
    lblsource->setText(QStringLiteral("%1, %2 - %3")
                           .arg(NamesPatient(source_) ? ShownName(source_.ItemText) : source_.ItemText,
                                MinutesToTimeText(source_.ItemStart, military),
                                MinutesToTimeText(source_.ItemEnd, military)));
}

// What the appointment's own date suggests, so that the most frequent series needs no more than OK.
void frmRecurAppt::presetPattern() {
    const QDate date = source_.ItemDay.isValid() ? source_.ItemDay : Today();
    txtRecrStartDate->setDate(date);
    txtRecrMaxEvents->setValue(FirstEvents);
    radRecurrence->button(static_cast<int>(RecurrencePattern::Type::Weekly))->setChecked(true);
    pages->setCurrentIndex(static_cast<int>(RecurrencePattern::Type::Weekly));
    for (QButtonGroup* group : {radEnd, radDaily, radMonthlyScaleInd, radYearlyScaleInd})
        group->button(0)->setChecked(true);
    chkRecrWeekly[static_cast<std::size_t>(WeekdayNumber(date) - 1)]->setChecked(true);
    txtRecrMonthlyDay->setValue(date.day());
    txtRecrYearlyDay->setValue(date.day());
    const int scale = (date.day() - 1) / 7;
    for (QComboBox* combo : {cmbRecrMonthlyScale, cmbRecrYearlyScale})
        combo->setCurrentIndex(scale);
    for (QComboBox* combo : {cmbRecrMonthlyWeekday, cmbRecrYearlyWeekday})
        combo->setCurrentIndex(WeekdayNumber(date) - 1);
    for (QComboBox* combo : cmbRecrYearlyMonth)
        combo->setCurrentIndex(date.month() - 1);
}

void frmRecurAppt::connectControls() {
    connect(radRecurrence, &QButtonGroup::idClicked, pages, &QStackedWidget::setCurrentIndex);
    for (const QButtonGroup* group : {radRecurrence, radEnd, radDaily, radMonthlyScaleInd, radYearlyScaleInd})
        connect(group, &QButtonGroup::idToggled, this, &frmRecurAppt::describe);
    for (const FieldEdit* field : std::initializer_list<const FieldEdit*>{
             txtRecrStartDate, txtRecrEndDate, txtRecrMaxEvents, txtRecrDailyDays, txtRecrWeeklyWeeks,
             txtRecrMonthlyDay, txtRecrMonthlyMonths[0], txtRecrMonthlyMonths[1], txtRecrYearlyDay})
        connect(field, &FieldEdit::Change, this, &frmRecurAppt::describe);
    for (const QComboBox* combo : {cmbRecrMonthlyScale, cmbRecrMonthlyWeekday, cmbRecrYearlyMonth[0],
                                   cmbRecrYearlyMonth[1], cmbRecrYearlyScale, cmbRecrYearlyWeekday})
        connect(combo, &QComboBox::currentIndexChanged, this, &frmRecurAppt::describe);
    for (const QCheckBox* day : chkRecrWeekly)
        connect(day, &QCheckBox::toggled, this, &frmRecurAppt::describe);
    // What is typed into an end chooses that end.
    connect(txtRecrEndDate, &FieldEdit::Change, this, [this] {
        if (txtRecrEndDate->hasFocus())
            radEnd->button(1)->setChecked(true);
    });
    connect(txtRecrMaxEvents, &FieldEdit::Change, this, [this] {
        if (txtRecrMaxEvents->hasFocus())
            radEnd->button(EndAfter)->setChecked(true);
    });
    connect(cmdRecur[0], &QPushButton::clicked, this, &frmRecurAppt::OK_Click);
    connect(cmdRecur[1], &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdRecur[2], &QPushButton::clicked, this, [this] {
        pattern_.patternLoaded = true;
        getSampleDates();
    });
}

void frmRecurAppt::readPattern() {
    pattern_.startDate = txtRecrStartDate->Date();
    pattern_.recurType = static_cast<RecurrencePattern::Type>(radRecurrence->checkedId());
    pattern_.dailyDays = value(txtRecrDailyDays);
    pattern_.dailyWeekdayOnly = radDaily->checkedId() == 1;
    pattern_.weeklyWeeks = value(txtRecrWeeklyWeeks);
    for (std::size_t day = 0; day < chkRecrWeekly.size(); ++day)
        pattern_.weeklyDays[day] = chkRecrWeekly[day]->isChecked();
    pattern_.monthlyUseThe = radMonthlyScaleInd->checkedId() == 1;
    pattern_.monthlyDay = value(txtRecrMonthlyDay);
    pattern_.monthlyMonths = value(txtRecrMonthlyMonths[pattern_.monthlyUseThe ? 1 : 0]);
    pattern_.monthlyScale = cmbRecrMonthlyScale->currentData().toInt();
    pattern_.monthlyWeekday = cmbRecrMonthlyWeekday->currentData().toInt();
    pattern_.yearlyUseThe = radYearlyScaleInd->checkedId() == 1;
    pattern_.yearlyMonth = cmbRecrYearlyMonth[pattern_.yearlyUseThe ? 1 : 0]->currentData().toInt();
    pattern_.yearlyDay = value(txtRecrYearlyDay);
    pattern_.yearlyScale = cmbRecrYearlyScale->currentData().toInt();
    pattern_.yearlyWeekday = cmbRecrYearlyWeekday->currentData().toInt();
}

void frmRecurAppt::readEnd() {
    if (radEnd->checkedId() == EndAfter) {
        pattern_.maxEvents = value(txtRecrMaxEvents);
        UIComputeEndDate();
    } else {
        pattern_.maxEvents = 0;
        pattern_.endDate = txtRecrEndDate->Date();
    }
}

void frmRecurAppt::UIGetInfo() {
    readPattern();
    readEnd();
}

void frmRecurAppt::UIComputeEndDate() {
    pattern_.endDate = QDate();
    if (pattern_.maxEvents <= 0)
        return;
    if (const std::vector<QDate> dates = BRGetDateStream(pattern_); !dates.empty())
        pattern_.endDate = dates.back();
}

void frmRecurAppt::describe() {
    const bool loaded = pattern_.patternLoaded;
    pattern_.patternLoaded = true;
    UIGetInfo();
    const bool endless = pattern_.maxEvents == 0 && !pattern_.endDate.isValid();
    const std::vector<QDate> dates = endless ? std::vector<QDate>() : BRGetDateStream(pattern_);
    lblsentence->setText(!pattern_.startDate.isValid() ? tr("Enter a start date.")
                         : endless                     ? tr("Enter when the series ends.")
                                                       : DescribeSeries(pattern_, dates, source_.ItemDay));
    seriesdates->ShowDates(dates);
    pattern_.patternLoaded = loaded;
}

bool frmRecurAppt::Validate() {
    using Type = RecurrencePattern::Type;
    UIGetInfo();
    const RecurrencePattern& p = pattern_;
    QString missing;
    const auto require = [&missing](bool there, const QString& line) {
        if (!there)
            missing += line + QLatin1Char('\n');
    };
    const QString badPattern = QStringLiteral("   Invalid Recurrance Pattern,");
    require(p.startDate.isValid(), QStringLiteral("   Start Date,"));
    require(p.endDate.isValid() || p.maxEvents != 0, QStringLiteral("   End Date or Number of Occurrences"));
    if (p.recurType == Type::Daily)
        require(p.dailyWeekdayOnly || p.dailyDays >= 1, badPattern);
    if (p.recurType == Type::Weekly)
        require(p.weeklyWeeks >= 1, badPattern);
    if (p.recurType == Type::Monthly) {
        require(p.monthlyMonths >= 1, badPattern);
        require(!p.monthlyUseThe || p.monthlyScale >= 1, badPattern);
        require((p.monthlyUseThe ? p.monthlyWeekday : p.monthlyDay) >= 1, badPattern);
    }
    if (p.recurType == Type::Yearly) {
        require(p.yearlyMonth >= 1, badPattern);
        require(!p.yearlyUseThe || p.yearlyScale >= 1, badPattern);
        require((p.yearlyUseThe ? p.yearlyWeekday : p.yearlyDay) >= 1, badPattern);
    }
    if (missing.isEmpty())
        return true;
    // The two characters are a comma and the line end, except behind the line on the end, which has no comma.
    missing.chop(2);
    MsgBox(QStringLiteral("Please enter the following information: ") + QStringLiteral("\n\n") + missing, PlainBox,
           QStringLiteral("Solvane Scheduler"));
    return false;
}

void frmRecurAppt::OK_Click() {
    if (!Validate())
        return;
    pattern_.patternLoaded = true;
    if (createRecurApptList() && !IsUnsaved())
        accept();
}

void frmRecurAppt::getSampleDates() {
    frmslist sample(this);
    {
        const BusyPointer busy;
        UIGetInfo();
        const std::vector<QDate> dates = BRGetDateStream(pattern_);
        seriesdates->ShowDates(dates);
        seriesdates->Read();
        FollowHiddenNames(&sample, [&sample, this, dates](bool) {
            sample.List1->clear();
            for (const QDate date : dates)
                sample.AddDate(
                    WeekdayAndDate(date),
                    date == source_.ItemDay ? tr("this appointment itself") : seriesdates->InTheWay(date).Text(),
                    date != source_.ItemDay);
        });
    }
    ShowModal(sample);
}

bool frmRecurAppt::createRecurApptList() {
    UIGetInfo();
    const std::vector<QDate> dates = BRGetDateStream(pattern_);
    if (dates.size() <= 1) {
        MsgBox(QStringLiteral("Recurring appointment must have more than one date."), ExclamationBox,
               QStringLiteral("Solvane Scheduler"));
        return true;
    }
    seriesdates->ShowDates(dates);
    try {
        return SaveProviderApt(dates, askForCompanions());
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error opening database. "), error);
        closeUnsaved();
        return true;
    }
}
