#include "appointments/writeoutcome.h"

QString WriteTrouble(WriteStep step) {
    switch (step) {
        case WriteStep::Room:
            return QStringLiteral("Error saving room schedule. ");
        case WriteStep::Members:
            return QStringLiteral("Error saving group members. ");
        case WriteStep::WaitList:
            return QStringLiteral("Error saving wait list. ");
        case WriteStep::Appointment:
            break;
    }
    return QStringLiteral("Error saving appointment. ");
}
