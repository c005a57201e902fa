#include "people/patientage.h"

#include "platform/desktop/desktop.h"

std::int16_t AgeInYears(QDate date) {
    const QDate today = Today();
    if (!date.isValid() || date > today)
        return 0;
    const int leapDays = (today.year() - date.year()) / 4;
    return static_cast<std::int16_t>((date.daysTo(today) - leapDays) / 365);
}
