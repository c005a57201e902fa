#include "followup/boardvisits.h"

#include <gtest/gtest.h>

#include "data/codes.h"

namespace {

BoardVisit visit(int code, std::optional<int> start = 540, int end = 590) {
    BoardVisit made;
    made.code = code;
    made.start = start;
    made.end = end;
    return made;
}

}  // namespace

TEST(BoardPlaceOfAVisit, IsDueUntilTheMinuteOfItsStartHasPassed) {
    for (const int code : {ncolor::Blank, ncolor::Pending, ncolor::Tentative, 12345}) {
        EXPECT_EQ(PlaceOf(visit(code), 539), BoardPlace::Due);
        EXPECT_EQ(PlaceOf(visit(code), 540), BoardPlace::Due);
        EXPECT_EQ(PlaceOf(visit(code), 541), BoardPlace::Late);
        EXPECT_EQ(PlaceOf(visit(code), 1439), BoardPlace::Late) << "Nobody has settled it.";
    }
}

TEST(BoardPlaceOfAVisit, IsNeverLateWithoutAStart) {
    EXPECT_EQ(PlaceOf(visit(ncolor::Pending, std::nullopt), 1439), BoardPlace::Due);
}

TEST(BoardPlaceOfAVisit, IsWaitingFromTheCheckInOnWhateverTheTime) {
    EXPECT_EQ(PlaceOf(visit(ncolor::CheckedIn), 500), BoardPlace::Waiting);
    EXPECT_EQ(PlaceOf(visit(ncolor::CheckedIn), 1000), BoardPlace::Waiting);
}

TEST(BoardPlaceOfAVisit, IsInSessionWhileItIsKeptAndLasts) {
    EXPECT_EQ(PlaceOf(visit(ncolor::Kept), 530), BoardPlace::InSession) << "It may begin early.";
    EXPECT_EQ(PlaceOf(visit(ncolor::Kept), 589), BoardPlace::InSession);
    EXPECT_EQ(PlaceOf(visit(ncolor::Kept), 590), BoardPlace::Gone);
}

TEST(BoardPlaceOfAVisit, IsGoneOnceTheNoteIsSigned) {
    BoardVisit noted = visit(ncolor::Kept);
    noted.note = BoardVisit::Note::Unsigned;
    EXPECT_EQ(PlaceOf(noted, 560), BoardPlace::InSession);
    noted.note = BoardVisit::Note::Signed;
    EXPECT_EQ(PlaceOf(noted, 560), BoardPlace::Gone);
}

TEST(BoardPlaceOfAVisit, IsNotComingWhenMissedOrCancelled) {
    for (const int code : {ncolor::Missed, ncolor::PatientCancelled, ncolor::TherapistCancelled})
        EXPECT_EQ(PlaceOf(visit(code), 500), BoardPlace::NotComing);
}

TEST(BoardWaiting, CountsTheMinutesSinceTheArrivalAndNeverLessThanNone) {
    BoardVisit arrived = visit(ncolor::CheckedIn);
    arrived.arrival = QStringLiteral("03/11/26 08:50 AM");
    EXPECT_EQ(MinutesWaited(arrived, 545), 15);
    EXPECT_EQ(MinutesWaited(arrived, 500), 0) << "A time of arrival that is still to come.";
}

TEST(BoardWaiting, AnArrivalThatCannotBeReadHasNoMinutes) {
    BoardVisit arrived = visit(ncolor::CheckedIn);
    for (const char* text : {"", "soon", "25:99", "03/11/26"}) {
        arrived.arrival = QLatin1String(text);
        EXPECT_EQ(MinutesWaited(arrived, 545), -1) << text;
    }
}
