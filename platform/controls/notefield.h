#pragma once

#include <QPlainTextEdit>

/// Free text over several lines that leaves ";" and "|" out of what is typed, pasted or dropped, since the database
/// keeps notes in texts joined by them. A text that the program sets is shown as it is. Tab leaves the field.
class NoteField : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit NoteField(QWidget* parent = nullptr);

    /// As tall as this many lines.
    void setLines(int lines);
    /// The text as the database keeps it, with the line ends that the notes product writes.
    [[nodiscard]] QString StoredText() const;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    int lines_ = 3;
};
