#pragma once

#include <array>
#include <optional>
#include <QFont>

/// The places of the title lines on paper. The values are those of the option "TitleAlign".
enum class TitlePlace { Left = 0, Right = 1, Center = 2 };

/// The options by which the views are printed: the user's preferences of the category "PrintLayout", or what
/// svwsched.ini holds in the section of that name.
struct PrintOptions {
    QFont titleFont;  ///< The font of the title lines.
    QFont timeFont;   ///< The font of the time column.
    TitlePlace titlePlace = TitlePlace::Left;
    std::optional<int> timeUnit;  ///< The minutes of a row: 5, 10, 15 or 30; nothing for those of the screen.
    bool weekends = false;        ///< Whether the week is printed with Saturday and Sunday.
    int columnsPerPage = 5;       ///< How many providers stand beside each other on a page, 1 to 9.
    bool taskBar = false;         ///< Whether the colours of the appointments are printed beside them.
    bool timeStats = false;       ///< Whether a room's day tells how long the room is booked. No form changes it.

    /// The minutes of a row that can be chosen, in the order of the option "TimeUnits".
    static constexpr std::array<int, 4> TimeUnits{5, 10, 15, 30};
    static constexpr int LeastColumns = 1;
    static constexpr int MostColumns = 9;
    static constexpr double LeastPoints = 4;
    static constexpr double MostPoints = 72;

    friend bool operator==(const PrintOptions&, const PrintOptions&) = default;
};

/// Returns how a text in that place is aligned.
[[nodiscard]] Qt::Alignment AlignmentOf(TitlePlace place);

/// Returns the place of these minutes in TimeUnits, or -1.
[[nodiscard]] int PlaceOfTimeUnit(std::optional<int> minutes);

/// Reads the options. A value that is missing or makes no sense is the one that a new PrintOptions has. A missing font
/// is Arial; a missing size is 8.25 points, as the program writes it into a svwsched.ini that has none.
[[nodiscard]] PrintOptions ReadPrintOptions();

/// Stores the options as the user's own, all or none, and returns whether that succeeded. `read` is what the user
/// began with: an option that is unchanged since then and that the user has already stored stays as it is now, because
/// the same user may have changed it at another desk in the meantime.
[[nodiscard]] bool StorePrintOptions(const PrintOptions& read, const PrintOptions& wanted);
