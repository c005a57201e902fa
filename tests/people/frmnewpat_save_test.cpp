#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include "people/addressedit.h"
#include "people/frmnewpat.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "platform/database/sql.h"
#include "platform/desktop/questions.h"
#include "session/session.h"
#include "tests/people/newpatientfixture.h"

using NewPatientExport = NewPatientFixture;

namespace {

const QString NoPair = QStringLiteral(
    "Unable to export patient to Fernhall. The selected provider for this patient does not exist in Fernhall. Add "
    "provider to Fernhall and try again.");

class NewPatientSave : public NewPatientFixture {
  protected:
    /// Saves a patient of a known name, answers No, and returns what the question showed.
    QString factsOnSaving() {
        frmnewpat& form = open();
        fillRequired(form);
        QString facts;
        const auto before = Desktop().msgBox;
        Desktop().msgBox = [&facts](const QString& text, BoxStyle style, const QString& title) {
            EXPECT_EQ(text, "Smith, John is already in the database. Continue?");
            EXPECT_EQ(title, "Duplicate Name");
            EXPECT_EQ(style, YesNoWarningBox) << "Enter must answer No.";
            facts = FactsOfQuestion();
            return Answer::No;
        };
        form.cmdOk->click();
        Desktop().msgBox = [](const QString&, BoxStyle, const QString&) { return Answer::No; };
        form.cmdcancel->click();
        Desktop().msgBox = before;
        return facts;
    }
};

}  // namespace

TEST_F(NewPatientSave, EveryFieldGoesIntoItsColumn) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtmi, "Q");
    type(form.txtsal, "Mr.");
    type(form.txtssn, "123-45-6789");
    type(form.txtid, "A-17");
    type(form.txtcity, "Springfield");
    type(form.txtstate, "IL");
    type(form.txtzip, "62701-1234");
    type(form.txthphone, "555 123 4567");
    type(form.txtwphone, "555-987-6543 x12");
    form.cmdOk->click();

    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(stored("id"), "50005000");
    EXPECT_EQ(stored("incident_nbr"), "1");
    EXPECT_EQ(stored("total_episodes"), "1");
    EXPECT_EQ(stored("acctnbr"), "A-17");
    EXPECT_EQ(stored("last_name"), "Smith");
    EXPECT_EQ(stored("first_name"), "John");
    EXPECT_EQ(stored("middle_init"), "Q");
    EXPECT_EQ(stored("salutation"), "Mr.");
    EXPECT_EQ(stored("birth_date").left(10), "1980-12-03");
    EXPECT_EQ(stored("ssn"), "123456789");
    EXPECT_EQ(stored("city"), "Springfield");
    EXPECT_EQ(stored("state"), "IL");
    EXPECT_EQ(stored("zipcode"), "62701-1234");
    EXPECT_EQ(stored("telephone_h"), "5551234567");
    EXPECT_EQ(stored("telephone_b"), "555987654312");
    EXPECT_EQ(stored("sex"), "Male");
    EXPECT_EQ(stored("provider_id"), "ABEL");
    EXPECT_EQ(stored("archive"), "0");
}

TEST_F(NewPatientSave, ACellPhoneAndAnEMailAddressAreKeptAsTheEditorShowsThem) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtcphone, "555 222 3333");
    type(form.txtemail, " john@example.org ");
    form.cmdOk->click();
    EXPECT_EQ(stored("Other_Phone"), "5552223333");
    EXPECT_EQ(stored("Other_Phone_Type"), "Cell Phone");
    EXPECT_EQ(stored("EmailAddress"), "john@example.org");
}

TEST_F(NewPatientSave, WithoutACellPhoneAndAnEMailAddressTheRecordHasNone) {
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_EQ(stored("Other_Phone"), "");
    EXPECT_EQ(stored("Other_Phone_Type"), "");
    EXPECT_EQ(stored("EmailAddress"), "");
}

TEST_F(NewPatientSave, TheProviderOfTheAppointmentIsTakenOverAndIsNoChange) {
    frmnewpat form({{}, {}, QStringLiteral("young")});
    EXPECT_EQ(form.cboprovider->currentText(), "Young");
    form.show();
    form.cmdcancel->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(frmnewpat({{}, {}, QStringLiteral("GONE")}).cboprovider->currentIndex(), -1);
}

TEST_F(NewPatientSave, TheCursorWaitsInTheFirstFieldThatIsMissing) {
    EXPECT_EQ(frmnewpat({}).focusWidget()->objectName(), "txtlname");
    EXPECT_EQ(frmnewpat({QStringLiteral("Young"), {}}).focusWidget()->objectName(), "txtfname");
    EXPECT_EQ(frmnewpat({QStringLiteral("Young"), QStringLiteral("Al")}).focusWidget()->objectName(), "txtdob");
}

TEST_F(NewPatientSave, TheQuestionAboutADuplicateShowsWhoIsKnown) {
    Session().AllProviders = true;
    sql("Insert Into patient_info (id, last_name, first_name, birth_date, telephone_h, archive) Values ('1', 'SMITH', 'john', '1980/12/03', '5551234567', 0)");
    sql("Insert Into patient_info (id, last_name, first_name, Other_Phone, archive) Values ('2', 'Smith', 'John', 'ask', 1)");
    EXPECT_EQ(factsOnSaving(), QString::fromUtf8("SMITH, john · born 12/03/1980 · (555) 123-4567\n"
                                                 "Smith, John · date of birth not known · ask · not active"));
}

TEST_F(NewPatientSave, OfManyOfOneNameAsManyAreShownAsHaveRoom) {
    Session().AllProviders = true;
    for (const char* id : {"1", "2", "3", "4", "5"})
        database.connection().Execute(db::Sql(
            "Insert Into patient_info (id, last_name, first_name, archive) Values ('{}', 'Smith', 'John', 0)", id));
    EXPECT_EQ(factsOnSaving().section('\n', 3), "and 2 more");
}

TEST_F(NewPatientSave, NothingIsShownOfAPatientWhomTheUserMayNotRead) {
    sql("Insert Into patient_info (id, last_name, first_name, birth_date, provider_id, archive) Values ('1', 'Smith', 'John', '1980/12/03', 'ABEL', 0)");
    EXPECT_EQ(factsOnSaving(), "A patient of another provider.");
    sql("Insert Into PatientAccess (patientid, providerid) Values ('1', 'DESK')");
    EXPECT_TRUE(factsOnSaving().contains("12/03/1980"));
}

TEST_F(NewPatientSave, WhileNamesAreHiddenTheQuestionNamesNobodyFurther) {
    Session().AllProviders = Session().HidePatientNames = true;
    sql("Insert Into patient_info (id, last_name, first_name, birth_date, archive) Values ('1', 'Smith', 'John', '1980/12/03', 0)");
    EXPECT_FALSE(factsOnSaving().contains("12/03/1980"));
    EXPECT_FALSE(factsOnSaving().contains("Smith"));
}

TEST_F(NewPatientSave, TheFirstEpisodeGoesWithThePatient) {
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_EQ(episode("Patient_id"), stored("id"));
    EXPECT_EQ(episode("incident_nbr"), "1");
    EXPECT_EQ(episode("provider_id"), "ABEL");
    EXPECT_EQ(episode("init_contact_date").left(10), "2026-03-11");
}

TEST_F(NewPatientSave, TheCallerIsToldTheNewId) {
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_EQ(form.NewPatientId(), stored("id"));
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(NewPatientSave, APatientWhoIsNotActiveIsArchived) {
    frmnewpat& form = open();
    fillRequired(form);
    QTest::keyClick(form.ckactive, Qt::Key_Space);
    form.cmdOk->click();
    EXPECT_EQ(stored("archive"), "1");
}

TEST_F(NewPatientSave, AnIncompleteSsnAndAnInvalidContactDateAreLeftOut) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtssn, "12345");
    type(form.txtdic, "soon");
    form.cmdOk->click();
    EXPECT_EQ(stored("ssn"), "");
    EXPECT_EQ(episode("init_contact_date"), "");
    EXPECT_EQ(patients(), 1);
}

TEST_F(NewPatientSave, ATelephoneWithLettersIsKeptAsTyped) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txthphone, "ask for Ann");
    form.cmdOk->click();
    EXPECT_EQ(stored("telephone_h"), "ask for Ann");
}

TEST_F(NewPatientSave, WithoutATelephoneMaskANumberIsKeptAsTyped) {
    Session().PhoneMask.clear();
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtwphone, "+44 20 7946 0000 x7");
    form.cmdOk->click();
    EXPECT_EQ(stored("telephone_b"), "+44 20 7946 0000 x7");
}

TEST_F(NewPatientSave, ALineEndPastedIntoANameIsABlank) {
    frmnewpat& form = open();
    fillRequired(form);
    form.txtlname->setText("Smith\n Jones ");
    form.cmdOk->click();
    EXPECT_EQ(stored("last_name"), "Smith Jones");
}

TEST_F(NewPatientSave, TheNewPatientIsFoundByAUserOfOneScheduleOnly) {
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_EQ(database.text("Select id from patient_info, incident_hx Where Archive = 0 AND patient_info.id = "
                            "incident_hx.patient_id AND patient_info.provider_id = 'ABEL'"),
              form.NewPatientId());
}

TEST_F(NewPatientSave, AFailingLookForTheSameNameIsTold) {
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox("Unable to save. " + DropTable(database.connection(), "patient_info"), "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.txtlname->text(), "Smith");
}

TEST_F(NewPatientSave, AnAddressOfSeveralLinesIsStoredWithItsLineEnds) {
    frmnewpat& form = open();
    fillRequired(form);
    QTest::keyClicks(form.txtaddress, "12 Elm St");
    QTest::keyClick(form.txtaddress, Qt::Key_Return);
    QTest::keyClicks(form.txtaddress, "Apt 4");
    form.cmdOk->click();
    EXPECT_EQ(stored("address"), "12 Elm St\r\nApt 4");
}

TEST_F(NewPatientSave, NamesWithApostrophesAccentsAndEmojiAreStoredAsTyped) {
    frmnewpat& form = open();
    fillRequired(form);
    form.txtlname->setText(QString::fromUtf8("O'Né'il 😀"));
    form.txtfname->setText(QString::fromUtf8(" Zoë; | \"Z\" "));
    form.cmdOk->click();
    EXPECT_EQ(stored("last_name"), QString::fromUtf8("O'Né'il 😀"));
    EXPECT_EQ(stored("first_name"), QString::fromUtf8("Zoë; | \"Z\""));
}

TEST_F(NewPatientSave, TheLongestTextsFitTheirColumnsInBothDatabases) {
    linkCompanion();
    frmnewpat& form = open();
    fillRequired(form);
    for (QLineEdit* field :
         {form.txtlname, form.txtfname, form.txtmi, form.txtsal, form.txtid, form.txtcity, form.txtstate, form.txtzip})
        field->setText(QString(field->maxLength(), 'x'));
    form.txthphone->setText(QString(40, '9'));
    form.txtwphone->setText(QString(40, '9'));
    form.txtaddress->setPlainText(QString(300, 'x'));
    form.cmdOk->click();
    EXPECT_EQ(stored("address").size(), 255);
    EXPECT_EQ(stored("telephone_b").size(), 40);
    EXPECT_EQ(companion->text("Select ClntLastName From Clients"), stored("last_name"));
    EXPECT_EQ(companion->text("Select ClntWorkPhone From Clients"), QString(40, '9'));
}

TEST_F(NewPatientSave, ANameThatDiffersOnlyInCaseIsADuplicateAndTheUserMayGoOn) {
    sql("Insert Into patient_info (id, last_name, first_name) Values ('1', 'SMITH', 'john')");
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox("Smith, John is already in the database. Continue?", "Duplicate Name", Answer::Yes);
    form.cmdOk->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 2);
}

TEST_F(NewPatientSave, NoToADuplicateKeepsTheFormWithWhatWasTyped) {
    sql("Insert Into patient_info (id, last_name, first_name) Values ('1', 'O''Neil', 'John')");
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtlname, "o'neil");
    desk.expectBox("o'neil, John is already in the database. Continue?", "Duplicate Name", Answer::No);
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.focusWidget(), form.txtlname);
    EXPECT_EQ(form.txtlname->text(), "o'neil");
    EXPECT_EQ(patients(), 1);
    EXPECT_EQ(form.NewPatientId(), std::nullopt);
}

TEST_F(NewPatientSave, AnAccountNumberThatIsInUseIsTaken) {
    sql("Insert Into patient_info (id, last_name, first_name, acctnbr) Values ('1', 'Doe', 'Jane', 'A-17')");
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtid, "A-17");
    form.cmdOk->click();
    EXPECT_EQ(patients(), 2);
}

TEST_F(NewPatientSave, AnIdThatIsTakenIsDrawnAgain) {
    sql("Insert Into patient_info (id, last_name, first_name) Values ('50005000', 'Doe', 'Jane')");
    drawn = {0.5, 0.0};
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_EQ(form.NewPatientId(), "10000");
}

TEST_F(NewPatientSave, WithoutAFreeIdNothingIsSavedAndTheFormStays) {
    sql("Insert Into patient_info (id, last_name, first_name) Values ('50005000', 'Doe', 'Jane')");
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox("Error generating ID. Try again.", "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(patients(), 1);
    EXPECT_EQ(form.txtlname->text(), "Smith");
}

TEST_F(NewPatientSave, AFailingPatientRowIsToldAndOkCanBeTriedAgain) {
    const QString reason = database.refuse("Insert", "patient_info");
    frmnewpat& form = open();
    fillRequired(form);
    for (int attempt = 0; attempt < 2; ++attempt) {
        desk.expectBox("Unable to save. " + reason, "Error");
        form.cmdOk->click();
        EXPECT_TRUE(form.isVisible());
    }
    EXPECT_EQ(form.txtlname->text(), "Smith");
    EXPECT_EQ(form.cboprovider->currentText(), "Abel");
    EXPECT_EQ(patients() + episodes(), 0);
    EXPECT_EQ(form.NewPatientId(), std::nullopt);
    desk.expectBox("Changes made. Do you want to save?", "Save Changes", Answer::No);
    form.close();
}

TEST_F(NewPatientSave, AFailingEpisodeLeavesNoPatientWhomNobodyCouldFind) {
    const QString reason = database.refuse("Insert", "incident_hx");
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox("Unable to save. " + reason, "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(patients() + episodes(), 0);
    EXPECT_EQ(form.NewPatientId(), std::nullopt);
}

TEST_F(NewPatientSave, WithoutADatabaseTheFormStays) {
    frmnewpat& form = open();
    fillRequired(form);
    Session().Connection.Close();
    desk.expectBox(
        "Unable to save. The connection cannot be used to perform this operation. It is either closed or "
        "invalid in this context.",
        "Error");
    form.cmdOk->click();
    EXPECT_TRUE(form.isVisible());
}

TEST_F(NewPatientSave, TheAuditLogNamesThePatient) {
    Session().ALEnabled = true;
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtlname, "O'Neil");
    form.cmdOk->click();
    EXPECT_EQ(database.text("Select LogDescription From AuditLog"), "Added new patient - O'Neil, John");
    EXPECT_EQ(database.text("Select LogListId From AuditLog"), "New Patient");
    EXPECT_EQ(database.text("Select LogLocation From AuditLog"), "Patient");
    EXPECT_EQ(database.text("Select LogUser From AuditLog"), "DESK");
}

TEST_F(NewPatientSave, AFailingAuditLineDoesNotStopTheSave) {
    Session().ALEnabled = true;
    database.refuse("Insert", "AuditLog");
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 1);
}

TEST_F(NewPatientExport, WithTheLinkOnThePatientIsAClientOfTheCompanionToo) {
    linkCompanion();
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txthphone, "5551234567");
    form.cmdOk->click();
    EXPECT_EQ(companion->text("Select ClntLastName From Clients"), "Smith");
    EXPECT_EQ(companion->text("Select ClntHomePhone From Clients"), "(555) 123-4567");
    EXPECT_EQ(companion->text("Select ClntSex From Clients"), "M");
    EXPECT_EQ(database.text("Select SVDataValue From FHDataPairs Where FHDataList = 4"), form.NewPatientId());
}

TEST_F(NewPatientExport, WithoutTheLinkNothingIsExported) {
    linkCompanion();
    Session().FHDatabaseId.clear();
    frmnewpat& form = open();
    fillRequired(form);
    form.cmdOk->click();
    EXPECT_EQ(companion->number("Select Count(*) From Clients"), 0);
}

TEST_F(NewPatientExport, APracticeThatDoesNotExportByItselfIsAsked) {
    linkCompanion();
    Session().FHAutoExport = false;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        frmnewpat& form = open();
        fillRequired(form);
        type(form.txtfname, answer == Answer::Yes ? "Jane" : "John");
        drawn = {answer == Answer::Yes ? 0.25 : 0.5};
        desk.expectBox(QStringLiteral("Do you want to export Smith, %1 to Fernhall?").arg(form.txtfname->text()),
                       "Solvane", answer);
        form.cmdOk->click();
    }
    EXPECT_EQ(patients(), 2);
    EXPECT_EQ(companion->text("Select ClntFirstName From Clients"), "Jane");
    EXPECT_EQ(companion->number("Select Count(*) From Clients"), 1);
}

TEST_F(NewPatientExport, AProviderWithoutAPairStopsTheExportAndThePatientStaysSaved) {
    linkCompanion();
    frmnewpat& form = open();
    fillRequired(form);
    QTest::keyClick(form.cboprovider, Qt::Key_Down);
    desk.expectBox(NoPair, "Solvane");
    form.cmdOk->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 1);
    EXPECT_EQ(form.NewPatientId(), stored("id"));
    EXPECT_EQ(companion->number("Select Count(*) From Clients"), 0);
}

TEST_F(NewPatientExport, AFailingExportIsToldAsSuchAndThePatientStaysSaved) {
    linkCompanion();
    const QString reason = companion->refuse("Insert", "Clients");
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox("Unable to export patient to Fernhall. " + reason, "Error");
    form.cmdOk->click();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 1);
    EXPECT_EQ(episodes(), 1);
    EXPECT_EQ(form.NewPatientId(), stored("id"));
}
