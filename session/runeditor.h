#pragma once

#include <functional>
#include <memory>

#include "session/editordialog.h"

/// Shows an editor modally. `closed` is called when the editor has closed, whether it was saved or not. When its save
/// failed, the editor is kept hidden with everything that was typed, and a notice offers to open it again. When it
/// closes after that, `reopened` is called instead of `closed`, since the view that opened it may be gone. A later save
/// still compares the row with the values that the editor loaded first.
///
/// A kept editor is deleted together with its parent, which should be the main window, or when the user closes the
/// notice. Without a window that shows notices it is deleted at once.
void RunEditor(std::unique_ptr<EditorDialog> editor, const std::function<void()>& closed,
               const std::function<void()>& reopened);

/// Keeps text that was typed outside an editor and could not be saved. The caller has already told the user so. A
/// notice says "Not saved: " and `what`, which must not name a patient, and offers to try again. `tryAgain` returns
/// true when nothing is left to be saved. It must not need the view in which the text was typed, since that may be
/// gone. Without a window that shows notices the text is lost.
void KeepTyped(const QString& what, const std::function<bool()>& tryAgain);
