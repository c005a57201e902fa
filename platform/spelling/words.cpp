#include "platform/spelling/words.h"

#include <algorithm>
#include <QString>

namespace {

// No dictionary knows a longer word.
constexpr qsizetype LongestWord = 64;

bool isApostrophe(QChar character) {
    return character == QLatin1Char('\'') || character == QChar(0x2019);
}

bool isAddress(QStringView chunk) {
    if (chunk.contains(QLatin1Char('@')) || chunk.contains(QLatin1String("://")) || chunk.contains(QLatin1Char('\\')) ||
        chunk.startsWith(QLatin1Char('/')) || chunk.startsWith(QLatin1String("~/")))
        return true;
    // "example.com", "notes.txt", "p.m": a dot between letters.
    for (qsizetype at = 1; at + 1 < chunk.size(); ++at)
        if (chunk[at] == QLatin1Char('.') && chunk[at - 1].isLetterOrNumber() && chunk[at + 1].isLetterOrNumber())
            return true;
    return false;
}

bool isOfAnotherScript(QChar letter) {
    return letter.script() != QChar::Script_Latin && letter.script() != QChar::Script_Common &&
           letter.script() != QChar::Script_Inherited;
}

bool isPlainWord(QStringView word) {
    if (word.size() > LongestWord)
        return false;
    bool isLower = false;
    for (const QChar character : word) {
        if (character.isNumber() || character == QLatin1Char('_') || isOfAnotherScript(character))
            return false;
        isLower = isLower || character.isLower();
    }
    return isLower;
}

void addWordsOf(QStringView text, qsizetype from, qsizetype to, std::vector<WordPlace>& words) {
    for (qsizetype at = from; at < to;) {
        const qsizetype start = at;
        while (at < to && IsWordCharacter(text[at]))
            ++at;
        qsizetype first = start, last = at;
        while (first < last && isApostrophe(text[first]))
            ++first;
        while (last > first && isApostrophe(text[last - 1]))
            --last;
        if (isPlainWord(text.sliced(first, last - first)))
            words.push_back({first, last - first});
        if (at == start)
            ++at;
    }
}

}  // namespace

bool IsWordCharacter(QChar character) {
    return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_') ||
           isApostrophe(character);
}

std::vector<WordPlace> WordsToCheck(QStringView text) {
    std::vector<WordPlace> words;
    for (qsizetype at = 0; at < text.size();) {
        const auto* const end = std::find_if(text.begin() + at, text.end(), [](QChar c) { return c.isSpace(); });
        const qsizetype to = end - text.begin();
        if (!isAddress(text.sliced(at, to - at)))
            addWordsOf(text, at, to, words);
        at = to + 1;
    }
    return words;
}
