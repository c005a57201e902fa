// Which pictures an item has, and in what order.

#include "platform/calendar/glyphs.h"

#include <gtest/gtest.h>

#include <functional>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>

namespace {

struct Row {
    const char* what;
    std::function<void(CalendarItem&)> make;
    std::vector<Glyph> glyphs;
};

const Row Rows[] = {
    {"nothing", [](CalendarItem&) {}, {}},
    {"pending", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Pending; }, {Glyph::Pending}},
    {"tentative", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Tentative; }, {Glyph::Tentative}},
    {"checked in", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::CheckedIn; }, {Glyph::CheckedIn}},
    {"kept", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Kept; }, {Glyph::Kept}},
    {"missed", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Missed; }, {Glyph::Missed}},
    {"cancelled", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Cancelled; }, {Glyph::Cancelled}},
    {"group", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Group; }, {Glyph::Group}},
    {"activity", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Activity; }, {Glyph::Activity}},
    {"unavailable", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::Unavailable; }, {Glyph::Unavailable}},
    {"open slot", [](CalendarItem& item) { item.ItemStatusMark = StatusMark::TypeSlot; }, {Glyph::TypeSlot}},
    {"bound", [](CalendarItem& item) { item.ItemBound = true; }, {Glyph::Bound}},
    {"tentative picture", [](CalendarItem& item) { item.ItemTentativeIcon = true; }, {Glyph::Tentative}},
    {"note", [](CalendarItem& item) { item.ItemStatusIcon = 1; }, {Glyph::Note}},
    {"charged", [](CalendarItem& item) { item.ItemStatusIcon = 2; }, {Glyph::Charged}},
    {"checked-in picture", [](CalendarItem& item) { item.ItemStatusIcon = 3; }, {Glyph::CheckedIn}},
    {"message left", [](CalendarItem& item) { item.ItemStatusIcon = 4; }, {Glyph::MessageLeft}},
    {"no answer", [](CalendarItem& item) { item.ItemStatusIcon = 5; }, {Glyph::NoAnswer}},
    {"declined", [](CalendarItem& item) { item.ItemStatusIcon = 6; }, {Glyph::Declined}},
    {"confirmed", [](CalendarItem& item) { item.ItemStatusIcon = 7; }, {Glyph::Confirmed}},
    {"unknown picture", [](CalendarItem& item) { item.ItemStatusIcon = 8; }, {}},
    {"no picture", [](CalendarItem& item) { item.ItemStatusIcon = -1; }, {}},
    {"banner", [](CalendarItem& item) { item.ItemBanner = true; }, {Glyph::Holiday}},
    {"session note", [](CalendarItem& item) { item.ItemSessionIcon = 1; }, {Glyph::SessionNote}},
    {"series", [](CalendarItem& item) { item.ItemSeriesIcon = 9; }, {Glyph::Series}},
    {"text note", [](CalendarItem& item) { item.ItemNoteIcon = true; }, {Glyph::Note}},
    {"reminder", [](CalendarItem& item) { item.ItemReminderIcon = true; }, {Glyph::Reminder}},
    {"place", [](CalendarItem& item) { item.ItemLocationIcon = true; }, {Glyph::Location}},
};

QImage drawn(Glyph glyph, const QColor& colour, double side, double ratio = 1, bool turned = false) {
    QImage image(QSize(40, 40) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    if (turned)
        painter.rotate(0.0001);  // Whatever is not plain is drawn line by line.
    PaintGlyph(painter, QRectF(10, 10, side, side), glyph, colour);
    return image;
}

QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != QColor(Qt::white))
                ink |= QRect(x, y, 1, 1);
    return ink;
}

}  // namespace

TEST(Glyphs, EachFactHasItsOwn) {
    for (const Row& row : Rows) {
        CalendarItem item;
        row.make(item);
        EXPECT_EQ(GlyphsOf(item), row.glyphs) << row.what;
    }
}

TEST(Glyphs, TheMostTellingStandsFirstAndNoneTwice) {
    CalendarItem item;
    item.ItemStatusMark = StatusMark::Kept;
    item.ItemBound = item.ItemTentativeIcon = item.ItemBanner = true;
    item.ItemNoteIcon = item.ItemReminderIcon = item.ItemLocationIcon = true;
    item.ItemSessionIcon = item.ItemSeriesIcon = 1;
    item.ItemStatusIcon = 7;
    EXPECT_EQ(GlyphsOf(item),
              (std::vector<Glyph>{Glyph::Kept, Glyph::Bound, Glyph::Tentative, Glyph::Confirmed, Glyph::Holiday,
                                  Glyph::SessionNote, Glyph::Series, Glyph::Note, Glyph::Reminder, Glyph::Location}));
    item.ItemStatusIcon = 1;
    EXPECT_EQ(GlyphsOf(item),
              (std::vector<Glyph>{Glyph::Kept, Glyph::Bound, Glyph::Tentative, Glyph::Note, Glyph::Holiday,
                                  Glyph::SessionNote, Glyph::Series, Glyph::Reminder, Glyph::Location}))
        << "a note that is told twice";
}

TEST(Glyphs, CallsAndStatusesHaveWords) {
    const char* words[] = {"",         "Note",      "Charged", "Checked-In", "Left message", "No answer or busy",
                           "Declined", "Confirmed", ""};
    for (int icon = 0; icon <= 8; ++icon)
        EXPECT_EQ(StatusIconText(icon), words[icon]) << icon;
    EXPECT_EQ(StatusIconText(-1), "");
}

TEST(Glyphs, AreDrawnInsideTheirSquareInTheirColourAlsoASecondTime) {
    QPixmapCache::clear();
    for (int number = 0; number <= static_cast<int>(Glyph::Holiday); ++number) {
        const auto glyph = static_cast<Glyph>(number);
        for (int time = 0; time < 2; ++time) {
            const QImage red = drawn(glyph, Qt::red, 16);
            EXPECT_TRUE(QRect(10, 10, 16, 16).contains(inkOf(red))) << number;
            EXPECT_GT(inkOf(red).width(), 5) << number;
            EXPECT_GT(inkOf(red).height(), 5) << number;
            EXPECT_NE(red, drawn(glyph, Qt::blue, 16)) << number << " in another colour";
            EXPECT_NE(red, drawn(glyph, Qt::red, 12)) << number << " in another size";
        }
    }
}

TEST(Glyphs, HaveSmoothEdges) {
    QPixmapCache::clear();
    for (const bool fresh : {false, true}) {
        const QImage slanted = drawn(Glyph::Missed, Qt::black, 16, 1, fresh);
        int between = 0;
        for (int y = 0; y < slanted.height(); ++y)
            for (int x = 0; x < slanted.width(); ++x)
                between += std::abs(qGray(slanted.pixel(x, y)) - 128) < 110 ? 1 : 0;
        EXPECT_GT(between, 20) << (fresh ? "drawn" : "kept");
    }
}

TEST(Glyphs, OnAFineScreenAreAsFineAsIt) {
    for (int number = 0; number <= static_cast<int>(Glyph::Holiday); ++number) {
        const auto glyph = static_cast<Glyph>(number);
        const QImage fine = drawn(glyph, Qt::black, 16, 2);
        EXPECT_TRUE(QRect(20, 20, 32, 32).contains(inkOf(fine))) << number;
        EXPECT_GT(inkOf(fine).height(), 14) << number;
        EXPECT_NE(fine, drawn(glyph, Qt::black, 16).scaled(80, 80)) << number << " is not a larger coarse one";
    }
}

TEST(Glyphs, KeptPicturesAndFreshDrawingsAreTheSame) {
    for (int number = 0; number <= static_cast<int>(Glyph::Holiday); ++number) {
        const auto glyph = static_cast<Glyph>(number);
        const QImage kept = drawn(glyph, Qt::black, 16);
        const QImage fresh = drawn(glyph, Qt::black, 16, 1, true);
        int different = 0;
        for (int y = 0; y < 40; ++y)
            for (int x = 0; x < 40; ++x)
                different += std::abs(qGray(kept.pixel(x, y)) - qGray(fresh.pixel(x, y))) > 40 ? 1 : 0;
        EXPECT_LE(different, 4) << number;
    }
}
