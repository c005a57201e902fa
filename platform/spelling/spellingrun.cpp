#include "platform/spelling/spellingrun.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QTextBlock>

#include "platform/spelling/words.h"

void ReplaceWord(QPlainTextEdit& field, const QTextCursor& word, const QString& text) {
    field.setTextCursor(word);
    QInputMethodEvent typed;
    typed.setCommitString(text);
    QCoreApplication::sendEvent(&field, &typed);
}

SpellingRun::SpellingRun(QPlainTextEdit& field, WordTest isMisspelt)
    : field_(field), isMisspelt_(std::move(isMisspelt)), before_(field.textCursor()), word_(field.document()) {}

SpellingRun::~SpellingRun() {
    field_.setTextCursor(before_);
}

bool SpellingRun::Next() {
    if (!find(isMisspelt_, word_.selectionEnd()))
        return false;
    field_.setTextCursor(word_);
    return true;
}

void SpellingRun::Change(const QString& text) {
    ReplaceWord(field_, word_, text);
    word_ = field_.textCursor();
}

void SpellingRun::ChangeAll(const QString& text) {
    const QString wanted = word_.selectedText();
    const int start = word_.selectionStart();
    Change(text);
    // What the field made of the text is what the others become.
    QTextCursor changed = word_;
    changed.setPosition(start, QTextCursor::KeepAnchor);
    const QString made = changed.selectedText();
    QTextCursor step(field_.document());
    step.joinPreviousEditBlock();
    const auto isWanted = [&wanted](const QString& word) { return word == wanted; };
    for (int from = word_.position(); find(isWanted, from); from = word_.position())
        word_.insertText(made);
    step.endEditBlock();
    word_.setPosition(changed.selectionEnd());
}

/// Selects the first word from this place on that is wanted.
bool SpellingRun::find(const WordTest& isWanted, int from) {
    for (QTextBlock block = field_.document()->findBlock(from); block.isValid(); block = block.next()) {
        const QString text = block.text();
        for (const auto& [start, length] : WordsToCheck(text)) {
            const int place = block.position() + static_cast<int>(start);
            if (place < from || !isWanted(text.mid(start, length)))
                continue;
            word_.setPosition(place);
            word_.setPosition(place + static_cast<int>(length), QTextCursor::KeepAnchor);
            return true;
        }
    }
    return false;
}
