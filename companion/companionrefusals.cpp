#include "companion/companionrefusals.h"

#include "companion/companionitem.h"
#include "platform/desktop/desktop.h"

QString RefusalOf(const CalendarItem& item, const CompanionRefusals& refusals) {
    const bool inSeries = item.ItemSeriesIcon == CompanionSeriesIcon;
    switch (item.ItemColor) {
        case companioncolor::Scheduled:
            return inSeries ? QString::fromLatin1(refusals.ofSeries) : QString();
        case companioncolor::Charged:
            return QString::fromLatin1(refusals.charged);
        default:
            return inSeries ? QString::fromLatin1(refusals.eventOfSeries) : QString();
    }
}

void TellRefusal(const QString& text) {
    MsgBox(text, InformationBox, QStringLiteral("Solvane"));
}
