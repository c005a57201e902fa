// Characters of texts, and the ranges by which an index is searched for a pattern.

#include "platform/database/embedded/textorder.h"
#include "tests/platform/database/embedded/practice.h"

namespace {

using db::embedded::AppendCharacter;
using db::embedded::CompareDateTimes;
using db::embedded::CompareTexts;
using db::embedded::FoldCharacter;
using db::embedded::TakeCharacter;

std::vector<char32_t> charactersOf(std::string_view text) {
    std::vector<char32_t> characters;
    while (!text.empty())
        characters.push_back(TakeCharacter(text));
    return characters;
}

TEST(Characters, EachIsReadFromItsBytes) {
    EXPECT_EQ(charactersOf("aZ 0~\x7f"), (std::vector<char32_t>{'a', 'Z', ' ', '0', '~', 0x7F}));
    EXPECT_EQ(charactersOf("\u0080é߿"), (std::vector<char32_t>{0x80, 0xE9, 0x7FF}));
    EXPECT_EQ(charactersOf("ࠀ€\uFFFD"), (std::vector<char32_t>{0x800, 0x20AC, 0xFFFD}));
    EXPECT_EQ(charactersOf("\U00010000😀\U0010FFFF"), (std::vector<char32_t>{0x10000, 0x1F600, 0x10FFFF}));
    EXPECT_EQ(charactersOf("aé€😀z"), (std::vector<char32_t>{'a', 0xE9, 0x20AC, 0x1F600, 'z'}));
}

TEST(Characters, ABrokenByteStandsForItself) {
    constexpr char32_t broken = 0xFFFD;
    EXPECT_EQ(charactersOf("\xff"), std::vector<char32_t>{broken});
    EXPECT_EQ(charactersOf("a\x80z"), (std::vector<char32_t>{'a', broken, 'z'}));
    EXPECT_EQ(charactersOf("\xc3"), std::vector<char32_t>{broken});
    EXPECT_EQ(charactersOf("\xc3z"), (std::vector<char32_t>{broken, 'z'}));
    EXPECT_EQ(charactersOf("\xe2\x82"), (std::vector<char32_t>{broken, broken}));
    EXPECT_EQ(charactersOf("\xe2\x82z"), (std::vector<char32_t>{broken, broken, 'z'}));
    EXPECT_EQ(charactersOf("\xf0\x9f\x98"), (std::vector<char32_t>{broken, broken, broken}));
    EXPECT_EQ(charactersOf("\xc1\xbf"), (std::vector<char32_t>{broken, broken}));
    EXPECT_EQ(charactersOf("\xf5\x80\x80\x80"), (std::vector<char32_t>{broken, broken, broken, broken}));
    EXPECT_EQ(charactersOf("\xf4\x8f\xbf\xbf"), std::vector<char32_t>{0x10FFFF});
    EXPECT_EQ(charactersOf("\xc2\x80"), std::vector<char32_t>{0x80});
}

TEST(Characters, EachIsWrittenAsItIsRead) {
    for (const char32_t character :
         {U'\0', U'a', U'\x7F', U'\x80', U'é', U'\x7FF', U'\x800', U'€', U'\xFFFF', U'\x10000', U'😀', U'\x10FFFF'}) {
        std::string text = "<";
        AppendCharacter(text, character);
        text.push_back('>');
        EXPECT_EQ(charactersOf(text), (std::vector<char32_t>{'<', character, '>'}));
        const std::size_t bytes = character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
        EXPECT_EQ(text.size(), bytes + 2);
    }
}

TEST(Characters, LettersAreFoldedToSmallOnes) {
    EXPECT_EQ(FoldCharacter('A'), U'a');
    EXPECT_EQ(FoldCharacter('Z'), U'z');
    EXPECT_EQ(FoldCharacter('a'), U'a');
    EXPECT_EQ(FoldCharacter('@'), U'@');
    EXPECT_EQ(FoldCharacter('['), U'[');
    EXPECT_EQ(FoldCharacter('5'), U'5');
    EXPECT_EQ(FoldCharacter(U'É'), U'é');
    EXPECT_EQ(FoldCharacter(U'Ω'), U'ω');
    EXPECT_EQ(FoldCharacter(U'漢'), U'漢');
}

TEST(Characters, BlanksAreTakenFromTheEndAlone) {
    EXPECT_EQ(db::embedded::WithoutTrailingBlanks(" a b  "), " a b");
    EXPECT_EQ(db::embedded::WithoutTrailingBlanks("   "), "");
    EXPECT_EQ(db::embedded::WithoutTrailingBlanks(""), "");
    EXPECT_EQ(db::embedded::WithoutTrailingBlanks("a\t"), "a\t");
}

TEST(Characters, EveryMarkHasItsPlaceBeforeDigitsAndLetters) {
    const std::string_view order = " _-,;:!?.'\"()[]{}@*/\\&#%`^+<=>|~$0123456789abcdefghijklmnopqrstuvwxyz";
    for (std::size_t i = 1; i + 1 < order.size(); ++i) {
        const std::string before(1, order[i]);
        const std::string after(1, order[i + 1]);
        EXPECT_LT(CompareTexts(before, after), 0) << before << after;
        EXPECT_GT(CompareTexts(after, before), 0) << before << after;
        EXPECT_LT(CompareTexts("x" + before + "a", "x" + after), 0) << before << after;
    }
    EXPECT_LT(CompareTexts("a b", "a_b"), 0);
    EXPECT_LT(CompareTexts("a\tb", "a b"), 0);
    EXPECT_LT(CompareTexts("a\x7f", "a!"), 0);
    EXPECT_LT(CompareTexts("a\x01", "a\x1f"), 0);
}

TEST(Characters, AShorterTextStandsBeforeWhatItBegins) {
    EXPECT_LT(CompareTexts("a", "ab"), 0);
    EXPECT_GT(CompareTexts("ab", "A"), 0);
    EXPECT_LT(CompareTexts("é", "éa"), 0);
    EXPECT_GT(CompareTexts("éa", "É"), 0);
    EXPECT_LT(CompareTexts("", "a"), 0);
    EXPECT_LT(CompareTexts("ae", "aea"), 0);
    EXPECT_LT(CompareTexts("æ", "aea"), 0);
    EXPECT_GT(CompareTexts("æb", "aea"), 0);
}

TEST(Characters, LettersWithAccentsStandBesideTheirLetters) {
    const std::pair<const char*, const char*> pairs[] = {{"À", "a"}, {"ç", "c"}, {"Ñ", "n"}, {"ö", "o"}, {"Š", "s"},
                                                         {"ž", "z"}, {"ø", "o"}, {"Ł", "l"}, {"đ", "d"}, {"ȯ", "o"}};
    for (const auto& [accented, plain] : pairs) {
        EXPECT_GT(CompareTexts(accented, plain), 0) << accented;
        EXPECT_LT(CompareTexts(accented, std::string(plain) + "a"), 0) << accented;
        EXPECT_EQ(CompareTexts(std::string("x") + accented, std::string("X") + accented), 0) << accented;
    }
    EXPECT_LT(CompareTexts("zz", "ω"), 0);
    EXPECT_LT(CompareTexts("€", "0"), 0);
    EXPECT_LT(CompareTexts("§", "漢"), 0);
}

TEST(Characters, OnlyAStoredDateIsComparedByItsBytes) {
    EXPECT_EQ(CompareDateTimes("2026-03-11 09:05:00.003", "2026-03-11 09:05:00.004"), 0);
    EXPECT_LT(CompareDateTimes("2026-03-11 09:05:00", "2026-03-11 09:05:00.003"), 0);
    EXPECT_EQ(CompareDateTimes("2026-03-11 09:05:00.000", "2026-03-11 09:05:00"), 0);
    EXPECT_EQ(CompareDateTimes("2026-03-11 00:00:00", "2026-03-11"), 0);
    EXPECT_EQ(CompareDateTimes("20260311", "2026-03-11"), 0);
    EXPECT_EQ(CompareDateTimes("03/11/2026", "2026-03-11"), 0);
    EXPECT_LT(CompareDateTimes("2026/03/11", "2026-03-12"), 0);
    EXPECT_GT(CompareDateTimes("2026-03-12", "2026/03/11"), 0);
    EXPECT_NE(CompareDateTimes("soon", "2026-03-11"), 0);
    EXPECT_EQ(CompareDateTimes("soon", "soon"), 0);
    EXPECT_LT(CompareDateTimes("soon", "sooner"), 0);
}

class SearchedRanges : public testing::Test {
  protected:
    Practice practice{
        "Create Table words (id int, a nvarchar(20), b nvarchar(20))\nCreate Index words_a On words (a)\nInsert Into words Values (1, 'Apple', 'pie'), (2, 'apple tree', 'x'), (3, 'Apply', 'now'), (4, 'ap', 'ple'), (5, 'Zoë', 'z')"};

    /// The keys that the condition finds, and whether an index was searched for them.
    QString found(const char* condition) {
        const QString statement = QStringLiteral("Select id from words Where %1 Order by id").arg(condition);
        const bool searched = practice.engine.explain(statement).contains(QStringLiteral("SEARCH"));
        return practice.one(statement) + (searched ? QStringLiteral(" searched") : QString());
    }
};

TEST_F(SearchedRanges, APatternThatBeginsWithTextSearchesTheIndex) {
    EXPECT_EQ(found("a Like 'apple%'"), "1/2 searched");
    EXPECT_EQ(found("a Like 'APPL_'"), "1/3 searched");
    EXPECT_EQ(found("a Like 'ap'"), "4 searched");
    EXPECT_EQ(found("a Like 'zo%'"), "5 searched");
    EXPECT_EQ(found("a Like 'appl[y]'"), "3 searched");
}

TEST_F(SearchedRanges, AnyOtherPatternLooksAtEveryRow) {
    EXPECT_EQ(found("a Like '%pple'"), "1");
    EXPECT_EQ(found("a Like '_pple'"), "1");
    EXPECT_EQ(found("a Like 'apple%' Escape '!'"), "1/2");
    EXPECT_EQ(found("a Not Like 'apple%'"), "3/4/5");
    EXPECT_EQ(found("Not (a Like 'apple%')"), "3/4/5");
    EXPECT_EQ(found("a Like 'ap' + 'ple%'"), "1/2");
    EXPECT_EQ(found("Upper(a) Like 'apple%'"), "1/2");
    EXPECT_EQ(found("id Like '1%'"), "1");
    EXPECT_EQ(found("a Like ' %'"), "");
}

TEST_F(SearchedRanges, JoinedTextsAreSearchedByTheirFirstColumn) {
    EXPECT_EQ(found("a + ' ' + b Like 'apple p%'"), "1 searched");
    EXPECT_EQ(found("a + ', ' + b Like 'apple, p%'"), "1 searched");
    EXPECT_EQ(found("a + ', ' + b Like 'appl%'"), "1/2/3 searched");
    EXPECT_EQ(found("a + b Like 'apple%'"), "1/2/4");
    EXPECT_EQ(found("a + '' + b Like 'apple%'"), "1/2/4");
    EXPECT_EQ(found("'x' + a Like 'xapple%'"), "1/2");
    EXPECT_EQ(found("a + 'P' + b Like 'applep%'"), "1 searched");
}

TEST_F(SearchedRanges, AControlCharacterIsACharacterLikeAnyOther) {
    EXPECT_EQ(practice.one("Select 1 Where 'a' + Char(1) + 'b' Like 'a' + Char(1) + 'b'"), "1");
    EXPECT_EQ(practice.one("Select 1 Where 'ab' Like 'a' + Char(1) + 'b'"), "");
}

}  // namespace
