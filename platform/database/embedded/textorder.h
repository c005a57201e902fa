#pragma once

#include <string>
#include <string_view>

namespace db::embedded {

/// Takes the first character off a UTF-8 text and returns it. A broken byte is U+FFFD.
char32_t TakeCharacter(std::string_view& utf8);
void AppendCharacter(std::string& utf8, char32_t character);
/// Returns the character in lower case.
char32_t FoldCharacter(char32_t character);

std::string_view WithoutTrailingBlanks(std::string_view text);

/// Compares two texts in the server's default order; the result is below, equal to or above 0. Marks come before digits
/// and digits before letters. The case of letters and trailing blanks do not count. Accents count only between words
/// that are otherwise the same, so that "Étienne" stands beside "Etienne" and is not equal to it. Indexes are kept in
/// this order: whoever changes it raises TextOrderVersion.
int CompareTexts(std::string_view a, std::string_view b);

/// The version of the order by which the indexes of a file are made. A file with an older version has its indexes made
/// anew when it is opened.
inline constexpr int TextOrderVersion = 1;

/// Compares two date-times as moments, whatever form they are written in. A text that is no date is compared as a text.
int CompareDateTimes(std::string_view a, std::string_view b);

}  // namespace db::embedded
