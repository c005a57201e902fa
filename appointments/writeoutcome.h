#pragma once

#include <optional>
#include <QString>

#include "platform/database/error.h"

// The routines that write appointments take values and return an outcome. Each writes everything or nothing. None of
// them asks or opens a box: the caller asks the user before, and tells the user how the write ended. Only an audit line
// that cannot be written is told in the bar.

/// The part of an appointment that was being written when a write failed.
enum class WriteStep { Appointment, Room, Members, WaitList };

/// How a write ended.
struct WriteOutcome {
    enum class End {
        Done,
        Gone,   ///< Another desk has deleted the row, and nothing was written.
        Failed  ///< Nothing was written.
    };

    End end = End::Done;
    WriteStep step = WriteStep::Appointment;   ///< At which the write failed.
    std::optional<db::DatabaseError> failure;  ///< Its number is RowChanged when another desk has changed the row.

    [[nodiscard]] bool IsDone() const { return end == End::Done; }
};

/// The text that the user is shown before the reason why a step failed.
[[nodiscard]] QString WriteTrouble(WriteStep step);

/// Runs a write. `write` gets the outcome, a WriteOutcome or a struct derived from it, and notes its progress there.
template <typename Outcome = WriteOutcome, typename Write>
[[nodiscard]] Outcome AttemptWrite(Write&& write) {
    Outcome outcome;
    try {
        write(outcome);
    } catch (const db::DatabaseError& error) {
        outcome.end = WriteOutcome::End::Failed;
        outcome.failure = error;
    }
    return outcome;
}
