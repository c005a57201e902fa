#include "platform/database/embedded/openfile.h"

#include <unistd.h>

#include <QtEndian>
#include <string_view>
#include <utility>

namespace db::embedded {

OpenFile::OpenFile(sqlite3* handle, const QString& file) : handle_(handle) {
    if (file == QLatin1String(":memory:"))
        return;
    const char* const endings[] = {"", "-wal", "-shm"};
    for (std::size_t i = 0; i < parts_.size(); ++i)
        parts_[i].path = file.toUtf8() + endings[i];
    // The files beside the database may still belong to another desk, which removes them when it closes, until this
    // desk has read once. They are therefore not remembered yet.
    struct stat found {};
    static_cast<void>(isStill(parts_[0], found));
}

OpenFile::State OpenFile::look() {
    auto& [file, log, index] = parts_;
    if (file.path.isEmpty())
        return State::Whole;
    struct stat found {};
    struct stat beside {};
    if (!isStill(file, found) || !isStillContinued(found.st_size) || !isStill(index, beside))
        return State::Replaced;
    if (isStill(log, beside))
        return State::Whole;
    return access(log.path.constData(), F_OK) == 0 ? State::Replaced : State::LogMissing;
}

bool OpenFile::isStill(Part& part, struct stat& found) {
    if (stat(part.path.constData(), &found) != 0)
        return !part.opened;
    const Identity now{found.st_dev, found.st_ino};
    if (!part.opened)
        part.opened = now;
    return part.opened == now;
}

/// A database only grows, and its change counter only rises. A file that was cut short or overwritten is found by that.
bool OpenFile::isStillContinued(off_t size) {
    if (std::exchange(size_, size) > size)
        return false;
    if (size == 0)
        return true;  // A new database is empty.
    const std::optional<Head> now = readHead();
    const bool continued = now && (!head_ || (now->pageSize == head_->pageSize && now->changes >= head_->changes));
    head_ = now;
    return continued;
}

// The head is read by SQLite's own handle, because closing another one would give up this program's locks on the file.
std::optional<OpenFile::Head> OpenFile::readHead() const {
    constexpr std::string_view magic("SQLite format 3\0", 16);
    constexpr std::size_t pageSizeAt = 16;
    constexpr std::size_t changesAt = 24;
    std::array<char, 100> head{};
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file->pMethods ||
        file->pMethods->xRead(file, head.data(), static_cast<int>(head.size()), 0) != SQLITE_OK)
        return std::nullopt;
    if (std::string_view(head.data(), magic.size()) != magic)
        return std::nullopt;
    return Head{qFromBigEndian<quint16>(head.data() + pageSizeAt), qFromBigEndian<quint32>(head.data() + changesAt)};
}

}  // namespace db::embedded
