#include "people/addressedit.h"

#include <cmath>
#include <QFontMetricsF>
#include <QScopedValueRollback>

#include "platform/controls/fieldnotice.h"
#include "platform/text/plaintext.h"
#include "platform/theme/theme.h"

AddressEdit::AddressEdit(int mostCharacters, int lines, QWidget* parent)
    : QPlainTextEdit(parent), mostCharacters_(mostCharacters), lines_(lines), notice_(new FieldNotice(*this)) {
    setTabChangesFocus(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QPlainTextEdit::textChanged, this, &AddressEdit::cutToLength);
}

QString AddressEdit::StoredText() const {
    return ManyLines(toPlainText()).trimmed().replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
}

QString AddressEdit::Notice() const {
    return notice_->Text();
}

QSize AddressEdit::sizeHint() const {
    const int around = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    const auto text = static_cast<int>(std::ceil(QFontMetricsF(font()).lineSpacing() * lines_));
    return {QPlainTextEdit::sizeHint().width() / 2, text + around + Space(4)};
}

// Removes the excess in front of the cursor, where it was typed or pasted, so that the end of a long address is not
// pushed out unseen. A text that the program sets loses its end.
void AddressEdit::cutToLength() {
    const QString text = toPlainText();
    const auto excess = static_cast<int>(text.size() + text.count(QLatin1Char('\n')) - mostCharacters_);
    if (!cutting_)
        notice_->Say(excess > 0 ? KeptText(mostCharacters_) : QString());
    if (excess <= 0)
        return;
    const QScopedValueRollback cutting(cutting_, true);
    QTextCursor cursor = textCursor();
    if (cursor.atStart())
        cursor.movePosition(QTextCursor::End);
    for (int left = excess; left > 0 && !cursor.atStart();) {
        cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
        const int taken =
            static_cast<int>(cursor.selectedText().size() + cursor.selectedText().count(QChar::ParagraphSeparator));
        left = excess - taken;
    }
    cursor.removeSelectedText();
}
