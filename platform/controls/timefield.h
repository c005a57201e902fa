#pragma once

#include <optional>
#include <QString>

/// How a time field reads and writes.
struct TimeForm {
    bool twentyFourHour = false;
    /// The field holds the end of something: midnight named as a word is then the one that ends the day.
    bool isEnd = false;
    friend bool operator==(const TimeForm&, const TimeForm&) = default;
};

/// Minutes since midnight (0 to 1440) of what a person types: "9", "930", "9:30", "9.30p", "14", "2:15 pm", "9a",
/// "noon", "mid". Nothing for what cannot be told for sure.
///
/// Without am or pm a twelve-hour field takes 1 to 6 for the afternoon, since nobody books those hours at night; a
/// leading zero ("0530") keeps the morning. "24:00" ends the day, "0:00" and "12a" begin it, "mid" does what the field
/// is for.
[[nodiscard]] std::optional<int> ReadTime(const QString& text, const TimeForm& form);

/// "9:05 AM", or "09:05" with the twenty-four hour setting. Each minute 0 to 1440 has its own text, which ReadTime
/// reads back: midnight is "12:00 AM" at the start of the day, and "12:00 Mid" in an end field or "24:00" at its end.
/// Empty for any other number.
[[nodiscard]] QString TimeFieldText(int minutes, const TimeForm& form);
