#include "platform/database/embedded/functions.h"

#include <array>
#include <memory>

#include "platform/database/datetext.h"
#include "platform/database/embedded/datefunctions.h"
#include "platform/database/embedded/functioncall.h"
#include "platform/database/embedded/like.h"
#include "platform/database/embedded/names.h"
#include "platform/database/embedded/numberfunctions.h"
#include "platform/database/embedded/textfunctions.h"
#include "platform/database/embedded/textorder.h"

namespace db::embedded {

namespace {

using Body = void (*)(const FunctionCall&);

template <Body body>
void invoke(sqlite3_context* context, int count, sqlite3_value** arguments) {
    try {
        body(FunctionCall(context, count, arguments));
    } catch (const DatabaseError& error) {
        ReportFault(context, static_cast<FunctionState*>(sqlite3_user_data(context)), error);
    }
}

/// Gives null where an argument is null, as nearly all functions do.
template <Body body>
void invokeUnlessNull(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (!FunctionCall(context, count, arguments).anyNull())
        invoke<body>(context, count, arguments);
}

template <int (*compare)(std::string_view, std::string_view)>
int collate(void*, int sizeA, const void* a, int sizeB, const void* b) {
    return compare({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                   {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
}

void getDate(const FunctionCall& call) {
    auto* state = static_cast<FunctionState*>(sqlite3_user_data(call.context()));
    std::string moment = state ? state->now : std::string();
    if (moment.empty())
        moment = CurrentMoment();
    if (state)
        state->now = moment;
    call.give(std::string_view(moment));
}

/// svs_like(pattern, escape, part, ...) tells whether the joined parts match.
void like(const FunctionCall& call) {
    auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(call.context(), 0));
    std::unique_ptr<LikePattern> made;
    if (!pattern) {
        std::string_view escape = call.text(1);
        made = std::make_unique<LikePattern>(call.text(0), escape.empty() ? 0 : TakeCharacter(escape));
        pattern = made.get();
    }
    constexpr std::size_t mostParts = 127;
    std::array<std::string_view, mostParts> parts;
    const std::size_t count = std::min(static_cast<std::size_t>(call.count()) - 2, mostParts);
    for (std::size_t i = 0; i < count; ++i)
        parts[i] = call.text(static_cast<int>(i) + 2);
    call.give(qint64{pattern->matches(parts.data(), count)});
    if (made)
        sqlite3_set_auxdata(call.context(), 0, made.release(),
                            [](void* old) { delete static_cast<LikePattern*>(old); });
}

/// Returns the argument as a whole number where it is one, else as a real.
Cell numberOf(const FunctionCall& call, int i) {
    static const SqlType whole = *MakeType("bigint");
    static const SqlType real = *MakeType("float");
    if (!call.isText(i))
        return call.cell(i);
    const std::string text(call.text(i));
    return NumberFromText(text, text.find_first_of(".eE") == std::string::npos ? whole : real);
}

double realOf(const Cell& cell) {
    const auto* whole = std::get_if<qint64>(&cell);
    return whole ? static_cast<double>(*whole) : std::get<double>(cell);
}

/// Adds two operands whose types only their values tell. Two texts are joined; anything else is added.
void add(const FunctionCall& call) {
    if (call.isText(0) && call.isText(1)) {
        call.give(std::string_view(std::string(call.text(0)).append(call.text(1))));
        return;
    }
    const Cell a = numberOf(call, 0);
    const Cell b = numberOf(call, 1);
    if (std::holds_alternative<qint64>(a) && std::holds_alternative<qint64>(b))
        call.give(std::get<qint64>(a) + std::get<qint64>(b));
    else
        call.give(realOf(a) + realOf(b));
}

/// svs_cast(value, declared type) serves Convert and Cast to any type but text, with the checks of a column of that
/// type.
void cast(const FunctionCall& call) {
    static const Table none;
    const TableColumn column{.name = {}, .type = ReadDeclaredType(call.text(1))};
    call.give(StoredCell(none, column, call.cell(0)));
}

/// svs_single(value) gives the value of a query's only row, or null where there is none. A second row is error 512.
struct Single {
    sqlite3_value* value;
};

void addToSingle(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
    auto* single = static_cast<Single*>(sqlite3_aggregate_context(context, sizeof(Single)));
    if (single && !single->value)
        single->value = sqlite3_value_dup(arguments[0]);
    else
        ReportFault(
            context, static_cast<FunctionState*>(sqlite3_user_data(context)),
            DatabaseError(
                512,
                QStringLiteral(
                    "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, <, <= , >, >= or when the subquery is used as an expression.")));
}

void giveSingle(sqlite3_context* context) {
    const auto* single = static_cast<Single*>(sqlite3_aggregate_context(context, 0));
    if (!single || !single->value)
        return;
    sqlite3_result_value(context, single->value);
    sqlite3_value_free(single->value);
}

struct Definition {
    const char* name;
    int arguments;
    void (*body)(sqlite3_context*, int, sqlite3_value**);
};

constexpr int always = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

int registerFunctions(sqlite3* database, FunctionState* state) {
    static constexpr std::array definitions = {
        Definition{"len", 1, invokeUnlessNull<Length>},
        Definition{"upper", 1, invokeUnlessNull<Upper>},
        Definition{"lower", 1, invokeUnlessNull<Lower>},
        Definition{"left", 2, invokeUnlessNull<Left>},
        Definition{"right", 2, invokeUnlessNull<Right>},
        Definition{"substring", 3, invokeUnlessNull<Substring>},
        Definition{"charindex", 2, invokeUnlessNull<CharIndex>},
        Definition{"charindex", 3, invokeUnlessNull<CharIndex>},
        Definition{"patindex", 2, invokeUnlessNull<PatIndex>},
        Definition{"svs_replace", 3, invokeUnlessNull<Replace>},
        Definition{"stuff", 4, invoke<Stuff>},
        Definition{"replicate", 2, invokeUnlessNull<Replicate>},
        Definition{"reverse", 1, invokeUnlessNull<Reverse>},
        Definition{"svs_char", 2, invokeUnlessNull<Character>},
        Definition{"ascii", 1, invokeUnlessNull<CodeOf>},
        Definition{"svs_divide", 2, invokeUnlessNull<Divide>},
        Definition{"svs_modulo", 2, invokeUnlessNull<Modulo>},
        Definition{"svs_int", 2, invokeUnlessNull<CheckedWhole>},
        Definition{"svs_round", 3, invokeUnlessNull<Round>},
        Definition{"svs_power", 2, invokeUnlessNull<Power>},
        Definition{"svs_sqrt", 1, invokeUnlessNull<SquareRoot>},
        Definition{"svs_money_text", 2, invokeUnlessNull<MoneyToText>},
        Definition{"isnumeric", 1, invoke<IsNumeric>},
        Definition{"isdate", 1, invoke<IsDate>},
        Definition{"datename", 2, invokeUnlessNull<DateName>},
        Definition{"svs_days", 1, invokeUnlessNull<DaysOf>},
        Definition{"svs_date_read", 2, invokeUnlessNull<StyledMoment>},
        Definition{"svs_date_minus", 2, invokeUnlessNull<DateMinus>},
        Definition{"day", 1, invokeUnlessNull<DayOf>},
        Definition{"month", 1, invokeUnlessNull<MonthOf>},
        Definition{"year", 1, invokeUnlessNull<YearOf>},
        Definition{"datepart", 2, invokeUnlessNull<DatePart>},
        Definition{"dateadd", 3, invokeUnlessNull<DateAdd>},
        Definition{"datediff", 3, invokeUnlessNull<DateDiff>},
        Definition{"svs_datetime", 1, invokeUnlessNull<ToMoment>},
        Definition{"svs_date_text", 3, invokeUnlessNull<DateToText>},
        Definition{"svs_date_plus", 2, invokeUnlessNull<DatePlusDays>},
        Definition{"svs_like", -1, invokeUnlessNull<like>},
        Definition{"svs_add", 2, invokeUnlessNull<add>},
        Definition{"svs_cast", 2, invokeUnlessNull<cast>},
        Definition{"svs_cast_text", 2, invokeUnlessNull<CastText>},
        Definition{"svs_cast_text", 3, invokeUnlessNull<CastText>},
    };
    for (const Definition& each : definitions)
        if (const int code = sqlite3_create_function_v2(database, each.name, each.arguments, always, state, each.body,
                                                        nullptr, nullptr, nullptr);
            code != SQLITE_OK)
            return code;
    const int code =
        sqlite3_create_function_v2(database, "svs_single", 1, always, state, nullptr, addToSingle, giveSingle, nullptr);
    if (code != SQLITE_OK)
        return code;
    return sqlite3_create_function_v2(database, "getdate", 0, SQLITE_UTF8 | SQLITE_INNOCUOUS, state, invoke<getDate>,
                                      nullptr, nullptr, nullptr);
}

}  // namespace

std::string CurrentMoment() {
    return IsoText(ToServerDateTime(QDateTime::currentDateTime()).value()).toStdString();
}

int RegisterDialect(sqlite3* database, FunctionState* state) {
    int code = sqlite3_create_collation_v2(database, "SVS_TEXT", SQLITE_UTF8, nullptr, collate<CompareTexts>, nullptr);
    if (code == SQLITE_OK)
        code = sqlite3_create_collation_v2(database, "SVS_DATETIME", SQLITE_UTF8, nullptr, collate<CompareDateTimes>,
                                           nullptr);
    return code == SQLITE_OK ? registerFunctions(database, state) : code;
}

}  // namespace db::embedded
