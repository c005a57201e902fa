// How a statement may be written: blanks, remarks, quotes, brackets, names and literals.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Spelling : public Dialect {
  protected:
    Spelling()
        : Dialect(R"(
Create Table letters (id int not null primary key, name nvarchar(30) null, [select] int null, [a b] int null, _under int null)
Insert Into letters Values (1, 'plain', 10, 20, 40)
Insert Into letters Values (2, 'it''s', 11, 21, 41)
)") {}
};

TEST_F(Spelling, BlanksAndLinesMayStandAnywhere) {
    gives("Select   id\t from\nletters\r\n Where  id   =  1  ", "1");
    gives("  Select id from letters Where id = 1", "1");
    gives("Select(1)", "1");
    gives("Select id,name from letters Where id=1", "1|plain");
    gives("Select Count ( * ) from letters", "2");
    gives("Select Len ( 'abc' ) , Upper( 'a' )", "3|A");
    givesOnSqlServer("Select letters . id from letters Where letters . id = 2", "2");
    gives("Select Count(*)from letters", "2");
    gives("Select id from letters Where id In(1,2)Order by id", "1/2");
    gives("Select'a'", "a");
    gives("Select\n'a\nb'", "a\nb");
}

TEST_F(Spelling, RemarksArePassedOver) {
    gives("Select 1 -- a remark", "1");
    gives("-- a remark\nSelect 2", "2");
    gives("Select 1 -- one\n + 2", "3");
    gives("Select /* inside */ 3", "3");
    gives("/* before */ Select 4 /* after */", "4");
    gives("Select 1 /* over\ntwo lines */ + 1", "2");
    gives("Select 5 /* -- */ + 1", "6");
    gives("Select 5 /**/ + 1", "6");
    gives("Select 5 /***/ + 1", "6");
    gives("Select '/* no remark */', '-- nor this'", "/* no remark */|-- nor this");
    gives("Select [id]/* x */from letters Where id = 1--x", "1");
    gives("Select 6 - -1", "7");
    gives("Select 6/2", "3");
}

TEST_F(Spelling, RemarksNest) {
    gives("Select /* outer /* inner */ still outer */ 1", "1");
    gives("Select 1 /* a /* b */ c /* d */ e */ + 1", "2");
    fails("Select 1 /* a /* b */ + 1", 113, "Missing end comment mark '*/'.");
    fails("Select 1 /* + 1", 113, "Missing end comment mark '*/'.");
    fails("Select 1 /*/ + 1", 113);
    failsOnSqlServer("Select 1 */ + 1", 102);
}

TEST_F(Spelling, AQuoteInATextIsWrittenTwice) {
    gives("Select 'it''s', '''', '''''', 'a''''b', ''", "it's|'|''|a''b|");
    gives("Select id from letters Where name = 'it''s'", "2");
    givesOnSqlServer("Select N'it''s', n'x'", "it's|x");
    gives("Select 'say \"hi\"', '[x]', 'a;b', '?', '{}'", "say \"hi\"|[x]|a;b|?|{}");
    gives("Select 'back\\slash', '100%', 'a_b'", "back\\slash|100%|a_b");
    gives("Select 'äöü ß € Ω 漢'", "äöü ß € Ω 漢");
    fails("Select 'open", 105, "Unclosed quotation mark after the character string 'open'.");
    fails("Select 'it's'", 105, "Unclosed quotation mark after the character string ''.");
    fails("Select '''", 105);
    fails("Select N'open", 105);
}

TEST_F(Spelling, NamesMayStandInBracketsAndDoubleQuotes) {
    gives("Select [id], \"name\" from [letters] Where [letters].[id] = 1", "1|plain");
    gives("Select [select], [a b], _under from letters Where id = 1", "10|20|40");
    practice.run("Create Table [a]]b] ([x]]y] int, \"c\"\"d\" int)\nInsert Into [a]]b] Values (1, 2)");
    EXPECT_EQ(practice.one("Select [x]]y], [c\"d] from [a]]b] Where [a]]b].[x]]y] = 1"), "1|2");
    gives("Select \"select\", \"a b\" from letters Where id = 1", "10|20");
    gives("Select letters.[select] + letters.[a b] from letters Where id = 1", "30");
    gives("Select [ID], [NAME] from [LETTERS] Where [iD] = 1", "1|plain");
    gives("Select id as [the key], id as \"another key\" from letters Where id = 1", "1|1");
    fails("Select [id from letters", 105, "Unclosed quotation mark after the character string 'id from letters'.");
    fails("Select \"id from letters", 105);
    fails("Select [nothing] from letters", 207, "Invalid column name 'nothing'.");
    fails("Select \"nothing\" from letters", 207, "Invalid column name 'nothing'.");
    fails("Select [] from letters", 207);
}

TEST_F(Spelling, WordsOfTheLanguageHaveNoCase) {
    gives("SELECT ID FROM LETTERS WHERE ID = 1", "1");
    gives("select id from letters where id = 1 order by id", "1");
    gives("sElEcT tOp 1 iD fRoM lEtTeRs oRdEr bY iD dEsC", "2");
    gives("Select CASE when 1 = 1 THEN 'x' eLSE 'y' eND", "x");
    gives("select LEN('a'), UPPER('b'), isnull(NULL, 1)", "1|B|1");
}

TEST_F(Spelling, AReservedWordIsNoName) {
    fails("Select select from letters", 102, "Incorrect syntax near 'select'.");
    fails("Select id from letters order", 102);
    fails("Select id as from letters", 102);
    fails("Select id from table", 102, "Incorrect syntax near 'table'.");
    fails("Select id from letters group", 102);
    fails("Update letters Set select = 1", 102);
    fails("Insert Into letters (select) Values (1)", 102);
    fails("Create Table order (id int)", 102);
    fails("Select * from letters union", 102);
}

TEST_F(Spelling, AnAliasIsWrittenInSeveralWays) {
    const auto nameOf = [&](const char* item) {
        return practice.engine.query(QStringLiteral("Select %1 from letters").arg(item), {}).columns()[0].name;
    };
    EXPECT_EQ(nameOf("id"), "id");
    EXPECT_EQ(nameOf("ID"), "ID");
    EXPECT_EQ(nameOf("letters.id"), "id");
    EXPECT_EQ(nameOf("id as k"), "k");
    EXPECT_EQ(nameOf("id k"), "k");
    EXPECT_EQ(nameOf("id [k l]"), "k l");
    EXPECT_EQ(nameOf("id as \"k l\""), "k l");
    EXPECT_EQ(nameOf("id as 'k l'"), "k l");
    EXPECT_EQ(nameOf("id 'k l'"), "k l");
    EXPECT_EQ(nameOf("k = id"), "k");
    EXPECT_EQ(nameOf("[k l] = id"), "k l");
    EXPECT_EQ(nameOf("'k l' = id"), "k l");
    EXPECT_EQ(nameOf("'k' = Case When id = 1 Then 2 End"), "k");
    EXPECT_EQ(nameOf("id + 1"), "");
    EXPECT_EQ(nameOf("Count(*)"), "");
    EXPECT_EQ(nameOf("5"), "");
    EXPECT_EQ(nameOf("(id)"), "id");
    EXPECT_EQ(nameOf("Upper(name) as date"), "date");
}

TEST_F(Spelling, NumbersHaveSeveralForms) {
    gives("Select 5, 5., .5, 5.5, 0, 00", "5|5|0.5|5.5|0|0");
    gives("Select 1e3, 1E3, 1e+3, 1e-3, 1.5e2, .5e1", "1000|1000|1000|0.001|150|5");
    gives("Select 1-1, 1 -1, 2147483647, 2147483648, -5", "0|0|2147483647|2147483648|-5");
    fails("Select 1..5", 102);
    EXPECT_EQ(practice.failure("Select 0x1F"), "102 Incorrect syntax near '0x'.");
    EXPECT_EQ(practice.failure("Select id from letters Where id = 0X1F"), "102 Incorrect syntax near '0X'.");
}

TEST_F(Spelling, WhatBeginsNothingIsRefused) {
    for (const char* sign : {"{", "}", "\\", "`", "$", ":", "!"})
        EXPECT_EQ(practice.failure(QStringLiteral("Select %1 from letters").arg(sign)),
                  QStringLiteral("102 Incorrect syntax near '%1'.").arg(sign));
    for (const char* nothing : {"", "   ", "-- nothing", "/* nothing */", ";"})
        EXPECT_EQ(practice.failureNumber(nothing), 102) << nothing;
    fails("Select", 102, "Incorrect syntax near 'Select'.");
    fails("Selec id from letters", 102, "Incorrect syntax near 'Selec'.");
}

TEST_F(Spelling, OneStatementIsRunAtATime) {
    gives("Select id from letters Where id = 1;", "1");
    gives("Select id from letters Where id = 1 ;  -- done", "1");
    EXPECT_EQ(practice.failureNumber("Select 1;;"), 102);
    EXPECT_EQ(practice.failureNumber("Select 1; Select 2"), 102);
    EXPECT_EQ(practice.failureNumber("Select 1 Select 2"), 102);
    EXPECT_EQ(practice.failureNumber("Delete from letters; Select 1"), 102);
    EXPECT_EQ(practice.failureNumber("Update letters Set name = '' Delete from letters"), 102);
    EXPECT_EQ(practice.one("Select Count(*) from letters Where name <> ''"), "2");
}

TEST_F(Spelling, WhatTheProgramNeverSendsIsRefusedAndDoesNothing) {
    for (const char* statement : {"Truncate Table letters",
                                  "Exec sp_who",
                                  "If 1 = 1 Delete from letters",
                                  "Begin Transaction",
                                  "Commit",
                                  "Declare @a int",
                                  "Set nocount on",
                                  "Use master",
                                  "With x as (Select 1) Select * from x",
                                  "Merge letters Using letters On 1 = 1",
                                  "Select * Into copies from letters",
                                  "Pragma table_info(letters)",
                                  "Attach Database 'x' As y",
                                  "Vacuum",
                                  "Replace Into letters (id) Values (1)",
                                  "Values (1)",
                                  "Delete Top (1) from letters",
                                  "Delete letters from letters Inner Join letters b On 1 = 1",
                                  "Update letters Set name = 'x' from letters a",
                                  "Update Top (1) letters Set name = 'x'",
                                  "Select Top 50 Percent id from letters",
                                  "Select Top 1 With Ties id from letters Order by id",
                                  "Select id from letters Where id = Any (Select 1)",
                                  "Select id from letters Limit 1",
                                  "Insert Into letters (id) Values (3) On Conflict Do Nothing",
                                  "Select id from letters Order by id Nulls Last",
                                  "Select id from letters Where name Glob 'p*'",
                                  "Select id from letters Where name Regexp 'p'",
                                  "Select load_extension('x')",
                                  "Select readfile('/etc/passwd')",
                                  "Select sqlite_version()"})
        EXPECT_NE(practice.failureNumber(statement), 0) << statement;
    EXPECT_EQ(practice.one("Select Count(*) from letters Where name In ('plain', 'it''s')"), "2");
}

}  // namespace
