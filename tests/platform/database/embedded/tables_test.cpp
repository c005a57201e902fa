// Create, Alter and Drop of tables, indexes and triggers.

#include "tests/platform/database/embedded/dialect.h"

namespace {

class Tables : public testing::Test {
  protected:
    Practice practice;

    QStringList columnsOf(const char* table) {
        QStringList told;
        for (const db::ColumnInfo& column : practice.engine.describe(table).columns)
            told.append(column.name);
        return told;
    }
};

TEST_F(Tables, EveryTypeCanBeDeclared) {
    for (const char* type :
         {"int",           "integer",       "smallint",      "tinyint",    "bigint",       "bit",
          "float",         "real",          "money",         "smallmoney", "decimal",      "decimal(5)",
          "decimal(5,2)",  "numeric(9, 3)", "varchar",       "varchar(5)", "varchar(max)", "nvarchar(50)",
          "nvarchar(MAX)", "char",          "char(3)",       "nchar(3)",   "text",         "ntext",
          "sysname",       "datetime",      "smalldatetime", "date",       "[int]",        "INT"}) {
        EXPECT_EQ(practice.failure(QStringLiteral("Create Table a (x %1)").arg(type)), "") << type;
        EXPECT_EQ(practice.failure("Insert Into a Values (null)"), "") << type;
        practice.run("Drop Table a");
    }
    EXPECT_EQ(practice.failure("Create Table a (x blob)"), "2715 Cannot find data type blob.");
    EXPECT_EQ(practice.failureNumber("Create Table a (x varchar(y))"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table a (x varchar(5)"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table a (x varchar(5"), 102);
}

TEST_F(Tables, ATextWithoutALengthHoldsOneCharacter) {
    practice.run("Create Table a (x varchar, y nvarchar null, z char)");
    EXPECT_EQ(practice.failureNumber("Insert Into a (x) Values ('ab')"), 2628);
    EXPECT_EQ(practice.failureNumber("Insert Into a (y) Values ('ab')"), 2628);
    EXPECT_EQ(practice.failure("Insert Into a Values ('a', 'b', 'c')"), "");
}

TEST_F(Tables, NullAndNotNullAreKept) {
    practice.run("Create Table a (p int, q int null, r int not null)");
    const auto& columns = practice.engine.describe("a").columns;
    EXPECT_TRUE(columns[0].nullable);
    EXPECT_TRUE(columns[1].nullable);
    EXPECT_FALSE(columns[2].nullable);
    EXPECT_EQ(practice.failureNumber("Insert Into a (p) Values (1)"), 515);
    EXPECT_EQ(practice.failureNumber("Create Table b (p int not)"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table b (p int not 5)"), 102);
}

TEST_F(Tables, DefaultsStandForWhatIsLeftOut) {
    practice.run(
        "Create Table a (id int identity(1,1) primary key, t nvarchar(5) default 'abc', n int default 7, m int not null default -1, r float default 1.5, d datetime default '03/11/2026', b bit default 1, p int default (3), q nvarchar(9) default ('x'), g datetime default GetDate(), e nvarchar(5) constraint named default 'e', u nvarchar(9) default Upper('u'))");
    practice.run("Insert Into a (t) Values (null)\nInsert Into a Default Values");
    EXPECT_EQ(
        practice.rows("Select t, n, m, r, d, b, p, q, e, u from a Order by id"),
        (QStringList{"null|7|-1|1.5|2026-03-11 00:00:00|1|3|x|e|U", "abc|7|-1|1.5|2026-03-11 00:00:00|1|3|x|e|U"}));
    EXPECT_EQ(practice.one("Select Count(*) from a Where g <= GetDate() and g > GetDate() - 1"), "2");
    EXPECT_EQ(practice.failureNumber("Create Table b (n int default 'x')"), 245);
    EXPECT_EQ(practice.failureNumber("Create Table b (n tinyint default 256)"), 220);
    EXPECT_EQ(practice.failureNumber("Create Table b (d datetime default 'soon')"), 241);
}

TEST_F(Tables, AnIdentityIsNumberedByTheDatabase) {
    practice.run("Create Table a (id int identity(1,1) not null, t nvarchar(5))");
    practice.run("Insert Into a (t) Values ('x'), ('y')\nDelete from a Where id = 2\nInsert Into a Values ('z')");
    EXPECT_EQ(practice.rows("Select id, t from a Order by id"), (QStringList{"1|x", "3|z"}));
    EXPECT_EQ(practice.engine.lastIdentity(), 3);
    EXPECT_EQ(practice.engine.describe("a").identityColumn, "id");
    EXPECT_EQ(practice.failureNumber("Insert Into a (id, t) Values (1, 'q')"), 544);
    EXPECT_EQ(practice.failureNumber("Update a Set id = 5"), 8102);
}

TEST_F(Tables, KeysAreDeclaredWithTheColumnOrBehindAll) {
    practice.run(
        "Create Table a (x int primary key)\nCreate Table b (x int not null primary key clustered, y int)\nCreate Table c (x int, y int, primary key (y, x))\nCreate Table d (x int, constraint pk_d primary key nonclustered (x asc))\nCreate Table e (x int unique, y int unique clustered, z int, w int, unique (z, w), constraint u unique nonclustered (w desc, y))");
    for (const char* table : {"a", "b", "d"})
        EXPECT_EQ(practice.engine.describe(table).keyColumns, std::vector<QString>{"x"}) << table;
    EXPECT_EQ(practice.engine.describe("c").keyColumns, (std::vector<QString>{"y", "x"}));
    EXPECT_TRUE(practice.engine.describe("e").keyColumns.empty());
    EXPECT_FALSE(practice.engine.describe("a").columns[0].nullable);
    practice.run("Insert Into e Values (1, 1, 1, 1)\nInsert Into c Values (1, 1)");
    EXPECT_EQ(practice.failureNumber("Insert Into e Values (1, 2, 2, 2)"), 2627);
    EXPECT_EQ(practice.failureNumber("Insert Into e Values (2, 1, 2, 2)"), 2627);
    EXPECT_EQ(practice.failureNumber("Insert Into e Values (2, 2, 1, 1)"), 2627);
    EXPECT_EQ(practice.failure("Insert Into e Values (2, 2, 1, 2)"), "");
    EXPECT_EQ(practice.failureNumber("Insert Into c Values (1, 1)"), 2627);
    EXPECT_EQ(practice.failure("Insert Into c Values (2, 1)"), "");
    EXPECT_EQ(practice.failureNumber("Create Table f (x int, primary key (y))"), 1911);
    EXPECT_EQ(practice.failureNumber("Create Table f (x int, primary (x))"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table f (x int primary)"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table f (x int, primary key x)"), 102);
}

TEST_F(Tables, AReferenceMustBeThere) {
    practice.run(
        "Create Table p (id int primary key, n int)\nCreate Table c (id int primary key, p int references p (id) on delete cascade on update cascade)\nCreate Table k (p int references p on delete no action, q int, foreign key (q) references dbo.p (id) on update no action)");
    practice.run("Insert Into p Values (1, 0), (2, 0)\nInsert Into c Values (1, 1)\nInsert Into k Values (2, null)");
    EXPECT_EQ(practice.failureNumber("Insert Into c Values (2, 9)"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into k Values (9, null)"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into k Values (null, 9)"), 547);
    EXPECT_EQ(practice.failureNumber("Delete from p Where id = 2"), 547);
    practice.run("Update p Set id = 5 Where id = 1");
    EXPECT_EQ(practice.one("Select p from c"), "5");
    practice.run("Delete from p Where id = 5");
    EXPECT_EQ(practice.one("Select Count(*) from c"), "0");
    EXPECT_EQ(practice.failureNumber("Create Table x (p int references p (id) on delete)"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table x (p int references p (id) on delete set null)"), 102);
    EXPECT_EQ(practice.failureNumber("Create Table x (p int references p (id) on cascade)"), 102);
}

TEST_F(Tables, ACheckHoldsForEveryRow) {
    practice.run(
        "Create Table a (n int check (n > 0), t nvarchar(5) constraint kind check (t In ('A', 'B')), m int, check (m < n), constraint both check (n + m < 100))");
    practice.run("Insert Into a Values (5, 'a', 3)");
    EXPECT_EQ(practice.failure("Insert Into a Values (0, 'a', -1)"),
              "547 The INSERT statement conflicted with a CHECK constraint.");
    EXPECT_EQ(practice.failureNumber("Insert Into a Values (5, 'c', 3)"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into a Values (5, 'B', 5)"), 547);
    EXPECT_EQ(practice.failureNumber("Insert Into a Values (60, 'B', 50)"), 547);
    EXPECT_EQ(practice.failure("Update a Set n = 0"), "547 The UPDATE statement conflicted with a CHECK constraint.");
    EXPECT_EQ(practice.failure("Insert Into a Values (null, null, null)"), "");
    EXPECT_EQ(practice.failureNumber("Create Table b (n int check (x > 0))"), 207);
    EXPECT_EQ(practice.failureNumber("Create Table b (n int check (n))"), 4145);
    EXPECT_EQ(practice.failureNumber("Create Table b (n int check n > 0)"), 102);
}

TEST_F(Tables, ATableGrowsByAColumn) {
    practice.run("Create Table a (x int)\nInsert Into a Values (1)");
    practice.run("Alter Table a Add y nvarchar(5) null\nAlter Table dbo.a Add z int not null default 9");
    EXPECT_EQ(columnsOf("a"), (QStringList{"x", "y", "z"}));
    EXPECT_EQ(practice.one("Select * from a"), "1|null|9");
    practice.run("Insert Into a Values (2, 'two', 3)");
    EXPECT_EQ(practice.failureNumber("Insert Into a (y) Values ('longer')"), 2628);
    EXPECT_EQ(practice.failureNumber("Alter Table nothing Add y int"), 208);
    EXPECT_EQ(practice.failureNumber("Alter Table a Add y int"), 102);
    EXPECT_EQ(practice.failureNumber("Alter Table a y int"), 102);
    EXPECT_EQ(practice.failureNumber("Alter a Add y int"), 102);
    EXPECT_EQ(practice.failureNumber("Alter Table a Drop Column y"), 102);
}

TEST_F(Tables, AnIndexBelongsToItsTable) {
    practice.run(
        "Create Table a (x int, y nvarchar(5))\nCreate Table b (x int)\nCreate Index i On a (x)\nCreate Index i On b (x)\nCreate Unique Index u On a (y Desc, x Asc)\nCreate Clustered Index c On dbo.a (y)\nCreate Unique Clustered Index uc On b (x)");
    practice.run("Insert Into a Values (1, 'x')\nInsert Into b Values (1)");
    EXPECT_EQ(practice.failureNumber("Insert Into a Values (1, 'X ')"), 2627);
    EXPECT_EQ(practice.failure("Insert Into a Values (2, 'X ')"), "");
    EXPECT_EQ(practice.failureNumber("Insert Into b Values (1)"), 2627);
    practice.run("Drop Index a.u\nDrop Index uc On b\nDrop Index i On dbo.a");
    EXPECT_EQ(practice.failure("Insert Into a Values (1, 'X ')"), "");
    EXPECT_EQ(practice.failure("Insert Into b Values (1)"), "");
    EXPECT_EQ(practice.failureNumber("Create Index j On a (z)"), 1911);
    EXPECT_EQ(practice.failureNumber("Create Index j On nothing (x)"), 208);
    EXPECT_EQ(practice.failureNumber("Create Index j a (x)"), 102);
    EXPECT_EQ(practice.failureNumber("Create Index j On a x"), 102);
    EXPECT_EQ(practice.failureNumber("Create Index j On a (x"), 102);
    EXPECT_EQ(practice.failureNumber("Create Unique j On a (x)"), 102);
    EXPECT_EQ(practice.failureNumber("Drop Index i"), 102);
}

TEST_F(Tables, AnIndexIsUsedInTheOrderThatItWasMadeIn) {
    practice.run("Create Table a (x int, y nvarchar(5))\nCreate Index down On a (x Desc, y)");
    const QString plan = practice.engine.explain("Select x, y from a Order by x Desc, y");
    EXPECT_TRUE(plan.contains("down")) << plan.toStdString();
    EXPECT_FALSE(plan.contains("TEMP B-TREE")) << plan.toStdString();
    EXPECT_TRUE(practice.engine.explain("Select x, y from a Order by x, y").contains("TEMP B-TREE"));
}

TEST_F(Tables, ATriggerRunsBehindEachWrite) {
    practice.run(
        "Create Table a (id int identity(1,1) primary key, n int null, t nvarchar(20) null)\nCreate Table gone (n int)\nInsert Into gone Values (1), (2), (3)");
    practice.run(
        "Create Trigger a_new On dbo.a For Insert As Update a Set t = 'new' Where id In (Select id from inserted)\nCreate Trigger a_set On a After Update As If (Select Max(n) from inserted) = 2 Delete from gone Where n In (Select n from inserted)");
    practice.run("Insert Into a (n) Values (1)");
    EXPECT_EQ(practice.one("Select t from a"), "new");
    practice.run("Update a Set n = 2");
    EXPECT_EQ(practice.rows("Select n from gone Order by n"), (QStringList{"1", "3"}));
    practice.run("Update a Set n = 3\nDrop Trigger a_set\nDrop Trigger a_new\nInsert Into a (n) Values (9)");
    EXPECT_EQ(practice.one("Select Count(*) from gone"), "2");
    EXPECT_EQ(practice.one("Select t from a Where n = 9"), "null");
}

TEST_F(Tables, ATriggerIsOneStatementOnAnInsertOrUpdate) {
    practice.run("Create Table a (n int)");
    for (const char* statement :
         {"Create Trigger t On a Instead Of Insert As Delete from a",
          "Create Trigger t On a After Insert Delete from a", "Create Trigger t On a After Insert As Select 1",
          "Create Trigger t On a After Insert As Set NoCount Off Delete from a",
          "Create Trigger t a After Insert As Delete from a",
          "Create Trigger t On a After Insert As If 1 Delete from a"})
        EXPECT_NE(practice.failureNumber(statement), 0) << statement;
    EXPECT_EQ(practice.failureNumber("Create Trigger t On nothing After Insert As Delete from a"), 208);
    EXPECT_EQ(practice.failure("Insert Into a Values (1)"), "");
    EXPECT_EQ(practice.one("Select Count(*) from a"), "1");
}

TEST_F(Tables, ATableIsGoneOnceItIsDropped) {
    practice.run("Create Table a (x int)\nCreate Index i On a (x)\nDrop Table a");
    EXPECT_EQ(practice.failure("Select * from a"), "208 Invalid object name 'a'.");
    practice.run("Create Table A (y int)\nCreate Index i On a (y)");
    EXPECT_EQ(columnsOf("a"), QStringList{"y"});
    practice.run("Drop Table dbo.A");
    EXPECT_EQ(practice.failureNumber("Insert Into a Values (1)"), 208);
}

TEST_F(Tables, ATableIsMadeOnce) {
    practice.run("Create Table a (x int)");
    EXPECT_EQ(practice.failure("Create Table A (y int)"), "2714 There is already an object named 'A' in the database.");
    EXPECT_EQ(columnsOf("a"), QStringList{"x"});
    for (const char* statement : {"Create Table b", "Create Table b ()", "Create Table b (x)", "Create Table b (x int",
                                  "Create Table b (x int,)", "Create Table (x int)", "Create b (x int)",
                                  "Create Table b (x int) y", "Create View v As Select 1", "Drop a", "Drop Table"})
        EXPECT_EQ(practice.failureNumber(statement), 102) << statement;
}

TEST_F(Tables, ACollationIsPassedOver) {
    practice.run("Create Table a (x nvarchar(5) collate SQL_Latin1_General_CP1_CI_AS not null)");
    practice.run("Insert Into a Values ('X')");
    EXPECT_EQ(practice.one("Select Count(*) from a Where x = 'x'"), "1");
    EXPECT_FALSE(practice.engine.describe("a").columns[0].nullable);
}

}  // namespace
