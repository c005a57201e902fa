#pragma once

#include <memory>
#include <QObject>
#include <QString>
#include <QStringList>

class Hunspell;

/// The words that are spelt right: the American dictionary of the system, and the user's own list. It is shared by all
/// fields that have the same list.
class Dictionary : public QObject {
    Q_OBJECT

  public:
    enum class State { Unread, Ready, Missing };

    /// Returns the dictionary with this list of the user's own words. It has not been read when it is first asked for.
    [[nodiscard]] static std::shared_ptr<Dictionary> With(const QString& personalWordList);
    ~Dictionary() override;

    /// Reads the dictionary, which takes some 20 ms, once; and each time the user's own words, where their file has
    /// grown.
    void Read();
    /// Adds a word to the user's own list. Returns false where its file cannot be written.
    [[nodiscard]] bool Add(const QString& word);

    [[nodiscard]] State GetState() const { return state_; }
    /// Whether a word is spelt right. A dictionary that is not ready knows every word.
    [[nodiscard]] bool Knows(const QString& word) const;
    /// Returns what might be meant, best first, with the word's own kind of apostrophe. This takes some 30 ms.
    [[nodiscard]] QStringList Suggestions(const QString& word) const;

  Q_SIGNALS:
    /// The dictionary is ready, or knows more words than before.
    void Changed();

  private:
    explicit Dictionary(QString personalWordList);

    void readSystemWords();
    bool readPersonalWords();
    void learn(const QString& word);

    const QString personalWordList_;
    std::unique_ptr<Hunspell> words_;
    State state_ = State::Unread;
    qint64 personalSize_ = 0;
};

/// The folder of the system's dictionary. A test chooses another.
QString& DictionaryFolder();
