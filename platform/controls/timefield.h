#pragma once

#include <optional>
#include <QString>

/// How a time field reads and writes a time.
struct TimeForm {
    bool twentyFourHour = false;
    /// The field holds the end of something, so that "midnight" means the end of the day.
    bool isEnd = false;
    friend bool operator==(const TimeForm&, const TimeForm&) = default;
};

/// Reads a time that a person types and returns its minutes since midnight (0 to 1440): "9", "930", "9:30", "9.30p",
/// "14", "2:15 pm", "9a", "noon", "mid". Returns nothing for a text with no certain meaning.
///
/// Without am or pm, a twelve-hour field takes 1 to 6 for the afternoon, because nobody books those hours at night. A
/// leading zero ("0530") keeps the morning. "24:00" ends the day, "0:00" and "12a" begin it, and "mid" depends on
/// `form.isEnd`.
[[nodiscard]] std::optional<int> ReadTime(const QString& text, const TimeForm& form);

/// Returns "9:05 AM", or "09:05" in a twenty-four hour field. Each minute from 0 to 1440 has its own text, which
/// ReadTime reads back. Minute 0 is "12:00 AM". Minute 1440 is "12:00 Mid" in a twelve-hour end field and "24:00" in
/// any other. Returns an empty text for any other number.
[[nodiscard]] QString TimeFieldText(int minutes, const TimeForm& form);
