#include "platform/theme/quietpaint.h"

#include <QPainterPath>

namespace quiet {

namespace {

bool has(const QStyleOption& option, QStyle::StateFlag flag) {
    return option.state.testFlag(flag);
}

/// The border and the fill of the box of a check box or radio button.
struct BoxColours {
    QColor fill, border, mark;
};

BoxColours boxColours(const QStyleOption& option, bool on) {
    const QPalette& palette = option.palette;
    const QColor muted = palette.color(QPalette::Disabled, QPalette::Text);
    if (!has(option, QStyle::State_Enabled))
        return {on ? palette.color(QPalette::Midlight) : palette.color(QPalette::Window), palette.color(QPalette::Mid),
                muted};
    const QColor accent = palette.color(QPalette::Link);
    if (on)
        return {accent, accent, palette.color(QPalette::BrightText)};
    const bool lit = has(option, QStyle::State_MouseOver) || has(option, QStyle::State_HasFocus);
    return {palette.color(QPalette::Base), lit ? accent : muted, accent};
}

}  // namespace

void panel(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& border, double width) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(border.alpha() == 0 ? QPen(Qt::NoPen) : QPen(border, width));
    painter.setBrush(fill);
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), Radius, Radius);
    painter.restore();
}

void focusRing(QPainter& painter, const QRect& rect, const QPalette& palette) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette.color(QPalette::Link), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect).adjusted(1, 1, -1, -1), Radius, Radius);
    painter.restore();
}

void chevron(QPainter& painter, const QRect& rect, Qt::ArrowType direction, const QColor& colour) {
    const double reach = 3.5;
    QPainterPath path;
    path.moveTo(-reach, -reach / 2);
    path.lineTo(0, reach / 2);
    path.lineTo(reach, -reach / 2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(QRectF(rect).center());
    painter.rotate(direction == Qt::UpArrow      ? 180
                   : direction == Qt::LeftArrow  ? 90
                   : direction == Qt::RightArrow ? -90
                                                 : 0);
    painter.drawPath(path);
    painter.restore();
}

QColor buttonFill(const QStyleOption& option) {
    const QPalette& palette = option.palette;
    if (!has(option, QStyle::State_Enabled))
        return palette.color(QPalette::Window);
    if (has(option, QStyle::State_Sunken))
        return palette.color(QPalette::Mid);
    return palette.color(has(option, QStyle::State_MouseOver) ? QPalette::Midlight : QPalette::Button);
}

void pushButton(QPainter& painter, const QStyleOption& option, bool isDefault) {
    const QPalette& palette = option.palette;
    const bool primary = isDefault && has(option, QStyle::State_Enabled);
    QColor fill = buttonFill(option);
    QColor border = palette.color(QPalette::Mid);
    if (primary) {
        fill = palette.color(QPalette::Link);
        if (has(option, QStyle::State_Sunken))
            fill = fill.darker(118);
        else if (has(option, QStyle::State_MouseOver))
            fill = fill.lighter(112);
        border = fill;
    } else if (has(option, QStyle::State_On)) {
        fill = palette.color(QPalette::Highlight);
        border = palette.color(QPalette::Link);
    }
    panel(painter, option.rect, fill, border);
    if (!has(option, QStyle::State_HasFocus))
        return;
    focusRing(painter, option.rect, palette);
    if (primary)  // A ring in the fill's own colour would not be seen, so a line is drawn between them.
        panel(painter, option.rect.adjusted(2, 2, -2, -2), Qt::transparent, palette.color(QPalette::BrightText), 1);
}

void toolButton(QPainter& painter, const QStyleOption& option) {
    const QPalette& palette = option.palette;
    const bool enabled = has(option, QStyle::State_Enabled);
    if (enabled && has(option, QStyle::State_Sunken))
        panel(painter, option.rect, palette.color(QPalette::Mid), Qt::transparent);
    else if (has(option, QStyle::State_On))
        panel(painter, option.rect, palette.color(QPalette::Highlight), palette.color(QPalette::Link));
    else if (enabled && has(option, QStyle::State_MouseOver))
        panel(painter, option.rect, palette.color(QPalette::Midlight), Qt::transparent);
    if (has(option, QStyle::State_HasFocus))
        focusRing(painter, option.rect, palette);
}

void fieldFrame(QPainter& painter, const QStyleOption& option) {
    const QPalette& palette = option.palette;
    const bool enabled = has(option, QStyle::State_Enabled);
    const bool focus = enabled && has(option, QStyle::State_HasFocus);
    QColor border = palette.color(QPalette::Mid);
    if (focus)
        border = palette.color(QPalette::Link);
    else if (enabled && has(option, QStyle::State_MouseOver))
        border = palette.color(QPalette::Disabled, QPalette::Text);
    const bool readOnly = has(option, QStyle::State_ReadOnly);
    panel(painter, option.rect, palette.color(enabled && !readOnly ? QPalette::Base : QPalette::Window), border,
          focus ? 2 : 1);
}

void checkBox(QPainter& painter, const QStyleOption& option) {
    const bool partly = has(option, QStyle::State_NoChange);
    const bool on = has(option, QStyle::State_On) || partly;
    const BoxColours colours = boxColours(option, on);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(colours.border, 1));
    painter.setBrush(colours.fill);
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(QPen(colours.mark, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const auto at = [&box](double x, double y) { return box.topLeft() + QPointF(x * box.width(), y * box.height()); };
    if (partly)
        painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
    else if (on)
        painter.drawPolyline(QPolygonF({at(0.24, 0.53), at(0.43, 0.71), at(0.77, 0.31)}));
    painter.restore();
}

void radioButton(QPainter& painter, const QStyleOption& option) {
    const bool on = has(option, QStyle::State_On);
    const BoxColours colours = boxColours(option, on);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF circle = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(colours.border, 1));
    painter.setBrush(colours.fill);
    painter.drawEllipse(circle);
    if (on) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colours.mark);
        painter.drawEllipse(circle.center(), circle.width() * 0.2, circle.height() * 0.2);
    }
    painter.restore();
}

void comboBox(QPainter& painter, const QStyleOptionComboBox& option, const QRect& arrow) {
    const QPalette& palette = option.palette;
    if (option.editable || !has(option, QStyle::State_Enabled)) {
        fieldFrame(painter, option);
    } else {
        panel(painter, option.rect, buttonFill(option), palette.color(QPalette::Mid));
        if (has(option, QStyle::State_HasFocus))
            focusRing(painter, option.rect, palette);
    }
    const bool enabled = has(option, QStyle::State_Enabled);
    chevron(painter, arrow, Qt::DownArrow,
            palette.color(enabled ? QPalette::Normal : QPalette::Disabled, QPalette::ButtonText));
}

void spinBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down) {
    if (option.frame)
        fieldFrame(painter, option);
    if (option.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    const auto draw = [&](const QRect& rect, QStyle::SubControl part, Qt::ArrowType arrow,
                          QAbstractSpinBox::StepEnabledFlag step) {
        const bool enabled = has(option, QStyle::State_Enabled) && option.stepEnabled.testFlag(step);
        if (enabled && option.activeSubControls == part && has(option, QStyle::State_MouseOver))
            painter.fillRect(
                rect, option.palette.color(has(option, QStyle::State_Sunken) ? QPalette::Mid : QPalette::Midlight));
        chevron(painter, rect, arrow,
                option.palette.color(enabled ? QPalette::Normal : QPalette::Disabled, QPalette::Text));
    };
    draw(up, QStyle::SC_SpinBoxUp, Qt::UpArrow, QAbstractSpinBox::StepUpEnabled);
    draw(down, QStyle::SC_SpinBoxDown, Qt::DownArrow, QAbstractSpinBox::StepDownEnabled);
}

void scrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& slider) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    if (option.minimum >= option.maximum)
        return;
    QColor handle = option.palette.color(QPalette::Disabled, QPalette::Text);
    const bool active = option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    handle.setAlphaF(active && has(option, QStyle::State_Sunken)      ? 0.85F
                     : active && has(option, QStyle::State_MouseOver) ? 0.7F
                                                                      : 0.45F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(handle);
    const QRectF body = QRectF(slider).adjusted(3, 3, -3, -3);
    const double radius = std::min(body.width(), body.height()) / 2;
    painter.drawRoundedRect(body, radius, radius);
    painter.restore();
}

void headerSection(QPainter& painter, const QStyleOptionHeader& option) {
    const bool lit = has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled);
    painter.fillRect(option.rect, option.palette.color(lit ? QPalette::Midlight : QPalette::Window));
    painter.setPen(option.palette.color(QPalette::Mid));
    painter.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    if (option.position != QStyleOptionHeader::End && option.position != QStyleOptionHeader::OnlyOneSection)
        painter.drawLine(option.rect.topRight() + QPoint(0, 4), option.rect.bottomRight() - QPoint(0, 4));
}

void menuBarItem(QPainter& painter, const QStyleOptionMenuItem& option) {
    painter.fillRect(option.rect, option.palette.color(QPalette::Window));
    if (has(option, QStyle::State_Selected) && has(option, QStyle::State_Enabled))
        panel(painter, option.rect.adjusted(0, 1, 0, -1),
              option.palette.color(has(option, QStyle::State_Sunken) ? QPalette::Highlight : QPalette::Midlight),
              Qt::transparent);
}

void tab(QPainter& painter, const QStyleOptionTab& option) {
    const bool selected = has(option, QStyle::State_Selected);
    if (!selected && has(option, QStyle::State_MouseOver) && has(option, QStyle::State_Enabled))
        panel(painter, option.rect.adjusted(1, 2, -1, -3), option.palette.color(QPalette::Midlight), Qt::transparent);
    const QRect line(option.rect.left() + 4, option.rect.bottom() - 2, option.rect.width() - 8, 3);
    if (selected)
        panel(painter, line, option.palette.color(QPalette::Link), Qt::transparent);
}

void splitter(QPainter& painter, const QStyleOption& option) {
    const bool vertical = option.rect.width() < option.rect.height();
    const QPoint middle = option.rect.center();
    QColor colour = option.palette.color(QPalette::Mid);
    if (has(option, QStyle::State_MouseOver))
        colour = option.palette.color(QPalette::Link);
    const QSize size = vertical ? QSize(2, 28) : QSize(28, 2);
    painter.fillRect(QRect(middle - QPoint(size.width() / 2, size.height() / 2), size), colour);
}

}  // namespace quiet
