#include "search/frmfirstatype.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/controls/ctlist.h"
#include "tests/search/searchfixture.h"

namespace {

constexpr int Intake = 0x00FF10;

class SearchByType : public SearchFixture {
  protected:
    SearchByType() {
        run(db::Sql("Insert Into AptCategories (aptcategory, aptcategorycolor) Values ('Intake', {})", Intake));
    }
    /// A block of time set aside for intakes.
    void block(int start, int end, QDate date = QDate(2026, 3, 11)) {
        book({.start = start, .end = end, .text = QStringLiteral("Intake"), .code = Intake, .kind = 4, .date = date});
    }
    QStringList search(frmfirstatype& form, const char* length) {
        form.cboatypes->setCurrentIndex(0);
        form.txtlength->setText(QLatin1String(length));
        form.cmdsearch->click();
        QStringList rows;
        for (int row = 0; row < form.ctList1->RowCount(); ++row)
            rows << form.ctList1->Cells(row).join(u';');
        return rows;
    }
};

}  // namespace

TEST_F(SearchByType, AnEmptyBlockGivesItsStart) {
    block(540, 600);
    frmfirstatype form;
    EXPECT_EQ(search(form, "60"), QStringList{QStringLiteral("Wed, Mar 11, 2026;9:00 AM;10:00 AM;")});
    EXPECT_TRUE(form.cmdgoto->isEnabled());
    EXPECT_EQ(form.ctList1->SelectedRow(), 0);
}

TEST_F(SearchByType, NothingIsListedAsFreeThatTheDatabaseWasNotAskedAbout) {
    if (database.isOnServer())
        GTEST_SKIP() << "A server's database has no file here.";
    block(540, 600);
    frmfirstatype form;
    ASSERT_TRUE(QFile::rename(database.file(), database.file() + ".away"));
    EXPECT_THROW(static_cast<void>(slotbooked(day, 540, 600, QStringLiteral("REED"))), db::DatabaseError);
    desk.expectBox(
        QStringLiteral(
            "Error searching availability. The file of the database \"test\" was moved, deleted or replaced while it was open. Nothing is saved until it is opened again."),
        QStringLiteral("Error"));
    EXPECT_TRUE(search(form, "60").isEmpty());
}

TEST_F(SearchByType, ABookingOverTheStartIsSteppedPastByFiveMinutes) {
    block(540, 660);
    book({.start = 540, .end = 568});
    frmfirstatype form;
    EXPECT_EQ(search(form, "30"), QStringList{QStringLiteral("Wed, Mar 11, 2026;9:30 AM;10:00 AM;")});
}

TEST_F(SearchByType, BackToBackBookingsLeaveTheTimeBetweenFree) {
    block(540, 660);
    book({.start = 540, .end = 570});
    book({.start = 600, .end = 660});
    frmfirstatype form;
    EXPECT_EQ(search(form, "30"), QStringList{QStringLiteral("Wed, Mar 11, 2026;9:30 AM;10:00 AM;")});
    EXPECT_TRUE(search(form, "35").isEmpty());
}

TEST_F(SearchByType, ABlockShorterThanTheLengthGivesItsFirstTryAllTheSame) {
    block(540, 570);
    frmfirstatype form;
    EXPECT_EQ(search(form, "60"), QStringList{QStringLiteral("Wed, Mar 11, 2026;9:00 AM;10:00 AM;")});
}

TEST_F(SearchByType, ABlockOfLessThanFiveMinutesGivesNothing) {
    block(540, 544);
    frmfirstatype form;
    EXPECT_TRUE(search(form, "1").isEmpty());
}

TEST_F(SearchByType, ACancelledAppointmentStillBlocks) {
    block(540, 600);
    book({.start = 540, .end = 600, .code = 0xC1});
    frmfirstatype form;
    EXPECT_TRUE(search(form, "30").isEmpty());
    EXPECT_FALSE(form.cmdgoto->isEnabled());
    EXPECT_EQ(form.lblcount->text(), QStringLiteral("No opening was found."));
}

TEST_F(SearchByType, ListsOneOpeningForEachBlockFromTodayOn) {
    block(540, 600, QDate(2026, 3, 10));
    block(540, 600, QDate(2026, 3, 12));
    block(540, 600);
    block(720, 780);
    frmfirstatype form;
    EXPECT_EQ(search(form, "20").size(), 3);
}

TEST_F(SearchByType, ABlockIsFoundByItsColorWhateverItsKind) {
    book({.code = Intake});
    frmfirstatype form;
    // The row of kind 0 is in its own way, unlike a type slot.
    EXPECT_TRUE(search(form, "10").isEmpty());
    run(QStringLiteral("Update appointments Set appttype = 4"));
    EXPECT_EQ(search(form, "10").size(), 1);
}

TEST_F(SearchByType, ALengthOfZeroIsRefused) {
    frmfirstatype form;
    desk.expectBox(QStringLiteral("Enter length of time slot"), QStringLiteral("Solvane"));
    search(form, "0");
}

TEST_F(SearchByType, ALengthOfMoreThanADayIsRefused) {
    block(540, 600);
    frmfirstatype form;
    form.show();
    QTest::keyClicks(form.txtlength, QStringLiteral("10000"));
    EXPECT_EQ(form.txtlength->text(), QStringLiteral("10000"));
    desk.expectBox(QStringLiteral("A day has 1440 minutes. Enter a shorter length."), QStringLiteral("Solvane"));
    EXPECT_TRUE(search(form, "10000").isEmpty());
    EXPECT_EQ(form.txtlength->selectedText(), QStringLiteral("10000"));
    EXPECT_EQ(search(form, "1440").size(), 1);
}

TEST_F(SearchByType, AProviderWithAnApostropheIsSearchedAsWell) {
    provider("O'B", "O'Brien");
    book({.code = Intake, .provider = QStringLiteral("O'B"), .kind = 4});
    frmfirstatype form;
    form.cboProviders->setCurrentIndex(form.cboProviders->findData(QStringLiteral("O'B")));
    EXPECT_EQ(search(form, "20").size(), 1);
}

TEST_F(SearchByType, AResultWhoseBlockHasVanishedStillLeadsToItsDate) {
    block(540, 600, QDate(2026, 3, 12));
    frmfirstatype form;
    search(form, "20");
    run(QStringLiteral("Delete from appointments"));
    form.cmdgoto->click();
    EXPECT_EQ(form.JumpDate(), QDate(2026, 3, 12));
}

TEST_F(SearchByType, CanBeStartedOnlyWithATypeAndALength) {
    frmfirstatype form;
    EXPECT_FALSE(form.cmdsearch->isEnabled());
    QTest::keyClicks(form.txtlength, QStringLiteral("a5-"));
    EXPECT_EQ(form.txtlength->text(), QStringLiteral("5"));
    EXPECT_FALSE(form.cmdsearch->isEnabled());
    form.cboatypes->setCurrentIndex(0);
    EXPECT_TRUE(form.cmdsearch->isEnabled());
}

TEST_F(SearchByType, ArchivedProvidersAreOfferedAndTheSessionsOneIsChosen) {
    provider("GONE", "Gone", 1);
    const frmfirstatype form;
    EXPECT_GE(form.cboProviders->findText(QStringLiteral("Gone")), 0);
    EXPECT_EQ(form.cboProviders->currentText(), QStringLiteral("Reed"));
}

TEST_F(SearchByType, GoingToAResultOfTheSameProviderTakesTheDateAlone) {
    block(540, 600, QDate(2026, 3, 12));
    frmfirstatype form;
    search(form, "20");
    form.cmdgoto->click();
    EXPECT_EQ(form.JumpDate(), QDate(2026, 3, 12));
    EXPECT_FALSE(form.ProviderChanged());
}

TEST_F(SearchByType, GoingToAnotherProvidersResultTakesThemOver) {
    book({.code = Intake, .provider = QStringLiteral("OBRIEN"), .kind = 4});
    frmfirstatype form;
    form.cboProviders->setCurrentIndex(form.cboProviders->findData(QStringLiteral("OBRIEN")));
    search(form, "20");
    form.cmdgoto->click();
    EXPECT_TRUE(form.ProviderChanged());
    EXPECT_EQ(Session().ProviderName, QStringLiteral("O'Brien"));
}

TEST_F(SearchByType, AProviderWithoutALogonCannotBeGoneTo) {
    book({.code = Intake, .provider = QStringLiteral("OBRIEN"), .kind = 4});
    run(QStringLiteral("Delete from passwords Where pswd_user_id = 'OBRIEN'"));
    frmfirstatype form;
    form.cboProviders->setCurrentIndex(form.cboProviders->findData(QStringLiteral("OBRIEN")));
    search(form, "20");
    desk.expectBox(QStringLiteral("Error moving to selected provider. "), QStringLiteral("Solvane"));
    form.cmdgoto->click();
    EXPECT_EQ(form.result(), 0);
    EXPECT_EQ(Session().ProviderId, QStringLiteral("REED"));
}

TEST_F(SearchByType, ALongSearchCanBeStoppedAndKeepsWhatItHasFound) {
    for (int i = 0; i < 20; ++i)
        block(540, 600, day.addDays(i));
    frmfirstatype form;
    form.show();
    QTimer::singleShot(0, &form, [&form] { QTest::keyClick(&form, Qt::Key_Escape); });
    EXPECT_LT(search(form, "20").size(), 20);
    EXPECT_TRUE(form.isVisible());
    EXPECT_TRUE(form.lblcount->text().startsWith(QStringLiteral("Stopped."))) << form.lblcount->text().toStdString();
    EXPECT_TRUE(form.cmdsearch->isEnabled());
}

TEST_F(SearchByType, ASharedActivityInTheOpeningIsToldBesideIt) {
    block(720, 780);
    block(720, 780, QDate(2026, 3, 12));
    share(book({.start = 690, .end = 750, .text = QStringLiteral("Staff Meeting"), .provider = QStringLiteral("~EVT")}),
          "REED");
    share(book({.start = 720, .end = 780, .text = QStringLiteral("Training"), .provider = QStringLiteral("~EVT")}),
          "OBRIEN");
    frmfirstatype form;
    EXPECT_EQ(search(form, "30"),
              (QStringList{QStringLiteral("Wed, Mar 11, 2026;12:00 Noon;12:30 PM;in Staff Meeting 11:30 - 12:30"),
                           QStringLiteral("Thu, Mar 12, 2026;12:00 Noon;12:30 PM;")}));
}

TEST_F(SearchByType, AnotherProviderEmptiesTheListOfOpenings) {
    block(540, 600);
    frmfirstatype form;
    search(form, "20");
    form.cboProviders->setCurrentIndex(form.cboProviders->findData(QStringLiteral("OBRIEN")));
    EXPECT_EQ(form.ctList1->RowCount(), 0);
    EXPECT_FALSE(form.cmdgoto->isEnabled());
    EXPECT_EQ(form.lblcount->text(), QString());
}

TEST_F(SearchByType, WhileASearchRunsTheProviderStays) {
    for (int i = 0; i < 20; ++i)
        block(540, 600, day.addDays(i));
    frmfirstatype form;
    bool offered = true;
    QTimer::singleShot(0, &form, [&] { offered = form.cboProviders->isEnabled(); });
    search(form, "20");
    EXPECT_FALSE(offered);
    EXPECT_TRUE(form.cboProviders->isEnabled());
}

TEST_F(SearchByType, AFailureIsTold) {
    frmfirstatype form;
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error searching availability. ") + why, QStringLiteral("Error"));
    EXPECT_TRUE(search(form, "20").isEmpty());
}
