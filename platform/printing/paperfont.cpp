#include "platform/printing/paperfont.h"

#include <QStringList>

namespace printing {

QFont PaperFont(const QString& family, double points) {
    QFont font;
    font.setFamilies({family, QStringLiteral("Arial"), QStringLiteral("Liberation Sans"), QStringLiteral("Helvetica"),
                      QStringLiteral("DejaVu Sans Condensed")});
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(points);
    return font;
}

}  // namespace printing
