#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include "appointments/durationlabel.h"
#include "appointments/frmalert.h"
#include "platform/controls/completingcombo.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/notefield.h"
#include "tests/appointments/editorfixture.h"
#include "tests/support/combohand.h"

using db::Sql;

namespace {

const QString NotFound = QStringLiteral("Item Not Found");
const QString UnknownLocation = QStringLiteral("Location is not on the list. Do you want to add it?");

class EditorFields : public EditorFixture {
  protected:
    int countWhere(const char* statement) { return static_cast<int>(database.number(QString::fromUtf8(statement))); }
};

}  // namespace

TEST_F(EditorFields, TabGoesThroughTheQuestionsInTheOrderInWhichTheyAreAsked) {
    Session().CurrentView = View::Week;
    openNew(1);
    QStringList way;
    for (int step = 0; step < 15; ++step) {
        way << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    const QString expected = QStringLiteral(
        "txtpatients txtaccount ctedate ctstart ctend cbocpt cboapttype cbolocation cborooms cmdrooms cbostatus txtnotes ckAlarm ckemail cmdOk");
    EXPECT_EQ(way.join(QLatin1Char(' ')), expected);
}

TEST_F(EditorFields, AServicePickedInTheListSetsTheEndAndGoesThere) {
    openNew(1);
    PickRow(*form->cbocpt, 2);
    EXPECT_EQ(form->cbocpt->Text(), QStringLiteral("90834  Psychotherapy"));
    EXPECT_EQ(form->ctend->Time(), 585);
    EXPECT_TRUE(form->ctend->hasFocus());
    EXPECT_EQ(form->lblduration->text(), QStringLiteral("45 min"));
}

TEST_F(EditorFields, ATypedServiceSetsTheEndOnTheWayToTheNextField) {
    openNew(1);
    type(form->cbocpt, QStringLiteral("90791"));
    EXPECT_EQ(form->ctend->Time(), 600);
    press(form->cbocpt, Qt::Key_Tab);
    EXPECT_EQ(form->ctend->Time(), 630);
    EXPECT_TRUE(form->cboapttype->hasFocus());
    EXPECT_EQ(form->lblduration->text(), QStringLiteral("1 h 30 min"));
}

TEST_F(EditorFields, AServiceOfNoLengthLeavesTheEnd) {
    openNew(1);
    PickRow(*form->cbocpt, 0);
    EXPECT_EQ(form->ctend->Time(), 600);
    EXPECT_TRUE(form->cbocpt->hasFocus());
}

TEST_F(EditorFields, AServiceLateInTheEveningEndsWithTheDay) {
    openNew(1);
    form->ctstart->setTime(1410);
    PickRow(*form->cbocpt, 1);
    EXPECT_EQ(form->ctend->Time(), 1440);
}

TEST_F(EditorFields, LoadingAServiceLeavesTheSavedEnd) {
    openRow(savedPatientAppointment(), 1);
    EXPECT_EQ(form->ctend->Time(), 600);
    form->cbocpt->setFocus();
    press(form->cbocpt, Qt::Key_Tab);
    EXPECT_EQ(form->ctend->Time(), 600);
    EXPECT_FALSE(form->dirty);
}

TEST_F(EditorFields, AllDayTakesTheHoursOfTheDay) {
    openNew(2);
    QTest::mouseClick(form->SSCheck1, Qt::LeftButton, {}, QPoint(8, form->SSCheck1->height() / 2));
    EXPECT_EQ(form->ctstart->Time(), Session().DayStartHour * 60);
    EXPECT_EQ(form->ctend->Time(), Session().DayEndHour * 60);
}

TEST_F(EditorFields, AnEndBeforeTheStartIsSaidBesideTheTimes) {
    openNew(1);
    type(form->ctend, QStringLiteral("8:30a"));
    EXPECT_EQ(form->lblduration->text(), QStringLiteral("ends before it starts"));
    type(form->ctend, QStringLiteral("no time"));
    EXPECT_EQ(form->lblduration->text(), QString());
}

TEST_F(EditorFields, TheArrowsMoveATimeByAMinuteAndADateByADay) {
    Session().CurrentView = View::Week;
    openNew(1);
    form->ctstart->setFocus();
    press(form->ctstart, Qt::Key_Up);
    EXPECT_EQ(form->ctstart->Time(), 541);
    form->ctstart->setTime(0);
    press(form->ctstart, Qt::Key_Down);
    EXPECT_EQ(form->ctstart->Time(), 0);
    form->ctend->setTime(1439);
    form->ctend->setFocus();
    press(form->ctend, Qt::Key_Up);
    EXPECT_EQ(form->ctend->Time(), 1439);
    form->ctedate->setFocus();
    press(form->ctedate, Qt::Key_Down);
    EXPECT_EQ(form->ctedate->Date(), day.addDays(-1));
}

TEST_F(EditorFields, AnImpossibleTimeIsFlaggedWithItsOwnTip) {
    openNew(1);
    type(form->ctstart, QStringLiteral("25:99"));
    press(form->ctstart, Qt::Key_Tab);
    EXPECT_EQ(form->ctstart->Text(), QStringLiteral("25:99"));
    EXPECT_FALSE(form->ctstart->ErrorTip().isEmpty());
}

TEST_F(EditorFields, CheckedInShowsTheCheckInAlertOfThePatient) {
    database.connection().Execute(
        "Insert Into Patient_Alerts (patient_id, alert_type, Status, alert) Values ('10017', 'Check-In', 1, 'Collect the form')");
    openRow(savedPatientAppointment(), 1);
    desk.expectForm("frmAlert", [](QDialog& alert) {
        EXPECT_EQ(static_cast<frmAlert&>(alert).lblalert->text(), QStringLiteral("Collect the form"));
    });
    PickRow(*form->cbostatus, 3);
    EXPECT_EQ(form->cbostatus->Text(), QStringLiteral("Checked-In"));
    PickRow(*form->cbostatus, 4);
    EXPECT_EQ(form->cbostatus->Text(), QStringLiteral("Kept"));
}

TEST_F(EditorFields, TheEMailBoxFindsTheAddress) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    EXPECT_TRUE(form->ckemail->isChecked());
}

TEST_F(EditorFields, APatientWithoutAnAddressGetsNoEMail) {
    openNew(1);
    choose(QStringLiteral("10018"), QStringLiteral("O'Neil, Zoë"));
    desk.expectBox(QStringLiteral("No e-mail address entered for this patient."), QStringLiteral("Solvane"));
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    EXPECT_FALSE(form->ckemail->isChecked());
}

TEST_F(EditorFields, AnAddressThatCannotBeReadSaysSo) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    const QString why = DropTable(database.connection(), QStringLiteral("Patient_info"));
    desk.expectBox(QStringLiteral("Error retrieving patient e-mail address. ") + why, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("No e-mail address entered for this patient."), QStringLiteral("Solvane"));
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    EXPECT_FALSE(form->ckemail->isChecked());
}

TEST_F(EditorFields, AnotherPatientIsNeverWrittenToAtTheFirstOnesAddress) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    QTest::keyClick(form->ckemail, Qt::Key_Space);
    desk.expectBox(QStringLiteral("No e-mail address entered for this patient."), QStringLiteral("Solvane"));
    choose(QStringLiteral("10018"), QStringLiteral("O'Neil, Zoë"));
    EXPECT_FALSE(form->ckemail->isChecked());
}

TEST_F(EditorFields, SeparatorsAreNotTakenInServiceLocationAndNote) {
    openNew(1);
    type(form->cbocpt, QStringLiteral("a;b|c"));
    EXPECT_EQ(form->cbocpt->Text(), QStringLiteral("abc"));
    type(form->cbolocation, QStringLiteral("x;y|z"));
    EXPECT_EQ(form->cbolocation->Text(), QStringLiteral("xyz"));
    desk.expectBox(UnknownLocation, NotFound, Answer::No);
    QApplication::clipboard()->setText(QStringLiteral("1;2|3"));
    form->txtnotes->setFocus();
    press(form->txtnotes, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->txtnotes->toPlainText(), QStringLiteral("123"));
}

TEST_F(EditorFields, APastedNameIsOneLine) {
    openNew(1);
    QApplication::clipboard()->setText(QStringLiteral("A-1\r\n7"));
    form->txtaccount->setFocus();
    press(form->txtaccount, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->txtaccount->text(), QStringLiteral("A-1 7"));
    form->txtaccount->clear();
    QApplication::clipboard()->setText(QString(80, u'1'));
    press(form->txtaccount, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->txtaccount->text().size(), 50);
}

TEST_F(EditorFields, TheWeekdayStandsBesideTheDate) {
    Session().CurrentView = View::Week;
    openNew(1);
    EXPECT_EQ(form->lblweekday->text(), QStringLiteral("Wednesday"));
    form->ctedate->setText(QStringLiteral("2/31/2026"));
    EXPECT_EQ(form->lblweekday->text(), QString());
}

TEST_F(EditorFields, NoMoreThanFiftyCharactersOfALocationCanBePasted) {
    openNew(1);
    QApplication::clipboard()->setText(QString(80, u'é'));
    form->cbolocation->setFocus();
    press(form->cbolocation, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->cbolocation->Text(), QString(50, u'é'));
    openNew(2);
    form->cboevents->setFocus();
    press(form->cboevents, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->cboevents->Text().size(), 50);
    openNew(3);
    form->cboavail->setFocus();
    press(form->cboavail, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form->cboavail->Text().size(), 50);
}

TEST_F(EditorFields, AnUnknownLocationIsOfferedToTheList) {
    openNew(1);
    type(form->cbolocation, QStringLiteral("Peter's Cafe "));
    desk.expectBox(UnknownLocation, NotFound, Answer::Yes);
    press(form->cbolocation, Qt::Key_Tab);
    EXPECT_EQ(countWhere("Select Count(*) from Locations Where Location = 'Peter''s Cafe'"), 1);
    EXPECT_GE(form->cbolocation->ListIndex(), 0);
}

TEST_F(EditorFields, AnUnknownLocationThatIsNotWantedOnTheListIsSavedAllTheSame) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    type(form->cbolocation, QStringLiteral("Attic"));
    desk.expectBox(UnknownLocation, NotFound, Answer::No);
    press(form->cbolocation, Qt::Key_Tab);
    EXPECT_EQ(countWhere("Select Count(*) from Locations"), 3);
    EXPECT_GE(form->cbolocation->FindExact(QStringLiteral("Attic")), 0);
    clickOk();
    EXPECT_EQ(column("CLOCATION", newestKey()), QStringLiteral("Attic"));
}

TEST_F(EditorFields, AnUnknownLocationIsAskedForOnce) {
    openNew(1);
    type(form->cbolocation, QStringLiteral("Attic"));
    desk.expectBox(UnknownLocation, NotFound, Answer::No);
    press(form->cbolocation, Qt::Key_Tab);
    form->cbolocation->setFocus();
    press(form->cbolocation, Qt::Key_Tab);
}

TEST_F(EditorFields, AKnownOrBlankLocationIsNotAskedFor) {
    openNew(1);
    type(form->cbolocation, QStringLiteral("ANNEX"));
    press(form->cbolocation, Qt::Key_Tab);
    type(form->cbolocation, QStringLiteral("   "));
    press(form->cbolocation, Qt::Key_Tab);
    EXPECT_EQ(countWhere("Select Count(*) from Locations"), 3);
}

TEST_F(EditorFields, AnUnknownEventAndBlockAreOfferedInTheirOwnWords) {
    openNew(2);
    type(form->cboevents, QStringLiteral("Fire drill"));
    desk.expectBox(QStringLiteral("Event is not on the list. Do you want to add it?"), NotFound, Answer::Yes);
    press(form->cboevents, Qt::Key_Tab);
    EXPECT_EQ(countWhere("Select Count(*) from Events Where Event = 'Fire drill'"), 1);
    openNew(3);
    type(form->cboavail, QStringLiteral("Dentist"));
    desk.expectBox(QStringLiteral("Item is not on the list. Do you want to add it?"), NotFound, Answer::Yes);
    press(form->cboavail, Qt::Key_Tab);
    EXPECT_EQ(countWhere("Select Count(*) from availability Where avail = 'Dentist'"), 1);
}

TEST_F(EditorFields, AnItemThatCannotBeAddedSaysSoAndStaysWithTheAppointment) {
    openNew(2);
    const QString why = database.refuse(QStringLiteral("Insert"), QStringLiteral("Events"));
    type(form->cboevents, QStringLiteral("Fire drill"));
    desk.expectBox(QStringLiteral("Event is not on the list. Do you want to add it?"), NotFound, Answer::Yes);
    desk.expectBox(QStringLiteral("Error adding item to database. ") + why, QStringLiteral("Error"));
    press(form->cboevents, Qt::Key_Tab);
    clickOk();
    EXPECT_EQ(column("cappttext", newestKey()), QStringLiteral("Fire drill"));
}

TEST_F(EditorFields, AClickOnOkIsNotLostToTheQuestionAboutTheLocation) {
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    type(form->cbolocation, QStringLiteral("Attic"));
    desk.expectBox(UnknownLocation, NotFound, Answer::No);
    clickOk();
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(column("CLOCATION", newestKey()), QStringLiteral("Attic"));
}

TEST_F(EditorFields, CancelAsksNothing) {
    openNew(1);
    type(form->cbolocation, QStringLiteral("Attic"));
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(EditorFields, EscapeGivesUpTheNewEntryAndItsSelection) {
    openNew(1);
    press(form->txtpatients, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(form->GivenUp());
    EXPECT_EQ(rowCount("appointments"), 0);
}

TEST_F(EditorFields, EscapeFromAnUnknownLocationAsksOnlyWhetherToGiveItUp) {
    openNew(1);
    type(form->cbolocation, QStringLiteral("Attic"));
    desk.expectBox(QStringLiteral("Close without saving what you have changed?"), QStringLiteral("New Appointment"),
                   Answer::Yes);
    press(form->cbolocation, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(EditorFields, AFormThatGoesWhileADateIsTypedGoesQuietly) {
    Session().CurrentView = View::Week;
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    type(form->ctedate, QStringLiteral("3/12/2026"));
    form.reset();
}

TEST_F(EditorFields, AnAuthorizationThatCannotBeReadIsToldOnceForADate) {
    Session().CurrentView = View::Week;
    openNew(1);
    choose(QStringLiteral("10017"), QStringLiteral("Jones, Mary"));
    desk.expectBox(QStringLiteral("Error retrieving patient authorization information. ") +
                       DropTable(database.connection(), QStringLiteral("authorizations")),
                   QStringLiteral("Error"));
    type(form->ctedate, QStringLiteral("3/12/2026"));
    press(form->ctedate, Qt::Key_Tab);
    form->ctedate->setFocus();
    press(form->ctedate, Qt::Key_Tab);
}

TEST_F(EditorFields, CancelGivesUpNoEntryThatExists) {
    openRow(savedPatientAppointment(), 1);
    QTest::mouseClick(form->cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(form->GivenUp());
}

TEST_F(EditorFields, EveryAltKeyIsTheOnlyOneOfItsKind) {
    for (int kind = 1; kind <= frmnore::KindCount; ++kind) {
        openNew(kind);
        QStringList letters;
        const auto collect = [&](const QString& text) {
            QString plain = text;
            plain.replace(QLatin1String("&&"), QString());
            if (const qsizetype mark = plain.indexOf(QLatin1Char('&')); mark >= 0)
                letters << plain.mid(mark + 1, 1).toUpper();
        };
        for (const QLabel* label : form->findChildren<QLabel*>())
            if (label->isVisible())
                collect(label->text());
        for (const QAbstractButton* button : form->findChildren<QAbstractButton*>())
            if (button->isVisible())
                collect(button->text());
        EXPECT_EQ(letters.removeDuplicates(), 0) << kind;
        EXPECT_GE(letters.size(), 7) << kind;
    }
}
