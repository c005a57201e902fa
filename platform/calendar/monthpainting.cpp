#include "platform/calendar/monthpainting.h"

#include <algorithm>
#include <QCoreApplication>
#include <QLocale>
#include <QPainter>

#include "platform/calendar/card.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"
#include "platform/calendar/timescale.h"

namespace {

bool isWeekend(QDate day) {
    return day.dayOfWeek() >= Qt::Saturday;
}

void paintHeadings(const MonthScene& scene) {
    QPainter& painter = scene.painter;
    painter.fillRect(scene.layout.headings, scene.style.window);
    painter.setFont(scene.style.heading);
    const QLocale locale = QLocale::c();
    for (int day = 0; day < MonthGrid::Days && day < static_cast<int>(scene.layout.cells.size()); ++day) {
        const QRect below = scene.layout.cells[static_cast<std::size_t>(day)].rect;
        const QRect rect(below.left(), 0, below.width(), scene.layout.headings.height());
        const int weekday = scene.grid.dayOfWeekAt(day);
        QString name = locale.standaloneDayName(weekday);
        if (painter.fontMetrics().horizontalAdvance(name) > rect.width() - 2 * scene.style.margin)
            name = locale.standaloneDayName(weekday, QLocale::ShortFormat);
        painter.setPen(weekday >= Qt::Saturday ? scene.style.dimInk : scene.style.ink);
        painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, name);
    }
}

void paintNumber(const MonthScene& scene, const MonthCell& cell) {
    QPainter& painter = scene.painter;
    const bool today = cell.day == scene.state.today;
    painter.setRenderHint(QPainter::Antialiasing);
    if (today) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(scene.style.accent);
        painter.drawEllipse(QRectF(cell.number));
        painter.setBrush(Qt::NoBrush);
    }
    QFont font = scene.style.text;
    font.setBold(today || cell.day.day() == 1);
    painter.setFont(font);
    painter.setPen(today ? scene.style.accentInk : cell.inMonth ? scene.style.ink : scene.style.dimInk);
    painter.drawText(cell.number, Qt::AlignCenter | Qt::TextSingleLine, QString::number(cell.day.day()));
}

/// Returns the colours of an item, without a fill where its day belongs to another month.
CardColors colorsOf(const MonthScene& scene, const CalendarItem& item, bool inMonth) {
    CardColors colors = CardColorsFor(item, scene.style.base, scene.style.ink);
    if (!inMonth) {
        colors.fill = scene.style.window;
        colors.text = colors.dimText = ReadableOn(scene.style.window, scene.style.dimInk);
    }
    return colors;
}

// Paints one line: an edge in the item's colour, the time, the text, and the glyph of its status at the end.
void paintItem(const MonthScene& scene, const MonthLine& line, bool inMonth) {
    QPainter& painter = scene.painter;
    const CalendarItem& item = scene.item(line.index);
    const CardColors colors = colorsOf(scene, item, inMonth);
    const QRectF rect(line.rect);
    // A style without edges is for paper that is to have none.
    const double edge = scene.style.edgeWidth > 0 ? std::max(scene.style.edgeWidth - 1, 3) : 0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line.index == scene.state.hoveredItem ? QPen(colors.edge, 1) : QPen(Qt::NoPen));
    painter.setBrush(colors.fill);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), scene.style.radius / 2.0, scene.style.radius / 2.0);
    painter.fillRect(QRectF(rect.left(), rect.top() + 1, edge, rect.height() - 2), colors.edge);

    QRect text = line.rect.adjusted(static_cast<int>(edge) + scene.style.margin, 0, -scene.style.margin / 2, 0);
    const std::vector<Glyph> glyphs = GlyphsOf(item);
    const int side = std::min(scene.style.icon, line.rect.height() - 2);
    if (!glyphs.empty() && text.width() > side * 4) {
        PaintGlyph(painter, QRectF(text.right() - side, text.center().y() - side / 2.0 + 0.5, side, side),
                   glyphs.front(), colors.text);
        text.setRight(text.right() - side - scene.style.margin / 2);
    }
    QFont font = scene.style.small;
    font.setStrikeOut(item.ItemStatusMark == StatusMark::Cancelled);
    painter.setFont(font);
    const auto say = [&](const QString& words, const QColor& color) {
        const QString shown = painter.fontMetrics().elidedText(words, Qt::ElideRight, text.width());
        painter.setPen(color);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        text.setLeft(text.left() + painter.fontMetrics().horizontalAdvance(shown) +
                     std::max(scene.style.margin, scene.leastGap));
    };
    if (!item.ItemBanner) {
        // Where room is short, AM or PM is left out first and then the time itself, because the order of the lines
        // still tells it.
        const int letters = text.width() / std::max(painter.fontMetrics().averageCharWidth(), 1);
        const QString clock = ClockText(item.ItemStart, scene.twentyFourHour);
        if (letters >= 12)
            say(letters < 26 ? clock.section(QLatin1Char(' '), 0, 0) : clock, colors.dimText);
    }
    if (item.ItemTextColor == TextColor::Normal && text.width() > 0)
        say(PaintedLine(item.ItemText), colors.text);
}

void paintRest(const MonthScene& scene, const MonthCell& cell, const QRect& rect) {
    QPainter& painter = scene.painter;
    painter.setFont(scene.style.small);
    painter.setPen(scene.style.dimInk);
    const QString words = QCoreApplication::translate("ctWeek", "+%1 more").arg(cell.hidden);
    const bool fits = painter.fontMetrics().horizontalAdvance(words) <= cell.rect.right() - rect.left();
    painter.drawText(rect.adjusted(scene.style.margin, 0, cell.rect.width(), 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fits ? words : QStringLiteral("+%1").arg(cell.hidden));
}

void paintCell(const MonthScene& scene, const MonthCell& cell) {
    QPainter& painter = scene.painter;
    painter.save();
    painter.setClipRect(cell.rect, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (!cell.inMonth || isWeekend(cell.day))
        painter.fillRect(cell.rect, cell.inMonth ? scene.style.shade : scene.style.window);
    painter.setPen(scene.style.hourLine);
    painter.drawLine(cell.rect.topLeft(), cell.rect.topRight());
    if (cell.rect.left() > 0)
        painter.drawLine(cell.rect.topLeft(), cell.rect.bottomLeft());
    paintNumber(scene, cell);
    for (const MonthLine& line : cell.lines) {
        if (line.index > 0)
            paintItem(scene, line, cell.inMonth);
        else
            paintRest(scene, cell, line.rect);
    }
    if (cell.lines.empty() && cell.hidden > 0)
        paintRest(scene, cell, cell.number.translated(cell.number.width() + scene.style.margin, 0));
    if (cell.day == scene.state.selected) {
        painter.setPen(QPen(scene.state.focused ? scene.style.accent : scene.style.dimInk, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(cell.rect.adjusted(2, 2, -2, -2));
    }
    painter.restore();
}

}  // namespace

void PaintMonth(const MonthScene& scene, const QRect& clip) {
    scene.painter.fillRect(clip, scene.style.base);
    paintHeadings(scene);
    for (const MonthCell& cell : scene.layout.cells)
        if (clip.intersects(cell.rect))
            paintCell(scene, cell);
}
