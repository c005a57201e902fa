#include "platform/spelling/spellunderlines.h"

#include <algorithm>
#include <QEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

#include "platform/spelling/words.h"
#include "platform/theme/colours.h"

namespace {

// Characters of one piece, which take a few milliseconds. A paragraph is always checked whole.
constexpr qsizetype PieceCharacters = 30000;

enum BlockState { Unchecked = -1, Checked = 1 };

QTextCharFormat misspelt(const QPalette& palette) {
    QTextCharFormat format;
    format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    format.setUnderlineColor(ColoursOf(ModeOf(palette)).danger);
    return format;
}

}  // namespace

SpellUnderlines::SpellUnderlines(QPlainTextEdit& field, WordTest isMisspelt, QObject* parent)
    : QSyntaxHighlighter(parent), field_(field), isMisspelt_(std::move(isMisspelt)) {
    piece_.setSingleShot(true);
    connect(&piece_, &QTimer::timeout, this, &SpellUnderlines::checkNextPiece);
    // Before setDocument, so that what was typed is known when its paragraph is checked.
    connect(field.document(), &QTextDocument::contentsChange, this, &SpellUnderlines::noteTyping);
    connect(&field, &QPlainTextEdit::cursorPositionChanged, this, &SpellUnderlines::noteCaret);
    field.installEventFilter(this);
    setDocument(field.document());
}

// The underlines are taken out of the text while this is still whole: the text tells of that as of a change.
SpellUnderlines::~SpellUnderlines() {
    if (document() != nullptr)
        document()->disconnect(this);
    setDocument(nullptr);
}

void SpellUnderlines::CheckAgain() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        block.setUserState(Unchecked);
    beginPiece();
}

/// What is checked from here on until the program is idle again is one piece.
void SpellUnderlines::beginPiece() {
    if (piece_.isActive())
        return;
    left_ = PieceCharacters;
    piece_.start(0);
}

void SpellUnderlines::highlightBlock(const QString& text) {
    beginPiece();
    if (left_ <= 0) {
        setCurrentBlockState(Unchecked);
        return;
    }
    left_ -= text.size();
    setCurrentBlockState(Checked);
    if (field_.isReadOnly() || !field_.isEnabled())
        return;
    const int block = currentBlock().position();
    for (const auto& [start, length] : WordsToCheck(text)) {
        const int first = static_cast<int>(start), size = static_cast<int>(length);
        if (isMisspelt_(text.mid(start, length)) && !isBeingTyped(block + first, block + first + size))
            setFormat(first, size, misspelt(field_.palette()));
    }
}

/// Checks what is seen and then the rest, until the piece's time is spent. A paragraph that was checked starts the
/// timer again, so that the pieces go on until nothing is left.
void SpellUnderlines::checkNextPiece() {
    const QRect seen = field_.viewport()->rect();
    const QTextBlock first = field_.cursorForPosition(seen.topLeft()).block();
    const int last = field_.cursorForPosition(seen.bottomRight()).blockNumber();
    if (checkUnchecked(first, last))
        checkUnchecked(document()->begin(), document()->blockCount());
}

bool SpellUnderlines::checkUnchecked(const QTextBlock& from, int to) {
    for (QTextBlock block = from; block.isValid() && block.blockNumber() <= to; block = block.next()) {
        if (block.userState() == Unchecked)
            rehighlightBlock(block);
        if (block.userState() == Unchecked)
            return false;
    }
    return true;
}

void SpellUnderlines::noteTyping(int position, int, int added) {
    const bool isTyped = field_.hasFocus() && field_.textCursor().position() == position + added;
    typedTo_ = isTyped ? position + added : -1;
}

void SpellUnderlines::noteCaret() {
    const int caret = field_.textCursor().position();
    if (typedTo_ < 0 || caret == typedTo_)
        return;
    const QTextBlock block = document()->findBlock(typedTo_);
    const int from = std::min(caret, typedTo_), to = std::max(caret, typedTo_);
    if (block.contains(from) && block.contains(to)) {
        const QString between = block.text().mid(from - block.position(), to - from);
        if (std::all_of(between.begin(), between.end(), IsWordCharacter)) {
            typedTo_ = caret;
            return;
        }
    }
    leaveWord();
}

void SpellUnderlines::leaveWord() {
    if (typedTo_ < 0 || document() == nullptr)
        return;
    const QTextBlock block = document()->findBlock(typedTo_);
    typedTo_ = -1;
    rehighlightBlock(block);
}

bool SpellUnderlines::isBeingTyped(int start, int end) const {
    return start <= typedTo_ && typedTo_ <= end;
}

bool SpellUnderlines::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusOut:
            leaveWord();
            break;
        case QEvent::ReadOnlyChange:
        case QEvent::EnabledChange:
        case QEvent::PaletteChange:
            CheckAgain();
            break;
        default:
            break;
    }
    return false;
}
