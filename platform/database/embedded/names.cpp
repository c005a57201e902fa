#include "platform/database/embedded/names.h"

#include <algorithm>

namespace db::embedded {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::string quoted(std::string_view text, char quote) {
    std::string result(1, quote);
    for (const char c : text) {
        if (c == quote)
            result.push_back(quote);
        result.push_back(c);
    }
    result.push_back(quote);
    return result;
}

}  // namespace

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); });
}

std::string LowerName(std::string_view name) {
    std::string result(name);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string QuotedName(std::string_view name) {
    return quoted(name, '"');
}

std::string QuotedText(std::string_view text) {
    return quoted(text, '\'');
}

void AppendToList(std::string& list, std::string_view item) {
    if (!list.empty())
        list.append(", ");
    list.append(item);
}

}  // namespace db::embedded
