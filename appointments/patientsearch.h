#pragma once

#include <QString>

class QLineEdit;
class QPushButton;
class ctList;

/// Selects the first row of a patient list whose name contains the text, in any case, shows it and gives it the focus.
/// Without one, or without a text, the user is told "Name not found.".
void FindInPatientList(ctList& list, const QString& text);

/// Enter in the field presses the button, or nothing while the button is off: never the default button of the form.
void PressOnEnter(QLineEdit& field, QPushButton& button);
