#include <functional>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <utility>

#include "appointments/matchlist.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/controls/notefield.h"
#include "tests/appointments/patientlookup.h"

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
