#include "views/frmweekv.h"

#include <QLocale>
#include <QVBoxLayout>

#include "appointments/appointmentitem.h"
#include "data/codes.h"
#include "data/holidays.h"
#include "data/recurrence.h"
#include "output/exportrows.h"
#include "output/frmschrpt.h"
#include "output/htmlexport.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "session/preferences.h"
#include "session/session.h"
#include "shell/menutables.h"

using db::Ignoring;
using db::ReadTogether;
using db::Recordset;
using db::Sql;

namespace {

constexpr int DaysOfWeek = 7;
constexpr int WorkingDays = 5;

QDate mondayOf(QDate date) {
    return date.addDays(1 - date.dayOfWeek());
}

// The eighth day has no column, and its rows no place.
QString appointmentsStatement(QDate first) {
    const QString& provider = Session().ProviderId;
    return Sql(
        "Select appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid where DApptDate >= '{}' AND DApptDate <= '{}' AND (appointments.ClinicianId = '{}' or appointmentsevents.clinicianid = '{}') Order by NStartTime, appttype DESC",
        first, first.addDays(DaysOfWeek), provider, provider);
}

QString hoursStatement(QDate date) {
    return Sql("Select * from ProvSched Where providerid = '{}' and workdayvalue = '{}'", Session().ProviderId,
               WeekdayNumber(date));
}

QString columnsStatement() {
    return PreferenceStatement(QStringLiteral("WeekCols"), QStringLiteral("SchedulerGeneral"),
                               QString::fromLatin1(AllUsers));
}

}  // namespace

frmweekv::frmweekv(MainWindow& main, QWidget* parent) : CalendarView(main, WeekMenus(), parent) {
    setObjectName(QStringLiteral("frmweekv"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(calendarWithShelf());
    setFocusProxy(ctMDay1);
    showOpenView(menu::mnuVWeek, View::Week);
    bindExports([this] { return exportedWeek(); }, [this] { ExportWeekHtml(ctMDay1->Date()); });
    const ReadTogether together(Session().Connection, weekStatements(mondayOf(this->main().Date()))
                                                          << columnsStatement());
    showDays();
    if (const std::optional<ViewContents> saved = this->main().TakeContents())
        takeContents(*saved);
    loadmdayview();
    setmenuaccess();
}

void frmweekv::showDays() {
    const QString wanted = GetPreference(Session().SchedulerIni, QStringLiteral("WeekCols"),
                                         QStringLiteral("SchedulerGeneral"), QString::fromLatin1(AllUsers));
    ctMDay1->setDayColumns(wanted == QLatin1String("7") ? DaysOfWeek : WorkingDays);
}

void frmweekv::ApplyPreferences() {
    savedDays_.reset();
    showDays();
    CalendarView::ApplyPreferences();
}

void frmweekv::AddContents(ViewContents& contents) const {
    contents.Set(savedname::Columns, ctMDay1->ColumnCount());
}

void frmweekv::takeContents(const ViewContents& contents) {
    const int days = contents.Number(savedname::Columns, 0);
    if (days != DaysOfWeek && days != WorkingDays)
        return;
    savedDays_ = days;
    ctMDay1->setDayColumns(days);
}

void frmweekv::ShowContents(const ViewContents& contents) {
    takeContents(contents);
    CalendarView::ApplyPreferences();
}

void frmweekv::ShowNow() {
    CalendarView::ShowNow();
    const QDate today = Today();
    if (today < ctMDay1->Date().addDays(ctMDay1->ColumnCount()))
        return;
    Notice notice{tr("Today is %1, which the week of five days does not show.").arg(LongDateText(today))};
    notice.subject = FoundNotice;
    ShowNotice(std::move(notice));
}

QDate frmweekv::Stepped(QDate from, int direction) const {
    return mondayOf(from).addDays(qint64{DaysOfWeek} * direction);
}

QDate frmweekv::dateOfColumn(int column) const {
    return ctMDay1->Date().addDays(column - 1);
}

int frmweekv::columnFor(QDate date, const QString& /*provider*/) const {
    const int column = static_cast<int>(ctMDay1->Date().daysTo(date)) + 1;
    return column > ctMDay1->ColumnCount() ? 0 : column;
}

QStringList frmweekv::weekStatements(QDate first) const {
    QStringList statements = statementsOfLoad(first, Session().ProviderId) << appointmentsStatement(first);
    for (int day = 0; day < DaysOfWeek; ++day)
        statements << HolidayStatement(first.addDays(day)) << hoursStatement(first.addDays(day));
    return statements;
}

ReportOpening frmweekv::reportOpening() const {
    ReportOpening opening = CalendarView::reportOpening();
    opening.to = opening.from.addDays(DaysOfWeek - 1);
    return opening;
}

ExportRequest frmweekv::exportedWeek() const {
    const QDate first = ctMDay1->Date();
    return {.SelectedKey = selectedKey(),
            .ExportRange = exportrange::Week,
            .WeekStart = first,
            .WeekEnd = first.addDays(DaysOfWeek - 1)};
}

void frmweekv::loadmdayview() {
    const QDate first = mondayOf(main().Date());
    const ReadTogether together(Session().Connection, weekStatements(first));
    beginLoad(first, Session().ProviderId);
    readInto(*ctMDay1, QStringLiteral("Error loading schedule. "), [&] {
        addAppointments(Recordset(appointmentsStatement(first), Session().Connection),
                        [](const Recordset& row, const CalendarItem& /*item*/) { return !row["allday"].boolean(); });
    });
    Ignoring([&] {
        for (int day = 0; day < DaysOfWeek; ++day)
            addHoliday(first.addDays(day));
    });
    ctMDay1->ClearTimeRanges();
    for (int day = 0; day < DaysOfWeek; ++day)
        LoadWorkSchedule(first.addDays(day));
    endLoad();
    const QString caption =
        QStringLiteral("Week of %1 %2, %3").arg(getmonth(first.month())).arg(first.day()).arg(first.year());
    main().ShowDateText(caption);
    main().ShowTitle(caption);
    if (const std::optional<FoundAppointment> found = main().TakeFound(main().Date()))
        showFound(*found);
}

void frmweekv::LoadWorkSchedule(QDate date) {
    Ignoring([&] {
        const Recordset hours(hoursStatement(date), Session().Connection);
        if (!hours.Eof())
            board_->ShadeAround(hours, date);
    });
}

void frmweekv::tellUnseenOpening(QDate date) {
    Notice notice{tr("The opening is on %1, which the week of five days does not show.").arg(LongDateText(date))};
    notice.subject = FoundNotice;
    ShowNotice(std::move(notice));
}

QString frmweekv::whyUnseen(const FoundAppointment& found) const {
    if (found.allDay)
        return tr("The appointment that was found lasts all day. The week does not show such entries.");
    if (found.date < ctMDay1->Date() || found.date >= ctMDay1->Date().addDays(ctMDay1->ColumnCount()))
        return tr("The appointment that was found is on %1, which the week of five days does not show.")
            .arg(LongDateText(found.date));
    return {};
}

ScheduleSheet frmweekv::sheet(const PrintOptions& options) const {
    ScheduleSheet sheet = CalendarView::sheet(options);
    const int days = savedDays_.value_or(options.weekends ? DaysOfWeek : WorkingDays);
    sheet.content.columns.clear();
    for (int day = 0; day < days; ++day)
        sheet.content.columns.push_back({{}, ctMDay1->Date().addDays(day)});
    sheet.content.headingFormat = QString::fromLatin1(DayAndNumbers);
    sheet.columnsPerPage = days;
    sheet.owner = Session().ProviderName;
    return sheet;
}

void frmweekv::printS() {
    if (!hasUnread())
        TellLandscape();
    CalendarView::printS();
}

QString frmweekv::getmonth(int month) {
    return month < 1 || month > 12 ? QString() : QLocale::c().monthName(month);
}
