#pragma once

#include <QStringView>
#include <vector>

/// Where a word lies in a text, in UTF-16 units.
struct WordPlace {
    qsizetype start = 0;
    qsizetype length = 0;
    friend bool operator==(const WordPlace&, const WordPlace&) = default;
};

/// Returns the words of a text whose spelling a dictionary can tell, in order. It leaves out what is no plain word:
/// addresses of mail, web and files, abbreviations with dots ("p.m."), and words with a digit, an underscore, letters
/// of another script or capitals only. An apostrophe belongs to a word that goes on after it ("don't").
[[nodiscard]] std::vector<WordPlace> WordsToCheck(QStringView text);

/// Whether a character may stand inside a word.
[[nodiscard]] bool IsWordCharacter(QChar character);
