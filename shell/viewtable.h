#pragma once

#include <array>
#include <QString>

#include "session/view.h"

/// The texts by which the task pane, the toolbar and the command line name a calendar view. They are the
/// system's own.
struct ViewEntry {
    View view;
    const char* key;   ///< The key of the view's item in the task pane.
    const char* item;  ///< The text of that item.
    const char* hint;
    const char* icon;
    const char* previous;  ///< The captions of the step commands; empty when the view has no steps.
    const char* next;
    const char* option;  ///< The view's name on the command line.
};

inline constexpr std::array<ViewEntry, 6> ViewTable{{
    {View::Day, "DAY", "Day View", "Show day view for selected provider", "day", "Previous Day", "Next Day", "day"},
    {View::Week, "WEEK", "Week View", "Show week view for selected provider", "week", "Previous Week", "Next Week",
     "week"},
    {View::Month, "MONTH", "Month View", "Show month view for selected provider", "month", "Previous Month",
     "Next Month", "month"},
    {View::AllProviders, "ALL", "All Provider View", "Show schedule for all providers for selected day", "all",
     "Previous Day", "Next Day", "all"},
    {View::Rooms, "ROOM", "Room View", "Show room schedule for selected day", "rooms", "", "", "rooms"},
    {View::Companion, "FH", "Fernhall Calendar", "Show Fernhall Schedule", "companion", "Previous Day", "Next Day",
     "companion"},
}};

/// The per-user settings that keep whether the task pane is shown ("1" or "0"), and its width in pixels.
inline constexpr char TaskPaneSetting[] = "TaskPane";
inline constexpr char TaskPaneWidthSetting[] = "TaskPaneWidth";

/// These return the entry of a view, or nullptr when there is none, as for View::None.
[[nodiscard]] const ViewEntry* FindView(View view);
[[nodiscard]] const ViewEntry* FindViewByKey(const QString& taskPaneKey);
[[nodiscard]] const ViewEntry* FindViewByOption(const QString& name);
