#include "tests/support/menuletters.h"

#include "shell/menutables.h"

namespace {

struct Menus {
    const char* name;
    std::span<const MenuEntry> (*menus)();
};

void PrintTo(const Menus& view, std::ostream* out) {
    *out << view.name;
}

class MenuLetters : public testing::TestWithParam<Menus> {};

}  // namespace

TEST_P(MenuLetters, EachAltLetterStandsOnceInAMenu) {
    ViewMenus menus(GetParam().menus(), nullptr);
    QMenuBar bar;
    menus.Fill(bar);
    ExpectEachLetterOnce(bar.actions(), QStringLiteral("menu bar"));
    const QList<QMenu*> all = bar.findChildren<QMenu*>();
    EXPECT_FALSE(all.isEmpty());
    for (const QMenu* menu : all)
        ExpectEachLetterOnce(menu->actions(), menu->title());
}

TEST_P(MenuLetters, EachAltLetterStandsOnceInThePopupOfAnAppointment) {
    const ViewMenus menus(GetParam().menus(), nullptr);
    QList<QAction*> popup = menus.Entries(menu::mnuAppointments);
    if (menus.Has(menu::mnuFPrintA))
        popup << &menus.Command(menu::mnuFPrintA);
    ExpectEachLetterOnce(popup, QStringLiteral("popup"));
}

INSTANTIATE_TEST_SUITE_P(EveryView, MenuLetters,
                         testing::Values(Menus{"day", DayMenus}, Menus{"week", WeekMenus}, Menus{"month", MonthMenus},
                                         Menus{"all", AllProvidersMenus}, Menus{"rooms", RoomMenus},
                                         Menus{"companion", CompanionMenus}));
