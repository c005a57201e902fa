#pragma once

#include "platform/database/connection.h"

namespace db {

/// Runs a step within one transaction. The transaction is committed when the step returns. It is rolled back when the
/// step or the commit throws, and the error goes on to the caller. Throws at once when a transaction is already open.
template <typename Step>
void InTransaction(Connection& connection, Step&& step) {
    connection.BeginTrans();
    try {
        step();
        connection.CommitTrans();
    } catch (...) {
        Ignoring([&] { connection.RollbackTrans(); });
        throw;
    }
}

}  // namespace db
