#pragma once

#include <optional>
#include <QHash>
#include <QStringList>

#include "platform/database/resulttable.h"

namespace db {

class Connection;

/// Reads several Selects in one trip to the server, for the reads of one load or one command. While the object lives, a
/// Recordset that opens one of these statements, letter for letter, takes the rows from here instead of asking the
/// server again, as often as it is opened.
///
/// A Recordset behaves as without it. A statement that fails and those after it are not kept, so that the Recordset of
/// each sends its own statement and gets its own error. A write on the connection discards what was read of the written
/// table.
class ReadTogether {
  public:
    /// Reads the statements. Each must be one Select; another kind throws std::logic_error. Empty statements and those
    /// that an outer ReadTogether already holds are left out. The connection must outlive the object; nothing is read
    /// while it is closed. A DatabaseError is never thrown.
    ReadTogether(Connection& connection, const QStringList& statements);
    ~ReadTogether();
    ReadTogether(const ReadTogether&) = delete;
    ReadTogether& operator=(const ReadTogether&) = delete;

    /// Discards everything that was read, on every connection. It is called before a question to the user, because the
    /// rows may be old when the answer comes.
    static void ForgetAll();

  private:
    friend class Connection;
    /// Discards the statements that name the table, or all of them when no table is given.
    void forgetWhatNames(const std::optional<QString>& table);

    Connection& connection_;
    QHash<QString, ResultTable> read_;
};

}  // namespace db
