// Like in statements: wildcards, sets and escapes, on columns and on what is joined from them.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Likes : public Dialect {
  protected:
    Likes()
        : Dialect(R"(
Create Table words (id int not null primary key, word nvarchar(30) null, tail nvarchar(30) null)
Insert Into words Values (1, 'Apple', 'pie')
Insert Into words Values (2, 'apricot', 'jam')
Insert Into words Values (3, '50% off', null)
Insert Into words Values (4, 'under_score', '')
Insert Into words Values (5, '[box]', 'x')
Insert Into words Values (6, 'bulk', 'y')
Insert Into words Values (7, null, 'z')
Insert Into words Values (8, '', '')
Insert Into words Values (9, 'a-b^c!', 'O''Neil')
)") {}

    void finds(const QString& condition, const QString& keys) {
        gives("Select id from words Where " + condition + " Order by id", keys);
    }
};

TEST_F(Likes, PercentStandsForAnyCharacters) {
    finds("word Like 'ap%'", "1/2");
    finds("word Like '%e'", "1/4");
    finds("word Like '%r%'", "2/4");
    finds("word Like '%'", "1/2/3/4/5/6/8/9");
    finds("word Like '%%'", "1/2/3/4/5/6/8/9");
    finds("word Like 'a%e'", "1");
    finds("word Like 'a%p%e'", "1");
    finds("word Like 'A%P%L%E%'", "1");
    finds("word Like '%under%'", "4");
    finds("word Like 'apple%pie'", "");
}

TEST_F(Likes, UnderscoreStandsForOneCharacter) {
    finds("word Like '_pple'", "1");
    finds("word Like 'app__'", "1");
    finds("word Like 'app_'", "");
    finds("word Like 'apple_'", "");
    finds("word Like '_____'", "1/5");
    finds("word Like '_%'", "1/2/3/4/5/6/9");
    finds("word Like '%_score'", "4");
}

TEST_F(Likes, ASetStandsForOneOfItsCharacters) {
    finds("word Like '[ab]%'", "1/2/6/9");
    finds("word Like '[a-b]%'", "1/2/6/9");
    finds("word Like '[^a]%'", "3/4/5/6");
    finds("word Like '[^a-b]%'", "3/4/5");
    finds("word Like '[0-9]%'", "3");
    finds("word Like '[0-9][0-9]%'", "3");
    finds("word Like '%[xyz]%'", "5");
    finds("word Like 'ap[pr]%'", "1/2");
    finds("word Like 'ap[^p]%'", "2");
    finds("word Like '[A-B]%'", "1/2/6/9");
}

TEST_F(Likes, ASetTakesTheMeaningFromAWildcard) {
    finds("word Like '%[%]%'", "3");
    finds("word Like '%[_]%'", "4");
    finds("word Like '[[]%'", "5");
    finds("word Like '%]'", "5");
    finds("word Like '[[]box]'", "5");
    finds("word Like 'a[-]b%'", "9");
    finds("word Like '%[!^]%'", "9");
    givesOnSqlServer("Select id from words Where word Like '%[a-]b^c!'", "9");
}

TEST_F(Likes, AnEscapeTakesTheMeaningFromAWildcard) {
    finds("word Like '50!%%' Escape '!'", "3");
    givesOnSqlServer("Select id from words Where word Like '%!_%' Escape '!'", "4");
    finds("word Like '![%' Escape '!'", "5");
    finds("word Like '%c!!' Escape '!'", "9");
    finds("word Like '50|% off' Escape '|'", "3");
    finds("word Not Like '50!%%' Escape '!'", "1/2/4/5/6/8/9");
    finds("word Like 'a%' Escape '!'", "1/2/9");
    finds("Not (word Like '50!%%' Escape '!')", "1/2/4/5/6/8/9");
}

TEST_F(Likes, BlanksOfThePatternCount) {
    finds("word Like 'apple '", "");
    finds("word Like ' apple'", "");
    finds("word Like ''", "8");
    finds("word Like '%k  '", "");
    finds("word Like '50% off '", "");
}

TEST_F(Likes, NullIsLikeNothing) {
    finds("word Like null", "");
    finds("word Not Like null", "");
    finds("word Not Like 'a%'", "3/4/5/6/8");
    finds("Not word Like 'a%'", "3/4/5/6/8");
    finds("null Like '%'", "");
    finds("Not (word Like 'a%' and tail = 'pie')", "2/3/4/5/6/7/8/9");
    finds("word Like 'a%' or word Is Null", "1/2/7/9");
}

TEST_F(Likes, WhatIsJoinedIsComparedAsAWhole) {
    finds("word + tail Like 'applepie'", "1");
    finds("word + ' ' + tail Like 'apple p%'", "1");
    finds("word + ', ' + tail Like 'ap%, j%'", "2");
    finds("word + tail Like '%ep%'", "1");
    finds("'[' + word + ']' Like '[[]apple]'", "1");
    finds("word + '' Like 'AP%'", "1/2");
    finds("IsNull(word, '') + IsNull(tail, '') Like '%z'", "7");
    finds("Left(word, 3) + Right(word, 2) Like 'app%'", "1");
}

TEST_F(Likes, ThePatternMayBeAnExpression) {
    finds("word Like 'ap' + '%'", "1/2");
    finds("word Like Left('apple', 3) + '%'", "1");
    finds("word Like '%' + tail + '%'", "4/5/8");
    finds("'apple pie' Like word + '%'", "1/8");
    finds("word Like Upper('ap%')", "1/2");
    finds("tail Like '%''%'", "9");
}

TEST_F(Likes, NumbersAndMomentsAreComparedAsTexts) {
    finds("id Like '[1-3]'", "1/2/3");
    finds("id * 10 Like '_0'", "1/2/3/4/5/6/7/8/9");
    finds("id Like 4", "4");
    finds("1.5 Like '1%5' and id = 1", "1");
    gives("Select 1 Where Convert(varchar, Convert(datetime, '2026/03/11'), 101) Like '03/__/2026'", "1");
    givesOnSqlServer("Select 1 Where Convert(datetime, '2026/03/11') Like 'Mar 11 2026%'", "1");
}

TEST_F(Likes, ALikeMustBeWhole) {
    fails("Select id from words Where word Like", 102);
    fails("Select id from words Where Like 'a'", 102);
    fails("Select id from words Where word Like 'a' Escape", 102);
    fails("Select id from words Where word Not 'a'", 4145);
    fails("Select id from words Where word Like (word = 'a')", 102);
    fails("Select word Like 'a' from words", 102);
}

}  // namespace
