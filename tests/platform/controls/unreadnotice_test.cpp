#include "platform/controls/unreadnotice.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTest>
#include <QTextEdit>

#include "platform/theme/theme.h"

namespace {

/// A page within a host, with a field beside it.
class UnreadPage : public testing::Test {
  protected:
    UnreadPage() {
        Theme::Install(ThemeMode::Light);
        host.resize(600, 400);
        page->setGeometry(50, 40, 400, 300);
        aside->setGeometry(460, 40, 100, 30);
        notice = new UnreadNotice(*page, host);
        host.show();
        QApplication::setActiveWindow(&host);
        page->setFocus();
    }

    void cover(const QString& why = QStringLiteral("The server is gone.")) {
        notice->Cover(why, [this] { ++tried; });
    }
    [[nodiscard]] QPushButton& again() const { return *notice->findChild<QPushButton*>(QStringLiteral("cmdTryAgain")); }
    [[nodiscard]] QString why() const { return notice->findChild<QLabel*>(QStringLiteral("lblWhy"))->text(); }

    QWidget host;
    QTextEdit* page = new QTextEdit(&host);
    QTextEdit* aside = new QTextEdit(&host);
    UnreadNotice* notice = nullptr;
    int tried = 0;
};

}  // namespace

TEST_F(UnreadPage, NothingIsSaidBeforeSomethingCouldNotBeRead) {
    EXPECT_FALSE(notice->isVisible());
    EXPECT_TRUE(page->isEnabled());
    notice->Uncover();
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(UnreadPage, ItStandsOverThePageAndSaysThatItIsNoEmptyDay) {
    cover();
    EXPECT_TRUE(notice->isVisible());
    EXPECT_EQ(notice->geometry(), page->geometry());
    EXPECT_EQ(notice->accessibleName(),
              QStringLiteral("This could not be read. It does not mean that nothing is booked."));
    EXPECT_EQ(why(), QStringLiteral("The server is gone."));
    EXPECT_TRUE(again().accessibleDescription().endsWith(QStringLiteral("The server is gone.")));
}

TEST_F(UnreadPage, TheReasonStandsInOneLineAsText) {
    cover(QStringLiteral("  <b>gone</b>\n\tfor good "));
    EXPECT_EQ(why(), QStringLiteral("<b>gone</b> for good"));
    EXPECT_EQ(notice->findChild<QLabel*>(QStringLiteral("lblWhy"))->textFormat(), Qt::PlainText);
}

TEST_F(UnreadPage, WhatIsCoveredTakesNeitherMouseNorKeys) {
    cover();
    EXPECT_FALSE(page->isEnabled());
    EXPECT_EQ(host.childAt(page->geometry().center())->window(), &host);
    EXPECT_TRUE(notice->isAncestorOf(host.childAt(page->geometry().center())) ||
                host.childAt(page->geometry().center()) == notice);
    notice->Uncover();
    EXPECT_TRUE(page->isEnabled());
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(UnreadPage, TheFocusOfThePageGoesToTryAgainAndComesBack) {
    cover();
    EXPECT_TRUE(again().hasFocus());
    notice->Uncover();
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(UnreadPage, AFocusElsewhereStaysThere) {
    aside->setFocus();
    cover();
    EXPECT_TRUE(aside->hasFocus());
    notice->Uncover();
    EXPECT_TRUE(aside->hasFocus());
}

TEST_F(UnreadPage, AUserWhoWentToTryAgainIsLedToThePage) {
    aside->setFocus();
    cover();
    again().setFocus();
    notice->Uncover();
    EXPECT_TRUE(page->hasFocus());
}

TEST_F(UnreadPage, TryAgainTriesWhenTheClickIsOverEachTime) {
    cover();
    for (int round = 1; round <= 2; ++round) {
        again().click();
        EXPECT_EQ(tried, round - 1) << "Still within the click.";
        QApplication::processEvents();
        EXPECT_EQ(tried, round);
    }
    QTest::keyClick(&again(), Qt::Key_Space);
    QApplication::processEvents();
    EXPECT_EQ(tried, 3);
}

TEST_F(UnreadPage, ATryThatThePageForestalledIsNotMade) {
    cover();
    again().click();
    notice->Uncover();
    QApplication::processEvents();
    EXPECT_EQ(tried, 0);
}

TEST_F(UnreadPage, ATryMayCoverThePageAnewWithAnotherReason) {
    notice->Cover(QStringLiteral("one"), [this] {
        ++tried;
        cover(QStringLiteral("two"));
    });
    again().click();
    QApplication::processEvents();
    EXPECT_EQ(tried, 1);
    EXPECT_EQ(why(), QStringLiteral("two"));
    EXPECT_TRUE(again().hasFocus());
}

TEST_F(UnreadPage, ItFollowsThePageInPlaceAndSize) {
    cover();
    page->setGeometry(10, 20, 300, 200);
    EXPECT_EQ(notice->geometry(), QRect(10, 20, 300, 200));
}

TEST_F(UnreadPage, ItHidesWithThePageAndComesWithIt) {
    cover();
    page->hide();
    EXPECT_FALSE(notice->isVisible());
    page->show();
    EXPECT_TRUE(notice->isVisible());
    notice->Uncover();
    page->hide();
    page->show();
    EXPECT_FALSE(notice->isVisible());
}

TEST_F(UnreadPage, APageBehindAnotherWidgetKeepsItsNoticeInFront) {
    auto* curtain = new QWidget(&host);
    curtain->setGeometry(host.rect());
    curtain->show();
    cover();
    EXPECT_TRUE(notice->isAncestorOf(host.childAt(page->geometry().center())) ||
                host.childAt(page->geometry().center()) == notice);
}

TEST(UnreadPageInASplitter, IsCoveredAtItsPlaceInTheHost) {
    QWidget host;
    host.resize(600, 400);
    auto* splitter = new QSplitter(&host);
    splitter->resize(600, 400);
    splitter->addWidget(new QWidget);
    auto* page = new QTextEdit;
    splitter->addWidget(page);
    UnreadNotice notice(*page, host);
    host.show();
    notice.Cover(QStringLiteral("gone"), [] {});
    EXPECT_EQ(notice.geometry(), QRect(page->mapTo(&host, QPoint()), page->size()));
    splitter->setSizes({400, 200});
    EXPECT_EQ(notice.geometry(), QRect(page->mapTo(&host, QPoint()), page->size()));
    EXPECT_EQ(splitter->count(), 2);
}

TEST(UnreadPageColours, TheNoticeHidesWhatItCoversInBothThemes) {
    Theme::Install(ThemeMode::Light);
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        Theme::Instance().setMode(mode);
        QWidget host;
        host.resize(300, 200);
        QWidget page(&host);
        page.setAutoFillBackground(true);
        page.setPalette(QPalette(Qt::magenta));
        page.resize(300, 200);
        UnreadNotice notice(page, host);
        host.show();
        notice.Cover(QStringLiteral("gone"), [] {});
        EXPECT_EQ(host.grab().toImage().pixelColor(3, 3), notice.palette().color(QPalette::Window));
    }
    Theme::Instance().setMode(ThemeMode::Light);
}
