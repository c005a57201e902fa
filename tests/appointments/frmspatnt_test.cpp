#include "appointments/frmspatnt.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctlist.h"
#include "session/fillprogress.h"
#include "tests/appointments/editorfixture.h"

using db::Sql;

namespace {

class SelectPatient : public EditorFixture {
  protected:
    SelectPatient() {
        Session().AllProviders = true;
        Session().WordUsage = QStringLiteral("Client");
    }
    void people(int count) {
        db::Connection& connection = database.connection();
        connection.BeginTrans();
        for (int i = 0; i < count; ++i)
            connection.Execute(Sql("Insert Into patient_info (id, last_name, first_name) Values ('P{}', 'Adams', '{}')",
                                   i, QStringLiteral("%1").arg(i, 6, 10, QLatin1Char('0'))));
        connection.CommitTrans();
    }
};

}  // namespace

TEST_F(SelectPatient, ListsThePatientsByNameWithTheirNumbers) {
    const frmspatnt picker;
    EXPECT_EQ(picker.windowTitle(), QStringLiteral("Select Patient"));
    EXPECT_EQ(picker.ctList1->Header(1), QStringLiteral("Client"));
    ASSERT_EQ(picker.ctList1->RowCount(), 2);
    EXPECT_EQ(picker.ctList1->Cells(0).join(u';'),
              QStringLiteral("Jones, Mary;A-17;(555) 123-4567;(555) 987-6543;;;mary@example.org"));
    EXPECT_EQ(picker.pnlcount->text(), QStringLiteral("2 clients"));
    EXPECT_FALSE(picker.pnlprogress->isVisibleTo(&picker));
}

TEST_F(SelectPatient, TypingShowsOnlyTheNamesThatContainTheTextAndCountsThem) {
    people(300);
    frmspatnt picker;
    picker.show();
    QTest::keyClicks(picker.txtfind, QStringLiteral("jones"));
    EXPECT_EQ(picker.ctList1->ShownRowCount(), 1);
    EXPECT_TRUE(picker.ctList1->IsRowShown(picker.ctList1->FindItemData(QStringLiteral("10017"))));
    EXPECT_EQ(picker.pnlcount->text(), QStringLiteral("1 of 302 clients"));
    picker.txtfind->setText(QStringLiteral("nobody"));
    EXPECT_EQ(picker.pnlcount->text(), QStringLiteral("None of 302 clients"));
    picker.txtfind->clear();
    EXPECT_EQ(picker.pnlcount->text(), QStringLiteral("302 clients"));
    EXPECT_EQ(picker.ctList1->ShownRowCount(), 302);
}

TEST_F(SelectPatient, ALongListFillsWhileTheFormIsOpen) {
    people(5000);
    frmspatnt picker;
    picker.show();
    EXPECT_LT(picker.ctList1->RowCount(), 5002);
    EXPECT_TRUE(picker.pnlprogress->isVisible());
    EXPECT_GT(picker.pnlprogress->value(), 0);
    while (picker.pnlprogress->isVisible())
        QApplication::processEvents();
    EXPECT_EQ(picker.ctList1->RowCount(), 5002);
}

TEST_F(SelectPatient, ClosingWhileItFillsIsHarmless) {
    people(5000);
    auto picker = std::make_unique<frmspatnt>();
    picker->show();
    QApplication::processEvents();
    picker.reset();
    QApplication::processEvents();
}

TEST_F(SelectPatient, FindingLooksThroughTheWholeListEvenWhileItFills) {
    people(5000);
    frmspatnt picker;
    QTest::keyClicks(picker.txtfind, QStringLiteral("mary"));
    picker.cmdfind->click();
    EXPECT_EQ(picker.ctList1->Cell(picker.ctList1->SelectedRow(), 1), QStringLiteral("Jones, Mary"));
    EXPECT_TRUE(picker.cmdselect->isEnabled());
}

TEST_F(SelectPatient, ANameThatIsNotThereIsTold) {
    frmspatnt picker;
    EXPECT_FALSE(picker.cmdfind->isEnabled());
    QTest::keyClicks(picker.txtfind, QStringLiteral("nobody"));
    desk.expectBox(QStringLiteral("Name not found."), QStringLiteral("Find"));
    picker.cmdfind->click();
}

TEST_F(SelectPatient, EnterInTheFindBoxFindsAndTakesNobody) {
    frmspatnt picker;
    picker.show();
    for (const char* name : {"mary", "o'ne"}) {
        type(picker.txtfind, QString::fromLatin1(name));
        press(picker.txtfind, Qt::Key_Return);
        // Once more, with a row that is selected by now.
        picker.txtfind->setFocus();
        press(picker.txtfind, Qt::Key_Return);
        EXPECT_TRUE(picker.isVisible());
        EXPECT_EQ(picker.ChosenId(), QString());
    }
    EXPECT_EQ(picker.ctList1->Cell(picker.ctList1->SelectedRow(), 1), QStringLiteral("O'Neil, Zoë"));
}

TEST_F(SelectPatient, TheBirthDateStandsBesideTheName) {
    database.connection().Execute("Update patient_info Set birth_date = '1984/02/29' Where id = '10017'");
    const frmspatnt picker;
    EXPECT_EQ(picker.ctList1->Cell(0, 8), QStringLiteral("2/29/1984"));
    EXPECT_EQ(picker.ctList1->header()->visualIndex(7), 1);
}

TEST_F(SelectPatient, TheEditorTakesTheSelectedPatientOver) {
    openNew(1);
    desk.expectForm("frmspatnt", [](QDialog& dialog) {
        auto& picker = static_cast<frmspatnt&>(dialog);
        picker.ctList1->SelectRow(0);
        picker.cmdselect->click();
    });
    form->cmdPatientList->click();
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10017"));
    EXPECT_EQ(form->txtaccount->text(), QStringLiteral("A-17"));
}

TEST_F(SelectPatient, CancelChoosesNobody) {
    openNew(1);
    choose(QStringLiteral("10018"), QStringLiteral("O'Neil, Zoë"));
    desk.expectForm("frmspatnt", [](QDialog& dialog) {
        auto& picker = static_cast<frmspatnt&>(dialog);
        picker.ctList1->SelectRow(0);
        picker.cmdcancel->click();
        EXPECT_EQ(picker.ChosenId(), QString());
    });
    form->cmdPatientList->click();
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10018"));
}

TEST_F(SelectPatient, AFailureIsTold) {
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error loading patient list. ") + why, QStringLiteral("Error"));
    const frmspatnt picker;
    EXPECT_EQ(picker.ctList1->RowCount(), 0);
}
