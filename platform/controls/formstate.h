#pragma once

#include <QStringList>

class QWidget;

/// Returns the contents of a form's fields: texts, choices, check marks, and the selected rows of lists in which
/// several can be selected. Two states of one form are equal where the user would see no difference between them.
[[nodiscard]] QStringList FormState(const QWidget& form);
