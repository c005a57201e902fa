#pragma once

#include <QPlainTextEdit>

class FieldNotice;

/// A field for a postal address of a few lines. It takes no more text than its column keeps, where a line end counts as
/// the two characters in which it is stored; a line below the field says when text was cut. Tab leaves the field.
class AddressEdit : public QPlainTextEdit {
    Q_OBJECT

  public:
    AddressEdit(int mostCharacters, int lines, QWidget* parent);

    /// Returns the text as it is stored: lines end with carriage return and line feed, other control characters are
    /// blanks, and blanks and empty lines around the whole are removed.
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
