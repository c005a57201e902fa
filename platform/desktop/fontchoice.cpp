#include "platform/desktop/fontchoice.h"

#include <QFontDatabase>
#include <QFontDialog>

#include "platform/desktop/desktop.h"

namespace {

/// Returns the font with the family's own name of its style. Without it, the window would not find the regular style of
/// a family that calls it "Book", and would begin with another one.
QFont withStyleName(QFont font) {
    const QString family = font.family();
    for (const QString& style : QFontDatabase::styles(family)) {
        if (QFontDatabase::bold(family, style) == font.bold() &&
            QFontDatabase::italic(family, style) == font.italic()) {
            font.setStyleName(style);
            break;
        }
    }
    return font;
}

}  // namespace

std::optional<QFont> ChooseFont(const QString& title, const QFont& proposal) {
    QFontDialog dialog(withStyleName(proposal));
    dialog.setObjectName(QStringLiteral("QFontDialog"));
    dialog.setWindowTitle(title);
    // The desktop's own window would neither look like the program nor run through ShowModal.
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    // The window shows another family for one that is missing, in a style of its own, and sizes without fractions.
    const QFont begun = dialog.currentFont();
    if (ShowModal(dialog) != QDialog::Accepted)
        return std::nullopt;
    QFont chosen = dialog.currentFont();
    if (chosen.pointSizeF() == begun.pointSizeF())
        chosen.setPointSizeF(proposal.pointSizeF());
    if (chosen.family() != begun.family())
        return chosen;
    chosen.setFamilies(proposal.families());
    if (chosen.bold() == begun.bold() && chosen.italic() == begun.italic()) {
        chosen.setBold(proposal.bold());
        chosen.setItalic(proposal.italic());
    }
    return chosen;
}
