#include "shell/menutables.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

namespace {

using Kind = MenuEntry::Kind;
using Table = std::vector<MenuEntry>;

Table fileMenu() {
    return {
        {Kind::Menu, menu::mnuFile, "&File"},
        {Kind::Command, menu::mnuFSelect, "&Select Therapist...", "user", "Ctrl+L"},
        {Kind::Separator, menu::mnuFsep1},
        {Kind::Command, menu::mnuFLoc, "Lo&cations...", "location"},
        {Kind::Command, menu::mnuFRoomList, "Roo&ms...", "rooms"},
        {Kind::Command, menu::mnuFActList, "&Activities/Events...", "activity"},
        {Kind::Command, menu::mnuFAtypes, "Appointment &Types...", "legend"},
        {Kind::Command, menu::mnuFAvail, "&Unavailable Time...", "unavailable"},
        {Kind::Command, menu::mnuFHolidays, "&Holidays...", "holiday"},
        {Kind::Separator, menu::mnuFsep2},
        {Kind::Command, menu::mnuFPrefs, "Pre&ferences...", "preferences", "Ctrl+,"},
        {Kind::Separator, menu::mnuFsep3},
        {Kind::Command, menu::mnuFPrintS, "&Print Schedule...", "print", "Ctrl+P"},
        {Kind::Command, menu::mnuFPrintA, "Print Appointment S&lip...", "print"},
        {Kind::Command, menu::mnuPrntOpts, "Print &Options...", "preferences"},
        {Kind::Submenu, menu::mnuFReport, "&Reports", "report"},
        {Kind::Command, menu::mnuFRSched, "&Schedule..."},
        {Kind::Command, menu::mnuFRCancel, "Missed/&Cancelled..."},
        {Kind::Command, menu::mnuFRCalls, "Courtesy C&alls..."},
        {Kind::EndSubmenu},
        {Kind::Submenu, menu::mnuFExport, "&Export", "export"},
        {Kind::Command, menu::mnuFExportiCal, "&iCalendar"},
        {Kind::Command, menu::mnuFExportHTML, "&HTML"},
        {Kind::EndSubmenu},
        {Kind::Separator, menu::mnuFsep4},
        {Kind::Command, menu::mnuFExit, "E&xit", "exit", "Ctrl+Q"},
    };
}

Table appointmentsMenu() {
    return {
        {Kind::Menu, menu::mnuAppointments, "&Appointments"},
        {Kind::Submenu, menu::mnuANew, "&New", "add"},
        {Kind::Command, menu::mnuANPat, "&Patient...", "user", "Ctrl+N"},
        {Kind::Command, menu::mnuASGroup, "&Group...", "group", "Ctrl+Shift+G"},
        {Kind::Command, menu::mnuANEvent, "&Activity/Event...", "activity", "Ctrl+Shift+E"},
        {Kind::Command, menu::mnuASType, "Appointment &Type...", "legend", "Ctrl+Shift+T"},
        {Kind::Command, menu::mnuANAvail, "&Unavailable Time...", "unavailable", "Ctrl+Shift+U"},
        {Kind::EndSubmenu},
        {Kind::Command, menu::mnuANext, "Ne&xt Free Hour...", "find", "Ctrl+Shift+N"},
        {Kind::Command, menu::mnuAEdit, "&Edit...", "edit", "Ctrl+E"},
        {Kind::Command, menu::mnuADelete, "&Delete\tDel", "delete"},
        {Kind::Separator, menu::mnuAsep1},
        {Kind::Command, menu::mnuAPending, "Pendin&g"},
        {Kind::Command, menu::mnuCheckediN, "Checked-&In...", "checkedin", "Ctrl+I"},
        {Kind::Command, menu::mnuAKept, "&Kept", "check", "Ctrl+K"},
        {Kind::Command, menu::mnuAMissed, "&Missed", "missed", "Ctrl+M"},
        {Kind::Command, menu::mnuAPCancel, "&Patient Cancel", "close"},
        {Kind::Command, menu::mnuATCancel, "T&herapist Cancel", "close"},
        {Kind::Separator, menu::mnuAsep2},
        {Kind::Command, menu::mnuAMove, "M&ove...", "next", "Ctrl+Shift+M"},
        {Kind::Command, menu::mnuAShelve, "P&ut on Holding Shelf", nullptr, "Ctrl+X"},
        {Kind::Command, menu::mnuALand, "Pl&ace from Holding Shelf", nullptr, "Ctrl+V"},
        {Kind::Command, menu::mnuARepeat, "&Repeating...", "repeat", "Ctrl+R"},
        {Kind::Command, menu::mnuARest, "Res&t of Series...", "repeat", "Ctrl+Shift+R"},
        {Kind::Command, menu::mnuANote, "&Session Note...", "note", "Ctrl+Shift+S"},
        {Kind::Separator, menu::mnuAsep3},
        {Kind::Command, menu::mnuAFind, "&Find...", "find", "Ctrl+F"},
        {Kind::Submenu, menu::mnuASearchA, "Search A&vailability", "find"},
        {Kind::Command, menu::mnuASearchO, "By &Opening..."},
        {Kind::Command, menu::mnuASearchT, "By Appointment &Type..."},
        {Kind::EndSubmenu},
        {Kind::Command, menu::mnuAWait, "&Wait List...", "checkedin", "Ctrl+Shift+L"},
    };
}

Table tasksMenu() {
    return {
        {Kind::Menu, menu::mnuToDo, "&Tasks"},
        {Kind::Command, menu::mnuTNew, "&New Task...", "tasks"},
        {Kind::Command, menu::mnuTEdit, "&Edit Task...", "edit"},
        {Kind::Command, menu::mnuTDelete, "&Delete Task", "delete"},
        {Kind::Separator, menu::mnuTsep1},
        {Kind::Command, menu::mnuTPrint, "&Print Tasks...", "print"},
    };
}

Table viewMenu() {
    return {
        {Kind::Menu, menu::mnuView, "&View"},
        {Kind::Command, menu::mnuVDay, "&Day View\tCtrl+1", "day"},
        {Kind::Command, menu::mnuVWeek, "&Week View\tCtrl+2", "week"},
        {Kind::Command, menu::mnuVMonth, "&Month View\tCtrl+3", "month"},
        {Kind::Command, menu::mnuVAll, "&All Providers\tCtrl+4", "all"},
        {Kind::Command, menu::mnuVRoom, "&Room Scheduler...\tCtrl+5", "rooms"},
        {Kind::Command, menu::mnuVFH, "&Fernhall Scheduler\tCtrl+6", "companion"},
        {Kind::Separator, menu::mnuVsep1},
        {Kind::Command, menu::mnuVToday, "&Today\tCtrl+T", "today"},
        {Kind::Command, menu::mnuVPrevious, "&Previous Day\tAlt+Left", "previous"},
        {Kind::Command, menu::mnuVNext, "&Next Day\tAlt+Right", "next"},
        {Kind::Command, menu::mnuVNow, "&Jump to Now", "today", "Ctrl+J"},
        {Kind::Command, menu::mnuVRefresh, "Refr&esh", "refresh", "F5"},
        {Kind::Submenu, menu::mnuVSaved, "Sa&ved Views", "pane"},
        {Kind::Command, menu::mnuVSave, "&Save This View..."},
        {Kind::EndSubmenu},
        {Kind::Separator, menu::mnuVsep2},
        {Kind::Command, menu::mnuVBoard, "T&oday's Board", "all", "Ctrl+Shift+B"},
        {Kind::Command, menu::mnuVCheckedin, "&Checked-In...", "checkedin"},
        {Kind::Command, menu::mnuVActivity, "Activity &Scheduler...", "activity"},
        {Kind::Command, menu::mnuVColor, "Color &Legend...", "legend"},
        {Kind::Command, menu::mnuVABook, "Address &Book...", "addressbook", "Ctrl+B"},
        {Kind::Separator, menu::mnuVsep3},
        {Kind::Command, menu::mnuVHidePats, "H&ide Patient Names\tCtrl+H", "eyeoff"},
        {Kind::Command, menu::mnuVShelf, "Holdin&g Shelf", "pane", "Ctrl+Shift+H"},
        {Kind::Command, menu::mnuVHideTP, "&Hide Task Pane", "pane", "Ctrl+Shift+P"},
    };
}

Table helpMenu() {
    return {
        {Kind::Menu, menu::mnuHelp, "&Help"},
        {Kind::Command, menu::mnuHContents, "&Contents\tF1", "help"},
        {Kind::Command, menu::mnuHAbout, "&About Solvane Scheduler...", "information"},
    };
}

// The month and the rooms have fewer lists, and none but their own names for some.
Table monthFileMenu() {
    return {
        {Kind::Menu, menu::mnuFile, "&File"},
        {Kind::Command, menu::mnuFSelect, "&Select Therapist", "user", "Ctrl+L"},
        {Kind::Separator, menu::mnuFsep1},
        {Kind::Command, menu::mnuFLoc, "Lo&cations...", "location"},
        {Kind::Command, menu::mnuFRoomList, "Roo&ms...", "rooms", nullptr, "mnuFRoom"},
        {Kind::Command, menu::mnuFActList, "&Activities/Events...", "activity"},
        {Kind::Separator, menu::mnuFsep2},
        {Kind::Command, menu::mnuFPrefs, "Pre&ferences...", "preferences", "Ctrl+,"},
        {Kind::Separator, menu::mnuFsep3},
        {Kind::Command, menu::mnuFPrintS, "&Print Schedule...", "print", "Ctrl+P"},
        {Kind::Command, menu::mnuPrntOpts, "Print &Options...", "preferences"},
        {Kind::Separator, menu::mnuFsep4},
        {Kind::Command, menu::mnuFExit, "E&xit", "exit", "Ctrl+Q"},
    };
}

Table roomFileMenu() {
    return {
        {Kind::Menu, menu::mnuFile, "&File"},
        {Kind::Command, menu::mnuFRoomList, "Roo&ms...", "rooms", nullptr, "mnuRoomList"},
        {Kind::Separator, menu::mnuFsep1},
        {Kind::Command, menu::mnuPrint, "&Print Schedule...", "print", "Ctrl+P"},
        {Kind::Command, menu::mnuFPrintA, "Print Appointment S&lip...", "print"},
        {Kind::Command, menu::mnuPrntOpts, "Print &Options...", "preferences"},
        {Kind::Separator, menu::mnuFsep2},
        {Kind::Command, menu::mnuFExit, "E&xit", "exit", "Ctrl+Q"},
    };
}

Table meetingMenu() {
    return {
        {Kind::Menu, menu::mnuMeeting, "&Meeting"},
        {Kind::Command, menu::mnuNew, "&New...", "add", "Ctrl+N"},
        {Kind::Command, menu::mnuEdit, "&Edit...", "edit", "Ctrl+E"},
        {Kind::Command, menu::mnuDelete, "&Delete\tDel", "delete"},
        {Kind::Separator, menu::mnuMsep1},
        {Kind::Command, menu::mnuFind, "&Find...", "find", "Ctrl+F"},
    };
}

// The toolbar has no steps for the rooms, so the menu answers to their keys.
Table roomViewMenu() {
    return {
        {Kind::Menu, menu::mnuView, "&View"},
        {Kind::Command, menu::mnuVDay, "&Day View\tCtrl+1", "day", nullptr, "mnuDay"},
        {Kind::Command, menu::mnuVWeek, "&Week View\tCtrl+2", "week", nullptr, "mnuWeek"},
        {Kind::Command, menu::mnuVMonth, "&Month View\tCtrl+3", "month", nullptr, "mnuMonth"},
        {Kind::Command, menu::mnuVAll, "&All Providers\tCtrl+4", "all", nullptr, "mnuAll"},
        {Kind::Command, menu::mnuVRoom, "&Room Scheduler...\tCtrl+5", "rooms"},
        {Kind::Command, menu::mnuVFH, "&Fernhall Scheduler\tCtrl+6", "companion"},
        {Kind::Separator, menu::mnuVsep1},
        {Kind::Command, menu::mnuVToday, "&Today\tCtrl+T", "today"},
        {Kind::Command, menu::mnuVPrevious, "&Previous Day", "previous", "Alt+Left"},
        {Kind::Command, menu::mnuVNext, "&Next Day", "next", "Alt+Right"},
        {Kind::Command, menu::mnuVRefresh, "Refr&esh", "refresh", "F5"},
        {Kind::Submenu, menu::mnuVSaved, "Sa&ved Views", "pane"},
        {Kind::Command, menu::mnuVSave, "&Save This View..."},
        {Kind::EndSubmenu},
        {Kind::Separator, menu::mnuVsep2},
        {Kind::Command, menu::mnuVBoard, "T&oday's Board", "all", "Ctrl+Shift+B"},
        {Kind::Command, menu::mnuVABook, "Address &Book...", "addressbook", "Ctrl+B"},
        {Kind::Separator, menu::mnuVsep3},
        {Kind::Command, menu::mnuVHidePats, "H&ide Patient Names\tCtrl+H", "eyeoff"},
        {Kind::Command, menu::mnuVHideTP, "&Hide Task Pane", "pane", "Ctrl+Shift+P"},
    };
}

// The practice's own lists have no meaning in another product's schedule.
Table companionFileMenu() {
    return {
        {Kind::Menu, menu::mnuFile, "&File"},
        {Kind::Command, menu::mnuFPrefs, "Pre&ferences...", "preferences", "Ctrl+,"},
        {Kind::Separator, menu::mnuFsep1},
        {Kind::Command, menu::mnuPrint, "&Print Schedule...", "print", "Ctrl+P"},
        {Kind::Command, menu::mnuPrntOpts, "Print &Options...", "preferences"},
        {Kind::Command, menu::mnuFReport, "&Reports...", "report"},
        {Kind::Separator, menu::mnuFsep2},
        {Kind::Command, menu::mnuFExit, "E&xit", "exit", "Ctrl+Q"},
    };
}

Table companionAppointmentsMenu() {
    return {
        {Kind::Menu, menu::mnuAppointments, "&Appointments"},
        {Kind::Command, menu::mnuAddAppt, "Add &Appointment", "add", "Ctrl+N"},
        {Kind::Command, menu::mnuAddEvent, "Add &Event", "activity", "Ctrl+Shift+E"},
        {Kind::Command, menu::mnuModify, "&Modify", "edit", "Ctrl+E"},
        {Kind::Command, menu::mnuDelete, "&Delete\tDel", "delete"},
        {Kind::Separator, menu::mnuAsep1},
        {Kind::Command, menu::mnuSessionNote, "&Session Note", "note", "Ctrl+Shift+S"},
    };
}

// Ctrl+2 and its entry lead to the scheduler's own week; the companion's week is a mode of its view.
Table companionViewMenu() {
    return {
        {Kind::Menu, menu::mnuView, "&View"},
        {Kind::Command, menu::mnuVDay, "&Day View\tCtrl+1", "day", nullptr, "mnuDay"},
        {Kind::Command, menu::mnuVWeek, "&Week View\tCtrl+2", "week"},
        {Kind::Command, menu::mnuVMonth, "&Month View\tCtrl+3", "month", nullptr, "mnuMonth"},
        {Kind::Command, menu::mnuVAll, "&All Providers\tCtrl+4", "all", nullptr, "mnuAll"},
        {Kind::Command, menu::mnuVRoom, "&Room Scheduler...\tCtrl+5", "rooms", nullptr, "mnuRoom"},
        {Kind::Command, menu::mnuVFH, "&Fernhall Scheduler\tCtrl+6", "companion", nullptr, "mnuFH"},
        {Kind::Separator, menu::mnuVsep1},
        {Kind::Command, menu::mnuAShow, "&Show Week View", "week", "Ctrl+Shift+W"},
        {Kind::Command, menu::mnuWeek, "Fernhall Wee&k"},
        {Kind::Submenu, menu::mnuVProviders, "Pr&oviders", "user"},
        {Kind::Command, menu::mnuVDisplay, "&Display Providers", "user", "Ctrl+Shift+D"},
        {Kind::Command, menu::mnuProvSelectAll, "Select &All"},
        {Kind::EndSubmenu},
        {Kind::Separator, menu::mnuVsep2},
        {Kind::Command, menu::mnuVToday, "&Today\tCtrl+T", "today"},
        {Kind::Command, menu::mnuVPrevious, "&Previous Day\tAlt+Left", "previous"},
        {Kind::Command, menu::mnuVNext, "&Next Day\tAlt+Right", "next"},
        {Kind::Command, menu::mnuVRefresh, "Refr&esh", "refresh", "F5"},
        {Kind::Submenu, menu::mnuVSaved, "Sa&ved Views", "pane"},
        {Kind::Command, menu::mnuVSave, "&Save This View..."},
        {Kind::EndSubmenu},
        {Kind::Separator, menu::mnuVsep3},
        {Kind::Command, menu::mnuVBoard, "Toda&y's Board", "all", "Ctrl+Shift+B"},
        {Kind::Command, menu::mnuVColor, "Color &Legend...", "legend"},
        {Kind::Command, menu::mnuVABook, "Address &Book...", "addressbook", "Ctrl+B"},
        {Kind::Separator, menu::mnuVsep4},
        {Kind::Command, menu::mnuVHidePats, "H&ide Patient Names\tCtrl+H", "eyeoff"},
        {Kind::Command, menu::mnuVHideTP, "&Hide Task Pane", "pane", "Ctrl+Shift+P"},
    };
}

/// What a view calls a command that the day view has too. A null stands for what the day calls it.
struct OtherName {
    MenuName name;
    const char* ownName;
    const char* text = nullptr;
};

Table renamed(Table menu, std::initializer_list<OtherName> others) {
    for (const OtherName& other : others) {
        const auto entry = std::ranges::find(menu, other.name, &MenuEntry::name);
        entry->ownName = other.ownName;
        if (other.text != nullptr)
            entry->text = other.text;
    }
    return menu;
}

Table weekAppointmentsMenu() {
    return renamed(appointmentsMenu(),
                   {{menu::mnuANPat, "mnuANewPat"}, {menu::mnuANEvent, "mnuANewEvent"}, {menu::mnuASType, "mnuASCat"}});
}

Table allAppointmentsMenu() {
    return renamed(appointmentsMenu(), {{menu::mnuANew, "mnuNew"},
                                        {menu::mnuANPat, "mnuPatient", "&Schedule Patient"},
                                        {menu::mnuASGroup, "mnuSGroup", "Schedule &Group"},
                                        {menu::mnuANEvent, "mnuSEvent", "Schedule &Activity/Event"},
                                        {menu::mnuASType, "mnuSAType", "Schedule Appointment &Type"},
                                        {menu::mnuANAvail, "mnuSAvail", "Schedule &Unavailable Time"},
                                        {menu::mnuAEdit, "mnuEdit"},
                                        {menu::mnuADelete, "mnuDelete"},
                                        {menu::mnuCheckediN, "mnuaCheckin", "Check-&In..."},
                                        {menu::mnuATCancel, "mnuTCancel"},
                                        {menu::mnuARepeat, "mnuRepeating"}});
}

Table monthViewMenu() {
    return renamed(viewMenu(), {{menu::mnuVActivity, "mnuVAct"}});
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
    static const Table menus =
        joined({renamed(fileMenu(), {{menu::mnuFPrintA, "mnuAptSlip"}}),
                allAppointmentsMenu(),
                viewMenu(),
                {{Kind::Command, menu::mnuVDisplay, "Displa&y Providers", "user", "Ctrl+Shift+D"},
                 {Kind::Command, menu::mnuVFit, "As Many Col&umns as Fit"},
                 {Kind::Command, menu::mnuVWorking, "Only Who Wor&ks Today"}},
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

std::span<const MenuEntry> CompanionMenus() {
    static const Table menus =
        joined({companionFileMenu(), companionAppointmentsMenu(), companionViewMenu(), helpMenu()});
    return menus;
}

bool InMenusOfAnyView(MenuName name) {
    for (const auto& menus :
         {DayMenus(), WeekMenus(), AllProvidersMenus(), MonthMenus(), RoomMenus(), CompanionMenus()})
        if (std::ranges::find(menus, name, &MenuEntry::name) != menus.end())
            return true;
    return false;
}
