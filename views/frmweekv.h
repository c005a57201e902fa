#pragma once

#include "views/calendarview.h"

/// The week view: one provider's days side by side, from Monday on, five or seven as the preference WeekCols says. It
/// has the commands of the day view but for the tasks. All-day entries are shown on the day alone.
class frmweekv : public CalendarView {
    Q_OBJECT

  public:
    explicit frmweekv(MainWindow& main, QWidget* parent = nullptr);

    /// Reads the week of the main window's date for the session's provider. Appointments that cannot be read are told,
    /// so that nobody books into a week that only looks free.
    void loadmdayview();
    /// Shades the time outside the provider's working hours on that day.
    void LoadWorkSchedule(QDate date);
    /// "January" to "December" for 1 to 12, "" for any other number.
    [[nodiscard]] static QString getmonth(int month);

    void Reload() override { loadmdayview(); }
    void ApplyPreferences() override;
    /// From the first day that is shown, a week on.
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;

  protected:
    [[nodiscard]] QDate dateOfColumn(int column) const override;
    [[nodiscard]] bool showsCallsOfAwaitedOnly() const override { return true; }
    /// Five or seven days, as the print options say, however many are shown.
    [[nodiscard]] ScheduleSheet sheet() const override;
    void printS() override;
    [[nodiscard]] QString whyUnseen(const FoundAppointment& found) const override;

  private:
    void showDays();
    [[nodiscard]] QStringList weekStatements(QDate first) const;
};
