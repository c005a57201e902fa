#pragma once

#include <memory>
#include <QObject>
#include <QSet>
#include <QString>

class Dictionary;
class QContextMenuEvent;
class QMenu;
class QPlainTextEdit;
class QTextCursor;
class SpellUnderlines;

/// Checks the spelling of a text field. Words that the dictionary does not know are underlined as the user types, the
/// field's context menu offers suggestions for them, and CheckSpelling goes through the text word by word.
///
/// The dictionary is American English. It is read when the program is idle after the first field has been shown, and
/// all fields share it. Where it is not installed, nothing is underlined.
class VSSpell : public QObject {
    Q_OBJECT

  public:
    /// `field` outlives this object, or goes together with it. `personalWordList` is the path of the user's own words,
    /// one a line in UTF-8; the file is made with the first word that is added.
    VSSpell(QPlainTextEdit* field, const QString& personalWordList, QObject* parent);

    /// Opens the dialog on the first misspelt word of the field, and tells when the whole text has been checked. A
    /// field that cannot be typed in is left alone.
    void CheckSpelling();
    /// Returns one sentence for the form to show where spelling cannot be checked here; else an empty text.
    [[nodiscard]] QString Hint() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool isMisspelt(const QString& word) const;
    void ignore(const QString& word);
    bool add(const QString& word);
    bool showMenu(const QContextMenuEvent& event);
    void offer(QMenu& menu, const QTextCursor& word);
    [[nodiscard]] QTextCursor misspeltWordAt(int position) const;

    QPlainTextEdit& field_;
    const QString personalWordList_;
    std::shared_ptr<Dictionary> dictionary_;
    QSet<QString> ignored_;
    SpellUnderlines* underlines_;
    bool isSeen_ = false;
};
