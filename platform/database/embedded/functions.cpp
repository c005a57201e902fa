#include "platform/database/embedded/functions.h"

#include <array>
#include <memory>

#include "platform/database/datetext.h"
#include "platform/database/embedded/datefunctions.h"
#include "platform/database/embedded/functioncall.h"
#include "platform/database/embedded/like.h"
#include "platform/database/embedded/names.h"
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

/// Null in, null out, as nearly all functions have it.
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

void giveQt(const FunctionCall& call, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    call.give(std::string_view(utf8.data(), static_cast<std::size_t>(utf8.size())));
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

void len(const FunctionCall& call) {
    call.give(qint64{ToQt(WithoutTrailingBlanks(call.text(0))).size()});
}

void upper(const FunctionCall& call) {
    giveQt(call, ToQt(call.text(0)).toUpper());
}

void lower(const FunctionCall& call) {
    giveQt(call, ToQt(call.text(0)).toLower());
}

void left(const FunctionCall& call) {
    giveQt(call, ToQt(call.text(0)).left(std::max<qint64>(call.integer(1), 0)));
}

void right(const FunctionCall& call) {
    giveQt(call, ToQt(call.text(0)).right(std::max<qint64>(call.integer(1), 0)));
}

/// Counted from 1; a start before the text shortens the length, as on the server.
void substring(const FunctionCall& call) {
    const qint64 start = call.integer(1) - 1;
    const qint64 end = start + std::max<qint64>(call.integer(2), 0);
    const qint64 from = std::max<qint64>(start, 0);
    giveQt(call, end > from ? ToQt(call.text(0)).mid(from, end - from) : QString());
}

void charIndex(const FunctionCall& call) {
    const qint64 from = call.count() > 2 ? std::max<qint64>(call.integer(2) - 1, 0) : 0;
    call.give(qint64{ToQt(call.text(1)).indexOf(ToQt(call.text(0)), from, Qt::CaseInsensitive) + 1});
}

/// svs_like(pattern, escape, part, ...): whether the parts, one after another, match.
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

/// A whole number where it is one, else a real.
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

/// + between operands whose types only their values tell: two texts are joined, anything else is added.
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

/// svs_cast(value, declared type): Convert and Cast to anything but text, with the checks of a column of that type.
void cast(const FunctionCall& call) {
    static const Table none;
    const TableColumn column{.name = {}, .type = ReadDeclaredType(call.text(1))};
    call.give(StoredCell(none, column, call.cell(0)));
}

/// svs_cast_text(value, length): Convert and Cast to text, cut to the length where that is above 0.
void castText(const FunctionCall& call) {
    const QString text = call.type(0) == SQLITE_FLOAT ? NumberText(call.real(0)) : ToQt(call.text(0));
    const auto length = static_cast<qsizetype>(call.integer(1));
    giveQt(call, length > 0 ? text.left(length) : text);
}

struct Definition {
    const char* name;
    int arguments;
    void (*body)(sqlite3_context*, int, sqlite3_value**);
};

constexpr int always = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

int registerFunctions(sqlite3* database, FunctionState* state) {
    static constexpr std::array definitions = {
        Definition{"len", 1, invokeUnlessNull<len>},
        Definition{"upper", 1, invokeUnlessNull<upper>},
        Definition{"lower", 1, invokeUnlessNull<lower>},
        Definition{"left", 2, invokeUnlessNull<left>},
        Definition{"right", 2, invokeUnlessNull<right>},
        Definition{"substring", 3, invokeUnlessNull<substring>},
        Definition{"charindex", 2, invokeUnlessNull<charIndex>},
        Definition{"charindex", 3, invokeUnlessNull<charIndex>},
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
        Definition{"svs_cast_text", 2, invokeUnlessNull<castText>},
    };
    for (const Definition& each : definitions)
        if (const int code = sqlite3_create_function_v2(database, each.name, each.arguments, always, state, each.body,
                                                        nullptr, nullptr, nullptr);
            code != SQLITE_OK)
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
