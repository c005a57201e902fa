#include "platform/spelling/dictionary.h"

#include <hunspell.hxx>
#include <map>
#include <QFileInfo>

#include "platform/spelling/personalwords.h"

namespace {

constexpr int MostSuggestions = 8;
const QChar Typographic(0x2019);

QString systemFile(const char* ending) {
    return DictionaryFolder() + QLatin1String("/en_US") + QLatin1String(ending);
}

bool isThere(const QString& file) {
    const QFileInfo facts(file);
    return facts.isFile() && facts.isReadable();
}

std::string plain(QString word) {
    return word.replace(Typographic, QLatin1Char('\'')).toStdString();
}

}  // namespace

QString& DictionaryFolder() {
    static QString folder = QStringLiteral("/usr/share/hunspell");
    return folder;
}

std::shared_ptr<Dictionary> Dictionary::With(const QString& personalWordList) {
    static std::map<QString, std::shared_ptr<Dictionary>> dictionaries;
    auto& dictionary = dictionaries[personalWordList];
    if (dictionary == nullptr)
        dictionary.reset(new Dictionary(personalWordList));
    return dictionary;
}

Dictionary::Dictionary(QString personalWordList) : personalWordList_(std::move(personalWordList)) {
    if (!isThere(systemFile(".aff")) || !isThere(systemFile(".dic")))
        state_ = State::Missing;
}

Dictionary::~Dictionary() = default;

void Dictionary::Read() {
    const State before = state_;
    if (state_ == State::Unread)
        readSystemWords();
    if (state_ == State::Ready && (readPersonalWords() || before != State::Ready))
        Q_EMIT Changed();
}

void Dictionary::readSystemWords() {
    words_ = std::make_unique<Hunspell>(qPrintable(systemFile(".aff")), qPrintable(systemFile(".dic")));
    // A damaged file gives a dictionary without words, which would find every word misspelt.
    const bool isSound = words_->get_dict_encoding() == "UTF-8" && words_->spell(std::string("the"));
    state_ = isSound ? State::Ready : State::Missing;
}

bool Dictionary::readPersonalWords() {
    const qint64 size = QFileInfo(personalWordList_).size();
    if (size == personalSize_)
        return false;
    personalSize_ = size;
    for (const QString& word : ReadPersonalWords(personalWordList_))
        learn(word);
    return true;
}

void Dictionary::learn(const QString& word) {
    words_->add(plain(word));
}

bool Dictionary::Add(const QString& word) {
    if (!AppendPersonalWord(personalWordList_, word))
        return false;
    if (state_ == State::Ready) {
        learn(word);
        Q_EMIT Changed();
    }
    return true;
}

bool Dictionary::Knows(const QString& word) const {
    if (state_ != State::Ready)
        return true;
    const std::string spelt = plain(word);
    // The user's own words have a possessive, too.
    return words_->spell(spelt) || (spelt.ends_with("'s") && words_->spell(spelt.substr(0, spelt.size() - 2)));
}

QStringList Dictionary::Suggestions(const QString& word) const {
    QStringList suggestions;
    if (state_ != State::Ready)
        return suggestions;
    for (const std::string& suggestion : words_->suggest(plain(word))) {
        QString text = QString::fromStdString(suggestion);
        if (word.contains(Typographic))
            text.replace(QLatin1Char('\''), Typographic);
        suggestions << text;
        if (suggestions.size() == MostSuggestions)
            break;
    }
    return suggestions;
}
