#include "followup/frmcheckedin.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "followup/frmarrivaltime.h"
#include "platform/controls/ctdedit.h"
#include "platform/controls/ctlist.h"
#include "platform/desktop/forms.h"
#include "session/hiddennames.h"
#include "tests/followup/checkinfixture.h"

namespace {

class CheckedInList : public CheckInFixture {
  protected:
    static QStringList rowsOf(const frmCheckedIn& form) {
        QStringList rows;
        for (int row = 0; row < form.ctList1->RowCount(); ++row)
            rows << form.ctList1->Cells(row).join(u';');
        return rows;
    }
    /// Plays the user in the arrival dialog: types the text and presses OK.
    void expectArrival(const char* shown, const char* typed) {
        desk.expectForm("frmarrivalTime", [=](QDialog& dialog) {
            auto& form = static_cast<frmarrivalTime&>(dialog);
            EXPECT_EQ(form.ctstart->Text(), QLatin1String(shown));
            form.ctstart->setText(QLatin1String(typed));
            form.cmdOk->click();
        });
    }
};

}  // namespace

TEST_F(CheckedInList, ShowsTodaysCheckedInPatientsWithTheirProvider) {
    add({.arrival = QStringLiteral("03/11/26 08:50 AM")});
    add({.text = QStringLiteral("Kept, Kim"), .code = 0xC000});
    add({.text = QStringLiteral("Other, Day"), .date = QDate(2026, 3, 10)});
    const frmCheckedIn form;
    EXPECT_EQ(rowsOf(form), QStringList{QStringLiteral("O'Brien, Anna;03/11/26 8:50 AM;3/11/2026 9:00 AM;Reed")});
    EXPECT_EQ(form.ctList1->Header(1), QStringLiteral("Client"));
    EXPECT_EQ(form.lblstatus->text(), QStringLiteral("As of 9:05 AM"));
}

TEST_F(CheckedInList, HidesTheNamesWhileItIsOpenAndShowsThemAgain) {
    add({});
    frmCheckedIn form;
    SetNamesHidden(true);
    EXPECT_EQ(form.ctList1->ShownCell(0, 1), QStringLiteral("(hidden)"));
    EXPECT_EQ(form.ctList1->ShownCell(0, 4), QStringLiteral("Reed"));
    form.loadcheckedin();
    EXPECT_EQ(form.ctList1->ShownCell(0, 1), QStringLiteral("(hidden)"));
    SetNamesHidden(false);
    EXPECT_EQ(form.ctList1->ShownCell(0, 1), QStringLiteral("O'Brien, Anna"));
}

TEST_F(CheckedInList, APatientWithoutAnArrivalTimeShowsAnEmptyColumn) {
    add({});
    EXPECT_EQ(frmCheckedIn().ctList1->Cell(0, 2), QString());
}

TEST_F(CheckedInList, WithoutTheRightToAllSchedulesItShowsTheUsersOwnWhoeverIsOnDisplay) {
    add({});
    add({.text = QStringLiteral("Jones, Mary"), .provider = QStringLiteral("LANE")});
    Session().AllProviders = false;
    Session().ProviderId = QStringLiteral("LANE");
    EXPECT_EQ(frmCheckedIn().ctList1->RowCount(), 1);
    Session().AllProviders = true;
    EXPECT_EQ(frmCheckedIn().ctList1->RowCount(), 2);
}

TEST_F(CheckedInList, EveryMinuteReadsTheListAnewAndKeepsTheSelectedLine) {
    add({.text = QStringLiteral("Later, Lou"), .provider = QStringLiteral("REED")});
    frmCheckedIn form;
    form.show();
    EXPECT_EQ(form.Timer1.interval(), 60000);
    EXPECT_TRUE(form.Timer1.isActive());
    form.ctList1->SelectRow(0);
    add({.text = QStringLiteral("Able, Abe"), .provider = QStringLiteral("ABLE")});
    Q_EMIT form.Timer1.timeout({});
    ASSERT_EQ(form.ctList1->RowCount(), 2);
    EXPECT_EQ(form.ctList1->SelectedRow(), 1);
}

TEST_F(CheckedInList, AtMidnightTheListEmpties) {
    add({});
    frmCheckedIn form;
    EXPECT_EQ(form.ctList1->RowCount(), 1);
    desk.setNow(QDateTime(day.addDays(1), QTime(0, 0)));
    form.cmdRefresh->click();
    EXPECT_EQ(form.ctList1->RowCount(), 0);
    EXPECT_EQ(form.lblstatus->text(), QStringLiteral("Nobody is checked in at 12:00 Mid."));
}

TEST_F(CheckedInList, APatientLeavesItOnceAnyOtherStatusIsSet) {
    add({});
    frmCheckedIn form;
    database.connection().Execute(QStringLiteral("Update appointments Set ncolor = 192"));
    form.loadcheckedin();
    EXPECT_EQ(form.ctList1->RowCount(), 0);
}

TEST_F(CheckedInList, CorrectingAnArrivalStoresItWithTodaysDate) {
    const int key = add({.arrival = QStringLiteral("03/11/26 08:50 AM")});
    frmCheckedIn form;
    expectArrival("8:50 AM", "8:45");
    Q_EMIT form.ctList1->RowActivated(0);
    EXPECT_EQ(arrivalOf(key), QStringLiteral("03/11/26 08:45 AM"));
    EXPECT_EQ(form.ctList1->Cell(0, 2), QStringLiteral("03/11/26 8:45 AM"));
}

TEST_F(CheckedInList, AnEmptyArrivalIsCorrectedFromThePresentTime) {
    const int key = add({});
    frmCheckedIn form;
    expectArrival("9:05 AM", "9:01");
    Q_EMIT form.ctList1->RowActivated(0);
    EXPECT_EQ(arrivalOf(key), QStringLiteral("03/11/26 09:01 AM"));
}

TEST_F(CheckedInList, AnEmptiedFieldMeansNow) {
    const int key = add({.arrival = QStringLiteral("03/11/26 08:50 AM")});
    frmCheckedIn form;
    expectArrival("8:50 AM", "");
    Q_EMIT form.ctList1->RowActivated(0);
    EXPECT_EQ(arrivalOf(key), QStringLiteral("03/11/26 09:05 AM"));
}

TEST_F(CheckedInList, GivingTheCorrectionUpLeavesTheTime) {
    const int key = add({.arrival = QStringLiteral("03/11/26 08:50 AM")});
    frmCheckedIn form;
    desk.expectForm("frmarrivalTime", [](QDialog& dialog) {
        static_cast<frmarrivalTime&>(dialog).ctstart->setText(QStringLiteral("7:00"));
        dialog.reject();
    });
    Q_EMIT form.ctList1->RowActivated(0);
    EXPECT_EQ(arrivalOf(key), QStringLiteral("03/11/26 08:50 AM"));
}

TEST_F(CheckedInList, CorrectingARowThatAnotherUserDeletedTellsSoAndTakesItAway) {
    add({.arrival = QStringLiteral("03/11/26 08:50 AM")});
    frmCheckedIn form;
    database.connection().Execute(QStringLiteral("Delete from appointments"));
    expectArrival("8:50 AM", "8:45");
    desk.expectBox(QStringLiteral("Appointment not found in database. It may have been deleted by another user."),
                   QStringLiteral("Error"));
    Q_EMIT form.ctList1->RowActivated(0);
    EXPECT_EQ(form.ctList1->RowCount(), 0);
}

TEST_F(CheckedInList, ARefreshKeepsThePlaceOfALongList) {
    for (int i = 0; i < 60; ++i)
        add({.text = QStringLiteral("Patient %1").arg(i)});
    frmCheckedIn form;
    form.show();
    form.ctList1->verticalScrollBar()->setValue(20);
    form.cmdRefresh->click();
    EXPECT_EQ(form.ctList1->verticalScrollBar()->value(), 20);
}

TEST_F(CheckedInList, WhoMayOnlyReadCorrectsNothing) {
    add({});
    Session().ScreenAccess = 1;
    frmCheckedIn form;
    Q_EMIT form.ctList1->RowActivated(0);
}

TEST_F(CheckedInList, ARefreshThatFailsSaysSoInTheWindowAndKeepsTheList) {
    add({});
    frmCheckedIn form;
    const QString why = loseDatabase();
    form.loadcheckedin();
    EXPECT_EQ(form.ctList1->RowCount(), 1);
    EXPECT_EQ(form.lblstatus->text(), QStringLiteral("The list could not be refreshed at 9:05 AM. ") + why);
}

TEST_F(CheckedInList, ACorrectionThatFailsIsToldWithItsNumber) {
    add({});
    frmCheckedIn form;
    desk.expectForm("frmarrivalTime", [this](QDialog& dialog) {
        static_cast<frmarrivalTime&>(dialog).cmdOk->click();
        loseDatabase();
    });
    desk.expectBox(
        QStringLiteral(
            "Error updating arrival time. (3709). The connection cannot be used to perform this operation. It is either closed or invalid in this context."),
        QStringLiteral("Error"));
    Q_EMIT form.ctList1->RowActivated(0);
    EXPECT_EQ(form.ctList1->Cell(0, 2), QString());
}

TEST_F(CheckedInList, OpensOnceAndIsReadAnewOnlyWhileItIsOpen) {
    frmCheckedIn::ReloadIfOpen();
    EXPECT_FALSE(IsFormLoaded(QStringLiteral("frmCheckedIn")));
    frmCheckedIn::Open(nullptr);
    QWidget* form = FindForm(QStringLiteral("frmCheckedIn"));
    ASSERT_NE(form, nullptr);
    frmCheckedIn::Open(nullptr);
    EXPECT_EQ(FindForm(QStringLiteral("frmCheckedIn")), form);
    add({});
    frmCheckedIn::ReloadIfOpen();
    EXPECT_EQ(static_cast<frmCheckedIn*>(form)->ctList1->RowCount(), 1);
    form->close();
    EXPECT_FALSE(IsFormLoaded(QStringLiteral("frmCheckedIn")));
    delete form;
}
