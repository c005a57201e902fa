#include "companion/companionrefusals.h"

#include "companion/companionappointment.h"
#include "companion/companionitem.h"
#include "platform/database/recordset.h"
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

QString RefusalOf(const db::Recordset& row, const CompanionRefusals& refusals) {
    if (!IsScheduled(row))
        return QString::fromLatin1(refusals.charged);
    return row["RecurTranId"].integer() > 0 ? QString::fromLatin1(refusals.ofSeries) : QString();
}

void TellRefusal(const QString& text) {
    MsgBox(text, InformationBox, QStringLiteral("Solvane"));
}
