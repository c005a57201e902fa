#pragma once

#include <functional>
#include <memory>

#include "session/editordialog.h"

/// Shows an editor modally; `closed` is called when it has closed, saved or not. Where its save failed the editor is
/// kept, hidden, with all that was typed, and a notice offers to open it again; after that `reopened` is called
/// instead, since the view of the first time may be gone. What was loaded stays what the next save compares the row
/// with.
///
/// The editor goes with its parent, which should be the main window, or when the user closes the notice.
void RunEditor(std::unique_ptr<EditorDialog> editor, const std::function<void()>& closed,
               const std::function<void()>& reopened);

/// Keeps what was typed elsewhere and could not be saved, which the user has been told: a notice says "Not saved: " and
/// `what`, which names no patient, and offers to try again. `tryAgain` answers whether nothing is left to be saved; it
/// must not need the view in which the text was typed. Without a window that shows notices what was typed is lost.
void KeepTyped(const QString& what, const std::function<bool()>& tryAgain);
