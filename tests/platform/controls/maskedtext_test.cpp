#include "platform/controls/maskedtext.h"

#include <gtest/gtest.h>

namespace {

const QString Phone = QStringLiteral("(###) ###-####");
const QString WorkPhone = QStringLiteral("(###) ###-#### #####");
const QString Ssn = QStringLiteral("###-##-####");

struct Written {
    const char* text;
    const char* raw;
};

class WrittenNumbers : public testing::TestWithParam<Written> {};

QString raw(const QString& mask, const char* text) {
    return mask::Raw(mask, QString::fromUtf8(text)).value_or(QStringLiteral("refused"));
}

}  // namespace

TEST_P(WrittenNumbers, AreReadHoweverTheyAreWritten) {
    EXPECT_EQ(raw(WorkPhone, GetParam().text), QLatin1String(GetParam().raw)) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Telephone, WrittenNumbers,
                         testing::Values(Written{"(555) 123-4567", "5551234567"}, Written{"5551234567", "5551234567"},
                                         Written{"555-123-4567", "5551234567"}, Written{"555.123.4567", "5551234567"},
                                         Written{"555 123 4567", "5551234567"}, Written{"(555)1234567", "5551234567"},
                                         Written{"555-123-4567 x12", "555123456712"}, Written{"", ""},
                                         Written{"55", "55"}, Written{"xxx", "refused"},
                                         Written{"ask for Ann", "refused"}, Written{"5551234567123456", "refused"}));

TEST(MaskedText, TheTextGrowsWithTheDigitsAndEveryStageReadsBack) {
    const QString digits = QStringLiteral("123456789012345");
    for (const QString& mask : {Phone, WorkPhone, Ssn, QStringLiteral("+1 ### ####")})
        for (int count = 0; count <= mask::Places(mask); ++count) {
            const QString text = mask::Form(mask, digits.left(count));
            ASSERT_EQ(mask::Raw(mask, text), digits.left(count)) << qPrintable(text);
            ASSERT_EQ(mask::Form(mask, *mask::Raw(mask, text)), text);
        }
    EXPECT_EQ(mask::Form(Phone, QStringLiteral("555")), QStringLiteral("(555"));
    EXPECT_EQ(mask::Form(Phone, QStringLiteral("5551")), QStringLiteral("(555) 1"));
    EXPECT_EQ(mask::Form(Ssn, QStringLiteral("123456789")), QStringLiteral("123-45-6789"));
}

TEST(MaskedText, LettersFitWhereTheMaskAsksForThem) {
    const QString licence = QStringLiteral("AA-N##");
    EXPECT_EQ(raw(licence, "ab-712"), QStringLiteral("ab712"));
    EXPECT_EQ(raw(licence, "abc12"), QStringLiteral("abc12"));
    EXPECT_EQ(raw(licence, "a1"), QStringLiteral("refused"));
    EXPECT_EQ(raw(QStringLiteral("AA"), "xx"), QStringLiteral("xx"));
    EXPECT_EQ(mask::Places(licence), 5);
}

TEST(MaskedText, TheHintShowsThePlaces) {
    EXPECT_EQ(mask::Hint(Phone), QStringLiteral("(___) ___-____"));
}
