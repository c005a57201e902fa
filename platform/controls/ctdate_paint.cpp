#include <QLocale>
#include <QPainter>
#include <QPainterPath>

#include "platform/controls/ctdate.h"
#include "platform/desktop/desktop.h"
#include "platform/theme/icon.h"

namespace {

bool isWeekend(Qt::DayOfWeek day) {
    return day == Qt::Saturday || day == Qt::Sunday;
}

/// Returns the largest square in the middle of a cell, so that rings and fills stay round in a wide pane.
QRectF disc(const QRect& cell) {
    const double edge = std::min(cell.width(), cell.height()) - 2;
    QRectF square(0, 0, edge, edge);
    square.moveCenter(QRectF(cell).center());
    return square;
}

}  // namespace

void ctDate::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintHeading(painter);
    paintDayNames(painter);
    for (int position = 0; position < MonthGrid::Weeks * MonthGrid::Days; ++position)
        paintDay(painter, position);
}

void ctDate::paintHeading(QPainter& painter) const {
    const DateLayout layout = Layout();
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(layout.heading(), Qt::AlignCenter, HeadingText());
    const auto arrow = [&](const QRect& rect, DateLayout::Hit::Part part, const QString& name) {
        if (hover_.part == part) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(palette().color(QPalette::Midlight));
            painter.drawEllipse(disc(rect));
        }
        const int edge = fontMetrics().height();
        QRect place(0, 0, edge, edge);
        place.moveCenter(rect.center());
        painter.drawPixmap(place.topLeft(),
                           IconPixmap(name, palette().color(QPalette::WindowText), edge, devicePixelRatioF()));
    };
    arrow(layout.previous(), DateLayout::Hit::Part::Previous, QStringLiteral("previous"));
    arrow(layout.next(), DateLayout::Hit::Part::Next, QStringLiteral("next"));
}

void ctDate::paintDayNames(QPainter& painter) const {
    const DateLayout layout = Layout();
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    painter.setFont(small);
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    for (int day = 0; day < MonthGrid::Days; ++day)
        painter.drawText(layout.dayName(day), Qt::AlignCenter,
                         QLocale::c().dayName(grid_.dayOfWeekAt(day), QLocale::ShortFormat).left(2));
    const int y = layout.dayName(0).bottom();
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(2, y, width() - 3, y);
}

void ctDate::paintDay(QPainter& painter, int position) const {
    const QDate date = grid_.dateAt(0, position);
    const QRect cell = Layout().dayAt(position);
    const QRectF circle = disc(cell);
    const bool inMonth = date.month() == grid_.month.month() && date.year() == grid_.month.year();
    const bool today = date == Today();
    const bool selected = date == date_;
    const QColor accent = palette().color(QPalette::Link);

    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::NoBrush);
    if (selected)
        painter.setBrush(accent);
    else if (hover_.part == DateLayout::Hit::Part::Day && hover_.position == position)
        painter.setBrush(palette().color(QPalette::Midlight));
    painter.drawEllipse(circle);
    painter.setBrush(Qt::NoBrush);
    if (today) {
        painter.setPen(QPen(selected ? palette().color(QPalette::BrightText) : accent, 1.4));
        painter.drawEllipse(circle.adjusted(2, 2, -2, -2));
    }
    if (selected && hasFocus()) {
        painter.setPen(QPen(accent, 1.6));
        painter.drawRoundedRect(QRectF(cell).adjusted(1, 0.5, -1, -0.5), 5, 5);
    }

    QColor ink = palette().color(QPalette::WindowText);
    if (isWeekend(static_cast<Qt::DayOfWeek>(date.dayOfWeek())))
        ink = palette().color(QPalette::Disabled, QPalette::WindowText);
    if (today)
        ink = accent;
    if (!inMonth)
        ink.setAlphaF(0.45F);
    if (selected)
        ink = palette().color(QPalette::BrightText);
    QFont dayFont = font();
    if (today || selected)
        dayFont.setWeight(QFont::DemiBold);
    painter.setFont(dayFont);
    painter.setPen(ink);
    painter.drawText(cell, Qt::AlignCenter, QString::number(date.day()));
}
