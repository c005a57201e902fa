#pragma once

#include <QPlainTextEdit>

class FieldNotice;

/// A postal address of a few lines. No text can be typed or pasted that is longer than its column, where a line end is
/// the two characters by which it is stored; a line below the field says so. Tab leaves the field.
class AddressEdit : public QPlainTextEdit {
    Q_OBJECT

  public:
    AddressEdit(int mostCharacters, int lines, QWidget* parent);

    /// As it is stored: lines end with carriage return and line feed, other control characters are blanks, and there
    /// are no blanks and empty lines around the whole.
    [[nodiscard]] QString StoredText() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// The line below the field; empty while nothing was cut.
    [[nodiscard]] QString Notice() const;

  private:
    void cutToLength();

    int mostCharacters_;
    int lines_;
    FieldNotice* notice_;
    bool cutting_ = false;
};
