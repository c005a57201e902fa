#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctlist.h"
#include "platform/printing/printpreview.h"
#include "search/frmfinda.h"
#include "session/hiddennames.h"
#include "tests/search/searchfixture.h"

namespace {

/// "When is this patient here?", asked over the schedules of all providers at nine in the morning of March 11, 2026.
class FindInAllSchedules : public SearchFixture {
  protected:
    FindInAllSchedules() {
        Session().UID = QStringLiteral("DESK");
        Session().AllProviders = true;
    }
    /// The rows that a new form finds: "Provider Date Start Status".
    QStringList found(frmfinda& form, const char* text = "Jones") {
        form.ckall->setChecked(true);
        form.txtfind->setText(QString::fromUtf8(text));
        form.cmdfind->click();
        QStringList rows;
        for (int row = 0; row < form.ctList1->RowCount(); ++row) {
            const QStringList cells = form.ctList1->Cells(row);
            rows << QStringList{cells[1], cells[2].left(5), cells[3], cells[6]}.join(u' ').trimmed();
        }
        return rows;
    }
    QString description(const frmfinda& form, int row = 0) { return form.ctList1->Cell(row, 1); }
    void member(qint64 key, const char* name) {
        run(db::Sql("Insert Into AppointmentsGroup (nKeyId, PatientId, PatientName) Values ({}, '7', '{}')", key,
                    name));
    }
};

}  // namespace

TEST_F(FindInAllSchedules, TheTickIsOffAtFirstAndTheSearchIsTheOwnOne) {
    book({.provider = QStringLiteral("OBRIEN")});
    book({});
    frmfinda form;
    EXPECT_FALSE(form.ckall->isChecked());
    form.txtfind->setText(QStringLiteral("Jones"));
    form.cmdfind->click();
    EXPECT_EQ(form.ctList1->RowCount(), 1);
    EXPECT_EQ(form.ctList1->ColumnCount(), 6);
}

TEST_F(FindInAllSchedules, TheNextVisitComesFirstAndThePastOnesFollowTheLatestFirst) {
    book({.date = QDate(2026, 3, 10)});
    book({.provider = QStringLiteral("OBRIEN"), .date = QDate(2025, 1, 2)});
    book({.start = 600, .end = 660, .date = QDate(2026, 3, 18)});
    book({.start = 900, .end = 950, .provider = QStringLiteral("OBRIEN")});
    book({.start = 480, .end = 540});
    book({.start = 530, .end = 580, .code = 0xFFFFFF});
    frmfinda form;
    EXPECT_EQ(found(form), (QStringList{"Reed 03/11 8:50 AM Checked-In", "O'Brien 03/11 3:00 PM Pending",
                                        "Reed 03/18 10:00 AM Pending", "Reed 03/11 8:00 AM Pending",
                                        "Reed 03/10 9:00 AM Pending", "O'Brien 01/02 9:00 AM Pending"}));
    EXPECT_EQ(form.lblcount->text(), "6 appointments: 3 to come, 3 past");
    EXPECT_EQ(form.ctList1->SelectedRow(), 0);
}

TEST_F(FindInAllSchedules, TheCountSaysWhetherAnythingIsToCome) {
    book({.text = QStringLiteral("Abel"), .date = QDate(2026, 3, 12)});
    book({.text = QStringLiteral("Baker"), .date = QDate(2026, 3, 10)});
    frmfinda form;
    (void)found(form, "Abel");
    EXPECT_EQ(form.lblcount->text(), "1 appointment, to come");
    (void)found(form, "Baker");
    EXPECT_EQ(form.lblcount->text(), "1 appointment, past");
    book({.text = QStringLiteral("Abel"), .date = QDate(2026, 3, 13)});
    book({.text = QStringLiteral("Baker"), .date = QDate(2026, 3, 9)});
    (void)found(form, "Abel");
    EXPECT_EQ(form.lblcount->text(), "2 appointments, all to come");
    (void)found(form, "Baker");
    EXPECT_EQ(form.lblcount->text(), "2 appointments, all past");
}

TEST_F(FindInAllSchedules, TheStatusIsToldAlsoWhereTheOwnSearchHasNoWordForIt) {
    const std::pair<int, const char*> words[] = {
        {0x7878650, "Tentative"}, {0xFFFFFF, "Checked-In"},       {0xC000, "Kept"},
        {193, "Pt Cancelled"},    {0xFF80FF, "Unavailable Time"}, {0xFF0000, ""}};
    for (const auto& [code, word] : words) {
        run(QStringLiteral("Delete from appointments"));
        book({.code = code});
        frmfinda form;
        (void)found(form);
        EXPECT_EQ(form.ctList1->Cell(0, 7), QLatin1String(word)) << code;
    }
}

TEST_F(FindInAllSchedules, AMemberOfAGroupIsFoundAtTheGroupsDates) {
    const qint64 key = book({.text = QStringLiteral("Anger group"), .code = 0xC0C000});
    member(key, "Jones, Mary");
    member(key, "Major, Jo");
    book({.text = QStringLiteral("Other group"), .code = 0xC0C000});
    frmfinda form;
    EXPECT_EQ(found(form), QStringList{"Reed 03/11 9:00 AM Group Therapy"});
    EXPECT_EQ(description(form), "Anger group: Jones, Mary");
    Session().HidePatientNames = true;
    SetNamesHidden(true);
    EXPECT_FALSE(form.ctList1->ShownCell(0, 1).contains("Jones"));
}

TEST_F(FindInAllSchedules, AnActivityOfSeveralProvidersLeadsToOneWhoAttendsIt) {
    const qint64 key =
        book({.text = QStringLiteral("Jones lecture"), .code = 0xFFFF80, .provider = QStringLiteral("~EVT")});
    share(key, "OBRIEN");
    frmfinda form;
    EXPECT_EQ(found(form), QStringList{"Several providers 03/11 9:00 AM Activity/Event"});
    form.cmdgoto->click();
    EXPECT_EQ(Session().ProviderId, "OBRIEN");
    Session().ProviderId = QStringLiteral("REED");
    share(key, "REED");
    frmfinda again;
    (void)found(again);
    again.cmdgoto->click();
    EXPECT_FALSE(again.ProviderChanged());
    EXPECT_EQ(Session().ProviderId, "REED");
}

TEST_F(FindInAllSchedules, EnterGoesToTheVisitAndToItsProvider) {
    book({.start = 810, .end = 860, .provider = QStringLiteral("OBRIEN"), .date = QDate(2026, 4, 2)});
    frmfinda form;
    form.show();
    (void)found(form);
    QTest::keyClick(form.ctList1, Qt::Key_Return);
    EXPECT_EQ(form.result(), QDialog::Accepted);
    ASSERT_TRUE(form.Found());
    EXPECT_EQ(form.Found()->date, QDate(2026, 4, 2));
    EXPECT_TRUE(form.ProviderChanged());
    EXPECT_EQ(Session().ProviderId, "OBRIEN");
    EXPECT_EQ(Session().ProviderName, "O'Brien");
}

TEST_F(FindInAllSchedules, GoingToAVisitOfTheShownProviderChangesNoProvider) {
    book({.provider = QStringLiteral("reed")});
    frmfinda form;
    (void)found(form);
    form.cmdgoto->click();
    EXPECT_FALSE(form.ProviderChanged());
    EXPECT_EQ(Session().ProviderId, "REED");
}

TEST_F(FindInAllSchedules, AVisitThatHasVanishedLeavesTheFormOpenAndTheProviderAsItWas) {
    book({.provider = QStringLiteral("OBRIEN")});
    frmfinda form;
    (void)found(form);
    run(QStringLiteral("Delete from appointments"));
    form.cmdgoto->click();
    EXPECT_FALSE(form.Found());
    EXPECT_EQ(Session().ProviderId, "REED");
    EXPECT_TRUE(form.lblcount->text().contains("not there any more"));
}

TEST_F(FindInAllSchedules, TheChoiceIsKeptForTheUserAlone) {
    {
        frmfinda form;
        form.ckall->setChecked(true);
    }
    EXPECT_TRUE(frmfinda().ckall->isChecked());
    Session().UID = QStringLiteral("OTHER");
    EXPECT_FALSE(frmfinda().ckall->isChecked());
    Session().UID = QStringLiteral("DESK");
    {
        frmfinda form;
        form.ckall->setChecked(false);
    }
    EXPECT_FALSE(frmfinda().ckall->isChecked());
}

TEST_F(FindInAllSchedules, WhoMaySeeOneScheduleCannotChooseItAndReadsWhy) {
    {
        frmfinda form;
        form.ckall->setChecked(true);
    }
    Session().AllProviders = false;
    const frmfinda form;
    EXPECT_FALSE(form.ckall->isEnabled());
    EXPECT_FALSE(form.ckall->isChecked());
    EXPECT_EQ(form.ckall->toolTip(), "Your access covers only your own schedule.");
    EXPECT_EQ(form.ckall->accessibleDescription(), form.ckall->toolTip());
}

TEST_F(FindInAllSchedules, ChangingTheTickSearchesAnew) {
    book({});
    book({.provider = QStringLiteral("OBRIEN")});
    frmfinda form;
    EXPECT_EQ(found(form).size(), 2);
    form.ckall->click();
    EXPECT_EQ(form.ctList1->RowCount(), 1);
    EXPECT_EQ(form.lblcount->text(), "1 appointment");
    form.ckall->click();
    EXPECT_EQ(form.ctList1->RowCount(), 2);
    EXPECT_TRUE(form.cmdgoto->isEnabled());
}

TEST_F(FindInAllSchedules, OneLetterFindsTheTextsAndTheMembersThatBeginWithIt) {
    book({.text = QStringLiteral("Major, Jo")});
    const qint64 key = book({.text = QStringLiteral("Group"), .code = 0xC0C000});
    member(key, "Jones, Mary");
    frmfinda form;
    EXPECT_EQ(found(form, "J").size(), 1);
    EXPECT_EQ(description(form), "Group: Jones, Mary");
}

TEST_F(FindInAllSchedules, SignsOfStatementsAreSearchedForAsTheyStand) {
    book({.text = QStringLiteral("O'Brien 100%")});
    book({.text = QStringLiteral("plain")});
    frmfinda form;
    EXPECT_EQ(found(form, "o'b").size(), 1);
    EXPECT_EQ(found(form, "0%").size(), 1);
}

TEST_F(FindInAllSchedules, ThePrintedTableHasTheProvidersToo) {
    book({.provider = QStringLiteral("OBRIEN")});
    frmfinda form;
    (void)found(form);
    desk.expectForm("frmpreview", [](QDialog& preview) {
        const printing::Document& document = preview.findChild<PrintPreview*>()->Document();
        const auto& table = std::get<printing::Table>(document.blocks.at(0));
        EXPECT_EQ(table.titles, (QStringList{"Description", "Provider", "Date", "Start", "End", "Location", "Status"}));
        EXPECT_EQ(table.rows.at(0),
                  (QStringList{"Jones, Mary", "O'Brien", "03/11/2026", "9:00 AM", "10:00 AM", "", "Pending"}));
    });
    form.cmdprint->click();
}

TEST_F(FindInAllSchedules, OfTooManyTheNearestAreListedAndTheCountSaysSo) {
    run(db::Sql(
        "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values ('2026/03/12', 540, 600, 'Jones', 16711681, 'REED')"));
    for (int doubled = 0; doubled < 11; ++doubled)
        run(QStringLiteral(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Select dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid from appointments"));
    frmfinda form;
    EXPECT_EQ(found(form).size(), frmfinda::MostListed);
    EXPECT_EQ(form.lblcount->text(), "The nearest 2,000 of 2,048 appointments. Type more of the text.");
}

TEST_F(FindInAllSchedules, AFailureIsTold) {
    frmfinda form;
    form.ckall->setChecked(true);
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error finding appointments. ") + why, QStringLiteral("Error"));
    (void)found(form);
}
