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

/// Turns an appointment into a series: the user chooses a pattern, and OK writes one row for each of its dates besides
/// the appointment's own. The pattern itself is not stored; the rows only hold `repeating` and `repeating_ref`, the key
/// of the first appointment. A line below the settings describes the series, and a list shows its dates with the
/// obstacles of each. The user is not asked again about a date that was decided in the list. Each row is written
/// completely, with all that belongs to it, or not at all. When the writing is cut off, a notice offers to do the rest.
class frmRecurAppt : public EditorDialog {
    Q_OBJECT

  public:
    /// `item` is the appointment as the view shows it, and the copies are booked in the schedule of `provider`.
    /// `rowsChanged` reloads the view when the user books the rest of an interrupted series later.
    frmRecurAppt(const CalendarItem& item, BookedProvider provider, std::function<void()> rowsChanged,
                 QWidget* parent = nullptr);

    [[nodiscard]] QString Subject() const override;
    [[nodiscard]] bool IsChanged() const override;

    /// Reads the settings into the pattern. Under "End After" the end date becomes the last date of the series.
    void UIGetInfo();
    /// Tells the user what is missing. Returns true when nothing is.
    [[nodiscard]] bool Validate();
    /// Shows the dates of the series in frmslist, with a mark at those that have obstacles.
    void getSampleDates();
    /// Writes the series. Returns false when the conflicts could not be read, so that nothing was written and the form
    /// stays open. The answer is true in all other cases, also when the write failed.
    bool createRecurApptList();
    /// Whether a date is to be left out: something is booked in the way, and the user does not want to add the
    /// appointment anyway. Times that only touch count here, and so does every kind of row. Throws db::DatabaseError.
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
    QLabel* lblsource = nullptr;             ///< The appointment that is repeated.
    QLabel* lblsentence = nullptr;           ///< The description of the series.
    SeriesDates* seriesdates = nullptr;      ///< The dates of the series.
    std::array<QPushButton*, 3> cmdRecur{};  ///< OK, Cancel, Sample Dates.

  private:
    struct Room {
        int id = 0;
        QString text;  ///< The name of the room; empty when the copies get no room.
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
    /// Whether no copy is written on a date, because it is the appointment's own date or the user does not want it.
    [[nodiscard]] bool leavesOut(QDate date, const Room& room) const;
    [[nodiscard]] Room roomForCopies(int key) const;
    /// Returns who is taken over into the series. The user is asked when the appointment has attendees or members.
    /// Throws db::DatabaseError.
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
