#include "session/brandpanel.h"

#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr QColor Deep(24, 66, 90);
constexpr QColor Light(46, 125, 138);
constexpr QColor Warm(246, 196, 114);
constexpr double MarkSize = 68;

// Paints a calendar leaf of three rows with one slot taken.
void paintMark(QPainter& painter, const QPointF& corner) {
    const QRectF leaf(corner, QSizeF(MarkSize, MarkSize));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 240));
    painter.drawRoundedRect(leaf, 14, 14);
    painter.setBrush(QColor(24, 66, 90, 60));
    for (int row = 0; row < 3; ++row)
        painter.drawRoundedRect(QRectF(leaf.left() + 12, leaf.top() + 15 + row * 15, 44, 8), 4, 4);
    painter.setBrush(Warm);
    painter.drawRoundedRect(QRectF(leaf.left() + 26, leaf.top() + 29, 30, 10), 5, 5);
}

// Paints wide soft arcs, so that the field is not flat but draws no attention.
void paintArcs(QPainter& painter, const QRectF& area) {
    painter.setBrush(Qt::NoBrush);
    for (int i = 0; i < 4; ++i) {
        painter.setPen(QPen(QColor(255, 255, 255, 20 - 3 * i), 18));
        const double radius = 70 + 48 * i;
        painter.drawEllipse(area.bottomRight(), radius, radius);
    }
}

}  // namespace

QSize BrandPanel::sizeHint() const {
    return {230, 340};
}

void BrandPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = rect();
    QLinearGradient field(area.topLeft(), area.bottomRight());
    field.setColorAt(0, Deep);
    field.setColorAt(1, Light);
    painter.fillRect(area, field);
    paintArcs(painter, area);
    paintMark(painter, QPointF(28, 36));

    painter.setPen(Qt::white);
    QFont name = font();
    name.setPointSizeF(name.pointSizeF() * 2.2);
    name.setWeight(QFont::DemiBold);
    painter.setFont(name);
    const double line = QFontMetricsF(name).height();
    painter.drawText(QPointF(28, 36 + MarkSize + 22 + line * 0.8), QStringLiteral("Solvane"));
    QFont product = font();
    product.setPointSizeF(product.pointSizeF() * 1.35);
    painter.setFont(product);
    painter.setPen(QColor(255, 255, 255, 220));
    painter.drawText(QPointF(28, 36 + MarkSize + 22 + line * 0.8 + QFontMetricsF(product).height() * 1.15),
                     QStringLiteral("Scheduler"));
}
