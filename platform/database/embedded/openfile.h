#pragma once

#include <sqlite3.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <optional>
#include <QByteArray>
#include <QString>

namespace db::embedded {

/// What an embedded database's file was when it was opened, and whether it still is that.
///
/// SQLite goes on with the file that it once opened, wherever that is now: what it writes to one that was deleted,
/// moved away or replaced is found by nobody. The same holds for the files beside it (-wal and -shm), through which the
/// desks share their writes.
///
/// Not told for sure is a sound database that was written over the file in place. It is found by being shorter, by
/// another size of its pages or by a lower count of its changes. But that count stands still while rows are written
/// into pages that are there already: an older copy of the same file may pass, and what the desks have taken from the
/// log into the file since then is lost unseen. The times of the file are no sign, since any desk does that at any
/// time.
class OpenFile {
  public:
    enum class State {
        Whole,
        LogMissing,  ///< Of all only the log was removed; its content is still at hand for whoever holds it open.
        Replaced
    };

    /// A private database (":memory:") has no file and is always whole.
    OpenFile(sqlite3* handle, const QString& file);

    /// From the first read on. Cheap: looks three names up and reads a hundred bytes.
    [[nodiscard]] State look();

  private:
    struct Identity {
        dev_t device;
        ino_t number;
        friend bool operator==(const Identity&, const Identity&) = default;
    };
    struct Part {
        QByteArray path;
        std::optional<Identity> opened;  ///< Nothing as long as it was not there yet.
    };
    struct Head {
        std::uint32_t pageSize = 0;
        std::uint32_t changes = 0;  ///< Never falls.
    };
    [[nodiscard]] static bool isStill(Part& part, struct stat& found);
    [[nodiscard]] bool isStillContinued(off_t size);
    [[nodiscard]] std::optional<Head> readHead() const;

    sqlite3* handle_;
    std::array<Part, 3> parts_;  ///< The file, its log, its index.
    off_t size_ = 0;
    std::optional<Head> head_;
};

}  // namespace db::embedded
