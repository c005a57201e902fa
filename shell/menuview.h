#pragma once

#include <initializer_list>

#include "shell/mainwindow.h"
#include "shell/viewmenus.h"
#include "shell/viewwindow.h"

/// A view with menus of its own. The commands that every view has in common are bound here, whatever of them stands in
/// the view's menus: the lists, the preferences, the change to another view, the steps, help and leaving.
class MenuView : public ViewWindow {
    Q_OBJECT

  public:
    MenuView(MainWindow& main, std::span<const MenuEntry> entries, QWidget* parent = nullptr);

    void FillMenus(QMenuBar& menus) override;
    void FollowMainWindow() override;

  protected:
    /// Shows or hides those of the commands that the view's menus hold.
    void showAny(std::initializer_list<MenuName> names, bool shown);
    /// Ticks the command that opened this view, and names what a step goes over.
    void showOpenView(MenuName command, View view);
    /// After the practice's lists (locations, rooms, activities) were edited.
    virtual void listsChanged() {}
    [[nodiscard]] MainWindow& main() const { return main_; }
    [[nodiscard]] ViewMenus& menus() { return menus_; }

    MainWindow& main_;
    ViewMenus menus_;

  private:
    void bindViews();
    void bindSteps();
    void bindPracticeLists();
};
