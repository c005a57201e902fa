#include "data/scramble.h"

namespace {

// Odd positions, counted from 1, are shifted up by the key and even ones down.
int shiftAt(qsizetype index, int key) {
    return index % 2 == 0 ? key : -key;
}

}  // namespace

QString ScramblePassword(const QString& plain, int key) {
    QString out = plain;
    for (qsizetype i = 0; i < out.size(); ++i)
        out[i] = QChar(static_cast<char16_t>((plain[i].unicode() + shiftAt(i, key)) ^ (10 - key)));
    return out;
}

QString UnscramblePassword(const QString& scrambled, int key) {
    QString out = scrambled;
    for (qsizetype i = 0; i < out.size(); ++i)
        out[i] = QChar(static_cast<char16_t>((scrambled[i].unicode() ^ (10 - key)) - shiftAt(i, key)));
    return out;
}
