#include "platform/calendar/card.h"

#include <algorithm>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include "platform/calendar/glyphs.h"
#include "platform/calendar/hatch.h"
#include "platform/calendar/timescale.h"
#include "platform/text/plaintext.h"

namespace {

/// No line of a card shows more characters than this, and shaping more would waste time.
constexpr int MostCharacters = 300;

QPainterPath Outline(const QRectF& rect, const CardState& state, double radius) {
    const double round = std::min({radius, rect.width() / 2, rect.height() / 2});
    QPainterPath path;
    path.addRoundedRect(rect, round, round);
    if (!state.cutTop && !state.cutBottom)
        return path;
    // A card that continues outside the grid has straight corners there.
    path.setFillRule(Qt::WindingFill);
    if (state.cutTop)
        path.addRect(QRectF(rect.topLeft(), QSizeF(rect.width(), round)));
    if (state.cutBottom)
        path.addRect(QRectF(rect.left(), rect.bottom() - round, rect.width(), round));
    return path.simplified();
}

bool IsHatched(const CalendarItem& item) {
    return item.ItemTentativeIcon || item.ItemStatusMark == StatusMark::Tentative ||
           item.ItemStatusMark == StatusMark::Unavailable;
}

QPen OutlinePen(const CalendarItem& item, const CardState& state, const CardColors& colors,
                const CalendarStyle& style) {
    if (state.selected)
        return {state.focused || state.ghost ? style.accent : style.dimInk, 2.0};
    QPen pen(state.hovered ? colors.edge : colors.outline, 1.0);
    if (item.ItemShelved && !state.ghost) {
        pen.setColor(colors.edge);
        pen.setDashPattern({2, 2});
    }
    if (item.ItemStatusMark == StatusMark::TypeSlot) {
        pen.setColor(colors.edge);
        pen.setDashPattern({4, 3});
    }
    return pen;
}

void PaintBox(QPainter& painter, const QRectF& rect, const CalendarItem& item, const CardState& state,
              const CardColors& colors, const CalendarStyle& style) {
    const QPainterPath outline = Outline(rect, state, style.radius);
    QColor fill = state.hovered && !state.selected ? Mixed(colors.fill, colors.pattern, 0.6) : colors.fill;
    if (item.ItemShelved && !state.ghost)
        fill = Mixed(fill, style.base, 0.7);
    const double edge = std::min<double>(style.edgeWidth, rect.width() / 4);
    painter.setRenderHint(QPainter::Antialiasing);
    // Edge and fill are one shape with straight clips, because rounded clips cost many times as much.
    painter.save();
    painter.setClipRect(QRectF(rect.left() - 1, rect.top() - 1, edge + 1, rect.height() + 2), Qt::IntersectClip);
    painter.fillPath(outline, colors.edge);
    painter.restore();
    painter.save();
    painter.setClipRect(QRectF(rect.left() + edge, rect.top() - 1, rect.width(), rect.height() + 2), Qt::IntersectClip);
    painter.fillPath(outline, fill);
    painter.restore();
    if (IsHatched(item))
        PaintHatch(painter, rect, rect.adjusted(edge, 1, -1, -1), item.ItemStatusMark != StatusMark::Unavailable,
                   colors.pattern, style.margin * 3.0, style.margin);
    painter.setPen(OutlinePen(item, state, colors, style));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(outline);
}

/// Paints as many glyphs from the right end of the line as fit into `room`, and returns the rest of the line.
QRect PaintGlyphs(QPainter& painter, QRect line, int room, const CalendarItem& item, const QColor& color,
                  const CalendarStyle& style) {
    const int side = std::min(style.icon, line.height());
    const int step = side + style.margin / 2;
    for (const Glyph glyph : GlyphsOf(item)) {
        if (room < side)
            break;
        const QRectF square(line.right() + 1 - side, line.top() + (line.height() - side) / 2.0, side, side);
        PaintGlyph(painter, square, glyph, color);
        line.setRight(line.right() - step);
        room -= step;
    }
    return line;
}

QString ShortenedTo(int width, const QString& text, const QFontMetrics& metrics) {
    if (width >= metrics.averageCharWidth() * 6)
        return metrics.elidedText(text, Qt::ElideRight, width);
    // In a very narrow card three letters say more than one letter and dots.
    QString letters = text.left(8);
    while (!letters.isEmpty() && metrics.horizontalAdvance(letters) > width)
        letters.chop(1);
    return letters;
}

/// Draws a line of text from its left end, shortened to the line.
void DrawLine(QPainter& painter, const QRect& line, const QString& text, const QFont& font, const QColor& color) {
    if (text.isEmpty())
        return;
    painter.setFont(font);
    painter.setPen(color);
    const QFontMetrics metrics = painter.fontMetrics();
    const QString shown = ShortenedTo(line.width(), text, metrics);
    // Drawing from a point avoids the text layout that drawing into a rectangle makes.
    painter.drawText(QPointF(line.left(), line.top() + (line.height() - metrics.height()) / 2.0 + metrics.ascent()),
                     shown);
}

class CardText {
  public:
    CardText(QPainter& painter, const CalendarItem& item, const CardState& state, const CardColors& colors,
             const CalendarStyle& style)
        : painter_(painter), item_(item), state_(state), colors_(colors), style_(style), font_(style.text) {}

    void paint(const QRect& rect) {
        const int side = std::min(style_.margin + 1, rect.width() / 8);
        const QRect inner = rect.adjusted(std::min(style_.edgeWidth, rect.width() / 4) + side, 0, -side, 0);
        if (inner.width() < style_.icon / 2)
            return;
        painter_.setClipRect(rect, Qt::IntersectClip);
        const bool low = rect.height() < style_.textLine;
        if (low)
            font_ = style_.small;
        if (item_.ItemStatusMark == StatusMark::Cancelled)
            font_.setStrikeOut(true);
        QRect line = firstLine(rect, inner);
        const int linesBelow = (rect.bottom() - line.bottom()) / style_.smallLine;
        // A narrow card keeps its first line for the name and shows its glyphs below, where the height allows it.
        const bool narrow = inner.width() < style_.icon * 7 && linesBelow >= 2;
        const int room =
            narrow ? 0 : std::max(inner.width() - style_.icon * 5, inner.width() > style_.icon * 2 ? style_.icon : 0);
        paintTitle(PaintGlyphs(painter_, line, room, item_, colors_.text, style_), linesBelow == 0);
        if (narrow) {
            const QRect bottom(inner.left(), line.bottom() + 1 + (linesBelow - 1) * style_.smallLine, inner.width(),
                               style_.smallLine);
            PaintGlyphs(painter_, bottom, inner.width(), item_, colors_.text, style_);
        }
        paintMore(QRect(inner.left(), line.bottom() + 1, inner.width(), style_.smallLine),
                  narrow ? linesBelow - 1 : linesBelow);
    }

  private:
    [[nodiscard]] QRect firstLine(const QRect& rect, const QRect& inner) const {
        if (rect.height() < style_.textLine + style_.margin)
            return {inner.left(), rect.top(), inner.width(), rect.height()};
        const int top = rect.height() >= style_.textLine + 2 * style_.margin ? style_.margin : style_.margin / 2;
        return {inner.left(), rect.top() + top, inner.width(), style_.textLine};
    }

    /// Returns the longest text for the time that fits.
    [[nodiscard]] QString timeFor(int width) const {
        // Whole pixels are too rough: a time that is a part of a pixel too long would be shortened once more.
        const QFontMetricsF small(style_.small);
        QString span = ClockSpan(state_.start, state_.end, state_.twentyFourHour);
        if (small.horizontalAdvance(span) <= width)
            return span;
        QString clock = ClockText(state_.start, state_.twentyFourHour);
        if (small.horizontalAdvance(clock) <= width)
            return clock;
        return clock.section(QLatin1Char(' '), 0, 0);
    }

    void paintTitle(const QRect& line, bool alone) {
        const bool hidden = item_.ItemTextColor == TextColor::SameAsBackground;
        const QString text = hidden ? QString() : PaintedLine(item_.ItemText);
        DrawLine(painter_, line, text, font_, colors_.text);
        if (!alone)
            return;
        const int used = text.isEmpty() ? 0 : QFontMetrics(font_).horizontalAdvance(text) + 2 * style_.margin;
        const QString time = timeFor(line.width() - used);
        if (used + QFontMetricsF(style_.small).horizontalAdvance(time) <= line.width())
            DrawLine(painter_, line.adjusted(used, 0, 0, 0), time, style_.small, colors_.dimText);
    }

    void paintMore(QRect line, int lines) {
        if (lines < 1)
            return;
        const QString location = PaintedLine(item_.ItemLocation);
        QStringList more{timeFor(line.width())};
        if (!location.isEmpty() && lines > 1)
            more << location;
        else if (!location.isEmpty())
            more.first() += QStringLiteral(" · ") + location;
        if (!item_.ItemStatusText.isEmpty() && lines > more.size())
            more << PaintedLine(item_.ItemStatusText);
        if (item_.ItemShelved && !state_.ghost)
            more.first().prepend(ShelvedText() + QStringLiteral(" · "));
        for (const QString& text : more) {
            DrawLine(painter_, line, text, style_.small, colors_.dimText);
            line.translate(0, line.height());
        }
    }

    QPainter& painter_;
    const CalendarItem& item_;
    const CardState& state_;
    const CardColors& colors_;
    const CalendarStyle& style_;
    QFont font_;
};

}  // namespace

QString ShelvedText() {
    return QStringLiteral("On the shelf");
}

QString PaintedLine(const QString& text) {
    return OneLine(text.left(MostCharacters)).simplified();
}

void PaintCard(QPainter& painter, const QRect& rect, const CalendarItem& item, const CardState& state,
               const CalendarStyle& style) {
    const CardColors colors = CardColorsFor(item, style.base, style.ink);
    painter.save();
    PaintBox(painter, QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), item, state, colors, style);
    CardText(painter, item, state, colors, style).paint(rect);
    painter.restore();
}

void PaintBanner(QPainter& painter, const QRect& rect, const CalendarItem& item, const CardState& state,
                 const CalendarStyle& style) {
    CalendarItem banner = item;
    // A banner lasts the whole day and shows no times.
    banner.ItemBackColor = item.ItemBackColor.value_or(item.ItemColor);
    CardColors colors = CardColorsFor(banner, style.base, style.ink);
    painter.save();
    PaintBox(painter, QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), banner, state, colors, style);
    QRect line = rect.adjusted(style.edgeWidth + style.margin, 0, -style.margin, 0);
    line = PaintGlyphs(painter, line, line.width() - style.icon * 3, banner, colors.text, style);
    if (item.ItemTextColor == TextColor::Normal)
        DrawLine(painter, line, PaintedLine(item.ItemText), style.text, colors.text);
    painter.restore();
}
