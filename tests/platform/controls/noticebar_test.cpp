#include "platform/controls/noticebar.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "platform/theme/theme.h"

namespace {

/// A window with the bar over a field that stands for the view.
class NoticeBarTest : public testing::Test {
  protected:
    NoticeBarTest() {
        auto* column = new QVBoxLayout(&window);
        bar = new NoticeBar(&window);
        view = new QLineEdit(&window);
        column->addWidget(bar);
        column->addWidget(view, 1);
        window.resize(700, 300);
        window.show();
        window.activateWindow();
        view->setFocus();
    }

    static Notice notice(const char* text) { return {QString::fromLatin1(text)}; }
    Notice offering(const char* text, const char* action) {
        Notice offered = notice(text);
        offered.actions.push_back({QString::fromLatin1(action), [this] { ++taken; }});
        return offered;
    }
    QList<QWidget*> rows() const {
        QList<QWidget*> rows = bar->findChildren<QWidget*>(QStringLiteral("notice"));
        std::sort(rows.begin(), rows.end(), [](QWidget* a, QWidget* b) { return a->y() < b->y(); });
        return rows;
    }
    static QPushButton* buttonOf(QWidget* row) { return row->findChild<QPushButton*>(); }
    static QToolButton* crossOf(QWidget* row) { return row->findChild<QToolButton*>(); }
    static QLabel* labelOf(QWidget* row) { return row->findChild<QLabel*>(); }
    static void layOut() { QApplication::processEvents(); }

    QWidget window;
    NoticeBar* bar = nullptr;
    QLineEdit* view = nullptr;
    int taken = 0;
};

}  // namespace

TEST_F(NoticeBarTest, TheBarIsNotThereUntilItHasSomethingToTell) {
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(bar->FocusTarget(), nullptr);
    ShowNotice(notice("The database is locked."));
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->Texts(), QStringList(QStringLiteral("The database is locked.")));
    QTest::mouseClick(crossOf(rows().front()), Qt::LeftButton);
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(NoticeBarTest, TheNewestStandsOnTopAndThreeAreSeen) {
    for (const char* text : {"one", "two", "three", "four", "five"})
        ShowNotice(notice(text));
    layOut();
    ASSERT_EQ(rows().size(), 3);
    EXPECT_EQ(labelOf(rows()[0])->text(), QStringLiteral("five"));
    EXPECT_EQ(labelOf(rows()[2])->text(), QStringLiteral("three"));
    EXPECT_EQ(bar->findChild<QLabel*>(QStringLiteral("moreNotices"))->text(), QStringLiteral("2 more"));
    crossOf(rows()[0])->click();
    layOut();
    ASSERT_EQ(rows().size(), 3);
    EXPECT_EQ(labelOf(rows()[2])->text(), QStringLiteral("two"));
}

TEST_F(NoticeBarTest, ANoticeTakesThePlaceOfAnOlderOneOfItsSubject) {
    Notice first = notice("first try");
    first.subject = QStringLiteral("read");
    Notice second = notice("second try");
    second.subject = QStringLiteral("read");
    ShowNotice(first);
    ShowNotice(notice("another"));
    ShowNotice(second);
    EXPECT_EQ(bar->Texts(), (QStringList{QStringLiteral("second try"), QStringLiteral("another")}));
    EXPECT_TRUE(NoticeStands(QStringLiteral("read")));
    DropNotice(QStringLiteral("read"));
    EXPECT_FALSE(NoticeStands(QStringLiteral("read")));
    EXPECT_EQ(bar->Texts(), QStringList(QStringLiteral("another")));
}

TEST_F(NoticeBarTest, AnActionRunsOnceAfterItsNoticeHasGone) {
    Notice asked = notice("Not saved.");
    int standing = -1;
    asked.actions.push_back({QStringLiteral("Open again"), [&] {
                                 ++taken;
                                 standing = static_cast<int>(bar->Texts().size());
                             }});
    ShowNotice(asked);
    QTest::mouseClick(buttonOf(rows().front()), Qt::LeftButton);
    layOut();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(standing, 0);
}

TEST_F(NoticeBarTest, ClosingTellsWhoeverKeepsSomethingForTheNotice) {
    int dismissed = 0;
    Notice kept = offering("Not saved.", "Open again");
    kept.dismissed = [&] { ++dismissed; };
    ShowNotice(kept);
    buttonOf(rows().front())->click();
    layOut();
    EXPECT_EQ(dismissed, 0);
    ShowNotice(kept);
    crossOf(rows().front())->click();
    EXPECT_EQ(dismissed, 1);
}

TEST_F(NoticeBarTest, ANoticeThatHoldsTypedWorkIsClosedOnlyWhereItAgrees) {
    bool agrees = false;
    Notice holding = offering("Not saved.", "Open again");
    holding.mayClose = [&] { return agrees; };
    ShowNotice(holding);
    EXPECT_FALSE(bar->MayLeave());
    crossOf(rows().front())->click();
    EXPECT_EQ(bar->Texts().size(), 1);
    agrees = true;
    EXPECT_TRUE(bar->MayLeave());
    crossOf(rows().front())->click();
    EXPECT_EQ(bar->Texts().size(), 0);
}

TEST_F(NoticeBarTest, AllOfItWorksByKeyboard) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ShowNotice(offering("Not saved.", "Open again"));
    ShowNotice(notice("Another"));
    QSignalSpy givenBack(bar, &NoticeBar::FocusGivenBack);
    bar->FocusTarget()->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(bar->Texts(), QStringList(QStringLiteral("Not saved.")));
    EXPECT_EQ(QApplication::focusWidget(), bar->FocusTarget());
    EXPECT_EQ(givenBack.count(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    layOut();
    EXPECT_EQ(taken, 1);
    EXPECT_EQ(givenBack.count(), 1);
}

TEST_F(NoticeBarTest, ANewNoticeLeavesTheFocusWhereItIs) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ShowNotice(notice("From elsewhere"));
    EXPECT_TRUE(view->hasFocus());
    ShowNotice(offering("Not saved.", "Open again"));
    QWidget* button = bar->FocusTarget();
    button->setFocus();
    ShowNotice(notice("Once more"));
    EXPECT_EQ(QApplication::focusWidget(), button);
}

TEST_F(NoticeBarTest, ALongTextIsCutToItsLineAndStandsWholeInTheTip) {
    const QString text = QStringLiteral("Not saved\nas <b>told</b> ") + QStringLiteral("word ").repeated(80);
    ShowNotice({text});
    layOut();
    EXPECT_EQ(bar->Texts().front(), text.simplified());
    QWidget* row = rows().front();
    EXPECT_TRUE(labelOf(row)->text().endsWith(QChar(0x2026)));
    EXPECT_EQ(row->height(), [&] {
        ShowNotice(notice("short"));
        layOut();
        return rows().front()->height();
    }());
    EXPECT_TRUE(row->toolTip().contains(QStringLiteral("&lt;b&gt;told"))) << row->toolTip().toStdString();
    EXPECT_EQ(row->accessibleName(), text.simplified());
    EXPECT_EQ(rows().front()->toolTip(), QString());
    EXPECT_LE(window.width(), 700);
}

TEST_F(NoticeBarTest, WhatIsUnderThePointerDoesNotMoveWhileAButtonIsDown) {
    layOut();
    const int before = view->y();
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, QPoint(20, 200));
    ShowNotice(notice("In the middle of a drag"));
    layOut();
    EXPECT_EQ(view->y(), before);
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, QPoint(20, 200));
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar->isVisible(); }));
    layOut();
    EXPECT_GT(view->y(), before);
}

TEST_F(NoticeBarTest, AScreenReaderMeetsAnAlertWithTheText) {
    ShowNotice(notice("The database is locked."));
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(rows().front());
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->role(), QAccessible::AlertMessage);
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("The database is locked."));
}

TEST_F(NoticeBarTest, AmongVeryManyTheOldestWithoutAnActionGoes) {
    ShowNotice(offering("kept", "Open again"));
    for (std::size_t at = 0; at < NoticeBar::Kept; ++at)
        ShowNotice({QString::number(at)});
    EXPECT_EQ(bar->Texts().size(), static_cast<qsizetype>(NoticeBar::Kept));
    EXPECT_EQ(bar->Texts().last(), QStringLiteral("kept"));
    EXPECT_FALSE(bar->Texts().contains(QStringLiteral("0")));
}

TEST_F(NoticeBarTest, WithoutABarNothingIsShownAndNothingBreaks) {
    delete bar;
    ShowNotice(notice("nobody sees it"));
    DropNotice(QStringLiteral("read"));
    EXPECT_FALSE(NoticeStands(QStringLiteral("read")));
}

TEST(NoticeBarColourTest, ThePictureIsSeenInBothThemes) {
    for (const ThemeMode mode : {ThemeMode::Light, ThemeMode::Dark}) {
        const ThemeColours& colours = ColoursOf(mode);
        for (const QColor& picture : {colours.accent, colours.caution, colours.danger})
            EXPECT_GE(Contrast(picture, colours.base), 3.0);
    }
}
