#include "views/calendarview.h"

#include <QAction>

#include "data/codes.h"
#include "data/courtesycalls.h"
#include "data/holidays.h"
#include "platform/database/readtogether.h"
#include "platform/text/plaintext.h"
#include "session/namedpreview.h"
#include "session/rights.h"
#include "session/session.h"
#include "views/shelfpanel.h"

namespace {

std::vector<bool> appointmentsOfPatients(std::span<const CalendarItem> items) {
    std::vector<bool> named;
    named.reserve(items.size());
    for (const CalendarItem& item : items)
        named.push_back(NamesPatient(item));
    return named;
}

}  // namespace

CalendarView::CalendarView(MainWindow& main, std::span<const MenuEntry> menus, QWidget* parent)
    : MenuView(main, menus, parent),
      board_(new DayBoard(QStringLiteral("ctMDay1"),
                          {[this](CalendarItem& item) { lock(item); }, appointmentsOfPatients}, this)),
      ctMDay1(&board_->Grid()),
      shelf_(new ShelfPanel(this)) {
    bindCommands();
    bindStatusCommands();
    bindDeletion();
    bindEditing();
    bindInPlaceWork();
    bindLists();
    bindSearches();
    bindNextFree();
    bindSeries();
    bindNotes();
    bindSlip();
    bindReports();
    bindShelf();
    makeItemPopup();
    bindWaitList();
    board_->SetScale(Session().TimeUnit);
}

void CalendarView::bindCommands() {
    menus_.Bind(menu::mnuFPrintS, [this] { printS(); });
    // The word for a patient follows the practice.
    QAction& newPatient = menus_.Command(menu::mnuANPat);
    newPatient.setText(newPatient.text().replace(QLatin1String("Patient"), CaptionText(Session().WordUsage)));
    allowExports(false);
    menus_.Allow(menu::mnuVFH, !Session().FHDatabaseId.isEmpty(), tr("There is no Fernhall schedule for you."));
    menus_.Allow(menu::mnuVAll, Session().AllProviders, tr("This needs access to all schedules."));
    connect(ctMDay1, &ctMDay::DayStepRequested, this,
            [this](int direction) { main_.cycledate(direction < 0 ? 0 : 1); });
}

void CalendarView::lock(CalendarItem& item) const {
    const bool whole =
        !MayWrite() || facts_.value(item.ItemKey).apptType == ApptTypeSlot || item.ItemColor == ncolor::Holiday;
    item.ItemTextLocked = whole || IsPatientRow(item.ItemColor) || item.ItemColor == ncolor::Group;
    item.ItemMoveLocked = whole;
    item.ItemShelved = shelf_->Holds(item.ItemKey);
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

ScheduleSheet CalendarView::sheet(const PrintOptions& /*options*/) const {
    ScheduleSheet sheet;
    sheet.content = ctMDay1->Content();
    // The shelf is the user's own; paper is for everybody.
    for (CalendarItem& item : sheet.content.items)
        item.ItemShelved = false;
    sheet.title = SheetDate(ctMDay1->Date());
    sheet.footer = Session().ProviderName;
    sheet.columnsPerPage = static_cast<int>(sheet.content.columns.size());
    return sheet;
}

void CalendarView::printS() {
    ctMDay1->CommitEdit();
    if (hasUnread()) {
        TellUnreadSchedule();
        return;
    }
    const PrintOptions options = ReadPrintOptions();
    PreviewWithNames([&] { return PrintedSheet(sheet(options), options); }, window());
}

BookedProvider CalendarView::Provider() const {
    return {Session().ProviderId, Session().ProviderName};
}

QDate CalendarView::dateOf(const CalendarItem& item) const {
    return item.ItemDay.isValid() ? item.ItemDay : ctMDay1->Date();
}

void CalendarView::DropSelection() {
    ctMDay1->clearSelection();
}

void CalendarView::displayapptinfo(int /*index*/) {}

void CalendarView::allowExports(bool allowed) {
    menus_.Allow(menu::mnuFExport, allowed,
                 exports_ ? tr("The schedule could not be read.") : tr("Export from the day or the week."));
    menus_.Allow(menu::mnuFsep4, allowed);
}

void CalendarView::beginLoad(QDate date, const QString& provider) {
    allowExports(false);
    allowReports(false);
    heldBefore_.clear();
    if (board_->Shows(date, provider))
        keepHeldTimes();
    board_->BeginLoad(date, provider);
    callIcons_.clear();
    seriesTips_.clear();
    facts_.clear();
    shelf_->Read();
}

QStringList CalendarView::callStatements() const {
    QStringList statements;
    for (const QString& code : callCodes_)
        statements << CallIconStatement(code);
    return statements;
}

QStringList CalendarView::statementsOfLoad(QDate date, const QString& provider) const {
    QStringList statements = callStatements() + shelf_->Statements();
    if (const std::optional<CalendarItem> selected = SelectedItem(); selected && board_->Shows(date, provider))
        statements += detailStatements(*selected);
    return statements;
}

void CalendarView::endLoad() {
    displayapptinfo(0);
    board_->EndLoad();
    const bool wasRead = !hasUnread();
    allowExports(exports_ && wasRead);
    allowReports(wasRead);
    tellFreedTimes();
}

void CalendarView::addAppointments(db::Recordset rows, const Accept& accept) {
    for (; !rows.Eof(); rows.MoveNext())
        callCodes_.insert(rows["CourtesyCallStatus"].text());
    rows.MoveFirst();
    const db::ReadTogether calls(Session().Connection, callStatements());
    const ItemPainting painting = CalendarView::painting();
    for (; !rows.Eof(); rows.MoveNext()) {
        CalendarItem item = ItemFromAppointment(rows, painting);
        board_->WidenTo(item.ItemStart);
        if (accept && !accept(rows, item))
            continue;
        facts_[item.ItemKey] = RowOf(rows, item);
        board_->AddRow(std::move(item));
    }
}

bool CalendarView::addHoliday(QDate date, const std::vector<int>& columns) {
    const std::optional<QString> holiday = HolidayOn(Session().Connection, date);
    if (!holiday)
        return false;
    ctMDay1->setHolidayFlag(true);
    ctMDay1->setDayHeaderColor(ncolor::Holiday);
    CalendarItem banner = HolidayBanner(*holiday, date);
    for (const int column : columns) {
        banner.ItemColumn = column;
        board_->AddItem(banner);
    }
    return true;
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

void CalendarView::ApplyPreferences() {
    board_->SetScale(Session().TimeUnit);
    Reload();
}

void CalendarView::setmenuaccess() {
    if (!MayWrite()) {
        for (const MenuName name :
             {menu::mnuANew, menu::mnuANext, menu::mnuAEdit, menu::mnuAsep1, menu::mnuToDo, menu::mnuCheckediN,
              menu::mnuAKept, menu::mnuAMissed, menu::mnuAPCancel, menu::mnuATCancel, menu::mnuAPending, menu::mnuAMove,
              menu::mnuAShelve, menu::mnuALand})
            menus_.Allow(name, false, tr("You may only read the schedules."));
        for (const MenuName name :
             {menu::mnuARepeat, menu::mnuARest, menu::mnuFLoc, menu::mnuFRoomList, menu::mnuFActList, menu::mnuFAtypes,
              menu::mnuFAvail, menu::mnuVActivity, menu::mnuFHolidays})
            menus_.Show(name, false);
    }
    if (!MayDelete()) {
        for (const MenuName name : {menu::mnuADelete, menu::mnuTDelete})
            menus_.Allow(name, false, tr("You may not delete."));
    }
    if (!Session().AllProviders) {
        for (const MenuName name : {menu::mnuFSelect, menu::mnuFsep1, menu::mnuVAll, menu::mnuASearchA})
            menus_.Allow(name, false, tr("This needs access to all schedules."));
    }
}
