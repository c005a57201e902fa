#include "session/rights.h"

#include <gtest/gtest.h>

#include "data/scramble.h"
#include "session/session.h"
#include "tests/session/practice.h"

namespace {

class Rights : public testing::Test {
  protected:
    Rights() { practice.connect(); }
    // Logs a user on whose digit 9 is `digit`.
    void digit(char value, bool allProvidersBefore = false) {
        practice.sql("Delete From passwords");
        practice.sql("Delete From provider_info");
        practice.addUser("ANNA", "Adler", 1, QString("00000000") + QChar(value));
        Session().UID = "ANNA";
        Session().AllProviders = allProvidersBefore;
        getprovname();
    }
    void user(int type, const char* access) {
        practice.addUser("ANNA", "Adler", type, QString::fromLatin1(access));
        Session().UID = "ANNA";
    }
    void patient(const char* id, const char* provider) {
        practice.sql(QString("Insert Into patient_info (id, last_name, provider_id) Values ('%1', 'Moor', '%2')")
                         .arg(QString::fromLatin1(id), QString::fromLatin1(provider)));
    }

    Practice practice;
};

}  // namespace

TEST_F(Rights, DigitsZeroToThreeAreLevelsOfTheOwnSchedule) {
    for (const char c : {'0', '1', '2', '3'}) {
        digit(c, true);
        EXPECT_EQ(Session().ScreenAccess, c - '0');
        EXPECT_FALSE(Session().AllProviders);
        EXPECT_EQ(Session().UserName, "Adler");
    }
}

TEST_F(Rights, DigitsFourToSixAreTheSameLevelsWithAllProviders) {
    for (const char c : {'4', '5', '6'}) {
        digit(c);
        EXPECT_EQ(Session().ScreenAccess, c - '0' - 3);
        EXPECT_TRUE(Session().AllProviders);
    }
}

TEST_F(Rights, DigitsFromSevenStayAndLeaveAllProvidersAlone) {
    for (const bool before : {true, false}) {
        digit('7', before);
        EXPECT_EQ(Session().ScreenAccess, 7);
        EXPECT_EQ(Session().AllProviders, before);
    }
}

TEST_F(Rights, AnEmptyOrShortAccessTextIsNoAccess) {
    for (const char* access : {"", "33", "33333333x"}) {
        practice.sql("Delete From passwords");
        practice.sql("Delete From provider_info");
        user(1, access);
        getprovname();
        EXPECT_EQ(Session().ScreenAccess, 0) << access;
    }
    practice.sql("Update passwords Set pswd_screen_access = NULL");
    getprovname();
    EXPECT_EQ(Session().ScreenAccess, 0);
}

TEST_F(Rights, AnUnknownUserHasNoNameAndNoAccess) {
    Session().UID = "NOBODY";
    Session().UserName = "before";
    Session().ScreenAccess = 3;

    getprovname();

    EXPECT_EQ(Session().UserName, "");
    EXPECT_EQ(Session().ScreenAccess, 0);
}

TEST_F(Rights, ThePanelTellsTheLevelInWords) {
    EXPECT_EQ(AccessPanelText(0), "");
    EXPECT_EQ(AccessPanelText(1), "  Access: Read Only");
    EXPECT_EQ(AccessPanelText(2), "  Access: Write");
    EXPECT_EQ(AccessPanelText(3), "  Access: Write-Delete");
    EXPECT_EQ(AccessPanelText(7), "");
}

TEST_F(Rights, AUserOfTypeOneWithNotesAccessOpensAnyPatient) {
    user(1, "000010000");
    patient("P1", "BERT");

    EXPECT_TRUE(HasPatientAccess("P1"));
}

TEST_F(Rights, WithoutNotesAccessNobodyPassesNotEvenTheAdministratorOrTheOwnProvider) {
    user(2, "000000009");
    patient("P1", "ANNA");

    EXPECT_FALSE(HasPatientAccess("P1"));
}

TEST_F(Rights, NotesDigitsOfFourAndMoreAreNoNotesAccess) {
    user(1, "000040000");

    EXPECT_FALSE(HasPatientAccess("P1"));
}

TEST_F(Rights, AUserOfTypeZeroOpensTheirOwnPatientsAndThoseSharedWithThem) {
    user(0, "000030000");
    patient("OWN", "ANNA");
    patient("OTHER", "BERT");
    patient("SHARED", "BERT");
    practice.sql("Insert Into PatientAccess (patientid, providerid) Values ('SHARED', 'ANNA')");

    EXPECT_TRUE(HasPatientAccess("OWN"));
    EXPECT_FALSE(HasPatientAccess("OTHER"));
    EXPECT_TRUE(HasPatientAccess("SHARED"));
}

TEST_F(Rights, WithoutADatabaseNobodyHasAccess) {
    user(1, "000010000");
    Session().Connection.Close();

    EXPECT_FALSE(HasPatientAccess("P1"));
    EXPECT_FALSE(GetUserFHLedger("ANNA"));
    EXPECT_EQ(GetStoredPassword("ANNA"), "");
}

TEST_F(Rights, AnAuthorAlwaysOpensTheirOwnNote) {
    user(0, "000000000");
    patient("P1", "BERT");

    EXPECT_TRUE(MayOpenNote("anna", "P1"));
    EXPECT_FALSE(MayOpenNote("BERT", "P1"));
}

TEST_F(Rights, TheLedgerIsHiddenOnlyAtExactlyOne) {
    user(1, "000000000");
    for (const char* value : {"0", "2", "NULL"}) {
        practice.sql(QString("Update passwords Set pswd_fh_ledger = %1").arg(QString::fromLatin1(value)));
        EXPECT_FALSE(GetUserFHLedger("ANNA")) << value;
    }
    practice.sql("Update passwords Set pswd_fh_ledger = 1");
    EXPECT_TRUE(GetUserFHLedger("ANNA"));
    EXPECT_FALSE(GetUserFHLedger("NOBODY"));
}

TEST_F(Rights, TheStoredPasswordComesBackInPlain) {
    practice.addLogin("ANNA", 1, "", "Pa55 word");

    EXPECT_EQ(GetStoredPassword("ANNA"), "Pa55 word");
    EXPECT_EQ(GetStoredPassword("NOBODY"), "");
}

TEST_F(Rights, APasswordIsReadWithTheInstallationsKey) {
    practice.addLogin("ANNA", 1, "", "secret");
    practice.sql(
        QString("Update passwords Set pswd_password = '%1'").arg(ScramblePassword("secret", 8).replace("'", "''")));
    Session().ScrambleKey = 8;

    EXPECT_EQ(GetStoredPassword("ANNA"), "secret");
}
