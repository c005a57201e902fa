#include "manual/menukeys.h"

#include <algorithm>
#include <vector>

#include "shell/menutables.h"

namespace manual {

namespace {

struct Key {
    QString menu;
    QString command;  ///< "New > Patient..."
    QString key;
    QStringList views;
};

struct Menus {
    const char* view;
    std::span<const MenuEntry> entries;
};

QString plain(const char* text) {
    return QString::fromLatin1(text).section(QLatin1Char('\t'), 0, 0).remove(QLatin1Char('&'));
}

/// The key of an entry, also of one to which the window or the calendar answers.
QString keyOf(const MenuEntry& entry) {
    const QString shown = QString::fromLatin1(entry.text).section(QLatin1Char('\t'), 1);
    return entry.keys == nullptr ? shown : QString::fromLatin1(entry.keys);
}

void add(std::vector<Key>& keys, const Key& key, const char* view) {
    const auto known = std::find_if(keys.begin(), keys.end(), [&](const Key& other) {
        return other.menu == key.menu && other.command == key.command && other.key == key.key;
    });
    (known == keys.end() ? keys.insert(keys.end(), key) : known)->views << QString::fromLatin1(view);
}

void addMenus(std::vector<Key>& keys, const Menus& menus) {
    QString menu;
    QString submenu;
    for (const MenuEntry& entry : menus.entries) {
        if (entry.kind == MenuEntry::Kind::Menu)
            menu = plain(entry.text);
        else if (entry.kind == MenuEntry::Kind::Submenu)
            submenu = plain(entry.text) + QStringLiteral(" > ");
        else if (entry.kind == MenuEntry::Kind::EndSubmenu)
            submenu.clear();
        else if (entry.kind == MenuEntry::Kind::Command && !keyOf(entry).isEmpty())
            add(keys, {menu, submenu + plain(entry.text), keyOf(entry), {}}, menus.view);
    }
}

QString row(const Key& key, qsizetype allViews) {
    return QStringLiteral("<tr><td>%1</td><td><kbd>%2</kbd></td><td>%3</td></tr>\n")
        .arg(key.command.toHtmlEscaped(), key.key.toHtmlEscaped(),
             key.views.size() == allViews ? QStringLiteral("all views") : key.views.join(QStringLiteral(", ")));
}

}  // namespace

QString MenuKeyTables() {
    const Menus all[] = {{"day", DayMenus()},     {"week", WeekMenus()},
                         {"month", MonthMenus()}, {"all providers", AllProvidersMenus()},
                         {"rooms", RoomMenus()},  {"Fernhall", CompanionMenus()}};
    std::vector<Key> keys;
    for (const Menus& menus : all)
        addMenus(keys, menus);
    std::ranges::stable_sort(keys, {}, [](const Key& key) {
        const QStringList order{QStringLiteral("File"),  QStringLiteral("Appointments"), QStringLiteral("Meeting"),
                                QStringLiteral("Tasks"), QStringLiteral("View"),         QStringLiteral("Help")};
        return order.contains(key.menu) ? order.indexOf(key.menu) : order.size();
    });
    QString html;
    QString menu;
    for (const Key& key : keys) {
        if (key.menu != menu)
            html +=
                QStringLiteral(
                    "%1<table><caption>%2</caption>\n<thead><tr><th>Command</th><th>Key</th><th>Views</th></tr></thead>\n<tbody>\n")
                    .arg(menu.isEmpty() ? QString() : QStringLiteral("</tbody></table>\n"), key.menu.toHtmlEscaped());
        menu = key.menu;
        html += row(key, std::ssize(all));
    }
    return html + QStringLiteral("</tbody></table>\n");
}

}  // namespace manual
