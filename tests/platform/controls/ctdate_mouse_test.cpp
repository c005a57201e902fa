#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "platform/controls/ctdate.h"
#include "platform/theme/theme.h"
#include "tests/support/scripteddesk.h"
#include "tests/support/tips.h"

namespace {

const QDate March11(2026, 3, 11);

/// A calendar with a field below it, on March 20, 2026.
class DateMouse : public testing::Test {
  protected:
    DateMouse() {
        Theme::Install(ThemeMode::Light);
        desk.setNow(QDateTime(QDate(2026, 3, 20), QTime(9, 0)));
        calendar = new ctDate(&window);
        next = new QLineEdit(&window);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(calendar);
        column->addWidget(next);
        calendar->SetFirstDayOfWeek(Qt::Sunday);
        calendar->SetDate(March11);
        window.show();
        QApplication::setActiveWindow(&window);
        next->setFocus();
    }
    ~DateMouse() override { Theme::Instance().setMode(ThemeMode::Light); }

    [[nodiscard]] QRect cell(QDate date) const { return calendar->Layout().dayAt(*calendar->Grid().positionOf(date)); }
    [[nodiscard]] QImage pictureOf(const QRect& rect) const { return calendar->grab().toImage().copy(rect); }
    [[nodiscard]] QString tipAt(QPoint place) const { return TipAt(*calendar, place); }
    void wheel(int eighths, Qt::KeyboardModifiers modifiers = {}) const {
        const QPointF middle = calendar->rect().center();
        QWheelEvent event(middle, calendar->mapToGlobal(middle), {}, QPoint(0, eighths), Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(calendar, &event);
    }
    void moveTo(QPoint place) const {
        QMouseEvent move(QEvent::MouseMove, place, calendar->mapToGlobal(QPointF(place)), Qt::NoButton, Qt::NoButton,
                         {});
        QApplication::sendEvent(calendar, &move);
    }

    ScriptedDesk desk;
    QWidget window;
    ctDate* calendar = nullptr;
    QLineEdit* next = nullptr;
};

}  // namespace

TEST_F(DateMouse, TheSmallStepsOfAFineWheelAddUpToAMonth) {
    for (int step = 0; step < 3; ++step)
        wheel(-30);
    EXPECT_EQ(calendar->ShownMonth(), QDate(2026, 3, 1));
    wheel(-30);
    EXPECT_EQ(calendar->ShownMonth(), QDate(2026, 4, 1));
    wheel(120, Qt::ControlModifier);
    EXPECT_EQ(calendar->ShownMonth(), QDate(2025, 4, 1));
}

TEST_F(DateMouse, ThePointerIsMarkedOverADayAndAnArrowAndLeavesNoTrace) {
    for (const QRect& place : {cell(QDate(2026, 3, 25)), calendar->Layout().next(), calendar->Layout().previous()}) {
        const QImage before = pictureOf(place);
        moveTo(place.center());
        EXPECT_NE(pictureOf(place), before);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(calendar, &leave);
        EXPECT_EQ(pictureOf(place), before);
    }
}

TEST_F(DateMouse, TipsTellTheDayAndTheArrowsAndNothingElse) {
    EXPECT_EQ(tipAt(cell(QDate(2026, 3, 25)).center()), QStringLiteral("Wednesday, March 25, 2026"));
    EXPECT_EQ(tipAt(calendar->Layout().previous().center()), QStringLiteral("Previous Month"));
    EXPECT_EQ(tipAt(calendar->Layout().next().center()), QStringLiteral("Next Month"));
    EXPECT_EQ(tipAt(calendar->Layout().heading().center()), QString());
    calendar->SetDateOrder(1);
    EXPECT_EQ(tipAt(cell(QDate(2026, 3, 25)).center()), QStringLiteral("Wednesday, 25 March 2026"));
}

TEST_F(DateMouse, ADoubleClickOnADayIsToldWithTheDay) {
    const QSignalSpy chosen(calendar, &ctDate::DblClick);
    for (int time = 0; time < 2; ++time) {
        QTest::mouseClick(calendar, Qt::LeftButton, {}, cell(QDate(2026, 3, 25)).center());
        QTest::mouseDClick(calendar, Qt::LeftButton, {}, cell(QDate(2026, 3, 25)).center());
    }
    ASSERT_EQ(chosen.count(), 2);
    EXPECT_EQ(chosen[0][0].toDate(), QDate(2026, 3, 25));
}

TEST_F(DateMouse, TwoQuickClicksOnAnArrowTurnTwoPagesAndTellNothing) {
    const QSignalSpy chosen(calendar, &ctDate::DblClick);
    const QPoint arrow = calendar->Layout().next().center();
    QTest::mouseClick(calendar, Qt::LeftButton, {}, arrow);
    QMouseEvent second(QEvent::MouseButtonDblClick, arrow, calendar->mapToGlobal(QPointF(arrow)), Qt::LeftButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(calendar, &second);
    EXPECT_EQ(calendar->ShownMonth(), QDate(2026, 5, 1));
    EXPECT_EQ(chosen.count(), 0);
}

TEST_F(DateMouse, TheRightButtonAndAClickBetweenTheDaysDoNothing) {
    const QSignalSpy clicks(calendar, &ctDate::Click);
    QTest::mouseClick(calendar, Qt::RightButton, {}, cell(QDate(2026, 3, 25)).center());
    QTest::mouseClick(calendar, Qt::LeftButton, {}, calendar->Layout().dayName(2).center());
    QTest::mouseDClick(calendar, Qt::RightButton, {}, cell(QDate(2026, 3, 25)).center());
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(calendar->Date(), March11);
}

TEST_F(DateMouse, FromTheRightTheArrowKeysGoTheirWay) {
    calendar->setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(calendar, Qt::Key_Left);
    EXPECT_EQ(calendar->Date(), March11.addDays(1));
    QTest::keyClick(calendar, Qt::Key_Right);
    QTest::keyClick(calendar, Qt::Key_Right);
    EXPECT_EQ(calendar->Date(), March11.addDays(-1));
}

TEST_F(DateMouse, AKeyWithoutAMeaningIsLeftToTheForm) {
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F7, Qt::NoModifier);
    QApplication::sendEvent(calendar, &key);
    EXPECT_FALSE(key.isAccepted());
    EXPECT_EQ(calendar->Date(), March11);
}

TEST_F(DateMouse, WhatIsTypedIsGivenUpByGoingToAnotherFieldAndCanBeBegunAgain) {
    for (int time = 0; time < 2; ++time) {
        calendar->setFocus();
        QTest::keyClicks(calendar, QStringLiteral("4"));
        auto* typed = calendar->findChild<QLineEdit*>(QStringLiteral("txtgoto"));
        ASSERT_NE(typed, nullptr);
        EXPECT_EQ(typed->text(), QStringLiteral("4"));
        EXPECT_EQ(typed->accessibleName(), QStringLiteral("Go to date"));
        next->setFocus(Qt::TabFocusReason);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(calendar->findChild<QLineEdit*>(), nullptr);
        EXPECT_EQ(calendar->Date(), March11);
    }
}

TEST_F(DateMouse, WhatIsTypedStaysWhileAnotherWindowIsInFront) {
    calendar->setFocus();
    QTest::keyClicks(calendar, QStringLiteral("4"));
    auto* typed = calendar->findChild<QLineEdit*>(QStringLiteral("txtgoto"));
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(typed, &away);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(calendar->findChild<QLineEdit*>(QStringLiteral("txtgoto")), typed);
}

TEST_F(DateMouse, TypingOnTakesTheFlagOfWhatWasNoDateAway) {
    calendar->setFocus();
    QTest::keyClicks(calendar, QStringLiteral("9"));
    auto* typed = calendar->findChild<QLineEdit*>(QStringLiteral("txtgoto"));
    QTest::keyClicks(typed, QStringLiteral("9/9"));
    QTest::keyClick(typed, Qt::Key_Enter);
    EXPECT_EQ(typed->accessibleDescription(), QStringLiteral("This is no date. 03/20/2026, today and +2w are dates."));
    QTest::keyClick(typed, Qt::Key_Backspace);
    EXPECT_EQ(typed->accessibleDescription(), QString());
}

TEST_F(DateMouse, TheOrderOfTheDateRulesWhatIsTyped) {
    calendar->SetDateOrder(1);
    calendar->setFocus();
    QTest::keyClicks(calendar, QStringLiteral("4"));
    auto* typed = calendar->findChild<QLineEdit*>(QStringLiteral("txtgoto"));
    QTest::keyClicks(typed, QStringLiteral("/5/2026"));
    QTest::keyClick(typed, Qt::Key_Return);
    EXPECT_EQ(calendar->Date(), QDate(2026, 5, 4));
    EXPECT_TRUE(calendar->hasFocus());
}

TEST_F(DateMouse, AMonthThatIsNoneIsNotShown) {
    calendar->ShowMonth({});
    EXPECT_EQ(calendar->ShownMonth(), QDate(2026, 3, 1));
    calendar->ShowMonth(QDate(1600, 1, 1));
    EXPECT_EQ(calendar->ShownMonth(), QDate(1753, 1, 1));
}

TEST_F(DateMouse, TheFocusIsSeenAtTheSelectedDay) {
    const QImage without = pictureOf(cell(March11));
    calendar->setFocus();
    EXPECT_NE(pictureOf(cell(March11)), without);
}

TEST_F(DateMouse, TheDaysOfTheNeighbouringMonthsArePaler) {
    const auto ink = [this](QDate date) {
        const QImage image = pictureOf(cell(date));
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                darkest = std::min(darkest, qGray(image.pixel(x, y)));
        return darkest;
    };
    EXPECT_GT(ink(QDate(2026, 4, 1)), ink(QDate(2026, 3, 25)) + 40);
    EXPECT_GT(ink(QDate(2026, 3, 28)), ink(QDate(2026, 3, 25)) + 10) << "A Saturday.";
}

TEST_F(DateMouse, TheFirstDayOfTheWeekIsAsTold) {
    calendar->SetFirstDayOfWeek(Qt::Monday);
    EXPECT_EQ(calendar->Grid().dateAt(0, 0), QDate(2026, 2, 23));
    EXPECT_EQ(calendar->Grid().dayOfWeekAt(6), Qt::Sunday);
    QTest::mouseClick(calendar, Qt::LeftButton, {}, calendar->Layout().dayAt(0).center());
    EXPECT_EQ(calendar->Date(), QDate(2026, 2, 23));
}

TEST_F(DateMouse, ItIsReadableInTheDarkToo) {
    Theme::Instance().setMode(ThemeMode::Dark);
    QApplication::processEvents();
    const QImage image = pictureOf(cell(QDate(2026, 3, 25)));
    int lightest = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            lightest = std::max(lightest, qGray(image.pixel(x, y)));
    EXPECT_LT(qGray(image.pixel(0, 0)), 90);
    EXPECT_GT(lightest, 150);
}

TEST_F(DateMouse, ItNeverAsksForLessRoomThanItsFiguresNeed) {
    EXPECT_GE(calendar->sizeHint().width(), calendar->minimumSizeHint().width());
    EXPECT_EQ(calendar->sizeHint().height(), calendar->minimumSizeHint().height());
    EXPECT_GE(calendar->Layout().rowHeight, calendar->fontMetrics().height());
}
