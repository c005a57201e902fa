#pragma once

#include <array>
#include <functional>
#include <vector>

#include "appointments/seriesmark.h"
#include "data/recurrence.h"
#include "platform/calendar/item.h"
#include "session/editordialog.h"
#include "session/slot.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class SeriesDates;
class ctDEdit;
class ctNEdit;
namespace db {
class Recordset;
}

/// Turns an appointment into a series: the user chooses a pattern, and OK writes one
/// row for each of its dates besides the appointment's own. Of the pattern itself nothing is kept but `repeating` and
/// `repeating_ref`, the key of the first appointment. A line below the settings says what the series will be, and a
/// list shows its dates with what stands in their way; a date that is decided there is not asked for again. Each row is
/// written with all that goes along into it or not at all; of a series that was cut off a notice offers the rest.
class frmRecurAppt : public EditorDialog {
    Q_OBJECT

  public:
    /// `item` is the appointment as the view shows it, and the copies are booked in the schedule of `provider`.
    /// `rowsChanged` reloads the view when the user books the rest of an interrupted series later.
    frmRecurAppt(const CalendarItem& item, BookedProvider provider, std::function<void()> rowsChanged,
                 QWidget* parent = nullptr);

    [[nodiscard]] QString Subject() const override;
    [[nodiscard]] bool IsChanged() const override;

    /// Reads the settings into the pattern; under "End After" the end date becomes the last date of the series.
    void UIGetInfo();
    /// Tells what is missing; true where nothing is.
    [[nodiscard]] bool Validate();
    /// Shows the dates, with a mark at those on which something is booked in the way.
    void getSampleDates();
    /// Writes the series. False where nothing was written because the conflicts could not be read, so that the form
    /// stays.
    bool createRecurApptList();
    /// Whether the user wants a date left out, because something is booked in the way. Touching times count here, and
    /// so does every kind of row. Throws db::DatabaseError.
    [[nodiscard]] bool getconflict(QDate date) const;

    QButtonGroup* radRecurrence = nullptr;
    QStackedWidget* pages = nullptr;
    ctDEdit* txtRecrStartDate = nullptr;
    QButtonGroup* radEnd = nullptr;  ///< 0 End After, 1 End On.
    ctNEdit* txtRecrMaxEvents = nullptr;
    ctDEdit* txtRecrEndDate = nullptr;
    QButtonGroup* radDaily = nullptr;  ///< 0 every n days, 1 every weekday.
    ctNEdit* txtRecrDailyDays = nullptr;
    ctNEdit* txtRecrWeeklyWeeks = nullptr;
    std::array<QCheckBox*, 7> chkRecrWeekly{};   ///< Sunday first.
    QButtonGroup* radMonthlyScaleInd = nullptr;  ///< 0 Day, 1 The.
    ctNEdit* txtRecrMonthlyDay = nullptr;
    std::array<ctNEdit*, 2> txtRecrMonthlyMonths{};
    QComboBox* cmbRecrMonthlyScale = nullptr;
    QComboBox* cmbRecrMonthlyWeekday = nullptr;
    QButtonGroup* radYearlyScaleInd = nullptr;  ///< 0 Every, 1 The.
    std::array<QComboBox*, 2> cmbRecrYearlyMonth{};
    ctNEdit* txtRecrYearlyDay = nullptr;
    QComboBox* cmbRecrYearlyScale = nullptr;
    QComboBox* cmbRecrYearlyWeekday = nullptr;
    QLabel* lblsource = nullptr;             ///< What is repeated.
    QLabel* lblsentence = nullptr;           ///< What the series will be.
    SeriesDates* seriesdates = nullptr;      ///< The dates of the series.
    std::array<QPushButton*, 3> cmdRecur{};  ///< OK, Cancel, Sample Dates.

  private:
    struct Room {
        int id = 0;
        QString text;  ///< Empty: the copies get no room.
    };
    using Companions = SeriesWork::Company;

    // frmrecurappt_layout.cpp
    void buildForm();
    [[nodiscard]] QWidget* buildDaily();
    [[nodiscard]] QWidget* buildWeekly();
    [[nodiscard]] QWidget* buildMonthly();
    [[nodiscard]] QWidget* buildYearly();
    [[nodiscard]] QLayout* buildRange();
    void layOutForm(QLayout* range);
    void connectControls();

    // frmrecurappt.cpp
    [[nodiscard]] bool loadSource();
    [[nodiscard]] int sourceKey() const { return source_.ItemKey.toInt(); }
    void showSource();
    void presetPattern();
    void UIComputeEndDate();
    void readPattern();
    void readEnd();
    void describe();
    void OK_Click();

    // frmrecurappt_ask.cpp
    [[nodiscard]] bool collides(QDate date) const;
    [[nodiscard]] bool isTakenElsewhere(QDate date, const Room& room) const;
    /// Whether no copy is written on a date: it is the appointment's own, or the user does not want it.
    [[nodiscard]] bool leavesOut(QDate date, const Room& room) const;
    [[nodiscard]] Room roomForCopies(int key) const;
    /// Who goes along into the series, which the user is asked where there is anybody. Throws db::DatabaseError.
    [[nodiscard]] Companions askForCompanions() const;
    void tellMade(int made) const;

    // frmrecurappt_save.cpp
    [[nodiscard]] bool SaveProviderApt(const std::vector<QDate>& dates, Companions companions);
    [[nodiscard]] SeriesWork planFor(const db::Recordset& rows, const std::vector<QDate>& dates,
                                     Companions companions) const;
    void book(db::Recordset& rows, const SeriesWork& work);

    const CalendarItem source_;  ///< The appointment that is repeated, as the view showed it.
    const BookedProvider provider_;
    const std::function<void()> rowsChanged_;
    RecurrencePattern pattern_;
};
