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

/// The server's default order of texts, less than, equal to or greater than 0: the case of letters and trailing blanks
/// do not count; accents do, but only between words that are otherwise the same, so that "Étienne" stands beside
/// "Etienne" and is not it.
int CompareTexts(std::string_view a, std::string_view b);

/// Date-times in whatever form they are written, as moments; what is no date stands as text among them.
int CompareDateTimes(std::string_view a, std::string_view b);

}  // namespace db::embedded
