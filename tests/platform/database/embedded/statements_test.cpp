#include "tests/platform/database/embedded/practice.h"

namespace {

using Rows = QStringList;

constexpr const char* people = R"(
Create Table patient_info (id nvarchar(20) not null primary key, last_name nvarchar(50) null, first_name nvarchar(50) null, archive smallint null default 0, provider_id nvarchar(20) null, telephone_h nvarchar(40) null)
Create Table provider_info (id nvarchar(20) not null primary key, pfirst_name nvarchar(50) null, plast_name nvarchar(50) null, archive smallint null)
Create Table appointments (nkeyid int identity(1,1) not null primary key, dapptdate datetime null, nStartTime smallint null, nEndTime smallint null, cappttext nvarchar(max) null, ncolor int null default 16711680, clinicianid nvarchar(20) null, patientid nvarchar(20) null, BPrivateIco bit null default 0, CallPhoneNumber nvarchar(40) null)
Create Table appointmentsevents (nkeyid int not null, clinicianid nvarchar(20) not null, primary key (nkeyid, clinicianid))
Create Table report_headers (id int identity(1,1) primary key, header text null, [default] bit null)
Insert Into patient_info (id, last_name, first_name, provider_id, telephone_h) Values ('p1', 'Smith', 'Ann', 'a', '111')
Insert Into patient_info (id, last_name, first_name, provider_id, telephone_h) Values ('p2', 'smithers', 'Bob', 'b', '222')
Insert Into patient_info (id, last_name, first_name, archive, provider_id) Values ('p3', 'O''Brien', null, 1, 'a')
Insert Into provider_info (id, pfirst_name, plast_name, archive) Values ('a', 'Ada', 'Adams', null)
Insert Into provider_info (id, pfirst_name, plast_name, archive) Values ('b', 'Ben', 'Baker', 1)
Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, clinicianid, patientid, CallPhoneNumber) Values ('2026/03/11', 540, 600, 'Smith, Ann', 'a', 'p1', '555  ')
Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, clinicianid, patientid, ncolor) Values ('2026/03/12', 600, 660, 'smithers, Bob', 'B', 'p2', 192)
Insert Into appointmentsevents (nkeyid, clinicianid) Values (2, 'a')
Insert Into report_headers (header, [default]) Values ('Our practice', 1)
)";

class Statements : public testing::Test {
  protected:
    Practice practice{people};
};

TEST_F(Statements, AnAliasMayStandBeforeItsExpression) {
    const auto table = practice.engine.query(
        "Select provider_info.*, 'Inactive' = Case when archive is null then 0 else archive end From provider_info",
        {});
    EXPECT_EQ(table.columns().back().name, "Inactive");
    EXPECT_EQ(table.at(0, 4).integer(), 0);
    EXPECT_EQ(table.at(1, 4).integer(), 1);
    EXPECT_EQ(practice.one("Select Shown = id from provider_info Where id = 'a'"), "a");
}

TEST_F(Statements, PlusJoinsTexts) {
    EXPECT_EQ(practice.rows("Select last_name + ', ' + first_name as Patient from patient_info order by [Patient]"),
              (Rows{"null", "Smith, Ann", "smithers, Bob"}));
    EXPECT_EQ(practice.one("Select pfirst_name + ' ' + plast_name AS [ProviderName] from provider_info Where id = 'A'"),
              "Ada Adams");
    EXPECT_EQ(practice.one("Select id from provider_info Where plast_name + '' = 'ADAMS'"), "a");
}

TEST_F(Statements, PlusAddsNumbers) {
    EXPECT_EQ(practice.rows("Select nkeyid from appointments Where (nstarttime + .1) Between 540 and 541"), Rows{"1"});
    EXPECT_EQ(practice.rows("Select nkeyid from appointments Where 600 Between nstarttime and (nendtime - .1)"),
              Rows{"2"});
    EXPECT_EQ(practice.one("Select nStartTime + '5' from appointments Where nkeyid = 1"), "545");
    EXPECT_EQ(practice.one("Select ? + ? from appointments Where nkeyid = 1", {2, 3}), "5");
    EXPECT_EQ(practice.one("Select ? + ? from appointments Where nkeyid = 1", {"2", "3"}), "23");
    EXPECT_EQ(practice.one("Select 7 / 2, 7 % 4, 7 & 5, 7 | 8, 6 ^ 3, ~0, -(3), 2 + 3 * 4"), "3|3|5|15|5|-1|-3|14");
}

TEST_F(Statements, ANumberAddedToADateIsDays) {
    EXPECT_EQ(practice.one("Select dapptdate + 1.5 from appointments Where nkeyid = 1"), "2026-03-12 12:00:00");
    EXPECT_EQ(practice.one("Select dapptdate - 1 from appointments Where nkeyid = 1"), "2026-03-10 00:00:00");
}

TEST_F(Statements, ReservedNamesStandInBrackets) {
    EXPECT_EQ(practice.one("Select header from report_headers Where [default] = 1"), "Our practice");
    EXPECT_EQ(practice.one("Select header from report_headers Where abs([default]) = 1"), "Our practice");
}

TEST_F(Statements, ConvertWritesADateInTheStyleAsked) {
    EXPECT_EQ(practice.one("Select Convert(varchar, DapptDate, 101) as [Date] from appointments Where nkeyid = 1"),
              "03/11/2026");
    EXPECT_EQ(practice.one("Select Convert(varchar(5), '2026'), Convert(varchar(3), 'abcdef'), Cast(7 as varchar)"),
              "2026|abc|7");
    EXPECT_EQ(practice.one("Select Convert(varchar, Convert(datetime, '2026/03/11 9:05'), 100)"),
              "Mar 11 2026  9:05AM");
    EXPECT_EQ(practice.one("Select Convert(varchar(10), Cast('2026/03/11' as datetime), 120)"), "2026-03-11");
    EXPECT_EQ(practice.one("Select Convert(int, '15'), Cast(2.9 as int), Convert(float, '2.5')"), "15|2|2.5");
}

TEST_F(Statements, JoinsMayStandInParentheses) {
    EXPECT_EQ(
        practice.rows(
            "SELECT appointments.ClinicianId as [AptClId], appointmentsEvents.ClinicianId as [EvClId] FROM appointments LEFT JOIN appointmentsEvents ON appointments.nkeyid = appointmentsevents.nkeyid WHERE ((appointments.ClinicianID IN('a', 'b'))  or  (appointmentsEvents.ClinicianID IN('a', 'b'))) Order by nstarttime"),
        (Rows{"a|null", "B|a"}));
    EXPECT_EQ(
        practice.rows(
            "Select patient_info.id FROM ((appointments INNER JOIN provider_info ON clinicianid = provider_info.id) INNER JOIN patient_info ON appointments.patientid = patient_info.id) Where provider_info.archive is null"),
        Rows{"p1"});
}

TEST_F(Statements, AnAliasNeedsNoAs) {
    const auto table = practice.engine.query(
        "Select Distinct last_name + ', ' + first_name as Patient, provider_id provider from patient_info Where archive = 0 order by [Patient]",
        {});
    EXPECT_EQ(table.columns()[1].name, "provider");
    EXPECT_EQ(table.rowCount(), 2);
}

TEST_F(Statements, AUnionIsOrderedByItsAliases) {
    EXPECT_EQ(
        practice.rows(
            "Select Convert(varchar, DapptDate, 101) as [Date], last_name as [Patient], CASE WHEN CallPhoneNumber<>'' THEN RTRIM(CallPhoneNumber) else  telephone_h END as [Phone] From Appointments Inner Join patient_info On appointments.patientid =  patient_info.id Where DApptDate >= '2026/03/01' AND DApptDate <= '2026/03/31' Union Select Convert(varchar, DapptDate, 101) as [Date], 'group' as [Patient], '' From Appointments Order by [Patient] Desc, [Date]"),
        (Rows{"03/12/2026|smithers|222", "03/11/2026|Smith|555", "03/11/2026|group|", "03/12/2026|group|"}));
    // Two spellings of one text are one row; which of them shows is left open.
    EXPECT_EQ(practice.rows("Select last_name from patient_info Where id = 'p1' UNION Select 'SMITH' from patient_info")
                  .size(),
              1);
    EXPECT_EQ(practice.rows("Select 'b' as x UNION ALL Select 'b' Except Select 'a'"), Rows{"b"});
}

TEST_F(Statements, CountNeedsNoBlankBeforeFrom) {
    EXPECT_EQ(
        practice.one(
            "Select COUNT(*)FROM appointments WHERE nkeyid = 1  AND dapptdate = '03/11/2026' and (patientid is null or patientid = 'P1') "),
        "1");
    EXPECT_EQ(
        practice.one(
            "Select Count(Distinct provider_id), Min(last_name), Max(archive), Sum(archive), Avg(archive) From patient_info"),
        "2|O'Brien|1|1|0");
}

TEST_F(Statements, OneSemicolonMayEndAStatement) {
    EXPECT_EQ(practice.one("Select id from provider_info Where id = 'a';"), "a");
    EXPECT_EQ(practice.failure("Delete from appointments; Delete from patient_info"),
              "102 Incorrect syntax near 'Delete'.");
    EXPECT_EQ(practice.one("Select Count(*) from appointments"), "2");
}

TEST_F(Statements, TextFunctionsAreThoseOfTheServer) {
    EXPECT_EQ(
        practice.one(
            "Select Len('abc  '), Upper('zoë'), Lower('ÉA'), LTrim('  a '), RTrim(' a  '), Left('abc', 2), Right('abc', 2), Substring('abcdef', 2, 3), CharIndex('C', 'abc')"),
        "3|ZOË|éa|a | a|ab|bc|bcd|3");
    EXPECT_EQ(practice.rows("Select id from patient_info WHERE Upper(last_name) = 'O''BRIEN' AND Len(last_name) > 0"),
              Rows{"p3"});
    EXPECT_EQ(
        practice.one(
            "Select IsNull(first_name, 'none'), Coalesce(null, first_name, 'x'), NullIf(id, 'P3') from patient_info Where id = 'p3'"),
        "none|x|null");
}

TEST_F(Statements, DatePartsAreReadFromDatesAndTexts) {
    EXPECT_EQ(
        practice.rows(
            "Select nkeyid from appointments where dapptdate = '2026/03/11' or (ncolor = 192 and MONTH(dapptdate) = MONTH('2026/03/12') and Day(dapptdate) = Day('2026/03/12'))"),
        (Rows{"1", "2"}));
    EXPECT_EQ(
        practice.one(
            "Select Year(dapptdate), DatePart(weekday, dapptdate), DateAdd(month, 1, dapptdate), DateDiff(day, '2026/03/01', dapptdate), DateDiff(hh, '2026/03/11 8:59', '2026/03/11 9:00') from appointments Where nkeyid = 1"),
        "2026|4|2026-04-11 00:00:00|10|1");
}

TEST_F(Statements, GetDateIsOneMomentInAStatement) {
    const QDateTime before = db::Value(QDateTime::currentDateTime()).dateTime().addMSecs(-4);
    const auto table = practice.engine.query("Select GetDate(), getdate() From appointments", {});
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columns()[0].type, db::ColumnType::DateTime);
    EXPECT_EQ(table.at(0, 0).dateTime(), table.at(1, 1).dateTime());
    EXPECT_GE(table.at(0, 0).dateTime(), before);
    EXPECT_LE(table.at(0, 0).dateTime(), db::Value(QDateTime::currentDateTime()).dateTime().addMSecs(4));
}

TEST_F(Statements, InnerQueriesSeeTheTablesAround) {
    EXPECT_EQ(
        practice.rows(
            "Select id from patient_info p Where Exists (Select * from appointments Where patientid = p.id) and id in (Select patientid from appointments)"),
        (Rows{"p1", "p2"}));
    EXPECT_EQ(practice.one(
                  "Select (Select Count(*) from appointments), x.n from (Select Max(nkeyid) as n from appointments) x"),
              "2|2");
}

TEST_F(Statements, TopLimitsTheRows) {
    EXPECT_EQ(practice.rows("Select Top 1 id from patient_info Order by id Desc"), Rows{"p3"});
    EXPECT_EQ(practice.rows("Select Top (2) id from patient_info Order by id"), (Rows{"p1", "p2"}));
}

TEST_F(Statements, GroupsAreThoseOfEqualTexts) {
    practice.run("Insert Into provider_info (id, plast_name) Values ('c', 'ADAMS ')");
    EXPECT_EQ(practice.rows("Select plast_name, Count(*) from provider_info Group by plast_name Having Count(*) > 1"),
              Rows{"Adams|2"});
    EXPECT_EQ(practice.rows("Select Count(*) from provider_info Group by Left(plast_name, 1) Order by 1"),
              (Rows{"1", "2"}));
}

TEST_F(Statements, ColumnsSayWhatTheyHoldAndWhereTheyComeFrom) {
    const auto columns =
        practice.engine
            .query(
                "Select APPOINTMENTS.nkeyid, DApptDate, cappttext, bprivateico, appointmentsevents.*, cappttext + 'x', 1.5 as half From appointments, appointmentsevents Where 0=1",
                {})
            .columns();
    QStringList told;
    for (const db::Column& column : columns)
        told.append(QStringLiteral("%1 %2 %3").arg(column.table, column.name).arg(static_cast<int>(column.type)));
    EXPECT_EQ(told, (Rows{"appointments nkeyid 0", "appointments DApptDate 3", "appointments cappttext 2",
                          "appointments bprivateico 4", "appointmentsevents nkeyid 0",
                          "appointmentsevents clinicianid 2", "  2", " half 1"}));
}

TEST_F(Statements, TwoMinusSignsInARowAreNoRemark) {
    EXPECT_EQ(practice.one("Select - -3, 5 - -3, -nStartTime from appointments Where nkeyid = 1"), "3|8|-540");
}

TEST_F(Statements, IsNullKeepsTheTypeOfWhatItLooksAt) {
    const auto table = practice.engine.query(
        "Select IsNull(first_name, 0), IsNull(archive, '7'), IsNull(null, 2) from patient_info Where id = 'p3'", {});
    EXPECT_EQ(table.columns()[0].type, db::ColumnType::Text);
    EXPECT_EQ(table.at(0, 0).value(), db::Value("0"));
    EXPECT_EQ(table.at(0, 1).value(), db::Value(1));
    EXPECT_EQ(table.at(0, 2).value(), db::Value(2));
}

TEST_F(Statements, AnyNumberOfTextsIsJoined) {
    QString many = QStringLiteral("last_name");
    for (int i = 0; i < 150; ++i)
        many += QStringLiteral(" + 'x'");
    EXPECT_EQ(practice.rows("Select id from patient_info Where " + many + " Like 'Smithx%x'"), Rows{"p1"});
}

TEST_F(Statements, AStatementThatGivesNoRowsGivesAnEmptyTable) {
    EXPECT_EQ(practice.engine.query("Delete from appointments Where nkeyid = 1", {}).rowCount(), 0);
    EXPECT_EQ(practice.one("Select Count(*) from appointments"), "1");
}

}  // namespace
