#include "followup/signaturekey.h"

#include "tests/followup/signaturefixture.h"

class SignatureKeyText : public SignatureFixture {};

TEST_F(SignatureKeyText, IsTheTimeOfTheLastChangeToTheMinute) {
    const std::pair<const char*, const char*> times[] = {{"2026/03/11 09:05:59", "2026/03/11 09:05 am"},
                                                         {"2026/12/01 00:00", "2026/12/01 12:00 am"},
                                                         {"2026/12/01 12:00", "2026/12/01 12:00 pm"},
                                                         {"2026/12/01 13:07", "2026/12/01 01:07 pm"},
                                                         {"2026/12/01 23:59", "2026/12/01 11:59 pm"}};
    for (const auto& [modified, key] : times) {
        change(QString::fromLatin1(modified));
        EXPECT_EQ(SignatureKey(note), QString::fromLatin1(key));
    }
}

TEST_F(SignatureKeyText, OfANoteThatWasNeverChangedIsTheServersTimeFromNowOn) {
    const int other = addNote(QStringLiteral("Null"));
    note = addNote(QStringLiteral("Null"));
    const QString key = SignatureKey(note);
    EXPECT_EQ(database.number(db::Sql("Select Count(*) from sessions Where id = {} And ModifiedDate Is Not Null "
                                      "And DateDiff(minute, ModifiedDate, GetDate()) Between 0 And 1",
                                      note)),
              1);
    EXPECT_EQ(SignatureKey(note), key);
    EXPECT_EQ(database.number(db::Sql("Select Count(*) from sessions Where id = {} And ModifiedDate Is Null", other)),
              1);
}

TEST_F(SignatureKeyText, OfANoteThatIsGoneIsEmpty) {
    removeNote();
    desk.expectBox(QStringLiteral("GetSessionTS failed!"), QStringLiteral("Solvane"));
    EXPECT_EQ(SignatureKey(note), QString());
}

TEST_F(SignatureKeyText, IsEmptyWhereTheDatabaseDoesNotAnswerOrDoesNotStoreTheTime) {
    note = addNote(QStringLiteral("Null"));
    desk.expectBox(
        QStringLiteral("GetSessionTS failed! ") + database.refuse(QStringLiteral("Update"), QStringLiteral("sessions")),
        QStringLiteral("Error"));
    EXPECT_EQ(SignatureKey(note), QString());
    desk.expectBox(QStringLiteral("GetSessionTS failed! ") + loseDatabase(), QStringLiteral("Error"));
    EXPECT_EQ(SignatureKey(note), QString());
}
