#pragma once

#include <initializer_list>
#include <QDialog>
#include <QHBoxLayout>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"

// What the editors of appointments are built of.

/// A combo that takes the width which its form leaves it, at least `characters`.
[[nodiscard]] CompletingCombo* EditorCombo(CompletingCombo::Entry entry, const char* name,
                                           const QString& accessibleName, int characters, QWidget* parent);
/// A date or a time.
[[nodiscard]] ctDEdit* EditorDate(ctDEdit::Kind kind, const char* name, const QString& accessibleName, QWidget* parent);
/// In a row, the last taking what is left.
[[nodiscard]] QHBoxLayout* InARow(std::initializer_list<QWidget*> widgets);

/// Fills the form with two halves, which share its width so, above its buttons.
void LayInHalves(QDialog& form, QWidget* left, int leftShare, QWidget* right, int rightShare, QLayout* buttons);

/// "appointment on 3/11/2026 at 9:00 AM": what an editor's notice names an entry by, without its patient.
[[nodiscard]] QString EntrySubject(const QString& date, const QString& time);
/// Tells that what was saved had been deleted at another desk and is a new appointment now.
void TellAddedAgain();

/// Whether an appointment can be saved at these times. The first thing that is wrong is told, titled "Missing Data",
/// and the focus goes to its field. A date that is none is refused in every view that shows it: an entry without a date
/// would be on no calendar.
[[nodiscard]] bool TimesAreValid(ctDEdit& start, ctDEdit& end, ctDEdit& date);
