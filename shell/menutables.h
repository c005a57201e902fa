#pragma once

#include "shell/viewmenus.h"

// What stands in the menus of each view. A command that does the same in several views has one name in all of them.

[[nodiscard]] std::span<const MenuEntry> DayMenus();
/// The day's without the tasks, which stand beside the day alone.
[[nodiscard]] std::span<const MenuEntry> WeekMenus();
[[nodiscard]] std::span<const MenuEntry> AllProvidersMenus();
/// To be read only: the lists, the views and help.
[[nodiscard]] std::span<const MenuEntry> MonthMenus();
[[nodiscard]] std::span<const MenuEntry> RoomMenus();

/// Whether one of them holds the name.
[[nodiscard]] bool InMenusOfAnyView(MenuName name);
