#include "shell/viewmenus.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "shell/menutables.h"

namespace {

QStringList textsIn(const QMenuBar& bar) {
    QStringList texts;
    for (const QMenu* menu : bar.findChildren<QMenu*>())
        for (const QAction* entry : menu->actions())
            texts << entry->text();
    return texts;
}

}  // namespace

TEST(MenuNames, AreEqualByTheirText) {
    const std::string copy = menu::mnuAEdit.text();
    EXPECT_EQ(MenuName(copy.c_str()), menu::mnuAEdit);
    EXPECT_FALSE(menu::mnuAEdit == menu::mnuADelete);
    EXPECT_FALSE(menu::mnuAEdit == MenuName());
}

TEST(MenuNames, StandInTheMenusOfAView) {
    for (const MenuName name : {menu::mnuAEdit, menu::mnuTPrint, menu::mnuVDisplay, menu::mnuMeeting, menu::mnuPrint})
        EXPECT_TRUE(InMenusOfAnyView(name)) << name.text();
    EXPECT_FALSE(InMenusOfAnyView(MenuName("mnuNobodys")));
    EXPECT_FALSE(InMenusOfAnyView(MenuName("mnuANewPat"))) << "An object's name in the week, and no command's.";
}

TEST(ViewMenusTest, TheAddressBookIsInEveryViewsMenuOnTheSameKey) {
    for (const auto& entries : {DayMenus(), WeekMenus(), AllProvidersMenus(), MonthMenus(), RoomMenus()}) {
        const ViewMenus menus(entries);
        EXPECT_TRUE(menus.Entries(menu::mnuView).contains(&menus.Command(menu::mnuVABook)));
        EXPECT_EQ(menus.Command(menu::mnuVABook).shortcut(), QKeySequence(QStringLiteral("Ctrl+B")));
    }
}

TEST(ViewMenusTest, TodaysBoardIsInEveryViewsMenuOnTheSameKey) {
    for (const auto& entries :
         {DayMenus(), WeekMenus(), AllProvidersMenus(), MonthMenus(), RoomMenus(), CompanionMenus()}) {
        const ViewMenus menus(entries);
        EXPECT_TRUE(menus.Entries(menu::mnuView).contains(&menus.Command(menu::mnuVBoard)));
        EXPECT_EQ(menus.Command(menu::mnuVBoard).shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+B")));
    }
}

TEST(ViewMenusTest, ANameThatNoViewHoldsIsAnErrorOfTheProgram) {
    const ViewMenus menus(MonthMenus());
#ifdef QT_NO_DEBUG
    EXPECT_FALSE(menus.Has(MenuName("mnuNobodys")));
#else
    EXPECT_DEATH((void)menus.Has(MenuName("mnuNobodys")), "mnuNobodys");
#endif
}

TEST(ViewMenusTest, ACommandOfAnotherViewIsIgnored) {
    ViewMenus menus(MonthMenus());
    QMenuBar bar;
    menus.Fill(bar);
    const QStringList before = textsIn(bar);
    bool ran = false;
    EXPECT_FALSE(menus.Has(menu::mnuAEdit));
    menus.Bind(menu::mnuAEdit, [&ran] { ran = true; });
    menus.Allow(menu::mnuAEdit, false);
    menus.Suit(menu::mnuAEdit, false, QStringLiteral("why"));
    menus.Show(menu::mnuAEdit, false);
    menus.Command(menu::mnuAEdit).setText(QStringLiteral("&Edit"));
    menus.Command(menu::mnuAEdit).trigger();
    EXPECT_FALSE(ran);
    EXPECT_EQ(textsIn(bar), before);
}

TEST(ViewMenusTest, ACommandCanBeUsedWhenItIsBoundAllowedAndSuits) {
    ViewMenus menus(DayMenus());
    const QAction& edit = menus.Command(menu::mnuAEdit);
    EXPECT_FALSE(edit.isEnabled());
    EXPECT_EQ(edit.toolTip(), QStringLiteral("Not available in this version."));
    menus.Bind(menu::mnuAEdit, [] {});
    EXPECT_TRUE(edit.isEnabled());
    menus.Suit(menu::mnuAEdit, false, QStringLiteral("Select an appointment first."));
    EXPECT_FALSE(edit.isEnabled());
    EXPECT_EQ(edit.toolTip(), QStringLiteral("Select an appointment first."));
    menus.Allow(menu::mnuAEdit, false);
    EXPECT_EQ(edit.toolTip(), QStringLiteral("Not available to you."));
    menus.Suit(menu::mnuAEdit, true);
    EXPECT_FALSE(edit.isEnabled());
    menus.Allow(menu::mnuAEdit, true);
    EXPECT_TRUE(edit.isEnabled());
}

TEST(ViewMenusTest, WhatIsBoundRunsOncePerTrigger) {
    ViewMenus menus(DayMenus());
    int runs = 0;
    menus.Bind(menu::mnuAEdit, [&runs] { ++runs; });
    menus.Command(menu::mnuAEdit).trigger();
    menus.Command(menu::mnuAEdit).trigger();
    EXPECT_EQ(runs, 2);
}

TEST(ViewMenusTest, OneNameIsTheSameCommandUnderEachViewsOwnObjectName) {
    const ViewMenus week(WeekMenus());
    const ViewMenus all(AllProvidersMenus());
    EXPECT_EQ(week.Command(menu::mnuANPat).objectName(), QStringLiteral("mnuANewPat"));
    EXPECT_EQ(all.Command(menu::mnuANPat).objectName(), QStringLiteral("mnuPatient"));
    EXPECT_EQ(ViewMenus(DayMenus()).Command(menu::mnuANPat).objectName(), QStringLiteral("mnuANPat"));
}

TEST(ViewMenusTest, TheEntriesOfAMenuStandInTheirOrderWithItsSubmenus) {
    const ViewMenus menus(RoomMenus());
    QStringList names;
    for (const QAction* entry : menus.Entries(menu::mnuMeeting))
        names << entry->objectName();
    EXPECT_EQ(names, (QStringList{"mnuNew", "mnuEdit", "mnuDelete", "mnuMsep1", "mnuFind"}));
    const ViewMenus day(DayMenus());
    const QList<QAction*> appointments = day.Entries(menu::mnuAppointments);
    EXPECT_EQ(appointments.first()->objectName(), QStringLiteral("mnuANew"));
    EXPECT_FALSE(appointments.contains(&day.Command(menu::mnuANPat))) << "It stands in the submenu.";
    EXPECT_TRUE(day.Entries(menu::mnuMeeting).isEmpty());
}
