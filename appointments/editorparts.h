#pragma once

#include <initializer_list>
#include <QDialog>
#include <QHBoxLayout>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"

// The parts of which the editors of appointments are built.

/// Returns a new combo that takes all the width which its form leaves to it, and at least that of `characters`.
/// `parent` owns the combo.
[[nodiscard]] CompletingCombo* EditorCombo(CompletingCombo::Entry entry, const char* name,
                                           const QString& accessibleName, int characters, QWidget* parent);
/// Returns a new field for a date or a time, by `kind`. `parent` owns the field.
[[nodiscard]] ctDEdit* EditorDate(ctDEdit::Kind kind, const char* name, const QString& accessibleName, QWidget* parent);
/// Returns a new layout with the widgets in a row, of which the last takes the width that is left.
[[nodiscard]] QHBoxLayout* InARow(std::initializer_list<QWidget*> widgets);

/// Fills the form with two halves above its buttons. The halves share the width in the proportion of `leftShare` to
/// `rightShare`.
void LayInHalves(QDialog& form, QWidget* left, int leftShare, QWidget* right, int rightShare, QLayout* buttons);

/// Returns the words by which an editor's notice names an entry: "appointment on 3/11/2026 at 9:00 AM". The patient is
/// not named.
[[nodiscard]] QString EntrySubject(const QString& date, const QString& time);
/// Tells by a notice that the saved appointment had been deleted at another desk and was added again as a new one.
void TellAddedAgain();

/// Whether an appointment can be saved at these times. The user is told the first fault in a box titled "Missing Data",
/// and the focus goes to the field at fault. A missing or invalid date is refused in every view that shows the date,
/// because an entry without a date would be on no calendar.
[[nodiscard]] bool TimesAreValid(ctDEdit& start, ctDEdit& end, ctDEdit& date);
