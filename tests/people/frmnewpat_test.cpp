#include "people/frmnewpat.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QTest>

#include "people/addressedit.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctmedit.h"
#include "session/session.h"
#include "tests/people/newpatientfixture.h"

using NewPatientForm = NewPatientFixture;

namespace {

const QString ChangesMade = QStringLiteral("Changes made. Do you want to save?");
const QString SaveChanges = QStringLiteral("Save Changes");

QStringList fieldsByTab(frmnewpat& form) {
    QStringList names;
    form.txtlname->setFocus();
    for (int i = 0; i < 21; ++i) {
        names << form.focusWidget()->objectName();
        QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    }
    return names;
}

}  // namespace

TEST_F(NewPatientForm, IsCalledByThePracticesWordForAPatient) {
    const frmnewpat& form = open();
    EXPECT_EQ(form.windowTitle(), "Client Information");
    EXPECT_EQ(form.ckactive->text().remove('&'), "Active Client?");
}

TEST_F(NewPatientForm, SaysPatientWhereThePracticeHasNoWord) {
    Session().WordUsage.clear();
    EXPECT_EQ(open().windowTitle(), "Patient Information");
}

TEST_F(NewPatientForm, AWordWithAnAmpersandIsShownWhole) {
    Session().WordUsage = QStringLiteral("Guest & Client");
    const frmnewpat& form = open();
    EXPECT_EQ(form.windowTitle(), "Guest & Client Information");
    EXPECT_EQ(form.ckactive->text(), "Acti&ve Guest && Client?");
}

TEST_F(NewPatientForm, OffersTheActiveProvidersByNameAndNoneIsChosen) {
    const frmnewpat& form = open();
    ASSERT_EQ(form.cboprovider->count(), 2);
    EXPECT_EQ(form.cboprovider->itemText(0), "Abel");
    EXPECT_EQ(form.lstproviders->item(0)->text(), "ABEL");
    EXPECT_EQ(form.cboprovider->itemText(1), "Young");
    EXPECT_EQ(form.lstproviders->item(1)->text(), "YOUNG");
    EXPECT_EQ(form.cboprovider->currentIndex(), -1);
    EXPECT_FALSE(form.lstproviders->isVisible());
}

TEST_F(NewPatientForm, AFailingProviderListIsToldAndTheFormOpens) {
    desk.expectBox("Error loading provider list. " + DropTable(database.connection(), "provider_info"), "Error");
    EXPECT_EQ(open().cboprovider->count(), 0);
}

TEST_F(NewPatientForm, BeginsWithTodayAsTheInitialContactAnActivePatientAndOkDisabled) {
    const frmnewpat& form = open();
    EXPECT_EQ(form.txtdic->Date(), QDate(2026, 3, 11));
    EXPECT_TRUE(form.ckactive->isChecked());
    EXPECT_FALSE(form.cmdOk->isEnabled());
    EXPECT_EQ(form.focusWidget(), form.txtlname);
}

TEST_F(NewPatientForm, CallsTheAccountNumberAsTheFacesheetDoes) {
    EXPECT_EQ(open().lblid->text(), "Acct/ID #");
    sql("Insert Into facesheet (FacesheetId, facesheetitem) Values (2, 'Chart & Case')");
    const frmnewpat& form = open();
    EXPECT_EQ(form.lblid->text(), "Chart && Case");
    EXPECT_EQ(form.txtid->accessibleName(), "Chart & Case");
}

TEST_F(NewPatientForm, KeepsItsOwnLabelWhereTheFacesheetCannotBeRead) {
    sql("Drop Table facesheet");
    EXPECT_EQ(open().lblid->text(), "Acct/ID #");
}

TEST_F(NewPatientForm, TabVisitsTheFieldsInTheOrderOfAsking) {
    frmnewpat& form = open();
    fillRequired(form);
    EXPECT_EQ(fieldsByTab(form).join(' '),
              "txtlname txtfname txtmi txtsal txtdob cbosex txtssn txtid txtaddress txtcity txtstate txtzip txthphone "
              "txtwphone txtcphone txtemail cboprovider txtdic ckactive cmdOk cmdcancel");
    desk.expectBox(ChangesMade, SaveChanges, Answer::No);
    form.cmdcancel->click();
}

TEST_F(NewPatientForm, EveryAltKeyBelongsToOneField) {
    const frmnewpat& form = open();
    QStringList texts;
    for (const QLabel* label : form.findChildren<QLabel*>())
        texts << label->text();
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
        texts << button->text();
    QSet<QChar> keys;
    for (const QString& text : texts) {
        const qsizetype at = text.indexOf('&');
        if (at < 0)
            continue;
        const QChar key = text.at(at + 1).toLower();
        EXPECT_FALSE(keys.contains(key)) << text.toStdString();
        keys.insert(key);
    }
    EXPECT_GE(keys.size(), 17);
}

TEST_F(NewPatientForm, FitsASmallScreenAndItsButtonsStayInSight) {
    frmnewpat& form = open();
    form.resize(640 - 16, 400 - 56);
    QApplication::processEvents();
    EXPECT_LE(form.minimumSizeHint().width(), 624);
    EXPECT_LE(form.minimumSizeHint().height(), 344);
    EXPECT_EQ(form.size(), QSize(624, 344));
    EXPECT_TRUE(form.rect().contains(form.cmdOk->geometry().translated(form.cmdOk->parentWidget()->pos())));
    const auto* area = form.findChild<QScrollArea*>();
    EXPECT_LE(area->widget()->minimumSizeHint().width(), area->viewport()->width());
}

TEST_F(NewPatientForm, RequiredFieldsAreMarkedByASignAndForAScreenReader) {
    const frmnewpat& form = open();
    int marked = 0;
    for (const QLabel* label : form.findChildren<QLabel*>())
        if (label->buddy() != nullptr && label->text().endsWith(" *")) {
            EXPECT_EQ(label->buddy()->accessibleDescription(), "Required");
            ++marked;
        }
    EXPECT_EQ(marked, 5);
}

TEST_F(NewPatientForm, OneLineTellsWhatIsStillMissing) {
    frmnewpat& form = open();
    EXPECT_EQ(form.lblmissing->text(), "Still missing: last name, first name, date of birth, sex, provider.");
    type(form.txtlname, "Smith");
    type(form.cbosex, "M");
    EXPECT_EQ(form.lblmissing->text(), "Still missing: first name, date of birth, provider.");
    type(form.txtfname, "John");
    type(form.txtdob, "12/3/1980");
    EXPECT_FALSE(form.cmdOk->isEnabled());
    type(form.cboprovider, "A");
    EXPECT_EQ(form.lblmissing->text(), "");
    EXPECT_TRUE(form.cmdOk->isEnabled());
    type(form.txtfname, "   ");
    EXPECT_EQ(form.lblmissing->text(), "Still missing: first name.");
    EXPECT_FALSE(form.cmdOk->isEnabled());
}

TEST_F(NewPatientForm, OkStaysDisabledUntilTheDateOfBirthIsValid) {
    frmnewpat& form = open();
    fillRequired(form);
    form.txtdob->setFocus();
    form.txtdob->setText({});
    EXPECT_FALSE(form.cmdOk->isEnabled());
    QTest::keyClicks(form.txtdob, "2/3");
    QTest::keyClicks(form.txtdob, "0/19");
    EXPECT_FALSE(form.cmdOk->isEnabled());
    QTest::keyClicks(form.txtdob, "80");
    EXPECT_FALSE(form.cmdOk->isEnabled()) << "There is no February 30";
    form.txtdob->setText("2/28/1980");
    EXPECT_TRUE(form.cmdOk->isEnabled());
}

TEST_F(NewPatientForm, TheAgeStandsBesideTheDateOfBirth) {
    frmnewpat& form = open();
    type(form.txtdob, "3/10/1986");
    EXPECT_EQ(form.lblage->text(), "40");
    type(form.txtdob, "3/11/2026");
    EXPECT_EQ(form.lblage->text(), "0");
}

TEST_F(NewPatientForm, AnImpossibleDateOfBirthIsTakenOutWithTheReason) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtdob, "2/30/1980");
    EXPECT_EQ(form.txtdob->Text(), "");
    EXPECT_EQ(form.lblage->text(), "");
    EXPECT_EQ(form.lblmissing->text(), "The date of birth \"2/30/1980\" is not a date. Still missing: date of birth.");
    type(form.txtdob, "2/28/1980");
    EXPECT_EQ(form.lblmissing->text(), "");
}

TEST_F(NewPatientForm, ADateOfBirthAfterTodayIsTakenOutWithTheReason) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtdob, "3/12/2026");
    EXPECT_EQ(form.txtdob->Text(), "");
    EXPECT_EQ(form.lblage->text(), "");
    EXPECT_FALSE(form.cmdOk->isEnabled());
    EXPECT_EQ(form.lblmissing->text(), "The date of birth 03/12/2026 is after today. Still missing: date of birth.");
}

TEST_F(NewPatientForm, EnterInADateOfBirthAfterTodaySavesNothing) {
    frmnewpat& form = open();
    fillRequired(form);
    form.txtdob->setFocus();
    QTest::keyClick(form.txtdob, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(form.txtdob, "3/12/2026");
    QTest::keyClick(form.txtdob, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(patients(), 0);
}

TEST_F(NewPatientForm, ATwoDigitYearOfBirthIsNeverAheadOfToday) {
    frmnewpat& form = open();
    type(form.txtdob, "5/6/40");
    EXPECT_EQ(form.txtdob->Date(), QDate(1940, 5, 6));
    EXPECT_EQ(form.lblage->text(), "85");
}

TEST_F(NewPatientForm, DatesAreReadInTheOrderOfTheSystem) {
    Session().DateOrder = 1;
    frmnewpat& form = open();
    EXPECT_EQ(form.txtdic->Text(), "11/03/2026");
    type(form.txtdob, "25/12/1980");
    EXPECT_EQ(form.txtdob->Date(), QDate(1980, 12, 25));
}

TEST_F(NewPatientForm, WhatWillNotBeSavedIsTold) {
    frmnewpat& form = open();
    fillRequired(form);
    type(form.txtssn, "12345");
    EXPECT_EQ(form.lblmissing->text(), "The SSN is not complete and will not be saved.");
    type(form.txtssn, "123456789");
    EXPECT_EQ(form.txtssn->Text(), "123-45-6789");
    EXPECT_EQ(form.lblmissing->text(), "");
    type(form.txtdic, "99/99");
    EXPECT_EQ(form.lblmissing->text(), "The date of initial contact is not a date and will not be saved.");
    EXPECT_TRUE(form.cmdOk->isEnabled());
}

TEST_F(NewPatientForm, NoTextLongerThanItsColumnCanBePasted) {
    frmnewpat& form = open();
    QApplication::clipboard()->setText(QString(1000, 'x'));
    const QList<std::pair<QLineEdit*, int>> lengths{{form.txtlname, 100}, {form.txtfname, 100}, {form.txtmi, 10},
                                                    {form.txtsal, 20},    {form.txtid, 50},     {form.txtcity, 100},
                                                    {form.txtstate, 50},  {form.txtzip, 20},    {form.txthphone, 40},
                                                    {form.txtwphone, 40}, {form.txtssn, 20}};
    for (const auto& [field, length] : lengths) {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(field->text().size(), length) << field->objectName().toStdString();
        const auto* line = form.findChild<QLabel*>(QStringLiteral("lblkept"));
        ASSERT_NE(line, nullptr) << field->objectName().toStdString();
        EXPECT_EQ(line->text(), QStringLiteral("Kept %1 characters; more does not fit here.").arg(length));
    }
    QTest::keyClick(form.txtaddress, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form.txtaddress->StoredText().size(), 255);
}

TEST_F(NewPatientForm, EscapeWithoutAChangeClosesWithoutAQuestion) {
    frmnewpat& form = open();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(NewPatientForm, EscapeAfterAChangeAsksAndNoThrowsItAway) {
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox(ChangesMade, SaveChanges, Answer::No);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 0);
    EXPECT_EQ(form.NewPatientId(), std::nullopt);
}

TEST_F(NewPatientForm, TheWindowsButtonAsksTooAndYesSaves) {
    frmnewpat& form = open();
    fillRequired(form);
    desk.expectBox(ChangesMade, SaveChanges, Answer::Yes);
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 1);
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(NewPatientForm, YesToSavingWhatIsNotCompleteKeepsTheFormAndLeadsToTheField) {
    frmnewpat& form = open();
    type(form.txtlname, "Smith");
    desk.expectBox(ChangesMade, SaveChanges, Answer::Yes);
    desk.expectBox("Still missing: first name, date of birth, sex, provider.", "Client Information");
    form.cmdcancel->click();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.focusWidget(), form.txtfname);
    EXPECT_EQ(form.txtlname->text(), "Smith");
    EXPECT_EQ(patients(), 0);
}

TEST_F(NewPatientForm, ANameGivenByTheCallerCountsAsAChange) {
    frmnewpat& form = open();
    form.txtlname->setText("Smith");
    desk.expectBox(ChangesMade, SaveChanges, Answer::No);
    form.close();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(NewPatientForm, EnterInAFieldSavesOnceAllIsThere) {
    frmnewpat& form = open();
    type(form.txtlname, "Smith");
    QTest::keyClick(form.txtlname, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    fillRequired(form);
    QTest::keyClick(form.txtcity, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(patients(), 1);
}

TEST_F(NewPatientForm, MayGoWhileADateIsBeingTyped) {
    frmnewpat& form = open();
    form.txtdob->setFocus();
    QTest::keyClicks(form.txtdob, "1/2/");
    open();
    EXPECT_EQ(patients(), 0);
}
