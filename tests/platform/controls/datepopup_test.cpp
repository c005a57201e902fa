#include "platform/controls/datepopup.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"

namespace {

const QDate March11(2026, 3, 11);
const QDate March20(2026, 3, 20);
/// What the display of the tests puts around a window that was opened.
constexpr int Frame = 2;

/// A field in the middle of the screen whose calendar drops.
class PopupTest : public testing::Test {
  protected:
    PopupTest() {
        Theme::Install(ThemeMode::Light);
        desk.setNow(QDateTime(March20, QTime(9, 0)));
        field.setGeometry(200, 200, 150, 30);
        field.show();
        popup = new DatePopup(field);
    }

    [[nodiscard]] ctDate& calendar() const { return popup->Calendar(); }
    [[nodiscard]] QPoint placeOf(QDate date) const {
        return calendar().Layout().dayAt(*calendar().Grid().positionOf(date)).center();
    }
    [[nodiscard]] QRect screen() const { return field.screen()->availableGeometry(); }

    ScriptedDesk desk;
    QLineEdit field;
    DatePopup* popup = nullptr;
};

}  // namespace

TEST_F(PopupTest, OpensAtTheDateWithTheFocusEachTime) {
    for (int time = 0; time < 2; ++time) {
        popup->drop(March11, 0);
        EXPECT_TRUE(popup->isVisible()) << time;
        EXPECT_EQ(calendar().Date(), March11) << time;
        EXPECT_EQ(calendar().ShownMonth(), QDate(2026, 3, 1)) << time;
        calendar().ShowMonth(QDate(2030, 1, 1));
        popup->close();
        EXPECT_FALSE(popup->isVisible()) << time;
    }
}

TEST_F(PopupTest, WithoutADateItOpensAtToday) {
    popup->drop({}, 0);
    EXPECT_EQ(calendar().Date(), March20);
}

TEST_F(PopupTest, TheDateOrderIsTheFields) {
    popup->drop(March11, 2);
    EXPECT_EQ(calendar().HeadingText(), QStringLiteral("2026 March"));
    popup->drop(March11, 0);
    EXPECT_EQ(calendar().HeadingText(), QStringLiteral("March 2026"));
}

TEST_F(PopupTest, ItStandsBelowTheFieldAtItsBeginning) {
    popup->drop(March11, 0);
    const QPoint below = field.mapToGlobal(QPoint(0, field.height() + 2));
    EXPECT_NEAR(popup->x(), below.x(), Frame);
    EXPECT_NEAR(popup->y(), below.y(), Frame);
}

TEST_F(PopupTest, InALanguageFromTheRightItStandsAtTheRightEnd) {
    field.setGeometry(500, 200, 150, 30);
    field.setLayoutDirection(Qt::RightToLeft);
    popup->drop(March11, 0);
    EXPECT_NEAR(popup->x() + popup->width(), field.mapToGlobal(QPoint(field.width(), 0)).x(), Frame);
}

TEST_F(PopupTest, AtTheFootOfTheScreenItStandsAboveTheField) {
    field.move(200, screen().bottom() - 60);
    popup->drop(March11, 0);
    EXPECT_NEAR(popup->y() + popup->height() + 2, field.mapToGlobal(QPoint(0, 0)).y(), Frame);
}

TEST_F(PopupTest, AtTheSideOfTheScreenItStaysOnIt) {
    field.move(screen().right() - 40, 200);
    popup->drop(March11, 0);
    EXPECT_LE(popup->x() + popup->width(), screen().right() + 1 + Frame);
    field.move(screen().left() - 100, 200);
    popup->drop(March11, 0);
    EXPECT_NEAR(popup->x(), screen().left(), Frame);
}

TEST_F(PopupTest, AClickOnADayChoosesItOnceAndClosesTwiceAlike) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    for (const QDate day : {QDate(2026, 3, 5), QDate(2026, 3, 25)}) {
        popup->drop(March11, 0);
        QTest::mouseClick(&calendar(), Qt::LeftButton, {}, placeOf(day));
        EXPECT_FALSE(popup->isVisible());
        EXPECT_EQ(chosen.last()[0].toDate(), day);
    }
    EXPECT_EQ(chosen.count(), 2);
}

TEST_F(PopupTest, ADayOfTheNextMonthIsChosenAsItStandsUnderThePointer) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    popup->drop(March11, 0);
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, placeOf(QDate(2026, 4, 2)));
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toDate(), QDate(2026, 4, 2));
}

TEST_F(PopupTest, APressReleasedBesideTheDaysChoosesNothing) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    popup->drop(March11, 0);
    QTest::mousePress(&calendar(), Qt::LeftButton, {}, placeOf(March11));
    QTest::mouseRelease(&calendar(), Qt::LeftButton, {}, calendar().Layout().heading().center());
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PopupTest, AReleaseOverADayThatWasPressedElsewhereChoosesNothing) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    popup->drop(March11, 0);
    QTest::mousePress(&calendar(), Qt::LeftButton, {}, calendar().Layout().heading().center());
    QTest::mouseRelease(&calendar(), Qt::LeftButton, {}, placeOf(March11));
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PopupTest, TheRightButtonChoosesNothing) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    popup->drop(March11, 0);
    QTest::mouseClick(&calendar(), Qt::RightButton, {}, placeOf(QDate(2026, 3, 5)));
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(calendar().Date(), March11);
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PopupTest, KeysWalkWithoutChoosingAndEnterChoosesWhereTheyLed) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    for (int time = 0; time < 2; ++time) {
        popup->drop(March11, 0);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Left, Qt::Key_PageDown})
            QTest::keyClick(&calendar(), key);
        EXPECT_EQ(chosen.count(), time);
        QTest::keyClick(&calendar(), Qt::Key_Enter);
        EXPECT_FALSE(popup->isVisible());
    }
    ASSERT_EQ(chosen.count(), 2);
    EXPECT_EQ(chosen[1][0].toDate(), QDate(2026, 4, 17));
}

TEST_F(PopupTest, TodayChoosesTodayByMouseAndByKey) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    auto* today = popup->findChild<QPushButton*>();
    popup->drop(March11, 0);
    QTest::mouseClick(today, Qt::LeftButton);
    popup->drop(March11, 0);
    today->setFocus();
    QTest::keyClick(today, Qt::Key_Space);
    ASSERT_EQ(chosen.count(), 2);
    EXPECT_EQ(chosen[0][0].toDate(), March20);
    EXPECT_EQ(chosen[1][0].toDate(), March20);
    EXPECT_FALSE(popup->isVisible());
}

TEST_F(PopupTest, EscapeClosesAndChoosesNothingTwiceAlike) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    for (int time = 0; time < 2; ++time) {
        popup->drop(March11, 0);
        QTest::keyClick(&calendar(), Qt::Key_Right);
        QTest::keyClick(popup, Qt::Key_Escape);
        EXPECT_FALSE(popup->isVisible());
    }
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PopupTest, ADateTypedOnTheCalendarIsWalkedToAndEnterAgainChoosesIt) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    popup->drop(March11, 0);
    QTest::keyClicks(&calendar(), QStringLiteral("4"));
    auto* typed = calendar().findChild<QLineEdit*>(QStringLiteral("txtgoto"));
    ASSERT_NE(typed, nullptr);
    QTest::keyClicks(typed, QStringLiteral("/2"));
    QTest::keyClick(typed, Qt::Key_Return);
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(chosen.count(), 0);
    QTest::keyClick(&calendar(), Qt::Key_Return);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen[0][0].toDate(), QDate(2026, 4, 2));
}

TEST_F(PopupTest, TheArrowsAndTheWheelTurnThePageAndLeaveItOpen) {
    const QSignalSpy chosen(popup, &DatePopup::Chosen);
    popup->drop(March11, 0);
    for (int click = 0; click < 2; ++click)
        QTest::mouseClick(&calendar(), Qt::LeftButton, {}, calendar().Layout().next().center());
    EXPECT_EQ(calendar().ShownMonth(), QDate(2026, 5, 1));
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(PopupTest, AScreenReaderHearsThatItIsACalendar) {
    EXPECT_EQ(popup->accessibleName(), QStringLiteral("Calendar"));
    EXPECT_EQ(calendar().accessibleName(), QStringLiteral("Calendar"));
}
