#pragma once

#include <string>
#include <string_view>

namespace db::embedded {

/// The character at the start of a UTF-8 text, taken off it; a broken byte is U+FFFD.
char32_t TakeCharacter(std::string_view& utf8);
void AppendCharacter(std::string& utf8, char32_t character);
/// In lower case.
char32_t FoldCharacter(char32_t character);

std::string_view WithoutTrailingBlanks(std::string_view text);

/// The server's default order of texts, less than, equal to or greater than 0: marks before digits before letters; the
/// case of letters and trailing blanks do not count; accents do, but only between words that are otherwise the same, so
/// that "Étienne" stands beside "Etienne" and is not it. Indexes are kept in this order: who changes it raises
/// TextOrderVersion.
int CompareTexts(std::string_view a, std::string_view b);

/// Of the order that the indexes of a file were made by; a file of an older one has them made anew when it is opened.
inline constexpr int TextOrderVersion = 1;

/// Date-times in whatever form they are written, as moments; what is no date stands as text among them.
int CompareDateTimes(std::string_view a, std::string_view b);

}  // namespace db::embedded
