#pragma once

#include <QPainter>
#include <QStyleOption>

/// The parts from which QuietStyle draws controls. Rectangles are those of the whole control, in its own pixels.
namespace quiet {

inline constexpr double Radius = 5;

/// Draws a rounded panel. A border colour of alpha 0 draws no border. `width` is the border's.
void panel(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& border, double width = 1);
void focusRing(QPainter& painter, const QRect& rect, const QPalette& palette);
/// Draws an arrow head in the middle of `rect`.
void chevron(QPainter& painter, const QRect& rect, Qt::ArrowType direction, const QColor& colour);
/// Returns the fill of a control that can be pressed.
QColor buttonFill(const QStyleOption& option);

void pushButton(QPainter& painter, const QStyleOption& option, bool isDefault);
void toolButton(QPainter& painter, const QStyleOption& option);
void fieldFrame(QPainter& painter, const QStyleOption& option);
void checkBox(QPainter& painter, const QStyleOption& option);
void radioButton(QPainter& painter, const QStyleOption& option);

void comboBox(QPainter& painter, const QStyleOptionComboBox& option, const QRect& arrow);
void spinBox(QPainter& painter, const QStyleOptionSpinBox& option, const QRect& up, const QRect& down);
void scrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& slider);
void headerSection(QPainter& painter, const QStyleOptionHeader& option);
void menuBarItem(QPainter& painter, const QStyleOptionMenuItem& option);
void tab(QPainter& painter, const QStyleOptionTab& option);
void splitter(QPainter& painter, const QStyleOption& option);

}  // namespace quiet
