#include "views/frmmtv.h"

#include <QLocale>
#include <QSet>
#include <QVBoxLayout>

#include "appointments/appointmentitem.h"
#include "appointments/frmactsc.h"
#include "data/codes.h"
#include "data/holidays.h"
#include "data/minutetime.h"
#include "platform/calendar/ctweek.h"
#include "platform/controls/noticebar.h"
#include "platform/database/readtogether.h"
#include "platform/database/recordset.h"
#include "platform/database/sql.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/text/plaintext.h"
#include "search/frmfinda.h"
#include "session/hiddennames.h"
#include "session/namedpreview.h"
#include "session/rights.h"
#include "session/runeditor.h"
#include "session/session.h"
#include "shell/menutables.h"
#include "views/shelfpanel.h"

using db::Recordset;
using db::Sql;
using db::SqlDate;

namespace {

constexpr int DaysOfStep = 30;

CalendarItem itemOf(const Recordset& row) {
    const int code = static_cast<int>(row["ncolor"].integer());
    CalendarItem item;
    item.ItemKey = row["nkeyid"].text();
    item.ItemText = OneLine(row["cappttext"].text());
    item.ItemStart = static_cast<int>(row["nStartTime"].integer());
    item.ItemEnd = static_cast<int>(row["nEndTime"].integer());
    item.ItemDay = row["dapptdate"].date();
    item.ItemColor = code;
    item.ItemNote = QStringLiteral("||") + row["patientid"].text();
    HideName(item, Session().HidePatientNames);
    MarkStatus(item, code, static_cast<int>(row["appttype"].integer()));
    return item;
}

// A counted 29th that the year lacks is the day after the 28th: the database takes no other date for it.
QString appointmentsStatement(QDate first, int days) {
    const QDate last = first.addDays(days - 1);
    const QString& provider = Session().ProviderId;
    return Sql(
        "Select appointments.* FROM appointments LEFT JOIN appointmentsevents ON appointments.nkeyid = appointmentsevents.nkeyid where DApptDate >= '{}' AND DApptDate <= '{}' AND (appointments.ClinicianId = '{}' or appointmentsevents.clinicianid = '{}')",
        SqlDate(first), SqlDate(last), provider, provider);
}

QStringList holidayStatements(QDate first, int days) {
    QStringList statements;
    for (int day = 0; day < days; ++day)
        statements << HolidayStatement(first.addDays(day));
    return statements;
}

}  // namespace

int DaysInMonth(int month, int year) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && year % 4 == 0 ? 29 : days[month - 1];
}

frmmtv::frmmtv(MainWindow& main, QWidget* parent)
    : MenuView(main, MonthMenus(), parent), ctWeek1(new ctWeek(this)), shelf_(new ShelfPanel(this)) {
    setObjectName(QStringLiteral("frmmtv"));
    ctWeek1->setObjectName(QStringLiteral("ctWeek1"));
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(BesideShelf(ctWeek1, shelf_));
    setFocusProxy(ctWeek1);
    bindMonthCommands();
    bindCalendar();
    bindShelf();
    setmenuaccess();
    ctWeek1->setTwentyFourHour(Session().MilitaryTime);
    LoadMonthView();
}

void frmmtv::bindMonthCommands() {
    showOpenView(menu::mnuVMonth, View::Month);
    menus().Bind(menu::mnuFPrintS, [this] { printS(); });
    menus().Show(menu::mnuVFH, !Session().FHDatabaseId.isEmpty());
    menus().Bind(menu::mnuVActivity, [this] {
        RunEditor(
            std::make_unique<frmactsc>(ActivityRequest{0, main().Date(), std::nullopt}, window()), [this] { Reload(); },
            [&main = main()] { main.cycledate(2); });
    });
}

void frmmtv::bindCalendar() {
    ctWeek1->setTip([this](int index) { return tipOf(index); });
    FollowHiddenNames(
        this, [this](bool hidden) { ctWeek1->ChangeItems([hidden](CalendarItem& item) { HideName(item, hidden); }); });
    connect(ctWeek1, &ctWeek::DaySelected, this, &frmmtv::selectDay);
    connect(ctWeek1, &ctWeek::DayRequested, this, &frmmtv::goTo);
    connect(ctWeek1, &ctWeek::DayActivated, this, &frmmtv::openDay);
    connect(ctWeek1, &ctWeek::MonthStepRequested, this,
            [this](int direction) { this->main().cycledate(direction < 0 ? 0 : 1); });
}

void frmmtv::bindShelf() {
    BindShelfCommand(menus(), *shelf_);
    connect(shelf_, &ShelfPanel::ShowRequested, this,
            [&main = main()](const ShelvedAppointment& shelved) { GoToShelved(main, shelved); });
    connect(&shelf_->List(), &ShelfList::LeaveRequested, ctWeek1, [this] { ctWeek1->setFocus(); });
}

QList<QWidget*> frmmtv::SidePanes() const {
    return {&shelf_->List()};
}

void frmmtv::setmenuaccess() {
    const SessionValues& session = Session();
    showAny({menu::mnuFLoc, menu::mnuFRoomList, menu::mnuFActList, menu::mnuFsep2, menu::mnuVActivity}, MayWrite());
    showAny({menu::mnuFSelect, menu::mnuFsep1, menu::mnuVAll}, session.AllProviders);
}

QDate frmmtv::Stepped(QDate from, int direction) const {
    return from.addDays(qint64{direction} * DaysOfStep);
}

void frmmtv::ApplyPreferences() {
    ctWeek1->setTwentyFourHour(Session().MilitaryTime);
    Reload();
}

void frmmtv::LoadMonthView() {
    const QDate date = main().Date();
    List1.clear();
    List2.clear();
    ctWeek1->ClearItems();
    ctWeek1->setDate(date);
    const int days = DaysInMonth(ctWeek1->Month(), ctWeek1->Year());
    const QDate first(ctWeek1->Year(), ctWeek1->Month(), 1);
    const std::vector<Span> spans = shownSpans({first, days});
    QStringList statements;
    for (const Span& span : spans)
        statements << appointmentsStatement(span.first, span.days);
    for (const Span& span : spans)
        statements << holidayStatements(span.first, span.days);
    const db::ReadTogether together(Session().Connection, statements + shelf_->Statements());
    shelf_->Read();
    if (readInto(*ctWeek1, QStringLiteral("Error reading appointments. "), [&] { addAppointments(spans); })) {
        for (const Span& span : spans)
            db::Ignoring([&] { addHolidays(span.first, span.days); });
    }
    const QString month = QLocale::c().toString(date, QStringLiteral("MMMM"));
    main().ShowDateText(QStringLiteral("Month of %1, %2").arg(month).arg(date.year()));
    main().ShowTitle(QStringLiteral("%1 %2").arg(month).arg(date.year()));
}

// The month first, by its own statement, and then the days of its neighbours that stand in its weeks.
std::vector<frmmtv::Span> frmmtv::shownSpans(const Span& month) const {
    const std::vector<MonthCell>& cells = ctWeek1->Layout().cells;
    if (cells.empty())
        return {month};
    const QDate after = month.first.addDays(month.days);
    std::vector<Span> spans{month,
                            {cells.front().day, static_cast<int>(cells.front().day.daysTo(month.first))},
                            {after, static_cast<int>(after.daysTo(cells.back().day)) + 1}};
    std::erase_if(spans, [](const Span& span) { return span.days < 1; });
    return spans;
}

void frmmtv::addAppointments(const std::vector<Span>& spans) {
    QSet<QString> shown;
    for (const Span& span : spans) {
        Recordset rows(appointmentsStatement(span.first, span.days), Session().Connection);
        for (; !rows.Eof(); rows.MoveNext()) {
            CalendarItem item = itemOf(rows);
            // The join gives a row of the provider's own once for each further provider.
            if (shown.contains(item.ItemKey))
                continue;
            shown.insert(item.ItemKey);
            List1 << item.ItemText;
            List2 << item.ItemKey;
            ctWeek1->AddItem(std::move(item));
        }
    }
}

void frmmtv::addHolidays(QDate first, int days) {
    for (int day = 0; day < days; ++day) {
        const std::optional<QString> holiday = HolidayOn(Session().Connection, first.addDays(day));
        if (!holiday)
            continue;
        const CalendarItem banner = HolidayBanner(*holiday, first.addDays(day));
        List1 << banner.ItemText;
        List2 << banner.ItemKey;
        ctWeek1->AddItem(banner);
    }
}

MonthSheet frmmtv::sheet() const {
    MonthSheet sheet;
    sheet.content = ctWeek1->Content();
    sheet.title = QLocale::c().toString(ctWeek1->Content().grid.month, QStringLiteral("MMMM yyyy"));
    sheet.footer = Session().ProviderName;
    return sheet;
}

void frmmtv::printS() {
    if (hasUnread()) {
        TellUnreadSchedule();
        return;
    }
    const PrintOptions options = ReadPrintOptions();
    PreviewWithNames([&] { return PrintedSheet(sheet(), options); }, window());
}

QString frmmtv::tipOf(int index) const {
    if (index < 1 || index > List1.size())
        return {};
    const CalendarItem& item = ctWeek1->Item(index);
    if (item.ItemBanner)
        return item.ItemText;
    const bool military = Session().MilitaryTime;
    const QString times =
        QStringLiteral(" - %1 - %2")
            .arg(MinutesToTimeText(item.ItemStart, military), MinutesToTimeText(item.ItemEnd, military));
    return item.ItemTextColor == TextColor::Normal ? List1[index - 1] + times : times.mid(3);
}

// The days before and after the month can be chosen, too; the month that is shown stays until one of them is opened.
void frmmtv::selectDay(QDate day) {
    if (day.month() == ctWeek1->Month() && day.year() == ctWeek1->Year())
        main().SetDate(day);
}

void frmmtv::goTo(QDate day) {
    main().SetDate(day);
    Reload();
}

void frmmtv::openDay(QDate day) {
    main().SetDate(day);
    main().changeview(View::Day);
}

void frmmtv::FindAppointment() {
    frmfinda dialog(window());
    ShowModal(dialog);
    if (!dialog.Found())
        return;
    const FoundAppointment found = *dialog.Found();
    main().SetDate(found.date);
    if (dialog.ProviderChanged())
        main().ProviderChosen();
    else
        Reload();
    main().LeaveFound(found);
    // A day of the month has no room for all its appointments, nor for the time of each.
    ShowNotice({tr("The appointment that was found is on %1, at %2.")
                    .arg(LongDateText(found.date), MinutesToTimeText(found.start, Session().MilitaryTime)),
                Notice::Kind::Information,
                {{tr("Open Day"), [&window = main(), found] { window.OpenFound(found); }}},
                FoundNotice});
}
