#include <QLocale>
#include <QPainter>
#include <QPaintEvent>

#include "platform/calendar/card.h"
#include "platform/calendar/ctweek.h"
#include "platform/calendar/glyphs.h"
#include "platform/calendar/timescale.h"

namespace {

bool isWeekend(QDate day) {
    return day.dayOfWeek() >= Qt::Saturday;
}

}  // namespace

void ctWeek::paintEvent(QPaintEvent* event) {
    const MonthLayout& layout = Layout();
    QPainter painter(this);
    painter.fillRect(event->rect(), style_.base);
    paintHeadings(painter);
    for (const MonthCell& cell : layout.cells)
        if (event->rect().intersects(cell.rect))
            paintCell(painter, cell);
}

void ctWeek::paintHeadings(QPainter& painter) const {
    painter.fillRect(layout_.headings, style_.window);
    painter.setFont(style_.heading);
    const QLocale locale = QLocale::c();
    for (int day = 0; day < MonthGrid::Days && day < static_cast<int>(layout_.cells.size()); ++day) {
        const QRect below = layout_.cells[static_cast<std::size_t>(day)].rect;
        const QRect rect(below.left(), 0, below.width(), layout_.headings.height());
        const int weekday = grid_.dayOfWeekAt(day);
        QString name = locale.standaloneDayName(weekday);
        if (painter.fontMetrics().horizontalAdvance(name) > rect.width() - 2 * style_.margin)
            name = locale.standaloneDayName(weekday, QLocale::ShortFormat);
        painter.setPen(weekday >= Qt::Saturday ? style_.dimInk : style_.ink);
        painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, name);
    }
}

void ctWeek::paintCell(QPainter& painter, const MonthCell& cell) const {
    painter.save();
    painter.setClipRect(cell.rect, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (!cell.inMonth || isWeekend(cell.day))
        painter.fillRect(cell.rect, cell.inMonth ? style_.shade : style_.window);
    painter.setPen(style_.hourLine);
    painter.drawLine(cell.rect.topLeft(), cell.rect.topRight());
    if (cell.rect.left() > 0)
        painter.drawLine(cell.rect.topLeft(), cell.rect.bottomLeft());
    paintNumber(painter, cell);
    for (const MonthLine& line : cell.lines) {
        if (line.index > 0)
            paintItem(painter, line);
        else
            paintRest(painter, cell, line.rect);
    }
    if (cell.lines.empty() && cell.hidden > 0)
        paintRest(painter, cell, cell.number.translated(cell.number.width() + style_.margin, 0));
    if (cell.day == selected_) {
        painter.setPen(QPen(hasFocus() ? style_.accent : style_.dimInk, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(cell.rect.adjusted(2, 2, -2, -2));
    }
    painter.restore();
}

void ctWeek::paintNumber(QPainter& painter, const MonthCell& cell) const {
    const bool today = cell.day == clock_().date();
    painter.setRenderHint(QPainter::Antialiasing);
    if (today) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(style_.accent);
        painter.drawEllipse(QRectF(cell.number));
        painter.setBrush(Qt::NoBrush);
    }
    QFont font = style_.text;
    font.setBold(today || cell.day.day() == 1);
    painter.setFont(font);
    painter.setPen(today ? style_.accentInk : cell.inMonth ? style_.ink : style_.dimInk);
    painter.drawText(cell.number, Qt::AlignCenter | Qt::TextSingleLine, QString::number(cell.day.day()));
}

// Paints one line: an edge in the item's colour, the time, the text, and the glyph of its status at the end.
void ctWeek::paintItem(QPainter& painter, const MonthLine& line) const {
    const CalendarItem& item = Item(line.index);
    const CardColors colors = CardColorsFor(item, style_.base, style_.ink);
    const QRectF rect(line.rect);
    const double edge = std::max(style_.edgeWidth - 1, 3);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line.index == hoveredItem_ ? QPen(colors.edge, 1) : QPen(Qt::NoPen));
    painter.setBrush(colors.fill);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), style_.radius / 2.0, style_.radius / 2.0);
    painter.fillRect(QRectF(rect.left(), rect.top() + 1, edge, rect.height() - 2), colors.edge);

    QRect text = line.rect.adjusted(static_cast<int>(edge) + style_.margin, 0, -style_.margin / 2, 0);
    const std::vector<Glyph> glyphs = GlyphsOf(item);
    const int side = std::min(style_.icon, line.rect.height() - 2);
    if (!glyphs.empty() && text.width() > side * 4) {
        PaintGlyph(painter, QRectF(text.right() - side, text.center().y() - side / 2.0 + 0.5, side, side),
                   glyphs.front(), colors.text);
        text.setRight(text.right() - side - style_.margin / 2);
    }
    QFont font = style_.small;
    font.setStrikeOut(item.ItemStatusMark == StatusMark::Cancelled);
    painter.setFont(font);
    const auto say = [&](const QString& words, const QColor& color) {
        const QString shown = painter.fontMetrics().elidedText(words, Qt::ElideRight, text.width());
        painter.setPen(color);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        text.setLeft(text.left() + painter.fontMetrics().horizontalAdvance(shown) + style_.margin);
    };
    if (!item.ItemBanner) {
        // Where room is short, AM or PM is left out first and then the time itself, because the order of the lines
        // still tells it.
        const int letters = text.width() / std::max(painter.fontMetrics().averageCharWidth(), 1);
        const QString clock = ClockText(item.ItemStart, twentyFourHour_);
        if (letters >= 12)
            say(letters < 26 ? clock.section(QLatin1Char(' '), 0, 0) : clock, colors.dimText);
    }
    if (item.ItemTextColor == TextColor::Normal && text.width() > 0)
        say(PaintedLine(item.ItemText), colors.text);
}

void ctWeek::paintRest(QPainter& painter, const MonthCell& cell, const QRect& rect) const {
    painter.setFont(style_.small);
    painter.setPen(style_.dimInk);
    const QString words = tr("+%1 more").arg(cell.hidden);
    const bool fits = painter.fontMetrics().horizontalAdvance(words) <= cell.rect.right() - rect.left();
    painter.drawText(rect.adjusted(style_.margin, 0, cell.rect.width(), 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fits ? words : QStringLiteral("+%1").arg(cell.hidden));
}
