#include "shell/dayboard.h"

#include <algorithm>
#include <utility>

#include "platform/calendar/ctmday.h"
#include "session/hiddennames.h"
#include "session/session.h"

namespace {

/// Tells `shade` which minutes lie outside the working hours of a row of ProvSched.
template <typename Shade>
void shadeAround(const ctMDay& grid, const db::Recordset& hours, Shade&& shade) {
    const int first = grid.FirstTime();
    const int last = grid.LastTime();
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

}  // namespace

DayBoard::DayBoard(const QString& gridName, BoardRules rules, QWidget* view)
    : QObject(view), grid_(new ctMDay(view)), rules_(std::move(rules)) {
    grid_->setObjectName(gridName);
    connect(grid_, &ctMDay::BeforeItemWork, this, &DayBoard::Lock);
    FollowHiddenNames(this, [this](bool) { hideNames(1, grid_->ItemCount()); });
}

void DayBoard::SetScale(int slotMinutes) {
    grid_->setTimeInterval(slotMinutes);
    grid_->setTwentyFourHour(Session().MilitaryTime);
}

void DayBoard::setHours() {
    const SessionValues& session = Session();
    const ShownHours hours = session.SavedHours.value_or(ShownHours{session.DayStartHour, session.DayEndHour});
    grid_->setPrimeStart(hours.first * 60);
    grid_->setFirstTime(hours.first * 60);
    grid_->setPrimeEnd(hours.last * 60);
    grid_->setLastTime(hours.last * 60 - 1);
}

bool DayBoard::Shows(QDate date, const QString& of) const {
    return date == date_ && of == of_;
}

std::optional<CalendarItem> DayBoard::SelectedItem() const {
    const int index = grid_->SelectedItem();
    if (index < 1)
        return std::nullopt;
    return std::as_const(*grid_).Item(index);
}

void DayBoard::BeginLoad(QDate date, const QString& of) {
    grid_->CommitEdit();
    kept_ = {};
    if (Shows(date, of))
        kept_ = {grid_->TopTime(), SelectedItem()};
    date_ = date;
    of_ = of;
    loading_ = true;
    rows_.clear();
    grid_->setDate(date);
    grid_->ClearItems();
    grid_->setDayBackColor(SystemInfoColor);
    grid_->setDayHeaderColor(SystemInfoColor);
    grid_->setHolidayFlag(false);
    setHours();
}

// A row with a start before midnight does not open the whole night either.
void DayBoard::WidenTo(int startMinute) {
    if (startMinute >= 0 && startMinute < grid_->FirstTime())
        grid_->setFirstTime(startMinute);
}

int DayBoard::AddRow(CalendarItem item) {
    const RowPlace place{item.ItemKey, item.ItemDay, item.ItemColumn, item.ItemColor};
    if (rows_.contains(place))
        return 0;
    rows_.insert(place);
    return AddItem(std::move(item));
}

int DayBoard::AddItem(CalendarItem item) {
    const int index = grid_->AddItem(item.ItemStart, item.ItemEnd, item.ItemDay, item.ItemText, item.ItemKey);
    Show(index, std::move(item));
    return index;
}

void DayBoard::EndLoad() {
    loading_ = false;
    hideNames(1, grid_->ItemCount());
    grid_->setTopTime(std::max(kept_.topTime.value_or(0), grid_->FirstTime()));
    if (!kept_.selected)
        return;
    if (const int index = indexOf(*kept_.selected); grid_->ColumnOfItem(index) > 0)
        grid_->setSelectedItem(index);
}

int DayBoard::indexOf(const CalendarItem& kept) const {
    int nearest = 0;
    int mostAlike = -1;
    for (int index = 1; index <= grid_->ItemCount(); ++index) {
        const CalendarItem& item = std::as_const(*grid_).Item(index);
        if (item.ItemKey != kept.ItemKey || (rules_.sameRow && !rules_.sameRow(item, kept)))
            continue;
        const bool inPlace = item.ItemColumn == kept.ItemColumn && item.ItemDay == kept.ItemDay;
        const int alike = (inPlace ? 2 : 0) + (item.ItemColor == kept.ItemColor ? 1 : 0);
        if (alike > mostAlike) {
            nearest = index;
            mostAlike = alike;
        }
    }
    return nearest;
}

void DayBoard::ShadeAround(const db::Recordset& hours, int column) {
    shadeAround(*grid_, hours, [&](int from, int until) { grid_->AddTimeRange(from, until, NonWorkingColor, column); });
}

void DayBoard::ShadeAround(const db::Recordset& hours, QDate day) {
    shadeAround(*grid_, hours, [&](int from, int until) { grid_->AddTimeRange(from, until, NonWorkingColor, day); });
}

// While a load goes on nobody knows yet who is named; a box that tells of its failure must not show it either.
void DayBoard::Show(int index, CalendarItem item) {
    if (index < 1)
        return;
    item.ItemTextColor = Session().HidePatientNames ? TextColor::SameAsBackground : TextColor::Normal;
    grid_->Item(index) = std::move(item);
    Lock(index);
    if (!loading_)
        hideNames(index, 1);
}

void DayBoard::Lock(int index) {
    if (rules_.lock)
        rules_.lock(grid_->Item(index));
}

void DayBoard::hideNames(int first, int count) {
    std::vector<bool> named(static_cast<std::size_t>(count), false);
    if (Session().HidePatientNames && rules_.namesPatients)
        named = rules_.namesPatients(
            std::span(grid_->Content().items).subspan(static_cast<std::size_t>(first) - 1, named.size()));
    for (std::size_t i = 0; i < named.size(); ++i)
        grid_->Item(first + static_cast<int>(i)).ItemTextColor =
            named[i] ? TextColor::SameAsBackground : TextColor::Normal;
}
