#pragma once

#include <QString>
#include <QStringList>
#include <stdexcept>

/// What cannot be done; the reason goes to whoever asked.
class CannotObey : public std::runtime_error {
  public:
    explicit CannotObey(const QString& why) : std::runtime_error(why.toStdString()) {}
};

/// From now on what the program hands to the desktop (a mail, a file) is only remembered, for the command "opened".
void KeepFromDesktop();
/// The name of the window that takes the input now: a form's object name, "box" for a message box, "popup" for a menu.
[[nodiscard]] QString WindowInFront();
/// Does what the words say to the window in front and returns what there is to tell. A command that may open a dialog
/// runs after this has returned. Throws CannotObey.
[[nodiscard]] QString ObeyInWindow(const QStringList& words);
