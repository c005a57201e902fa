#include "tests/platform/spelling/spellingfixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

#include "platform/spelling/dictionary.h"

Spelling::Spelling() : dictionaryBefore(DictionaryFolder()) {
    auto* layout = new QVBoxLayout(&form);
    note = new NoteField(&form);
    other = new QLineEdit(&form);
    layout->addWidget(note);
    layout->addWidget(other);
    form.resize(500, 200);
}

Spelling::~Spelling() {
    DictionaryFolder() = dictionaryBefore;
}

void Spelling::open() {
    spell = std::make_unique<VSSpell>(note, list, &form);
    form.show();
    form.activateWindow();
    note->setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Dictionary::With(list)->GetState() != Dictionary::State::Unread; }));
}

void Spelling::type(const QString& text) {
    for (const QChar character : text)
        QTest::keyClick(note, character == QLatin1Char('\n') ? '\r' : character.toLatin1());
}

QStringList Spelling::underlined() {
    const auto isChecked = [this] {
        for (QTextBlock block = note->document()->begin(); block.isValid(); block = block.next())
            if (block.userState() != 1)
                return false;
        return true;
    };
    EXPECT_TRUE(QTest::qWaitFor(isChecked, 30000));
    QStringList words;
    for (QTextBlock block = note->document()->begin(); block.isValid(); block = block.next())
        for (const QTextLayout::FormatRange& range : block.layout()->formats())
            if (range.format.underlineStyle() == QTextCharFormat::WaveUnderline)
                words << block.text().mid(range.start, range.length);
    return words;
}

QMenu* Spelling::menuAt(int position) {
    QTextCursor place(note->document());
    place.setPosition(position);
    const QPoint at = note->cursorRect(place).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, note->viewport()->mapToGlobal(at));
    QApplication::sendEvent(note->viewport(), &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QMenu* Spelling::menuByKey() {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(0, 0), note->mapToGlobal(QPoint(0, 0)));
    QApplication::sendEvent(note, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QStringList Spelling::offered(const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        if (action->text().startsWith(QLatin1String("&Undo")))
            break;
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    return texts;
}

QAction* Spelling::entry(const QMenu& menu, const QString& text) {
    for (QAction* action : menu.actions())
        if (action->text() == text)
            return action;
    ADD_FAILURE() << "The menu does not offer " << text.toStdString();
    return nullptr;
}
