#pragma once

#include <QStringList>

class QWidget;

/// What stands in the fields of a form: texts, choices, check marks and the selected rows of lists that hold more than
/// one. Two states of one form are equal where the user would see no difference in them.
[[nodiscard]] QStringList FormState(const QWidget& form);
