#include "bridge/clientexport.h"

#include <gtest/gtest.h>

#include "platform/database/sql.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

const QString CannotExport = QStringLiteral("Unable to export patient to Fernhall. ");

class ClientExport : public testing::Test {
  protected:
    ClientExport() { pair(1, "FH-1", 7, "ABEL"); }

    void pair(int list, const char* fhDatabase, int fhValue, const char* svValue) {
        practice.connection().Execute(db::Sql(
            "Insert Into FHDataPairs (FHDataList, FHDatabase, FHDataValue, SVDataValue) Values ({}, '{}', {}, '{}')",
            list, fhDatabase, fhValue, svValue));
    }
    bool send(const ExportedPatient& patient) {
        return ExportPatientToFH({practice.connection(), companion.connectionText(), "FH-1"}, "P7", patient);
    }
    QString client(const char* column) {
        return companion.text(db::Sql("Select {} From Clients", db::Raw{QString::fromLatin1(column)}));
    }
    qint64 clients() { return companion.number("Select Count(*) From Clients"); }
    qint64 patientPairs() { return practice.number("Select Count(*) From FHDataPairs Where FHDataList = 4"); }

    static ExportedPatient smith() {
        ExportedPatient patient;
        patient.lastName = "O'Neil";
        patient.firstName = QString::fromUtf8("Zoë");
        patient.middleInitial = "Q";
        patient.salutation = "Ms.";
        patient.birthDate = QDate(1980, 12, 3);
        patient.initialContact = QDate(2026, 3, 11);
        patient.address = "12 Elm St\r\nApt 4\r\nRear";
        patient.city = "Springfield";
        patient.state = "IL";
        patient.zip = "62701";
        patient.sex = "Female";
        patient.homePhone = "5551234567";
        patient.workPhone = "555987654312";
        patient.providerId = "ABEL";
        return patient;
    }

    TestDatabase practice;
    TestDatabase companion{SchemaScript::Companion};
    ScriptedDesk desk;
};

}  // namespace

TEST_F(ClientExport, TheClientIsThePatient) {
    EXPECT_TRUE(send(smith()));
    EXPECT_EQ(client("clntactiveind"), "1");
    EXPECT_EQ(client("clntlastname"), "O'Neil");
    EXPECT_EQ(client("clntfirstname"), QString::fromUtf8("Zoë"));
    EXPECT_EQ(client("clntmiddleinitial"), "Q");
    EXPECT_EQ(client("clntMr"), "Ms.");
    EXPECT_EQ(client("clntbirthdate").left(10), "1980-12-03");
    EXPECT_EQ(client("ClntFirstVisitDate").left(10), "2026-03-11");
    EXPECT_EQ(client("ClntIllnessDate").left(10), "2026-03-11");
    EXPECT_EQ(client("clntcity"), "Springfield");
    EXPECT_EQ(client("clntstate"), "IL");
    EXPECT_EQ(client("clntzipcode"), "62701");
    EXPECT_EQ(client("clntSex"), "F");
    EXPECT_EQ(client("ProvId"), "7");
}

TEST_F(ClientExport, ABillingClientBeginsWithTheUsualFlags) {
    EXPECT_TRUE(send(smith()));
    const std::pair<const char*, const char*> flags[]{{"ClntAutoAccidentInd", "0"},
                                                      {"ClntWorkAccidentInd", "0"},
                                                      {"ClntOtherAccidentInd", "0"},
                                                      {"ClntSignatureInd", "1"},
                                                      {"ClntAssignBenefitsInd", "1"},
                                                      {"ClntAcceptAssignmentInd", "1"},
                                                      {"ClntPrintBill", "2"},
                                                      {"ClntPrintChargesOnlyInd", "0"},
                                                      {"ClntPrintLateMessagesInd", "1"},
                                                      {"ClntPrintCPTInd", "0"},
                                                      {"ClntPrintClntNameInd", "1"},
                                                      {"ClntPrintAxisInd", "1"},
                                                      {"ClntPrintFirstVisitInd", "0"},
                                                      {"ClntPrintProvNameInd", "1"},
                                                      {"BlayId", "2"},
                                                      {"ClntFeeChangeSessions", "0"},
                                                      {"DateCreated", "2026-03-11 10:00:00"},
                                                      {"LastModifiedDate", "2026-03-11 10:00:00"},
                                                      {"UserIdCreated", "0"},
                                                      {"UserIdLastModified", "0"}};
    for (const auto& [column, value] : flags)
        EXPECT_EQ(client(column), value) << column;
}

TEST_F(ClientExport, AnAddressIsSplitAtItsFirstLineEnd) {
    EXPECT_TRUE(send(smith()));
    EXPECT_EQ(client("clntaddressone"), "12 Elm St");
    EXPECT_EQ(client("clntaddresstwo"), "Apt 4\r\nRear");
}

TEST_F(ClientExport, AnAddressOfOneLineIsTheFirst) {
    ExportedPatient patient = smith();
    patient.address = "12 Elm St";
    EXPECT_TRUE(send(patient));
    EXPECT_EQ(client("clntaddressone"), "12 Elm St");
    EXPECT_EQ(client("clntaddresstwo"), "");
}

TEST_F(ClientExport, DatesThatAreNotThereStayEmpty) {
    ExportedPatient patient = smith();
    patient.birthDate = {};
    patient.initialContact = {};
    EXPECT_TRUE(send(patient));
    EXPECT_EQ(client("clntbirthdate"), "");
    EXPECT_EQ(client("ClntFirstVisitDate"), "");
    EXPECT_EQ(client("ClntIllnessDate"), "");
}

TEST_F(ClientExport, TelephonesHaveTheCompanionsForm) {
    struct Case {
        const char* home;
        const char* work;
        const char* clientHome;
        const char* clientWork;
        const char* extension;
    };
    const Case cases[]{
        {"5551234567", "555987654312", "(555) 123-4567", "(555) 987-6543", "12"},
        {"", "", "", "", ""},
        {"1234567", "1234567", "(000) 123-4567", "(000) 123-4567", ""},
        {"15551234567", "5559876543", "(1555) 123-4567", "(555) 987-6543", ""},
        {"(555) 123-4567", "555-987-6543 x9", "(555) 123-4567", "(555) 987-6543", "9"},
        {"ask for Ann", "front desk", "ask for Ann", "front desk", ""},
        {"555x", "123456789012345678901", "(000) 000-0555", "123456789012345678901", ""},
    };
    for (const Case& phones : cases) {
        ExportedPatient patient = smith();
        patient.homePhone = phones.home;
        patient.workPhone = phones.work;
        EXPECT_TRUE(send(patient));
        EXPECT_EQ(client("clnthomephone"), phones.clientHome);
        EXPECT_EQ(client("clntworkphone"), phones.clientWork);
        EXPECT_EQ(client("clntworkext"), phones.extension);
    }
}

TEST_F(ClientExport, ClientAndPatientArePaired) {
    EXPECT_TRUE(send(smith()));
    EXPECT_EQ(patientPairs(), 1);
    EXPECT_EQ(practice.text("Select FHDatabase From FHDataPairs Where FHDataList = 4"), "FH-1");
    EXPECT_EQ(practice.text("Select SVDataValue From FHDataPairs Where FHDataList = 4"), "P7");
    EXPECT_EQ(practice.text("Select FHDataValue From FHDataPairs Where FHDataList = 4"), client("ClntId"));
}

TEST_F(ClientExport, ASecondExportChangesTheSameClientAndAddsNoPair) {
    EXPECT_TRUE(send(smith()));
    ExportedPatient moved = smith();
    moved.city = "Chicago";
    EXPECT_TRUE(send(moved));
    EXPECT_EQ(clients(), 1);
    EXPECT_EQ(patientPairs(), 1);
    EXPECT_EQ(client("clntcity"), "Chicago");
}

TEST_F(ClientExport, APairOfAnotherCompanionIsNotThisPatients) {
    companion.connection().Execute("Insert Into Clients (ClntLastName) Values ('Doe')");
    pair(4, "FH-2", 1, "P7");
    EXPECT_TRUE(send(smith()));
    EXPECT_EQ(clients(), 2);
    EXPECT_EQ(companion.text("Select ClntLastName From Clients Where ClntId = 1"), "Doe");
}

TEST_F(ClientExport, AProviderWithoutAPairStopsTheExport) {
    ExportedPatient patient = smith();
    patient.providerId = "YOUNG";
    pair(1, "FH-2", 8, "YOUNG");
    desk.expectBox(
        "Unable to export patient to Fernhall. The selected provider for this patient does not exist in "
        "Fernhall. Add provider to Fernhall and try again.",
        "Solvane");
    EXPECT_FALSE(send(patient));
    EXPECT_EQ(clients(), 0);
    EXPECT_EQ(patientPairs(), 0);
}

TEST_F(ClientExport, ACompanionThatCannotBeReachedIsTold) {
    desk.expectBox(
        "Unable to export patient to Fernhall. Cannot open database \"gone\" requested by the login. The "
        "login failed.",
        "Error");
    EXPECT_FALSE(
        ExportPatientToFH({practice.connection(), "Data Source=/nowhere;Initial Catalog=gone", "FH-1"}, "P7", smith()));
    EXPECT_EQ(patientPairs(), 0);
}

TEST_F(ClientExport, AFailingPairLookUpIsTold) {
    desk.expectBox(CannotExport + DropTable(practice.connection(), "FHDataPairs"), "Error");
    EXPECT_FALSE(send(smith()));
    EXPECT_EQ(clients(), 0);
}

TEST_F(ClientExport, AFailingClientIsToldAndLeavesNoPair) {
    desk.expectBox(CannotExport + companion.refuse("Insert", "Clients"), "Error");
    EXPECT_FALSE(send(smith()));
    EXPECT_EQ(patientPairs(), 0);
}

TEST_F(ClientExport, AFailingPairIsToldAndLeavesNoClientThatASecondExportWouldDouble) {
    desk.expectBox(CannotExport + practice.refuse("Insert", "FHDataPairs"), "Error");
    EXPECT_FALSE(send(smith()));
    EXPECT_EQ(clients(), 0);
    EXPECT_EQ(patientPairs(), 0);
}

TEST_F(ClientExport, WhatTheCompanionHasNoRoomForIsToldAndNothingIsHalfWritten) {
    ExportedPatient patient = smith();
    patient.middleInitial = QString(11, 'x');
    const QString why = FailureOf(companion.connection(),
                                  db::Sql("Update Clients Set ClntMiddleInitial = '{}'", patient.middleInitial));
    desk.expectBox(CannotExport + why, "Error");
    EXPECT_FALSE(send(patient));
    EXPECT_EQ(clients(), 0);
    EXPECT_EQ(patientPairs(), 0);
}
