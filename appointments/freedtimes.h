#pragma once

#include <functional>
#include <QMultiHash>
#include <vector>

#include "appointments/waitrule.h"
#include "platform/database/connection.h"

/// Notes which times fall free while it lives. It watches the writes of a connection, so that whatever deletes, moves
/// or cancels appointments is seen without a word of its own: one row or several, in whichever form. Only writes that
/// may free a time cost a trip, by which the rows are read before they are written.
///
/// What is noted was booked before the write. Whether it is free now is for who asks (OffersFor), since something else
/// may be booked there as well.
class FreedTimes {
  public:
    /// `changed` is called after each write to appointments, and when a time was noted. It must not use the connection.
    FreedTimes(db::Connection& connection, std::function<void()> changed);
    ~FreedTimes();
    FreedTimes(const FreedTimes&) = delete;
    FreedTimes& operator=(const FreedTimes&) = delete;

    /// Notes a time that fell free at another desk.
    void Note(const FreedTime& freed);
    /// Returns the times that were noted since the last call, each once. A time that providers attended together
    /// becomes one for each of them. Throws db::DatabaseError, and keeps them all then.
    [[nodiscard]] std::vector<FreedTime> Take();
    /// Forgets the times that were noted, for example because they are of another database.
    void Forget();

  private:
    void see(const db::Write& write);
    void noteRow(const db::RowChange& change);
    [[nodiscard]] std::vector<FreedTime> attended() const;

    db::Connection& connection_;
    std::function<void()> changed_;
    std::vector<FreedTime> noted_;
    QMultiHash<qint64, FreedTime> activities_;  ///< The times of activities of several providers, by their key.
    QMultiHash<qint64, QString> attendances_;   ///< The providers who attend no longer, by the activity's key.
};
