#include "views/calendarview.h"

#include <algorithm>
#include <QAction>

#include "data/courtesycalls.h"
#include "platform/database/readtogether.h"
#include "platform/text/plaintext.h"
#include "session/hiddennames.h"
#include "session/rights.h"
#include "session/session.h"

CalendarView::CalendarView(MainWindow& main, std::span<const MenuEntry> menus, QWidget* parent)
    : MenuView(main, menus, parent), ctMDay1(new ctMDay(this)) {
    ctMDay1->setObjectName(QStringLiteral("ctMDay1"));
    bindCommands();
    bindStatusCommands();
    bindDeletion();
    bindEditing();
    bindInPlaceWork();
    bindLists();
    bindSearches();
    bindSeries();
    makeItemPopup();
    setGrid();
    FollowHiddenNames(this, [this](bool hidden) { hideNames(hidden); });
    registerOpenView();
}

void CalendarView::bindCommands() {
    menus_.Bind(menu::mnuFPrintS, [this] { printS(); });
    // The word for a patient follows the practice.
    QAction& newPatient = menus_.Command(menu::mnuANPat);
    newPatient.setText(newPatient.text().replace(QLatin1String("Patient"), CaptionText(Session().WordUsage)));
    menus_.Allow(menu::mnuFExport, false);
    menus_.Allow(menu::mnuFsep4, false);
    menus_.Allow(menu::mnuVFH, !Session().FHDatabaseId.isEmpty());
    menus_.Allow(menu::mnuVAll, Session().AllProviders);
    connect(ctMDay1, &ctMDay::DayStepRequested, this,
            [this](int direction) { main_.cycledate(direction < 0 ? 0 : 1); });
}

void CalendarView::hideNames(bool hidden) {
    for (int index = 1; index <= ctMDay1->ItemCount(); ++index)
        HideName(ctMDay1->Item(index), hidden);
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
    return SelectedSlot{dateOfColumn(ctMDay1->SelColumn()), ctMDay1->SelStart(), ctMDay1->SelEnd()};
}

QDate CalendarView::dateOfColumn(int /*column*/) const {
    return ctMDay1->Date();
}

std::optional<BookedProvider> CalendarView::providerOfColumn(int /*column*/) const {
    return std::nullopt;
}

ScheduleSheet CalendarView::sheet() const {
    ScheduleSheet sheet;
    sheet.content = ctMDay1->Content();
    sheet.title = SheetDate(ctMDay1->Date());
    sheet.footer = Session().ProviderName;
    sheet.columnsPerPage = static_cast<int>(sheet.content.columns.size());
    return sheet;
}

void CalendarView::printS() {
    ctMDay1->CommitEdit();
    PrintedSheet(sheet()).Preview(window());
}

void CalendarView::DropSelection() {
    ctMDay1->clearSelection();
}

void CalendarView::displayapptinfo(int /*index*/) {}

void CalendarView::setHours() {
    const SessionValues& session = Session();
    ctMDay1->setPrimeStart(session.DayStartHour * 60);
    ctMDay1->setFirstTime(session.DayStartHour * 60);
    ctMDay1->setPrimeEnd(session.DayEndHour * 60);
    ctMDay1->setLastTime(session.DayEndHour * 60 - 1);
}

void CalendarView::beginLoad(QDate date, const QString& provider) {
    const bool same = date == loadedDate_ && provider == loadedProvider_;
    kept_ = {};
    if (same)
        kept_ = {ctMDay1->TopTime(), SelectedItem().value_or(CalendarItem()).ItemKey};
    callIcons_.clear();
    loadedDate_ = date;
    loadedProvider_ = provider;
    ctMDay1->setDate(date);
    ctMDay1->ClearItems();
    ctMDay1->setDayBackColor(SystemInfoColor);
    ctMDay1->setDayHeaderColor(SystemInfoColor);
    ctMDay1->setHolidayFlag(false);
    facts_.clear();
    setHours();
}

QStringList CalendarView::callStatements() const {
    QStringList statements;
    for (const QString& code : callCodes_)
        statements << CallIconStatement(code);
    return statements;
}

QStringList CalendarView::statementsOfLoad(QDate date, const QString& provider) const {
    QStringList statements = callStatements();
    if (const std::optional<CalendarItem> selected = SelectedItem();
        selected && date == loadedDate_ && provider == loadedProvider_)
        statements += detailStatements(*selected);
    return statements;
}

void CalendarView::endLoad() {
    displayapptinfo(0);
    ctMDay1->setTopTime(std::max(kept_.topTime.value_or(0), ctMDay1->FirstTime()));
    const int index = kept_.selectedKey.isEmpty() ? 0 : ctMDay1->IndexOfKey(kept_.selectedKey);
    if (ctMDay1->ColumnOfItem(index) > 0)
        ctMDay1->setSelectedItem(index);
}

void CalendarView::addAppointments(db::Recordset rows, const Accept& accept) {
    for (; !rows.Eof(); rows.MoveNext())
        callCodes_.insert(rows["CourtesyCallStatus"].text());
    rows.MoveFirst();
    const db::ReadTogether calls(Session().Connection, callStatements());
    const ItemPainting painting = CalendarView::painting();
    for (; !rows.Eof(); rows.MoveNext()) {
        CalendarItem item = ItemFromAppointment(rows, painting);
        if (facts_.contains(item.ItemKey))
            continue;
        // A row without a start, or with one before midnight, does not open the whole night.
        if (!rows["nStartTime"].value().isNull() && item.ItemStart >= 0 && item.ItemStart < ctMDay1->FirstTime())
            ctMDay1->setFirstTime(item.ItemStart);
        if (!accept || accept(rows, item))
            addAppointment(rows, std::move(item));
    }
}

void CalendarView::shadeAround(const db::Recordset& hours, const std::function<void(int, int)>& shade) const {
    const int first = ctMDay1->FirstTime();
    const int last = ctMDay1->LastTime();
    const int start = static_cast<int>(hours["starttime"].integer());
    const int end = static_cast<int>(hours["endtime"].integer());
    if (start <= 0) {
        shade(first, last);
        return;
    }
    if (start > first)
        shade(first, start - 1);
    if (end < last)
        shade(end + 1, last);
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

ItemPainting CalendarView::painting() const {
    return {Session().HidePatientNames,
            [this](const QString& code) {
                if (!callIcons_.contains(code))
                    callIcons_[code] = GetCallStatusIcon(Session().Connection, code);
                return callIcons_[code];
            },
            showsCallsOfAwaitedOnly()};
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
    if (!MayWrite()) {
        for (const MenuName name : {menu::mnuANew, menu::mnuAEdit, menu::mnuAsep1, menu::mnuToDo, menu::mnuCheckediN,
                                    menu::mnuAKept, menu::mnuAMissed, menu::mnuAPCancel, menu::mnuATCancel})
            menus_.Allow(name, false);
        for (const MenuName name : {menu::mnuARepeat, menu::mnuFLoc, menu::mnuFRoomList, menu::mnuFActList,
                                    menu::mnuFAtypes, menu::mnuFAvail, menu::mnuVActivity, menu::mnuFHolidays})
            menus_.Show(name, false);
    }
    if (!MayDelete()) {
        for (const MenuName name : {menu::mnuADelete, menu::mnuTDelete})
            menus_.Allow(name, false);
    }
    if (!Session().AllProviders) {
        for (const MenuName name : {menu::mnuFSelect, menu::mnuFsep1, menu::mnuVAll, menu::mnuASearchA})
            menus_.Allow(name, false);
    }
}
