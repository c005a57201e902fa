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

/// What a line says besides the name, which comes first.
struct Beside {
    QString clock;
    bool sign = false;
};

/// Returns what stands beside a name in a line of so much room. AM or PM gives way to the name first, then the sign of
/// the status. Where the name is cut all the same, the sign keeps its side. `clocks` are the forms of the time, the
/// longest first; `sign` is the width of the sign, 0 for none.
Beside besideName(const QFontMetrics& metrics, const QString& name, int room, int sign, int gap,
                  const QStringList& clocks) {
    const auto fits = [&](const Beside& beside) {
        const int before = beside.clock.isEmpty() ? 0 : metrics.horizontalAdvance(beside.clock) + gap;
        const int left = room - before - (beside.sign ? sign : 0);
        return left >= 0 && metrics.elidedText(name, Qt::ElideRight, left) == name;
    };
    for (const bool signShown : {sign > 0, false})
        for (const QString& clock : clocks)
            if (const Beside beside{clock, signShown}; fits(beside))
                return beside;
    return {clocks.back(), sign > 0};
}

/// Returns the forms of an item's time for a line of so many letters, the longest first.
QStringList clocksOf(const MonthScene& scene, const CalendarItem& item, int letters) {
    constexpr int LettersWithTime = 12;
    constexpr int LettersWithWholeTime = 26;
    if (item.ItemBanner || letters < LettersWithTime)
        return {QString()};
    const QString whole = ClockText(item.ItemStart, scene.twentyFourHour);
    const QString brief = whole.section(QLatin1Char(' '), 0, 0);
    return letters < LettersWithWholeTime ? QStringList{brief} : QStringList{whole, brief};
}

void paintBox(const MonthScene& scene, const MonthLine& line, const CardColors& colors, double edge) {
    QPainter& painter = scene.painter;
    const QRectF rect(line.rect);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line.index == scene.state.hoveredItem ? QPen(colors.edge, 1) : QPen(Qt::NoPen));
    painter.setBrush(colors.fill);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), scene.style.radius / 2.0, scene.style.radius / 2.0);
    painter.fillRect(QRectF(rect.left(), rect.top() + 1, edge, rect.height() - 2), colors.edge);
}

// Paints one line: an edge in the item's colour, the time, the text, and the glyph of its status at the end.
void paintItem(const MonthScene& scene, const MonthLine& line, bool inMonth) {
    QPainter& painter = scene.painter;
    const CalendarItem& item = scene.item(line.index);
    const CardColors colors = colorsOf(scene, item, inMonth);
    // A style without edges is for paper that is to have none.
    const double edge = scene.style.edgeWidth > 0 ? std::max(scene.style.edgeWidth - 1, 3) : 0;
    paintBox(scene, line, colors, edge);

    QRect text = line.rect.adjusted(static_cast<int>(edge) + scene.style.margin, 0, -scene.style.margin / 2, 0);
    QFont font = scene.style.small;
    font.setStrikeOut(item.ItemStatusMark == StatusMark::Cancelled);
    painter.setFont(font);
    const QFontMetrics metrics = painter.fontMetrics();
    const std::vector<Glyph> glyphs = GlyphsOf(item);
    const int side = std::min(scene.style.icon, line.rect.height() - 2);
    const int sign = !glyphs.empty() && text.width() > side * 4 ? side + scene.style.margin / 2 : 0;
    const int gap = std::max(scene.style.margin, scene.leastGap);
    const QString name = item.ItemTextColor == TextColor::Normal ? PaintedLine(item.ItemText) : QString();
    const int letters = (text.width() - sign) / std::max(metrics.averageCharWidth(), 1);
    const Beside beside = besideName(metrics, name, text.width(), sign, gap, clocksOf(scene, item, letters));
    if (beside.sign) {
        PaintGlyph(painter, QRectF(text.right() - side, text.center().y() - side / 2.0 + 0.5, side, side),
                   glyphs.front(), colors.text);
        text.setRight(text.right() - sign);
    }
    const auto say = [&](const QString& words, const QColor& color) {
        const QString shown = metrics.elidedText(words, Qt::ElideRight, text.width());
        painter.setPen(color);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        text.setLeft(text.left() + metrics.horizontalAdvance(shown) + gap);
    };
    if (!beside.clock.isEmpty())
        say(beside.clock, colors.dimText);
    if (!name.isEmpty() && text.width() > 0)
        say(name, colors.text);
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
