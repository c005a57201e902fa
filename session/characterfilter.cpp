#include "session/characterfilter.h"

CharacterFilter::CharacterFilter(std::function<bool(QChar)> accepts, QObject* parent)
    : QValidator(parent), accepts_(std::move(accepts)) {}

QValidator::State CharacterFilter::validate(QString& text, int& cursor) const {
    QString kept;
    int keptBeforeCursor = 0;
    for (int i = 0; i < text.size(); ++i) {
        if (!accepts_(text[i]))
            continue;
        kept += text[i];
        keptBeforeCursor += i < cursor ? 1 : 0;
    }
    text = kept;
    cursor = keptBeforeCursor;
    return Acceptable;
}
