#pragma once

#include "shell/viewmenus.h"

// The menus of each view. A command that does the same in several views has the same name in all of them.

[[nodiscard]] std::span<const MenuEntry> DayMenus();
/// The menus of the day view without the Tasks menu, since only the day view shows the tasks.
[[nodiscard]] std::span<const MenuEntry> WeekMenus();
[[nodiscard]] std::span<const MenuEntry> AllProvidersMenus();
/// The File, View and Help menus. The month view is only read, so it has no commands on appointments.
[[nodiscard]] std::span<const MenuEntry> MonthMenus();
[[nodiscard]] std::span<const MenuEntry> RoomMenus();
/// The menus of the companion's schedule, whose appointments have commands of their own.
[[nodiscard]] std::span<const MenuEntry> CompanionMenus();

/// Whether the menus of at least one view hold the name.
[[nodiscard]] bool InMenusOfAnyView(MenuName name);
