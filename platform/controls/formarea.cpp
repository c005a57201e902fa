#include "platform/controls/formarea.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QStyle>

namespace {

/// The room that the window's frame and a panel of the desktop may take of the screen.
constexpr QSize FrameAllowance(16, 56);

}  // namespace

FormArea::FormArea(QWidget* fields, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(fields);
    following_ = connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { followFocus(now); });
}

// The fields lose the focus while they are destroyed, when this is no longer a form area.
FormArea::~FormArea() {
    disconnect(following_);
}

// What the user clicks on must not move away under the pointer.
void FormArea::followFocus(QWidget* now) {
    if (now != nullptr && widget()->isAncestorOf(now) && QApplication::mouseButtons() == Qt::NoButton)
        ensureWidgetVisible(now);
}

QSize FormArea::sizeHint() const {
    return widget()->sizeHint().expandedTo(widget()->minimumSize());
}

QSize FormArea::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().height() * 6};
}

void FitToScreen(QDialog& form) {
    const QSize wanted = form.sizeHint();
    const QSize offered = form.screen()->availableSize() - FrameAllowance;
    const int scrollBar = form.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &form);
    const int beside = wanted.height() > offered.height() ? scrollBar : 0;
    form.resize(QSize(wanted.width() + beside, wanted.height()).boundedTo(offered));
}
