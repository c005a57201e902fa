#pragma once

#include <QPlainTextEdit>

/// A field for free text over several lines. It removes ";" and "|" from typed, pasted or dropped text, because the
/// database keeps notes of appointments in texts that are joined by these. A text that the program sets is shown
/// unchanged. Tab leaves the field.
class NoteField : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit NoteField(QWidget* parent = nullptr);

    /// Makes the field as tall as this many lines.
    void setLines(int lines);
    /// Makes the field accept ";" and "|", for a text that has a column to itself.
    void setKeepsSeparators(bool keeps) { keepsSeparators_ = keeps; }
    /// Returns the text as the database keeps it, with the line ends that the notes product writes.
    [[nodiscard]] QString StoredText() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    [[nodiscard]] QString accepted(const QString& text) const;

    int lines_ = 3;
    bool keepsSeparators_ = false;
};
