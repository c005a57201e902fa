#include "appointments/patientcontacts.h"

#include <gtest/gtest.h>

#include "tests/appointments/appointmentfixture.h"

namespace {

const QString Mary = QStringLiteral("10017");

class PatientContacts : public AppointmentFixture {
  protected:
    PatientContacts() {
        Session().PhoneMask = QStringLiteral("(###) ###-####");
        patient(Mary, QStringLiteral("Jones"));
    }
    void set(const char* field, const QString& value) {
        database.connection().Execute(db::Sql("Update patient_info Set {} = '{}' Where id = '{}'",
                                              db::Raw{QString::fromLatin1(field)}, value, Mary));
    }
    static ContactDetail detail(const char* field) { return PatientDetail(Mary, QString::fromLatin1(field)); }
};

}  // namespace

TEST_F(PatientContacts, AValueIsShownAsItsColumnIs) {
    struct Case {
        const char* field;
        const char* value;
        const char* shown;
    };
    for (const Case& entry :
         {Case{"telephone_h", " 5551234567 ", "(555) 123-4567"}, Case{"Other_Phone", "5551234567", "(555) 123-4567"},
          Case{"telephone_b", "555123456712", "(555) 123-4567 12"}, Case{"telephone_h", "ask for Ann", "ask for Ann"},
          Case{"telephone_h", "", ""}, Case{"EmailAddress", "mary@example.org\n", "mary@example.org "},
          Case{"PreferredContactMode", "5551234567", "5551234567"}})
        EXPECT_EQ(ContactText(QString::fromLatin1(entry.field), QString::fromLatin1(entry.value)).toStdString(),
                  entry.shown)
            << entry.field;
}

TEST_F(PatientContacts, TheEditorAndThePanelReadByStatementsOfTheirOwn) {
    EXPECT_EQ(FieldStatement(Mary, QStringLiteral("telephone_h")),
              QStringLiteral("Select telephone_h from Patient_info Where id = '10017'"));
    EXPECT_EQ(
        FieldStatement(Mary, QStringLiteral("Other_Phone")),
        QStringLiteral(
            "Select Other_Phone, Other_Phone_Type from Patient_info Where id = '10017' AND Len(Other_Phone_Type) > 0"));
    EXPECT_EQ(DetailStatement(Mary, QStringLiteral("telephone_h")),
              QStringLiteral("Select telephone_h , Other_Phone_Type from Patient_info Where id = '10017'"));
}

TEST_F(PatientContacts, AnIdWithAnApostropheIsText) {
    EXPECT_EQ(DetailStatement(QStringLiteral("O'B"), QStringLiteral("telephone_h")),
              QStringLiteral("Select telephone_h , Other_Phone_Type from Patient_info Where id = 'O''B'"));
}

TEST_F(PatientContacts, ADetailComesWithTheKindOfTheOtherTelephone) {
    set("telephone_h", QStringLiteral("5551234567"));
    EXPECT_EQ(detail("telephone_h").text, QStringLiteral("(555) 123-4567"));
    EXPECT_EQ(detail("telephone_h").otherPhoneType, QString());
    set("Other_Phone_Type", QStringLiteral("Cell"));
    set("Other_Phone", QStringLiteral("5559876543"));
    EXPECT_EQ(detail("telephone_h").otherPhoneType, QStringLiteral("Cell"));
    EXPECT_EQ(detail("Other_Phone").text, QStringLiteral("(555) 987-6543"));
}

TEST_F(PatientContacts, TheEditorShowsTheOtherTelephoneOnlyOfAKnownKindThePanelInAnyCase) {
    set("Other_Phone", QStringLiteral("5559876543"));
    EXPECT_EQ(PatientFieldText(Mary, QStringLiteral("Other_Phone")), QString());
    EXPECT_EQ(detail("Other_Phone").text, QStringLiteral("(555) 987-6543"));
}

TEST_F(PatientContacts, NobodyAndALostDatabaseAreEmpty) {
    const ContactDetail nobody = PatientDetail(QStringLiteral("nobody's"), QStringLiteral("telephone_h"));
    EXPECT_EQ(nobody.text, QString());
    EXPECT_EQ(nobody.otherPhoneType, QString());
    (void)loseDatabase();
    EXPECT_EQ(detail("EmailAddress").text, QString());
    EXPECT_EQ(PatientFieldText(Mary, QStringLiteral("EmailAddress")), QString());
}
