#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace db::embedded {

/// Names and keywords compare without regard to the case of ASCII letters, as SQLite itself compares them.
bool SameName(std::string_view a, std::string_view b);
std::string LowerName(std::string_view name);

QString ToQt(std::string_view utf8);

/// Returns "name" for SQLite. Quotes inside are doubled.
std::string QuotedName(std::string_view name);
/// Returns 'text' for SQLite. Quotes inside are doubled.
std::string QuotedText(std::string_view text);

/// Adds an item to a list, after a comma where the list is not empty.
void AppendToList(std::string& list, std::string_view item);

}  // namespace db::embedded
