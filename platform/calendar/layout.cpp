#include "platform/calendar/layout.h"

#include <algorithm>
#include <functional>
#include <queue>
#include <set>
#include <utility>

namespace {

/// With more lanes than this a card is a sliver, and looking for free lanes beside it is not worth the time.
constexpr int MostLanesToWidenOver = 64;

using Placed = std::vector<PlacedItem>::iterator;

bool Overlap(const PlacedItem& one, const PlacedItem& other) {
    return one.start < other.end && other.start < one.end;
}

void WidenInto(Placed begin, Placed end, int lanes) {
    std::vector<std::vector<const PlacedItem*>> byLane(static_cast<std::size_t>(lanes));
    for (Placed item = begin; item != end; ++item)
        byLane[static_cast<std::size_t>(item->lane)].push_back(&*item);
    const auto isFree = [&](int lane, const PlacedItem& item) {
        const auto& others = byLane[static_cast<std::size_t>(lane)];
        const auto next = std::partition_point(others.begin(), others.end(),
                                               [&](const PlacedItem* other) { return other->end <= item.start; });
        return next == others.end() || !Overlap(**next, item);
    };
    for (Placed item = begin; item != end; ++item) {
        while (item->lane + item->span < lanes && isFree(item->lane + item->span, *item))
            ++item->span;
    }
}

void CloseCluster(Placed begin, Placed end, int lanes) {
    for (Placed item = begin; item != end; ++item)
        item->lanes = lanes;
    if (lanes > 1 && lanes <= MostLanesToWidenOver)
        WidenInto(begin, end, lanes);
}

/// Gives lanes to items in the order of their start.
void AssignLanes(std::vector<PlacedItem>& items) {
    using Busy = std::pair<int, int>;  // The end and the lane.
    std::priority_queue<Busy, std::vector<Busy>, std::greater<>> busy;
    std::set<int> freeLanes;
    int lanes = 0;
    Placed cluster = items.begin();
    for (Placed item = items.begin(); item != items.end(); ++item) {
        while (!busy.empty() && busy.top().first <= item->start) {
            freeLanes.insert(busy.top().second);
            busy.pop();
        }
        if (busy.empty()) {
            CloseCluster(cluster, item, lanes);
            cluster = item;
            lanes = 0;
            freeLanes.clear();
        }
        if (freeLanes.empty())
            freeLanes.insert(lanes++);
        item->lane = *freeLanes.begin();
        freeLanes.erase(freeLanes.begin());
        busy.emplace(item->end, item->lane);
    }
    CloseCluster(cluster, items.end(), lanes);
}

/// Calls `use(begin, end, start, finish)` for each run of items linked by overlaps.
template <typename Use>
void ForEachCluster(std::vector<PlacedItem>& items, const Use& use) {
    for (Placed cluster = items.begin(); cluster != items.end();) {
        int finish = cluster->end;
        Placed next = cluster + 1;
        for (; next != items.end() && next->start < finish; ++next)
            finish = std::max(finish, next->end);
        use(cluster, next, cluster->start, finish);
        cluster = next;
    }
}

/// Tells the items in the strip and those beside it of each other. Items linked by overlaps share their lanes, and all
/// of them leave the strip free where one of them stands beside it.
void StandBeside(std::vector<PlacedItem>& items, std::vector<PlacedItem>& aside) {
    ForEachCluster(items, [&](Placed begin, Placed end, int start, int finish) {
        for (PlacedItem& other : aside) {
            if (other.start >= finish || other.end <= start)
                continue;
            other.beside = std::max(other.beside, begin->lanes);
            for (Placed item = begin; item != end; ++item)
                item->beside = std::max(item->beside, other.lanes);
        }
    });
    ForEachCluster(aside, [](Placed begin, Placed end, int, int) {
        const int most = std::max_element(begin, end, [](const PlacedItem& a, const PlacedItem& b) {
                             return a.beside < b.beside;
                         })->beside;
        std::for_each(begin, end, [most](PlacedItem& item) { item.beside = most; });
    });
}

/// Gives lanes to all items of a column, with those of the strip apart.
void AssignLanesAside(std::vector<PlacedItem>& items) {
    const auto split =
        std::stable_partition(items.begin(), items.end(), [](const PlacedItem& item) { return !item.aside; });
    std::vector<PlacedItem> aside(split, items.end());
    items.erase(split, items.end());
    AssignLanes(items);
    AssignLanes(aside);
    StandBeside(items, aside);
    const auto middle = items.insert(items.end(), aside.begin(), aside.end());
    std::inplace_merge(items.begin(), middle, items.end(),
                       [](const PlacedItem& a, const PlacedItem& b) { return a.start < b.start; });
}

class Placer {
  public:
    Placer(const CalendarContent& content, int minMinutes, CancelledItems cancelled)
        : content_(content),
          standsAside_(cancelled == CancelledItems::Aside),
          gridStart_(content.gridStart()),
          gridEnd_(content.gridEnd()),
          minMinutes_(std::clamp(minMinutes, 1, gridEnd_ - gridStart_)) {}

    void place(int index, ColumnLayout& column, int columnNumber) const {
        const CalendarItem& item = content_.items[static_cast<std::size_t>(index) - 1];
        if (item.ItemBanner) {
            column.banners.push_back(index);
            return;
        }
        const int start = std::clamp(item.ItemStart, 0, 1440);
        const int end = std::max(start, std::clamp(item.ItemEnd, 0, 1440));
        if (start < gridStart_ && end <= gridStart_)
            column.earlier.push_back(index);
        else if (start >= gridEnd_ && gridEnd_ < 1440)
            column.later.push_back(index);
        else
            column.placed.push_back(drawn(index, columnNumber, start, end));
    }

  private:
    [[nodiscard]] PlacedItem drawn(int index, int columnNumber, int start, int end) const {
        PlacedItem placed;
        placed.index = index;
        placed.column = columnNumber;
        placed.aside =
            standsAside_ && content_.items[static_cast<std::size_t>(index) - 1].ItemStatusMark == StatusMark::Cancelled;
        placed.cutTop = start < gridStart_;
        placed.cutBottom = end > gridEnd_;
        placed.start = std::max(start, gridStart_);
        placed.end = std::min(std::max(end, placed.start + minMinutes_), gridEnd_);
        placed.start = std::max(std::min(placed.start, placed.end - minMinutes_), gridStart_);
        return placed;
    }

    const CalendarContent& content_;
    bool standsAside_;
    int gridStart_;
    int gridEnd_;
    int minMinutes_;
};

void SortByStart(std::vector<int>& indexes, const CalendarContent& content) {
    std::stable_sort(indexes.begin(), indexes.end(), [&](int a, int b) {
        return content.items[static_cast<std::size_t>(a) - 1].ItemStart <
               content.items[static_cast<std::size_t>(b) - 1].ItemStart;
    });
}

void FinishColumn(ColumnLayout& column, const CalendarContent& content) {
    std::stable_sort(column.placed.begin(), column.placed.end(),
                     [](const PlacedItem& a, const PlacedItem& b) { return a.start < b.start; });
    const bool hasAside =
        std::any_of(column.placed.begin(), column.placed.end(), [](const PlacedItem& item) { return item.aside; });
    if (hasAside)
        AssignLanesAside(column.placed);
    else
        AssignLanes(column.placed);
    SortByStart(column.earlier, content);
    SortByStart(column.later, content);
}

}  // namespace

const PlacedItem* CalendarLayout::find(int index) const {
    if (index < 1 || index > static_cast<int>(spots.size()))
        return nullptr;
    const Spot& spot = spots[static_cast<std::size_t>(index) - 1];
    if (spot.position < 0)
        return nullptr;
    return &columns[static_cast<std::size_t>(spot.column) - 1].placed[static_cast<std::size_t>(spot.position)];
}

std::vector<int> CalendarLayout::readingOrder() const {
    std::vector<int> order;
    order.reserve(spots.size());
    for (const ColumnLayout& column : columns) {
        order.insert(order.end(), column.banners.begin(), column.banners.end());
        order.insert(order.end(), column.earlier.begin(), column.earlier.end());
        for (const PlacedItem& placed : column.placed)
            order.push_back(placed.index);
        order.insert(order.end(), column.later.begin(), column.later.end());
    }
    return order;
}

CalendarLayout LayOut(const CalendarContent& content, int minMinutes, CancelledItems cancelled) {
    CalendarLayout layout;
    layout.columns.resize(content.columns.size());
    layout.spots.resize(content.items.size());
    const Placer placer(content, minMinutes, cancelled);
    for (std::size_t i = 0; i < content.items.size(); ++i) {
        const int column = content.columnOf(content.items[i]);
        layout.spots[i].column = column;
        if (column > 0)
            placer.place(static_cast<int>(i) + 1, layout.columns[static_cast<std::size_t>(column) - 1], column);
    }
    for (ColumnLayout& column : layout.columns) {
        FinishColumn(column, content);
        for (std::size_t i = 0; i < column.placed.size(); ++i)
            layout.spots[static_cast<std::size_t>(column.placed[i].index) - 1].position = static_cast<int>(i);
        layout.bannerRows = std::max(layout.bannerRows, static_cast<int>(column.banners.size()));
        layout.hasEarlier = layout.hasEarlier || !column.earlier.empty();
        layout.hasLater = layout.hasLater || !column.later.empty();
    }
    layout.bannerRows = std::min(layout.bannerRows, CalendarLayout::MaxBannerRows);
    return layout;
}
