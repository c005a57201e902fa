#pragma once

#include <functional>
#include <QSyntaxHighlighter>
#include <QTimer>

class QPlainTextEdit;

/// Tells whether a word is misspelt.
using WordTest = std::function<bool(const QString& word)>;

/// Underlines the misspelt words of a field that can be typed in. A long text is checked in pieces while the program is
/// idle, beginning with what is seen. The word being typed is not underlined before it is left.
class SpellUnderlines : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    SpellUnderlines(QPlainTextEdit& field, WordTest isMisspelt, QObject* parent);
    ~SpellUnderlines() override;

    /// Checks the whole text, because other words are known than before.
    void CheckAgain();

  protected:
    void highlightBlock(const QString& text) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void beginPiece();
    void checkNextPiece();
    bool checkUnchecked(const QTextBlock& from, int to);
    void noteTyping(int position, int removed, int added);
    void noteCaret();
    void leaveWord();
    [[nodiscard]] bool isBeingTyped(int start, int end) const;

    QPlainTextEdit& field_;
    WordTest isMisspelt_;
    QTimer piece_;        ///< Runs while a text may have unchecked paragraphs.
    qsizetype left_ = 0;  ///< Characters that this piece may still check.
    int typedTo_ = -1;    ///< Where the caret stands in the word being typed; -1 for none.
};
