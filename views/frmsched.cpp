#include "views/frmsched.h"

#include <algorithm>
#include <QAction>

#include "data/codes.h"
#include "data/holidays.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/localefacts.h"
#include "session/errorbox.h"
#include "session/session.h"
#include "views/appointmentitem.h"

using db::Ignoring;
using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

constexpr int NonWorkingColor = 8421504;  // grey

// 1 is Sunday, as ProvSched.workdayvalue counts.
int weekdayOf(QDate date) {
    return date.dayOfWeek() % 7 + 1;
}

}  // namespace

frmsched::frmsched(MainWindow& main, QWidget* parent) : CalendarView(main, parent) {
    setObjectName(QStringLiteral("frmsched"));
    layOut();
    bindDayCommands();
    bindTaskCommands();
    setGrid();
    connect(ctMDay1, &ctMDay::ItemSelected, this, &frmsched::displayapptinfo);
    connect(ctMDay1, &ctMDay::DayStepRequested, this,
            [this](int direction) { this->main().cycledate(direction < 0 ? 0 : 1); });
    LoadDayView();
    LoadToDo();
    setmenuaccess();
}

void frmsched::bindDayCommands() {
    menus().Allow(QStringLiteral("mnuFExport"), false);
    menus().Allow(QStringLiteral("mnuFsep4"), false);
    menus().Allow(QStringLiteral("mnuVFH"), !Session().FHDatabaseId.isEmpty());
    menus().Allow(QStringLiteral("mnuVAll"), Session().AllProviders);
    menus().Command(QStringLiteral("mnuVDay")).setChecked(true);
}

QDate frmsched::Stepped(QDate from, int direction) const {
    return from.addDays(direction);
}

void frmsched::Reload() {
    LoadDayView();
    // The tasks belong to the provider, not to the day.
    if (tasksOf_ != Session().ProviderId)
        LoadToDo();
}

void frmsched::ApplyPreferences() {
    CalendarView::ApplyPreferences();
    LoadToDo();
}

void frmsched::LoadDayView() {
    const QDate date = main().Date();
    const bool sameDay = date == loadedDate_ && Session().ProviderId == loadedProvider_;
    const int keptTop = ctMDay1->TopTime();
    // Whoever hides the names wants none left in the details either.
    const bool hidesNames = Session().HidePatientNames && !loadedNamesHidden_;
    const QString keptKey = sameDay && !hidesNames && ctMDay1->SelectedItem() > 0
                                ? std::as_const(*ctMDay1).Item(ctMDay1->SelectedItem()).ItemKey
                                : QString();
    loadedDate_ = date;
    loadedProvider_ = Session().ProviderId;
    loadedNamesHidden_ = Session().HidePatientNames;

    ctMDay1->setDate(date);
    ctMDay1->ClearItems();
    ctMDay1->setDayBackColor(SystemInfoColor);
    ctMDay1->setDayHeaderColor(SystemInfoColor);
    ctMDay1->setHolidayFlag(false);
    facts_.clear();
    setHours();
    try {
        loadAppointments(date);
    } catch (const db::DatabaseError& error) {
        TellError(QStringLiteral("Error reading appointments. "), error);
    }
    Ignoring([&] { loadHoliday(date); });
    LoadWorkSchedule(date);

    displayapptinfo(0);
    ctMDay1->setTopTime(sameDay ? std::max(keptTop, ctMDay1->FirstTime()) : ctMDay1->FirstTime());
    if (const int index = keptKey.isEmpty() ? 0 : ctMDay1->IndexOfKey(keptKey); index > 0)
        ctMDay1->setSelectedItem(index);
    main().ShowDateText(LongDateText(date));
    changedate(date);
}

void frmsched::loadAppointments(QDate date) {
    const QString& provider = Session().ProviderId;
    Recordset rows(
        Sql("SELECT appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE dapptdate = '{}' and (appointments.clinicianid = '{}' or appointmentsevents.clinicianid = '{}') Order by NStartTime, appttype DESC",
            SqlDate(date), provider, provider),
        Session().Connection);
    const ItemPainting painting = CalendarView::painting();
    for (; !rows.Eof(); rows.MoveNext()) {
        CalendarItem item = ItemFromAppointment(rows, painting);
        // The join gives a row of the provider's own once for each further provider.
        if (facts_.contains(item.ItemKey))
            continue;
        if (const int start = std::max(item.ItemStart, 0); start < ctMDay1->FirstTime())
            ctMDay1->setFirstTime(start);
        addAppointment(rows, std::move(item));
    }
}

void frmsched::loadHoliday(QDate date) {
    const std::optional<QString> holiday = HolidayOn(Session().Connection, date);
    if (!holiday)
        return;
    ctMDay1->setHolidayFlag(true);
    addItem(HolidayBanner(*holiday, date));
    ctMDay1->setDayHeaderColor(ncolor::Holiday);
    ctMDay1->setDayBackColor(ncolor::Holiday);
}

void frmsched::LoadWorkSchedule(QDate day) {
    ctMDay1->ClearTimeRanges();
    Ignoring([&] {
        const Recordset hours(Sql("Select * from ProvSched Where providerid = '{}' and workdayvalue = {}",
                                  Session().ProviderId, weekdayOf(day)),
                              Session().Connection);
        if (hours.Eof())
            return;
        const int first = ctMDay1->FirstTime();
        const int last = ctMDay1->LastTime();
        const int start = static_cast<int>(hours["starttime"].integer());
        const int end = static_cast<int>(hours["endtime"].integer());
        if (start <= 0) {
            ctMDay1->AddTimeRange(first, last, NonWorkingColor);
            return;
        }
        if (start > first)
            ctMDay1->AddTimeRange(first, start - 1, NonWorkingColor);
        if (end < last)
            ctMDay1->AddTimeRange(end + 1, last, NonWorkingColor);
    });
}

void frmsched::changedate(QDate date) {
    static constexpr const char* months[] = {"January ",   "February ", "March ",    "April ",
                                             "May ",       "June ",     "July ",     "August ",
                                             "September ", "October ",  "November ", "December "};
    main().ShowTitle(QLatin1String(months[date.month() - 1]) +
                     QStringLiteral("%1, %2").arg(date.day()).arg(date.year()));
}
