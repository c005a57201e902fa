#pragma once

class QByteArray;
class QFileDevice;

namespace files {

/// Writes all the bytes through to the disk's own file, past the buffer of the program. Returns false when they do not
/// fit, as on a full disk; as many as fit are then written, and the file's errorString says why. QSaveFile::commit does
/// not see what its buffer could not write, so that nothing is committed without this.
[[nodiscard]] bool WriteAll(QFileDevice& file, const QByteArray& bytes);

}  // namespace files
