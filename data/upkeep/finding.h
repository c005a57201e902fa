#pragma once

#include <optional>
#include <QStringList>
#include <vector>

#include "platform/database/connection.h"

namespace upkeep {

/// What mends a finding.
struct Fix {
    /// What the administrator is asked, for example "Delete it?", or what they are asked for: "The provider's id".
    QString question;
    /// The statement. Where it holds "{}", the answer takes that place as a text. It changes nothing when the row is no
    /// longer as it was found.
    QString statement;
    /// What goes with the row, in the same transaction.
    QStringList alsoDone = {};
    /// What the answer has to be, as a statement that finds a row for a right answer ("{}" is the answer). Empty for a
    /// yes or no.
    QString rightAnswer = {};
    [[nodiscard]] bool WantsText() const { return !rightAnswer.isEmpty(); }
};

/// A row that is not as it should be.
struct Finding {
    QString table;
    qint64 key = 0;
    QString text;  ///< One sentence, which names no patient.
    std::optional<Fix> fix;
};

/// Returns what is wrong in the rows of a main database that has its tables. A series whose first row is gone and an
/// activity without attendees are sound, and so is a room's booking without an appointment (`apptid` 0). Throws
/// DatabaseError.
[[nodiscard]] std::vector<Finding> CheckRows(db::Connection& main);

/// Mends a finding. `answer` is the text that the fix wants, or anything where it wants none. Returns why the answer is
/// not taken, or "" after the row was mended. A row that changed meanwhile is left alone, which is told too. Throws
/// DatabaseError.
[[nodiscard]] QString ApplyFix(db::Connection& main, const Finding& finding, const QString& answer);

}  // namespace upkeep
