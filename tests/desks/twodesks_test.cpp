#include "tests/desks/barefile.h"
#include "tests/desks/deskfixture.h"

using db::Sql;

namespace {

/// Two copies of the program on one practice, both on one day.
class TwoDesks : public DeskFixture {
  protected:
    /// Fills the editor of a new appointment with the one patient there is.
    static void openNew(Desk& desk, int start, int end) {
        desk.tell("range", QString::number(start), QString::number(end));
        desk.tell("trigger", QStringLiteral("mnuANPat"));
        desk.await("frmnore");
        desk.tell("type", QStringLiteral("txtpatients"), QStringLiteral("O'B"));
    }
    static void openEditor(Desk& desk, const QString& key) {
        desk.tell("select", key);
        desk.tell("trigger", QStringLiteral("mnuAEdit"));
        desk.await("frmnore");
    }
    static void pressOk(Desk& desk) { desk.tell("click", QStringLiteral("cmdOk")); }
};

}  // namespace

TEST_F(TwoDesks, WhatOneBooksTheOtherSeesAtItsNextReload) {
    const auto one = openDesk();
    const auto other = openDesk();
    openNew(*one, 540, 590);
    pressOk(*one);
    one->await("mdisched");
    other->tell("trigger", QStringLiteral("mnuVRefresh"));
    EXPECT_EQ(other->tell("items"), one->tell("items"));
    EXPECT_TRUE(one->tell("items").endsWith(QStringLiteral("540-590 O'Brien, Anna")))
        << one->tell("items").toStdString();
}

TEST_F(TwoDesks, TheSecondToBookOneSlotIsWarned) {
    const auto one = openDesk();
    const auto other = openDesk();
    openNew(*one, 540, 590);
    openNew(*other, 540, 590);
    pressOk(*one);
    one->await("mdisched");
    pressOk(*other);
    other->await("AppointmentConflict");
    EXPECT_TRUE(other->tell("text", QStringLiteral("ctList1")).contains(QStringLiteral("O'Brien")));
    other->tell("click", QStringLiteral("cmdreschedule"));
    other->await("frmnore");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments")), 1);
    pressOk(*other);
    other->await("AppointmentConflict");
    other->tell("click", QStringLiteral("cmdaccept"));
    other->await("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments")), 2);
}

TEST_F(TwoDesks, AnEditOfARowThatTheOtherChangedIsToldAndOverwritesNothing) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto one = openDesk();
    const auto other = openDesk();
    openEditor(*one, key);
    openEditor(*other, key);
    one->tell("replace", QStringLiteral("txtnotes"), QStringLiteral("bring the card"));
    pressOk(*one);
    one->await("mdisched");
    other->tell("replace", QStringLiteral("txtnotes"), QStringLiteral("new address"));
    pressOk(*other);
    EXPECT_EQ(
        other->answer("OK"),
        QStringLiteral(
            "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read."));
    other->await("mdisched");
    EXPECT_EQ(value(QStringLiteral("Select CapptNote from appointments")), QStringLiteral("|bring the card"));
}

TEST_F(TwoDesks, AnEditOfARowThatTheOtherDeletedBooksItAnew) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto one = openDesk();
    const auto other = openDesk();
    openEditor(*other, key);
    one->tell("select", key);
    one->tell("trigger", QStringLiteral("mnuADelete"));
    EXPECT_EQ(one->answer("Yes"), QStringLiteral("Are you sure you want to delete this appointment?"));
    one->await("mdisched");
    EXPECT_EQ(times(key), QStringLiteral("(none)"));
    other->tell("replace", QStringLiteral("txtnotes"), QStringLiteral("new address"));
    pressOk(*other);
    other->await("mdisched");
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments")), 1);
    EXPECT_NE(value(QStringLiteral("Select nkeyid from appointments")), key);
    EXPECT_EQ(value(QStringLiteral("Select CapptNote from appointments")), QStringLiteral("|new address"));
}

TEST_F(TwoDesks, EditingAnItemThatTheOtherDeletedTellsSo) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto other = openDesk();
    connection.Execute(QStringLiteral("Delete from appointments"));
    other->tell("select", key);
    other->tell("trigger", QStringLiteral("mnuAEdit"));
    EXPECT_EQ(other->answer("OK"),
              QStringLiteral("Appointment not found in database. It may have been deleted by another user."));
    other->await("mdisched");
    EXPECT_EQ(other->tell("items"), QString());
}

TEST_F(TwoDesks, DraggingAnItemThatTheOtherDeletedTellsSoAndTakesItAway) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto other = openDesk();
    connection.Execute(QStringLiteral("Delete from appointments"));
    other->tell("drag", key, QStringLiteral("60"));
    EXPECT_EQ(other->answer("OK"),
              QStringLiteral("Error saving appointment. Another user may have deleted this appointment. "));
    other->await("mdisched");
    EXPECT_EQ(other->tell("items"), QString());
}

TEST_F(TwoDesks, DraggingAnItemThatTheOtherMovedLeavesItWhereTheOtherPutIt) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto one = openDesk();
    const auto other = openDesk();
    one->tell("drag", key, QStringLiteral("120"));
    EXPECT_EQ(times(key), QStringLiteral("660-710"));
    other->tell("drag", key, QStringLiteral("60"));
    EXPECT_EQ(
        other->answer("OK"),
        QStringLiteral(
            "Error saving appointment. Row cannot be located for updating. Some values may have been changed since it was last read."));
    other->await("mdisched");
    EXPECT_EQ(times(key), QStringLiteral("660-710"));
    EXPECT_EQ(other->tell("items"), one->tell("items"));
}

TEST_F(TwoDesks, KeepingAnAppointmentDoesNotUndoWhatTheOtherChangedMeanwhile) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto one = openDesk();
    const auto other = openDesk();
    one->tell("drag", key, QStringLiteral("120"));
    other->tell("select", key);
    other->tell("trigger", QStringLiteral("mnuAKept"));
    EXPECT_EQ(times(key), QStringLiteral("660-710"));
    EXPECT_EQ(number(QStringLiteral("Select ncolor from appointments")), 49152);
    EXPECT_EQ(other->tell("items"), one->tell("items"));
}

TEST_F(TwoDesks, KeepingAnAppointmentThatTheOtherDeletedTellsSo) {
    const QString key = add(540, 590, QStringLiteral("O'Brien, Anna"));
    const auto other = openDesk();
    connection.Execute(QStringLiteral("Delete from appointments"));
    other->tell("select", key);
    other->tell("trigger", QStringLiteral("mnuAKept"));
    EXPECT_EQ(other->answer("OK"),
              QStringLiteral("Unable to save. Appointment not found. It may have been deleted by another user."));
    other->await("mdisched");
    EXPECT_EQ(other->tell("items"), QString());
}

TEST_F(TwoDesks, BothMayDeleteOneSeries) {
    const QString first = add(540, 590, QStringLiteral("O'Brien, Anna"));
    add(600, 650, QStringLiteral("O'Brien, Anna"));
    connection.Execute(Sql("Update appointments Set repeating = 1, repeating_ref = {}", db::Raw{first}));
    const auto one = openDesk();
    const auto other = openDesk();
    for (Desk* desk : {one.get(), other.get()}) {
        desk->tell("select", first);
        desk->tell("trigger", QStringLiteral("mnuADelete"));
        EXPECT_EQ(desk->answer("Yes"), QStringLiteral("Are you sure you want to delete this appointment?"));
        desk->await("frmdelrepeat");
    }
    for (Desk* desk : {one.get(), other.get()}) {
        pressOk(*desk);
        desk->await("mdisched");
    }
    EXPECT_EQ(number(QStringLiteral("Select Count(*) from appointments")), 1);
    EXPECT_EQ(one->tell("items"), other->tell("items"));
}
