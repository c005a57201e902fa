#include "views/calendarview.h"

#include <QAction>

#include "data/courtesycalls.h"
#include "session/session.h"

CalendarView::CalendarView(MainWindow& main, QWidget* parent)
    : ViewWindow(parent), ctMDay1(new ctMDay(this)), main_(main), menus_(this) {
    ctMDay1->setObjectName(QStringLiteral("ctMDay1"));
    bindCommands();
    bindStatusCommands();
    bindDeletion();
    bindEditing();
    bindInPlaceWork();
    bindLists();
    bindSearches();
    bindSeries();
    registerOpenView();
}

void CalendarView::bindCommands() {
    menus_.Bind(QStringLiteral("mnuFSelect"), [this] { main_.SelectProvider(); });
    menus_.Bind(QStringLiteral("mnuFPrefs"), [this] { main_.ShowPreferences(); });
    menus_.Bind(QStringLiteral("mnuFExit"), [this] { main_.Leave(); });
    menus_.Bind(QStringLiteral("mnuVDay"), [this] { main_.changeview(0); });
    menus_.Bind(QStringLiteral("mnuVToday"), [this] { main_.GoToToday(); });
    menus_.Bind(QStringLiteral("mnuVPrevious"), [this] { main_.cycledate(0); });
    menus_.Bind(QStringLiteral("mnuVNext"), [this] { main_.cycledate(1); });
    menus_.Bind(QStringLiteral("mnuVRefresh"), [this] { main_.cycledate(2); });
    menus_.Bind(QStringLiteral("mnuVHidePats"), [this] { main_.ToggleHidePatientNames(); });
    menus_.Bind(QStringLiteral("mnuVHideTP"), [this] {
        main_.ToggleTaskPane();
        FollowMainWindow();
    });
    // The word for a patient follows the practice.
    menus_.Command(QStringLiteral("mnuANPat")).setText(QStringLiteral("&%1...").arg(Session().WordUsage));
    menus_.Command(QStringLiteral("mnuVDay")).setCheckable(true);
    menus_.Command(QStringLiteral("mnuVHidePats")).setCheckable(true);
    CalendarView::FollowMainWindow();
}

void CalendarView::FollowMainWindow() {
    menus_.Command(QStringLiteral("mnuVHidePats")).setChecked(Session().HidePatientNames);
    menus_.Command(QStringLiteral("mnuVHideTP"))
        .setText(main_.TaskPaneShown() ? QStringLiteral("&Hide Task Pane") : QStringLiteral("&Show Task Pane"));
}

std::optional<CalendarItem> CalendarView::SelectedItem() const {
    const int index = ctMDay1->SelectedItem();
    if (index < 1)
        return std::nullopt;
    return std::as_const(*ctMDay1).Item(index);
}

std::optional<SelectedSlot> CalendarView::SelectedTime() const {
    if (ctMDay1->SelectedRange() < 0)
        return std::nullopt;
    return SelectedSlot{ctMDay1->Date(), ctMDay1->SelStart(), ctMDay1->SelEnd()};
}

void CalendarView::DropSelection() {
    ctMDay1->clearSelection();
}

void CalendarView::FillMenus(QMenuBar& bar) {
    menus_.Fill(bar);
}

void CalendarView::displayapptinfo(int /*index*/) {}

void CalendarView::setHours() {
    const SessionValues& session = Session();
    ctMDay1->setPrimeStart(session.DayStartHour * 60);
    ctMDay1->setFirstTime(session.DayStartHour * 60);
    ctMDay1->setPrimeEnd(session.DayEndHour * 60);
    ctMDay1->setLastTime(session.DayEndHour * 60 - 1);
}

int CalendarView::addItem(CalendarItem item) {
    const int index = ctMDay1->AddItem(item.ItemStart, item.ItemEnd, item.ItemDay, item.ItemText, item.ItemKey);
    ctMDay1->Item(index) = std::move(item);
    lockItem(index);
    return index;
}

int CalendarView::addAppointment(const db::Recordset& row, CalendarItem item) {
    facts_[item.ItemKey] = factsOf(row, item);
    return addItem(std::move(item));
}

CalendarView::RowFacts CalendarView::factsOf(const db::Recordset& row, const CalendarItem& item) {
    return {static_cast<int>(row["appttype"].integer()), row["CourtesyCallStatus"].text(), row["clinicianid"].text(),
            item};
}

bool CalendarView::RowFacts::BelongsAs(const RowFacts& other) const {
    return stored.ItemDay == other.stored.ItemDay && clinicianId == other.clinicianId;
}

bool CalendarView::RowFacts::StandsAs(const RowFacts& other) const {
    return BelongsAs(other) && stored.ItemStart == other.stored.ItemStart && stored.ItemEnd == other.stored.ItemEnd;
}

ItemPainting CalendarView::painting() {
    return {Session().HidePatientNames, [icons = QHash<QString, int>()](const QString& code) mutable {
                if (!icons.contains(code))
                    icons[code] = GetCallStatusIcon(Session().Connection, code);
                return icons[code];
            }};
}

void CalendarView::setGrid() {
    ctMDay1->setTimeInterval(Session().TimeUnit);
    ctMDay1->setTwentyFourHour(Session().MilitaryTime);
}

void CalendarView::ApplyPreferences() {
    setGrid();
    Reload();
}

void CalendarView::setmenuaccess() {
    const SessionValues& session = Session();
    if (session.ScreenAccess == 1) {
        for (const char* name : {"mnuANew", "mnuAEdit", "mnuADelete", "mnuAsep1", "mnuToDo"})
            menus_.Allow(QLatin1String(name), false);
        for (const char* name :
             {"mnuARepeat", "mnuFLoc", "mnuFRoomList", "mnuFActList", "mnuFAtypes", "mnuVActivity", "mnuFHolidays"})
            menus_.Show(QLatin1String(name), false);
    }
    if (session.ScreenAccess == 2) {
        for (const char* name : {"mnuADelete", "mnuTDelete"})
            menus_.Allow(QLatin1String(name), false);
    }
    if (session.ScreenAccess < 2) {
        for (const char* name : {"mnuADelete", "mnuCheckediN", "mnuAKept", "mnuAMissed", "mnuAPCancel", "mnuATCancel"})
            menus_.Allow(QLatin1String(name), false);
    }
    if (!session.AllProviders) {
        for (const char* name : {"mnuFSelect", "mnuFsep1", "mnuVAll", "mnuASearchA"})
            menus_.Allow(QLatin1String(name), false);
    }
}
