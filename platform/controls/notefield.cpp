#include "platform/controls/notefield.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include "platform/text/plaintext.h"

NoteField::NoteField(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
}

void NoteField::setLines(int lines) {
    lines_ = lines;
    updateGeometry();
}

QString NoteField::accepted(const QString& text) const {
    QString lines = ManyLines(text);
    return keepsSeparators_ ? lines : lines.remove(QLatin1Char(';')).remove(QLatin1Char('|'));
}

QString NoteField::StoredText() const {
    return toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

QSize NoteField::sizeHint() const {
    const int around = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    return {fontMetrics().averageCharWidth() * 40, lines_ * fontMetrics().lineSpacing() + around};
}

// A letter with Alt that no button answers to at the moment would otherwise be typed, and change a note that nobody
// meant to change.
void NoteField::keyPressEvent(QKeyEvent* event) {
    const bool isAltLetter =
        event->modifiers() == Qt::AltModifier && !event->text().isEmpty() && event->text()[0].isPrint();
    if (isAltLetter) {
        event->ignore();
        return;
    }
    if (!event->text().isEmpty() && accepted(event->text()).isEmpty())
        return;
    QPlainTextEdit::keyPressEvent(event);
}

void NoteField::inputMethodEvent(QInputMethodEvent* event) {
    event->setCommitString(accepted(event->commitString()), event->replacementStart(), event->replacementLength());
    QPlainTextEdit::inputMethodEvent(event);
}

void NoteField::insertFromMimeData(const QMimeData* source) {
    if (source->hasText())
        insertPlainText(accepted(source->text()));
}
