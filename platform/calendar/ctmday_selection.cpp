#include <algorithm>
#include <QScrollBar>

#include "platform/calendar/accessibility.h"
#include "platform/calendar/card.h"
#include "platform/calendar/ctmday.h"
#include "platform/calendar/glyphs.h"
#include "platform/desktop/localefacts.h"

void ctMDay::setSelectedItem(int index) {
    const int wanted = hasItem(index) ? index : 0;
    if (wanted != 0)
        state_.range.reset();
    if (wanted == state_.selectedItem)
        return;
    closeEditor(true);
    editTimer_.stop();
    state_.selectedItem = hasItem(wanted) ? wanted : 0;
    update();
    announceSelection();
    Q_EMIT ItemSelected(state_.selectedItem);
}

void ctMDay::selectRange(int column, int start, int end) {
    const int from = std::clamp(start, 0, 1440);
    const int to = std::clamp(end, 0, 1440);
    if (column < 1 || column > ColumnCount() || from >= to)
        return;
    // A range that is brought to another column stays what it was.
    rangeIsSized_ = !SelIsOneCell() || from != state_.range->start || to != state_.range->end;
    rangeAnchor_ = from;
    selectTime({column, from, to});
}

void ctMDay::selectTime(const SelectedTime& time) {
    setSelectedItem(0);
    // Shift extends what is selected now, not what was before.
    if (rangeAnchor_ < time.start || rangeAnchor_ >= time.end)
        rangeAnchor_ = time.start;
    if (state_.range == time)
        return;
    state_.range = time;
    update();
    announceSelection();
}

void ctMDay::clearSelection() {
    state_.range.reset();
    setSelectedItem(0);
    update();
}

int ctMDay::SelectedItem() const {
    return state_.selectedItem;
}

int ctMDay::SelectedRange() const {
    return state_.range ? state_.range->column - 1 : -1;
}

int ctMDay::SelStart() const {
    return state_.range ? state_.range->start : 0;
}

int ctMDay::SelEnd() const {
    return state_.range ? state_.range->end : 0;
}

int ctMDay::SelColumn() const {
    return state_.range ? state_.range->column : 0;
}

bool ctMDay::SelIsOneCell() const {
    return state_.range && !rangeIsSized_ && *state_.range == rowAt(state_.range->column, state_.range->start);
}

void ctMDay::announceSelection() {
    AnnounceCalendarSelection(*this);
}

void ctMDay::selectMarked(const MarkerHit& marker) {
    const std::vector<int> items = MarkedItems(marker, layout());
    // The banners in shown rows are selected on their own. The marker stands for the rest.
    const auto first =
        marker.kind == MarkerHit::Kind::Banners ? items.begin() + CalendarLayout::MaxBannerRows - 1 : items.begin();
    const auto selected = std::find(first, items.end(), state_.selectedItem);
    const auto next = selected == items.end() || selected + 1 == items.end() ? first : selected + 1;
    setSelectedItem(*next);
}

void ctMDay::ScrollToItem(int index) {
    const PlacedItem* placed = layout().find(index);
    const int column = ColumnOfItem(index);
    if (column == 0)
        return;
    const QRect body = grid().body();
    int y = grid().scrollY;
    if (placed != nullptr) {
        const QRect card = grid().itemRect(*placed);
        if (card.top() < body.top() || card.height() > body.height())
            y += card.top() - body.top();
        else if (card.bottom() > body.bottom())
            y += card.bottom() - body.bottom();
    }
    scrollTo(scrollXFor(column), y);
}

void ctMDay::ScrollToColumn(int column) {
    if (column >= 1 && column <= ColumnCount())
        scrollTo(scrollXFor(column), grid().scrollY);
}

int ctMDay::scrollXFor(int column) const {
    const QRect body = grid().body();
    const QRect across = grid().columnRect(column);
    if (across.left() < body.left() || across.width() > body.width())
        return grid().scrollX + across.left() - body.left();
    return grid().scrollX + std::max(0, across.right() - body.right());
}

QString ctMDay::SelectionText() const {
    if (!state_.range)
        return {};
    const SelectedTime& range = *state_.range;
    const CalendarColumn& column = content_.columns[static_cast<std::size_t>(range.column) - 1];
    const QString where = content_.dayColumns ? LongDateText(column.day) : column.title;
    return tr("%1 to %2, %3")
        .arg(ClockText(range.start, content_.twentyFourHour), ClockText(range.end, content_.twentyFourHour), where);
}

QString ctMDay::AccessibleItemName(int index) const {
    if (!hasItem(index))
        return {};
    const CalendarItem& item = Item(index);
    QStringList parts;
    if (!item.ItemBanner)
        parts << tr("%1 to %2")
                     .arg(ClockText(item.ItemStart, content_.twentyFourHour),
                          ClockText(item.ItemEnd, content_.twentyFourHour));
    if (item.ItemTextColor == TextColor::Normal && !item.ItemText.isEmpty())
        parts << item.ItemText.left(300).simplified();
    if (!item.ItemStatusText.isEmpty())
        parts << item.ItemStatusText;
    if (item.ItemShelved)
        parts << ShelvedText();
    return parts.join(QStringLiteral(", "));
}

QString ctMDay::ToolTipOf(int index) const {
    if (!hasItem(index))
        return {};
    const CalendarItem& item = Item(index);
    const bool readable = item.ItemTextColor == TextColor::Normal;
    QStringList lines;
    if (readable && !item.ItemText.isEmpty())
        lines << QStringLiteral("<b>%1</b>").arg(item.ItemText.left(300).toHtmlEscaped());
    if (!item.ItemBanner)
        lines << ClockSpan(item.ItemStart, item.ItemEnd, content_.twentyFourHour);
    QStringList states;
    for (const QString& state : {item.ItemStatusText, StatusIconText(item.ItemStatusIcon)}) {
        if (!state.isEmpty() && !states.contains(state))
            states << state.toHtmlEscaped();
    }
    if (item.ItemTentativeIcon && !states.contains(tr("Tentative")))
        states << tr("Tentative");
    if (item.ItemSessionIcon > 0)
        states << tr("Session note");
    if (item.ItemSeriesIcon > 0) {
        const QString series = seriesText_ ? seriesText_(index) : QString();
        states << (series.isEmpty() ? tr("Repeating") : series.toHtmlEscaped());
    }
    if (item.ItemReminderIcon)
        states << tr("Reminder");
    if (item.ItemShelved)
        states << ShelvedText();
    if (!states.isEmpty())
        lines << states.join(QStringLiteral(" · "));
    if (!item.ItemLocation.isEmpty())
        lines << item.ItemLocation.left(300).toHtmlEscaped();
    if (readable && !item.ItemTip.isEmpty())
        lines << item.ItemTip.left(1000).toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
    return lines.join(QStringLiteral("<br>"));
}
