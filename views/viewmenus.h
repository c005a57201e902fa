#pragma once

#include <functional>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <span>

class QAction;
class QMenu;
class QMenuBar;

/// One line of a view's menus, in the order of the menus.
struct MenuEntry {
    enum class Kind { Menu, Submenu, EndSubmenu, Command, Separator };
    Kind kind;
    const char* name;
    /// A key behind a tab is one that the main window or the calendar answers to; it is shown here, not claimed.
    const char* text;
    const char* icon;
    const char* keys;  ///< Of the command; null for none.
};

/// The menus of the views that appointments are worked on in: day and week.
[[nodiscard]] std::span<const MenuEntry> CalendarMenus();

/// The commands of a view, each found by its name (mnuAEdit). A command can be used when something is bound to
/// it, the user's rights allow it and it suits what is selected; until then it stands greyed in its menu, with a tip
/// that says why.
class ViewMenus : public QObject {
    Q_OBJECT

  public:
    /// The entries outlive the menus.
    explicit ViewMenus(std::span<const MenuEntry> entries, QObject* parent = nullptr);

    /// Fills an empty menu bar. May be called again for a new one.
    void Fill(QMenuBar& bar);

    /// Whether this view has the command.
    [[nodiscard]] bool Has(const QString& name) const { return commands_.contains(name); }
    [[nodiscard]] QAction& Command(const QString& name) const;
    /// Makes a command do something, and thereby available.
    void Bind(const QString& name, std::function<void()> run);
    /// What the user's rights, or the state of the view, say of a command, a separator or a whole menu.
    void Allow(const QString& name, bool allowed);
    void Show(const QString& name, bool shown);
    /// Whether a command suits what is selected just now; where it does not, its tip says why.
    void Suit(const QString& name, bool suits, const QString& why = {});
    /// What stands in a menu of the menu bar, in its order, submenus and separators included.
    [[nodiscard]] QList<QAction*> Entries(const QString& menu) const;

  private:
    struct State {
        QAction* action = nullptr;
        bool bound = false;
        bool allowed = true;
        bool suits = true;
        QString why;
    };
    void addCommand(const char* name, const QString& text, const char* icon, const char* keys);
    void setBound(const QString& name);
    void refresh(const State& state);

    std::span<const MenuEntry> entries_;
    QHash<QString, State> commands_;
};
