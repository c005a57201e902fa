#pragma once

#include <QDate>

#include "platform/controls/datefield.h"
#include "platform/controls/fieldedit.h"
#include "platform/controls/timefield.h"

class DatePopup;
class QAction;

/// A date field or a time field.
///
/// Forms of entry: see ReadTime and ReadDate. A date field has a calendar that drops from its button, by Alt+Down or by
/// F4. Up and Down step a minute (setStep) or a day, Page Up and Page Down an hour or a month.
class ctDEdit : public FieldEdit {
    Q_OBJECT

  public:
    enum class Kind { Date, Time };

    explicit ctDEdit(QWidget* parent = nullptr);
    explicit ctDEdit(Kind kind, QWidget* parent = nullptr);

    /// Empties the field.
    void setKind(Kind kind);
    /// Minutes since midnight, 0 to 1440; any other number empties the field.
    void setTime(int minutes);
    /// An invalid date empties the field.
    void setDate(QDate date);
    /// 0 month first, 1 day first, 2 year first. What is shown is shown anew.
    void setDateOrder(int order);
    /// What years of two digits and dates without a year mean; NearToday unless set. To be called before a date is
    /// shown.
    void setYearReading(YearReading reading) { yearReading_ = reading; }
    void setTwentyFourHour(bool on);
    /// "mid" typed in this field is the midnight that ends the day (1440), not the one that begins it (0).
    void setIsEnd(bool end);
    /// Where stepping a time stops, in minutes; 0 and 1439 unless set. Typing and setTime reach every minute of the
    /// day, since 24:00 is a valid end even where stepping stops a minute before.
    void setRange(int lowest, int highest);
    /// Minutes that one step moves a time; 1 unless set.
    void setStep(int minutes) { stepMinutes_ = minutes; }
    /// Opens the month calendar of a date field.
    void dropCalendar();

    [[nodiscard]] Kind FieldKind() const { return kind_; }
    /// Minutes since midnight, -1 when the field is empty or not understood.
    [[nodiscard]] int Time() const;
    /// Invalid when the field is empty or not understood.
    [[nodiscard]] QDate Date() const;
    /// The number that forms test for "nothing there". Of a time: its minutes, -1 when empty or not understood, so that
    /// "below 1" refuses these and midnight at the start of the day alike. Of a date: its Julian day number, above 100
    /// for every date that the database can hold; 0 when empty, 1 when not understood.
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
    /// Runs a change of the field's form and shows the value anew in it.
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
