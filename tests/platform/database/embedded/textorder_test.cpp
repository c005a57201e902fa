#include "platform/database/embedded/textorder.h"

#include <sqlite3.h>
#include <algorithm>
#include <array>
#include <QTemporaryDir>
#include <random>

#include "tests/platform/database/embedded/practice.h"

namespace {

using db::embedded::CompareDateTimes;
using db::embedded::CompareTexts;

int sign(int order) {
    return (order > 0) - (order < 0);
}

TEST(TextOrder, CaseAndTrailingBlanksDoNotCount) {
    EXPECT_EQ(CompareTexts("Smith", "SMITH  "), 0);
    EXPECT_EQ(CompareTexts("ÉTIENNE", "étienne"), 0);
    EXPECT_EQ(CompareTexts("", "   "), 0);
    EXPECT_NE(CompareTexts("Smith", " Smith"), 0);
}

TEST(TextOrder, AccentsCountBetweenWordsThatAreOtherwiseTheSame) {
    EXPECT_NE(CompareTexts("Etienne", "Étienne"), 0);
    std::vector<std::string> names = {"Zimmer",  "Étienne", "Ewald", "etienne", "Estelle", "Ångström",
                                      "Andrews", "Øst",     "Zoë",   "Zoe",     "Zoea"};
    std::sort(names.begin(), names.end(), [](const auto& a, const auto& b) { return CompareTexts(a, b) < 0; });
    EXPECT_EQ(names, (std::vector<std::string>{"Andrews", "Ångström", "Estelle", "etienne", "Étienne", "Ewald", "Øst",
                                               "Zimmer", "Zoe", "Zoë", "Zoea"}));
}

TEST(TextOrder, MarksStandBeforeDigitsAndDigitsBeforeLetters) {
    std::vector<std::string> texts = {"Abel",    "~EVT",  "1st",     "_x", "€uro", "",
                                      "O'Brien", "Oakes", "O Neill", "10", "2"};
    std::sort(texts.begin(), texts.end(), [](const auto& a, const auto& b) { return CompareTexts(a, b) < 0; });
    EXPECT_EQ(texts, (std::vector<std::string>{"", "_x", "~EVT", "€uro", "10", "1st", "2", "Abel", "O Neill", "O'Brien",
                                               "Oakes"}));
}

TEST(TextOrder, LigaturesStandBesideTheirLetters) {
    for (const auto& [before, between, after] : {std::array{"ae", "æ", "af"}, std::array{"ss", "ß", "st"},
                                                 std::array{"l", "ł", "m"}, std::array{"oe", "œ", "of"}}) {
        EXPECT_LT(CompareTexts(before, between), 0) << between;
        EXPECT_LT(CompareTexts(between, after), 0) << between;
    }
}

/// A file as a version with another order of texts left it.
void orderByBytes(const QString& file) {
    sqlite3* raw = nullptr;
    sqlite3_open(file.toUtf8().constData(), &raw);
    const auto bytes = [](void*, int sizeA, const void* a, int sizeB, const void* b) {
        return std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(sizeA))
            .compare({static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
    };
    sqlite3_create_collation(raw, "SVS_TEXT", SQLITE_UTF8, nullptr, bytes);
    EXPECT_EQ(sqlite3_exec(raw, "Reindex; Pragma user_version = 0", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(raw);
}

TEST(TextOrder, AFileInAnOlderOrderIsPutInOrderWhenItIsOpened) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("old.db"));
    const auto rows = [&] {
        db::embedded::EmbeddedEngine engine(file, false);
        return engine.query("Select t from a Where t > '9' And t < 'c' Order by t", {}, 0).rowCount();
    };
    {
        db::embedded::EmbeddedEngine engine(file, true);
        engine.execute("Create Table a (t nvarchar(20))", {});
        engine.execute("Create Index a_t On a (t)", {});
        engine.execute("Insert Into a Values ('~x'), ('B'), ('a'), ('Z'), ('1')", {});
    }
    ASSERT_EQ(rows(), 2);
    orderByBytes(file);
    EXPECT_EQ(rows(), 2);
    EXPECT_EQ(rows(), 2);
}

TEST(TextOrder, ALetterThatBeginsWithTheSameBytesIsAnotherLetter) {
    EXPECT_NE(CompareTexts("Zoë", "Zoê"), 0);
    EXPECT_EQ(CompareTexts("xÀb", "Xàb"), 0);
}

template <typename Compare>
void expectOrder(const std::vector<std::string>& texts, Compare compare) {
    for (const std::string& a : texts)
        for (const std::string& b : texts) {
            ASSERT_EQ(sign(compare(a, b)), -sign(compare(b, a))) << a << " and " << b;
            for (const std::string& c : texts)
                if (compare(a, b) <= 0 && compare(b, c) <= 0) {
                    ASSERT_LE(compare(a, c), 0) << a << ", " << b << ", " << c;
                }
        }
}

TEST(TextOrder, AnyTextsAreInOneOrder) {
    std::mt19937 random(7);
    const std::vector<std::string> letters = {"a", "A", "e",    "é",    "É", "ê", "z",
                                              " ", "_", "\xff", "\xc3", "ß", "ё", "е"};
    std::vector<std::string> texts;
    for (int i = 0; i < 70; ++i) {
        std::string text;
        for (auto n = random() % 5; n > 0; --n)
            text += letters[random() % letters.size()];
        texts.push_back(text);
    }
    expectOrder(texts, CompareTexts);
}

TEST(TextOrder, DateTimesCompareAsMomentsInAnyForm) {
    EXPECT_EQ(CompareDateTimes("2026-03-11", "03/11/2026"), 0);
    EXPECT_EQ(CompareDateTimes("2026-03-11 00:00:00", "2026-03-11"), 0);
    EXPECT_EQ(CompareDateTimes("2026-03-11 09:05:00", "3/11/26 9:05 AM"), 0);
    EXPECT_LT(CompareDateTimes("2026-03-11", "2026/03/11 0:01"), 0);
    EXPECT_GT(CompareDateTimes("2026-03-11 09:05:00", "12:00:00 AM"), 0);
    EXPECT_LT(CompareDateTimes("1999-12-31", "1/1/2000"), 0);
    EXPECT_EQ(CompareDateTimes("", "1900-01-01"), 0);
}

TEST(TextOrder, AnyDatesAndTextsAreInOneOrder) {
    expectOrder({"2026-03-11", "2026-03-11 00:00:00", "2026/03/11", "03/11/2026", "2026-03-11 09:05:00",
                 "2026-03-11 09:05:00.003", "2026-03-11 09:05:00.000", "2026-03-11 09:05:00.001", "9:05", "", "soon",
                 "2026-13-99", "2026-02-30", "12/31/1999", "1999-12-31 23:59:59"},
                CompareDateTimes);
}

class Collation : public testing::Test {
  protected:
    Practice practice{R"(
Create Table people (id nvarchar(20) not null primary key, name nvarchar(50) null, born datetime null, n int null)
Create Index people_name On people (name)
Create Index people_born On people (born)
Create Index people_n_born On people (n, born)
Insert Into people (id, name, born, n) Values ('a1', 'Smith', '2026/03/11', 1)
Insert Into people (id, name, born, n) Values ('B2', 'étienne', '3/11/2026 9:05 AM', 2)
Insert Into people (id, name, born, n) Values ('c3', 'Zoe', 'Mar 12 2026', 3)
)"};

    bool searches(const char* where, const char* index) {
        const QString plan = practice.engine.explain(QStringLiteral("Select * from people Where %1").arg(where));
        return plan.contains(QStringLiteral("SEARCH people USING INDEX people.%1").arg(index));
    }
};

TEST_F(Collation, TextsAreEqualWhateverTheirCase) {
    EXPECT_EQ(practice.one("Select n from people Where name = 'SMITH '"), "1");
    EXPECT_EQ(practice.one("Select n from people Where 'ÉTIENNE' = name"), "2");
    EXPECT_EQ(practice.one("Select n from people Where name = ?", {"smith"}), "1");
    EXPECT_EQ(practice.one("Select n from people Where name in ('SMITH', 'x')"), "1");
    EXPECT_EQ(
        practice.one(
            "Select n from people Where id + '' = 'A1' and Left(name, 2) in ('SM') and Case n when 1 then 'X' end = 'x'"),
        "1");
    EXPECT_EQ(practice.one("Select n from people Where Case Upper(name) When 'smith' Then 1 End = 1"), "1");
    EXPECT_EQ(practice.one("Select n from people Where name Between 'SA' And 'SZ'"), "1");
    EXPECT_EQ(practice.rows("Select n from people Order by name"), (QStringList{"2", "1", "3"}));
    EXPECT_EQ(practice.rows("Select n from people Order by Lower(id) Desc"), (QStringList{"3", "2", "1"}));
    EXPECT_EQ(practice.failureNumber("Insert Into people (id) Values ('A1 ')"), 2627);
}

TEST_F(Collation, DatesAreEqualWhateverTheirForm) {
    EXPECT_EQ(practice.rows("Select n from people Where born >= '2026/03/11' and born <= '2026/03/11 23:59 '"),
              (QStringList{"1", "2"}));
    EXPECT_EQ(practice.one("Select n from people Where born = '03/11/2026'"), "1");
    EXPECT_EQ(practice.one("Select n from people Where born = ?", {"3/12/26"}), "3");
    EXPECT_EQ(practice.one("Select n from people Where born = ?", {QDateTime(QDate(2026, 3, 11), QTime(9, 5))}), "2");
    EXPECT_EQ(practice.one("Select n from people Where born in ('2026-03-12', '2025-01-01')"), "3");
    EXPECT_EQ(practice.one("Select Count(*) from people Where born > '12:00:00 AM'"), "3");
    EXPECT_EQ(practice.one("Select Count(*) from people Where born < GetDate() and born > 0"), "3");
    EXPECT_EQ(practice.one("Select n from people Where DateAdd(day, 1, born) = '03/13/2026'"), "3");
}

TEST_F(Collation, IndexesServeComparisonsOfTextsAndDates) {
    EXPECT_TRUE(searches("name = 'smith'", "people_name (name=?)"));
    EXPECT_TRUE(searches("born = '2026/03/11'", "people_born (born=?)"));
    EXPECT_TRUE(searches("born >= '2026/03/11' and born <= '03/12/2026'", "people_born (born>? AND born<?)"));
    EXPECT_TRUE(searches("born Between '2026/03/11' And '03/12/2026'", "people_born (born>? AND born<?)"));
    EXPECT_TRUE(searches("n = 1 and born >= '2026/03/11'", "people_n_born (n=? AND born>?)"));
    EXPECT_TRUE(searches("name = ?", "people_name (name=?)"));
    EXPECT_TRUE(searches("name in ('a', 'b')", "people_name (name=?)"));
    EXPECT_FALSE(practice.engine.explain("Select * from people Where born >= '2026/03/11' Order by born")
                     .contains("TEMP B-TREE"));
}

TEST_F(Collation, ATextThatIsComparedWithANumberIsReadAsOne) {
    practice.run("Insert Into people (id, name) Values ('d', ' 12 ')");
    EXPECT_EQ(practice.one("Select id from people Where id = 'd' and name = 12"), "d");
    EXPECT_EQ(practice.one("Select id from people Where n = '2'"), "B2");
    EXPECT_EQ(practice.one("Select Count(*) from people Where n = ''"), "0");
    EXPECT_EQ(practice.failure("Select * from people Where n = 'two'"),
              "245 Conversion failed when converting the varchar value 'two' to data type int.");
    EXPECT_EQ(practice.failure("Select * from people Where name = 12"),
              "245 Conversion failed when converting the varchar value 'Smith' to data type int.");
    EXPECT_EQ(practice.failure("Select * from people Where born = 'soon'"),
              "241 Conversion failed when converting date and/or time from character string.");
}

}  // namespace
