#include "platform/controls/ctdedit.h"

#include <algorithm>
#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>

#include "platform/controls/datepopup.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/localefacts.h"
#include "platform/theme/icon.h"

namespace {

constexpr int HourMinutes = 60;
constexpr int NoTime = -1;
constexpr int EmptyDate = 0;
constexpr int RefusedDate = 1;

}  // namespace

ctDEdit::ctDEdit(QWidget* parent) : ctDEdit(Kind::Date, parent) {}

ctDEdit::ctDEdit(Kind kind, QWidget* parent)
    : FieldEdit(parent), calendarAction_(new QAction(Icon("month"), tr("Calendar"), this)) {
    calendarAction_->setToolTip(tr("Calendar (Alt+Down)"));
    lineEdit()->addAction(calendarAction_, QLineEdit::TrailingPosition);
    connect(calendarAction_, &QAction::triggered, this, &ctDEdit::dropCalendar);
    setKind(kind);
}

void ctDEdit::setKind(Kind kind) {
    kind_ = kind;
    showCalendarSign();
    setText({});
    updateGeometry();
}

void ctDEdit::setTime(int minutes) {
    setText(TimeFieldText(minutes, timeForm_));
}

void ctDEdit::setDate(QDate date) {
    setText(DateFieldText(date, dateOrder_));
}

template <class ChangeOfForm>
void ctDEdit::reshape(ChangeOfForm change) {
    const int time = Time();
    const QDate date = Date();
    change();
    if (time != NoTime)
        setTime(time);
    else if (date.isValid())
        setDate(date);
    else
        setText(text());
    updateGeometry();
}

void ctDEdit::setDateOrder(int order) {
    reshape([&] { dateOrder_ = static_cast<DateOrder>(std::clamp(order, 0, 2)); });
}

void ctDEdit::setTwentyFourHour(bool on) {
    reshape([&] { timeForm_.twentyFourHour = on; });
}

void ctDEdit::setIsEnd(bool end) {
    reshape([&] { timeForm_.isEnd = end; });
}

void ctDEdit::setRange(int lowest, int highest) {
    lowest_ = lowest;
    highest_ = highest;
    update();
}

void ctDEdit::dropCalendar() {
    if (kind_ != Kind::Date || isReadOnly() || !isEnabled())
        return;
    if (popup_ == nullptr) {
        popup_ = new DatePopup(*this);
        connect(popup_, &DatePopup::Chosen, this, [this](QDate date) { showStepped(DateFieldText(date, dateOrder_)); });
    }
    popup_->drop(Date(), static_cast<int>(dateOrder_));
}

int ctDEdit::Time() const {
    return kind_ == Kind::Time ? ReadTime(text(), timeForm_).value_or(NoTime) : NoTime;
}

QDate ctDEdit::Date() const {
    return kind_ == Kind::Date ? ReadDate(text(), dateOrder_, Today(), yearReading_).value_or(QDate()) : QDate();
}

int ctDEdit::Value() const {
    if (kind_ == Kind::Time)
        return Time();
    if (IsEmpty())
        return EmptyDate;
    const QDate date = Date();
    return date.isValid() ? static_cast<int>(date.toJulianDay()) : RefusedDate;
}

void ctDEdit::stepBy(int steps) {
    const int time = Time();
    const QDate date = Date();
    if (date.isValid()) {
        showStepped(DateFieldText(date.addDays(steps), dateOrder_));
    } else if (time != NoTime) {
        const int stepped = std::clamp(time + steps * stepMinutes_, lowest_, highest_);
        // A time that was typed beyond the range is not pulled back by a step that leads away from the range.
        if ((stepped > time) == (steps > 0))
            showStepped(TimeFieldText(stepped, timeForm_));
    }
}

void ctDEdit::stepPage(int direction) {
    const QDate date = Date();
    if (date.isValid())
        showStepped(DateFieldText(date.addMonths(direction), dateOrder_));
    else
        stepBy(direction * std::max(1, HourMinutes / std::max(1, stepMinutes_)));
}

QAbstractSpinBox::StepEnabled ctDEdit::stepEnabled() const {
    if (isReadOnly() || !IsValid())
        return StepNone;
    if (kind_ == Kind::Date)
        return StepUpEnabled | StepDownEnabled;
    const int time = Time();
    return StepEnabled(time < highest_ ? StepUpEnabled : StepNone) | (time > lowest_ ? StepDownEnabled : StepNone);
}

std::optional<QString> ctDEdit::normalised(const QString& text) const {
    if (kind_ == Kind::Time) {
        const std::optional<int> time = ReadTime(text, timeForm_);
        return time ? std::optional(TimeFieldText(*time, timeForm_)) : std::nullopt;
    }
    const std::optional<QDate> date = ReadDate(text, dateOrder_, Today(), yearReading_);
    return date ? std::optional(DateFieldText(*date, dateOrder_)) : std::nullopt;
}

QString ctDEdit::complaint() const {
    if (kind_ == Kind::Date)
        return tr("This is not a date. Enter it like %1, or t for today, +1 for tomorrow.").arg(widestText());
    return tr("This is not a time of day. Enter it like %1, or 930, noon.").arg(TimeFieldText(570, timeForm_));
}

QString ctDEdit::widestText() const {
    return kind_ == Kind::Date ? DateFieldText(QDate(Today().year(), 12, 28), dateOrder_)
                               : TimeFieldText(12 * HourMinutes + 58, timeForm_);
}

QString ctDEdit::hint() const {
    const QDate date = Date();
    return toolTip().isEmpty() && date.isValid() ? LongDateText(date) : toolTip();
}

void ctDEdit::showCalendarSign() {
    calendarAction_->setVisible(kind_ == Kind::Date && !isReadOnly());
}

bool ctDEdit::event(QEvent* event) {
    if (event->type() == QEvent::ReadOnlyChange)
        showCalendarSign();
    return FieldEdit::event(event);
}

void ctDEdit::keyPressEvent(QKeyEvent* event) {
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (kind_ == Kind::Date && (altDown || event->key() == Qt::Key_F4))
        return dropCalendar();
    if (event->key() != Qt::Key_PageUp && event->key() != Qt::Key_PageDown)
        return FieldEdit::keyPressEvent(event);
    if (!isReadOnly())
        stepPage(event->key() == Qt::Key_PageUp ? 1 : -1);
}
