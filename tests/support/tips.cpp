#include "tests/support/tips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

QString TipAt(QWidget& widget, QPoint place) {
    // A tip that is taken away stays for a moment; the one before must not be taken for this one.
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->inherits("QTipLabel"))
            window->hide();
    QHelpEvent help(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}
