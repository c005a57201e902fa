#pragma once

#include <string>

struct sqlite3;

namespace db::embedded {

/// What the functions of one connection share with its engine.
struct FunctionState {
    std::string now;  ///< The moment of the statement that runs, so that all its GetDate are one.
    int fault = 0;    ///< The server's number for the failure that a function reported last.
};

/// The server's texts and moments for a connection: the collations SVS_TEXT and SVS_DATETIME and the functions that
/// translated statements call. The state must outlive the connection; without one GetDate reads the clock each time.
int RegisterDialect(sqlite3* database, FunctionState* state);

/// The clock in the stored form of a date-time.
std::string CurrentMoment();

}  // namespace db::embedded
