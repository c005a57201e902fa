#pragma once

#include <optional>
#include <QString>

#include "platform/database/error.h"

// What is written of an appointment is written by routines that take values and give an outcome. Each write is done
// whole or not at all, and says nothing: who calls one has asked the user before, and tells how it ended.

/// What of an appointment was being written when a write failed.
enum class WriteStep { Appointment, Room, Members };

/// How a write ended.
struct WriteOutcome {
    enum class End {
        Done,
        Gone,   ///< Another desk has deleted the row.
        Failed  ///< Nothing was written.
    };

    End end = End::Done;
    WriteStep step = WriteStep::Appointment;   ///< Of a failure.
    std::optional<db::DatabaseError> failure;  ///< RowChanged where another desk has changed what was to be written.

    [[nodiscard]] bool IsDone() const { return end == End::Done; }
};

/// What the user is told before the reason why a step failed.
[[nodiscard]] QString WriteTrouble(WriteStep step);

/// Runs a write, which tells in its outcome, a WriteOutcome or more, how far it has come.
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
