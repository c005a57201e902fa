#pragma once

#include <initializer_list>
#include <QPointer>
#include <vector>

#include "shell/mainwindow.h"
#include "shell/viewmenus.h"
#include "shell/viewwindow.h"

class QAction;

/// A view with menus of its own. It binds the commands that are common to the views, as far as the view's menus hold
/// them: the lists, the preferences, the change to another view, the steps, help and leaving.
class MenuView : public ViewWindow {
    Q_OBJECT

  public:
    MenuView(MainWindow& main, std::span<const MenuEntry> entries, QWidget* parent = nullptr);

    void FillMenus(QMenuBar& menus) override;
    void FollowMainWindow() override;

  protected:
    /// Shows or hides these commands. A command that the view's menus do not hold is ignored.
    void showAny(std::initializer_list<MenuName> names, bool shown);
    /// Ticks the command that opens this view, and gives the commands Previous and Next the view's captions, such as
    /// "Previous Week".
    void showOpenView(MenuName command, View view);
    /// Called after a list of the practice (locations, rooms, activities, unavailable time) was edited.
    virtual void listsChanged() {}
    /// Whether the print options of this view offer to print the weekend.
    [[nodiscard]] virtual bool printsWeekends() const { return false; }
    /// Shows what the colours of this view mean.
    virtual void showLegend();
    [[nodiscard]] MainWindow& main() const { return main_; }
    [[nodiscard]] ViewMenus& menus() { return menus_; }

    MainWindow& main_;
    ViewMenus menus_;

  private:
    void bindViews();
    void bindSteps();
    void bindPracticeLists();
    void bindSavedViews();
    void showSavedViews();
    void goToNow();
    void showPrintOptions();

    std::vector<QPointer<QAction>> savedEntries_;  ///< What the submenu of the saved views holds besides its command.
};
