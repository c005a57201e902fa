#include "companion/frmfhclients.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "platform/controls/textfield.h"
#include "platform/database/sql.h"
#include "session/fillprogress.h"
#include "session/session.h"
#include "tests/companion/editorfixture.h"

using db::Sql;

namespace {

const QString NoProvider = QStringLiteral("There is no matching provider in Solvane.");

class CompanionClients : public CompanionEditorFixture {
  protected:
    void addClient(const char* last, const char* first, int active = 1) {
        run(Sql("Insert Into Clients (ClntLastName, ClntFirstName, ClntActiveInd) Values ('{}', '{}', {})", last, first,
                active));
    }
    void seeOnlyOwnClients() { Session().AllProviders = false; }
    static void expectChoice(const frmFHClients& form, int id, const char* name) {
        EXPECT_EQ(form.result(), QDialog::Accepted);
        EXPECT_EQ(form.ClientId(), id);
        EXPECT_EQ(form.ClientName(), name);
    }
    static QString selectedName(const frmFHClients& form) { return form.List1->Cell(form.List1->SelectedRow(), 1); }
    /// More clients than one piece, "Client 00000" and on.
    void addMany(int count) {
        std::vector<std::vector<db::Value>> rows;
        for (int i = 0; i < count; ++i)
            rows.push_back({QStringLiteral("Client %1").arg(i, 6, 10, QLatin1Char('0')), "x", 1});
        db::Connection& connection = companion.connection();
        connection.InsertRows(
            QStringLiteral("Clients"),
            {QStringLiteral("ClntLastName"), QStringLiteral("ClntFirstName"), QStringLiteral("ClntActiveInd")}, rows);
    }
};

// What is listed.

TEST_F(CompanionClients, TheProviderOfTheColumnStandsAboveTheList) {
    EXPECT_EQ(openClients().lblProvider->text(), "Provider: Reed, Anna");
}

TEST_F(CompanionClients, WithTheRightToAllSchedulesEveryActiveClientIsListedByName) {
    addClient("Abel", "Zoe");
    addClient("Gone", "Guy", 0);
    EXPECT_EQ(namesOf(openClients()), (QStringList{"Abel, Zoe", "O'Brien, Ian", "Stone, Mary"}));
}

TEST_F(CompanionClients, ClientsOfOneNameAreToldApartByTheirNumbers) {
    addClient("Stone", "mary");
    addClient("Stone", "Maryam");
    frmFHClients& form = openClients();
    EXPECT_EQ(namesOf(form).size(), 4);
    EXPECT_FALSE(form.List1->isColumnHidden(1));
    QStringList numbers;
    for (int row = 0; row < form.List1->RowCount(); ++row)
        numbers << form.List1->ShownCell(row, 2);
    numbers.sort();
    EXPECT_EQ(numbers, (QStringList{"", "", "1", "3"}));
    QTest::keyClicks(form.txtfind, "stone, m");
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    EXPECT_EQ(form.ClientName().toLower(), "stone, mary");
}

TEST_F(CompanionClients, WhereEachNameIsAloneNoNumberIsShown) {
    const frmFHClients& form = openClients();
    EXPECT_EQ(namesOf(form).size(), 2);
    EXPECT_TRUE(form.List1->isColumnHidden(1));
}

TEST_F(CompanionClients, WithoutThatRightThePairedPatientsOfTheProviderAreListed) {
    seeOnlyOwnClients();
    addPatient("P2", "Ash", "Ann", "REED");
    addPatient("P3", "Other", "Olga", "YOUNG");
    addPatient("P4", "Unpaired", "Una", "REED");
    pair(4, 20, "P2");
    pair(4, 30, "P3");
    EXPECT_EQ(namesOf(openClients()), (QStringList{"Ash, Ann", "Stone, Mary"}));
}

TEST_F(CompanionClients, APatientToWhomTheProviderWasGivenAccessIsListedOnce) {
    seeOnlyOwnClients();
    addPatient("P3", "Other", "Olga", "YOUNG");
    pair(4, 30, "P3");
    runMain("Insert Into PatientAccess (patientid, providerid) Values ('P3', 'REED')");
    runMain("Insert Into PatientAccess (patientid, providerid) Values ('P1', 'REED')");
    runMain("Insert Into PatientAccess (patientid, providerid) Values ('P1', 'YOUNG')");
    EXPECT_EQ(namesOf(openClients()), (QStringList{"Other, Olga", "Stone, Mary"}));
}

TEST_F(CompanionClients, AnArchivedPatientIsNotListed) {
    seeOnlyOwnClients();
    runMain("Update patient_info Set archive = 1");
    EXPECT_EQ(namesOf(openClients()), QStringList());
}

TEST_F(CompanionClients, ThePairsOfEveryCompanionCount) {
    seeOnlyOwnClients();
    runMain("Update FHDataPairs Set FHDatabase = 'FH-2'");
    EXPECT_EQ(namesOf(openClients()), QStringList{"Stone, Mary"});
}

TEST_F(CompanionClients, AProviderWithoutAPairIsToldAndTheListStaysEmpty) {
    seeOnlyOwnClients();
    desk.expectBox(NoProvider, "Solvane");
    const frmFHClients& form = openClients(Young);
    EXPECT_EQ(form.List1->RowCount(), 0);
    EXPECT_TRUE(form.lblnobody->isVisible());
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(CompanionClients, AProviderWithoutAPairIsNotMissedWhereAllClientsAreListed) {
    EXPECT_EQ(openClients(Young).List1->RowCount(), 2);
}

TEST_F(CompanionClients, AnApostropheInTheProvidersIdIsPartOfIt) {
    seeOnlyOwnClients();
    runMain("Update FHDataPairs Set SVDataValue = 'O''NEIL' Where FHDataList = 1");
    runMain("Update patient_info Set provider_id = 'O''NEIL'");
    EXPECT_EQ(namesOf(openClients()), QStringList{"Stone, Mary"});
}

TEST_F(CompanionClients, AClientWithoutAFirstNameCanStillBeToldFromOthers) {
    run("Insert Into Clients (ClntLastName, ClntActiveInd) Values ('Only', 1)");
    EXPECT_TRUE(namesOf(openClients()).contains("(no name, 3)"));
}

// Choosing.

TEST_F(CompanionClients, OkTakesTheSelectedClient) {
    frmFHClients& form = openClients();
    form.List1->SelectRow(0);
    form.cmdOk->click();
    expectChoice(form, Ian, "O'Brien, Ian");
}

TEST_F(CompanionClients, OkTakesTheClientOfAPairedPatient) {
    seeOnlyOwnClients();
    runMain("Update FHDataPairs Set FHDataValue = 77 Where FHDataList = 4");
    frmFHClients& form = openClients();
    form.List1->SelectRow(0);
    form.cmdOk->click();
    expectChoice(form, 77, "Stone, Mary");
}

TEST_F(CompanionClients, ADoubleClickActsAsOk) {
    frmFHClients& form = openClients();
    const QPoint place = form.List1->visualRect(form.List1->model()->index(1, 0)).center();
    QTest::mouseClick(form.List1->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(form.List1->viewport(), Qt::LeftButton, {}, place);
    expectChoice(form, Mary, "Stone, Mary");
}

TEST_F(CompanionClients, WithoutASelectionOkIsOff) {
    frmFHClients& form = openClients();
    EXPECT_FALSE(form.cmdOk->isEnabled());
    form.List1->SelectRow(0);
    EXPECT_TRUE(form.cmdOk->isEnabled());
}

TEST_F(CompanionClients, CancelAndEscapeChooseNobody) {
    frmFHClients& form = openClients();
    form.List1->SelectRow(0);
    form.cmdcancel->click();
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_EQ(form.ClientId(), 0);
    frmFHClients& again = openClients();
    again.List1->SelectRow(0);
    QTest::keyClick(&again, Qt::Key_Escape);
    EXPECT_EQ(again.ClientId(), 0);
    EXPECT_FALSE(again.isVisible());
}

// Finding.

TEST_F(CompanionClients, TypedLettersSelectTheFirstNameThatBeginsWithThem) {
    addClient("Stokes", "Sam");
    frmFHClients& form = openClients();
    QTest::keyClicks(form.txtfind, "sto");
    EXPECT_EQ(selectedName(form), "Stokes, Sam");
    QTest::keyClicks(form.txtfind, "n");
    EXPECT_EQ(selectedName(form), "Stone, Mary");
    QTest::keyClicks(form.txtfind, "E, ma");
    EXPECT_EQ(selectedName(form), "Stone, Mary");
}

TEST_F(CompanionClients, BlanksAroundTheTypedTextDoNotCount) {
    frmFHClients& form = openClients();
    QTest::keyClicks(form.txtfind, "  o'b ");
    EXPECT_EQ(selectedName(form), "O'Brien, Ian");
}

TEST_F(CompanionClients, EnterTakesTheClientWhoWasFound) {
    frmFHClients& form = openClients();
    QTest::keyClicks(form.txtfind, "o");
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    expectChoice(form, Ian, "O'Brien, Ian");
}

TEST_F(CompanionClients, EnterAfterATextThatNobodyHasSaysSoAndChoosesNobody) {
    frmFHClients& form = openClients();
    form.List1->SelectRow(0);
    QTest::keyClicks(form.txtfind, "zz");
    EXPECT_EQ(form.List1->SelectedRow(), -1);
    for (int time = 0; time < 2; ++time) {
        desk.expectBox("Name not found.", "Find");
        QTest::keyClick(form.txtfind, Qt::Key_Return);
    }
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.txtfind->text(), "zz");
}

TEST_F(CompanionClients, EnterInAnEmptyBoxDoesNothing) {
    frmFHClients& form = openClients();
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
}

TEST_F(CompanionClients, UpAndDownMoveInTheListWhileTheCursorStaysInTheBox) {
    frmFHClients& form = openClients();
    EXPECT_TRUE(form.txtfind->hasFocus());
    QTest::keyClicks(form.txtfind, "o");
    QTest::keyClick(form.txtfind, Qt::Key_Down);
    EXPECT_EQ(selectedName(form), "Stone, Mary");
    EXPECT_TRUE(form.txtfind->hasFocus());
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    expectChoice(form, Mary, "Stone, Mary");
}

// Failures.

TEST_F(CompanionClients, ClientsThatCannotBeReadAreTold) {
    desk.expectBox("Error loading Fernhall clients. " + DropTable(companion.connection(), "Clients"), "Error");
    EXPECT_EQ(openClients().List1->RowCount(), 0);
}

TEST_F(CompanionClients, PairsThatCannotBeReadAreTold) {
    seeOnlyOwnClients();
    desk.expectBox("Error loading Fernhall clients. " + DropTable(main.connection(), "FHDataPairs"), "Error");
    EXPECT_EQ(openClients().List1->RowCount(), 0);
}

TEST_F(CompanionClients, PatientsThatCannotBeReadAreTold) {
    seeOnlyOwnClients();
    desk.expectBox("Error loading Fernhall clients. " + DropTable(main.connection(), "PatientAccess"), "Error");
    EXPECT_EQ(openClients().List1->RowCount(), 0);
}

TEST_F(CompanionClients, ACompanionThatCannotBeReachedIsToldOnce) {
    Session().FHConnectionString = QStringLiteral("Data Source=/nowhere;Initial Catalog=gone");
    desk.expectBox(
        "Error loading Fernhall clients. Cannot open database \"gone\" requested by the login. The login failed.",
        "Error");
    EXPECT_EQ(openClients().List1->RowCount(), 0);
}

// Many clients.

TEST_F(CompanionClients, AHundredThousandClientsFillTheListInPiecesWhileItCanBeUsed) {
    const int many = companion.isOnServer() ? 5'000 : 100'000;
    addMany(many);
    frmFHClients form(Reed, "Reed, Anna");
    form.show();
    form.activateWindow();
    EXPECT_LT(form.List1->RowCount(), many);
    EXPECT_TRUE(form.pnlprogress->isVisible());
    // A name that is not on the list yet is found as soon as it is. Until then nobody else is selected.
    form.List1->SelectRow(0);
    QTest::keyClicks(form.txtfind, "stone");
    EXPECT_EQ(form.List1->SelectedRow(), -1);
    const QStringList names = namesOf(form);
    EXPECT_EQ(names.size(), many + 2);
    EXPECT_EQ(selectedName(form), "Stone, Mary");
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    expectChoice(form, Mary, "Stone, Mary");
}

TEST_F(CompanionClients, EnterBeforeTheListIsWholeWaitsForIt) {
    addMany(5'000);
    frmFHClients form(Reed, "Reed, Anna");
    form.show();
    QTest::keyClicks(form.txtfind, "stone");
    QTest::keyClick(form.txtfind, Qt::Key_Return);
    expectChoice(form, Mary, "Stone, Mary");
}

TEST_F(CompanionClients, ARestThatCannotBeReadIsToldAndTheFirstRowsStay) {
    addMany(5'000);
    frmFHClients form(Reed, "Reed, Anna");
    form.show();
    desk.expectBox("Error loading Fernhall clients. " + DropTable(companion.connection(), "Clients"), "Error");
    EXPECT_EQ(namesOf(form).size(), 200);
}

}  // namespace
