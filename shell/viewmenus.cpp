#include "shell/viewmenus.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "platform/theme/icon.h"
#include "shell/menutables.h"

ViewMenus::ViewMenus(std::span<const MenuEntry> table, QObject* parent)
    : QObject(parent), table_(table), absent_(new QAction(this)) {
    for (const MenuEntry& entry : table_) {
        if (entry.kind == MenuEntry::Kind::EndSubmenu)
            continue;
        addCommand(entry);
        // A menu can be opened whatever its entries can do; rights alone close it.
        if (entry.kind == MenuEntry::Kind::Menu || entry.kind == MenuEntry::Kind::Submenu)
            setBound(*stateOf(entry.name));
    }
}

void ViewMenus::addCommand(const MenuEntry& entry) {
    const QString text = QString::fromUtf8(entry.text);
    auto* action = new QAction(text, this);
    action->setObjectName(QString::fromLatin1(entry.ownName != nullptr ? entry.ownName : entry.name.text()));
    action->setSeparator(text.isNull());
    if (entry.icon)
        action->setIcon(Icon(entry.icon));
    if (entry.keys)
        action->setShortcut(QKeySequence(QString::fromLatin1(entry.keys)));
    State& state = commands_[QString::fromLatin1(entry.name.text())];
    state = {action, action->isSeparator(), true, true, {}, {}};
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
        QAction& action = Command(entry.name);
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

bool ViewMenus::Has(MenuName name) const {
    Q_ASSERT_X(InMenusOfAnyView(name), "ViewMenus", name.text());
    return commands_.contains(QString::fromLatin1(name.text()));
}

ViewMenus::State* ViewMenus::stateOf(MenuName name) {
    return Has(name) ? &commands_[QString::fromLatin1(name.text())] : nullptr;
}

QAction& ViewMenus::Command(MenuName name) const {
    return Has(name) ? *commands_[QString::fromLatin1(name.text())].action : *absent_;
}

void ViewMenus::Bind(MenuName name, std::function<void()> run) {
    State* state = stateOf(name);
    if (state == nullptr)
        return;
    connect(state->action, &QAction::triggered, this, [run = std::move(run)] { run(); });
    setBound(*state);
}

void ViewMenus::setBound(State& state) {
    state.bound = true;
    refresh(state);
}

void ViewMenus::Allow(MenuName name, bool allowed, const QString& why) {
    if (State* state = stateOf(name)) {
        state->allowed = allowed;
        state->forbidden = why;
        refresh(*state);
    }
}

void ViewMenus::Show(MenuName name, bool shown) {
    Command(name).setVisible(shown);
}

void ViewMenus::Suit(MenuName name, bool suits, const QString& why) {
    if (State* state = stateOf(name)) {
        state->suits = suits;
        state->why = why;
        refresh(*state);
    }
}

QList<QAction*> ViewMenus::Entries(MenuName menu) const {
    QList<QAction*> found;
    bool inMenu = false;
    bool inSubmenu = false;
    for (const MenuEntry& entry : table_) {
        if (entry.kind == MenuEntry::Kind::Menu)
            inMenu = entry.name == menu;
        else if (entry.kind == MenuEntry::Kind::EndSubmenu)
            inSubmenu = false;
        else if (inMenu && !inSubmenu)
            found << &Command(entry.name);
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
        state.action->setToolTip(state.forbidden.isEmpty() ? tr("Not available to you.") : state.forbidden);
    else if (!state.bound)
        state.action->setToolTip(tr("Not available in this version."));
    else if (!state.suits)
        state.action->setToolTip(state.why);
    else
        state.action->setToolTip(QString());
}
