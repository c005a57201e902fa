#include "platform/controls/fieldflag.h"

#include <QApplication>
#include <QPainter>
#include <QToolTip>

#include "platform/text/plaintext.h"
#include "platform/theme/colours.h"
#include "platform/theme/icon.h"
#include "platform/theme/quietpaint.h"

namespace {

constexpr int SignSize = 16;

}  // namespace

FieldFlag::FieldFlag(QWidget& host, QLineEdit& edit)
    : QObject(&host), host_(host), edit_(edit), sign_(new QAction(tr("Not understood"), this)) {}

void FieldFlag::mark(const QString& complaint) {
    if (!isUp())
        description_ = host_.accessibleDescription();
    complaint_ = complaint;
    host_.setAccessibleDescription(complaint);
    sign_->setIcon(IconPixmap(QStringLiteral("warning"), Colour(host_.palette()), SignSize, host_.devicePixelRatioF()));
    sign_->setToolTip(TipText(complaint));
    edit_.addAction(sign_, QLineEdit::TrailingPosition);
    host_.update();
}

void FieldFlag::complain(const QString& complaint) {
    mark(complaint);
    QApplication::beep();
    if (host_.isVisible())
        QToolTip::showText(host_.mapToGlobal(QPoint(0, host_.height() / 2)), TipText(complaint), &host_);
}

void FieldFlag::clear() {
    if (!isUp())
        return;
    complaint_.clear();
    host_.setAccessibleDescription(description_);
    edit_.removeAction(sign_);
    host_.update();
}

void FieldFlag::paintBorder() const {
    if (!isUp())
        return;
    QPainter painter(&host_);
    quiet::panel(painter, host_.rect(), Qt::transparent, Colour(host_.palette()), host_.hasFocus() ? 2 : 1.5);
}

QColor FieldFlag::Colour(const QPalette& palette) {
    return ModeOf(palette) == ThemeMode::Dark ? QColor(0xFF8A80) : QColor(0xC42B1C);
}
