#pragma once

/// The views of the main window. A view's number is its digit in Ctrl+1 to Ctrl+6 and its place in the task pane.
enum class View {
    None = 0,  ///< No view is open yet.
    Day = 1,
    Week = 2,
    Month = 3,
    AllProviders = 4,
    Rooms = 5,
    Companion = 6
};

/// Whether appointments are booked and edited in this view. They are in the day, the week and the all-providers view.
[[nodiscard]] constexpr bool ViewHasEditor(View view) {
    return view == View::Day || view == View::Week || view == View::AllProviders;
}
