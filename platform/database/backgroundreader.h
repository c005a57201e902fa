#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <QStringList>
#include <vector>

#include "platform/database/engine.h"
#include "platform/database/error.h"

namespace db {

/// Reads on a thread of its own and through a session of its own, so that a window which stays open can be kept fresh
/// while the user works: a slow server or the lock of another desk never holds up a key or a click, and no waiting box
/// comes. It only reads. All its routines belong to one thread, which must have an event loop.
class BackgroundReader {
  public:
    /// Opens the session (Connection::Beside). It runs on the reader's thread.
    using MakeEngine = std::function<std::unique_ptr<Engine>()>;
    struct Answer {
        std::vector<ResultTable> tables;       ///< One for each statement; fewer after a failure.
        std::optional<DatabaseError> failure;  ///< Of the session, or of the first statement without a table.
    };

    BackgroundReader();
    /// A read that is under way is left to itself, and nobody is told its answer.
    ~BackgroundReader();
    BackgroundReader(const BackgroundReader&) = delete;
    BackgroundReader& operator=(const BackgroundReader&) = delete;

    /// Reads the Selects, in one trip where the engine sits behind a network, and calls `done` from the event loop. The
    /// session is opened at the first read and kept; one that broke off is opened anew, once within a read. When
    /// the database was replaced by another one, this reader answers with that failure from then on. Ignored while a
    /// read is under way.
    void Read(MakeEngine make, QStringList statements, std::function<void(Answer)> done);
    [[nodiscard]] bool IsReading() const { return reading_; }

  private:
    struct Shared;

    std::shared_ptr<Shared> shared_;
    std::shared_ptr<BackgroundReader*> self_;  ///< For an answer to find that the reader is gone.
    bool reading_ = false;
};

}  // namespace db
