#include "session/hiddennames.h"
#include "tests/companion/schedulefixture.h"

namespace {

class CompanionDetails : public ScheduleFixture {
  protected:
    void client(const char* assignments) {
        there(QStringLiteral("Update Clients Set %1 Where ClntId = 1").arg(QString::fromUtf8(assignments)));
    }
    void share(const char* columns, const char* values) {
        there(QStringLiteral("Insert Into ClientChargeDistributions (ClntId, %1) Values (1, %2)")
                  .arg(QLatin1String(columns), QLatin1String(values)));
    }
    QStringList rowsOf(const char* caption) { return details().filter(QString::fromLatin1(caption)); }
};

const QStringList bare{"Name|Anna O'Brien",
                       "Address|",
                       "|,   ",
                       "Home Phone|",
                       "Work Phone|",
                       "E-Mail|",
                       "Service|90834-X Psychotherapy",
                       "Appointment Status|Not Seen"};

}  // namespace

TEST_F(CompanionDetails, WithoutASelectionTheyTellSo) {
    open();
    EXPECT_EQ(details(), QStringList{"Appointment|No Appointment Selected"});
    EXPECT_EQ(note(), "");
    EXPECT_EQ(label("lblCPT"), "");
}

TEST_F(CompanionDetails, AClientOfWhomLittleIsKnownHasShortDetails) {
    const int key = add({});
    open();
    selectAppointment(key);
    EXPECT_EQ(details(), bare);
    EXPECT_EQ(note(), "Note: ");
    EXPECT_EQ(label("lblCPT"), "90834-X");
}

TEST_F(CompanionDetails, AllThatIsKnownStandsInItsOrder) {
    here("Insert Into CourtesyCallCodes (CallService, CallCode, CallDescription) Values('CP', 'LM', 'Left message')");
    there("Insert Into InsuranceCompanies (InsrName) Values ('Blue Harbor')");
    there("Insert Into InsuranceCompanies (InsrName) Values ('Old Oak')");
    there("Insert Into clientInsurancePolicies (InsrId, ClntId, CPolType, CPolActiveInd) Values (2, 1, 'S', 1)");
    there("Insert Into clientInsurancePolicies (InsrId, ClntId, CPolType, CPolActiveInd) Values (1, 1, 'P', 1)");
    there("Insert Into clientInsurancePolicies (InsrId, ClntId, CPolType, CPolActiveInd) Values (2, 1, 'P', 0)");
    client(
        "ClntMr = 'Ms.', ClntMiddleInitial = 'B.', ClntSuffix = 'Jr.', ClntAddressOne = '1 Elm', ClntAddressTwo = 'Apt 2', ClntCity = 'Salem', ClntState = 'MA', ClntZipCode = '01970', ClntHomePhone = '5551234567', ClntHomeExt = '12', ClntWorkPhone = '5557654321', ClntEmailAddress = 'a@b.example', ClntUsualFee = 150, ClntFeeAdjustment = 30, ClntCurrentBalance = 1234.5");
    share("CDisType, CDisPercentDue", "0, 25");
    const int key = add({.notes = "Bring forms"});
    there("Update ClientTransactions Set CtrnCallStatus = 'LM', appt_status = 4");
    open();
    selectAppointment(key);
    EXPECT_EQ(details(),
              (QStringList{"Name|Ms. Anna B. O'Brien Jr.", "Address|1 Elm", "|Apt 2", "|Salem, MA  01970",
                           "Home Phone|5551234567 x:12", "Work Phone|5557654321", "E-Mail|a@b.example",
                           "Co-Pay|Client: $30.00", "Co-Pay Total|$30", "Balance|$1,235",
                           "Courtesy Call Status|Left message", "Insurance (P)|Blue Harbor", "Insurance (S)|Old Oak",
                           "Service|90834-X Psychotherapy", "Appointment Status|Arrived"}));
    EXPECT_EQ(note(), "Note: Bring forms");
}

TEST_F(CompanionDetails, TheSharesOfOtherPartiesJoinTheTotal) {
    client("ClntUsualFee = 100, ClntFeeAdjustment = Null");
    share("CDisType, CDisFixedAmount", "0, 20.5");
    there("Insert Into ClientParties (ClntId, PartFirstName, PartLastName) Values (1, 'Max', 'Brien')");
    share("CDisType, PartId, CDisPercentDue", "1, 1, 50");
    const int key = add({});
    open();
    selectAppointment(key);
    EXPECT_EQ(rowsOf("Co-Pay"), (QStringList{"Co-Pay|Client: $20.50", "Co-Pay|Max Brien: $50.00", "Co-Pay Total|$71"}));
}

TEST_F(CompanionDetails, WithoutAUsualFeeThereIsNoCoPayment) {
    share("CDisType, CDisFixedAmount", "0, 20");
    const int key = add({});
    open();
    selectAppointment(key);
    EXPECT_EQ(rowsOf("Co-Pay"), QStringList());
}

TEST_F(CompanionDetails, AShareOfNothingIsNothing) {
    client("ClntUsualFee = 100");
    share("CDisType", "0");
    const int key = add({});
    open();
    selectAppointment(key);
    EXPECT_EQ(rowsOf("Co-Pay"), (QStringList{"Co-Pay|Client: $0.00", "Co-Pay Total|$0"}));
}

TEST_F(CompanionDetails, TheBalanceIsShownInWholeDollars) {
    const int key = add({});
    open();
    for (const auto& [balance, shown] : std::vector<std::pair<const char*, QString>>{
             {"0", "Balance|$0"}, {"-1250.5", "Balance|-$1,251"}, {"0.49", "Balance|$0"}, {"-0.2", "Balance|$0"}}) {
        client(QByteArray("ClntCurrentBalance = ").append(balance).constData());
        view_->Reload();
        selectAppointment(key);
        EXPECT_EQ(rowsOf("Balance"), QStringList{shown}) << balance;
    }
}

TEST_F(CompanionDetails, TheBalanceIsHiddenFromUsersWhoMayNotSeeTheLedger) {
    here(
        "Insert Into passwords (pswd_user_id, pswd_type_of_access, pswd_screen_access, pswd_fh_ledger) Values ('REED', 1, '333333336', 1)");
    client("ClntCurrentBalance = 80");
    const int key = add({});
    open();
    EXPECT_TRUE(Session().FHLedgerHidden);
    selectAppointment(key);
    EXPECT_EQ(rowsOf("Balance"), QStringList());
    here("Update passwords Set pswd_fh_ledger = 2");
    reopen();
    selectAppointment(key);
    EXPECT_EQ(rowsOf("Balance"), QStringList{"Balance|$80"});
}

TEST_F(CompanionDetails, EachAppointmentStatusHasItsWord) {
    const int key = add({});
    open();
    const std::vector<std::pair<int, const char*>> words{{0, "Not Seen"}, {1, "Not Seen"}, {2, "Cancelled"},
                                                         {3, "Missed"},   {4, "Arrived"},  {5, "Seen"}};
    for (const auto& [status, word] : words) {
        there(db::Sql("Update ClientTransactions Set appt_status = {}", status));
        view_->Reload();
        selectAppointment(key);
        EXPECT_EQ(details().last(), QStringLiteral("Appointment Status|") + word);
    }
    for (const int status : {-1, 6}) {
        there(db::Sql("Update ClientTransactions Set appt_status = {}", status));
        view_->Reload();
        selectAppointment(key);
        EXPECT_EQ(rowsOf("Appointment Status"), QStringList()) << status;
    }
}

TEST_F(CompanionDetails, AnEventTellsItsAttendees) {
    const int key = addEvent({.attendees = {1, 2}});
    open();
    selectEvent(key);
    EXPECT_EQ(details(), (QStringList{"Event|Staff meeting", "All Day?|No", "Providers|Reed, Ada", "|Lane, Ben"}));
    EXPECT_EQ(note(), "");
    EXPECT_EQ(label("lblCPT"), "");
}

TEST_F(CompanionDetails, AnEventOfEverybodyTellsSo) {
    const int key = addEventRow("CEveDate, CEveEndDate, CEveTime, CEveAllDayInd, CEveAllProvidersInd",
                                "'2026/03/11', '2026/03/11', '2026-03-11 09:00', 1, 1");
    open();
    selectEvent(key);
    EXPECT_EQ(details(), (QStringList{"Event|Meeting", "All Day?|Yes", "Providers|All Providers"}));
}

TEST_F(CompanionDetails, AnEventWithoutAttendeesTellsItsName) {
    const int key = addEvent({.attendees = {}});
    open();
    selectEvent(key);
    EXPECT_EQ(details(), QStringList{"Event|Staff meeting"});
}

TEST_F(CompanionDetails, AnAppointmentRemovedMeanwhileHasNoDetails) {
    const int key = add({});
    open();
    there("Delete from ClientTransactions");
    selectAppointment(key);
    EXPECT_EQ(details(), QStringList());
}

TEST_F(CompanionDetails, TheyFollowTheHiddenNames) {
    client("ClntHomePhone = '5551234567'");
    const int key = add({.notes = "Bring forms"});
    open();
    selectAppointment(key);
    SetNamesHidden(true);
    EXPECT_EQ(rowsOf("Brien"), QStringList());
    EXPECT_EQ(rowsOf("555"), QStringList());
    EXPECT_FALSE(note().contains("forms"));
    EXPECT_EQ(rowsOf("Service"), QStringList{"Service|90834-X Psychotherapy"});
    SetNamesHidden(false);
    EXPECT_EQ(rowsOf("Name"), QStringList{"Name|Anna O'Brien"});
}

TEST_F(CompanionDetails, AFailureIsToldInItsOwnWords) {
    const int key = add({});
    const int meeting = addEvent({});
    client("ClntUsualFee = 100");
    open();
    QString why = DropTable(companion.connection(), "ClientParties");
    desk.expectBox("An error occurred getting CoPay Details. - " + why, "Error Getting Information");
    selectAppointment(key);
    EXPECT_EQ(details().last(), "Appointment Status|Not Seen");
    grid().clearSelection();
    why = DropTable(companion.connection(), "clients");
    desk.expectBox("An error occurred getting Client Info. - " + why, "Error Getting Information");
    selectAppointment(key);
    why = DropTable(companion.connection(), "CalendarProviderEvents");
    desk.expectBox("An error Occurred getting event info. - " + why, "Error Getting Information");
    selectEvent(meeting);
    EXPECT_EQ(details(), QStringList{"Event|Staff meeting"});
}

TEST_F(CompanionDetails, ACompanionThatIsAwayIsToldOnce) {
    const int key = add({});
    open();
    const QString why = takeCompanionAway();
    desk.expectBox("An error occurred getting Client Info. - " + why, "Error Getting Information");
    selectAppointment(key);
    EXPECT_EQ(details(), QStringList());
}
