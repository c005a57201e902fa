#pragma once

#include <sqlite3.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <optional>
#include <QByteArray>
#include <QString>

namespace db::embedded {

/// Remembers the identity of an embedded database's file when it was opened, and tells whether the file is still the
/// same.
///
/// SQLite goes on with the file that it opened, wherever that file is now. What it writes to a file that was deleted,
/// moved away or replaced, nobody finds again. The same holds for the files beside it (-wal and -shm), through which
/// the desks share their writes.
///
/// One case is not detected for certain: a sound database that was written over the file in place. It is found when it
/// is shorter, has another page size or a lower change counter. But the counter stands still while rows are written
/// into existing pages. An older copy of the same file may therefore pass, and the rows that the desks have since moved
/// from the log into the file are lost unseen. The file's times are no sign, because any desk changes them at any time.
class OpenFile {
  public:
    enum class State {
        Whole,
        LogMissing,  ///< Only the log was removed. Whoever holds it open can still read it.
        Replaced
    };

    /// Remembers the file. A private database (":memory:") has no file and is always whole.
    OpenFile(sqlite3* handle, const QString& file);

    /// Looks at the file. It may be called from the first read on. It is cheap: it looks three names up and reads a
    /// hundred bytes.
    [[nodiscard]] State look();

  private:
    struct Identity {
        dev_t device;
        ino_t number;
        friend bool operator==(const Identity&, const Identity&) = default;
    };
    struct Part {
        QByteArray path;
        std::optional<Identity> opened;  ///< Empty until the file was first seen.
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
