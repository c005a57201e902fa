#include "tests/walk/walkcalendar.h"

#include <algorithm>
#include <map>

#include "platform/calendar/ctmday.h"

namespace walk {

namespace {

constexpr int QuarterHour = 15;
constexpr int FreeTries = 40;

/// By its status one item of each kind, chosen by chance.
std::map<QString, int> kindsShown(const ctMDay& calendar, Chance& chance) {
    std::vector<int> order;
    for (int index = 1; index <= calendar.ItemCount(); ++index)
        if (calendar.rect().contains(calendar.ItemRect(index)) && !calendar.ItemRect(index).isEmpty())
            order.push_back(index);
    std::shuffle(order.begin(), order.end(), chance);
    std::map<QString, int> kinds;
    for (const int index : order)
        kinds.emplace(QString::number(calendar.Item(index).ItemColor, 16), index);
    return kinds;
}

bool isFree(const ctMDay& calendar, QPoint at) {
    for (int index = 1; index <= calendar.ItemCount(); ++index)
        if (calendar.ItemRect(index).contains(at))
            return false;
    return true;
}

QPoint freeTime(const ctMDay& calendar, Chance& chance) {
    QPoint at;
    for (int tries = 0; tries < FreeTries; ++tries) {
        const int column = std::uniform_int_distribution<int>(1, std::max(calendar.ColumnCount(), 1))(chance);
        const int row = std::uniform_int_distribution<int>(0, 95)(chance);
        const QRect cell = calendar.CellRect(column, row * QuarterHour);
        if (cell.isEmpty())
            continue;
        at = cell.center();
        if (isFree(calendar, at))
            break;
    }
    return at;
}

}  // namespace

void AddCalendar(const ctMDay& calendar, const QString& name, Place& place, Chance& chance) {
    const auto onScreen = [&calendar](QPoint at) { return calendar.mapToGlobal(at); };
    const auto add = [&](const QString& what, Events events) {
        place.deeds.push_back({what + u' ' + name, std::move(events)});
    };
    const QPoint free = onScreen(freeTime(calendar, chance));
    const QPoint other = onScreen(freeTime(calendar, chance));
    for (const auto& [kind, index] : kindsShown(calendar, chance)) {
        const QPoint middle = onScreen(calendar.ItemRect(index).center());
        const QPoint edge =
            onScreen(QPoint(calendar.ItemRect(index).center().x(), calendar.ItemRect(index).bottom() - 1));
        const QString item = QStringLiteral(" an item ") + kind;
        add(QStringLiteral("right click") + item, Click(middle, Qt::RightButton));
        add(QStringLiteral("double click") + item, DoubleClick(middle));
        add(QStringLiteral("Menu key on") + item, Click(middle) + Key(Qt::Key_Menu));
        add(QStringLiteral("Return on") + item, Click(middle) + Key(Qt::Key_Return));
        add(QStringLiteral("Delete on") + item, Click(middle) + Key(Qt::Key_Delete));
        add(QStringLiteral("type into") + item,
            Click(middle) + Key(Qt::Key_F2) + Text(QStringLiteral("new")) + Key(Qt::Key_Return));
        add(QStringLiteral("drag") + item, Drag(middle, free));
        add(QStringLiteral("size") + item, Click(middle) + Drag(edge, edge + QPoint(0, 30)));
        add(QStringLiteral("drag out") + item, Drag(middle, onScreen({calendar.width() / 2, -60})));
        add(QStringLiteral("key-move") + item, Click(middle) + Key(Qt::Key_Down, Qt::ControlModifier));
        add(QStringLiteral("double click, Ctrl+2 at once on") + item,
            DoubleClick(middle) + Key(Qt::Key_2, Qt::ControlModifier));
        add(QStringLiteral("Return twice on") + item, Click(middle) + Key(Qt::Key_Return) + Key(Qt::Key_Return));
        add(QStringLiteral("Delete, Down on") + item, Click(middle) + Key(Qt::Key_Delete) + Key(Qt::Key_Down));
    }
    add(QStringLiteral("click free time on"), Click(free));
    add(QStringLiteral("double click free time on"), DoubleClick(free));
    add(QStringLiteral("right click free time on"), Click(free, Qt::RightButton));
    add(QStringLiteral("draw a range on"), Drag(free, other));
    add(QStringLiteral("type on free time on"), Click(free) + Text(QStringLiteral("team")) + Key(Qt::Key_Return));
    add(QStringLiteral("heading of"), Click(onScreen(calendar.HeadingRect(1).center())));
}

}  // namespace walk
