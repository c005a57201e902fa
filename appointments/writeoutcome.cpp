#include "appointments/writeoutcome.h"

QString WriteTrouble(WriteStep step) {
    return step == WriteStep::Room ? QStringLiteral("Error saving room schedule. ")
                                   : QStringLiteral("Error saving appointment. ");
}
