#include "data/companioncodes.h"

#include <gtest/gtest.h>

TEST(CompanionCodes, ZeroAndOneBothReadNotSeen) {
    EXPECT_EQ(ApptStatusText(0), "Not Seen");
    EXPECT_EQ(ApptStatusText(1), "Not Seen");
}

TEST(CompanionCodes, EveryStatusHasItsWord) {
    EXPECT_EQ(ApptStatusText(2), "Cancelled");
    EXPECT_EQ(ApptStatusText(3), "Missed");
    EXPECT_EQ(ApptStatusText(4), "Arrived");
    EXPECT_EQ(ApptStatusText(5), "Seen");
}

TEST(CompanionCodes, AValueOutsideTheTableHasNoWord) {
    EXPECT_TRUE(ApptStatusText(-1).isEmpty());
    EXPECT_TRUE(ApptStatusText(6).isEmpty());
}
