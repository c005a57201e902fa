#pragma once

#include <string_view>

/// The name by which the code refers to a command, a separator or a whole menu of the views. All names are listed
/// below.
class MenuName {
  public:
    /// Makes the empty name, which refers to no command.
    constexpr MenuName() = default;
    explicit constexpr MenuName(const char* text) : text_(text) {}

    [[nodiscard]] constexpr const char* text() const { return text_; }
    friend constexpr bool operator==(MenuName a, MenuName b) {
        return std::string_view(a.text_) == std::string_view(b.text_);
    }

  private:
    const char* text_ = "";
};

// Each name stands in the menus of at least one view (shell/menutables.h). ViewMenus asserts this.
namespace menu {

inline constexpr MenuName mnuFile{"mnuFile"};
inline constexpr MenuName mnuFSelect{"mnuFSelect"};
inline constexpr MenuName mnuFsep1{"mnuFsep1"};
inline constexpr MenuName mnuFLoc{"mnuFLoc"};
inline constexpr MenuName mnuFRoomList{"mnuFRoomList"};
inline constexpr MenuName mnuFActList{"mnuFActList"};
inline constexpr MenuName mnuFAtypes{"mnuFAtypes"};
inline constexpr MenuName mnuFAvail{"mnuFAvail"};
inline constexpr MenuName mnuFHolidays{"mnuFHolidays"};
inline constexpr MenuName mnuFsep2{"mnuFsep2"};
inline constexpr MenuName mnuFPrefs{"mnuFPrefs"};
inline constexpr MenuName mnuFsep3{"mnuFsep3"};
inline constexpr MenuName mnuFPrintS{"mnuFPrintS"};
inline constexpr MenuName mnuFPrintA{"mnuFPrintA"};
inline constexpr MenuName mnuPrntOpts{"mnuPrntOpts"};
inline constexpr MenuName mnuFReport{"mnuFReport"};
inline constexpr MenuName mnuFRSched{"mnuFRSched"};
inline constexpr MenuName mnuFRCancel{"mnuFRCancel"};
inline constexpr MenuName mnuFRCalls{"mnuFRCalls"};
inline constexpr MenuName mnuFExport{"mnuFExport"};
inline constexpr MenuName mnuFExportiCal{"mnuFExportiCal"};
inline constexpr MenuName mnuFExportHTML{"mnuFExportHTML"};
inline constexpr MenuName mnuFsep4{"mnuFsep4"};
inline constexpr MenuName mnuFExit{"mnuFExit"};

inline constexpr MenuName mnuAppointments{"mnuAppointments"};
inline constexpr MenuName mnuANew{"mnuANew"};
inline constexpr MenuName mnuANPat{"mnuANPat"};
inline constexpr MenuName mnuASGroup{"mnuASGroup"};
inline constexpr MenuName mnuANEvent{"mnuANEvent"};
inline constexpr MenuName mnuASType{"mnuASType"};
inline constexpr MenuName mnuANAvail{"mnuANAvail"};
inline constexpr MenuName mnuANext{"mnuANext"};
inline constexpr MenuName mnuAEdit{"mnuAEdit"};
inline constexpr MenuName mnuADelete{"mnuADelete"};
inline constexpr MenuName mnuAsep1{"mnuAsep1"};
inline constexpr MenuName mnuAPending{"mnuAPending"};
inline constexpr MenuName mnuCheckediN{"mnuCheckediN"};
inline constexpr MenuName mnuAKept{"mnuAKept"};
inline constexpr MenuName mnuAMissed{"mnuAMissed"};
inline constexpr MenuName mnuAPCancel{"mnuAPCancel"};
inline constexpr MenuName mnuATCancel{"mnuATCancel"};
inline constexpr MenuName mnuAsep2{"mnuAsep2"};
inline constexpr MenuName mnuAMove{"mnuAMove"};
inline constexpr MenuName mnuAShelve{"mnuAShelve"};
inline constexpr MenuName mnuALand{"mnuALand"};
inline constexpr MenuName mnuARepeat{"mnuARepeat"};
inline constexpr MenuName mnuARest{"mnuARest"};
inline constexpr MenuName mnuANote{"mnuANote"};
inline constexpr MenuName mnuAsep3{"mnuAsep3"};
inline constexpr MenuName mnuAFind{"mnuAFind"};
inline constexpr MenuName mnuASearchA{"mnuASearchA"};
inline constexpr MenuName mnuASearchO{"mnuASearchO"};
inline constexpr MenuName mnuASearchT{"mnuASearchT"};
inline constexpr MenuName mnuAWait{"mnuAWait"};

inline constexpr MenuName mnuToDo{"mnuToDo"};
inline constexpr MenuName mnuTNew{"mnuTNew"};
inline constexpr MenuName mnuTEdit{"mnuTEdit"};
inline constexpr MenuName mnuTDelete{"mnuTDelete"};
inline constexpr MenuName mnuTsep1{"mnuTsep1"};
inline constexpr MenuName mnuTPrint{"mnuTPrint"};

inline constexpr MenuName mnuView{"mnuView"};
inline constexpr MenuName mnuVDay{"mnuVDay"};
inline constexpr MenuName mnuVWeek{"mnuVWeek"};
inline constexpr MenuName mnuVMonth{"mnuVMonth"};
inline constexpr MenuName mnuVAll{"mnuVAll"};
inline constexpr MenuName mnuVRoom{"mnuVRoom"};
inline constexpr MenuName mnuVFH{"mnuVFH"};
inline constexpr MenuName mnuVsep1{"mnuVsep1"};
inline constexpr MenuName mnuVToday{"mnuVToday"};
inline constexpr MenuName mnuVPrevious{"mnuVPrevious"};
inline constexpr MenuName mnuVNext{"mnuVNext"};
inline constexpr MenuName mnuVNow{"mnuVNow"};
inline constexpr MenuName mnuVRefresh{"mnuVRefresh"};
inline constexpr MenuName mnuVSaved{"mnuVSaved"};
inline constexpr MenuName mnuVSave{"mnuVSave"};
inline constexpr MenuName mnuVsep2{"mnuVsep2"};
inline constexpr MenuName mnuVBoard{"mnuVBoard"};
inline constexpr MenuName mnuVCheckedin{"mnuVCheckedin"};
inline constexpr MenuName mnuVActivity{"mnuVActivity"};
inline constexpr MenuName mnuVColor{"mnuVColor"};
inline constexpr MenuName mnuVABook{"mnuVABook"};
inline constexpr MenuName mnuVsep3{"mnuVsep3"};
inline constexpr MenuName mnuVHidePats{"mnuVHidePats"};
inline constexpr MenuName mnuVShelf{"mnuVShelf"};
inline constexpr MenuName mnuVHideTP{"mnuVHideTP"};

inline constexpr MenuName mnuHelp{"mnuHelp"};
inline constexpr MenuName mnuHContents{"mnuHContents"};
inline constexpr MenuName mnuHAbout{"mnuHAbout"};

inline constexpr MenuName mnuPrint{"mnuPrint"};

inline constexpr MenuName mnuMeeting{"mnuMeeting"};
inline constexpr MenuName mnuNew{"mnuNew"};
inline constexpr MenuName mnuEdit{"mnuEdit"};
inline constexpr MenuName mnuDelete{"mnuDelete"};
inline constexpr MenuName mnuMsep1{"mnuMsep1"};
inline constexpr MenuName mnuFind{"mnuFind"};

inline constexpr MenuName mnuVDisplay{"mnuVDisplay"};
inline constexpr MenuName mnuVFit{"mnuVFit"};
inline constexpr MenuName mnuVWorking{"mnuVWorking"};

inline constexpr MenuName mnuAddAppt{"mnuAddAppt"};
inline constexpr MenuName mnuAddEvent{"mnuAddEvent"};
inline constexpr MenuName mnuModify{"mnuModify"};
inline constexpr MenuName mnuSessionNote{"mnuSessionNote"};
inline constexpr MenuName mnuAShow{"mnuAShow"};
inline constexpr MenuName mnuWeek{"mnuWeek"};
inline constexpr MenuName mnuVsep4{"mnuVsep4"};
inline constexpr MenuName mnuVProviders{"mnuVProviders"};
inline constexpr MenuName mnuProvSelectAll{"mnuProvSelectAll"};

}  // namespace menu
