#pragma once

#include <QString>
#include <stdexcept>

/// A document that could not be brought to paper or into a file; its description can be shown to the user as it is.
class PrintError : public std::runtime_error {
  public:
    explicit PrintError(const QString& description)
        : std::runtime_error(description.toStdString()), description_(description) {}

    [[nodiscard]] const QString& description() const { return description_; }

  private:
    QString description_;
};
