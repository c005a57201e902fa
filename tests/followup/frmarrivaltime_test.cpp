#include "followup/frmarrivaltime.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/ctdedit.h"
#include "tests/followup/checkinfixture.h"

class ArrivalTime : public CheckInFixture {};

TEST_F(ArrivalTime, StartsWithThePresentTimeForAPatientWhoHasNotArrived) {
    const frmarrivalTime form(add({.code = 0xFF0001}));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Arrival Time"));
    EXPECT_EQ(form.ctstart->Text(), QStringLiteral("9:05 AM"));
}

TEST_F(ArrivalTime, StartsWithTheStoredTimeForOneWhoHas) {
    EXPECT_EQ(frmarrivalTime(add({.arrival = QStringLiteral("03/11/26 08:50 AM")})).Arrival(), 530);
}

TEST_F(ArrivalTime, OkStoresTheTimeAndTheStatus) {
    const int key = add({.code = 0xFF0001});
    frmarrivalTime form(key);
    form.ctstart->setText(QStringLiteral("930"));
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
    EXPECT_EQ(arrivalOf(key), QStringLiteral("03/11/26 09:30 AM"));
    EXPECT_EQ(database.number(QStringLiteral("Select ncolor from appointments")), 0xFFFFFF);
}

TEST_F(ArrivalTime, TheDayComesFirstWhereTheSystemWritesItSo) {
    const int key = add({});
    Session().DateOrder = 1;
    frmarrivalTime form(key);
    form.cmdOk->click();
    EXPECT_EQ(arrivalOf(key), QStringLiteral("11/03/26 09:05 AM"));
}

TEST_F(ArrivalTime, CancelLeavesTheRowAsItWasAndTellsTheCaller) {
    const int key = add({.code = 0xFF0001});
    frmarrivalTime form(key);
    form.show();
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_EQ(form.result(), QDialog::Rejected);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(database.number(QStringLiteral("Select ncolor from appointments")), 0xFF0001);
}

TEST_F(ArrivalTime, ATimeThatIsNoneIsNotStored) {
    frmarrivalTime form(add({}));
    for (const char* text : {"soon", "", "25:00", "24:00"}) {
        form.ctstart->setText(QLatin1String(text));
        form.cmdOk->click();
        EXPECT_EQ(form.result(), 0) << text;
        EXPECT_FALSE(form.lblproblem->text().isEmpty()) << text;
    }
    form.ctstart->setText(QStringLiteral("9"));
    EXPECT_TRUE(form.lblproblem->text().isEmpty());
}

TEST_F(ArrivalTime, ARowThatAnotherUserDeletedIsLeftToTheViewToTell) {
    frmarrivalTime form(4711);
    form.cmdOk->click();
    EXPECT_EQ(form.result(), QDialog::Accepted);
}

TEST_F(ArrivalTime, AStoredTimeThatCannotBeReadIsTold) {
    const int key = add({.arrival = QStringLiteral("03/11/26 08:50 AM")});
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error reading arrival time. ") + why, QStringLiteral("Error"));
    EXPECT_EQ(frmarrivalTime(key).Arrival(), 545);
}

TEST_F(ArrivalTime, AFailureIsToldAndTheFormStays) {
    frmarrivalTime form(add({}));
    const QString why = loseDatabase();
    desk.expectBox(QStringLiteral("Error saving arrival time. ") + why, QStringLiteral("Error"));
    form.cmdOk->click();
    EXPECT_EQ(form.result(), 0);
}
