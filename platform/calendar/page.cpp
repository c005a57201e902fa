#include "platform/calendar/page.h"

#include <algorithm>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QLocale>
#include <QPainter>
#include <QStringList>
#include <vector>

#include "platform/calendar/card.h"
#include "platform/calendar/painting.h"
#include "platform/calendar/timescale.h"

namespace {

/// A card with room for fewer characters than this says nothing. Two cards beside each other are always shown.
constexpr int LettersOfACard = 10;
constexpr int LeastLanes = 2;
constexpr int LettersBetweenLines = 4;
/// The most that the time column takes of the page's width.
constexpr double MostOfTheWidth = 0.15;
constexpr double MostOfThePage = 0.7;

QString said(const char* text) {
    return QCoreApplication::translate("PaintPage", text);
}

void drawLine(QPainter& painter, const QRect& line, const QString& text, const QFont& font) {
    painter.setFont(font);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(font).elidedText(text, Qt::ElideRight, line.width()));
}

/// Returns the line below the grid for an item without room in it.
QString lineOf(const CalendarItem& item, const CalendarContent& page) {
    QStringList parts;
    const CalendarColumn& column = page.columns[static_cast<std::size_t>(page.columnOf(item)) - 1];
    if (page.columns.size() > 1)
        parts << (column.title.isEmpty() ? QLocale::c().toString(column.day, QStringLiteral("ddd MMM d"))
                                         : PaintedLine(column.title));
    parts << ClockSpan(item.ItemStart, item.ItemEnd, page.twentyFourHour);
    if (item.ItemTextColor == TextColor::Normal)
        parts << PaintedLine(item.ItemText);
    if (!item.ItemStatusText.isEmpty())
        parts << QStringLiteral("(%1)").arg(item.ItemStatusText);
    return parts.join(QStringLiteral("  "));
}

/// Takes out the items in the lanes beyond the number whose cards can be read, and returns lines for them in the order
/// of time.
QStringList takeOutWhatIsTooNarrow(CalendarContent& page, const CalendarGrid& grid, const CalendarLayout& placed,
                                   const CalendarStyle& style) {
    const int least = QFontMetrics(style.text).averageCharWidth() * LettersOfACard;
    const int lanes = std::max(LeastLanes, static_cast<int>(grid.columnWidth / std::max(least, 1)));
    QStringList lines;
    std::vector<bool> taken(page.items.size());
    for (const ColumnLayout& column : placed.columns)
        for (const PlacedItem& item : column.placed)
            if (item.lane >= lanes) {
                const auto position = static_cast<std::size_t>(item.index) - 1;
                taken[position] = true;
                lines << lineOf(page.items[position], page);
            }
    std::vector<CalendarItem> kept;
    for (std::size_t position = 0; position < page.items.size(); ++position)
        if (!taken[position])
            kept.push_back(page.items[position]);
    page.items = std::move(kept);
    return lines;
}

/// Paints the lines below the grid, in as many columns as the page has room for without shortening a line.
struct BelowTheGrid {
    QStringList lines;
    int columns = 1;
    int rows = 0;
    int lineHeight = 0;
    int gap = 0;  ///< Between the columns.

    BelowTheGrid(QStringList of, const QRect& area, const CalendarStyle& style) : lines(std::move(of)) {
        if (lines.isEmpty())
            return;
        const QFontMetrics metrics(style.text);
        lineHeight = metrics.lineSpacing();
        // The pixel makes up for the rounding, by which a line of just that width would be shortened.
        int widest = 0;
        for (const QString& line : std::as_const(lines))
            widest = std::max(widest, metrics.horizontalAdvance(line) + 1);
        gap = metrics.averageCharWidth() * LettersBetweenLines;
        columns = std::max(1, (area.width() + gap) / (widest + gap));
        rows = (static_cast<int>(lines.size()) + columns - 1) / columns;
        const int most = std::max(1, static_cast<int>(area.height() * MostOfThePage) / lineHeight - 2);
        if (rows > most) {
            rows = most;
            const auto shown = static_cast<qsizetype>(rows) * columns - 1;
            const qsizetype more = lines.size() - shown;
            lines = lines.first(shown) << said("and %1 more").arg(more);
        }
    }

    [[nodiscard]] int height() const { return lines.isEmpty() ? 0 : (rows + 2) * lineHeight; }

    void paint(QPainter& painter, const QRect& area, const CalendarStyle& style) const {
        if (lines.isEmpty())
            return;
        QFont heading = style.text;
        heading.setBold(true);
        painter.setPen(style.ink);
        drawLine(painter, {area.left(), area.top() + lineHeight / 2, area.width(), lineHeight},
                 said("Besides, at times that are full above:"), heading);
        const int width = (area.width() + gap) / columns;
        const int top = area.top() + lineHeight * 3 / 2;
        for (int i = 0; i < static_cast<int>(lines.size()); ++i)
            drawLine(painter, {area.left() + i / rows * width, top + i % rows * lineHeight, width - gap, lineHeight},
                     lines[i], style.text);
    }
};

/// Returns the style with a smaller font of the time column where an hour's label would be higher than an hour, or the
/// column wider than that.
CalendarStyle withFittingTime(CalendarStyle style, int hourHeight, int mostWidth) {
    const double tooHigh = static_cast<double>(QFontMetrics(style.hour).height()) / std::max(hourHeight, 1);
    const double tooWide = static_cast<double>(style.gutterWidth) / std::max(mostWidth, 1);
    const double factor = std::max(tooHigh, tooWide);
    if (factor <= 1)
        return style;
    for (QFont* font : {&style.hour, &style.minute})
        font->setPixelSize(std::max(static_cast<int>(QFontInfo(*font).pixelSize() / factor), 1));
    style.gutterWidth = static_cast<int>(style.gutterWidth / factor);
    return style;
}

/// Draws the edges that the screen leaves to the window: on the right and below the last hour.
void closeFrame(QPainter& painter, const CalendarGrid& grid, const CalendarStyle& style) {
    const QRect body = grid.body();
    painter.setPen(style.columnLine);
    painter.drawLine(body.right(), grid.area.top() + 2 * style.margin, body.right(), body.bottom());
    painter.drawLine(grid.area.left(), body.bottom(), body.right(), body.bottom());
}

}  // namespace

void PaintPage(QPainter& painter, const QRectF& area, const CalendarContent& content, int firstColumn, int columnCount,
               const CalendarStyle& wishedStyle, const PageNotes& notes) {
    const int columns = static_cast<int>(content.columns.size());
    const int first = std::clamp(firstColumn, 1, std::max(columns, 1));
    const int count = std::min(columnCount, columns - first + 1);
    if (count < 1)
        return;
    CalendarContent page = content.pageOf(first, count);
    GridWishes wishes;
    QRect whole = area.toAlignedRect();
    const PlacedNotes placedNotes(notes, page, wishedStyle, whole.width());
    const QRect paper = whole;
    whole.setBottom(whole.bottom() - placedNotes.legendHeight());
    CalendarStyle headedStyle = wishedStyle;
    headedStyle.headingHeight = placedNotes.headingHeight();
    const int bodyHeight = whole.height() - headedStyle.headingHeight;
    const CalendarStyle style = withFittingTime(headedStyle, bodyHeight * 60 / (page.gridEnd() - page.gridStart()),
                                                static_cast<int>(whole.width() * MostOfTheWidth));
    wishes.area = whole;
    wishes.visibleColumns = count;
    wishes.fitHeight = true;
    const auto fit = [&](const CalendarLayout& layout) { return FitGrid(page, layout, style, wishes); };
    const auto layOut = [&] {
        constexpr CancelledItems Cancelled = CancelledItems::AmongOthers;
        return LayOut(page, MinMinutes(fit(LayOut(page, 1, Cancelled)).scale, style), Cancelled);
    };
    CalendarLayout placed = layOut();
    const BelowTheGrid below(takeOutWhatIsTooNarrow(page, fit(placed), placed, style), whole, style);
    if (below.height() > 0) {
        wishes.area.setBottom(whole.bottom() - below.height());
        placed = layOut();
    }
    const CalendarGrid grid = fit(placed);
    painter.save();
    painter.setClipRect(paper, Qt::IntersectClip);
    below.paint(painter, {whole.left(), wishes.area.bottom() + 1, whole.width(), below.height()}, style);
    const CalendarState nothingSelected;
    PaintCalendar({painter, page, placed, grid, nothingSelected, style}, wishes.area);
    closeFrame(painter, grid, style);
    for (int column = 1; column <= count; ++column)
        placedNotes.paintHeading(painter, grid.headingRect(column), column);
    placedNotes.paintLegend(painter, {paper.left(), whole.bottom() + 1, paper.width(), placedNotes.legendHeight()});
    painter.restore();
}
