#pragma once

#include <QByteArray>
#include <QString>
#include <stdexcept>

/// The error for a file that could not be written. Its description can be shown to the user.
class FileError : public std::runtime_error {
  public:
    explicit FileError(const QString& description)
        : std::runtime_error(description.toStdString()), description_(description) {}

    [[nodiscard]] const QString& description() const { return description_; }

  private:
    QString description_;
};

// A new file can be read by its owner alone, because it names patients; in a shared folder it is as the folder says.
// What is no file, such as a device, is written to as it is. These routines throw FileError.

/// Deletes the file if there is one, and writes it anew. When that fails, the file keeps as much as could be written.
void WriteAnew(const QString& path, const QByteArray& bytes);
/// Writes the file whole or not at all. When that fails, the file stays as it was.
void WriteWhole(const QString& path, const QByteArray& bytes);
