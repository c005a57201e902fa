#pragma once

#include <memory>
#include <QObject>
#include <QString>

class QPlainTextEdit;

/// Checks the spelling of a text field. Words that the dictionary does not know are underlined as the user types, the
/// field's context menu offers suggestions for them, and CheckSpelling goes through the text word by word.
///
/// The dictionary is American English. It is read when the program is idle after the first field has been shown, and
/// all fields share it. Where it is not installed, nothing is underlined.
class VSSpell : public QObject {
    Q_OBJECT

  public:
    /// `field` outlives this object or is its parent. `personalWordList` is the path of the user's own words, one a
    /// line in UTF-8; the file is made with the first word that is added.
    VSSpell(QPlainTextEdit* field, const QString& personalWordList, QObject* parent);
    ~VSSpell() override;

    /// Opens the dialog on the first misspelt word of the field, or tells at once that there is none. A read-only field
    /// is left alone.
    void CheckSpelling();
    /// Returns one sentence for the form to show where spelling cannot be checked here; else an empty text.
    [[nodiscard]] QString Hint() const;

  private:
    class Work;
    std::unique_ptr<Work> work_;
};
