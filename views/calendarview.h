#pragma once

#include <QHash>

#include "platform/calendar/ctmday.h"
#include "session/openview.h"
#include "views/mainwindow.h"
#include "views/viewmenus.h"
#include "views/viewwindow.h"

/// What the views on a `ctMDay` share: the calendar itself, the menus and what the user's rights leave of them, the
/// hours and the grid from the preferences. A view states only its difference.
class CalendarView : public ViewWindow, public OpenView {
    Q_OBJECT

  public:
    explicit CalendarView(MainWindow& main, QWidget* parent = nullptr);

    void FillMenus(QMenuBar& menus) override;
    void ApplyPreferences() override;
    void FollowMainWindow() override;

    [[nodiscard]] std::optional<CalendarItem> SelectedItem() const override;
    [[nodiscard]] std::optional<SelectedSlot> SelectedTime() const override;
    void DropSelection() override;

    /// Greys and hides the commands that the user's rights forbid.
    void setmenuaccess();

  protected:
    /// What the commands need of an item's row besides what the item shows.
    struct RowFacts {
        int apptType = 0;
        QString callStatus;
    };

    /// TimeInterval and TwentyFourHour from the preferences.
    void setGrid();
    /// PrimeStart, FirstTime, PrimeEnd and LastTime from the preferred hours, before the items that may widen them.
    void setHours();
    /// Adds an item with all its attributes; returns its index.
    int addItem(CalendarItem item);
    [[nodiscard]] MainWindow& main() const { return main_; }
    [[nodiscard]] ViewMenus& menus() { return menus_; }

    ctMDay* ctMDay1;
    QHash<QString, RowFacts> facts_;  ///< By ItemKey.

  private:
    void bindCommands();

    MainWindow& main_;
    ViewMenus menus_;
};
