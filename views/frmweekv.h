#pragma once

#include "views/calendarview.h"

/// The week view: five or seven days of one provider side by side, beginning with Monday. The preference WeekCols holds
/// the number. The view has the commands of the day view except those on tasks. It does not show all-day entries.
class frmweekv : public CalendarView {
    Q_OBJECT

  public:
    explicit frmweekv(MainWindow& main, QWidget* parent = nullptr);

    /// Reads the week of the main window's date for the session's provider. When appointments cannot be read, the user
    /// is told, so that nobody books into a week that only looks free.
    void loadmdayview();
    /// Shades the time outside the provider's working hours on that day.
    void LoadWorkSchedule(QDate date);
    /// Returns "January" to "December" for 1 to 12, and "" for any other number.
    [[nodiscard]] static QString getmonth(int month);

    void Reload() override { loadmdayview(); }
    void ApplyPreferences() override;
    /// Keeps the number of days.
    void AddContents(ViewContents& contents) const override;
    void ShowContents(const ViewContents& contents) override;
    /// Says so when the week of five days does not show today.
    void ShowNow() override;
    /// Returns the Monday of the week before or after the week of `from`.
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;

  protected:
    [[nodiscard]] QDate dateOfColumn(int column) const override;
    [[nodiscard]] int columnFor(QDate date, const QString& provider) const override;
    void tellUnseenOpening(QDate date) override;
    [[nodiscard]] bool showsCallsOfAwaitedOnly() const override { return true; }
    /// Prints five or seven days as the print options say, however many the view shows. A saved view is printed as it
    /// is shown.
    [[nodiscard]] ScheduleSheet sheet(const PrintOptions& options) const override;
    void printS() override;
    [[nodiscard]] bool printsWeekends() const override { return true; }
    /// Returns the seven days of the week, however many the view shows.
    [[nodiscard]] ReportOpening reportOpening() const override;
    [[nodiscard]] QString whyUnseen(const FoundAppointment& found) const override;

  private:
    void showDays();
    void takeContents(const ViewContents& contents);
    [[nodiscard]] ExportRequest exportedWeek() const;
    [[nodiscard]] QStringList weekStatements(QDate first) const;

    std::optional<int> savedDays_;  ///< The number of days of the saved view that is shown.
};
