#include "platform/printing/tabletext.h"

#include <gtest/gtest.h>

using printing::ParseTable;
using printing::TableContent;

TEST(ATableGivenAsTexts, HasWidthsTitlesAndRows) {
    const TableContent table = ParseTable(QStringLiteral("2880| 1440;"), QStringLiteral("Description|Date;"),
                                          QStringLiteral("Jones, Mary|03/07/2026;Reed|;"));
    EXPECT_EQ(table.widths, (std::vector<int>{2880, 1440}));
    EXPECT_EQ(table.titles, (QStringList{"Description", "Date"}));
    EXPECT_EQ(table.rows, (std::vector<QStringList>{{"Jones, Mary", "03/07/2026"}, {"Reed", ""}}));
}

TEST(ATableGivenAsTexts, TakesALastRowWithoutItsEndAndAnEmptyOneBetweenTwoEnds) {
    EXPECT_EQ(ParseTable(QStringLiteral("2880"), {}, QStringLiteral("a;;b")).rows,
              (std::vector<QStringList>{{"a"}, {""}, {"b"}}));
    EXPECT_EQ(ParseTable(QStringLiteral("2880"), {}, {}).widths, std::vector<int>{2880});
}

TEST(ATableGivenAsTexts, HasNoTitlesAndNoRowsWhereItSaysNothing) {
    const TableContent table = ParseTable({}, {}, {});
    EXPECT_TRUE(table.widths.empty());
    EXPECT_TRUE(table.titles.isEmpty());
    EXPECT_TRUE(table.rows.empty());
}

TEST(ATableGivenAsTexts, TakesWhatIsNoNumberForAWidthOfNothing) {
    EXPECT_EQ(ParseTable(QStringLiteral("wide|-3|10;"), {}, {}).widths, (std::vector<int>{0, -3, 10}));
}
