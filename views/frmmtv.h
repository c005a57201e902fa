#pragma once

#include <QStringList>
#include <vector>

#include "shell/menuview.h"
#include "shell/schedulesheet.h"

class ShelfPanel;
class ctWeek;

/// Returns the number of days of a month as the month view counts them. February has 29 days in every year divisible by
/// 4, including century years. A number that is no month gives 0.
[[nodiscard]] int DaysInMonth(int month, int year);

/// The month view: one provider's month, which can be read but not edited. Each day lists its appointments in their
/// colours, the earliest first; the month has no scale of time. A double click on a day, or Enter, opens it in the day
/// view.
///
/// While patient names are hidden, neither a line nor its tip shows them.
class frmmtv : public MenuView {
    Q_OBJECT

  public:
    explicit frmmtv(MainWindow& main, QWidget* parent = nullptr);

    /// Reads the month of the main window's date for the session's provider, including all-day appointments, and with
    /// it the days of the months before and after that stand in its weeks. The main window's date is the selected day.
    /// When appointments cannot be read, the user is told. Holidays that cannot be read are left out without a message.
    void LoadMonthView();
    /// Hides the practice's lists and the Activity Scheduler from a user who may only read, and the choice of a
    /// provider and the view of all providers from a user who may see one schedule only.
    void setmenuaccess();

    void Reload() override { LoadMonthView(); }
    /// Steps by thirty days, not by a calendar month.
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;
    void ApplyPreferences() override;
    /// Finds an appointment by its text and goes to its day.
    void FindAppointment() override;
    [[nodiscard]] bool CanFind() const override { return true; }
    [[nodiscard]] QList<QWidget*> SidePanes() const override;
    /// Shows the print preview of the month.
    void PrintSchedule() override { printS(); }

  private:
    void bindMonthCommands();
    void bindCalendar();
    void bindShelf();
    /// A run of days.
    struct Span {
        QDate first;
        int days = 0;
    };
    [[nodiscard]] std::vector<Span> shownSpans(const Span& month) const;
    void addAppointments(const std::vector<Span>& spans);
    void addHolidays(QDate first, int days);
    [[nodiscard]] MonthSheet sheet() const;
    void printS();
    [[nodiscard]] QString tipOf(int index) const;
    void selectDay(QDate day);
    void goTo(QDate day);
    void openDay(QDate day);

    ctWeek* ctWeek1;
    ShelfPanel* shelf_;  ///< The month has no times to land on; an appointment of the shelf is gone to from here.
    QStringList List1;   ///< The texts of the items; item n has the entry n - 1.
    QStringList List2;   ///< The keys of the items, in the same order.
};
