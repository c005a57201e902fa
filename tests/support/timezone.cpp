#include "tests/support/timezone.h"

#include <gtest/gtest.h>

#include <ctime>
#include <QDateTime>

InTimeZone::InTimeZone(const ZoneOfTest& zone) : hadZone_(qEnvironmentVariableIsSet("TZ")), before_(qgetenv("TZ")) {
    qputenv("TZ", zone.rule);
    tzset();
    EXPECT_EQ(QDateTime(zone.change, QTime(0, 0)).isValid(), !zone.skipsMidnight) << "This is not the zone.";
}

InTimeZone::~InTimeZone() {
    if (hadZone_)
        qputenv("TZ", before_);
    else
        qunsetenv("TZ");
    tzset();
}
