#include "data/pipefields.h"

#include <gtest/gtest.h>

namespace {

std::string field(const char* text, int n) {
    return GetPipeField(QString::fromUtf8(text), n).toStdString();
}

}  // namespace

TEST(PipeFields, FieldsAreCountedFromOne) {
    EXPECT_EQ(field("1|REED", 1), "1");
    EXPECT_EQ(field("1|REED", 2), "REED");
}

TEST(PipeFields, FieldZeroIsTheFirst) {
    EXPECT_EQ(field("90834|call first", 0), "90834");
}

TEST(PipeFields, PastTheEndIsEmpty) {
    EXPECT_EQ(field("a|b", 3), "");
    EXPECT_EQ(field("", 1), "");
}

TEST(PipeFields, ANoteWithNoPipeIsAllServiceAndNoNote) {
    EXPECT_EQ(field("90834 Psychotherapy", 1), "90834 Psychotherapy");
    EXPECT_EQ(field("90834 Psychotherapy", 2), "");
}

TEST(PipeFields, EmptyFieldsKeepTheirPlace) {
    EXPECT_EQ(field("||P17|A-4", 3), "P17");
}

TEST(PipeFields, CleanTextKeepsPipesAndSemicolonsOut) {
    EXPECT_EQ(CleanFieldText("one;two|three\r\nfour").toStdString(), "onetwothree four");
}
