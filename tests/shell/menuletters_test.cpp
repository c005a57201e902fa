#include <gtest/gtest.h>

#include <QAction>
#include <QMap>
#include <QMenu>
#include <QMenuBar>

#include "shell/menutables.h"

namespace {

QString letterOf(const QString& text) {
    const QString shown = text.section(QLatin1Char('\t'), 0, 0);
    for (qsizetype i = 0; i + 1 < shown.size(); ++i) {
        if (shown[i] != u'&')
            continue;
        if (shown[i + 1] != u'&')
            return shown[i + 1].toUpper();
        ++i;
    }
    return {};
}

/// Every letter goes to one entry, and every entry that is no separator has one.
void expectEachLetterOnce(const QList<QAction*>& entries, const QString& where) {
    QMap<QString, QString> taken;
    for (const QAction* entry : entries) {
        if (entry->isSeparator() || !entry->isVisible())
            continue;
        const QString letter = letterOf(entry->text());
        EXPECT_NE(letter, "") << where.toStdString() << ": " << entry->text().toStdString();
        EXPECT_FALSE(taken.contains(letter)) << where.toStdString() << ": " << entry->text().toStdString() << " and "
                                             << taken.value(letter).toStdString();
        taken.insert(letter, entry->text());
    }
}

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
    expectEachLetterOnce(bar.actions(), QStringLiteral("menu bar"));
    const QList<QMenu*> all = bar.findChildren<QMenu*>();
    EXPECT_FALSE(all.isEmpty());
    for (const QMenu* menu : all)
        expectEachLetterOnce(menu->actions(), menu->title());
}

TEST_P(MenuLetters, EachAltLetterStandsOnceInThePopupOfAnAppointment) {
    const ViewMenus menus(GetParam().menus(), nullptr);
    QList<QAction*> popup = menus.Entries(menu::mnuAppointments);
    if (menus.Has(menu::mnuFPrintA))
        popup << &menus.Command(menu::mnuFPrintA);
    expectEachLetterOnce(popup, QStringLiteral("popup"));
}

INSTANTIATE_TEST_SUITE_P(EveryView, MenuLetters,
                         testing::Values(Menus{"day", DayMenus}, Menus{"week", WeekMenus}, Menus{"month", MonthMenus},
                                         Menus{"all", AllProvidersMenus}, Menus{"rooms", RoomMenus},
                                         Menus{"companion", CompanionMenus}));
