#include "views/frmsched.h"

#include <QLocale>

#include "data/codes.h"
#include "data/holidays.h"
#include "data/recurrence.h"
#include "output/exportrows.h"
#include "output/htmlexport.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/localefacts.h"
#include "session/session.h"
#include "shell/menutables.h"

using db::Ignoring;
using db::ReadTogether;
using db::Recordset;
using db::Sql;

namespace {

QString appointmentsStatement(QDate date) {
    const QString& provider = Session().ProviderId;
    return Sql(
        "SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE dapptdate = '{}' and (appointments.clinicianid = '{}' or appointmentsevents.clinicianid = '{}') Order by NStartTime, appttype DESC",
        date, provider, provider);
}

QString hoursStatement(QDate date) {
    return Sql("Select * from ProvSched Where providerid = '{}' and workdayvalue = {}", Session().ProviderId,
               WeekdayNumber(date));
}

}  // namespace

frmsched::frmsched(MainWindow& main, QWidget* parent) : CalendarView(main, DayMenus(), parent) {
    setObjectName(QStringLiteral("frmsched"));
    layOut();
    bindTaskCommands();
    showOpenView(menu::mnuVDay, View::Day);
    connect(ctMDay1, &ctMDay::ItemSelected, this, &frmsched::displayapptinfo);
    bindExports([this] { return ExportRequest{.SelectedKey = selectedKey(), .ExportRange = exportrange::Day}; },
                [this] { ExportDayHtml(ctMDay1->Date()); });
    const ReadTogether together(Session().Connection, dayStatements() << tasksStatement());
    LoadDayView();
    LoadToDo();
    setmenuaccess();
}

ScheduleSheet frmsched::sheet(const PrintOptions& options) const {
    ScheduleSheet sheet = CalendarView::sheet(options);
    sheet.content.dayColumns = false;
    sheet.content.columns.front().title = Session().ProviderName;
    return sheet;
}

QDate frmsched::Stepped(QDate from, int direction) const {
    return from.addDays(direction);
}

void frmsched::Reload() {
    const ReadTogether together(Session().Connection, dayStatements() << tasksStatement());
    LoadDayView();
    // The tasks belong to the provider, not to the day; but another desk may have changed them.
    LoadToDo();
}

void frmsched::ApplyPreferences() {
    CalendarView::ApplyPreferences();
    LoadToDo();
}

QStringList frmsched::dayStatements() const {
    const QDate date = main().Date();
    return statementsOfLoad(date, Session().ProviderId)
           << appointmentsStatement(date) << HolidayStatement(date) << hoursStatement(date);
}

void frmsched::LoadDayView() {
    const QDate date = main().Date();
    const ReadTogether together(Session().Connection, dayStatements());
    beginLoad(date, Session().ProviderId);
    readInto(*ctMDay1, QStringLiteral("Error reading appointments. "),
             [&] { addAppointments(Recordset(appointmentsStatement(date), Session().Connection)); });
    Ignoring([&] {
        if (addHoliday(date))
            ctMDay1->setDayBackColor(ncolor::Holiday);
    });
    LoadWorkSchedule(date);
    endLoad();
    main().ShowDateText(LongDateText(date));
    changedate(date);
    if (const std::optional<FoundAppointment> found = main().TakeFound(date))
        showFound(*found);
}

void frmsched::LoadWorkSchedule(QDate day) {
    ctMDay1->ClearTimeRanges();
    Ignoring([&] {
        const Recordset hours(hoursStatement(day), Session().Connection);
        if (!hours.Eof())
            board_->ShadeAround(hours);
    });
}

void frmsched::changedate(QDate date) {
    main().ShowTitle(
        QStringLiteral("%1 %2, %3").arg(QLocale::c().monthName(date.month())).arg(date.day()).arg(date.year()));
}
