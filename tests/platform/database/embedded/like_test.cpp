#include "platform/database/embedded/like.h"

#include <random>

#include "platform/database/embedded/textorder.h"
#include "tests/platform/database/embedded/practice.h"

namespace {

using db::embedded::LikePattern;

bool like(const char* text, const char* pattern) {
    return LikePattern(pattern).matches(text);
}

TEST(Like, WildcardsStandForCharacters) {
    EXPECT_TRUE(like("Smith, Ann", "smi%"));
    EXPECT_TRUE(like("Smith, Ann", "%ANN"));
    EXPECT_TRUE(like("Smith, Ann", "%th, a%"));
    EXPECT_TRUE(like("Smith", "sm_th"));
    EXPECT_TRUE(like("", "%"));
    EXPECT_TRUE(like("", ""));
    EXPECT_FALSE(like("Smith", "mi%"));
    EXPECT_FALSE(like("Smith", "Smit"));
    EXPECT_FALSE(like("Smith", "Smith_"));
}

TEST(Like, ASetStandsForOneOfItsCharacters) {
    EXPECT_TRUE(like("cat", "[a-f]at"));
    EXPECT_TRUE(like("CAT", "[abc]at"));
    EXPECT_FALSE(like("rat", "[a-f]at"));
    EXPECT_TRUE(like("rat", "[^a-f]at"));
    EXPECT_FALSE(like("cat", "[^a-f]at"));
    EXPECT_TRUE(like("5%", "5[%]"));
    EXPECT_TRUE(like("a_b", "a[_]b"));
    EXPECT_FALSE(like("axb", "a[_]b"));
    EXPECT_TRUE(like("[x", "[[]x"));
    EXPECT_TRUE(like("-", "[a-]"));
    EXPECT_FALSE(like("a[", "a["));
    EXPECT_FALSE(like("a", "[]"));
}

TEST(Like, LettersOfAnyScriptMatchWithoutCaseButWithAccents) {
    EXPECT_TRUE(like("ÉTIENNE", "éti%"));
    EXPECT_FALSE(like("Etienne", "éti%"));
    EXPECT_TRUE(like("Ольга", "оль_А"));
    EXPECT_TRUE(like("😀 smile", "_ smile"));
}

TEST(Like, BlanksAtTheEndOfTheTextDoNotCount) {
    EXPECT_TRUE(like("abc  ", "abc"));
    EXPECT_TRUE(like("abc  ", "abc "));
    EXPECT_TRUE(like("abc  ", "%c"));
    EXPECT_FALSE(like("abc", "abc "));
}

TEST(Like, AnEscapeTakesTheMeaningAway) {
    EXPECT_TRUE(LikePattern("5!%", U'!').matches("5%"));
    EXPECT_FALSE(LikePattern("5!%", U'!').matches("55"));
}

TEST(Like, PartsMatchAsIfTheyWereJoined) {
    const std::string_view parts[] = {"Smith", ", ", "Ann"};
    EXPECT_TRUE(LikePattern("smith, a%").matches(parts, 3));
    EXPECT_TRUE(LikePattern("%h, _nn").matches(parts, 3));
    EXPECT_FALSE(LikePattern("smith,a%").matches(parts, 3));
}

/// The meaning of the wildcards, without any short cut. Plain lower case letters only.
bool reference(std::string_view text, std::string_view pattern) {
    if (pattern.empty())
        return text.find_first_not_of(' ') == std::string_view::npos;
    if (pattern[0] == '%')
        return reference(text, pattern.substr(1)) || (!text.empty() && reference(text.substr(1), pattern));
    if (text.empty())
        return false;
    if (pattern[0] == '[') {
        const std::size_t end = pattern.find(']');
        if (end == std::string_view::npos)
            return false;
        const bool outside = pattern[1] == '^';
        const std::string_view set = pattern.substr(outside ? 2 : 1, end - (outside ? 2 : 1));
        return (set.find(text[0]) != std::string_view::npos) != outside &&
               reference(text.substr(1), pattern.substr(end + 1));
    }
    return (pattern[0] == '_' || pattern[0] == text[0]) && reference(text.substr(1), pattern.substr(1));
}

TEST(Like, AgreesWithItsPlainMeaningOnAnyTextAndPattern) {
    std::mt19937 random(20261121);
    const auto made = [&](std::string_view alphabet, std::size_t longest) {
        std::string result(random() % (longest + 1), ' ');
        for (char& c : result)
            c = alphabet[random() % alphabet.size()];
        return result;
    };
    int hits = 0;
    for (int i = 0; i < 50'000; ++i) {
        const std::string text = made("ab ", 7);
        const std::string pattern = made("ab%_ []^", 6);
        const bool expected = reference(text, pattern);
        hits += expected ? 1 : 0;
        ASSERT_EQ(LikePattern(pattern).matches(text), expected) << '"' << text << "\" like \"" << pattern << '"';
    }
    EXPECT_GT(hits, 1000);
}

TEST(Like, ThePrefixIsWhatStandsBeforeTheFirstWildcard) {
    EXPECT_EQ(db::embedded::LikePrefix("smi%"), "smi");
    EXPECT_EQ(db::embedded::LikePrefix("a[b]c"), "a");
    EXPECT_EQ(db::embedded::LikePrefix("_x"), "");
    EXPECT_EQ(db::embedded::LikePrefix("abc"), "abc");
}

/// Names that lie close to the ends of the ranges by which an index is searched.
class LikeInStatements : public testing::Test {
  protected:
    void SetUp() override {
        practice.run(
            "Create Table names (last_name nvarchar(50) null, first_name nvarchar(50) null, n int)\nCreate Index names_name On names (last_name, first_name)");
        int n = 0;
        for (const char* last :
             {"sm", "SMI", "Smi ", "Smith", "smïth", "smí", "s", "sm,", "smj", "smi, x", "Smi😀", "", "Zu"})
            for (const char* first : {"Ann", "Zoë", ""})
                practice.engine.execute("Insert Into names (last_name, first_name, n) Values (?, ?, ?)",
                                        {last, first, ++n});
        practice.engine.execute("Insert Into names (last_name, first_name, n) Values ('Smith', null, 0)", {});
        practice.engine.execute("Insert Into names (last_name, first_name, n) Values (null, 'Ann', 0)", {});
    }
    Practice practice;
};

TEST_F(LikeInStatements, TheSearchByIndexFindsWhatLookingAtEveryRowFinds) {
    for (const char* pattern :
         {"smi%", "SMI", "smi, %", "smith, z%", "s%", "sm, a%", "smí%", ", a%", "smi[t]%", "smi😀%", "Smi %"}) {
        const QString where = QStringLiteral("last_name + ', ' + first_name Like '%1'").arg(QString::fromUtf8(pattern));
        const auto byIndex = practice.rows("Select n from names Where " + where + " Order by n");
        // Not Not looks at every row: a range would confuse false with unknown there.
        EXPECT_EQ(byIndex, practice.rows("Select n from names Where Not (Not (" + where + ")) Order by n")) << pattern;
        const QString alone = QStringLiteral("last_name Like '%1'").arg(QString::fromUtf8(pattern));
        EXPECT_EQ(practice.rows("Select n from names Where " + alone + " Order by n"),
                  practice.rows("Select n from names Where Not (Not (" + alone + ")) Order by n"))
            << pattern;
    }
    EXPECT_EQ(practice.rows("Select n from names Where last_name + ', ' + first_name Like 'smi%'").size(), 15);
}

TEST_F(LikeInStatements, TypingALetterSearchesTheIndexOfNames) {
    for (const char* where : {"last_name Like 'smi%'", "last_name + ', ' + first_name Like 'smi%'",
                              "last_name + ', ' + first_name Like 'smith, a%'"})
        EXPECT_TRUE(practice.engine.explain(QStringLiteral("Select * from names Where %1").arg(where))
                        .contains("SEARCH names USING INDEX names.names_name (last_name>? AND last_name<?)"))
            << where;
    EXPECT_TRUE(practice.engine.explain("Select * from names Where last_name Like '%smi%'").contains("SCAN names"));
}

TEST_F(LikeInStatements, NullIsNeitherLikeNorNotLike) {
    EXPECT_EQ(practice.one("Select Count(*) from names Where last_name + first_name Not Like 'q%'"), "39");
    EXPECT_EQ(practice.one("Select Count(*) from names Where Not (last_name + first_name Like 'smith%')"), "36");
}

TEST_F(LikeInStatements, NumbersAndDatesAreComparedAsTexts) {
    EXPECT_EQ(practice.rows("Select n from names Where n Like '1_' Order by n"),
              (QStringList{"10", "11", "12", "13", "14", "15", "16", "17", "18", "19"}));
    EXPECT_EQ(practice.one("Select 1 Where Convert(datetime, '2026/03/11') Like 'Mar%2026%'"), "1");
    EXPECT_EQ(practice.one("Select 1 Where '5%' Like '5!%' Escape '!'"), "1");
}

}  // namespace
