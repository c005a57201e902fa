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

/// One entry of a view's menus. A table lists the entries in the order of the menus. The entries of a submenu follow it
/// up to an EndSubmenu.
struct MenuEntry {
    enum class Kind { Menu, Submenu, EndSubmenu, Command, Separator };

    Kind kind = Kind::Command;
    MenuName name = {};  ///< The name by which the code finds the entry. It is the same in all views.
    const char* text = nullptr;
    const char* icon = nullptr;
    /// The key of the command, or null. A key behind a tab in the text is only shown: the main window or the calendar
    /// answers to it.
    const char* keys = nullptr;
    const char* ownName = nullptr;  ///< The object name of the command when it differs from `name`.
};

/// The commands of a calendar view, each found by its name (mnuAEdit). A command can be used when a routine is bound to
/// it, it is allowed and it suits the selection. Otherwise it is greyed in its menu, with a tip that says why.
class ViewMenus : public QObject {
    Q_OBJECT

  public:
    /// The table must outlive the ViewMenus.
    explicit ViewMenus(std::span<const MenuEntry> table, QObject* parent = nullptr);

    /// Fills an empty menu bar. It may be called again for another bar.
    void Fill(QMenuBar& bar);

    [[nodiscard]] bool Has(MenuName name) const;
    /// Returns the command of this name. When the view's menus do not hold it, a command that stands in no menu is
    /// returned, and the routines below ignore the name. A name that is in no view's menus is an error of the program.
    [[nodiscard]] QAction& Command(MenuName name) const;
    /// Binds the routine that the command runs. Without one the command is greyed.
    void Bind(MenuName name, std::function<void()> run);
    /// Allows or forbids a command, a separator or a whole menu, as the user's rights or the state of the view demand.
    /// A forbidden one is greyed, and its tip is `why`, or that it is not available to the user.
    void Allow(MenuName name, bool allowed, const QString& why = {});
    /// Shows or hides a command, a separator or a whole menu.
    void Show(MenuName name, bool shown);
    /// Sets whether a command suits the current selection. When it does not, the command is greyed and its tip is
    /// `why`.
    void Suit(MenuName name, bool suits, const QString& why = {});
    /// Returns the entries of a menu of the menu bar in their order, including submenus and separators.
    [[nodiscard]] QList<QAction*> Entries(MenuName menu) const;

  private:
    struct State {
        QAction* action = nullptr;
        bool bound = false;
        bool allowed = true;
        bool suits = true;
        QString why;        ///< Why it does not suit.
        QString forbidden;  ///< Why it is not allowed.
    };
    void addCommand(const MenuEntry& entry);
    /// Returns null when the view's menus do not hold the command.
    [[nodiscard]] State* stateOf(MenuName name);
    void setBound(State& state);
    void refresh(const State& state);

    std::span<const MenuEntry> table_;
    QHash<QString, State> commands_;
    QAction* absent_;
};
