#pragma once

#include <QString>
#include <stdexcept>

/// The error for a document that could not be printed or written into a file. Its description can be shown to the user.
class PrintError : public std::runtime_error {
  public:
    explicit PrintError(const QString& description)
        : std::runtime_error(description.toStdString()), description_(description) {}

    [[nodiscard]] const QString& description() const { return description_; }

  private:
    QString description_;
};
