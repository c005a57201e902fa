// The functions on texts.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class TextFunctions : public Dialect {
  protected:
    TextFunctions()
        : Dialect(R"(
Create Table notes (id int not null primary key, note nvarchar(50) null, n int null)
Insert Into notes Values (1, 'Hello World', 3)
Insert Into notes Values (2, '  padded  ', -1)
Insert Into notes Values (3, null, null)
Insert Into notes Values (4, '', 0)
)") {}
};

TEST_F(TextFunctions, LenLeavesTrailingBlanksOut) {
    gives("Select Len('abc'), Len('abc  '), Len('  abc'), Len(''), Len('   '), Len('a b')", "3|3|5|0|0|3");
    gives("Select Len(note) from notes Order by id", "11/8/null/0");
    gives("Select Len('äöü'), Len(12345), Len(-5)", "3|5|2");
    gives("Select Len(null)", "null");
    EXPECT_EQ(practice.one("Select Len('😀')"), "2");
}

TEST_F(TextFunctions, UpperAndLowerChangeTheCaseOfAllLetters) {
    gives("Select Upper('abc'), Lower('ABC'), Upper('a1-b'), Lower('')", "ABC|abc|A1-B|");
    gives("Select Upper('éàü'), Lower('ÉÀÜ')", "ÉÀÜ|éàü");
    gives("Select Upper(note), Lower(note) from notes Where id In (1, 3) Order by id",
          "HELLO WORLD|hello world/null|null");
    gives("Select Upper(5)", "5");
}

TEST_F(TextFunctions, TrimsTakeBlanksFromTheEnds) {
    gives("Select '[' + LTrim('  a b  ') + ']', '[' + RTrim('  a b  ') + ']'", "[a b  ]|[  a b]");
    gives("Select '[' + LTrim(RTrim(note)) + ']' from notes Where id = 2", "[padded]");
    gives("Select '[' + Trim('  a b  ') + ']'", "[a b]");
    gives("Select LTrim(null), RTrim(note) from notes Where id = 3", "null|null");
    gives("Select '[' + LTrim('   ') + RTrim('') + ']'", "[]");
}

TEST_F(TextFunctions, LeftAndRightTakeAnEnd) {
    gives("Select Left('abcdef', 2), Right('abcdef', 2), Left('ab', 5), Right('ab', 5)", "ab|ef|ab|ab");
    gives("Select '[' + Left('abc', 0) + Right('abc', 0) + ']'", "[]");
    gives("Select Left(note, n) from notes Where id = 1", "Hel");
    gives("Select Left(note, 3), Right(note, 3) from notes Where id = 3", "null|null");
    gives("Select Left('abc', null), Right(null, 1)", "null|null");
    gives("Select Left('äöü', 2), Right('äöü', 1)", "äö|ü");
    gives("Select Left(12345, 2), Right(12345, 2)", "12|45");
    fails("Select Left('abc', -1)", 537, "Invalid length parameter passed to the LEFT or SUBSTRING function.");
    fails("Select Right('abc', -1)", 536, "Invalid length parameter passed to the RIGHT function.");
    fails("Select Left(note, n) from notes Where id = 2", 537);
}

TEST_F(TextFunctions, SubstringTakesAPiece) {
    gives("Select Substring('abcdef', 2, 3), Substring('abcdef', 1, 1), Substring('abcdef', 6, 9)", "bcd|a|f");
    gives("Select '[' + Substring('abc', 4, 2) + ']', '[' + Substring('abc', 9, 2) + ']'", "[]|[]");
    gives("Select Substring('abcdef', 0, 3), Substring('abcdef', -1, 4)", "ab|ab");
    gives("Select '[' + Substring('abcdef', -5, 3) + ']', '[' + Substring('abc', 2, 0) + ']'", "[]|[]");
    gives("Select Substring(note, 7, 5) from notes Where id = 1", "World");
    givesOnSqlServer("Select Substring(null, 1, 2)", "null");
    fails("Select Substring('abc', 1, -1)", 537, "Invalid length parameter passed to the LEFT or SUBSTRING function.");
}

TEST_F(TextFunctions, CharIndexFindsATextWithoutItsCase) {
    gives("Select CharIndex('l', 'Hello'), CharIndex('L', 'Hello'), CharIndex('lo', 'Hello'), CharIndex('x', 'Hello')",
          "3|3|4|0");
    gives("Select CharIndex('l', 'Hello', 4), CharIndex('l', 'Hello', 5), CharIndex('H', 'Hello', 0)", "4|0|1");
    gives("Select CharIndex('H', 'Hello', -3), CharIndex('o', 'Hello', 99)", "1|0");
    gives("Select CharIndex(' ', note) from notes Where id = 1", "6");
    gives("Select CharIndex(null, 'a'), CharIndex('a', null)", "null|null");
    gives("Select CharIndex('a', '')", "0");
    givesOnSqlServer("Select CharIndex('', 'abc')", "0");
    gives("Select CharIndex('%', '50%')", "3");
}

TEST_F(TextFunctions, PatIndexFindsAPattern) {
    gives("Select PatIndex('%[0-9]%', 'abc123'), PatIndex('%c%', 'abc'), PatIndex('%x%', 'abc')", "4|3|0");
    gives("Select PatIndex('a%', 'abc'), PatIndex('b%', 'abc'), PatIndex('%bc', 'abc'), PatIndex('abc', 'abc')",
          "1|0|2|1");
    gives("Select PatIndex('%B_%', 'abc'), PatIndex('%W%', note) from notes Where id = 1", "2|7");
    gives("Select PatIndex('%a%', null), PatIndex(null, 'a')", "null|null");
    gives("Select PatIndex('%[^a-z]%', 'ab-c')", "3");
}

TEST_F(TextFunctions, ReplacePutsOneTextForAnother) {
    gives("Select Replace('banana', 'a', 'o'), Replace('banana', 'AN', '-'), Replace('abc', 'x', 'y')",
          "bonono|b--a|abc");
    gives("Select Replace('banana', 'a', ''), '[' + Replace('', 'a', 'b') + ']', Replace('abc', '', 'x')",
          "bnn|[]|abc");
    gives("Select Replace(note, ' ', '_') from notes Where id = 1", "Hello_World");
    gives("Select Replace(null, 'a', 'b'), Replace('a', null, 'b'), Replace('a', 'b', null)", "null|null|null");
    gives("Select Replace('it''s', '''', '\"')", "it\"s");
    gives("Select Replace('aaa', 'aa', 'b')", "ba");
}

TEST_F(TextFunctions, StuffPutsATextInsideAnother) {
    gives("Select Stuff('abcdef', 2, 3, 'XY'), Stuff('abcdef', 1, 0, 'X'), Stuff('abcdef', 6, 1, '')",
          "aXYef|Xabcdef|abcde");
    gives("Select Stuff('abcdef', 3, 99, 'X')", "abX");
    gives("Select Stuff('abcdef', 0, 1, 'X'), Stuff('abcdef', 7, 1, 'X'), Stuff('abc', 1, -1, 'X')", "null|null|null");
    gives("Select Stuff('abcdef', 2, 3, null)", "aef");
    gives("Select Stuff(null, 1, 1, 'X')", "null");
    gives("Select Stuff(note, 1, 5, 'Bye') from notes Where id = 1", "Bye World");
}

TEST_F(TextFunctions, ReplicateRepeatsAndReverseTurns) {
    gives("Select Replicate('ab', 3), '[' + Replicate('ab', 0) + ']', Replicate('a', -1)", "ababab|[]|null");
    gives("Select Replicate('0', 5 - Len('42')) + '42'", "00042");
    givesOnSqlServer("Select Len(Replicate('x', 9000))", "8000");
    gives("Select Replicate(null, 2)", "null");
    gives("Select Reverse('abc'), '[' + Reverse('') + ']', Reverse('äb'), Reverse(null), Reverse(123)",
          "cba|[]|bä|null|321");
}

TEST_F(TextFunctions, CodesAndCharactersStandForEachOther) {
    givesOnSqlServer("Select Char(65), Char(97) + Char(98), Ascii('A'), Ascii('abc'), Ascii('')", "A|ab|65|97|null");
    gives("Select NChar(233), Unicode('é'), NChar(8364)", "é|233|€");
    givesOnSqlServer("Select Char(-1), Char(256)", "null|null");
    gives("Select Len('a' + Char(13) + Char(10) + 'b')", "4");
    gives("Select Char(39) + 'x' + Char(39)", "'x'");
    gives("Select Ascii(null), Char(null)", "null|null");
}

TEST_F(TextFunctions, ConcatTakesNullForNothing) {
    gives("Select Concat('a', 'b'), Concat('a', null, 'c'), '[' + Concat(null, null) + ']'", "ab|ac|[]");
    gives("Select Concat('n', 5, '-', 2.5)", "n5-2.5");
    gives("Select Concat(note, '!') from notes Order by id", "Hello World!/  padded  !/!/!");
    gives("Select Concat(n, n) from notes Where id = 1", "33");
}

TEST_F(TextFunctions, ResultsCompareLikeColumns) {
    gives("Select id from notes Where Left(note, 5) = 'HELLO'", "1");
    gives("Select id from notes Where Upper(note) Like 'hello%'", "1");
    gives("Select id from notes Where LTrim(note) = 'PADDED'", "2");
    gives("Select id from notes Where Replace(note, ' ', '') In ('PADDED', 'helloworld') Order by id", "1/2");
    gives("Select id from notes Where Len(note) > 5 Order by id", "1/2");
    gives("Select id from notes Where IsNull(note, '') = '' Order by id", "3/4");
}

TEST_F(TextFunctions, TheNumberOfArgumentsIsChecked) {
    fails("Select Len()", 174, "The len function requires 1 argument(s).");
    fails("Select Len('a', 'b')", 174);
    fails("Select Left('a')", 174, "The left function requires 2 argument(s).");
    fails("Select Right('a', 1, 2)", 174);
    fails("Select Replace('a', 'b')", 174, "The replace function requires 3 argument(s).");
    fails("Select Stuff('a', 1, 1)", 174, "The stuff function requires 4 argument(s).");
    failsOnSqlServer("Select CharIndex('a')", 189, "The charindex function requires 2 to 3 arguments.");
    failsOnSqlServer("Select CharIndex('a', 'b', 1, 1)", 189);
    fails("Select Reverse()", 174);
    fails("Select Len('a'", 102);
    fails("Select Len 'a'", 207);
    fails("Select Len(,)", 102);
    fails("Select Frobnicate('a')", 195, "'Frobnicate' is not a recognized built-in function name.");
}

}  // namespace
