#include <array>
#include <functional>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <utility>

#include "appointments/matchlist.h"
#include "people/frmnewpat.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "tests/appointments/editorfixture.h"

using db::Sql;

namespace {

const QString NotInDatabase =
    QStringLiteral("Name entered is not in database. Use lookup, try again, or add New Patient.");

class PatientLookUp : public EditorFixture {
  protected:
    PatientLookUp() {
        Session().AllProviders = true;
        person("10020", "Jordan", "Ed", "L");
        person("10021", "Smith", "Zed");
        run("Update patient_info Set defaultCPT = '90791', Other_Phone = '5550001111', Other_Phone_Type = 'Cell' Where id = '10017'");
    }
    void person(const char* id, const char* last, const char* first, const char* initial = "") {
        database.connection().Execute(
            Sql("Insert Into patient_info (id, last_name, first_name, middle_init) Values ('{}', '{}', '{}', '{}')", id,
                last, first, initial));
    }
    void run(const char* statement) { database.connection().Execute(QString::fromUtf8(statement)); }
    /// Types into the patient box of a new patient appointment.
    QLineEdit& typed(const char* text) {
        QLineEdit& box = *openNew(1).txtpatients;
        box.setFocus();
        strike(box, QString::fromUtf8(text));
        return box;
    }
    /// Key by key, also the letters that no key of a plain keyboard gives.
    static void strike(QLineEdit& box, const QString& text) {
        for (const char32_t letter : text.toStdU32String()) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&letter, 1));
            QApplication::sendEvent(&box, &press);
        }
    }
    void alert(const char* patient, const char* text) {
        database.connection().Execute(Sql(
            "Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values ('{}', 'Appointment', 1, '{}')",
            patient, text));
    }
    /// Three namesakes beside the others.
    void namesakes() {
        for (const auto& [id, born, account] :
             {std::array{"10041", "1950/01/02", "B-1"}, std::array{"10042", "1991/11/30", "B-2"},
              std::array{"10043", "2004/07/09", "B-3"}})
            database.connection().Execute(Sql(
                "Insert Into patient_info (id, last_name, first_name, birth_date, acctnbr, telephone_h) Values ('{}', 'Brown', 'Ann', '{}', '{}', '5552{}')",
                id, born, account, id));
    }
    [[nodiscard]] bool matchesAppear() const {
        return QTest::qWaitFor([this] { return form->pnlmatches->isVisible(); });
    }
    /// The list of those who fit, each row's cells joined by " | ".
    [[nodiscard]] QStringList matches() const {
        QStringList rows;
        for (int row = 0; row < form->pnlmatches->lstmatches->RowCount(); ++row)
            rows << form->pnlmatches->lstmatches->Cells(row).join(QLatin1String(" | "));
        return rows;
    }
    static void letQueuedWorkRun() { QApplication::processEvents(); }
    void leave() {
        form->ctstart->setFocus();
        letQueuedWorkRun();
    }
};

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

TEST_F(PatientLookUp, SeveralWhoFitAreShownUnderTheFieldWithWhatTellsThemApart) {
    namesakes();
    typed("bro");
    ASSERT_TRUE(matchesAppear());
    EXPECT_EQ(matches(), QStringList({QStringLiteral("Brown, Ann | 1/2/1950 | B-1 | (555) 210-041"),
                                      QStringLiteral("Brown, Ann | 11/30/1991 | B-2 | (555) 210-042"),
                                      QStringLiteral("Brown, Ann | 7/9/2004 | B-3 | (555) 210-043")}));
    EXPECT_TRUE(form->txtpatients->hasFocus());
    EXPECT_TRUE(form->txtpatients->accessibleDescription().contains(QStringLiteral("1/2/1950")));
}

TEST_F(PatientLookUp, EnterTakesTheMarkedNamesakeAndOnlyTheNextOneSaves) {
    namesakes();
    QLineEdit& box = typed("bro");
    ASSERT_TRUE(matchesAppear());
    press(&box, Qt::Key_Down);
    press(&box, Qt::Key_Return);
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10042"));
    EXPECT_EQ(form->txtaccount->text(), QStringLiteral("B-2"));
    EXPECT_FALSE(form->pnlmatches->isVisible());
    EXPECT_EQ(rowCount("appointments"), 0);
    press(&box, Qt::Key_Return);
    EXPECT_EQ(column("patientid", newestKey()), QStringLiteral("10042"));
}

TEST_F(PatientLookUp, EnterRightBehindTheLettersShowsTheNamesakesInsteadOfSavingTheFirst) {
    namesakes();
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ControlModifier}) {
        QLineEdit& box = typed("bro");
        press(&box, Qt::Key_Return, modifier);
        EXPECT_TRUE(form->pnlmatches->isVisible());
        EXPECT_EQ(rowCount("appointments"), 0);
    }
}

TEST_F(PatientLookUp, ANamesakeIsTakenByTheMouseToo) {
    namesakes();
    typed("bro");
    ASSERT_TRUE(matchesAppear());
    const ctList& list = *form->pnlmatches->lstmatches;
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(2, 0)).center());
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10043"));
    EXPECT_TRUE(form->txtpatients->hasFocus());
}

TEST_F(PatientLookUp, TabTakesTheMarkedNamesakeAlong) {
    namesakes();
    QLineEdit& box = typed("bro");
    ASSERT_TRUE(matchesAppear());
    press(&box, Qt::Key_PageDown);
    press(&box, Qt::Key_Tab);
    letQueuedWorkRun();
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10043"));
    EXPECT_FALSE(box.hasFocus());
    EXPECT_FALSE(form->pnlmatches->isVisible());
}

TEST_F(PatientLookUp, TheMarkedNamesakeIsTakenByEveryWayOutOfTheBox) {
    namesakes();
    const std::pair<const char*, std::function<void(QLineEdit&)>> ways[] = {
        {"Backtab", [](QLineEdit& box) { press(&box, Qt::Key_Backtab); }},
        {"a click into another field",
         [this](QLineEdit&) {
             QTest::mouseClick(form->txtnotes->viewport(), Qt::LeftButton);
             form->txtnotes->setFocus(Qt::MouseFocusReason);
         }},
        {"another field's letter", [this](QLineEdit&) { form->ctstart->setFocus(Qt::ShortcutFocusReason); }}};
    for (const auto& [name, leaveBox] : ways) {
        QLineEdit& box = typed("bro");
        ASSERT_TRUE(matchesAppear());
        press(&box, Qt::Key_Down);
        leaveBox(box);
        letQueuedWorkRun();
        EXPECT_EQ(form->PatientTag(), QStringLiteral("10042")) << name;
        EXPECT_FALSE(box.hasFocus()) << name;
        EXPECT_FALSE(form->pnlmatches->isVisible()) << name;
    }
}

TEST_F(PatientLookUp, TheMarkedNamesakeIsSavedByAClickOnOkAndByItsLetter) {
    namesakes();
    alert("10042", "Owes two co-payments");
    QLineEdit* box = &typed("bro");
    ASSERT_TRUE(matchesAppear());
    press(box, Qt::Key_Down);
    desk.expectForm("frmAlert", [](QDialog&) {});
    clickOk();
    EXPECT_EQ(column("patientid", newestKey()), QStringLiteral("10042"));
    EXPECT_FALSE(form->isVisible());

    // By the letter as by Enter: the first one takes, the next one saves.
    run("Delete from appointments");
    box = &typed("bro");
    ASSERT_TRUE(matchesAppear());
    press(box, Qt::Key_PageDown);
    press(box, Qt::Key_K, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->PatientTag() == QStringLiteral("10043"); }));
    EXPECT_EQ(rowCount("appointments"), 0);
    press(box, Qt::Key_K, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form->isVisible(); }));
    EXPECT_EQ(column("patientid", newestKey()), QStringLiteral("10043"));
}

TEST_F(PatientLookUp, WhoeverLeavesTheBoxBeforeTheNamesakesCameSeesThemFirst) {
    namesakes();
    const std::pair<const char*, std::function<void(QLineEdit&)>> ways[] = {
        {"Tab", [](QLineEdit& box) { press(&box, Qt::Key_Tab); }},
        {"Backtab", [](QLineEdit& box) { press(&box, Qt::Key_Backtab); }},
        {"OK's letter", [this](QLineEdit&) { form->cmdOk->click(); }},
        {"a click on OK", [this](QLineEdit&) { clickOk(); }},
        {"a click into another field", [this](QLineEdit&) { form->ctstart->setFocus(Qt::MouseFocusReason); }}};
    for (const auto& [name, leaveBox] : ways) {
        QLineEdit& box = typed("bro");
        leaveBox(box);
        letQueuedWorkRun();
        EXPECT_TRUE(form->pnlmatches->isVisible()) << name;
        EXPECT_TRUE(box.hasFocus()) << name;
        EXPECT_EQ(rowCount("appointments"), 0) << name;
    }
}

TEST_F(PatientLookUp, AMarkedNamesakeWhoCannotBeReadLeavesNobodyElseChosenInHisPlace) {
    namesakes();
    QLineEdit& box = typed("bro");
    ASSERT_TRUE(matchesAppear());
    press(&box, Qt::Key_Down);
    run("Delete from patient_info Where id = '10042'");
    desk.expectBox(QStringLiteral("Patient not found. Another user may have deleted this patient."),
                   QStringLiteral("Solvane"));
    clickOk();
    letQueuedWorkRun();
    EXPECT_EQ(rowCount("appointments"), 0);
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->pnlmatches->isVisible());
}

TEST_F(PatientLookUp, EscapeFirstClosesTheListOfThoseWhoFit) {
    namesakes();
    QLineEdit& box = typed("bro");
    ASSERT_TRUE(matchesAppear());
    press(&box, Qt::Key_Escape);
    EXPECT_FALSE(form->pnlmatches->isVisible());
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ(form->PatientTag(), QStringLiteral("10041"));
}

TEST_F(PatientLookUp, OneWhoFitsIsShownInTheFieldAlone) {
    namesakes();
    QLineEdit& box = typed("smi");
    EXPECT_FALSE(form->pnlmatches->Ask());
    press(&box, Qt::Key_Return);
    EXPECT_EQ(column("patientid", newestKey()), QStringLiteral("10021"));
}

TEST_F(PatientLookUp, MoreThanTheListHoldsIsTold) {
    for (int i = 0; i < 60; ++i)
        person(qPrintable(QStringLiteral("C%1").arg(i)), "Crowd", qPrintable(QStringLiteral("A%1").arg(i, 2)));
    typed("crowd");
    ASSERT_TRUE(matchesAppear());
    EXPECT_EQ(matches().size(), 50);
    EXPECT_EQ(form->pnlmatches->lblmore->text(), QStringLiteral("More than 50 fit. Type more of the name."));
    EXPECT_TRUE(form->pnlmatches->lblmore->isVisible());
}

TEST_F(PatientLookUp, TheNameIsFoundAsTheFormItselfShowsIt) {
    person("10050", "Jordan", "Ed", "M");
    person("10051", "Jordan", "Ed");
    for (const auto& [text, id] : {std::pair{"Jordan, Ed L.", "10020"}, std::pair{"jordan, ed l", "10020"},
                                   std::pair{"Jordan, Ed M.", "10050"}, std::pair{"Jordan, Ed X.", ""}}) {
        typed(text);
        EXPECT_EQ(form->PatientTag(), QLatin1String(id)) << text;
    }
}

TEST_F(PatientLookUp, AFirstNameThatBeginsLikeAnInitialHidesNobody) {
    person("10052", "Gray", "Mary Ann");
    person("10053", "Gray", "Mary", "A");
    typed("gray, mary a");
    ASSERT_TRUE(matchesAppear());
    EXPECT_EQ(matches(),
              QStringList({QStringLiteral("Gray, Mary A. |  |  | "), QStringLiteral("Gray, Mary Ann |  |  | ")}));
}

TEST_F(PatientLookUp, WithoutTheRightTheListHoldsNoMoreThanTheLookUpFinds) {
    namesakes();
    Session().AllProviders = false;
    run("Update patient_info Set provider_id = 'REED' Where id = '10041'");
    run("Insert Into incident_hx (patient_id, incident_nbr) Values ('10041', 1)");
    run("Insert Into incident_hx (patient_id, incident_nbr) Values ('10042', 1)");
    run("Insert Into incident_hx (patient_id, incident_nbr) Values ('10043', 1)");
    run("Insert Into patientaccess (patientid, providerid) Values ('10043', 'REED')");
    typed("bro");
    ASSERT_TRUE(matchesAppear());
    EXPECT_EQ(matches(), QStringList({QStringLiteral("Brown, Ann | 1/2/1950 | B-1 | (555) 210-041"),
                                      QStringLiteral("Brown, Ann | 7/9/2004 | B-3 | (555) 210-043")}));
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
        desk.expectForm("frmnewpat", [&](QDialog& dialog) {
            const auto& newPatient = static_cast<frmnewpat&>(dialog);
            EXPECT_EQ(newPatient.txtlname->text(), QLatin1String(name.last));
            EXPECT_EQ(newPatient.txtfname->text(), QLatin1String(name.first));
            Session().NewPatientId = QStringLiteral("10021");
            dialog.done(QDialog::Accepted);
        });
        clickOk();
        EXPECT_EQ(form->PatientTag(), QStringLiteral("10021"));
        EXPECT_EQ(form->txtpatients->text(), QStringLiteral("Smith, Zed"));
        EXPECT_TRUE(form->isVisible());
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
