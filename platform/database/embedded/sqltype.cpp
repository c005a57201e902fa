#include "platform/database/embedded/sqltype.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "platform/database/embedded/names.h"

namespace db::embedded {

namespace {

struct KnownType {
    std::string_view name;
    Kind kind;
    bool hasLength = false;
};

constexpr std::array<KnownType, 22> knownTypes = {{
    {"int", Kind::Integer},        {"integer", Kind::Integer},     {"smallint", Kind::Integer},
    {"tinyint", Kind::Integer},    {"bigint", Kind::Integer},      {"bit", Kind::Bit},
    {"float", Kind::Real},         {"real", Kind::Real},           {"money", Kind::Real},
    {"smallmoney", Kind::Real},    {"decimal", Kind::Real},        {"numeric", Kind::Real},
    {"varchar", Kind::Text, true}, {"nvarchar", Kind::Text, true}, {"char", Kind::Text, true},
    {"nchar", Kind::Text, true},   {"text", Kind::Text},           {"ntext", Kind::Text},
    {"sysname", Kind::Text},       {"datetime", Kind::DateTime},   {"smalldatetime", Kind::DateTime},
    {"date", Kind::DateTime},
}};

std::optional<int> readNumber(std::string_view text) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string_view::npos)
        return {};
    int number = 0;
    const auto read = std::from_chars(text.data() + start, text.data() + text.size(), number);
    return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

SqlType foreignType(const std::string& declared) {
    const auto has = [&](const char* word) { return declared.find(word) != std::string::npos; };
    if (has("int"))
        return *MakeType("bigint");
    if (has("char") || has("clob") || has("text"))
        return *MakeType("ntext");
    return *MakeType("float");
}

}  // namespace

std::optional<SqlType> MakeType(std::string_view name, std::optional<int> first, std::optional<int> second) {
    const std::string lower = LowerName(name);
    const auto* known =
        std::find_if(knownTypes.begin(), knownTypes.end(), [&](const KnownType& type) { return type.name == lower; });
    if (known == knownTypes.end())
        return {};
    SqlType type{.kind = known->kind, .name = lower == "integer" ? "int" : lower};
    if (known->hasLength)
        type.maxLength = first.value_or(1);
    if (lower == "money" || lower == "smallmoney")
        type.scale = 4;
    if (lower == "decimal" || lower == "numeric") {
        type.precision = first.value_or(18);
        type.scale = second.value_or(0);
    }
    return type;
}

std::string DeclaredType(const SqlType& type) {
    if (type.kind == Kind::DateTime)
        return type.name + " text";
    if (type.precision > 0)
        return type.name + "(" + std::to_string(type.precision) + "," + std::to_string(type.scale) + ")";
    if (type.kind == Kind::Text && type.name.find("char") != std::string::npos)
        return type.maxLength > 0 ? type.name + "(" + std::to_string(type.maxLength) + ")" : type.name + " max";
    return type.name;
}

SqlType ReadDeclaredType(std::string_view declared) {
    const std::string lower = LowerName(declared);
    const std::size_t open = lower.find_first_of("( ");
    const std::string name = lower.substr(0, open);
    std::optional<int> first = 0;
    std::optional<int> second;
    if (open != std::string::npos && lower[open] == '(') {
        const std::string_view numbers = std::string_view(lower).substr(open + 1);
        first = readNumber(numbers);
        if (const std::size_t comma = numbers.find(','); comma != std::string_view::npos)
            second = readNumber(numbers.substr(comma + 1));
    }
    const auto type = MakeType(name, first, second);
    return type ? *type : foreignType(lower);
}

ColumnType ToColumnType(Kind kind) {
    switch (kind) {
        case Kind::Bit:
            return ColumnType::Boolean;
        case Kind::Integer:
            return ColumnType::Integer;
        case Kind::Real:
            return ColumnType::Real;
        case Kind::DateTime:
            return ColumnType::DateTime;
        case Kind::Unknown:
        case Kind::Null:
        case Kind::Text:
            break;
    }
    return ColumnType::Text;
}

}  // namespace db::embedded
