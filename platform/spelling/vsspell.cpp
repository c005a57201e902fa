#include "platform/spelling/vsspell.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTimer>
#include <utility>

#include "platform/desktop/desktop.h"
#include "platform/spelling/dictionary.h"
#include "platform/spelling/spellingdialog.h"
#include "platform/spelling/spellunderlines.h"
#include "platform/spelling/words.h"

namespace {

// A menu stays short; the dialog offers more.
constexpr int MenuSuggestions = 5;

}  // namespace

VSSpell::VSSpell(QPlainTextEdit* field, const QString& personalWordList, QObject* parent)
    : QObject(parent),
      field_(*field),
      personalWordList_(personalWordList),
      dictionary_(Dictionary::With(personalWordList)),
      underlines_(new SpellUnderlines(
          *field, [this](const QString& word) { return isMisspelt(word); }, this)) {
    connect(dictionary_.get(), &Dictionary::Changed, underlines_, &SpellUnderlines::CheckAgain);
    field->installEventFilter(this);
    field->viewport()->installEventFilter(this);
}

void VSSpell::CheckSpelling() {
    if (field_.isReadOnly() || !field_.isEnabled())
        return;
    dictionary_->Read();
    if (!Hint().isEmpty()) {
        MsgBox(Hint(), InformationBox, QStringLiteral("Spelling"));
        return;
    }
    if (SpellingRun(field_, [this](const QString& word) { return isMisspelt(word); }).Next()) {
        SpellingDialog dialog(
            field_,
            {[this](const QString& word) { return isMisspelt(word); },
             [this](const QString& word) { return dictionary_->Suggestions(word); },
             [this](const QString& word) { ignore(word); }, [this](const QString& word) { return add(word); }},
            field_.window());
        if (ShowModal(dialog) != QDialog::Accepted)
            return;
    }
    MsgBox(QStringLiteral("The spelling check is complete."), InformationBox, QStringLiteral("Spelling"));
}

QString VSSpell::Hint() const {
    return dictionary_->GetState() == Dictionary::State::Missing
               ? QStringLiteral("Spelling is not checked, because no dictionary is installed.")
               : QString();
}

bool VSSpell::isMisspelt(const QString& word) const {
    return !ignored_.contains(word) && !dictionary_->Knows(word);
}

void VSSpell::ignore(const QString& word) {
    ignored_ << word;
    underlines_->CheckAgain();
}

bool VSSpell::add(const QString& word) {
    if (dictionary_->Add(word))
        return true;
    MsgBox(QStringLiteral("The word could not be added, because this file cannot be written:\n%1")
               .arg(QDir::toNativeSeparators(personalWordList_)),
           ErrorBox, QStringLiteral("Spelling"));
    return false;
}

bool VSSpell::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Paint && watched == field_.viewport() && !std::exchange(isSeen_, true))
        QTimer::singleShot(0, dictionary_.get(), &Dictionary::Read);
    return event->type() == QEvent::ContextMenu && showMenu(*static_cast<QContextMenuEvent*>(event));
}

/// Shows the field's own menu with suggestions on top. Returns false where no misspelt word is pointed at.
bool VSSpell::showMenu(const QContextMenuEvent& event) {
    const bool isByKey = event.reason() == QContextMenuEvent::Keyboard;
    const QTextCursor place = isByKey ? field_.textCursor() : field_.cursorForPosition(event.pos());
    const QTextCursor word = misspeltWordAt(place.position());
    if (!word.hasSelection() || field_.isReadOnly())
        return false;
    QMenu* menu = field_.createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    offer(*menu, word);
    menu->popup(isByKey ? field_.viewport()->mapToGlobal(field_.cursorRect(word).bottomLeft()) : event.globalPos());
    return true;
}

void VSSpell::offer(QMenu& menu, const QTextCursor& word) {
    QAction* standard = menu.actions().value(0);
    const auto insert = [&menu, standard](const QString& text) {
        auto* action = new QAction(text, &menu);
        menu.insertAction(standard, action);
        return action;
    };
    const QString text = word.selectedText();
    const QStringList suggestions = dictionary_->Suggestions(text).mid(0, MenuSuggestions);
    for (const QString& suggestion : suggestions) {
        QAction* action = insert(suggestion);
        QFont bold = action->font();
        bold.setBold(true);
        action->setFont(bold);
        connect(action, &QAction::triggered, this, [this, word, suggestion] { ReplaceWord(field_, word, suggestion); });
    }
    if (suggestions.isEmpty())
        insert(QStringLiteral("(no suggestions)"))->setEnabled(false);
    menu.insertSeparator(standard);
    connect(insert(QStringLiteral("A&dd to Dictionary")), &QAction::triggered, this, [this, text] { add(text); });
    connect(insert(QStringLiteral("&Ignore All")), &QAction::triggered, this, [this, text] { ignore(text); });
    menu.insertSeparator(standard);
}

/// Selects the misspelt word that this position touches; nothing where there is none.
QTextCursor VSSpell::misspeltWordAt(int position) const {
    const QTextBlock block = field_.document()->findBlock(position);
    QTextCursor word(block);
    for (const auto& [start, length] : WordsToCheck(block.text())) {
        const int first = block.position() + static_cast<int>(start), end = first + static_cast<int>(length);
        if (first > position || position > end || !isMisspelt(block.text().mid(start, length)))
            continue;
        word.setPosition(first);
        word.setPosition(end, QTextCursor::KeepAnchor);
        break;
    }
    return word;
}
