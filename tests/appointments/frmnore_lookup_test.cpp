#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <utility>

#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "tests/appointments/patientlookup.h"

namespace {

const QString NotInDatabase =
    QStringLiteral("Name entered is not in database. Use lookup, try again, or add New Patient.");

}  // namespace

TEST_F(PatientLookUp, ALetterCompletesTheFirstNameAndSelectsWhatWasNotTyped) {
    const QLineEdit& box = typed("j");
    EXPECT_EQ(box.text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(box.selectedText(), QStringLiteral("ones, Mary"));
    EXPECT_EQ(box.cursorPosition(), 1);
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10017"));
}

TEST_F(PatientLookUp, TheNextLetterReplacesTheCompletion) {
    EXPECT_EQ(typed("jor").text(), QStringLiteral("Jordan, Ed L."));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10020"));
}

TEST_F(PatientLookUp, TheWholeNameCanBeTypedThroughCommaAndBlank) {
    const QLineEdit& box = typed("jones, ma");
    EXPECT_EQ(box.text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(box.selectedText(), QStringLiteral("ry"));
}

TEST_F(PatientLookUp, WhatIsKnownOfThePatientIsShown) {
    typed("jon");
    EXPECT_EQ(form->txtaccount->text(), QStringLiteral("A-17"));
    EXPECT_EQ(form->lblHPhone->text(), QStringLiteral("(555) 123-4567"));
    EXPECT_EQ(form->lblwphone->text(), QStringLiteral("(555) 987-6543"));
    EXPECT_EQ(form->lblcphone->text(), QStringLiteral("(555) 000-1111"));
    EXPECT_EQ(form->lblemail->text(), QStringLiteral("mary@example.org"));
    EXPECT_EQ(form->cbocpt->Text(), QStringLiteral("90791  Evaluation"));
}

TEST_F(PatientLookUp, AnApostropheLooksUpCorrectly) {
    EXPECT_EQ(typed("o'n").text(), QStringLiteral("O'Neil, Zoë"));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10018"));
}

TEST_F(PatientLookUp, AccentsAreTypedLikeAnyLetter) {
    EXPECT_EQ(typed("O'Neil, Zoë").text(), QStringLiteral("O'Neil, Zoë"));
    EXPECT_FALSE(form->txtpatients->hasSelectedText());
}

TEST_F(PatientLookUp, SignsOfAPatternStandForThemselves) {
    for (const char* sign : {"%", "_", "[", "[a-z]"}) {
        EXPECT_EQ(typed(sign).text(), QString::fromUtf8(sign));
        EXPECT_EQ(form->PatientTag(), QString()) << sign;
    }
    person("10030", "100% Sure", "Sam");
    EXPECT_EQ(typed("100%").text(), QStringLiteral("100% Sure, Sam"));
}

TEST_F(PatientLookUp, ALetterThatMatchesNobodyStaysAndEmptiesTheFacts) {
    const QLineEdit& box = typed("jonx");
    EXPECT_EQ(box.text(), QStringLiteral("Jonx"));
    EXPECT_EQ(form->PatientTag(), QString());
    for (const QLabel* fact : {form->lblHPhone, form->lblwphone, form->lblcphone, form->lblemail})
        EXPECT_EQ(fact->text(), QString());
    EXPECT_EQ(form->txtaccount->text(), QString());
    EXPECT_EQ(form->cbocpt->Text(), QString());
}

TEST_F(PatientLookUp, LeavingTheBoxWithAnUnknownNameTellsSoAndComesBack) {
    typed("jonx");
    desk.expectBox(NotInDatabase, QStringLiteral("Solvane"));
    leave();
    EXPECT_EQ(form->txtpatients->text(), QString());
    EXPECT_TRUE(form->txtpatients->hasFocus());
}

TEST_F(PatientLookUp, LeavingTheEmptyBoxSaysNothing) {
    typed("");
    leave();
    EXPECT_TRUE(form->ctstart->hasFocus());
}

TEST_F(PatientLookUp, BackspaceTakesTheCompletionAwayAndChoosesNobody) {
    QLineEdit& box = typed("jon");
    press(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), QStringLiteral("Jon"));
    EXPECT_EQ(form->PatientTag(), QString());
    press(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), QStringLiteral("Jo"));
    QTest::keyClicks(&box, QStringLiteral("r"));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10020"));
}

TEST_F(PatientLookUp, APastedNameIsLookedUpToo) {
    QLineEdit& box = typed("");
    QApplication::clipboard()->setText(QStringLiteral("Jordan, Ed"));
    press(&box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10020"));
    EXPECT_EQ(box.text(), QStringLiteral("Jordan, Ed L."));
}

TEST_F(PatientLookUp, WhatAnInputMethodComposesIsLookedUpToo) {
    QLineEdit& box = typed("");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("O'Neil, Zoë"));
    QApplication::sendEvent(&box, &composed);
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10018"));
}

TEST_F(PatientLookUp, WithTheCaretInTheMiddleWhatStandsLeftOfItCounts) {
    QLineEdit& box = typed("jonx");
    box.setCursorPosition(2);
    QTest::keyClicks(&box, QStringLiteral("r"));
    EXPECT_EQ(box.text(), QStringLiteral("Jordan, Ed L."));
    EXPECT_EQ(box.selectedText(), QStringLiteral("dan, Ed L."));
}

TEST_F(PatientLookUp, AnEmojiIsNobodysName) {
    EXPECT_EQ(typed("😀").text(), QStringLiteral("😀"));
    EXPECT_EQ(form->PatientTag(), QString());
}

TEST_F(PatientLookUp, AnArchivedPatientIsNotFound) {
    run("Update patient_info Set archive = 1 Where id = '10017'");
    EXPECT_EQ(typed("jon").text(), QStringLiteral("Jon"));
    EXPECT_EQ(form->PatientTag(), QString());
}

TEST_F(PatientLookUp, WithoutTheRightOnlyTheProvidersOwnAndGivenPatientsAreFound) {
    Session().AllProviders = false;
    run("Update patient_info Set provider_id = 'REED' Where id = '10020'");
    run("Insert Into incident_hx (patient_id, incident_nbr) Values ('10020', 1)");
    run("Insert Into incident_hx (patient_id, incident_nbr) Values ('10021', 1)");
    EXPECT_EQ(typed("jones").text(), QStringLiteral("Jones"));
    EXPECT_EQ(form->PatientTag(), QString());
    EXPECT_EQ(typed("jordan, e").text(), QStringLiteral("Jordan, Ed L."));
    EXPECT_EQ(typed("smi").text(), QStringLiteral("smi"));
    run("Insert Into patientaccess (patientid, providerid) Values ('10021', 'REED')");
    EXPECT_EQ(typed("smi").text(), QStringLiteral("Smith, Zed"));
    // Those of other providers are found by their last name alone.
    EXPECT_EQ(typed("smith,").text(), QStringLiteral("Smith,"));
    EXPECT_EQ(form->PatientTag(), QString());
}

TEST_F(PatientLookUp, APatientOfAnExistingAppointmentCannotBeChangedByTyping) {
    const int key = savedPatientAppointment();
    openRow(key, 1);
    QTest::keyClicks(form->txtpatients, QStringLiteral("jor"));
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Jones, Mary"));
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10017"));
}

TEST_F(PatientLookUp, LeavingTheBoxShowsThePatientsAlertOnceForAChoice) {
    alert("10017", "Owes two co-payments");
    typed("jon");
    desk.expectForm("frmAlert", [](QDialog& shown) {
        EXPECT_EQ(shown.findChild<QLabel*>(QStringLiteral("lblalert"))->text(), QStringLiteral("Owes two co-payments"));
    });
    leave();
    form->txtpatients->setFocus();
    leave();
}

TEST_F(PatientLookUp, TheAlertIsShownTooWhenOkComesStraightFromTheBox) {
    alert("10017", "Owes two co-payments");
    QLineEdit& box = typed("jon");
    desk.expectForm("frmAlert", [](QDialog&) {});
    press(&box, Qt::Key_Return);
    EXPECT_EQ(rowCount("appointments"), 1);
}

TEST_F(PatientLookUp, TheAuthorizationIsToldOnceTheChoiceStands) {
    typed("jon");
    EXPECT_EQ(form->lblAuthorization->text(), QString());
    leave();
    EXPECT_EQ(form->lblAuthorization->text(), QStringLiteral("No current active authorizations found for patient."));
}

TEST_F(PatientLookUp, AnUnknownNameStandsInNobodysWayWhenTheFormIsGivenUp) {
    typed("jonx");
    form->cmdCancel->setFocus();
    letQueuedWorkRun();
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Jonx"));
    form->cmdCancel->click();
    letQueuedWorkRun();
    EXPECT_FALSE(form->isVisible());

    QLineEdit& box = typed("jonx");
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("New Appointment"),
                   Answer::Yes);
    press(&box, Qt::Key_Escape);
    letQueuedWorkRun();
    EXPECT_FALSE(form->isVisible());
}

TEST_F(PatientLookUp, TheWholeOfABookingGoesByTheKeyboard) {
    QLineEdit& box = typed("o'n");
    press(&box, Qt::Key_Return);
    EXPECT_EQ(column("cappttext", newestKey()), QStringLiteral("O'Neil, Zoë"));
    EXPECT_EQ(column("patientid", newestKey()), QStringLiteral("10018"));
}

TEST_F(PatientLookUp, OnASlowLineTheLettersThatCameInTheMeantimeAreLookedUpTogether) {
    const auto everyLookUpIsSlow = std::exchange(frmnore::QuickLookUp, -1);
    QLineEdit& box = typed("j");
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10017"));
    strike(box, QStringLiteral("or"));
    EXPECT_EQ(box.text(), QStringLiteral("Jor"));
    EXPECT_EQ(form->PatientTag(), QString());
    letQueuedWorkRun();
    EXPECT_EQ(box.text(), QStringLiteral("Jordan, Ed L."));
    EXPECT_EQ(box.selectedText(), QStringLiteral("dan, Ed L."));

    // Enter and Backspace do not come before the letters.
    strike(box, QStringLiteral("d"));
    press(&box, Qt::Key_Backspace);
    EXPECT_EQ(box.text(), QStringLiteral("Jord"));
    strike(box, QStringLiteral("a"));
    press(&box, Qt::Key_Return);
    EXPECT_EQ(column("patientid", newestKey()), QStringLiteral("10020"));
    frmnore::QuickLookUp = everyLookUpIsSlow;
}

TEST_F(PatientLookUp, AFailingLookUpIsToldAndKeepsWhatWasTyped) {
    typed("");
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error reading patient list. ") + why, QStringLiteral("Error"));
    QTest::keyClicks(form->txtpatients, QStringLiteral("j"));
    EXPECT_EQ(form->txtpatients->text(), QStringLiteral("j"));
}
