#include "data/statuses.h"

#include <gtest/gtest.h>

#include <QString>
#include <set>

#include "data/codes.h"

namespace {

struct Said {
    int code;
    const char* word;
    const char* inDetails;
    const char* inFind;
};

void PrintTo(const Said& said, std::ostream* out) {
    *out << said.code;
}

class StatusWords : public testing::TestWithParam<Said> {};

}  // namespace

TEST_P(StatusWords, AreThoseOfEachPlace) {
    const Status& status = StatusOf(GetParam().code);
    EXPECT_STREQ(status.word, GetParam().word);
    EXPECT_STREQ(status.inDetails, GetParam().inDetails);
    EXPECT_STREQ(status.inFind, GetParam().inFind);
}

INSTANTIATE_TEST_SUITE_P(EveryStatus, StatusWords,
                         testing::Values(Said{16711680, "", "", ""}, Said{16711681, "Pending", "Pending", "Pending"},
                                         Said{126322256, "Tentative", "Tentative", ""},
                                         Said{12632256, "Tentative", "", "Tentative"},
                                         Said{16777215, "Checked-In", "Checked-In", ""},
                                         Said{49152, "Kept", "Kept", "Kept"}, Said{192, "Missed", "Missed", "Missed"},
                                         Said{193, "Patient Cancelled", "Cancelled", "Pt Cancelled"},
                                         Said{194, "Therapist Cancelled", "Cancelled", "Th Cancelled"},
                                         Said{16777088, "Activity/Event", "", ""},
                                         Said{16744703, "Unavailable Time", "", ""},
                                         Said{12632064, "Group Therapy", "", ""}, Said{49344, "", "", ""}));

TEST(StatusTable, ACodeThatIsNoStatusHasNeitherMarkNorWord) {
    for (const int code : {0, 1, -1, 255, 8454143, 0xFF0002}) {
        const Status& status = StatusOf(code);
        EXPECT_EQ(status.mark, StatusMark::None) << code;
        EXPECT_STREQ(status.word, "") << code;
        EXPECT_STREQ(status.inDetails, "") << code;
        EXPECT_STREQ(status.inFind, "") << code;
        EXPECT_STREQ(status.inLegend, "") << code;
    }
}

TEST(StatusTable, NobodyNeedsTheColourToTellTheStatusOfAPatientsRow) {
    std::set<StatusMark> marks;
    for (const int code : ncolor::PatientRows)
        if (code != ncolor::Blank)
            marks.insert(StatusOf(code).mark);
    EXPECT_EQ(marks, (std::set{StatusMark::Pending, StatusMark::Tentative, StatusMark::CheckedIn, StatusMark::Kept,
                               StatusMark::Missed, StatusMark::Cancelled}));
    EXPECT_EQ(StatusOf(ncolor::Blank).mark, StatusMark::None);
}

TEST(StatusTable, WhatTheLegendShowsHasItsMarkExceptAHoliday) {
    for (const int code : {ncolor::Pending, ncolor::LegendTentative, ncolor::Kept, ncolor::Missed, ncolor::Activity,
                           ncolor::Unavailable, ncolor::Group}) {
        EXPECT_STRNE(StatusOf(code).inLegend, "") << code;
        EXPECT_NE(StatusOf(code).mark, StatusMark::None) << code;
    }
    EXPECT_STREQ(StatusOf(ncolor::Holiday).inLegend, "Holiday");
    EXPECT_EQ(StatusOf(ncolor::Holiday).mark, StatusMark::None);
}
