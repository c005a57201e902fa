#include "search/frmnextfree.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include "appointments/frmspatnt.h"
#include "appointments/matchlist.h"
#include "people/typelengths.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "shell/providerpanel.h"
#include "tests/search/searchfixture.h"

namespace {

/// The form that books a caller into the next free hour.
class NextFreeHour : public SearchFixture {
  protected:
    NextFreeHour() {
        Session().AllProviders = true;
        Session().WordUsage = QStringLiteral("Patient");
        Session().UID = QStringLiteral("REED");
        patient("10017", "O'Brien", "Anna", "90834");
        patient("10018", "Jones", "Mary", "");
        run(QStringLiteral(
            "Insert Into session_types (sess_cpt_code, sess_cpt_name, sess_cpt_time) Values ('90834', 'Psychotherapy', 45)"));
        run(QStringLiteral("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', 8438015)"));
        type_ = static_cast<int>(database.connection().LastIdentity());
    }
    void patient(const char* id, const char* last, const char* first, const char* cpt) {
        run(db::Sql(
            "Insert Into patient_info (id, last_name, first_name, archive, defaultCPT, telephone_h) Values ('{}', '{}', '{}', 0, '{}', '5551234567')",
            id, last, first, cpt));
    }
    frmnextfree& open(const NextFreeRequest& request = {{QStringLiteral("REED"), QStringLiteral("Reed")}, {}, false}) {
        form_ = std::make_unique<frmnextfree>(request);
        form_->show();
        form_->activateWindow();
        settle();
        return *form_;
    }
    /// The search has gone on to its end.
    static void settle() {
        for (int i = 0; i < 60; ++i)
            QCoreApplication::processEvents();
    }
    QString row(int index) { return form_->ctList1->Cells(index).join(u';'); }
    void type(const QString& text) { QTest::keyClicks(form_->txtpatients, text); }
    void altB(const std::function<void()>& meanwhile = [] {}) {
        QSignalSpy clicked(form_->cmdbook, &QPushButton::clicked);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_B, Qt::AltModifier);
        meanwhile();
        EXPECT_TRUE(clicked.count() > 0 || clicked.wait());
    }
    void enter() { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }

    int type_ = 0;
    std::unique_ptr<frmnextfree> form_;
};

}  // namespace

TEST_F(NextFreeHour, ShowsTheOpeningsOfThisProviderAtOnce) {
    book({.start = 540, .end = 600});
    open();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;10:00 AM;10:15 AM;Reed;"));
    EXPECT_EQ(form_->ctList1->SelectedRow(), 0);
    EXPECT_EQ(form_->ctList1->RowCount(), frmnextfree::MostRows);
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("The first 100 openings."));
    EXPECT_TRUE(form_->txtpatients->hasFocus());
}

TEST_F(NextFreeHour, TheDatesHaveTheOrderOfTheCountryInEnglishNames) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    open();
    QLocale::setDefault(before);
    EXPECT_TRUE(row(0).startsWith(QStringLiteral("Wed, 11 Mar 2026;"))) << row(0).toStdString();
}

TEST_F(NextFreeHour, ANameAndTwiceEnterChoosesTheNextOpening) {
    open();
    type(QStringLiteral("o'b"));
    enter();
    EXPECT_TRUE(form_->ctList1->hasFocus());
    EXPECT_EQ(form_->txtpatients->text(), QStringLiteral("O'Brien, Anna"));
    EXPECT_EQ(form_->txtlength->value(), 45) << "the length of the patient's usual service";
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:45 AM;Reed;"));
    enter();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->result(), QDialog::Accepted);
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10017"));
    EXPECT_EQ(form_->Found()->opening.Slot(), (SelectedSlot{day, 540, 585}));
    EXPECT_EQ(form_->Found()->opening.provider.id, QStringLiteral("REED"));
}

TEST_F(NextFreeHour, ACallerWhomNobodyKnowsIsHandedOnByTheName) {
    open();
    type(QStringLiteral("Novak, Eva"));
    enter();
    EXPECT_EQ(form_->lblpatient->text(),
              QStringLiteral("Nobody has this name yet. The appointment's form offers to add it."));
    enter();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->patientId, QString());
    EXPECT_EQ(form_->Found()->patientName, QStringLiteral("Novak, Eva"));
}

TEST_F(NextFreeHour, WhereSeveralFitTheListAsksWhoIsMeant) {
    patient("10019", "O'Brien", "Bert", "");
    open();
    type(QStringLiteral("o'b"));
    enter();
    auto* matches = form_->findChild<QWidget*>(QStringLiteral("pnlmatches"));
    ASSERT_TRUE(matches->isVisible());
    EXPECT_TRUE(form_->txtpatients->hasFocus()) << "nobody is taken from a list that came with this very key";
    QTest::keyClick(form_->txtpatients, Qt::Key_Down);
    enter();
    EXPECT_FALSE(matches->isVisible());
    EXPECT_EQ(form_->txtpatients->text(), QStringLiteral("O'Brien, Bert"));
    EXPECT_TRUE(form_->ctList1->hasFocus());
    enter();
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10019"));
}

TEST_F(NextFreeHour, EscapeClosesTheListOfThoseWhoFitAndThenTheForm) {
    patient("10019", "O'Brien", "Bert", "");
    open();
    type(QStringLiteral("o'b"));
    enter();
    QTest::keyClick(form_->txtpatients, Qt::Key_Escape);
    EXPECT_TRUE(form_->isVisible());
    QTest::keyClick(form_->txtpatients, Qt::Key_Escape);
    EXPECT_FALSE(form_->isVisible());
    EXPECT_FALSE(form_->Found());
}

TEST_F(NextFreeHour, TheLengthIsThatOfTheTypeElseThePreferenceElseOneRow) {
    open();
    EXPECT_EQ(form_->txtlength->value(), 15);
    Session().VisitLength = 50;
    open();
    EXPECT_EQ(form_->txtlength->value(), 50);
    ASSERT_TRUE(SetTypeLength(type_, 90));
    open();
    type(QStringLiteral("o'b"));
    enter();
    EXPECT_EQ(form_->txtlength->value(), 45);
    form_->cboatypes->setCurrentIndex(1);
    settle();
    EXPECT_EQ(form_->txtlength->value(), 90);
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;10:30 AM;Reed;"));
    form_->cmdbook->click();
    EXPECT_EQ(form_->Found()->category, 8438015);
}

TEST_F(NextFreeHour, AnEnteredLengthStaysWhoeverIsTyped) {
    open();
    form_->txtlength->setFocus();
    form_->txtlength->selectAll();
    QTest::keyClicks(form_->txtlength, QStringLiteral("60"));
    enter();
    EXPECT_TRUE(form_->ctList1->hasFocus());
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;10:00 AM;Reed;"));
    form_->txtpatients->setFocus();
    type(QStringLiteral("o'b"));
    enter();
    EXPECT_EQ(form_->txtlength->value(), 60);
}

TEST_F(NextFreeHour, ThePatientsOwnAppointmentsAreInTheWay) {
    const qint64 key = book({.start = 540, .end = 600, .provider = QStringLiteral("OBRIEN")});
    run(db::Sql("Update appointments Set patientid = '10018' Where nkeyid = {}", key));
    open();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:15 AM;Reed;"));
    type(QStringLiteral("jon"));
    enter();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;10:00 AM;10:15 AM;Reed;"));
}

TEST_F(NextFreeHour, AllProvidersOrTheChosenOnesAreSearched) {
    book({.start = 540, .end = 600});
    open();
    EXPECT_FALSE(form_->panel->isVisible());
    form_->cboproviders->setCurrentIndex(frmnextfree::AllProviders);
    settle();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:15 AM;O'Brien;"));
    form_->cboproviders->setCurrentIndex(frmnextfree::ChosenProviders);
    settle();
    EXPECT_TRUE(form_->panel->isVisible());
    ctList& listed = form_->panel->List();
    listed.SelectRow(0);
    QTest::keyClick(&listed, Qt::Key_Space);
    settle();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;10:00 AM;10:15 AM;Reed;"));
    open();
    form_->cboproviders->setCurrentIndex(frmnextfree::ChosenProviders);
    settle();
    EXPECT_EQ(form_->panel->Choice(), QStringLiteral("REED|")) << "the choice is kept for the user";
}

TEST_F(NextFreeHour, AViewOfSomeProvidersBeginsWithThem) {
    open({{QStringLiteral("REED"), QStringLiteral("Reed")}, {QStringLiteral("OBRIEN")}, true});
    EXPECT_EQ(form_->cboproviders->currentIndex(), frmnextfree::ChosenProviders);
    EXPECT_EQ(form_->panel->Choice(), QStringLiteral("OBRIEN|"));
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:15 AM;O'Brien;"));
    open({{QStringLiteral("REED"), QStringLiteral("Reed")}, {}, true});
    EXPECT_EQ(form_->cboproviders->currentIndex(), frmnextfree::AllProviders);
}

TEST_F(NextFreeHour, WhoMaySeeNoOtherScheduleSearchesTheOwn) {
    Session().AllProviders = false;
    open();
    EXPECT_EQ(form_->cboproviders->count(), 1);
    EXPECT_FALSE(form_->cboproviders->isEnabled());
    EXPECT_EQ(form_->cboproviders->toolTip(), QStringLiteral("Your rights allow no other schedules."));
    EXPECT_TRUE(row(0).contains(QStringLiteral("Reed")));
}

TEST_F(NextFreeHour, DayPartAndDateNarrowTheSearch) {
    open();
    for (std::size_t weekday = 0; weekday < 7; ++weekday)
        form_->ckdays[weekday]->setChecked(weekday == 1);
    form_->cbopart->setCurrentIndex(2);
    settle();
    EXPECT_EQ(row(0), QStringLiteral("Mon, Mar 16, 2026;12:00 Noon;12:15 PM;Reed;"));
    form_->cbopart->setCurrentIndex(4);
    form_->ctstart->setTime(870);
    form_->ctend->setTime(900);
    form_->ctdate->setDate(QDate(2026, 5, 6));
    settle();
    EXPECT_EQ(row(0), QStringLiteral("Mon, May 11, 2026;2:30 PM;2:45 PM;Reed;"));
    EXPECT_EQ(row(1), QStringLiteral("Mon, May 11, 2026;2:45 PM;3:00 PM;Reed;"));
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("The first 100 openings."));
}

TEST_F(NextFreeHour, WhatIsMissingIsSaidInsteadOfAList) {
    open();
    for (QCheckBox* weekday : form_->ckdays)
        weekday->setChecked(false);
    settle();
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("Choose a day of the week."));
    EXPECT_EQ(form_->ctList1->RowCount(), 0);
    EXPECT_FALSE(form_->cmdbook->isEnabled());
    form_->ckdays[1]->setChecked(true);
    form_->cbopart->setCurrentIndex(4);
    form_->ctend->setTime(-1);
    settle();
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("Enter the times between which to search."));
    form_->ctend->setTime(form_->ctstart->Time() + 10);
    settle();
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("15 minutes do not fit between these times."));
    form_->cbopart->setCurrentIndex(0);
    form_->ctdate->setText(QStringLiteral("2/30/2026"));
    settle();
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("Enter a valid date."));
    form_->ctdate->setDate(day);
    settle();
    EXPECT_GT(form_->ctList1->RowCount(), 0) << "and the search goes on";
}

TEST_F(NextFreeHour, NothingFreeInAYearIsSaidInWords) {
    for (int weekday = 1; weekday <= 7; ++weekday)
        run(db::Sql("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values ('REED', {}, 0, 0)",
                    weekday));
    run(QStringLiteral("Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('A', '2026/04/01', 0)"));
    open();
    EXPECT_EQ(form_->lblcount->text(),
              QStringLiteral("Nothing is free from Wed, Mar 11, 2026 to Thu, Mar 11, 2027. 1 holiday is left out."));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(form_->ctList1)->text(QAccessible::Description),
              form_->lblcount->text());
    EXPECT_FALSE(form_->cmdmore->isEnabled());
    enter();
    enter();
    EXPECT_FALSE(form_->Found());
    EXPECT_TRUE(form_->isVisible());
}

TEST_F(NextFreeHour, HolidaysAreOfferedWhenTheyAreWanted) {
    run(QStringLiteral(
        "Insert Into Holidays (Holiday, HolidayDate, HolidayRepeat) Values ('Founder''s Day', '2026/03/11', 0)"));
    open();
    EXPECT_TRUE(row(0).startsWith(QStringLiteral("Thu, Mar 12, 2026;")));
    form_->ckholidays->setChecked(true);
    settle();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:15 AM;Reed;Founder's Day"));
}

TEST_F(NextFreeHour, ACancelledHourSaysThatItIsOne) {
    book({.start = 540, .end = 555, .code = 0xC1});
    open();
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:15 AM;Reed;a cancelled one is there"));
}

TEST_F(NextFreeHour, MoreListsTheNextOpenings) {
    open();
    const QString last = row(99);
    form_->cmdmore->click();
    settle();
    EXPECT_EQ(form_->ctList1->RowCount(), 200);
    EXPECT_EQ(row(99), last);
    EXPECT_NE(row(100), last);
    EXPECT_TRUE(form_->ctList1->hasFocus());
}

TEST_F(NextFreeHour, TheEndOfTheYearIsTold) {
    for (int weekday = 1; weekday <= 7; ++weekday)
        run(db::Sql("Insert Into ProvSched (providerid, workdayvalue, starttime, endtime) Values ('REED', {}, {}, 600)",
                    weekday, weekday == 4 ? 585 : 0));
    open();
    EXPECT_EQ(form_->ctList1->RowCount(), 53);
    EXPECT_EQ(form_->lblcount->text(), QStringLiteral("53 openings to Thu, Mar 11, 2027."));
    EXPECT_FALSE(form_->cmdmore->isEnabled());
}

TEST_F(NextFreeHour, ALostDatabaseIsToldOnceAndTheFormStays) {
    open();
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error searching availability. ") + why, QStringLiteral("Error"));
    form_->ckholidays->setChecked(true);
    settle();
    EXPECT_EQ(form_->lblcount->text(),
              QStringLiteral("The search has stopped, because the database could not be read."));
    EXPECT_FALSE(form_->cmdbook->isEnabled());
    Session().Connection.Open(database.connectionText());
    form_->ckholidays->setChecked(false);
    settle();
    EXPECT_GT(form_->ctList1->RowCount(), 0);
}

TEST_F(NextFreeHour, ADoubleClickOnAnOpeningChoosesIt) {
    open();
    const QModelIndex third = form_->ctList1->model()->index(2, 0);
    const QPoint place = form_->ctList1->visualRect(third).center();
    QTest::mouseClick(form_->ctList1->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(form_->ctList1->viewport(), Qt::LeftButton, {}, place);
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->opening.start, 570);
}

TEST_F(NextFreeHour, ThePatientCanBeLookedUpByMouse) {
    open();
    desk.expectForm("frmspatnt", [](QDialog& dialog) {
        auto& list = static_cast<frmspatnt&>(dialog);
        settle();
        list.ctList1->SelectRow(list.ctList1->FindItemData(QStringLiteral("10017")));
        list.cmdselect->click();
    });
    QTest::mouseClick(form_->cmdPatientList, Qt::LeftButton);
    EXPECT_EQ(form_->txtpatients->text(), QStringLiteral("O'Brien, Anna"));
    EXPECT_EQ(row(0), QStringLiteral("Wed, Mar 11, 2026;9:00 AM;9:45 AM;Reed;"));
    EXPECT_EQ(form_->focusWidget(), form_->ctList1);
}

TEST_F(NextFreeHour, AnOpeningThatIsClickedRightAfterTheNameIsTheOneThatIsMeant) {
    open();
    type(QStringLiteral("o'b"));
    const QModelIndex fourth = form_->ctList1->model()->index(4, 0);
    QTest::mouseClick(form_->ctList1->viewport(), Qt::LeftButton, {}, form_->ctList1->visualRect(fourth).center());
    form_->ctList1->setFocus();
    settle();
    EXPECT_EQ(form_->txtlength->value(), 45) << "the list is another now";
    EXPECT_TRUE(form_->ctList1->hasFocus());
    EXPECT_EQ(form_->ctList1->SelectedRow(), 0) << "nothing of the new length begins there";
    form_->txtlength->setValue(15);
    settle();
    form_->ctList1->SelectRow(4);
    form_->txtpatients->setFocus();
    form_->txtpatients->selectAll();
    type(QStringLiteral("jon"));
    form_->cmdbook->setFocus();
    form_->cmdbook->click();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10018"));
    EXPECT_EQ(form_->Found()->opening.start, 600);
}

TEST_F(NextFreeHour, AltBBooksForWhoeverStandsInTheBox) {
    open();
    type(QStringLiteral("jon"));
    enter();
    form_->txtpatients->setFocus();
    form_->txtpatients->selectAll();
    type(QStringLiteral("o'b"));
    altB();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10017"));
    EXPECT_EQ(form_->Found()->opening.Slot(), (SelectedSlot{day, 540, 585})) << "with the length of the own service";
    open();
    type(QStringLiteral("jon"));
    altB();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10018"));
}

TEST_F(NextFreeHour, AltBAsksWhoIsMeantWhereSeveralFit) {
    patient("10019", "O'Brien", "Bert", "");
    open();
    type(QStringLiteral("jon"));
    enter();
    form_->txtpatients->setFocus();
    form_->txtpatients->selectAll();
    type(QStringLiteral("o'b"));
    // The list comes while the button is still down, as on a slow machine.
    altB([this] {
        QCoreApplication::processEvents();
        EXPECT_TRUE(form_->findChild<MatchList*>()->Ask());
    });
    settle();
    EXPECT_FALSE(form_->Found());
    EXPECT_TRUE(form_->findChild<QWidget*>(QStringLiteral("pnlmatches"))->isVisible());
    EXPECT_TRUE(form_->txtpatients->hasFocus());
    QTest::keyClick(form_->txtpatients, Qt::Key_Down);
    altB();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10019"));
}

TEST_F(NextFreeHour, AMarkedNamesakeWhoWasDeletedLeavesNobodyElseChosen) {
    patient("10019", "O'Brien", "Bert", "");
    open();
    type(QStringLiteral("o'b"));
    enter();
    QTest::keyClick(form_->txtpatients, Qt::Key_Down);
    run(QStringLiteral("Delete from patient_info Where id = '10019'"));
    for (int i = 0; i < 2; ++i) {
        desk.expectBox(QStringLiteral("Patient not found. Another user may have deleted this patient."),
                       QStringLiteral("Next Free Hour"));
        enter();
        EXPECT_TRUE(form_->findChild<MatchList*>()->isVisible());
        EXPECT_TRUE(form_->txtpatients->hasFocus());
    }
    QTest::keyClick(form_->txtpatients, Qt::Key_Up);
    enter();
    EXPECT_EQ(form_->txtpatients->text(), QStringLiteral("O'Brien, Anna"));
    EXPECT_TRUE(form_->ctList1->hasFocus());
}

TEST_F(NextFreeHour, AClickOnBookAsksWhoIsMeantWhereSeveralFit) {
    patient("10019", "Jones", "Nora", "");
    open();
    type(QStringLiteral("jon"));
    enter();
    enter();
    form_->txtpatients->setFocus();
    form_->txtpatients->selectAll();
    type(QStringLiteral("jon"));
    QTest::mouseClick(form_->cmdbook, Qt::LeftButton);
    settle();
    EXPECT_FALSE(form_->Found()) << "nobody is taken from a list that came with this very click";
    EXPECT_TRUE(form_->txtpatients->hasFocus());
    QTest::mouseClick(form_->cmdbook, Qt::LeftButton);
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->patientId, QStringLiteral("10018"));
}

TEST_F(NextFreeHour, AltBBooksTheLengthThatIsTypedJustNow) {
    open();
    form_->txtlength->setFocus();
    form_->txtlength->selectAll();
    QTest::keyClicks(form_->txtlength, QStringLiteral("60"));
    altB();
    ASSERT_TRUE(form_->Found());
    EXPECT_EQ(form_->Found()->opening.Slot(), (SelectedSlot{day, 540, 600}));
}

TEST_F(NextFreeHour, TheChoiceThatBeganWithTheViewsProvidersIsKept) {
    open({{QStringLiteral("REED"), QStringLiteral("Reed")}, {QStringLiteral("OBRIEN")}, true});
    ctList& listed = form_->panel->List();
    listed.SelectRow(1);
    QTest::keyClick(&listed, Qt::Key_Space);
    const QString chosen = form_->panel->Choice();
    ASSERT_EQ(chosen, QStringLiteral("OBRIEN|REED|"));
    provider("STONE", "Stone");
    open();
    EXPECT_EQ(form_->panel->Choice(), chosen);
}

TEST_F(NextFreeHour, AnyTypeHasNoLengthOfItsOwn) {
    run(QStringLiteral("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Black', 0)"));
    ASSERT_TRUE(SetTypeLength(static_cast<int>(database.connection().LastIdentity()), 90));
    open();
    EXPECT_EQ(form_->txtlength->value(), 15);
    form_->cboatypes->setCurrentIndex(1);
    EXPECT_EQ(form_->txtlength->value(), 90);
}

TEST_F(NextFreeHour, EveryFieldHasANameForAScreenReader) {
    open();
    for (const QWidget* field : std::initializer_list<const QWidget*>{
             form_->txtpatients, form_->txtlength, form_->cboatypes, form_->cboproviders, form_->cbopart,
             form_->ctstart, form_->ctend, form_->ctdate, form_->ckdays[0], form_->ckholidays, form_->ctList1,
             form_->cmdmore, form_->cmdbook, form_->cmdclose})
        EXPECT_FALSE(
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(field))->text(QAccessible::Name).isEmpty())
            << field->objectName().toStdString();
}
