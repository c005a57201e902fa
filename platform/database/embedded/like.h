#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace db::embedded {

/// A pattern of Like: % for any characters, _ for one, [a-f] for one of a set and [^a-f] for one outside it. The case
/// of letters and the blanks at the end of the text do not count.
class LikePattern {
  public:
    /// `escape` is the character that takes away the meaning of the one after it; 0 means none.
    explicit LikePattern(std::string_view pattern, char32_t escape = 0);

    /// Whether the joined parts match. The parts are not copied into one text, because 100,000 names are searched at
    /// each key.
    [[nodiscard]] bool matches(const std::string_view* parts, std::size_t count) const;
    [[nodiscard]] bool matches(std::string_view text) const { return matches(&text, 1); }

  private:
    struct Range {
        char32_t first;
        char32_t last;
    };
    struct Step {
        enum class Kind { One, AnyOne, AnyMany, Set, Never } kind = Kind::One;
        char32_t character = 0;
        bool outside = false;
        std::vector<Range> ranges;
    };
    static Step readSet(std::string_view& rest);
    static bool fits(const Step& step, char32_t character);
    [[nodiscard]] bool matchesFolded(std::u32string_view text) const;

    std::vector<Step> steps_;
};

/// Returns the characters before the first wildcard, with which every match starts.
std::string LikePrefix(std::string_view pattern);

}  // namespace db::embedded
