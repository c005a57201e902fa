#pragma once

#include <optional>
#include <QHash>
#include <QStringList>

#include "platform/database/resulttable.h"

namespace db {

class Connection;

/// Several Selects read in one trip to the server. While the object lives, a Recordset that opens one of them, letter
/// for letter, takes the rows from here instead of asking again, as often as it is opened.
///
/// What a Recordset tells does not change: a statement that fails, and those behind it, are not kept, so that each is
/// sent again by its own Recordset, which gets the error that is its own. A write on the connection forgets what was
/// read of its table. It is for the reads of one load or one command.
class ReadTogether {
  public:
    /// Each statement is one Select, else std::logic_error; an empty one is left out, and so is one that an outer
    /// ReadTogether holds. The connection must outlive it; while it is closed nothing is read. No DatabaseError.
    ReadTogether(Connection& connection, const QStringList& statements);
    ~ReadTogether();
    ReadTogether(const ReadTogether&) = delete;
    ReadTogether& operator=(const ReadTogether&) = delete;

    /// Before a question to the user: what was read is forgotten, on every connection, since it may be old when the
    /// answer comes.
    static void ForgetAll();

  private:
    friend class Connection;
    /// Without a table all of it.
    void forgetWhatNames(const std::optional<QString>& table);

    Connection& connection_;
    QHash<QString, ResultTable> read_;
};

}  // namespace db
