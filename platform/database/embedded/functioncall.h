#pragma once

#include <string_view>
#include <utility>

#include "platform/database/embedded/functions.h"
#include "platform/database/embedded/sqliteapi.h"
#include "platform/database/embedded/store.h"
#include "platform/database/error.h"

namespace db::embedded {

/// The arguments and the result of one call that SQLite makes to a function. Arguments count from 0.
class FunctionCall {
  public:
    FunctionCall(sqlite3_context* context, int count, sqlite3_value** arguments)
        : context_(context), count_(count), arguments_(arguments) {}

    [[nodiscard]] int count() const { return count_; }
    [[nodiscard]] sqlite3_context* context() const { return context_; }
    [[nodiscard]] int type(int i) const { return sqlite3_value_type(arguments_[i]); }
    [[nodiscard]] bool isNull(int i) const { return type(i) == SQLITE_NULL; }
    [[nodiscard]] bool anyNull() const {
        for (int i = 0; i < count_; ++i)
            if (isNull(i))
                return true;
        return false;
    }
    [[nodiscard]] bool isText(int i) const { return type(i) == SQLITE_TEXT; }
    [[nodiscard]] std::string_view text(int i) const {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(arguments_[i]));
        return {bytes ? bytes : "", static_cast<std::size_t>(sqlite3_value_bytes(arguments_[i]))};
    }
    [[nodiscard]] qint64 integer(int i) const { return sqlite3_value_int64(arguments_[i]); }
    [[nodiscard]] double real(int i) const { return sqlite3_value_double(arguments_[i]); }
    [[nodiscard]] sqlite3_value* value(int i) const { return arguments_[i]; }
    [[nodiscard]] Cell cell(int i) const {
        switch (type(i)) {
            case SQLITE_NULL:
                return {};
            case SQLITE_INTEGER:
                return integer(i);
            case SQLITE_FLOAT:
                return real(i);
            default:
                return std::string(text(i));
        }
    }

    void give(qint64 number) const { sqlite3_result_int64(context_, number); }
    void give(double number) const { sqlite3_result_double(context_, number); }
    void give(std::string_view text) const {
        sqlite3_result_text(context_, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    }
    void give(const Cell& cell) const {
        if (const auto* whole = std::get_if<qint64>(&cell))
            give(*whole);
        else if (const auto* number = std::get_if<double>(&cell))
            give(*number);
        else if (const auto* text = std::get_if<std::string>(&cell))
            give(std::string_view(*text));
    }

  private:
    sqlite3_context* context_;
    int count_;
    sqlite3_value** arguments_;
};

/// Reports a failure of a function: its number goes to the state, where the engine finds it, and its sentence to
/// SQLite.
inline void ReportFault(sqlite3_context* context, FunctionState* state, const DatabaseError& error) {
    if (state)
        state->fault = error.number;
    sqlite3_result_error(context, error.what(), -1);
}

}  // namespace db::embedded
