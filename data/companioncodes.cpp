#include "data/companioncodes.h"

QString ApptStatusText(int apptStatus) {
    switch (apptStatus) {
        case 0:
        case 1:
            return QStringLiteral("Not Seen");
        case 2:
            return QStringLiteral("Cancelled");
        case 3:
            return QStringLiteral("Missed");
        case 4:
            return QStringLiteral("Arrived");
        case 5:
            return QStringLiteral("Seen");
        default:
            return {};
    }
}
