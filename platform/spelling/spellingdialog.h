#pragma once

#include <functional>
#include <QDialog>

#include "platform/spelling/spellingrun.h"

class QLineEdit;
class QListWidget;
class QTextEdit;

/// What the dialog asks of those who know the words.
struct SpellingWords {
    WordTest isMisspelt;
    std::function<QStringList(const QString& word)> suggestions;
    std::function<void(const QString& word)> ignoreAll;
    std::function<bool(const QString& word)> add;  ///< Returns false where the word could not be added.
};

/// Goes through the misspelt words of a field and asks about each. It is accepted when the end of the text is reached.
class SpellingDialog : public QDialog {
    Q_OBJECT

  public:
    /// `field` has a misspelt word.
    SpellingDialog(QPlainTextEdit& field, SpellingWords words, QWidget* parent);

    QTextEdit* txtnotfound;  ///< The word, marked where it stands in its text.
    QLineEdit* txtchange;
    QListWidget* lstsuggestions;
    QPushButton* cmdignore;
    QPushButton* cmdignoreall;
    QPushButton* cmdadd;
    QPushButton* cmdchange;
    QPushButton* cmdchangeall;
    QPushButton* cmdclose;

  private:
    void makeParts();
    void arrange();
    void connectParts();
    void goOn();
    void showWord();
    void showSuggestions(const QString& word);
    void change();
    void changeAll();
    void ignoreAll();
    void add();

    SpellingWords words_;
    SpellingRun run_;
};
