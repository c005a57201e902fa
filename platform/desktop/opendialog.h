#pragma once

/// Marks a dialog as open for as long as the object lives. No command of the windows behind it runs meanwhile.
///
/// Qt blocks the mouse and the keys of the windows behind a modal dialog. Two inputs that began before would still get
/// through: a shortcut, until the window system has made the dialog the active window, and a button that was pressed by
/// its letter, which clicks a tenth of a second later. This class stops both.
class OpenDialog {
  public:
    OpenDialog();
    ~OpenDialog();
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;

    /// Whether any dialog is open.
    [[nodiscard]] static bool Any();
};
