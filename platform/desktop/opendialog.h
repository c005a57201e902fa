#pragma once

/// A dialog is open for as long as one of these lives, and no command of the windows behind it runs.
///
/// Qt holds back the mouse and the keys of the windows behind a modal dialog. Two things that were begun there before
/// get through all the same: a shortcut, until the window system has made the dialog the active window, and a button
/// that was pressed by its letter, which clicks a tenth of a second later. Both go nowhere.
class OpenDialog {
  public:
    OpenDialog();
    ~OpenDialog();
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;

    [[nodiscard]] static bool Any();
};
