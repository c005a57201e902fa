#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>

#include "appointments/frmrecurappt.h"
#include "appointments/seriesdates.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctnedit.h"
#include "platform/controls/formarea.h"
#include "platform/controls/formparts.h"
#include "platform/theme/theme.h"
#include "session/session.h"

namespace {

constexpr int MostEvents = 32767;
constexpr int MostInterval = 5000;
constexpr int MostDayOfMonth = 31;

ctNEdit* number(const char* name, const QString& what, int highest, QWidget* parent) {
    auto* field = Named(new ctNEdit(parent), name);
    field->setRange(0, highest);
    field->setValue(1);
    field->setAccessibleName(what);
    return field;
}

QRadioButton* option(QButtonGroup* group, int id, const QString& text, QWidget* parent) {
    auto* button = new QRadioButton(text, parent);
    button->setObjectName(QStringLiteral("%1%2").arg(group->objectName()).arg(id));
    group->addButton(button, id);
    return button;
}

void addRow(QComboBox* combo, const QString& text, int itemData) {
    combo->addItem(text, itemData);
}

QComboBox* scaleCombo(const char* name, QWidget* parent) {
    auto* combo = Named(new QComboBox(parent), name);
    combo->setAccessibleName(QObject::tr("Which one"));
    const QStringList texts{QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third"),
                            QStringLiteral("Fourth"), QStringLiteral("Last")};
    for (int i = 0; i < texts.size(); ++i)
        addRow(combo, texts[i], i + 1);
    return combo;
}

QComboBox* weekdayCombo(const char* name, QWidget* parent) {
    auto* combo = Named(new QComboBox(parent), name);
    combo->setAccessibleName(QObject::tr("Weekday"));
    const QStringList texts{QStringLiteral("Sunday"),    QStringLiteral("Monday"),   QStringLiteral("Tuesday"),
                            QStringLiteral("Wednesday"), QStringLiteral("Thursday"), QStringLiteral("Friday"),
                            QStringLiteral("Saturday")};
    for (int i = 0; i < texts.size(); ++i)
        addRow(combo, texts[i], i + 1);
    return combo;
}

QComboBox* monthCombo(const QString& name, QWidget* parent) {
    auto* combo = Named(new QComboBox(parent), name);
    combo->setAccessibleName(QObject::tr("Month"));
    for (int month = 1; month <= 12; ++month)
        addRow(combo, QLocale::c().standaloneMonthName(month), month);
    return combo;
}

/// One line: widgets from the left, strings as labels.
class Line : public QHBoxLayout {
  public:
    explicit Line(QWidget* parent) : parent_(parent) { setSpacing(Space(8)); }
    Line* with(QWidget* widget) {
        addWidget(widget);
        return this;
    }
    Line* with(const QString& text) {
        addWidget(new QLabel(text, parent_));
        return this;
    }
    Line* end() {
        addStretch(1);
        return this;
    }

  private:
    QWidget* parent_;
};

QVBoxLayout* pageColumn(QWidget* page) {
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Space(8));
    return column;
}

}  // namespace

void frmRecurAppt::buildForm() {
    lblsource = Named(new QLabel(this), "lblsource");
    lblsource->setFont(HeadingFont());
    lblsource->setWordWrap(true);
    lblsentence = Named(new QLabel(this), "lblsentence");
    lblsentence->setWordWrap(true);
    radRecurrence = Named(new QButtonGroup(this), "radRecurrence");
    pages = new QStackedWidget(this);
    for (QWidget* page : {buildDaily(), buildWeekly(), buildMonthly(), buildYearly()})
        pages->addWidget(page);
    layOutForm(buildRange());
}

QWidget* frmRecurAppt::buildDaily() {
    auto* page = new QWidget(this);
    radDaily = Named(new QButtonGroup(page), "radDaily");
    txtRecrDailyDays = number("txtRecrDailyDays", tr("Days between"), MostInterval, page);
    auto* column = pageColumn(page);
    column->addLayout((new Line(page))
                          ->with(option(radDaily, 0, QStringLiteral("E&very"), page))
                          ->with(txtRecrDailyDays)
                          ->with(QStringLiteral("day(s)"))
                          ->end());
    column->addWidget(option(radDaily, 1, QStringLiteral("Every wee&kday"), page));
    column->addStretch(1);
    return page;
}

QWidget* frmRecurAppt::buildWeekly() {
    auto* page = new QWidget(this);
    txtRecrWeeklyWeeks = number("txtRecrWeeklyWeeks", tr("Weeks between"), MostInterval, page);
    auto* column = pageColumn(page);
    column->addLayout((new Line(page))
                          ->with(QStringLiteral("Recur every"))
                          ->with(txtRecrWeeklyWeeks)
                          ->with(QStringLiteral("week(s) on:"))
                          ->end());
    static constexpr const char* shortNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    const QStringList texts{QStringLiteral("Sunday"),    QStringLiteral("Monday"),   QStringLiteral("Tuesday"),
                            QStringLiteral("Wednesday"), QStringLiteral("Thursday"), QStringLiteral("Friday"),
                            QStringLiteral("Saturday")};
    auto* days = new QGridLayout;
    days->setHorizontalSpacing(Space(16));
    for (int day = 0; day < 7; ++day) {
        QCheckBox*& box = chkRecrWeekly[static_cast<std::size_t>(day)];
        box = Named(new QCheckBox(texts[day], page),
                    QStringLiteral("chkRecrWeekly%1Ind").arg(QLatin1String(shortNames[day])));
        days->addWidget(box, day / 4, day % 4);
    }
    column->addLayout(days);
    column->addStretch(1);
    return page;
}

QWidget* frmRecurAppt::buildMonthly() {
    auto* page = new QWidget(this);
    radMonthlyScaleInd = Named(new QButtonGroup(page), "radMonthlyScaleInd");
    txtRecrMonthlyDay = number("txtRecrMonthlyDay", tr("Day of the month"), MostDayOfMonth, page);
    txtRecrMonthlyMonths = {number("txtRecrMonthlyMonths0", tr("Months between"), MostInterval, page),
                            number("txtRecrMonthlyMonths1", tr("Months between"), MostInterval, page)};
    cmbRecrMonthlyScale = scaleCombo("cmbRecrMonthlyScale", page);
    cmbRecrMonthlyWeekday = weekdayCombo("cmbRecrMonthlyWeekday", page);
    auto* column = pageColumn(page);
    column->addLayout((new Line(page))
                          ->with(option(radMonthlyScaleInd, 0, QStringLiteral("Da&y"), page))
                          ->with(txtRecrMonthlyDay)
                          ->with(QStringLiteral("of every"))
                          ->with(txtRecrMonthlyMonths[0])
                          ->with(QStringLiteral("month(s)"))
                          ->end());
    column->addLayout((new Line(page))
                          ->with(option(radMonthlyScaleInd, 1, QStringLiteral("T&he"), page))
                          ->with(cmbRecrMonthlyScale)
                          ->with(cmbRecrMonthlyWeekday)
                          ->with(QStringLiteral("of every"))
                          ->with(txtRecrMonthlyMonths[1])
                          ->with(QStringLiteral("month(s)"))
                          ->end());
    column->addStretch(1);
    return page;
}

QWidget* frmRecurAppt::buildYearly() {
    auto* page = new QWidget(this);
    radYearlyScaleInd = Named(new QButtonGroup(page), "radYearlyScaleInd");
    cmbRecrYearlyMonth = {monthCombo(QStringLiteral("cmbRecrYearlyMonth0"), page),
                          monthCombo(QStringLiteral("cmbRecrYearlyMonth1"), page)};
    txtRecrYearlyDay = number("txtRecrYearlyDay", tr("Day of the month"), MostDayOfMonth, page);
    cmbRecrYearlyScale = scaleCombo("cmbRecrYearlyScale", page);
    cmbRecrYearlyWeekday = weekdayCombo("cmbRecrYearlyWeekday", page);
    auto* column = pageColumn(page);
    column->addLayout((new Line(page))
                          ->with(option(radYearlyScaleInd, 0, QStringLiteral("E&very"), page))
                          ->with(cmbRecrYearlyMonth[0])
                          ->with(txtRecrYearlyDay)
                          ->end());
    column->addLayout((new Line(page))
                          ->with(option(radYearlyScaleInd, 1, QStringLiteral("T&he"), page))
                          ->with(cmbRecrYearlyScale)
                          ->with(cmbRecrYearlyWeekday)
                          ->with(tr("of"))
                          ->with(cmbRecrYearlyMonth[1])
                          ->end());
    column->addStretch(1);
    return page;
}

QLayout* frmRecurAppt::buildRange() {
    const auto date = [this](const char* name, const QString& what) {
        auto* field = Named(new ctDEdit(ctDEdit::Kind::Date, this), name);
        field->setDateOrder(Session().DateOrder);
        field->setAccessibleName(what);
        return field;
    };
    txtRecrStartDate = date("txtRecrStartDate", tr("Start date"));
    txtRecrEndDate = date("txtRecrEndDate", tr("End date"));
    radEnd = Named(new QButtonGroup(this), "radEnd");
    txtRecrMaxEvents = number("txtRecrMaxEvents", tr("Number of occurrences"), MostEvents, this);
    auto* start = new QLabel(tr("S&tart:"), this);
    start->setBuddy(txtRecrStartDate);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(Space(8));
    grid->setVerticalSpacing(Space(8));
    grid->addWidget(start, 0, 0);
    grid->addWidget(txtRecrStartDate, 0, 1);
    grid->addWidget(option(radEnd, 0, QStringLiteral("End &After"), this), 0, 3);
    grid->addLayout((new Line(this))->with(txtRecrMaxEvents)->with(tr("occurrence(s)"))->end(), 0, 4);
    grid->addWidget(option(radEnd, 1, QStringLiteral("End &On"), this), 1, 3);
    grid->addLayout((new Line(this))->with(txtRecrEndDate)->end(), 1, 4);
    grid->setColumnMinimumWidth(2, Space(16));
    grid->setColumnStretch(4, 1);
    return grid;
}

void frmRecurAppt::layOutForm(QLayout* range) {
    auto* types = new QVBoxLayout;
    types->setSpacing(Space(4));
    const QStringList words{tr("&Daily"), tr("&Weekly"), tr("&Monthly"), tr("Y&early")};
    for (int type = 0; type < words.size(); ++type)
        types->addWidget(option(radRecurrence, type, words[type], this));
    types->addStretch(1);
    auto* pattern = new QHBoxLayout;
    pattern->setSpacing(Space(24));
    pattern->addLayout(types);
    pattern->addWidget(pages, 1);

    auto* fields = new QWidget(this);
    auto* inner = new QVBoxLayout(fields);
    inner->setContentsMargins(0, 0, 0, 0);
    inner->setSpacing(Space(16));
    inner->addWidget(lblsource);
    inner->addLayout(pattern);
    inner->addLayout(range);
    inner->addWidget(lblsentence);
    seriesdates = new SeriesDates(this);
    inner->addWidget(seriesdates, 1);
    // The line grows and shrinks with what it says; the form does not.
    lblsentence->setMinimumHeight(fontMetrics().height() * 2);
    lblsentence->setAlignment(Qt::AlignTop);

    const QStringList texts{QStringLiteral("OK"), QStringLiteral("Cancel"), QStringLiteral("&Sample Dates...")};
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Space(8));
    for (std::size_t i = 0; i < cmdRecur.size(); ++i) {
        cmdRecur[i] =
            Named(new QPushButton(texts[static_cast<int>(i)], this), QStringLiteral("cmdRecur%1").arg(i == 2 ? 3 : i));
        cmdRecur[i]->setAutoDefault(false);
    }
    cmdRecur[0]->setDefault(true);
    buttons->addWidget(cmdRecur[2]);
    buttons->addStretch(1);
    buttons->addWidget(cmdRecur[0]);
    buttons->addWidget(cmdRecur[1]);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Space(16), Space(16), Space(16), Space(16));
    column->setSpacing(Space(16));
    column->addWidget(new FormArea(fields, this), 1);
    column->addLayout(buttons);
}
