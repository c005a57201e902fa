#include "platform/controls/formarea.h"

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
