#pragma once

#include <optional>
#include <QDate>
#include <QMetaType>
#include <QString>

/// How the text of an item is drawn. SameAsBackground hides it from readers over the shoulder: it cannot be read on the
/// card, and neither the tool tip, the accessible name nor in-place editing gives it away.
enum class TextColor { Normal, SameAsBackground };

/// What state an item is in, told by glyph and pattern so that nobody needs the colour: Tentative is hatched, Cancelled
/// struck through, Unavailable hatched, TypeSlot dashed, and every one has a glyph of its own.
enum class StatusMark {
    None,
    Pending,
    Tentative,
    CheckedIn,
    Kept,
    Missed,
    Cancelled,
    Group,
    Activity,
    Unavailable,
    TypeSlot
};

/// One entry of a calendar, a plain value. Colours are Windows colour values (0xBBGGRR; bits above the low 24 are
/// ignored when painting). Times are minutes since midnight; whatever they hold is kept, and drawing clamps them.
struct CalendarItem {
    QString ItemKey;
    QString ItemText;
    int ItemStart = 0;                 ///< 0 to 1440.
    int ItemEnd = 0;                   ///< 0 to 1440.
    QDate ItemDay;                     ///< Null: the control's Date.
    int ItemColumn = -1;               ///< 1-based; -1: placed by ItemDay (in provider columns: the first column).
    int ItemColor = 0xFF0000;          ///< The strong edge; a soft tint of it is the card.
    std::optional<int> ItemBackColor;  ///< Fills the card where set.
    TextColor ItemTextColor = TextColor::Normal;
    QString ItemNote;      ///< Free for the view; never shown (see ItemTip).
    QString ItemTip;       ///< Note text for the tool tip; empty: none.
    QString ItemLocation;  ///< Shown under the text where there is room, and in the tool tip.
    bool ItemLocationIcon = false;
    bool ItemReminderIcon = false;
    bool ItemTentativeIcon = false;
    bool ItemNoteIcon = false;
    int ItemSessionIcon = 0;  ///< Above 0: a session note is linked.
    int ItemSeriesIcon = 0;   ///< Above 0: one of a series.
    /// Status picture: 0 or -1 none, 1 note, 2 charged, 3 checked in; courtesy call: 4 message left, 5 no answer or
    /// busy, 6 declined, 7 confirmed.
    int ItemStatusIcon = 0;
    StatusMark ItemStatusMark = StatusMark::None;
    QString ItemStatusText;   ///< "Kept", "Missed" ...: in the tool tip and the accessible name.
    bool ItemBanner = false;  ///< Holiday marker: stands under the heading instead of covering the day.
    bool ItemBound = false;   ///< Belongs to something that is changed elsewhere; a padlock tells it.
    bool ItemTextLocked = false;
    bool ItemMoveLocked = false;

    friend bool operator==(const CalendarItem&, const CalendarItem&) = default;
};

/// Where an item stands or is to stand.
struct ItemPlace {
    int column = 1;  ///< 1-based.
    QDate day;       ///< The date of the column.
    int start = 0;
    int end = 0;

    friend bool operator==(const ItemPlace&, const ItemPlace&) = default;
};

Q_DECLARE_METATYPE(ItemPlace)
