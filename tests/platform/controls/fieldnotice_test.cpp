#include "platform/controls/fieldnotice.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

namespace {

/// A field in the middle of a window, another below it, and what is said of the first.
class FieldNoticeTest : public testing::Test {
  protected:
    FieldNoticeTest() {
        window.resize(400, 300);
        field->setGeometry(100, 100, 200, 30);
        other->setGeometry(100, 200, 200, 30);
        window.show();
        QApplication::setActiveWindow(&window);
        field->setFocus();
    }

    [[nodiscard]] QLabel* line() const { return window.findChild<QLabel*>(QStringLiteral("lblkept")); }

    QWidget window;
    QLineEdit* field = new QLineEdit(&window);
    QLineEdit* other = new QLineEdit(&window);
    FieldNotice* notice = new FieldNotice(*field);
};

}  // namespace

TEST_F(FieldNoticeTest, NothingStandsThereUntilSomethingIsSaid) {
    EXPECT_EQ(line(), nullptr);
    EXPECT_EQ(notice->Text(), QString());
}

TEST_F(FieldNoticeTest, TheLineStandsRightBelowTheFieldAndTakesNoClick) {
    notice->Say(QStringLiteral("Kept 5 characters."));
    ASSERT_NE(line(), nullptr);
    EXPECT_TRUE(line()->isVisible());
    EXPECT_EQ(line()->text(), QStringLiteral("Kept 5 characters."));
    EXPECT_EQ(line()->pos(), QPoint(100, 130));
    EXPECT_TRUE(line()->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(line()->focusPolicy(), Qt::NoFocus);
}

TEST_F(FieldNoticeTest, AnotherTextTakesThePlaceOfTheFirstInTheSameLine) {
    notice->Say(QStringLiteral("one"));
    notice->Say(QStringLiteral("two, and longer"));
    EXPECT_EQ(window.findChildren<QLabel*>().size(), 1);
    EXPECT_EQ(notice->Text(), QStringLiteral("two, and longer"));
    EXPECT_GE(line()->width(), line()->fontMetrics().horizontalAdvance(notice->Text()));
}

TEST_F(FieldNoticeTest, MarkupIsShownAsItStands) {
    notice->Say(QStringLiteral("<b>5</b> & more"));
    EXPECT_EQ(line()->textFormat(), Qt::PlainText);
    EXPECT_EQ(line()->accessibleName(), QStringLiteral("<b>5</b> & more"));
}

TEST_F(FieldNoticeTest, NothingTakesItAwayAndItComesAgain) {
    for (int round = 0; round < 2; ++round) {
        notice->Say(QStringLiteral("said"));
        EXPECT_NE(line(), nullptr) << round;
        notice->Say({});
        EXPECT_EQ(line(), nullptr) << round;
        EXPECT_EQ(notice->Text(), QString()) << round;
    }
    notice->Say({});
    EXPECT_EQ(line(), nullptr);
}

TEST_F(FieldNoticeTest, LeavingTheFieldTakesItAway) {
    notice->Say(QStringLiteral("said"));
    other->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(line(), nullptr);
    EXPECT_EQ(notice->Text(), QString());
}

TEST_F(FieldNoticeTest, HidingTheFieldTakesItAwayAndAHiddenFieldSaysNothing) {
    notice->Say(QStringLiteral("said"));
    field->hide();
    EXPECT_EQ(line(), nullptr);
    notice->Say(QStringLiteral("said again"));
    EXPECT_EQ(line(), nullptr);
}

TEST_F(FieldNoticeTest, TheLineFollowsTheField) {
    notice->Say(QStringLiteral("said"));
    field->move(50, 40);
    EXPECT_EQ(line()->pos(), QPoint(50, 70));
    field->resize(200, 50);
    EXPECT_EQ(line()->pos(), QPoint(50, 90));
}

TEST_F(FieldNoticeTest, AtTheFootOfTheWindowTheLineStandsAboveTheField) {
    field->move(100, 269);
    notice->Say(QStringLiteral("said"));
    EXPECT_EQ(line()->geometry().bottom() + 1, 269);
    EXPECT_TRUE(window.rect().contains(line()->geometry()));
}

TEST_F(FieldNoticeTest, ALongLineStaysWithinTheWindow) {
    field->move(350, 100);
    notice->Say(QStringLiteral("Kept 255 characters; more"));
    EXPECT_LE(line()->geometry().right(), window.width());
    EXPECT_GE(line()->x(), 0);
    notice->Say(QStringLiteral("Kept 255 characters; more does not fit here. ").repeated(5));
    EXPECT_EQ(line()->x(), 0) << "The beginning is seen.";
}

TEST_F(FieldNoticeTest, AFieldDeepInTheFormHasItsLineAtItsPlaceInTheWindow) {
    auto* box = new QWidget(&window);
    box->setGeometry(20, 50, 300, 100);
    auto* inner = new QLineEdit(box);
    inner->setGeometry(10, 10, 100, 30);
    box->show();
    FieldNotice deep(*inner);
    deep.Say(QStringLiteral("said"));
    ASSERT_NE(line(), nullptr);
    EXPECT_EQ(line()->pos(), QPoint(30, 90));
}

TEST_F(FieldNoticeTest, TheLineGoesWithTheField) {
    notice->Say(QStringLiteral("said"));
    delete field;
    EXPECT_EQ(line(), nullptr);
}

TEST(KeptTextTest, TellsHowManyCharactersStayed) {
    EXPECT_EQ(KeptText(40), QStringLiteral("Kept 40 characters; more does not fit here."));
}
