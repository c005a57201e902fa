#include "people/randomid.h"

#include <gtest/gtest.h>

#include "platform/database/error.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

class RandomId : public testing::Test {
  protected:
    RandomId() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        Desktop().random = [this] {
            ++draws;
            return draws < secondNumberAt ? 0.0 : 0.9999999999;
        };
    }
    ~RandomId() override { ResetSession(); }

    void take(const char* id) {
        database.connection().Execute(db::Sql("Insert Into patient_info (id) Values ('{}')", id));
    }

    TestDatabase database;
    ScriptedDesk desk;
    int draws = 0;
    int secondNumberAt = 1000000;
};

}  // namespace

TEST_F(RandomId, LiesBetweenTheLowestAndTheHighestNumber) {
    EXPECT_EQ(GenerateRandomId("patient_info", 10000, 99999999, {}), "10000");
    secondNumberAt = 0;
    EXPECT_EQ(GenerateRandomId("patient_info", 10000, 99999999, {}), "99999999");
}

TEST_F(RandomId, FollowsItsPrefix) {
    EXPECT_EQ(GenerateRandomId("patient_info", 1, 9, "P"), "P1");
}

TEST_F(RandomId, TriesTwoHundredTimes) {
    take("10000");
    secondNumberAt = 200;
    EXPECT_EQ(GenerateRandomId("patient_info", 10000, 99999999, {}), "99999999");
    EXPECT_EQ(draws, 200);
}

TEST_F(RandomId, IsEmptyWhenTwoHundredNumbersWereTaken) {
    take("10000");
    secondNumberAt = 201;
    EXPECT_EQ(GenerateRandomId("patient_info", 10000, 99999999, {}), "");
    EXPECT_EQ(draws, 200);
}

TEST_F(RandomId, ATableThatIsNotThereIsAnError) {
    EXPECT_THROW((void)GenerateRandomId("nowhere", 1, 9, {}), db::DatabaseError);
}

TEST_F(RandomId, TheRealDesktopDrawsFromNoughtToOne) {
    for (int i = 0; i < 100; ++i) {
        const double number = RealDesktop().random();
        EXPECT_GE(number, 0.0);
        EXPECT_LT(number, 1.0);
    }
}
