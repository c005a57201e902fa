#pragma once

#include <QDate>

#include "platform/controls/datefield.h"
#include "platform/controls/fieldedit.h"
#include "platform/controls/timefield.h"

class DatePopup;
class QAction;

/// A date field or a time field.
///
/// ReadTime and ReadDate describe what may be typed. A date field has a calendar that drops from its button, by
/// Alt+Down or by F4. Up and Down step by a minute (or setStep) or a day, Page Up and Page Down by an hour or a month.
class ctDEdit : public FieldEdit {
    Q_OBJECT

  public:
    enum class Kind { Date, Time };

    explicit ctDEdit(QWidget* parent = nullptr);
    explicit ctDEdit(Kind kind, QWidget* parent = nullptr);

    /// Turns the field into a date field or a time field and empties it.
    void setKind(Kind kind);
    /// Shows a time in minutes since midnight, 0 to 1440. Any other number empties the field.
    void setTime(int minutes);
    /// Shows a date. An invalid date empties the field.
    void setDate(QDate date);
    /// Sets the order of dates: 0 month first, 1 day first, 2 year first. A date in the field is rewritten in it.
    void setDateOrder(int order);
    /// Sets what years of two digits and dates without a year mean; NearToday unless set. It must be called before a
    /// date is shown.
    void setYearReading(YearReading reading) { yearReading_ = reading; }
    void setTwentyFourHour(bool on);
    /// Makes "mid" mean the midnight that ends the day (1440) instead of the one that begins it (0).
    void setIsEnd(bool end);
    /// Sets the range for stepping a time, in minutes; 0 to 1439 unless set. Typing and setTime reach every minute of
    /// the day, because 24:00 is a valid end even where stepping stops a minute before.
    void setRange(int lowest, int highest);
    /// Sets how many minutes one step moves a time; 1 unless set.
    void setStep(int minutes) { stepMinutes_ = minutes; }
    /// Opens the month calendar of a date field.
    void dropCalendar();

    /// The minutes since midnight, or -1 when the field is empty or not understood.
    [[nodiscard]] int Time() const;
    /// The date; invalid when the field is empty or not understood.
    [[nodiscard]] QDate Date() const;
    /// The number by which forms test for an empty field. For a time it is its minutes, or -1 when the field is empty
    /// or not understood, so that a test for "below 1" refuses these and midnight at the start of the day alike. For a
    /// date it is its Julian day number, above 100 for every date that the database can hold; 0 means empty and 1 not
    /// understood.
    [[nodiscard]] int Value() const;

    void stepBy(int steps) override;

  protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    [[nodiscard]] std::optional<QString> normalised(const QString& text) const override;
    [[nodiscard]] QString complaint() const override;
    [[nodiscard]] QString widestText() const override;
    [[nodiscard]] int signCount() const override { return kind_ == Kind::Date ? 1 : 0; }
    [[nodiscard]] QString hint() const override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// Changes how the field writes its value and shows the value again.
    template <class ChangeOfForm>
    void reshape(ChangeOfForm change);
    void stepPage(int direction);
    void showCalendarSign();

    Kind kind_ = Kind::Date;
    TimeForm timeForm_;
    DateOrder dateOrder_ = DateOrder::MonthFirst;
    YearReading yearReading_ = YearReading::NearToday;
    int lowest_ = 0;
    int highest_ = 1439;
    int stepMinutes_ = 1;
    QAction* calendarAction_;
    DatePopup* popup_ = nullptr;
};
