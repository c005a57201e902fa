#include "appointments/patientrows.h"

#include <gtest/gtest.h>

#include "appointments/patientcontacts.h"
#include "tests/appointments/appointmentfixture.h"

namespace {

const QString Mary = QStringLiteral("10017");
const QString None = QStringLiteral("No current active authorizations found for patient.");

class PatientRows : public AppointmentFixture {
  protected:
    PatientRows() {
        Session().PhoneMask = QStringLiteral("(###) ###-####");
        patient(Mary, QStringLiteral("Jones"));
    }
    void set(const char* field, const QString& value) {
        database.connection().Execute(db::Sql("Update patient_info Set {} = '{}' Where id = '{}'",
                                              db::Raw{QString::fromLatin1(field)}, value, Mary));
    }
    static QString field(const char* name) { return PatientFieldText(Mary, QString::fromLatin1(name)); }

    void authorization(int remaining, QDate start, QDate end, int active = 0) {
        database.connection().Execute(db::Sql(
            "Insert Into authorizations (patient_id, sess_remaining, start_date, end_date, authoriz_active) Values ('{}', {}, '{}', '{}', {})",
            Mary, remaining, start, end, active));
    }
};

}  // namespace

TEST_F(PatientRows, TelephonesComeInThePracticesForm) {
    set("telephone_h", QStringLiteral("5551234567"));
    set("telephone_b", QStringLiteral("555123456789"));
    EXPECT_EQ(field("telephone_h"), QStringLiteral("(555) 123-4567"));
    EXPECT_EQ(field("telephone_b"), QStringLiteral("(555) 123-4567 89"));
}

TEST_F(PatientRows, WithoutAMaskATelephoneComesAsItIs) {
    Session().PhoneMask.clear();
    set("telephone_h", QStringLiteral("5551234567"));
    set("telephone_b", QStringLiteral("5551234567"));
    EXPECT_EQ(field("telephone_h"), QStringLiteral("5551234567"));
    EXPECT_EQ(field("telephone_b"), QStringLiteral("5551234567"));
}

TEST_F(PatientRows, TheOtherTelephoneNeedsAKind) {
    set("Other_Phone", QStringLiteral(" 5559876543 "));
    EXPECT_EQ(field("Other_Phone"), QString());
    set("Other_Phone_Type", QStringLiteral("Mobile"));
    EXPECT_EQ(field("Other_Phone"), QStringLiteral("(555) 987-6543"));
}

TEST_F(PatientRows, AnyOtherFieldComesAsItIs) {
    set("EmailAddress", QStringLiteral("mary@o'neil.example"));
    EXPECT_EQ(field("EmailAddress"), QStringLiteral("mary@o'neil.example"));
    EXPECT_EQ(field("last_name"), QStringLiteral("Jones"));
}

TEST_F(PatientRows, AnEmptyFieldAnUnknownPatientAndALostDatabaseAreEmpty) {
    EXPECT_EQ(field("telephone_h"), QString());
    EXPECT_EQ(PatientFieldText(QStringLiteral("nobody's"), QStringLiteral("telephone_b")), QString());
    (void)loseDatabase();
    EXPECT_EQ(field("last_name"), QString());
}

TEST_F(PatientRows, ThePatientsAddressIsFoundForAMail) {
    EXPECT_EQ(checkForEmailAddress(Mary), QString());
    set("EmailAddress", QStringLiteral("mary@example.org "));
    EXPECT_EQ(checkForEmailAddress(Mary), QStringLiteral("mary@example.org"));
    set("EmailAddress", QStringLiteral("  "));
    EXPECT_EQ(checkForEmailAddress(Mary), QString());
    EXPECT_EQ(checkForEmailAddress(QStringLiteral("nobody's")), QString());
}

TEST_F(PatientRows, AnAddressThatCannotBeReadIsTold) {
    desk.expectBox(QStringLiteral("Error retrieving patient e-mail address. ") + loseDatabase(),
                   QStringLiteral("Error"));
    EXPECT_EQ(checkForEmailAddress(Mary), QString());
}

TEST_F(PatientRows, APatientIsInTheDatabaseArchivedOrNot) {
    EXPECT_TRUE(patientinDB(Mary));
    set("archive", QStringLiteral("1"));
    EXPECT_TRUE(patientinDB(Mary));
    EXPECT_FALSE(patientinDB(QString()));
    EXPECT_FALSE(patientinDB(QStringLiteral("x' or '1' = '1")));
}

TEST_F(PatientRows, AListThatCannotBeReadIsTold) {
    desk.expectBox(QStringLiteral("Error reading patient list. ") + loseDatabase(), QStringLiteral("Error"));
    EXPECT_FALSE(patientinDB(Mary));
}

TEST_F(PatientRows, TheFirstAuthorizationOfTheDayTellsWhatRemains) {
    authorization(7, day, day);
    authorization(9, day.addDays(-10), day.addDays(10));
    EXPECT_EQ(GetAuthInfo(Mary, day), QStringLiteral("7 sessions remaining in current authorization"));
}

TEST_F(PatientRows, AuthorizationsThatAreUsedUpClosedOverOrStillToComeDoNotCount) {
    authorization(0, day, day);
    authorization(5, day, day, 1);
    authorization(5, day.addDays(-10), day.addDays(-1));
    authorization(5, day.addDays(1), day.addDays(10));
    EXPECT_EQ(GetAuthInfo(Mary, day), None);
}

TEST_F(PatientRows, AnAuthorizationWithoutDatesDoesNotCount) {
    authorization(5, day, day);
    database.connection().Execute(QStringLiteral("Update authorizations Set end_date = Null"));
    EXPECT_EQ(GetAuthInfo(Mary, day), None);
    EXPECT_EQ(GetAuthInfo(QStringLiteral("nobody's"), day), None);
}

TEST_F(PatientRows, AnAuthorizationThatCannotBeReadIsTold) {
    desk.expectBox(QStringLiteral("Error retrieving patient authorization information. ") +
                       DropTable(database.connection(), QStringLiteral("authorizations")),
                   QStringLiteral("Error"));
    EXPECT_EQ(GetAuthInfo(Mary, day), QString());
}
