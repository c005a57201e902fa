#include "data/phone.h"

#include <gtest/gtest.h>

namespace {

std::string formatted(const char* number, const char* mask) {
    return FormatPhone(number, MaskToFormat(mask)).toStdString();
}

}  // namespace

TEST(Phone, AMaskBecomesAFormatOfPlaceholders) {
    EXPECT_EQ(MaskToFormat("(###) NNN-AAAA").toStdString(), "(@@@) @@@-@@@@");
    EXPECT_EQ(MaskToFormat("  ").toStdString(), "");
}

TEST(Phone, TenDigitsFillTheMask) {
    EXPECT_EQ(formatted("5551234567", "(###) ###-####"), "(555) 123-4567");
}

TEST(Phone, AnExtensionFollowsTheNumber) {
    EXPECT_EQ(formatted("5551234567890", "(###) ###-#### #####"), "(555) 123-4567 890");
    EXPECT_EQ(formatted("55512345678", "(###) ###-####"), "(555) 123-45678");
}

TEST(Phone, AShortNumberKeepsItsDigits) {
    EXPECT_EQ(formatted("5551", "(###) ###-####"), "(555) 1");
}

TEST(Phone, WhatWasTypedWithItsOwnMarksStays) {
    EXPECT_EQ(formatted("+44 20 7946 0018", "(###) ###-####"), "+44 20 7946 0018");
    EXPECT_EQ(formatted("5551234567", ""), "5551234567");
    EXPECT_EQ(formatted("", "(###) ###-####"), "");
}

TEST(Phone, AWorkNumberWithoutAMaskBeginsWithoutABlank) {
    EXPECT_EQ(FormatPhone("5551234567", WithExtension("")).toStdString(), "5551234567");
    EXPECT_EQ(WithExtension("(@@@) @@@-@@@@").toStdString(), "(@@@) @@@-@@@@ @@@@@");
}
