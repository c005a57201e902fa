#include "shell/menutables.h"

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Kind = MenuEntry::Kind;
using Table = std::vector<MenuEntry>;

Table fileMenu() {
    return {
        {Kind::Menu, "mnuFile", "&File"},
        {Kind::Command, "mnuFSelect", "&Select Therapist...", "user", "Ctrl+L"},
        {Kind::Separator, "mnuFsep1"},
        {Kind::Command, "mnuFLoc", "Lo&cations...", "location"},
        {Kind::Command, "mnuFRoomList", "&Rooms...", "rooms"},
        {Kind::Command, "mnuFActList", "&Activities/Events...", "activity"},
        {Kind::Command, "mnuFAtypes", "Appointment &Types...", "legend"},
        {Kind::Command, "mnuFAvail", "&Unavailable Time...", "unavailable"},
        {Kind::Command, "mnuFHolidays", "&Holidays...", "holiday"},
        {Kind::Separator, "mnuFsep2"},
        {Kind::Command, "mnuFPrefs", "Pre&ferences...", "preferences", "Ctrl+,"},
        {Kind::Separator, "mnuFsep3"},
        {Kind::Command, "mnuFPrintS", "&Print Schedule...", "print", "Ctrl+P"},
        {Kind::Command, "mnuFPrintA", "Print Appointment S&lip...", "print"},
        {Kind::Submenu, "mnuFExport", "&Export", "export"},
        {Kind::Command, "mnuFExportiCal", "&iCalendar"},
        {Kind::Command, "mnuFExportHTML", "&HTML"},
        {Kind::EndSubmenu},
        {Kind::Separator, "mnuFsep4"},
        {Kind::Command, "mnuFExit", "E&xit", "exit", "Ctrl+Q"},
    };
}

Table appointmentsMenu() {
    return {
        {Kind::Menu, "mnuAppointments", "&Appointments"},
        {Kind::Submenu, "mnuANew", "&New", "add"},
        {Kind::Command, "mnuANPat", "&Patient...", "user", "Ctrl+N"},
        {Kind::Command, "mnuASGroup", "&Group...", "group", "Ctrl+Shift+G"},
        {Kind::Command, "mnuANEvent", "&Activity/Event...", "activity", "Ctrl+Shift+E"},
        {Kind::Command, "mnuASType", "Appointment &Type...", "legend", "Ctrl+Shift+T"},
        {Kind::Command, "mnuANAvail", "&Unavailable Time...", "unavailable", "Ctrl+Shift+U"},
        {Kind::EndSubmenu},
        {Kind::Command, "mnuAEdit", "&Edit...", "edit", "Ctrl+E"},
        {Kind::Command, "mnuADelete", "&Delete\tDel", "delete"},
        {Kind::Separator, "mnuAsep1"},
        {Kind::Command, "mnuCheckediN", "Checked-&In...", "checkedin", "Ctrl+I"},
        {Kind::Command, "mnuAKept", "&Kept", "check", "Ctrl+K"},
        {Kind::Command, "mnuAMissed", "&Missed", "missed", "Ctrl+M"},
        {Kind::Command, "mnuAPCancel", "&Patient Cancel", "close"},
        {Kind::Command, "mnuATCancel", "T&herapist Cancel", "close"},
        {Kind::Separator, "mnuAsep2"},
        {Kind::Command, "mnuARepeat", "&Repeating...", "repeat", "Ctrl+R"},
        {Kind::Command, "mnuANote", "&Session Note...", "note"},
        {Kind::Separator, "mnuAsep3"},
        {Kind::Command, "mnuAFind", "&Find...", "find", "Ctrl+F"},
        {Kind::Submenu, "mnuASearchA", "Search A&vailability", "find"},
        {Kind::Command, "mnuASearchO", "By &Opening..."},
        {Kind::Command, "mnuASearchT", "By Appointment &Type..."},
        {Kind::EndSubmenu},
    };
}

Table allAppointmentsMenu() {
    return {
        {Kind::Menu, "mnuAppointments", "&Appointments"},
        {Kind::Submenu, "mnuANew", "&New", "add", nullptr, "mnuNew"},
        {Kind::Command, "mnuANPat", "&Schedule Patient", "user", "Ctrl+N", "mnuPatient"},
        {Kind::Command, "mnuASGroup", "Schedule &Group", "group", "Ctrl+Shift+G", "mnuSGroup"},
        {Kind::Command, "mnuANEvent", "Schedule &Activity/Event", "activity", "Ctrl+Shift+E", "mnuSEvent"},
        {Kind::Command, "mnuASType", "Schedule Appointment &Type", "legend", "Ctrl+Shift+T", "mnuSAType"},
        {Kind::Command, "mnuANAvail", "Schedule &Unavailable Time", "unavailable", "Ctrl+Shift+U", "mnuSAvail"},
        {Kind::EndSubmenu},
        {Kind::Command, "mnuAEdit", "&Edit...", "edit", "Ctrl+E", "mnuEdit"},
        {Kind::Command, "mnuADelete", "&Delete\tDel", "delete", nullptr, "mnuDelete"},
        {Kind::Separator, "mnuAsep1"},
        {Kind::Command, "mnuCheckediN", "Check-&In...", "checkedin", "Ctrl+I", "mnuaCheckin"},
        {Kind::Command, "mnuAKept", "&Kept", "check", "Ctrl+K"},
        {Kind::Command, "mnuAMissed", "&Missed", "missed", "Ctrl+M"},
        {Kind::Command, "mnuAPCancel", "&Patient Cancel", "close"},
        {Kind::Command, "mnuATCancel", "T&herapist Cancel", "close", nullptr, "mnuTCancel"},
        {Kind::Separator, "mnuAsep2"},
        {Kind::Command, "mnuARepeat", "&Repeating...", "repeat", "Ctrl+R", "mnuRepeating"},
        {Kind::Command, "mnuANote", "&Session Note...", "note"},
        {Kind::Separator, "mnuAsep3"},
        {Kind::Command, "mnuAFind", "&Find...", "find", "Ctrl+F"},
        {Kind::Submenu, "mnuASearchA", "Search A&vailability", "find"},
        {Kind::Command, "mnuASearchO", "By &Opening..."},
        {Kind::Command, "mnuASearchT", "By Appointment &Type..."},
        {Kind::EndSubmenu},
    };
}

Table tasksMenu() {
    return {
        {Kind::Menu, "mnuToDo", "&Tasks"},
        {Kind::Command, "mnuTNew", "&New Task...", "tasks"},
        {Kind::Command, "mnuTEdit", "&Edit Task...", "edit"},
        {Kind::Command, "mnuTDelete", "&Delete Task", "delete"},
        {Kind::Separator, "mnuTsep1"},
        {Kind::Command, "mnuTPrint", "&Print Tasks...", "print"},
    };
}

Table viewMenu() {
    return {
        {Kind::Menu, "mnuView", "&View"},
        {Kind::Command, "mnuVDay", "&Day View\tCtrl+1", "day"},
        {Kind::Command, "mnuVWeek", "&Week View\tCtrl+2", "week"},
        {Kind::Command, "mnuVMonth", "&Month View\tCtrl+3", "month"},
        {Kind::Command, "mnuVAll", "&All Providers\tCtrl+4", "all"},
        {Kind::Command, "mnuVRoom", "&Room Scheduler...\tCtrl+5", "rooms"},
        {Kind::Command, "mnuVFH", "&Fernhall Scheduler\tCtrl+6", "companion"},
        {Kind::Separator, "mnuVsep1"},
        {Kind::Command, "mnuVToday", "&Today\tCtrl+T", "today"},
        {Kind::Command, "mnuVPrevious", "&Previous Day\tAlt+Left", "previous"},
        {Kind::Command, "mnuVNext", "&Next Day\tAlt+Right", "next"},
        {Kind::Command, "mnuVRefresh", "Refr&esh", "refresh", "F5"},
        {Kind::Separator, "mnuVsep2"},
        {Kind::Command, "mnuVCheckedin", "&Checked-In...", "checkedin"},
        {Kind::Command, "mnuVActivity", "Activity &Scheduler...", "activity"},
        {Kind::Command, "mnuVColor", "Color &Legend...", "legend"},
        {Kind::Separator, "mnuVsep3"},
        {Kind::Command, "mnuVHidePats", "H&ide Patient Names\tCtrl+H", "eyeoff"},
        {Kind::Command, "mnuVHideTP", "&Hide Task Pane", "pane", "Ctrl+Shift+P"},
    };
}

Table helpMenu() {
    return {
        {Kind::Menu, "mnuHelp", "&Help"},
        {Kind::Command, "mnuHContents", "&Contents\tF1", "help"},
    };
}

// The month and the rooms have fewer lists, and none but their own names for some.
Table monthFileMenu() {
    return {
        {Kind::Menu, "mnuFile", "&File"},
        {Kind::Command, "mnuFSelect", "&Select Therapist", "user", "Ctrl+L"},
        {Kind::Separator, "mnuFsep1"},
        {Kind::Command, "mnuFLoc", "Lo&cations...", "location"},
        {Kind::Command, "mnuFRoomList", "&Rooms...", "rooms", nullptr, "mnuFRoom"},
        {Kind::Command, "mnuFActList", "&Activities/Events...", "activity"},
        {Kind::Separator, "mnuFsep2"},
        {Kind::Command, "mnuFPrefs", "Pre&ferences...", "preferences", "Ctrl+,"},
        {Kind::Separator, "mnuFsep3"},
        {Kind::Command, "mnuFExit", "E&xit", "exit", "Ctrl+Q"},
    };
}

Table monthViewMenu() {
    Table menu = viewMenu();
    for (MenuEntry& entry : menu)
        if (std::string_view(entry.name) == "mnuVActivity")
            entry.ownName = "mnuVAct";
    return menu;
}

Table roomFileMenu() {
    return {
        {Kind::Menu, "mnuFile", "&File"}, {Kind::Command, "mnuFRoomList", "&Rooms...", "rooms", nullptr, "mnuRoomList"},
        {Kind::Separator, "mnuFsep1"},    {Kind::Command, "mnuPrint", "&Print Schedule...", "print", "Ctrl+P"},
        {Kind::Separator, "mnuFsep2"},    {Kind::Command, "mnuFExit", "E&xit", "exit", "Ctrl+Q"},
    };
}

Table meetingMenu() {
    return {
        {Kind::Menu, "mnuMeeting", "&Meeting"},
        {Kind::Command, "mnuNew", "&New...", "add", "Ctrl+N"},
        {Kind::Command, "mnuEdit", "&Edit...", "edit", "Ctrl+E"},
        {Kind::Command, "mnuDelete", "&Delete\tDel", "delete"},
        {Kind::Separator, "mnuMsep1"},
        {Kind::Command, "mnuFind", "&Find...", "find", "Ctrl+F"},
    };
}

// The toolbar has no steps for the rooms, so the menu answers to their keys.
Table roomViewMenu() {
    return {
        {Kind::Menu, "mnuView", "&View"},
        {Kind::Command, "mnuVDay", "&Day View\tCtrl+1", "day", nullptr, "mnuDay"},
        {Kind::Command, "mnuVWeek", "&Week View\tCtrl+2", "week", nullptr, "mnuWeek"},
        {Kind::Command, "mnuVMonth", "&Month View\tCtrl+3", "month", nullptr, "mnuMonth"},
        {Kind::Command, "mnuVAll", "&All Providers\tCtrl+4", "all", nullptr, "mnuAll"},
        {Kind::Command, "mnuVRoom", "&Room Scheduler...\tCtrl+5", "rooms"},
        {Kind::Command, "mnuVFH", "&Fernhall Scheduler\tCtrl+6", "companion"},
        {Kind::Separator, "mnuVsep1"},
        {Kind::Command, "mnuVToday", "&Today\tCtrl+T", "today"},
        {Kind::Command, "mnuVPrevious", "&Previous Day", "previous", "Alt+Left"},
        {Kind::Command, "mnuVNext", "&Next Day", "next", "Alt+Right"},
        {Kind::Command, "mnuVRefresh", "Refr&esh", "refresh", "F5"},
        {Kind::Separator, "mnuVsep2"},
        {Kind::Command, "mnuVHidePats", "H&ide Patient Names\tCtrl+H", "eyeoff"},
        {Kind::Command, "mnuVHideTP", "&Hide Task Pane", "pane", "Ctrl+Shift+P"},
    };
}

/// The week calls some of the day's commands by names of its own.
Table weekAppointmentsMenu() {
    static constexpr std::pair<std::string_view, const char*> names[]{
        {"mnuANPat", "mnuANewPat"}, {"mnuANEvent", "mnuANewEvent"}, {"mnuASType", "mnuASCat"}};
    Table menu = appointmentsMenu();
    for (MenuEntry& entry : menu)
        for (const auto& [name, own] : names)
            if (entry.name != nullptr && name == entry.name)
                entry.ownName = own;
    return menu;
}

Table joined(std::initializer_list<Table> menus) {
    Table all;
    for (const Table& menu : menus)
        all.insert(all.end(), menu.begin(), menu.end());
    return all;
}

}  // namespace

std::span<const MenuEntry> DayMenus() {
    static const Table menus = joined({fileMenu(), appointmentsMenu(), tasksMenu(), viewMenu(), helpMenu()});
    return menus;
}

std::span<const MenuEntry> WeekMenus() {
    static const Table menus = joined({fileMenu(), weekAppointmentsMenu(), viewMenu(), helpMenu()});
    return menus;
}

std::span<const MenuEntry> AllProvidersMenus() {
    static const Table menus = joined({fileMenu(),
                                       allAppointmentsMenu(),
                                       viewMenu(),
                                       {{Kind::Command, "mnuVDisplay", "Display Pro&viders", "user", "Ctrl+Shift+D"}},
                                       helpMenu()});
    return menus;
}

std::span<const MenuEntry> MonthMenus() {
    static const Table menus = joined({monthFileMenu(), monthViewMenu(), helpMenu()});
    return menus;
}

std::span<const MenuEntry> RoomMenus() {
    static const Table menus = joined({roomFileMenu(), meetingMenu(), roomViewMenu(), helpMenu()});
    return menus;
}
