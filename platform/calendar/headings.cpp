#include <algorithm>
#include <QFontMetrics>
#include <QLocale>
#include <QPainter>

#include "platform/calendar/card.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"
#include "platform/calendar/hittest.h"
#include "platform/calendar/painting.h"

namespace {

/// With days as columns, only the holidays among them are marked.
bool IsHolidayColumn(const CalendarScene& scene, int column) {
    return scene.content.columns.size() == 1 || !scene.columnLayout(column).banners.empty();
}

QColor HeadingBack(const CalendarScene& scene, int column) {
    const bool colored = scene.content.dayHeaderColor != SystemInfoColor && IsHolidayColumn(scene, column);
    // The colour says that the day is another one and the flag says why, so a calm tint is enough.
    QColor back =
        colored ? Mixed(scene.style.window, ColorFromWindows(scene.content.dayHeaderColor), 0.16) : scene.style.window;
    return scene.state.hoveredHeading == column ? Mixed(back, scene.style.ink, 0.06) : back;
}

void PaintCentered(const CalendarScene& scene, const QRect& rect, const QString& text, const QColor& ink) {
    scene.painter.setFont(scene.style.heading);
    scene.painter.setPen(ink);
    scene.painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine,
                           QFontMetrics(scene.style.heading).elidedText(text, Qt::ElideRight, rect.width()));
}

/// Writes "Wednesday (11) March 2026", "Wed (11)" or "(11)", as there is room. Today's number stands in a disc.
void PaintDay(const CalendarScene& scene, const QRect& rect, QDate day, const QColor& ink) {
    const QLocale locale = QLocale::c();
    const QFontMetrics words(scene.style.heading);
    const QFontMetrics digits(scene.style.dayNumber);
    const QString number = QString::number(day.day());
    const int disc = digits.height() + 2 * scene.style.margin;
    const int gap = 4 * scene.style.margin;
    QString before = locale.dayName(day.dayOfWeek());
    QString after = locale.standaloneMonthName(day.month()) + QLatin1Char(' ') + QString::number(day.year());
    const auto width = [&] {
        return (before.isEmpty() ? 0 : words.horizontalAdvance(before) + gap) + disc +
               (after.isEmpty() ? 0 : words.horizontalAdvance(after) + gap);
    };
    if (width() > rect.width() || scene.content.columns.size() > 1)
        after.clear();
    if (width() > rect.width())
        before = locale.dayName(day.dayOfWeek(), QLocale::ShortFormat);
    if (width() > rect.width())
        before.clear();

    int x = rect.left() + (rect.width() - width()) / 2;
    const auto say = [&](const QString& text, int to, const QFont& font, const QColor& color) {
        scene.painter.setFont(font);
        scene.painter.setPen(color);
        scene.painter.drawText(QRect(x, rect.top(), to, rect.height()), Qt::AlignCenter | Qt::TextSingleLine, text);
        x += to;
    };
    if (!before.isEmpty())
        say(before, words.horizontalAdvance(before) + gap, scene.style.heading, ink);
    const bool today = scene.state.now.isValid() && scene.state.now.date() == day;
    if (today) {
        scene.painter.setRenderHint(QPainter::Antialiasing);
        scene.painter.setPen(Qt::NoPen);
        scene.painter.setBrush(scene.style.accent);
        scene.painter.drawEllipse(QRectF(x, rect.center().y() - disc / 2.0 + 0.5, disc, disc));
        scene.painter.setBrush(Qt::NoBrush);
    }
    say(number, disc, scene.style.dayNumber, today ? scene.style.accentInk : ink);
    if (!after.isEmpty())
        say(after, words.horizontalAdvance(after) + gap, scene.style.heading, ink);
}

void PaintHeading(const CalendarScene& scene, int column) {
    const CalendarColumn& what = scene.column(column);
    const QRect rect = scene.grid.headingRect(column);
    const QColor back = HeadingBack(scene, column);
    const QColor ink = ReadableOn(back, scene.style.ink);
    scene.painter.fillRect(rect, back);
    QRect room = rect.adjusted(2 * scene.style.margin, 0, -2 * scene.style.margin, 0);
    if (scene.content.holidayFlag && IsHolidayColumn(scene, column) && room.width() > scene.style.icon * 4) {
        const QRectF flag(room.right() - scene.style.icon, rect.center().y() - scene.style.icon / 2.0, scene.style.icon,
                          scene.style.icon);
        PaintGlyph(scene.painter, flag, Glyph::Holiday, ink);
        room.setRight(room.right() - scene.style.icon - scene.style.margin);
    }
    if (!scene.content.dayColumns)
        PaintCentered(scene, room, PaintedLine(what.title), ink);
    else if (!what.day.isValid())
        return;
    else if (!scene.content.headingFormat.isEmpty())
        PaintCentered(scene, room, QLocale::c().toString(what.day, scene.content.headingFormat), ink);
    else
        PaintDay(scene, room, what.day, ink);
    scene.painter.setRenderHint(QPainter::Antialiasing, false);
    scene.painter.setPen(scene.style.columnLine);
    scene.painter.drawLine(rect.left(), rect.top() + 2 * scene.style.margin, rect.left(), rect.bottom());
}

void PaintMarker(const CalendarScene& scene, const QRect& rect, const QString& text, bool selected) {
    const QFontMetrics metrics(scene.style.small);
    const QString shown = metrics.elidedText(text, Qt::ElideRight, rect.width() - 4 * scene.style.margin);
    QRectF pill(0, 0, metrics.horizontalAdvance(shown) + 4.0 * scene.style.margin, rect.height() - 3.0);
    pill.moveCenter(QRectF(rect).center());
    scene.painter.setRenderHint(QPainter::Antialiasing);
    scene.painter.setPen(QPen(selected ? scene.style.accent : scene.style.hourLine, selected ? 2 : 1));
    scene.painter.setBrush(scene.style.base);
    scene.painter.drawRoundedRect(pill, pill.height() / 2, pill.height() / 2);
    scene.painter.setBrush(Qt::NoBrush);
    scene.painter.setFont(scene.style.small);
    scene.painter.setPen(scene.style.ink);
    scene.painter.drawText(pill, Qt::AlignCenter | Qt::TextSingleLine, shown);
    scene.painter.setRenderHint(QPainter::Antialiasing, false);
}

/// Returns "▼ 2 later", or the time and name of the selected item where it is one of them.
QString MarkerText(const CalendarScene& scene, const std::vector<int>& items, bool later) {
    const QString arrow = later ? QStringLiteral("▼ ") : QStringLiteral("▲ ");
    const int count = static_cast<int>(items.size());
    if (std::find(items.begin(), items.end(), scene.state.selectedItem) == items.end())
        return arrow + QString::number(count) + (later ? QStringLiteral(" later") : QStringLiteral(" earlier"));
    const CalendarItem& item = scene.item(scene.state.selectedItem);
    QString text = arrow + ClockText(item.ItemStart, scene.content.twentyFourHour);
    if (item.ItemTextColor == TextColor::Normal)
        text += QLatin1Char(' ') + PaintedLine(item.ItemText);
    if (count > 1)
        text += QStringLiteral(" (%1)").arg(count);
    return text;
}

void PaintStrips(const CalendarScene& scene, int column) {
    const ColumnLayout& contents = scene.columnLayout(column);
    const auto isSelected = [&](const std::vector<int>& items) {
        return std::find(items.begin(), items.end(), scene.state.selectedItem) != items.end();
    };
    if (!contents.earlier.empty())
        PaintMarker(scene, scene.grid.earlierRect(column), MarkerText(scene, contents.earlier, false),
                    isSelected(contents.earlier));
    if (!contents.later.empty())
        PaintMarker(scene, scene.grid.laterRect(column), MarkerText(scene, contents.later, true),
                    isSelected(contents.later));
}

void PaintBanners(const CalendarScene& scene, int column) {
    const ColumnLayout& contents = scene.columnLayout(column);
    for (int row = 0; row < scene.grid.bannerRows && row < static_cast<int>(contents.banners.size()); ++row) {
        const QRect rect = scene.grid.bannerRect(column, row);
        if (const int index = BannerInRow(contents, row, scene.state.selectedItem)) {
            CardState state;
            state.selected = index == scene.state.selectedItem;
            state.focused = state.selected && scene.state.focused;
            state.hovered = index == scene.state.hoveredItem;
            PaintBanner(scene.painter, rect, scene.item(index), state, scene.style);
        } else {
            const int rest = static_cast<int>(contents.banners.size()) - row;
            PaintMarker(scene, rect, QStringLiteral("+%1 more").arg(rest), false);
        }
    }
}

}  // namespace

void PaintHeadings(const CalendarScene& scene, const QRect& clip) {
    QPainter& painter = scene.painter;
    const CalendarGrid& grid = scene.grid;
    const QRect body = grid.body();
    const QRect above(body.left(), grid.area.top(), body.width(), body.top() - grid.area.top());
    const QRect below(body.left(), body.bottom() + 1, body.width(), grid.area.bottom() - body.bottom());
    if (grid.columns == 0 || (!above.intersects(clip) && !below.intersects(clip)))
        return;
    painter.save();
    painter.setClipRect(QRect(body.left(), grid.area.top(), body.width(), grid.area.height()) & clip,
                        Qt::IntersectClip);
    const int last = grid.lastColumnIn(clip);
    for (int column = grid.firstColumnIn(clip); column <= last; ++column) {
        PaintHeading(scene, column);
        PaintBanners(scene, column);
        PaintStrips(scene, column);
    }
    // The line under the headings shows which part has the keyboard, even while nothing is selected.
    const int line = scene.state.focused ? 2 : 1;
    painter.fillRect(QRect(body.left(), body.top() - line, body.width(), line),
                     scene.state.focused ? scene.style.accent : scene.style.columnLine);
    painter.restore();
}
