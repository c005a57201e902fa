#include "platform/calendar/hittest.h"

#include <algorithm>

namespace {

Zone ZoneAt(QPoint point, const QRect& card, const PlacedItem& placed, int grip) {
    // A low card keeps a body by which it can be moved: each edge is at most a quarter of it.
    const int edge = std::min(grip, card.height() / 4);
    if (!placed.cutTop && point.y() < card.top() + edge)
        return Zone::TopEdge;
    if (!placed.cutBottom && point.y() > card.bottom() - edge)
        return Zone::BottomEdge;
    return Zone::Body;
}

Hit InBody(QPoint point, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
           int selectedItem) {
    const int column = grid.columnAt(point.x());
    if (column == 0 || point.x() >= grid.columnLeft(grid.columns + 1))
        return NothingHit{};
    if (const PlacedItem* placed = layout.find(selectedItem)) {
        const QRect card = CardRect(selectedItem, grid, layout, style, true);
        if (card.contains(point))
            return ItemHit{selectedItem, ZoneAt(point, card, *placed, style.grip)};
    }
    const auto& items = layout.columns[static_cast<std::size_t>(column) - 1].placed;
    for (const PlacedItem& placed : items) {
        const QRect card = grid.itemRect(placed);
        if (card.contains(point))
            return ItemHit{placed.index, ZoneAt(point, card, placed, style.grip)};
    }
    if (point.y() >= grid.y(grid.scale.last))
        return NothingHit{};
    return CellHit{column, std::min(grid.minuteAt(point.y()), grid.scale.last - 1)};
}

Hit InBanners(QPoint point, int column, const CalendarGrid& grid, const CalendarLayout& layout, int selectedItem) {
    const ColumnLayout& contents = layout.columns[static_cast<std::size_t>(column) - 1];
    for (int row = 0; row < grid.bannerRows; ++row) {
        if (!grid.bannerRect(column, row).contains(point))
            continue;
        if (const int index = BannerInRow(contents, row, selectedItem))
            return ItemHit{index, Zone::Body};
        if (row < static_cast<int>(contents.banners.size()))
            return MarkerHit{MarkerHit::Kind::Banners, column};
    }
    return NothingHit{};
}

}  // namespace

QRect CardRect(int index, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
               bool selected) {
    const PlacedItem* placed = layout.find(index);
    if (placed == nullptr)
        return {};
    QRect card = grid.itemRect(*placed);
    const QRect column = grid.columnRect(placed->column);
    // A cancelled card stays in its strip: the time beside it is there to be clicked.
    const int legible = std::min(placed->aside ? grid.strip : style.minColumnWidth * 3 / 4, column.width() - grid.gap);
    if (selected && card.width() < legible) {
        card.setWidth(legible);
        card.moveLeft(std::min(card.left(), column.right() + 1 - grid.gap - legible));
    }
    return card;
}

const std::vector<int>& MarkedItems(const MarkerHit& marker, const CalendarLayout& layout) {
    const ColumnLayout& column = layout.columns[static_cast<std::size_t>(marker.column) - 1];
    switch (marker.kind) {
        case MarkerHit::Kind::Earlier:
            return column.earlier;
        case MarkerHit::Kind::Later:
            return column.later;
        case MarkerHit::Kind::Banners:
            break;
    }
    return column.banners;
}

int BannerInRow(const ColumnLayout& column, int row, int selectedItem) {
    const int count = static_cast<int>(column.banners.size());
    if (row >= count)
        return 0;
    const bool last = row == CalendarLayout::MaxBannerRows - 1;
    if (!last || count == CalendarLayout::MaxBannerRows)
        return column.banners[static_cast<std::size_t>(row)];
    const auto rest = column.banners.begin() + row;
    const auto selected = std::find(rest, column.banners.end(), selectedItem);
    return selected == column.banners.end() ? 0 : *selected;
}

Hit HitTest(QPoint point, const CalendarGrid& grid, const CalendarLayout& layout, const CalendarStyle& style,
            int selectedItem) {
    if (!grid.area.contains(point) || grid.columns == 0 || point.x() < grid.body().left())
        return NothingHit{};
    if (grid.body().contains(point))
        return InBody(point, grid, layout, style, selectedItem);
    const int column = grid.columnAt(point.x());
    if (point.x() >= grid.columnLeft(grid.columns + 1))
        return NothingHit{};
    if (grid.headings().contains(point))
        return HeadingHit{column};
    const ColumnLayout& contents = layout.columns[static_cast<std::size_t>(column) - 1];
    if (grid.earlierStrip && grid.earlierRect(column).contains(point) && !contents.earlier.empty())
        return MarkerHit{MarkerHit::Kind::Earlier, column};
    if (grid.laterStrip && grid.laterRect(column).contains(point) && !contents.later.empty())
        return MarkerHit{MarkerHit::Kind::Later, column};
    return InBanners(point, column, grid, layout, selectedItem);
}
