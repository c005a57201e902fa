-- The companion database: of the practice-management product's tables the columns that the scheduler names.
-- One script for both engines; a line GO ends each statement.

Create Table ClientTransactions (
    CtrnId int identity(1,1) not null primary key,
    ClntId int null,
    TranId int null,
    ProvId int null,
    ProvIdAdditional int null,
    CtrnDate datetime null,
    CtrnTime datetime null,
    CtrnDuration int null default 0,
    CtrnStatus nvarchar(1) null,
    CtrnNotes nvarchar(max) null,
    RecurTranId int null default 0,
    CtrnCallStatus nvarchar(10) null,
    appt_status smallint null default 0,
    SVSessionID int null,
    CTRNDiagnosisPointer smallint null,
    CTRNDiagnosisPointerS nvarchar(10) null,
    ClaimSubmStatus smallint null,
    isICDBlock12 smallint null,
    DateCreated datetime null,
    UserIDCreated int null,
    LastModifiedDate datetime null,
    UserIdLastModified int null
)
GO
Create Index ClientTransactions_provider_day On ClientTransactions (ProvId, CtrnDate)
GO
Create Index ClientTransactions_second_provider_day On ClientTransactions (ProvIdAdditional, CtrnDate)
GO
Create Index ClientTransactions_day On ClientTransactions (CtrnDate)
GO
Create Index ClientTransactions_client On ClientTransactions (ClntId)
GO
Create Table TransactionCodes (
    TranId int identity(1,1) not null primary key,
    TranName nvarchar(50) null,
    TranDescription nvarchar(255) null,
    TranType nvarchar(1) null
)
GO
Create Table Clients (
    ClntId int identity(1,1) not null primary key,
    ClntFirstName nvarchar(100) null,
    ClntLastName nvarchar(100) null,
    ClntMiddleInitial nvarchar(10) null,
    ClntMr nvarchar(20) null,
    ClntSuffix nvarchar(20) null,
    ClntAddressOne nvarchar(255) null,
    ClntAddressTwo nvarchar(255) null,
    ClntCity nvarchar(100) null,
    ClntState nvarchar(50) null,
    ClntZipCode nvarchar(20) null,
    ClntHomePhone nvarchar(40) null,
    ClntHomeExt nvarchar(20) null,
    ClntWorkPhone nvarchar(40) null,
    ClntWorkExt nvarchar(20) null,
    ClntEmailAddress nvarchar(255) null,
    ClntUsualFee money null,
    ClntFeeAdjustment money null,
    ClntCurrentBalance money null,
    ClntActiveInd smallint null default 1,
    ClntOtherNumberOne nvarchar(50) null,
    LookIdNUMBOne int null,
    TranIDQuickCharge int null,
    ProvId int null,
    ClntBirthDate datetime null,
    ClntFirstVisitDate datetime null,
    ClntIllnessDate datetime null,
    ClntSex nvarchar(1) null,
    ClntAutoAccidentInd smallint null,
    ClntWorkAccidentInd smallint null,
    ClntOtherAccidentInd smallint null,
    ClntSignatureInd smallint null,
    ClntAssignBenefitsInd smallint null,
    ClntAcceptAssignmentInd smallint null,
    ClntPrintBill smallint null,
    ClntPrintChargesOnlyInd smallint null,
    ClntPrintLateMessagesInd smallint null,
    ClntPrintCPTInd smallint null,
    ClntPrintClntNameInd smallint null,
    ClntPrintAxisInd smallint null,
    ClntPrintFirstVisitInd smallint null,
    ClntPrintProvNameInd smallint null,
    BlayId int null,
    ClntFeeChangeSessions smallint null,
    DateCreated datetime null,
    UserIdCreated int null,
    LastModifiedDate datetime null,
    UserIdLastModified int null
)
GO
Create Index Clients_name On Clients (ClntLastName, ClntFirstName)
GO
Create Table Providers (
    ProvId int identity(1,1) not null primary key,
    ProvFirstName nvarchar(100) null,
    ProvLastName nvarchar(100) null
)
GO
Create Table CalendarEvents (
    CEveId int identity(1,1) not null primary key,
    CEveName nvarchar(255) null,
    CEveDate datetime null,
    CEveEndDate datetime null,
    CEveTime datetime null,
    CEveDuration int null default 0,
    CEveAllDayInd smallint null default 0,
    CEveAllProvidersInd smallint null default 0,
    CEveReminderInd smallint null default 0,
    CEveReminderLeadMinutes int null default 0,
    RecrId int null default 0,
    DateCreated datetime null,
    UserIDCreated int null,
    LastModifiedDate datetime null,
    UserIDLastModified int null
)
GO
Create Index CalendarEvents_day On CalendarEvents (CEveDate, CEveEndDate)
GO
Create Table CalendarProviderEvents (
    CEveId int not null,
    ProvId int not null,
    primary key (CEveId, ProvId)
)
GO
Create Index CalendarProviderEvents_provider On CalendarProviderEvents (ProvId, CEveId)
GO
Create Table RecurringEvents (
    RecrId int identity(1,1) not null primary key,
    RecrPattern smallint null,
    RecrDailyDays smallint null default 1,
    RecrDailyWeekdayInd smallint null default 0,
    RecrWeeklyWeeks smallint null default 1,
    RecrWeeklyMonInd smallint null default 0,
    RecrWeeklyTueInd smallint null default 0,
    RecrWeeklyWedInd smallint null default 0,
    RecrWeeklyThuInd smallint null default 0,
    RecrWeeklyFriInd smallint null default 0,
    RecrWeeklySatInd smallint null default 0,
    RecrWeeklySunInd smallint null default 0,
    RecrMonthlyScaleInd smallint null default 0,
    RecrMonthlyDay smallint null,
    RecrMonthlyMonths smallint null default 1,
    RecrMonthlyScale smallint null default 1,
    RecrMonthlyWeekday smallint null default 2,
    RecrYearlyScaleInd smallint null default 0,
    RecrYearlyDay smallint null,
    RecrYearlyMonth smallint null,
    RecrYearlyScale smallint null default 1,
    RecrYearlyWeekday smallint null default 2,
    RecrMaxEvents smallint null
)
GO
Create Table RecurringEventExceptions (
    RExcId int identity(1,1) not null primary key,
    RecrId int not null,
    RExcDate datetime null,
    ProvId int null
)
GO
Create Index RecurringEventExceptions_day On RecurringEventExceptions (RecrId, RExcDate)
GO
Create Table ClientParties (
    PartId int identity(1,1) not null primary key,
    ClntId int null,
    PartMr nvarchar(20) null,
    PartFirstName nvarchar(100) null,
    PartMiddleInitial nvarchar(10) null,
    PartLastName nvarchar(100) null,
    PartSuffix nvarchar(20) null
)
GO
Create Index ClientParties_client On ClientParties (ClntId)
GO
Create Table ClientChargeDistributions (
    CDisId int identity(1,1) not null primary key,
    ClntId int null,
    PartId int null,
    CDisType smallint null default 0,
    CDisPercentDue float null,
    CDisFixedAmount money null
)
GO
Create Index ClientChargeDistributions_client On ClientChargeDistributions (ClntId)
GO
Create Index ClientChargeDistributions_party On ClientChargeDistributions (PartId)
GO
Create Table InsuranceCompanies (
    InsrId int identity(1,1) not null primary key,
    InsrName nvarchar(100) null
)
GO
Create Table clientInsurancePolicies (
    CPolId int identity(1,1) not null primary key,
    InsrId int null,
    ClntId int null,
    CPolType nvarchar(1) null,
    CPolActiveInd smallint null default 1
)
GO
Create Index clientInsurancePolicies_client On clientInsurancePolicies (ClntId)
GO
Create Table LookupValues (
    LookId int identity(1,1) not null primary key,
    LookCode nvarchar(10) null,
    LookName nvarchar(100) null
)
GO
Create Table DefaultFieldValues (
    DfltFieldName nvarchar(50) not null primary key,
    DfltValue nvarchar(255) null
)
GO
