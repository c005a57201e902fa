#include "data/pipefields.h"

#include <algorithm>

#include "platform/text/plaintext.h"

QString GetPipeField(const QString& text, int n) {
    return text.section(QLatin1Char('|'), std::max(n, 1) - 1, std::max(n, 1) - 1);
}

QString CleanFieldText(const QString& text) {
    QString clean;
    clean.reserve(text.size());
    for (const QChar c : text) {
        if (c != QLatin1Char('\r') && c != QLatin1Char(';') && c != QLatin1Char('|'))
            clean += c;
    }
    return OneLine(clean);
}

QString insertpipes(const QString& text) {
    return QString(text).replace(QLatin1Char(';'), QLatin1Char('|'));
}
