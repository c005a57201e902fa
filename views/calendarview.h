#pragma once

#include "platform/calendar/ctmday.h"
#include "views/mainwindow.h"
#include "views/viewmenus.h"
#include "views/viewwindow.h"

/// What the views on a `ctMDay` share: the calendar itself, the menus and what the user's rights leave of them, the
/// hours and the grid from the preferences. A view states only its difference.
class CalendarView : public ViewWindow {
    Q_OBJECT

  public:
    explicit CalendarView(MainWindow& main, QWidget* parent = nullptr);

    void FillMenus(QMenuBar& menus) override;
    void ApplyPreferences() override;
    void FollowMainWindow() override;

    /// Greys and hides the commands that the user's rights forbid.
    void setmenuaccess();

  protected:
    /// TimeInterval and TwentyFourHour from the preferences.
    void setGrid();
    /// PrimeStart, FirstTime, PrimeEnd and LastTime from the preferred hours, before the items that may widen them.
    void setHours();
    /// Adds an item with all its attributes; returns its index.
    int addItem(CalendarItem item);
    [[nodiscard]] MainWindow& main() const { return main_; }
    [[nodiscard]] ViewMenus& menus() { return menus_; }

    ctMDay* ctMDay1;

  private:
    void bindCommands();

    MainWindow& main_;
    ViewMenus menus_;
};
