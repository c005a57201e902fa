#pragma once

#include <string>

struct sqlite3;

namespace db::embedded {

/// The state that the functions of one connection share with its engine.
struct FunctionState {
    std::string now;  ///< The moment of the running statement, so that all its GetDate agree.
    int fault = 0;    ///< The server's number for the failure that a function reported last.
};

/// Registers the server's dialect with a connection: the collations SVS_TEXT and SVS_DATETIME and the functions that
/// translated statements call. Returns SQLite's result code. The state must outlive the connection; it may be null, and
/// GetDate then reads the clock each time.
int RegisterDialect(sqlite3* database, FunctionState* state);

/// Returns the current time in the stored form of a date-time.
std::string CurrentMoment();

}  // namespace db::embedded
