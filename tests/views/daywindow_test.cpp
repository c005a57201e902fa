#include <gtest/gtest.h>

#include <QDialog>
#include <QSplitter>
#include <QTest>

#include "data/codes.h"
#include "platform/calendar/ctmday.h"
#include "platform/controls/ctlist.h"
#include "platform/database/sql.h"
#include "platform/desktop/userstore.h"
#include "tests/shell/mainwindowfixture.h"
#include "tests/support/testdatabase.h"
#include "views/frmsched.h"

/// The day view in the real main window, on a real database.
class DayWindow : public MainWindowFixture {
  protected:
    DayWindow() { Session().Connection.Open(database_.connectionText()); }

    void open() {
        startWith({{View::Day, [](MainWindow& main) { return std::make_unique<frmsched>(main); }}});
    }
    void add(const char* text, QDate date) {
        Session().Connection.Execute(db::Sql(
            "Insert Into appointments (dapptdate, nStartTime, nEndTime, cappttext, ncolor, clinicianid) Values('{}', 540, 590, '{}', {}, '{}')",
            date, text, ncolor::Pending, Session().ProviderId));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), key, modifiers);
        QApplication::processEvents();
    }
    /// The day with the panes beside it, within the window's own splitter.
    [[nodiscard]] QSplitter& dayPanes() {
        return *window->ShownView()->findChild<QSplitter*>(QStringLiteral("SSSplitter1"));
    }
    [[nodiscard]] ctMDay& day() { return the<ctMDay>("ctMDay1"); }

    TestDatabase database_;
};

TEST_F(DayWindow, AltAndTheArrowsStepThroughTheDays) {
    add("Of Thursday", QDate(2026, 3, 12));
    open();
    EXPECT_EQ(day().ItemCount(), 0);

    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(day().Date(), QDate(2026, 3, 12));
    EXPECT_EQ(day().ItemCount(), 1);

    press(Qt::Key_Left, Qt::AltModifier);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(day().Date(), QDate(2026, 3, 10));

    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(day().Date(), QDate(2026, 3, 11));
}

TEST_F(DayWindow, TheKeysOfTheMenusAndOfTheWindowDoNotBlockEachOther) {
    open();
    add("Booked at another desk", QDate(2026, 3, 11));

    press(Qt::Key_F5);
    EXPECT_EQ(day().ItemCount(), 1);

    desk.expectForm("frmaopts", [](QDialog& form) { form.reject(); });
    press(Qt::Key_Comma, Qt::ControlModifier);

    desk.expectForm("frmsltpv", [](QDialog& form) { form.reject(); });
    press(Qt::Key_L, Qt::ControlModifier);
}

TEST_F(DayWindow, HidingNamesReloadsTheDay) {
    add("Anna", QDate(2026, 3, 11));
    open();

    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(std::as_const(day()).Item(1).ItemTextColor, TextColor::SameAsBackground);

    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(std::as_const(day()).Item(1).ItemTextColor, TextColor::Normal);
}

TEST_F(DayWindow, HidingNamesTakesTheNameOutOfTheDetails) {
    add("Anna", QDate(2026, 3, 11));
    open();
    day().setSelectedItem(1);

    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(day().SelectedItem(), 1);
    EXPECT_EQ(the<ctList>("ctListInfo").ShownCells(0).join(u';'), QStringLiteral("Appointment;(hidden)"));

    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(the<ctList>("ctListInfo").ShownCells(0).join(u';'), QStringLiteral("Appointment;Anna"));
}

TEST_F(DayWindow, TheSplitterRemembersWhereTheUserPutIt) {
    open();
    QSplitter& panes = dayPanes();
    QSplitterHandle* handle = panes.handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, handle->rect().center());
    QTest::mouseMove(handle, handle->rect().center() - QPoint(80, 0));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->rect().center());
    const QList<int> chosen = panes.sizes();

    open();

    EXPECT_EQ(dayPanes().sizes(), chosen);
    EXPECT_FALSE(ReadUserSetting(QStringLiteral("frmsched.SSSplitter1")).isEmpty());
}

TEST_F(DayWindow, OnASmallScreenTheDayHasMostOfTheRoom) {
    open();
    window->resize(640, 400);
    QApplication::processEvents();
    const QList<int> sizes = dayPanes().sizes();
    EXPECT_GT(sizes[0], sizes[1]);
}

TEST_F(DayWindow, OpeningAndClosingLeavesThePanesAsTheyWereStored) {
    open();
    window.reset();

    EXPECT_EQ(ReadUserSetting(QStringLiteral("frmsched.SSSplitter1")), QString());
}
