#pragma once

#include <QString>

class QLineEdit;
class QPushButton;
class ctList;

/// Selects and shows the first row of a patient list whose name contains the text, in any letter case, and gives the
/// focus to the list. When no name does, or the text is empty, the user is told "Name not found.".
void FindInPatientList(ctList& list, const QString& text);

/// Returns how many patients the list shows, in the practice's word for them: "12 patients", "1 of 12 clients".
[[nodiscard]] QString PatientCount(const ctList& list);

/// Makes Enter in the field press the button. While the button is disabled, Enter does nothing; it never presses the
/// default button of the form.
void PressOnEnter(QLineEdit& field, QPushButton& button);
