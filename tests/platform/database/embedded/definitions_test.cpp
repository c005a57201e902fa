#include "tests/platform/database/embedded/practice.h"

namespace {

QStringList names(const std::vector<QString>& list) {
    return {list.begin(), list.end()};
}

TEST(Definitions, ATableIsDescribedAsItWasMade) {
    Practice practice(
        "Create Table Things (Id int identity(1,1) not null primary key, code nvarchar(5) not null default 'a', body nvarchar(max) null, old text, day datetime, born date, small smallint default -1, yes bit, cost money, share decimal(5,2), ratio float, letter char)");
    const db::TableInfo& info = practice.engine.describe("THINGS");
    QStringList told;
    for (const db::ColumnInfo& column : info.columns)
        told.append(QStringLiteral("%1 %2 %3 %4")
                        .arg(column.name)
                        .arg(static_cast<int>(column.type))
                        .arg(column.maxLength)
                        .arg(column.nullable ? "null" : "not null"));
    EXPECT_EQ(told, (QStringList{"Id 0 0 not null", "code 2 5 not null", "body 2 0 null", "old 2 0 null",
                                 "day 3 0 null", "born 3 0 null", "small 0 0 null", "yes 4 0 null", "cost 1 0 null",
                                 "share 1 0 null", "ratio 1 0 null", "letter 2 1 null"}));
    EXPECT_EQ(names(info.keyColumns), QStringList{"Id"});
    EXPECT_EQ(info.identityColumn, "Id");
    EXPECT_EQ(&practice.engine.describe("things"), &info);
}

TEST(Definitions, AKeyOfSeveralColumnsKeepsItsOrder) {
    Practice practice(
        "Create Table pairs (a nvarchar(5) not null, b int, c int, constraint pk_pairs primary key clustered (c, a desc))");
    const db::TableInfo& info = practice.engine.describe("pairs");
    EXPECT_EQ(names(info.keyColumns), (QStringList{"c", "a"}));
    EXPECT_EQ(info.identityColumn, "");
    EXPECT_FALSE(info.columns[2].nullable);
    EXPECT_TRUE(info.columns[1].nullable);
}

TEST(Definitions, AnIdentityMayBeTheKeyByAConstraintOrNoKey) {
    Practice practice(
        "Create Table a (x nvarchar(5), n int identity(1,1), constraint pk_a primary key (n))\nCreate Table b (n int identity, x int)");
    EXPECT_EQ(practice.engine.describe("a").identityColumn, "n");
    EXPECT_EQ(practice.engine.describe("b").identityColumn, "n");
    practice.run("Insert Into a (x) Values ('y')\nInsert Into b Values (5)");
    EXPECT_EQ(practice.one("Select a.n, b.n, b.x from a, b"), "1|1|5");
}

TEST(Definitions, AnUnknownTableIsRefused) {
    Practice practice;
    try {
        practice.engine.describe("nothing");
        FAIL();
    } catch (const db::DatabaseError& error) {
        EXPECT_EQ(error.number, 208);
    }
}

TEST(Definitions, ConstraintsHold) {
    Practice practice(R"(
Create Table parents (id int not null primary key, name nvarchar(10) unique)
Create Table children (id int constraint pk primary key, parent int null references parents (id) on delete cascade, n int constraint low check (n > 0), kind nvarchar(1) check (kind in ('A', 'B')), constraint big check (n < 100))
Create Table others (parent int, constraint fk foreign key (parent) references parents (id))
Insert Into parents Values (1, 'a')
Insert Into children Values (1, 1, 5, 'a')
)");
    EXPECT_EQ(practice.failureNumber("Insert Into parents Values (2, 'A')"), 2627);
    EXPECT_EQ(practice.failureNumber("Insert Into children Values (2, 9, 5, 'a')"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into children Values (2, 1, 0, 'a')"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into children Values (2, 1, 100, 'a')"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into children Values (2, 1, 1, 'c')"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into others Values (7)"), 547);
    practice.run("Delete from parents");
    EXPECT_EQ(practice.one("Select Count(*) from children"), "0");
}

TEST(Definitions, ATriggerMendsWhatIsWrittenAndIsNotCounted) {
    Practice practice(R"(
Create Table a (k int identity(1,1) not null primary key, n int null, t nvarchar(10) null)
Create Trigger a_added On a After Insert As Set NoCount On If Exists (Select k from inserted Where n Is Null) Update a Set n = 7 Where k In (Select k from inserted)
Create Trigger a_changed On a For Update As Update a Set t = 'too big' Where k In (Select i.k from inserted i Where i.n > 50)
Insert Into a (n) Values (Null), (5)
)");
    EXPECT_EQ(practice.rows("Select k, n from a Order by k"), (QStringList{"1|7", "2|5"}));
    EXPECT_EQ(practice.engine.lastIdentity(), 2);
    EXPECT_EQ(practice.engine.execute("Update a Set n = 51 Where k = 2", {}), 1);
    EXPECT_EQ(practice.rows("Select t from a Order by k"), (QStringList{"null", "too big"}));
    EXPECT_EQ(practice.failureNumber("Create Trigger a_added On a After Insert As Delete from a"), 2714);
    practice.run("Drop Trigger a_added");
    practice.run("Insert Into a (n) Values (Null)");
    EXPECT_EQ(practice.one("Select n from a Where k = 3"), "null");
    EXPECT_EQ(practice.failureNumber("Create Trigger a_gone On a After Delete As Delete from a"), 102);
    EXPECT_EQ(practice.failureNumber("Select * from inserted"), 208);
}

TEST(Definitions, DefaultsAreConvertedToTheirColumns) {
    Practice practice(
        "Create Table a (x int, day datetime default '3/11/2026', n int default '', code nvarchar(3) default 'abc', neg int default -5, par int default (7))\nInsert Into a (x) Values (1)");
    EXPECT_EQ(practice.one("Select day, n, code, neg, par from a"), "2026-03-11 00:00:00|0|abc|-5|7");
    EXPECT_EQ(practice.failureNumber("Create Table b (code nvarchar(3) default 'abcd')"), 2628);
}

TEST(Definitions, TablesGrowAndGo) {
    Practice practice(
        "Create Table a (x int)\nInsert Into a Values (1)\nAlter Table a Add name nvarchar(5) null default 'n'\nCreate Index i On a (name)\nCreate Table b (name int)\nCreate Unique Nonclustered Index i On b (name desc)");
    EXPECT_EQ(practice.one("Select * from a"), "1|n");
    EXPECT_EQ(practice.engine.describe("a").columns.size(), 2U);
    practice.run("Drop Index a.i\nDrop Index i On b\nDrop Table a");
    EXPECT_EQ(practice.failureNumber("Select * from a"), 208);
    EXPECT_EQ(practice.failureNumber("Drop Table a"), 208);
}

TEST(Definitions, NamesInBracketsMayHoldAnything) {
    Practice practice(
        "Create Table [my table] ([default] int, [a \"b\" ]]c] nvarchar(5), [select] int)\nInsert Into [my table] ([default], [a \"b\" ]]c]) Values (1, 'x')");
    EXPECT_EQ(
        practice.one("Select [default], [my table].[a \"b\" ]]c] as [out put] From [my table] Where [select] is null"),
        "1|x");
}

}  // namespace
