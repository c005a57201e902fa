#pragma once

#include <optional>
#include <QDate>
#include <QMetaType>
#include <QString>

/// How the text of an item is drawn. SameAsBackground hides it from people who look at the screen: neither the card,
/// the tool tip, the accessible name nor editing in place shows it.
enum class TextColor { Normal, SameAsBackground };

/// The state of an item. Each state can be told without colour. Each has a glyph of its own; in addition Tentative and
/// Unavailable are hatched, Cancelled is struck through, and TypeSlot has a dashed outline.
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
/// ignored when painting). Times are minutes since midnight. Any number is kept, and drawing brings it into the day.
struct CalendarItem {
    QString ItemKey;
    QString ItemText;
    int ItemStart = 0;                 ///< 0 to 1440.
    int ItemEnd = 0;                   ///< 0 to 1440.
    QDate ItemDay;                     ///< A null day means the control's date.
    int ItemColumn = -1;               ///< From 1. -1 places the item by ItemDay (in provider columns: in the first).
    int ItemColor = 0xFF0000;          ///< The strong edge. The card is a soft tint of it.
    std::optional<int> ItemBackColor;  ///< The fill of the card, where set.
    TextColor ItemTextColor = TextColor::Normal;
    QString ItemNote;      ///< Free for the view's own use; never shown (see ItemTip).
    QString ItemTip;       ///< The note in the tool tip; empty for none.
    QString ItemLocation;  ///< Shown under the text where there is room, and in the tool tip.
    bool ItemLocationIcon = false;
    bool ItemReminderIcon = false;
    bool ItemTentativeIcon = false;
    bool ItemNoteIcon = false;
    int ItemSessionIcon = 0;  ///< Above 0 a session note is linked.
    int ItemSeriesIcon = 0;   ///< Above 0 the item belongs to a series.
    /// The status picture: 0 or -1 none, 1 note, 2 charged, 3 checked in. The courtesy call: 4 message left, 5 no
    /// answer or busy, 6 declined, 7 confirmed.
    int ItemStatusIcon = 0;
    StatusMark ItemStatusMark = StatusMark::None;
    QString ItemStatusText;   ///< "Kept", "Missed" ..., for the tool tip and the accessible name.
    bool ItemBanner = false;  ///< A holiday marker, shown under the heading and not over the day.
    bool ItemBound = false;   ///< Belongs to something that is changed elsewhere; a padlock marks it.
    bool ItemTextLocked = false;
    bool ItemMoveLocked = false;
    bool ItemShelved = false;  ///< Has been put aside to be moved; it stays booked here until then.

    friend bool operator==(const CalendarItem&, const CalendarItem&) = default;
};

/// The present or proposed place of an item.
struct ItemPlace {
    int column = 1;  ///< 1-based.
    QDate day;       ///< The date of the column.
    int start = 0;
    int end = 0;

    friend bool operator==(const ItemPlace&, const ItemPlace&) = default;
};

Q_DECLARE_METATYPE(ItemPlace)
