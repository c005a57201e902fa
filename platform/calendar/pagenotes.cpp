#include "platform/calendar/pagenotes.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>

#include "platform/calendar/card.h"
#include "platform/calendar/glyphs.h"

namespace {

struct MarkWord {
    StatusMark mark;
    const char* word;
};

/// The statuses of a visit, in its course.
constexpr std::array Visits{
    MarkWord{StatusMark::Pending, QT_TRANSLATE_NOOP("PaintPage", "Pending")},
    MarkWord{StatusMark::Tentative, QT_TRANSLATE_NOOP("PaintPage", "Tentative")},
    MarkWord{StatusMark::CheckedIn, QT_TRANSLATE_NOOP("PaintPage", "Checked-In")},
    MarkWord{StatusMark::Kept, QT_TRANSLATE_NOOP("PaintPage", "Kept")},
    MarkWord{StatusMark::Missed, QT_TRANSLATE_NOOP("PaintPage", "Missed")},
    MarkWord{StatusMark::Cancelled, QT_TRANSLATE_NOOP("PaintPage", "Cancelled")},
};
constexpr std::array OtherEntries{
    MarkWord{StatusMark::Group, QT_TRANSLATE_NOOP("PaintPage", "Group Therapy")},
    MarkWord{StatusMark::Activity, QT_TRANSLATE_NOOP("PaintPage", "Activity/Event")},
    MarkWord{StatusMark::Unavailable, QT_TRANSLATE_NOOP("PaintPage", "Unavailable Time")},
    MarkWord{StatusMark::TypeSlot, QT_TRANSLATE_NOOP("PaintPage", "Appointment type")},
};
constexpr int LastStatusIcon = 7;

CalendarItem sampleOf(StatusMark mark) {
    CalendarItem sample;
    sample.ItemStatusMark = mark;
    return sample;
}

}  // namespace

PlacedNotes::PlacedNotes(PageNotes notes, const CalendarContent& page, const CalendarStyle& style, int width)
    : notes_(std::move(notes)), style_(style), counts_(page.columns.size()) {
    if (!notes_.statuses)
        return;
    count(page);
    lines_.emplace_back();
    collectLegend(page);
    // The entries that do not fit into a line go into the next one.
    std::vector<Entry> entries = std::move(lines_.front());
    lines_.clear();
    int left = width;
    for (Entry& entry : entries) {
        const int wanted = entryWidth(entry);
        if (lines_.empty() || wanted > left) {
            lines_.emplace_back();
            left = width;
        }
        left -= wanted;
        lines_.back().push_back(std::move(entry));
    }
}

void PlacedNotes::count(const CalendarContent& page) {
    for (const CalendarItem& item : page.items) {
        const int column = page.columnOf(item);
        const auto isOfItem = [&item](const auto& entry) { return entry.mark == item.ItemStatusMark; };
        if (column < 1 || std::ranges::none_of(Visits, isOfItem))
            continue;
        std::vector<Count>& counts = counts_[static_cast<std::size_t>(column) - 1];
        if (const auto known = std::ranges::find_if(counts, isOfItem); known != counts.end())
            ++known->items;
        else
            counts.push_back({item.ItemStatusMark, 1});
    }
    for (std::vector<Count>& counts : counts_)
        std::ranges::sort(counts, {}, &Count::mark);
}

void PlacedNotes::collectLegend(const CalendarContent& page) {
    const auto addWhere = [this, &page](const auto& isThere, const CalendarItem& sample, const QString& word) {
        if (std::ranges::any_of(page.items, isThere))
            lines_.front().push_back({sample, word});
    };
    const auto addMark = [&addWhere](const MarkWord& entry) {
        addWhere([&entry](const CalendarItem& item) { return item.ItemStatusMark == entry.mark; }, sampleOf(entry.mark),
                 QCoreApplication::translate("PaintPage", entry.word));
    };
    std::ranges::for_each(Visits, addMark);
    std::ranges::for_each(OtherEntries, addMark);
    for (int icon = 1; icon <= LastStatusIcon; ++icon) {
        CalendarItem sample;
        sample.ItemStatusIcon = icon;
        // A picture of the same glyph as a status is explained by the status.
        const std::vector<Glyph> glyphs = GlyphsOf(sample);
        const bool explained = std::ranges::any_of(
            lines_.front(), [&glyphs](const Entry& entry) { return GlyphsOf(entry.sample) == glyphs; });
        if (!explained && !glyphs.empty())
            addWhere([icon](const CalendarItem& item) { return item.ItemStatusIcon == icon; }, sample,
                     StatusIconText(icon));
    }
}

int PlacedNotes::headingHeight() const {
    const bool any = !notes_.owner.isEmpty() || notes_.statuses;
    return style_.headingHeight + (any ? 2 * style_.smallLine : 0);
}

int PlacedNotes::legendHeight() const {
    return lines_.empty() ? 0 : static_cast<int>(lines_.size()) * style_.smallLine + 2 * style_.margin;
}

int PlacedNotes::paintGlyphOf(QPainter& painter, const CalendarItem& sample, QPoint place) const {
    const int side = style_.smallLine - 2;
    for (const Glyph glyph : GlyphsOf(sample))
        PaintGlyph(painter, QRectF(place.x(), place.y() + 1, side, side), glyph, style_.ink);
    return side + style_.margin;
}

int PlacedNotes::entryWidth(const Entry& entry) const {
    return style_.smallLine + style_.margin + QFontMetrics(style_.small).horizontalAdvance(entry.word) +
           4 * style_.margin;
}

void PlacedNotes::paintHeading(QPainter& painter, const QRect& heading, int column) const {
    const QRect room = heading.adjusted(2 * style_.margin, style_.margin, -2 * style_.margin, -style_.margin);
    const QFontMetrics metrics(style_.small);
    painter.setFont(style_.small);
    painter.setPen(style_.ink);
    painter.drawText(QRect(room.left(), room.top(), room.width(), style_.smallLine),
                     Qt::AlignCenter | Qt::TextSingleLine,
                     metrics.elidedText(PaintedLine(notes_.owner), Qt::ElideRight, room.width()));
    int width = 0;
    const std::vector<Count>& counts = counts_[static_cast<std::size_t>(column) - 1];
    for (const Count& count : counts)
        width += style_.smallLine + 3 * style_.margin + metrics.horizontalAdvance(QString::number(count.items));
    int x = room.left() + std::max((room.width() - width) / 2, 0);
    const int y = room.bottom() - style_.smallLine + 1;
    painter.save();
    painter.setClipRect(room, Qt::IntersectClip);
    for (const Count& count : counts) {
        x += paintGlyphOf(painter, sampleOf(count.mark), {x, y});
        const QString number = QString::number(count.items);
        painter.setFont(style_.small);
        painter.setPen(style_.ink);
        painter.drawText(QRect(x, y, metrics.horizontalAdvance(number) + 1, style_.smallLine),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, number);
        x += metrics.horizontalAdvance(number) + 2 * style_.margin;
    }
    painter.restore();
}

void PlacedNotes::paintLegend(QPainter& painter, const QRect& area) const {
    int y = area.top() + 2 * style_.margin;
    for (const std::vector<Entry>& line : lines_) {
        int x = area.left();
        for (const Entry& entry : line) {
            const int glyph = paintGlyphOf(painter, entry.sample, {x, y});
            painter.setFont(style_.small);
            painter.setPen(style_.ink);
            painter.drawText(QRect(x + glyph, y, entryWidth(entry) - glyph, style_.smallLine),
                             Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, entry.word);
            x += entryWidth(entry);
        }
        y += style_.smallLine;
    }
}
