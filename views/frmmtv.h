#pragma once

#include <QStringList>

#include "shell/menuview.h"

class ctWeek;

/// The days of a month as the month view counts them: 29 days in February of every year divisible by 4, century years
/// included; 0 for a number that is no month.
[[nodiscard]] int DaysInMonth(int month, int year);

/// The month view: one provider's month, to be read. Each day lists its appointments in their colours; a double click
/// on a day, or Enter, opens it in the day view. The month has no scale of time, so the hours of the day matter here
/// only in that an early appointment stands first.
///
/// Hidden patient names are hidden here too: neither the line nor its tip gives them away.
class frmmtv : public MenuView {
    Q_OBJECT

  public:
    explicit frmmtv(MainWindow& main, QWidget* parent = nullptr);

    /// Reads the month of the main window's date for the session's provider, all-day appointments included. The main
    /// window's date is the selected day. Appointments that cannot be read are told.
    void LoadMonthView();
    /// Hides the lists from who may only read, and the other providers from who sees one schedule only.
    void setmenuaccess();

    void Reload() override { LoadMonthView(); }
    /// Thirty days, not a calendar month.
    [[nodiscard]] QDate Stepped(QDate from, int direction) const override;
    void ApplyPreferences() override;
    /// Finds an appointment by its text and goes to its day.
    void FindAppointment() override;
    [[nodiscard]] bool CanFind() const override { return true; }

  private:
    void bindMonthCommands();
    void bindCalendar();
    void addAppointments(QDate first, int days);
    [[nodiscard]] QString tipOf(int index) const;
    void selectDay(QDate day);
    void goTo(QDate day);
    void openDay(QDate day);

    ctWeek* ctWeek1;
    QStringList List1;  ///< The texts of the items; the entry before the item's number.
    QStringList List2;  ///< Their keys.
};
