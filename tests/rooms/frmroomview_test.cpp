#include "rooms/frmroomview.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "platform/calendar/ctmday.h"
#include "platform/database/sql.h"
#include "session/session.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/testdatabase.h"

namespace {

class RoomBrowser : public testing::Test {
  protected:
    RoomBrowser() {
        ResetSession();
        Session().Connection.Open(database.connectionText());
        blue = room(QStringLiteral("Blue room"));
        attic = room(QStringLiteral("Attic"));
    }
    ~RoomBrowser() override {
        form.reset();
        ResetSession();
    }

    int room(const QString& name) {
        database.connection().Execute(db::Sql("Insert Into rooms (Room) Values ('{}')", name));
        return static_cast<int>(database.connection().LastIdentity());
    }
    void booking(int roomId, int start, int end, const QString& text) {
        database.connection().Execute(db::Sql(
            "Insert Into roomschedule (nApptDate, nStartTime, nEndTime, croomtext, croomid) Values ('{}', {}, {}, '{}', {})",
            day, start, end, text, roomId));
    }
    ctMDay& open(int start = 600, int end = 660) {
        form = std::make_unique<frmRoomView>(SelectedSlot{day, start, end}, QStringLiteral("3/11/2026"));
        form->show();
        QApplication::processEvents();
        return *form->ctMDay1;
    }

    QDate day{2026, 3, 11};
    TestDatabase database;
    ScriptedDesk desk;
    int blue = 0;
    int attic = 0;
    std::unique_ptr<frmRoomView> form;
};

TEST_F(RoomBrowser, HiddenNamesHideTheTextsOfAppointmentsOnly) {
    booking(blue, 540, 600, QStringLiteral("Meeting"));
    booking(blue, 600, 660, QStringLiteral("Anna O'Brien"));
    database.connection().Execute(QStringLiteral("Update roomschedule Set apptid = 77 Where nStartTime = 600"));
    Session().HidePatientNames = true;
    const ctMDay& calendar = open();
    EXPECT_EQ(calendar.Item(1).ItemTextColor, TextColor::Normal);
    EXPECT_EQ(calendar.Item(2).ItemTextColor, TextColor::SameAsBackground);
}

}  // namespace

TEST_F(RoomBrowser, ShowsEveryRoomByNameWithItsBookings) {
    booking(blue, 540, 600, QStringLiteral("O'Brien"));
    const ctMDay& rooms = open();
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Room Schedule for 3/11/2026"));
    ASSERT_EQ(rooms.ColumnCount(), 2);
    EXPECT_EQ(rooms.ColumnTitle(1), QStringLiteral("Attic"));
    ASSERT_EQ(rooms.ItemCount(), 1);
    EXPECT_EQ(rooms.ColumnOfItem(1), 2);
    EXPECT_EQ(rooms.Item(1).ItemText, QStringLiteral("O'Brien"));
}

TEST_F(RoomBrowser, ShadesTheWantedTimeInEveryRoom) {
    const ctMDay& rooms = open(600, 660);
    ASSERT_EQ(rooms.TimeRanges().size(), 2U);
    EXPECT_EQ(rooms.TimeRanges()[0].start, 600);
    EXPECT_EQ(rooms.TimeRanges()[0].end, 659);
    EXPECT_EQ(rooms.TimeRanges()[0].color, 0xFF0000);
}

TEST_F(RoomBrowser, AnEndOfZeroOrBeforeTheStartShadesNothing) {
    EXPECT_TRUE(open(600, 0).TimeRanges().empty());
    EXPECT_TRUE(open(0, 600).TimeRanges().empty());
    EXPECT_TRUE(open(660, 600).TimeRanges().empty());
}

TEST_F(RoomBrowser, ABookingWhoseRoomIsGoneStandsInTheFirstColumn) {
    booking(4711, 540, 600, QStringLiteral("Somewhere"));
    const ctMDay& rooms = open();
    ASSERT_EQ(rooms.ItemCount(), 1);
    EXPECT_EQ(rooms.ColumnOfItem(1), 1);
    EXPECT_EQ(form->GetRoomPos(4711), -1);
}

TEST_F(RoomBrowser, ScrollsToAnHourBeforeTheWantedTimeWhereTheDayHasBegunByThen) {
    EXPECT_EQ(open(720, 780).TopTime(), 660);
    EXPECT_EQ(open(500, 560).TopTime(), 480);
}

TEST_F(RoomBrowser, AnEarlyBookingWidensTheDay) {
    booking(blue, 390, 420, QStringLiteral("Cleaning"));
    EXPECT_EQ(open().FirstTime(), 390);
}

TEST_F(RoomBrowser, ABookingWithoutAStartDoesNotOpenTheNight) {
    booking(blue, 390, 420, QStringLiteral("Cleaning"));
    database.connection().Execute(QStringLiteral("Update roomschedule Set nStartTime = Null"));
    EXPECT_EQ(open().FirstTime(), 480);
}

TEST_F(RoomBrowser, FreeTimeInARoomChoosesIt) {
    ctMDay& rooms = open();
    EXPECT_FALSE(form->cmdselect->isEnabled());
    QTest::mouseClick(&rooms, Qt::LeftButton, {}, rooms.CellRect(2, 720).center());
    EXPECT_TRUE(form->cmdselect->isEnabled());
    QTest::mouseDClick(&rooms, Qt::LeftButton, {}, rooms.CellRect(2, 720).center());
    QApplication::processEvents();
    EXPECT_EQ(form->result(), QDialog::Accepted);
    EXPECT_EQ(form->ChosenRoom(), blue);
}

TEST_F(RoomBrowser, ABookedRoomCanBeChosenTooSinceConflictsAreTheUsersToAccept) {
    booking(attic, 540, 600, QStringLiteral("Jones"));
    ctMDay& rooms = open();
    rooms.setSelectedItem(1);
    QTest::mouseClick(form->cmdselect, Qt::LeftButton);
    EXPECT_EQ(form->ChosenRoom(), attic);
}

TEST_F(RoomBrowser, OnlyLookingChoosesNothing) {
    open();
    QTest::mouseClick(form->cmdclose, Qt::LeftButton);
    EXPECT_EQ(form->result(), QDialog::Rejected);
    EXPECT_EQ(form->ChosenRoom(), 0);
}

TEST_F(RoomBrowser, NothingInItCanBeMovedOrRenamed) {
    booking(blue, 540, 600, QStringLiteral("O'Brien"));
    ctMDay& rooms = open();
    const QPoint from = rooms.ItemRect(1).center();
    QTest::mousePress(&rooms, Qt::LeftButton, {}, from);
    QTest::mouseMove(&rooms, from + QPoint(0, 60));
    QTest::mouseRelease(&rooms, Qt::LeftButton, {}, from + QPoint(0, 60));
    rooms.EditItem(1);
    EXPECT_FALSE(rooms.IsEditing());
    EXPECT_EQ(std::as_const(rooms).Item(1).ItemStart, 540);
}

TEST_F(RoomBrowser, APracticeWithoutRoomsOpensAnEmptyForm) {
    database.connection().Execute(QStringLiteral("Delete from rooms"));
    EXPECT_EQ(open().ColumnCount(), 0);
}

TEST_F(RoomBrowser, WhatCannotBeReadIsTold) {
    Session().Connection.Close();
    const QString why = QStringLiteral(
        "The connection cannot be used to perform this operation. It is either closed or invalid in this context.");
    desk.expectBox(QStringLiteral("Error loading room list. ") + why, QStringLiteral("Error"));
    desk.expectBox(QStringLiteral("Error loading room list. ") + why, QStringLiteral("Error"));
    open();
}
