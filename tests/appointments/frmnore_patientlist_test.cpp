#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <utility>

#include "people/frmnewpat.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "tests/appointments/patientlookup.h"

TEST_F(PatientLookUp, TheListOpensFilledAndEnterTakesAPatient) {
    typed("");
    form->cmdpatients->click();
    EXPECT_TRUE(form->pnlpatlist->isVisible());
    EXPECT_TRUE(form->ctList1->hasFocus());
    ASSERT_EQ(form->ctList1->RowCount(), 4);
    EXPECT_EQ(form->ctList1->Cell(0, 1), QStringLiteral("Jones, Mary"));
    QTest::keyClicks(form->ctList1, QStringLiteral("s"));
    press(form->ctList1, Qt::Key_Return);
    EXPECT_FALSE(form->pnlpatlist->isVisible());
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Smith, Zed"));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10021"));
}

TEST_F(PatientLookUp, TheListClosesByItsButtonAndByEscape) {
    typed("");
    form->cmdpatients->click();
    form->cmdpatients->click();
    EXPECT_FALSE(form->pnlpatlist->isVisible());
    EXPECT_TRUE(form->txtpatients->hasFocus());
    form->cmdpatients->click();
    press(form->ctList1, Qt::Key_Escape);
    EXPECT_FALSE(form->pnlpatlist->isVisible());
    EXPECT_TRUE(form->isVisible());
}

TEST_F(PatientLookUp, APartOfANameIsFoundOnTheList) {
    typed("");
    form->cmdpatients->click();
    EXPECT_FALSE(form->cmdfind->isEnabled());
    QTest::keyClicks(form->txtfind, QStringLiteral("NEIL"));
    form->cmdfind->click();
    EXPECT_EQ(form->ctList1->Cell(form->ctList1->SelectedRow(), 1), QStringLiteral("O'Neil, Zoë"));
    type(form->txtfind, QStringLiteral("nobody"));
    desk.expectBox(QStringLiteral("Name not found."), QStringLiteral("Find"));
    form->cmdfind->click();
}

TEST_F(PatientLookUp, TypingIntoTheFindBoxShowsOnlyTheNamesThatContainIt) {
    typed("");
    form->cmdpatients->click();
    EXPECT_EQ(form->lblcount->text(), QStringLiteral("4 patients"));
    QTest::keyClicks(form->txtfind, QStringLiteral("NEIL"));
    EXPECT_EQ(form->ctList1->ShownRowCount(), 1);
    EXPECT_EQ(form->lblcount->text(), QStringLiteral("1 of 4 patients"));
    form->txtfind->clear();
    EXPECT_EQ(form->ctList1->ShownRowCount(), 4);
}

TEST_F(PatientLookUp, TheTypedNameAndTheProviderGoToTheFormThatTheButtonOpens) {
    struct Handed {
        const char* typed;
        const char* last;
        const char* first;
    };
    for (const Handed& name :
         {Handed{"Young, Al", "Young", "Al"}, Handed{"Al Young", "Young", "Al"}, Handed{"Young", "Young", ""}}) {
        typed(name.typed);
        desk.expectForm("frmnewpat", [&](QDialog& dialog) {
            const auto& newPatient = static_cast<frmnewpat&>(dialog);
            EXPECT_EQ(newPatient.txtlname->text(), QLatin1String(name.last));
            EXPECT_EQ(newPatient.txtfname->text(), QLatin1String(name.first));
            EXPECT_EQ(newPatient.lstproviders->item(newPatient.cboprovider->currentIndex())->text(),
                      form->Request().provider.id);
            dialog.done(QDialog::Rejected);
        });
        form->cmdnewpat->click();
    }
}

TEST_F(PatientLookUp, EnterOnTheListsFindButtonFindsAndBooksNobody) {
    typed("jon");
    form->cmdpatients->click();
    form->txtfind->setText(QStringLiteral("smi"));
    form->cmdfind->setFocus();
    press(form->cmdfind, Qt::Key_Return);
    EXPECT_EQ(form->ctList1->Cell(form->ctList1->SelectedRow(), 1), QStringLiteral("Smith, Zed"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(PatientLookUp, EnterInTheListsFindBoxFindsAndBooksNobody) {
    typed("jon");
    form->cmdpatients->click();
    form->txtfind->setFocus();
    press(form->txtfind, Qt::Key_Return);
    EXPECT_TRUE(form->isVisible());
    QTest::keyClicks(form->txtfind, QStringLiteral("smi"));
    press(form->txtfind, Qt::Key_Return);
    EXPECT_TRUE(form->ctList1->hasFocus());
    EXPECT_EQ(form->ctList1->Cell(form->ctList1->SelectedRow(), 1), QStringLiteral("Smith, Zed"));
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(PatientLookUp, WhatWasLookedForInTheListIsNoChangeOfTheAppointment) {
    openNew(1);
    form->cmdpatients->click();
    QTest::keyClicks(form->txtfind, QStringLiteral("smi"));
    press(form->txtfind, Qt::Key_Escape);
    EXPECT_TRUE(form->isVisible());
    press(form->txtpatients, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());

    openNew(1);
    form->cmdpatients->click();
    QTest::keyClicks(form->txtfind, QStringLiteral("smi"));
    form->close();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PatientLookUp, TheCloseButtonAsksOnceAndClosesTheListWithTheForm) {
    typed("jon");
    form->cmdpatients->click();
    const QString question = QStringLiteral("Close without saving what you have changed?");
    desk.expectBox(question, QStringLiteral("New Appointment"), Answer::No);
    form->close();
    EXPECT_TRUE(form->isVisible());
    form->cmdpatients->click();
    desk.expectBox(question, QStringLiteral("New Appointment"), Answer::Yes);
    form->close();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PatientLookUp, NoKeyThatIsMeantForTheListSaves) {
    typed("jon");
    form->cmdpatients->click();
    form->ctList1->SelectRow(-1);
    const std::pair<QWidget*, QString> places[] = {{form->ctList1, QStringLiteral("list")},
                                                   {form->txtfind, QStringLiteral("find")}};
    for (const auto& [place, name] : places) {
        place->setFocus();
        press(place, Qt::Key_Return);
        press(place, Qt::Key_Enter, Qt::KeypadModifier);
        press(place, Qt::Key_Return, Qt::ControlModifier);
        press(place, Qt::Key_K, Qt::AltModifier);
        EXPECT_TRUE(form->isVisible()) << name.toStdString();
        EXPECT_TRUE(form->pnlpatlist->isVisible()) << name.toStdString();
    }
    EXPECT_EQ(rowCount("appointments"), 0);
    press(form->ctList1, Qt::Key_Escape);
    EXPECT_TRUE(form->cmdOk->isEnabled());
}

TEST_F(PatientLookUp, TheListStartsAtWhatWasTyped) {
    for (const auto& [text, name] :
         {std::pair{"jor", "Jordan, Ed L."}, std::pair{"o'x", "O'Neil, Zoë"}, std::pair{"", ""}}) {
        typed(text);
        form->cmdpatients->click();
        EXPECT_EQ(form->ctList1->Cell(form->ctList1->SelectedRow(), 1), QString::fromUtf8(name)) << text;
    }
}

TEST_F(PatientLookUp, WhatTellsNamesakesApartIsInSightInTheList) {
    namesakes();
    typed("brown");
    form->cmdpatients->click();
    const ctList& list = *form->ctList1;
    const int row = list.SelectedRow();
    EXPECT_EQ(list.Cell(row, 8), QStringLiteral("1/2/1950"));
    for (const int column : {1, 2, 3, 8}) {
        const QModelIndex cell = list.model()->index(row, column - 1);
        const QRect place = list.visualRect(cell);
        EXPECT_TRUE(list.viewport()->rect().contains(place)) << column;
        EXPECT_GE(place.width(), list.sizeHintForIndex(cell).width()) << column;
    }
    EXPECT_GE(list.columnWidth(0),
              list.fontMetrics().horizontalAdvance(QStringLiteral("Abramowitz, Alexandra K.")) + 8);
}

TEST_F(PatientLookUp, AListedPatientWhomAnotherUserDeletedIsTold) {
    typed("");
    form->cmdpatients->click();
    run("Delete from patient_info Where id = '10017'");
    desk.expectBox(QStringLiteral("Patient not found. Another user may have deleted this patient."),
                   QStringLiteral("Solvane"));
    form->ctList1->SelectRow(0);
    press(form->ctList1, Qt::Key_Return);
    EXPECT_EQ(form->PatientTag(), QString());
}

TEST_F(PatientLookUp, AListThatCannotBeReadIsTold) {
    typed("");
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error loading patient list. ") + why, QStringLiteral("Error"));
    form->cmdpatients->click();
    EXPECT_EQ(form->ctList1->RowCount(), 0);
}

TEST_F(PatientLookUp, ATypedNameIsHandedToTheFormForNewPatientsAndComesBackChosen) {
    struct Handed {
        const char* typed;
        const char* last;
        const char* first;
    };
    for (const Handed& name :
         {Handed{"Young, Al", "Young", "Al"}, Handed{"Al Young", "Young", "Al"}, Handed{"Young", "", ""}}) {
        typed(name.typed);
        desk.expectBox(QStringLiteral("Patient not found in database. Add patient now?"), QStringLiteral("Solvane"),
                       Answer::Yes);
        std::optional<QString> added;
        desk.expectForm("frmnewpat", [&](QDialog& dialog) {
            const auto& newPatient = static_cast<frmnewpat&>(dialog);
            EXPECT_EQ(newPatient.txtlname->text(), QLatin1String(name.last));
            EXPECT_EQ(newPatient.txtfname->text(), QLatin1String(name.first));
            newPatient.txtlname->setText(QStringLiteral("Youngman"));
            newPatient.txtfname->setText(QLatin1String(name.typed).left(2));
            newPatient.txtdob->setText(QStringLiteral("12/3/1980"));
            newPatient.cbosex->setCurrentIndex(0);
            newPatient.cboprovider->setCurrentIndex(0);
            newPatient.cmdOk->click();
            added = newPatient.NewPatientId();
        });
        clickOk();
        ASSERT_TRUE(added);
        EXPECT_EQ(form->PatientTag(), *added);
        EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Youngman, ") + QLatin1String(name.typed).left(2));
        EXPECT_TRUE(form->isVisible());
        run("Delete from patient_info Where last_name = 'Youngman'");
    }
}

TEST_F(PatientLookUp, WhoeverAddsNobodyIsShownTheList) {
    typed("Young, Al");
    desk.expectBox(QStringLiteral("Patient not found in database. Add patient now?"), QStringLiteral("Solvane"),
                   Answer::Yes);
    desk.expectForm("frmnewpat", [](QDialog& dialog) { dialog.done(QDialog::Rejected); });
    clickOk();
    EXPECT_TRUE(form->pnlpatlist->isVisible());
    EXPECT_EQ(form->focusWidget(), form->ctList1);
}

TEST_F(PatientLookUp, ARoomIsChosenFromTheRoomBrowser) {
    typed("jon");
    desk.expectForm("frmRoomView", [](QDialog& rooms) { rooms.setResult(QDialog::Rejected); });
    form->cmdrooms->click();
    EXPECT_EQ(form->cborooms->ListIndex(), -1);
}
