#pragma once

/// The views of the main window. Their numbers are those of Ctrl+1 to Ctrl+6 and of the order in the task pane.
enum class View {
    None = 0,  ///< No view is open yet.
    Day = 1,
    Week = 2,
    Month = 3,
    AllProviders = 4,
    Rooms = 5,
    Companion = 6
};
