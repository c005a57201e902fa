#include "companion/companionfields.h"

#include "data/minutetime.h"
#include "platform/controls/formparts.h"
#include "session/session.h"

ctDEdit* CompanionDateField(const char* name, const QString& accessibleName, QWidget* parent) {
    auto* field = Named(new ctDEdit(ctDEdit::Kind::Date, parent), name);
    field->setAccessibleName(accessibleName);
    field->setDateOrder(Session().DateOrder);
    return field;
}

StartTimeField::StartTimeField(const char* name, const QString& accessibleName, QWidget* parent)
    : ctDEdit(Kind::Time, parent), slotMinutes_(Session().TimeUnit) {
    Named(this, name)->setAccessibleName(accessibleName);
    setTwentyFourHour(Session().MilitaryTime);
    setStep(slotMinutes_);
}

bool StartTimeField::mayStep(int steps) const {
    const int stepped = Time() + steps * slotMinutes_;
    return stepped >= 1 && stepped < MinutesPerDay;
}

void StartTimeField::stepBy(int steps) {
    if (mayStep(steps))
        ctDEdit::stepBy(steps);
}

QAbstractSpinBox::StepEnabled StartTimeField::stepEnabled() const {
    StepEnabled enabled = ctDEdit::stepEnabled();
    enabled.setFlag(StepUpEnabled, enabled.testFlag(StepUpEnabled) && mayStep(1));
    enabled.setFlag(StepDownEnabled, enabled.testFlag(StepDownEnabled) && mayStep(-1));
    return enabled;
}

QString NameOrKey(const QString& name, int key) {
    return name.trimmed().isEmpty() ? QObject::tr("(no name, %1)").arg(key) : name;
}
