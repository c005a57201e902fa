#include <gtest/gtest.h>

#include <QStringList>

#include "platform/spelling/words.h"

namespace {

QStringList wordsOf(const QString& text) {
    QStringList words;
    for (const auto& [start, length] : WordsToCheck(text))
        words << text.mid(start, length);
    return words;
}

QStringList split(const char* words) {
    return QString::fromUtf8(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct Row {
    const char* text;
    const char* words;
};

class WordsToCheckOf : public testing::TestWithParam<Row> {};

}  // namespace

TEST_P(WordsToCheckOf, AreThePlainWordsOfTheText) {
    EXPECT_EQ(wordsOf(QString::fromUtf8(GetParam().text)), split(GetParam().words)) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, WordsToCheckOf,
    testing::Values(Row{"", ""}, Row{"   \t ", ""}, Row{"Patient did not come.", "Patient did not come"},
                    Row{"no-show, (again); \"really\"?", "no show again really"}, Row{"and/or", "and or"},
                    Row{"don't can\xe2\x80\x99t O'Brien's", "don't can\xe2\x80\x99t O'Brien's"},
                    Row{"the parents' 'quoted' ''", "the parents quoted"}, Row{"CPT H0032 ICD10 2nd room_4 x9", ""},
                    Row{"PTSD and DSM", "and"}, Row{"jane@example.test asked", "asked"},
                    Row{"see https://example.test/a?b=Wrng and www.example.test now", "see and now"},
                    Row{"/home/jane/nots.txt C:\\Nots\\a ~/nots", ""}, Row{"at 5 p.m. or e.g. later", "at or later"},
                    Row{"ended.Then came", "came"}, Row{"first... then", "first then"},
                    Row{"na\xc3\xafve \xd0\xbc\xd0\xb8\xd1\x80 \xe6\xbc\xa2\xe5\xad\x97 caf\x65\xcc\x81",
                        "na\xc3\xafve caf\x65\xcc\x81"},
                    Row{"sad\xf0\x9f\x98\x80today", "sad today"}, Row{"A a I", "a"},
                    Row{"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa b", "b"}));
