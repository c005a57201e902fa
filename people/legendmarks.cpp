#include "people/legendmarks.h"

#include <algorithm>
#include <QPainter>

#include "data/codes.h"
#include "platform/calendar/card.h"
#include "platform/calendar/colour.h"
#include "platform/calendar/glyphs.h"
#include "platform/calendar/painting.h"

namespace {

const QDate AnyDay(2026, 3, 11);
constexpr int From = 540;
constexpr int To = 600;
constexpr int HoursWithoutWork = 0x808080;

LegendMark picture(Glyph glyph, const char* meaning) {
    return {[glyph](QPainter& painter, const QRect& rect, const CalendarStyle& style) {
                QRectF square(0, 0, style.icon, style.icon);
                square.moveCenter(QRectF(rect).center());
                PaintGlyph(painter, square, glyph, style.ink);
            },
            QString::fromLatin1(meaning)};
}

LegendMark card(const char* meaning, const std::function<void(CalendarItem& item, CardState& state)>& change) {
    CalendarItem item;
    item.ItemText = QStringLiteral("Name");
    CardState shown;
    change(item, shown);
    return {[item, shown](QPainter& painter, const QRect& rect, const CalendarStyle& style) {
                CardState state = shown;
                state.start = From;
                state.end = To;
                PaintCard(painter, rect, item, state, style);
            },
            QString::fromLatin1(meaning)};
}

LegendMark card(int color, StatusMark mark, const char* meaning) {
    return card(meaning, [&](CalendarItem& item, CardState&) {
        item.ItemColor = color;
        item.ItemStatusMark = mark;
    });
}

/// A piece of an empty day as the calendar itself paints it.
LegendMark time(const std::function<void(CalendarContent& content, CalendarState& state)>& change,
                const char* meaning) {
    return {[change](QPainter& painter, const QRect& rect, const CalendarStyle& style) {
                CalendarContent content;
                content.date = AnyDay;
                content.columns = {{{}, AnyDay}};
                content.firstTime = From;
                content.lastTime = To - 1;
                CalendarState state;
                change(content, state);
                CalendarGrid grid;
                grid.area = rect;
                grid.columns = 1;
                grid.columnWidth = rect.width();
                grid.scale = {From, To, To - From, static_cast<double>(rect.height()) / (To - From)};
                painter.setClipRect(rect, Qt::IntersectClip);
                PaintColumn({painter, content, LayOut(content, 1), grid, state, style}, 1, rect);
            },
            QString::fromLatin1(meaning)};
}

LegendMark presentTime() {
    return time([](CalendarContent&, CalendarState& state) { state.now = QDateTime(AnyDay, QTime(9, 30)); },
                "The time now");
}

}  // namespace

std::vector<LegendMark> AppointmentMarks() {
    return {
        card(ncolor::CheckedIn, StatusMark::CheckedIn, "Checked in"),
        card(ncolor::PatientCancelled, StatusMark::Cancelled, "Cancelled, with its time free"),
        card(ncolor::Tentative, StatusMark::Tentative, "Tentative (hatched)"),
        card(ncolor::AppointmentType, StatusMark::TypeSlot, "Open slot of a type"),
        card("On the shelf",
             [](CalendarItem& item, CardState&) {
                 item.ItemColor = ncolor::Pending;
                 item.ItemShelved = true;
             }),
        card("Selected appointment",
             [](CalendarItem& item, CardState& state) {
                 item.ItemColor = ncolor::Pending;
                 state.selected = state.focused = true;
             }),
        picture(Glyph::Confirmed, "Call: confirmed"),
        picture(Glyph::MessageLeft, "Call: left message"),
        picture(Glyph::NoAnswer, "Call: no answer or busy"),
        picture(Glyph::Declined, "Call: declined"),
        picture(Glyph::Series, "One of a series"),
        picture(Glyph::Note, "Note"),
        picture(Glyph::SessionNote, "Session note"),
        picture(Glyph::Reminder, "Reminder"),
        picture(Glyph::Location, "Place"),
        picture(Glyph::Bound, "Bound to its appointment"),
        presentTime(),
        time(
            [](CalendarContent& content, CalendarState&) {
                content.ranges = {{From, To - 1, HoursWithoutWork, 0, {}}};
            },
            "Hours without work"),
        time(
            [](CalendarContent&, CalendarState& state) {
                state.range = SelectedTime{1, From + 15, To - 15};
                state.focused = true;
            },
            "Selected time"),
        time([](CalendarContent& content, CalendarState&) { content.dayBackColor = ncolor::Holiday; },
             "Day with a holiday"),
    };
}

std::vector<LegendMark> CompanionMarks() {
    return {
        picture(Glyph::Charged, "Charged"),
        picture(Glyph::Series, "One of a series"),
        picture(Glyph::Note, "Note"),
        picture(Glyph::SessionNote, "Session note"),
        picture(Glyph::Confirmed, "Call: confirmed"),
        picture(Glyph::MessageLeft, "Call: left message"),
        picture(Glyph::NoAnswer, "Call: no answer or busy"),
        picture(Glyph::Declined, "Call: declined"),
        presentTime(),
    };
}
