#pragma once

#include <QPlainTextEdit>
#include <QTextCursor>

#include "platform/spelling/spellunderlines.h"

/// Puts another text in the place of a word, as if the user had typed it: the field's own rules hold, and one undo
/// takes it back.
void ReplaceWord(QPlainTextEdit& field, const QTextCursor& word, const QString& text);

/// Goes through the misspelt words of a field, from its beginning to its end.
class SpellingRun {
  public:
    SpellingRun(QPlainTextEdit& field, WordTest isMisspelt);
    /// The caret goes back to where the user left it.
    ~SpellingRun();
    SpellingRun(const SpellingRun&) = delete;
    SpellingRun& operator=(const SpellingRun&) = delete;

    /// Goes to the next misspelt word and selects it in the field. Returns false where there is none.
    bool Next();
    /// Changes the word, or it and each later one like it.
    void Change(const QString& text);
    void ChangeAll(const QString& text);

    /// Returns the word gone to, selected in its paragraph.
    [[nodiscard]] const QTextCursor& Word() const { return word_; }

  private:
    [[nodiscard]] bool find(const WordTest& isWanted, int from);

    QPlainTextEdit& field_;
    WordTest isMisspelt_;
    QTextCursor before_;
    QTextCursor word_;
};
