#pragma once

#include <QRect>
#include <QString>
#include <vector>

#include "platform/calendar/content.h"
#include "platform/calendar/style.h"

class QPainter;

/// What a page of a calendar tells besides the calendar itself.
struct PageNotes {
    QString owner;          ///< Whose columns these are; it stands above each heading. It may be empty.
    bool statuses = false;  ///< Whether the headings count the statuses, and a legend explains the glyphs.
};

/// The notes of one page, with the room that they take.
class PlacedNotes {
  public:
    /// `page` holds the columns of the page with all their items, also those without room in the grid.
    PlacedNotes(PageNotes notes, const CalendarContent& page, const CalendarStyle& style, int width);

    /// Returns the height of the headings with the notes in them.
    [[nodiscard]] int headingHeight() const;
    /// Returns the height of the legend, or 0 for a page that has nothing to explain.
    [[nodiscard]] int legendHeight() const;
    /// Paints the notes of a column, counted from 1, into its heading.
    void paintHeading(QPainter& painter, const QRect& heading, int column) const;
    void paintLegend(QPainter& painter, const QRect& area) const;

  private:
    /// How many items of a column have a status.
    struct Count {
        StatusMark mark = StatusMark::None;
        int items = 0;
    };
    /// An item that has nothing but a glyph, and the word for the glyph.
    struct Entry {
        CalendarItem sample;
        QString word;
    };

    void count(const CalendarContent& page);
    void collectLegend(const CalendarContent& page);
    [[nodiscard]] int paintGlyphOf(QPainter& painter, const CalendarItem& sample, QPoint place) const;
    [[nodiscard]] int entryWidth(const Entry& entry) const;

    PageNotes notes_;
    CalendarStyle style_;
    std::vector<std::vector<Count>> counts_;  ///< By column.
    std::vector<std::vector<Entry>> lines_;   ///< The legend.
};
