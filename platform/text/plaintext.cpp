#include "platform/text/plaintext.h"

#include <algorithm>
#include <QTextDocument>

namespace {

bool isControl(QChar letter) {
    return letter.category() == QChar::Other_Control || letter == QChar::LineSeparator ||
           letter == QChar::ParagraphSeparator;
}

bool breaksLine(QChar letter) {
    return letter == u'\n' || letter == u'\r' || letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator;
}

QString withBreaksAs(QChar lineBreak, const QString& text) {
    if (std::none_of(text.begin(), text.end(), isControl))
        return text;
    QString plain;
    plain.reserve(text.size());
    QChar before;
    for (const QChar letter : text) {
        if (before != u'\r' || letter != u'\n')
            plain += breaksLine(letter) ? lineBreak : isControl(letter) ? u' ' : letter;
        before = letter;
    }
    return plain;
}

}  // namespace

QString OneLine(const QString& text) {
    return withBreaksAs(u' ', text);
}

QString ManyLines(const QString& text) {
    return withBreaksAs(u'\n', text);
}

QString TipText(const QString& text) {
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<qt>%1</qt>").arg(ManyLines(text).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

QString FirstCharacters(const QString& text, int most) {
    QString first = text.left(most);
    if (first.size() < text.size() && !first.isEmpty() && first.back().isHighSurrogate())
        first.chop(1);
    return first;
}

QString CaptionText(const QString& text) {
    return OneLine(text).replace(u'&', QStringLiteral("&&"));
}
