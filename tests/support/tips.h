#pragma once

#include <QPoint>
#include <QString>

class QWidget;

/// The tip that the pointer at `place`, in the widget's own coordinates, brings up; empty where none comes.
[[nodiscard]] QString TipAt(QWidget& widget, QPoint place);
