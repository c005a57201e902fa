#pragma once

#include <functional>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <span>

#include "shell/menunames.h"

class QAction;
class QMenu;
class QMenuBar;

/// One entry of a view's menus. Entries follow each other as they stand in the menus, a submenu's up to its end.
struct MenuEntry {
    enum class Kind { Menu, Submenu, EndSubmenu, Command, Separator };

    Kind kind = Kind::Command;
    MenuName name = {};  ///< By which code finds the command: one name for what is the same in several views.
    const char* text = nullptr;
    const char* icon = nullptr;
    /// Its key. A key behind a tab in the text is one that the main window or the calendar answers to: it is shown, not
    /// claimed.
    const char* keys = nullptr;
    const char* ownName = nullptr;  ///< The command's object name, where the view has another than `name`.
};

/// The commands of a calendar view, each found by its name (mnuAEdit). A command can be used when something is bound to
/// it, the user's rights allow it and it suits what is selected; until then it stands greyed in its menu, with a tip
/// that says why.
class ViewMenus : public QObject {
    Q_OBJECT

  public:
    /// The table outlives the menus.
    explicit ViewMenus(std::span<const MenuEntry> table, QObject* parent = nullptr);

    /// Fills an empty menu bar. May be called again for a new one.
    void Fill(QMenuBar& bar);

    [[nodiscard]] bool Has(MenuName name) const;
    /// A command that the view lacks is one that stands in no menu, and what is said below of it is ignored. A name
    /// that no view's menus hold is an error of the program.
    [[nodiscard]] QAction& Command(MenuName name) const;
    /// Makes a command do something, and thereby available.
    void Bind(MenuName name, std::function<void()> run);
    /// What the user's rights, or the state of the view, say of a command, a separator or a whole menu.
    void Allow(MenuName name, bool allowed);
    void Show(MenuName name, bool shown);
    /// Whether a command suits what is selected just now; where it does not, its tip says why.
    void Suit(MenuName name, bool suits, const QString& why = {});
    /// What stands in a menu of the menu bar, in its order, submenus and separators included.
    [[nodiscard]] QList<QAction*> Entries(MenuName menu) const;

  private:
    struct State {
        QAction* action = nullptr;
        bool bound = false;
        bool allowed = true;
        bool suits = true;
        QString why;
    };
    void addCommand(const MenuEntry& entry);
    /// Null for a command that the view lacks.
    [[nodiscard]] State* stateOf(MenuName name);
    void setBound(State& state);
    void refresh(const State& state);

    std::span<const MenuEntry> table_;
    QHash<QString, State> commands_;
    QAction* absent_;
};
