-- The main database: the scheduler's own tables and those of the notes product that it reads and writes.
-- One script for both engines; a line GO ends each statement.
--
-- Columns that a test of the form "x <> value" or "x = 0" reads default to 0, since such a test drops a row that holds
-- null. Free text has no limit; names and keys have. The first six columns of appointments and its column 15 (from 0)
-- are read by place and keep it.
--
-- appttype besides is never null, whatever another program writes into it: the two triggers of appointments make such a
-- row an ordinary one (0). A column that refuses null would stop that program.

Create Table appointments (
    nkeyid int identity(1,1) not null primary key,
    dapptdate datetime null,
    nStartTime smallint null,
    nEndTime smallint null,
    cappttext nvarchar(255) null,
    CapptNote nvarchar(max) null,
    ncolor int null default 16711680,
    appttype smallint null default 0,
    appointment_type int null,
    clinicianid nvarchar(20) null,
    patientid nvarchar(20) null,
    PatientAcct nvarchar(50) null,
    hphone nvarchar(40) null,
    wphone nvarchar(40) null,
    BLOCATEICO bit null default 0,
    CLOCATION nvarchar(100) null,
    BremindIco bit null default 0,
    ReminderTime smallint null,
    BPrivateIco bit null default 0,
    BTentIco bit null default 0,
    repeating smallint null default 0,
    repeating_ref int null,
    allday bit null default 0,
    NoteID int null,
    CheckInTime nvarchar(40) null,
    CourtesyCallStatus nvarchar(10) null,
    createddate datetime null,
    createduid nvarchar(20) null,
    lastmodifieddate datetime null,
    lastmodifieduid nvarchar(20) null
)
GO
Create Index appointments_provider_day On appointments (clinicianid, dapptdate)
GO
Create Index appointments_day On appointments (dapptdate)
GO
Create Index appointments_patient_day On appointments (patientid, dapptdate)
GO
Create Index appointments_series On appointments (repeating_ref)
GO
Create Index appointments_category On appointments (appointment_type)
GO
Create Trigger appointments_added On appointments After Insert As
    Set NoCount On
    If Exists (Select nkeyid from inserted Where appttype Is Null)
        Update appointments Set appttype = 0 Where nkeyid In (Select nkeyid from inserted Where appttype Is Null)
GO
Create Trigger appointments_changed On appointments After Update As
    Set NoCount On
    If Exists (Select nkeyid from inserted Where appttype Is Null)
        Update appointments Set appttype = 0 Where nkeyid In (Select nkeyid from inserted Where appttype Is Null)
GO
Create Table appointmentsevents (
    nkeyid int not null,
    clinicianid nvarchar(20) not null,
    primary key (nkeyid, clinicianid)
)
GO
Create Index appointmentsevents_provider On appointmentsevents (clinicianid, nkeyid)
GO
Create Table AppointmentsGroup (
    GroupRowId int identity(1,1) not null primary key,
    nKeyId int not null,
    PatientId nvarchar(20) null,
    PatientAcct nvarchar(50) null,
    PatientName nvarchar(255) null,
    HPhone nvarchar(40) null,
    Kept smallint null default 0,
    GroupId int null,
    CourtesyCallStatus nvarchar(10) null
)
GO
Create Index AppointmentsGroup_appointment On AppointmentsGroup (nKeyId)
GO
Create Index AppointmentsGroup_patient On AppointmentsGroup (PatientId)
GO
Create Table roomschedule (
    nkeyid int identity(1,1) not null primary key,
    apptid int null default 0,
    croomid int null,
    croomtext nvarchar(255) null,
    CroomNOTE nvarchar(255) null,
    nStartTime smallint null,
    nEndTime smallint null,
    nApptDate datetime null
)
GO
Create Index roomschedule_appointment On roomschedule (apptid)
GO
Create Index roomschedule_room_day On roomschedule (croomid, nApptDate)
GO
Create Index roomschedule_day On roomschedule (nApptDate, croomid)
GO
Create Table rooms (
    RoomID int identity(1,1) not null primary key,
    Room nvarchar(100) null
)
GO
Create Table Locations (
    Locationid int identity(1,1) not null primary key,
    Location nvarchar(100) null
)
GO
Create Table Events (
    Eventid int identity(1,1) not null primary key,
    Event nvarchar(100) null
)
GO
Create Table availability (
    Availid int identity(1,1) not null primary key,
    avail nvarchar(100) null
)
GO
Create Table AptCategories (
    aptcategoryid int identity(1,1) not null primary key,
    aptcategory nvarchar(100) null,
    aptcategorycolor int null
)
GO
Create Table Holidays (
    HolidayID int identity(1,1) not null primary key,
    Holiday nvarchar(100) null,
    HolidayDate datetime null,
    HolidayRepeat smallint null default 0
)
GO
Create Table ProvSched (
    ProvSchedId int identity(1,1) not null primary key,
    providerid nvarchar(20) not null,
    workdayvalue smallint not null,
    starttime smallint null,
    endtime smallint null
)
GO
Create Index ProvSched_provider On ProvSched (providerid, workdayvalue)
GO
Create Table provider_info (
    id nvarchar(20) not null primary key,
    prov_lastname nvarchar(100) null,
    pfirst_name nvarchar(50) null,
    plast_name nvarchar(50) null,
    discipline nvarchar(100) null,
    archive smallint null default 0,
    ExcludeFromScheduler smallint null default 0
)
GO
Create Table passwords (
    pswd_user_id nvarchar(20) not null primary key,
    pswd_password nvarchar(100) null,
    pswd_type_of_access smallint null default 0,
    pswd_screen_access nvarchar(50) null,
    pswd_fh_ledger smallint null default 0
)
GO
Create Table patient_info (
    id nvarchar(20) not null primary key,
    last_name nvarchar(100) null,
    first_name nvarchar(100) null,
    middle_init nvarchar(10) null,
    salutation nvarchar(20) null,
    acctnbr nvarchar(50) null,
    provider_id nvarchar(20) null,
    incident_nbr int null default 1,
    total_episodes int null default 1,
    defaultCPT nvarchar(50) null,
    archive smallint null default 0,
    address nvarchar(255) null,
    city nvarchar(100) null,
    state nvarchar(50) null,
    zipcode nvarchar(20) null,
    telephone_h nvarchar(40) null,
    telephone_b nvarchar(40) null,
    Other_Phone nvarchar(40) null,
    Other_Phone_Type nvarchar(40) null,
    CallPhoneNumber nvarchar(40) null,
    EmailAddress nvarchar(255) null,
    PreferredContactMode nvarchar(50) null,
    birth_date datetime null,
    sex nvarchar(20) null,
    ssn nvarchar(20) null
)
GO
Create Index patient_info_name On patient_info (archive, last_name, first_name, middle_init)
GO
Create Index patient_info_provider On patient_info (provider_id)
GO
Create Table incident_hx (
    Patient_id nvarchar(20) not null,
    incident_nbr int not null,
    provider_id nvarchar(20) null,
    treatment_program nvarchar(100) null,
    init_contact_date datetime null,
    primary key (Patient_id, incident_nbr)
)
GO
Create Table PatientAccess (
    patientid nvarchar(20) not null,
    providerid nvarchar(20) not null,
    primary key (patientid, providerid)
)
GO
Create Index PatientAccess_provider On PatientAccess (providerid, patientid)
GO
Create Table Patient_Alerts (
    alert_id int identity(1,1) not null primary key,
    patient_id nvarchar(20) null,
    alert_type nvarchar(50) null,
    Status smallint null default 1,
    BeginDate datetime null,
    EndDate datetime null,
    alert nvarchar(max) null
)
GO
Create Index Patient_Alerts_patient On Patient_Alerts (patient_id, alert_type)
GO
Create Table authorizations (
    authoriz_id int identity(1,1) not null primary key,
    patient_id nvarchar(20) null,
    sess_remaining int null default 0,
    cpt_allowed nvarchar(255) null,
    authoriz_active smallint null default 0,
    start_date datetime null,
    end_date datetime null
)
GO
Create Index authorizations_patient On authorizations (patient_id)
GO
Create Table session_types (
    sess_id int identity(1,1) not null primary key,
    sess_cpt_code nvarchar(20) null,
    sess_cpt_name nvarchar(100) null,
    sess_cpt_time int null default 0
)
GO
Create Table sessions (
    id int identity(1,1) not null primary key,
    stype smallint null,
    Patient nvarchar(255) null,
    patientid nvarchar(20) null,
    DateMarker datetime null,
    providerid nvarchar(20) null,
    incident int null,
    CPTCode nvarchar(50) null,
    StartTime nvarchar(20) null,
    EndTime nvarchar(20) null,
    sessionlength int null,
    location nvarchar(100) null,
    program nvarchar(100) null,
    ModifiedDate datetime null,
    SignatureDate datetime null,
    SignatureName nvarchar(255) null,
    SignatureDateSuper datetime null,
    SignatureNameSuper nvarchar(255) null,
    Signature nvarchar(max) null
)
GO
Create Index sessions_patient On sessions (patientid)
GO
Create Table MissedAppt (
    id int not null primary key,
    reason nvarchar(max) null
)
GO
Create Table SessionSignatures (
    signature_id int identity(1,1) not null primary key,
    session_id int null,
    signature_type smallint null,
    signature_role nvarchar(50) null,
    signature_name nvarchar(255) null,
    signature_date datetime null,
    signature_order smallint null,
    provider_id nvarchar(20) null,
    signature nvarchar(max) null
)
GO
Create Index SessionSignatures_session On SessionSignatures (session_id)
GO
Create Table NoteTypes (
    NoteTypeId int identity(1,1) not null primary key,
    NoteType nvarchar(100) null,
    applyauths smallint null default 0
)
GO
Create Table DocNewMenu (
    DocNewMenuId int identity(1,1) not null primary key,
    NoteID int null,
    NoteName nvarchar(100) null,
    UID nvarchar(20) null
)
GO
Create Index DocNewMenu_user On DocNewMenu (UID)
GO
Create Table ToDo (
    TaskId int identity(1,1) not null primary key,
    ClinicianId nvarchar(20) null,
    ToDo nvarchar(max) null,
    Notes nvarchar(max) null,
    Priority smallint null,
    DateEntered datetime null,
    datedue datetime null,
    Completed smallint null default 0
)
GO
Create Index ToDo_provider On ToDo (ClinicianId)
GO
Create Table AuditLog (
    LogId int identity(1,1) not null primary key,
    LogUser nvarchar(50) null,
    LogDate nvarchar(40) null,
    LogLocation nvarchar(100) null,
    LogDescription nvarchar(max) null,
    LogListId nvarchar(100) null,
    LogNotes nvarchar(max) null,
    CompUser nvarchar(255) null,
    CompName nvarchar(255) null
)
GO
Create Table User_Preferences (
    UP_ID int identity(1,1) not null primary key,
    UP_UserID nvarchar(50) null,
    UP_Pref_Category nvarchar(100) null,
    UP_Pref_Detail nvarchar(100) null,
    UP_PD_Value nvarchar(max) null,
    UP_LastModUid nvarchar(50) null,
    UP_DateCreated datetime null,
    UP_DateModified datetime null,
    UP_DateDeleted datetime null,
    UP_OrderBy int null
)
GO
Create Index User_Preferences_user On User_Preferences (UP_UserID, UP_Pref_Category, UP_Pref_Detail)
GO
Create Table settings (
    settingsid int identity(1,1) not null primary key,
    ALEnabled smallint null default 0,
    recallpw bit null default 0,
    wordusage nvarchar(50) null,
    FHServer nvarchar(255) null,
    FHDatabaseName nvarchar(128) null,
    FHAutoExport smallint null default 0,
    UseFHSchedView smallint null default 0,
    SMTPServer nvarchar(255) null,
    SMTPUser nvarchar(255) null,
    SMTPPW nvarchar(255) null,
    SMTPPort int null,
    SMTPSSL smallint null,
    SMTPAuthMethod smallint null
)
GO
Create Table facesheet (
    FacesheetId int not null primary key,
    facesheetitem nvarchar(100) null,
    facesheetmask nvarchar(50) null
)
GO
Create Table CourtesyCallCodes (
    CallService nvarchar(10) not null,
    CallCode nvarchar(10) not null,
    CallCategory smallint null,
    CallDescription nvarchar(100) null,
    primary key (CallService, CallCode)
)
GO
Create Table CompanyInfo (
    CompanyInfoId int identity(1,1) not null primary key,
    CompanyName nvarchar(100) null,
    UserName nvarchar(100) null,
    userid nvarchar(50) null,
    addr1 nvarchar(100) null,
    addr2 nvarchar(100) null,
    city nvarchar(100) null,
    state nvarchar(50) null,
    zipcode nvarchar(20) null,
    phone nvarchar(40) null,
    fax nvarchar(40) null,
    callbackno nvarchar(40) null,
    emailaddress nvarchar(255) null,
    CI_PMS_Use smallint null default 0,
    CI_PMS_Userid nvarchar(50) null,
    CI_PMS_UserName nvarchar(100) null,
    CI_PMS_Syncing smallint null default 0,
    CI_LABORDS_Use smallint null default 0,
    CI_LABORDS_Userid nvarchar(50) null,
    CI_LABORDS_UserName nvarchar(100) null,
    CI_LABORDS_Syncing smallint null default 0
)
GO
Create Table DefaultFieldValues (
    dfltfieldname nvarchar(50) not null primary key,
    DfltValue nvarchar(255) null
)
GO
Create Table report_headers (
    headerid int identity(1,1) not null primary key,
    header nvarchar(max) null,
    [default] smallint null default 0
)
GO
Create Table ContactList (
    cid int identity(1,1) not null primary key,
    uid nvarchar(20) null,
    company nvarchar(100) null,
    fname nvarchar(100) null,
    lname nvarchar(100) null,
    mi nvarchar(10) null,
    address nvarchar(255) null,
    city nvarchar(100) null,
    state nvarchar(50) null,
    zip nvarchar(20) null,
    hphone nvarchar(40) null,
    wphone nvarchar(40) null,
    fax nvarchar(40) null,
    mobilephone nvarchar(40) null,
    pager nvarchar(40) null,
    emailaddress nvarchar(255) null,
    ctitle nvarchar(100) null,
    cdept nvarchar(100) null,
    notes nvarchar(max) null
)
GO
Create Index ContactList_user On ContactList (uid, lname)
GO
Create Table insurance_info (
    id int identity(1,1) not null primary key,
    ins_name nvarchar(100) null,
    contact nvarchar(100) null,
    address nvarchar(255) null,
    telephone nvarchar(40) null,
    fax nvarchar(40) null
)
GO
Create Table ref_source_info (
    id int identity(1,1) not null primary key,
    ref_name nvarchar(100) null,
    contact nvarchar(100) null,
    address nvarchar(255) null,
    telephone nvarchar(40) null,
    fax nvarchar(40) null,
    archive smallint null default 0
)
GO
Create Table Groups (
    GroupId int identity(1,1) not null primary key,
    GroupName nvarchar(100) null,
    Leader nvarchar(20) null,
    activestatus smallint null default 1
)
GO
Create Table GroupMembers (
    GroupMemberId int identity(1,1) not null primary key,
    GroupID int not null,
    PatientID nvarchar(20) not null,
    startDate datetime null,
    enddate datetime null
)
GO
Create Index GroupMembers_group On GroupMembers (GroupID)
GO
Create Table FHDataPairs (
    FHDataPairId int identity(1,1) not null primary key,
    FHDataList smallint not null,
    FHDatabase nvarchar(50) null,
    FHDataValue int null,
    SVDataValue nvarchar(20) null
)
GO
Create Index FHDataPairs_main On FHDataPairs (FHDataList, SVDataValue)
GO
Create Index FHDataPairs_companion On FHDataPairs (FHDataList, FHDataValue)
GO
-- The tables from here on are the scheduler's alone. A practice whose tables were made before them has the rest of the
-- program.

-- Who waits for an earlier hour. Providers is a list of ids between bars ("REED|LANE"), empty for any provider; Days has
-- a bit for each weekday, 1 for Sunday to 64 for Saturday. FromTime and ToTime are minutes of the day. nkeyid is the
-- appointment that was booked for the entry, which is closed then.
Create Table WaitList (
    WaitId int identity(1,1) not null primary key,
    PatientId nvarchar(20) not null,
    PatientName nvarchar(255) null,
    Minutes smallint not null,
    Providers nvarchar(max) null,
    Days smallint not null default 127,
    FromTime smallint not null default 0,
    ToTime smallint not null default 1440,
    ValidUntil datetime null,
    Note nvarchar(max) null,
    nkeyid int null,
    Closed bit not null default 0,
    createddate datetime null,
    createduid nvarchar(20) null
)
GO
Create Index WaitList_open On WaitList (Closed, ValidUntil)
GO
-- The appointments that a user has put aside to move them. They stay booked where they are until they land. ApptDate,
-- StartTime, EndTime and ClinicianId tell where the user last saw the appointment.
Create Table HoldingShelf (
    ShelfId int identity(1,1) not null primary key,
    UserId nvarchar(20) not null,
    nkeyid int not null,
    PlacedAt datetime null,
    ApptDate datetime null,
    StartTime int null,
    EndTime int null,
    ClinicianId nvarchar(20) null
)
GO
Create Index HoldingShelf_user On HoldingShelf (UserId, nkeyid)
GO
-- What a user shows with one key. Slot is the number of the function key, 7 to 12; ViewNumber the digit of the view's
-- key; Contents holds the rest as "name=value" lines.
Create Table SavedViews (
    SavedViewId int identity(1,1) not null primary key,
    UserId nvarchar(20) not null,
    Slot smallint not null,
    Title nvarchar(100) not null,
    ViewNumber smallint not null,
    Contents nvarchar(max) null
)
GO
Create Index SavedViews_user On SavedViews (UserId, Slot)
GO
