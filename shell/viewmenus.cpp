#include "shell/viewmenus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "platform/theme/icon.h"

ViewMenus::ViewMenus(std::span<const MenuEntry> table, QObject* parent)
    : QObject(parent), table_(table), absent_(new QAction(this)) {
    for (const MenuEntry& entry : table_) {
        if (entry.kind == MenuEntry::Kind::EndSubmenu)
            continue;
        addCommand(entry);
        // A menu can be opened whatever its entries can do; rights alone close it.
        if (entry.kind == MenuEntry::Kind::Menu || entry.kind == MenuEntry::Kind::Submenu)
            setBound(QString::fromLatin1(entry.name));
    }
}

void ViewMenus::addCommand(const MenuEntry& entry) {
    const QString text = QString::fromUtf8(entry.text);
    auto* action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(entry.ownName != nullptr ? entry.ownName : entry.name));
    action->setSeparator(text.isNull());
    if (entry.icon)
        action->setIcon(Icon(entry.icon));
    if (entry.keys)
        action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
    State& state = commands_[QString::fromLatin1(entry.name)];
    state = {action, action->isSeparator(), true, true, {}};
    refresh(state);
}

void ViewMenus::Fill(QMenuBar& bar) {
    QWidget* menu = &bar;
    QWidget* target = &bar;
    for (const MenuEntry& entry : table_) {
        if (entry.kind == MenuEntry::Kind::EndSubmenu) {
            target = menu;
            continue;
        }
        QAction& action = Command(QString::fromLatin1(entry.name));
        if (entry.kind != MenuEntry::Kind::Menu && entry.kind != MenuEntry::Kind::Submenu) {
            target->addAction(&action);
            continue;
        }
        QWidget* owner = entry.kind == MenuEntry::Kind::Menu ? &bar : menu;
        auto* made = new QMenu(action.text(), owner);
        made->setToolTipsVisible(true);
        action.setMenu(made);
        owner->addAction(&action);
        target = made;
        if (entry.kind == MenuEntry::Kind::Menu)
            menu = made;
    }
}

QAction& ViewMenus::Command(const QString& name) const {
    const auto found = commands_.constFind(name);
    return found != commands_.constEnd() ? *found->action : *absent_;
}

void ViewMenus::Bind(const QString& name, std::function<void()> run) {
    if (!Has(name))
        return;
    connect(&Command(name), &QAction::triggered, this, [run = std::move(run)] { run(); });
    setBound(name);
}

void ViewMenus::setBound(const QString& name) {
    commands_[name].bound = true;
    refresh(commands_[name]);
}

void ViewMenus::Allow(const QString& name, bool allowed) {
    if (!Has(name))
        return;
    State& state = commands_[name];
    state.allowed = allowed;
    refresh(state);
}

void ViewMenus::Show(const QString& name, bool shown) {
    Command(name).setVisible(shown);
}

void ViewMenus::Suit(const QString& name, bool suits, const QString& why) {
    if (!Has(name))
        return;
    State& state = commands_[name];
    state.suits = suits;
    state.why = why;
    refresh(state);
}

QList<QAction*> ViewMenus::Entries(const QString& menu) const {
    QList<QAction*> found;
    bool inMenu = false;
    bool inSubmenu = false;
    for (const MenuEntry& entry : table_) {
        if (entry.kind == MenuEntry::Kind::Menu)
            inMenu = menu == QLatin1String(entry.name);
        else if (entry.kind == MenuEntry::Kind::EndSubmenu)
            inSubmenu = false;
        else if (inMenu && !inSubmenu)
            found << &Command(QString::fromLatin1(entry.name));
        if (entry.kind == MenuEntry::Kind::Submenu)
            inSubmenu = true;
    }
    return found;
}

void ViewMenus::refresh(const State& state) {
    state.action->setEnabled(state.bound && state.allowed && state.suits);
    if (state.action->isSeparator())
        return;
    if (!state.allowed)
        state.action->setToolTip(tr("Not available to you."));
    else if (!state.bound)
        state.action->setToolTip(tr("Not available in this version."));
    else if (!state.suits)
        state.action->setToolTip(state.why);
    else
        state.action->setToolTip(QString());
}
