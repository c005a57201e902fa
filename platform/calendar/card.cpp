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

/// Paints as many glyphs from the right end of the line as fit into `room`, and takes them from `glyphs` and their
/// place from the line.
void PaintGlyphs(QPainter& painter, QRect& line, int room, std::vector<Glyph>& glyphs, const QColor& color,
                 const CalendarStyle& style) {
    const int side = std::min(style.icon, line.height());
    const int step = side + style.margin / 2;
    while (!glyphs.empty() && room >= side) {
        const QRectF square(line.right() + 1 - side, line.top() + (line.height() - side) / 2.0, side, side);
        PaintGlyph(painter, square, glyphs.front(), color);
        glyphs.erase(glyphs.begin());
        line.setRight(line.right() - step);
        room -= step;
    }
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

/// Draws a text that fits into the line, from the line's left end.
void DrawFitting(QPainter& painter, const QRect& line, const QString& text, const QFont& font, const QColor& color) {
    if (text.isEmpty())
        return;
    painter.setFont(font);
    painter.setPen(color);
    const QFontMetrics metrics = painter.fontMetrics();
    // Drawing from a point avoids the text layout that drawing into a rectangle makes.
    painter.drawText(QPointF(line.left(), line.top() + (line.height() - metrics.height()) / 2.0 + metrics.ascent()),
                     text);
}

/// Draws a text from the line's left end, shortened to the line.
void DrawLine(QPainter& painter, const QRect& line, const QString& text, const QFont& font, const QColor& color) {
    if (!text.isEmpty())
        DrawFitting(painter, line, ShortenedTo(line.width(), text, QFontMetrics(font, painter.device())), font, color);
}

/// The texts and glyphs of a card: the name before all else, then the glyphs and the rest in what it leaves.
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
        const QRect line = paintName(firstLine(rect, inner), rect.bottom());
        const int linesBelow = (rect.bottom() - line.bottom()) / style_.smallLine;
        const QRect below(inner.left(), line.bottom() + 1, inner.width(), style_.smallLine);
        std::vector<Glyph> glyphs = GlyphsOf(item_);
        placePin(below, linesBelow, glyphs);
        paintBesideName(line, linesBelow == 0, glyphs);
        paintMore(below, linesBelow, glyphs);
    }

  private:
    [[nodiscard]] QRect firstLine(const QRect& rect, const QRect& inner) const {
        if (rect.height() < style_.textLine + style_.margin)
            return {inner.left(), rect.top(), inner.width(), rect.height()};
        const int top = rect.height() >= style_.textLine + 2 * style_.margin ? style_.margin : style_.margin / 2;
        return {inner.left(), rect.top() + top, inner.width(), style_.textLine};
    }

    struct Measured {
        QString text;
        double width = 0;
    };

    /// Returns the longest text for the time that fits, or the shortest one where none does.
    [[nodiscard]] Measured timeFor(int width) const {
        // Whole pixels are too rough: a time that is a part of a pixel too long would be shortened once more.
        const QFontMetricsF small(style_.small);
        const auto measured = [&](const QString& text) { return Measured{text, small.horizontalAdvance(text)}; };
        Measured time = measured(ClockSpan(state_.start, state_.end, state_.twentyFourHour));
        if (time.width > width)
            time = measured(ClockText(state_.start, state_.twentyFourHour));
        if (time.width > width)
            time = measured(time.text.section(QLatin1Char(' '), 0, 0));
        return time;
    }

    /// Paints the name, on two lines where one is too short and the card is high enough to tell the time too, and
    /// returns the line in which it ends. The rest of that line is free from `nameEnd_` on.
    QRect paintName(QRect line, int bottom) {
        const bool hidden = item_.ItemTextColor == TextColor::SameAsBackground;
        QString name = hidden ? QString() : PaintedLine(item_.ItemText);
        const QFontMetrics metrics(font_);
        int width = name.isEmpty() ? 0 : metrics.horizontalAdvance(name);
        const bool high = bottom - line.bottom() >= style_.textLine + style_.smallLine;
        if (width > line.width() && high) {
            const int part = partThatFits(name, line.width(), metrics);
            if (part > 0) {
                DrawFitting(painter_, line, name.left(part), font_, colors_.text);
                name = name.mid(part + 1);
                width = metrics.horizontalAdvance(name);
                line.translate(0, line.height());
            }
        }
        const bool fits = width <= line.width();
        if (fits)
            DrawFitting(painter_, line, name, font_, colors_.text);
        else
            DrawLine(painter_, line, name, font_, colors_.text);
        nameEnd_ = fits ? line.left() + (width > 0 ? width + 2 * style_.margin : 0) : line.right() + 1;
        return line;
    }

    /// Returns the length of the words that fit, or 0 where not even the first one does.
    [[nodiscard]] static int partThatFits(const QString& name, int width, const QFontMetrics& metrics) {
        int part = 0;
        for (auto blank = name.indexOf(QLatin1Char(' ')); blank > 0;
             blank = name.indexOf(QLatin1Char(' '), blank + 1)) {
            if (metrics.horizontalAdvance(name.left(blank)) > width)
                break;
            part = static_cast<int>(blank);
        }
        return part;
    }

    /// Decides whether the pin stands by the place that is written, and takes it from the glyphs then.
    void placePin(const QRect& below, int linesBelow, std::vector<Glyph>& glyphs) {
        const QString place = PaintedLine(item_.ItemLocation);
        if (!item_.ItemLocationIcon || place.isEmpty() || linesBelow < 1)
            return;
        const int before = linesBelow > 1 ? 0 : static_cast<int>(timeFor(below.width()).width) + style_.margin;
        hasPin_ = below.width() - before >= style_.icon * 3;
        if (hasPin_)
            std::erase(glyphs, Glyph::Location);
    }

    void paintBesideName(QRect line, bool alone, std::vector<Glyph>& glyphs) {
        const int free = line.right() + 1 - nameEnd_;
        PaintGlyphs(painter_, line, free, glyphs, colors_.text, style_);
        if (!alone)
            return;
        const QRect rest(nameEnd_, line.top(), line.right() + 1 - nameEnd_, line.height());
        const Measured time = timeFor(rest.width());
        if (time.width <= rest.width())
            DrawFitting(painter_, rest, time.text, style_.small, colors_.dimText);
    }

    /// Paints the lines below the name. The glyphs that found no room beside it stand at the end of the last line.
    void paintMore(const QRect& line, int lines, std::vector<Glyph>& glyphs) {
        if (lines < 1)
            return;
        QRect last = line.translated(0, (lines - 1) * line.height());
        const int least = lines > 1 || glyphs.empty() ? 0 : static_cast<int>(timeFor(0).width) + 1;
        PaintGlyphs(painter_, last, last.width() - least, glyphs, colors_.text, style_);
        const auto room = [&](int number) {
            return number == lines ? last : line.translated(0, (number - 1) * line.height());
        };
        int used = 1;
        const QString place = PaintedLine(item_.ItemLocation);
        const int timeEnd = paintTime(room(used), !place.isEmpty() && lines == 1 && !hasPin_ ? place : QString());
        if (!place.isEmpty() && (lines > 1 || hasPin_)) {
            used = std::min(lines, 2);
            paintPlace(lines > 1 ? room(used) : room(1).adjusted(timeEnd, 0, 0, 0), place);
        }
        if (lines > used)
            paintWord(room(used + 1), PaintedLine(item_.ItemStatusText));
    }

    /// Paints the time and, behind a dot, the place; returns where they end, counted from the line's left. A time is
    /// never cut, because half of it is another time.
    int paintTime(const QRect& line, const QString& place) {
        const QString dot = QStringLiteral(" · ");
        const QFontMetrics small(style_.small);
        Measured time = timeFor(line.width());
        if (item_.ItemShelved && !state_.ghost) {
            time.text.prepend(ShelvedText() + dot);
            time.width = QFontMetricsF(style_.small).horizontalAdvance(time.text);
            if (time.width > line.width()) {
                DrawLine(painter_, line, time.text, style_.small, colors_.dimText);
                return line.width();
            }
        }
        if (time.width > line.width())
            return 0;
        const double rest = line.width() - time.width - small.horizontalAdvance(dot);
        // A dot with nothing but more dots behind it says nothing.
        if (!place.isEmpty() && rest >= small.averageCharWidth() * 4)
            DrawLine(painter_, line, time.text + dot + place, style_.small, colors_.dimText);
        else
            DrawFitting(painter_, line, time.text, style_.small, colors_.dimText);
        return static_cast<int>(time.width) + 2 * style_.margin;
    }

    /// Paints a quiet word where there is room for some letters of it.
    void paintWord(const QRect& line, const QString& word) {
        const QFontMetrics small(style_.small);
        if (line.width() >= std::min(small.averageCharWidth() * 4, small.horizontalAdvance(word)))
            DrawLine(painter_, line, word, style_.small, colors_.dimText);
    }

    void paintPlace(QRect line, const QString& place) {
        const int side = std::min(style_.icon, line.height());
        if (hasPin_ && line.width() >= side) {
            PaintGlyph(painter_, QRectF(line.left(), line.top() + (line.height() - side) / 2.0, side, side),
                       Glyph::Location, colors_.dimText);
            line.setLeft(line.left() + side + style_.margin / 2);
        }
        paintWord(line, place);
    }

    QPainter& painter_;
    const CalendarItem& item_;
    const CardState& state_;
    const CardColors& colors_;
    const CalendarStyle& style_;
    QFont font_;
    int nameEnd_ = 0;
    bool hasPin_ = false;
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
    const CardColors colors = CardColorsFor(item, style.base, style.ink);
    painter.save();
    PaintBox(painter, QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), item, state, colors, style);
    QRect line = rect.adjusted(style.edgeWidth + style.margin, 0, -style.margin, 0);
    std::vector<Glyph> glyphs = GlyphsOf(item);
    PaintGlyphs(painter, line, line.width() - style.icon * 3, glyphs, colors.text, style);
    if (item.ItemTextColor == TextColor::Normal)
        DrawLine(painter, line, PaintedLine(item.ItemText), style.text, colors.text);
    painter.restore();
}
