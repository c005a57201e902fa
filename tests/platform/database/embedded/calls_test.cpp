// Every function by its name, with the arguments that it takes and with one too few or too many.

#include "tests/platform/database/embedded/practice.h"

namespace {

struct Call {
    const char* name;
    const char* arguments;  ///< As many as it must have.
    const char* answer;
    int most = 0;  ///< Above the number of those arguments.
};

constexpr Call calls[] = {
    {"Len", "'ab '", "2"},
    {"Day", "'2026/03/11'", "11"},
    {"Month", "'2026/03/11'", "3"},
    {"Year", "'2026/03/11'", "2026"},
    {"DatePart", "day, '2026/03/11'", "11"},
    {"DateName", "month, '2026/03/11'", "March"},
    {"DateAdd", "day, 1, '2026/03/11'", "2026-03-12 00:00:00"},
    {"DateDiff", "day, '2026/03/10', '2026/03/11'", "1"},
    {"IsDate", "'2026/03/11'", "1"},
    {"Upper", "'ab'", "AB"},
    {"Lower", "'AB'", "ab"},
    {"LTrim", "' ab'", "ab"},
    {"RTrim", "'ab '", "ab"},
    {"Trim", "' ab '", "ab"},
    {"Left", "'abc', 2", "ab"},
    {"Right", "'abc', 2", "bc"},
    {"Substring", "'abc', 2, 1", "b"},
    {"CharIndex", "'b', 'abc'", "2", 3},
    {"PatIndex", "'%b%', 'abc'", "2"},
    {"Replace", "'abc', 'b', 'x'", "axc"},
    {"Stuff", "'abc', 2, 1, 'x'", "axc"},
    {"Replicate", "'ab', 2", "abab"},
    {"Reverse", "'abc'", "cba"},
    {"Char", "65", "A"},
    {"NChar", "65", "A"},
    {"Ascii", "'A'", "65"},
    {"Unicode", "'A'", "65"},
    {"Abs", "-5", "5"},
    {"Sign", "-5", "-1"},
    {"Round", "2.5, 0", "3", 3},
    {"Power", "2, 3", "8"},
    {"Sqrt", "9", "3"},
    {"Floor", "2.5", "2"},
    {"Ceiling", "2.5", "3"},
    {"IsNumeric", "'5'", "1"},
    {"IsNull", "null, 5", "5"},
    {"NullIf", "5, 5", "null"},
    {"Count", "5", "1"},
    {"Sum", "5", "5"},
    {"Avg", "5", "5"},
    {"Min", "5", "5"},
    {"Max", "5", "5"},
};

class Calls : public testing::TestWithParam<Call> {
  protected:
    Practice practice;

    [[nodiscard]] static QString call(const QString& arguments) {
        return QStringLiteral("Select %1(%2)").arg(GetParam().name, arguments);
    }
};

TEST_P(Calls, IsKnownByItsNameInAnyCase) {
    EXPECT_EQ(practice.one(call(GetParam().arguments)), GetParam().answer);
    for (const QString& name : {QString(GetParam().name).toLower(), QString(GetParam().name).toUpper()})
        EXPECT_EQ(practice.one(QStringLiteral("Select %1 (%2)").arg(name, GetParam().arguments)), GetParam().answer);
    EXPECT_EQ(practice.failureNumber(QStringLiteral("Select %1x(%2)").arg(GetParam().name, GetParam().arguments)), 195);
}

TEST_P(Calls, TakesNoArgumentMoreAndNoneLess) {
    const QStringList arguments = QString::fromUtf8(GetParam().arguments).split(QStringLiteral(", "));
    const int refused = GetParam().most > 0 ? 189 : 174;
    EXPECT_EQ(practice.failureNumber(call({})), refused);
    if (arguments.size() > 1) {
        EXPECT_EQ(practice.failureNumber(call(arguments.first(arguments.size() - 1).join(u','))), refused);
    }
    QStringList more = arguments;
    while (more.size() <= std::max<qsizetype>(GetParam().most, arguments.size()))
        more.append(QStringLiteral("1"));
    EXPECT_EQ(practice.failureNumber(call(more.join(u','))), refused);
}

INSTANTIATE_TEST_SUITE_P(Functions, Calls, testing::ValuesIn(calls),
                         [](const testing::TestParamInfo<Call>& tested) { return std::string(tested.param.name); });

class CallsWithoutArguments : public testing::Test {
  protected:
    Practice practice;
};

TEST_F(CallsWithoutArguments, AreKnown) {
    EXPECT_EQ(practice.one("Select Case When GetDate() > '2020/01/01' Then 1 End"), "1");
    EXPECT_EQ(practice.one("Select Scope_Identity()"), "0");
    EXPECT_EQ(practice.failureNumber("Select GetDate(1)"), 174);
    EXPECT_EQ(practice.failureNumber("Select Scope_Identity(1)"), 174);
    EXPECT_EQ(practice.failureNumber("Select GetDate"), 207);
}

}  // namespace
