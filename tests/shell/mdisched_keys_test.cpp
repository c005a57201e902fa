#include "shell/mdisched.h"

#include <algorithm>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "platform/controls/noticebar.h"
#include "tests/shell/mainwindowfixture.h"
#include "tests/support/testdatabase.h"

namespace {

const QDate Wednesday(2026, 3, 11);

/// What is reached by keys, in which order, and what the bar of notices offers.
class MainWindowKeys : public MainWindowFixture {};

}  // namespace

TEST_F(MainWindowKeys, EveryViewAndCommandHasItsKey) {
    Session().FHDatabaseId = QStringLiteral("FH1");
    start();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(Session().CurrentView, View::Week);
    QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(Session().CurrentView, View::Day);
    QTest::keyClick(window.get(), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(window->Date(), Wednesday.addDays(1));
    QTest::keyClick(window.get(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(window->Date(), Wednesday);
    QTest::keyClick(window.get(), Qt::Key_H, Qt::ControlModifier);
    EXPECT_TRUE(Session().HidePatientNames);
    QTest::keyClick(window.get(), Qt::Key_F9);
    EXPECT_FALSE(window->TaskPaneShown());
    window->SetDate(Wednesday.addDays(9));
    QTest::keyClick(window.get(), Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(window->Date(), Wednesday);
    events();
    QTest::keyClick(window.get(), Qt::Key_F5);
    EXPECT_EQ(events(), QStringList{QStringLiteral("reload 1")});
}

TEST_F(MainWindowKeys, AMenuItemOnOneOfTheWindowsKeysTakesItOver) {
    log.menuKey = QStringLiteral("Ctrl+N");
    start();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(Session().CurrentView, View::Week);
    EXPECT_FALSE(log.events.contains(QStringLiteral("add 1")));
}

TEST_F(MainWindowKeys, F6GoesRoundThePanes) {
    start();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->ShownView()->setFocus();
    QTest::keyClick(window.get(), Qt::Key_F6);
    EXPECT_TRUE(button("pnlsched").hasFocus());
    QTest::keyClick(window.get(), Qt::Key_F6);
    EXPECT_TRUE(button("cmdtoday").hasFocus());
    QTest::keyClick(window.get(), Qt::Key_F6);
    EXPECT_TRUE(calendar().hasFocus());
    QTest::keyClick(window.get(), Qt::Key_F6);
    EXPECT_TRUE(window->ShownView()->hasFocus());
    QTest::keyClick(window.get(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(calendar().hasFocus());
}

TEST_F(MainWindowKeys, ANoticeStandsBetweenTitleAndViewAndStaysWhenTheViewIsChanged) {
    start();
    const int before = window->ShownView()->mapTo(window.get(), QPoint(0, 0)).y();
    ShowNotice({QStringLiteral("The database is locked.")});
    QApplication::processEvents();
    auto& bar = the<NoticeBar>("noticebar");
    EXPECT_GE(bar.mapTo(window.get(), QPoint(0, 0)).y(), the<QLabel>("pnltitle").mapTo(window.get(), QPoint(0, 0)).y());
    EXPECT_EQ(window->ShownView()->mapTo(window.get(), QPoint(0, 0)).y(), before + bar.height());
    window->changeview(View::Week);
    EXPECT_TRUE(bar.isVisible());
}

TEST_F(MainWindowKeys, AReplacedDatabaseIsOpenedAgainFromTheBarAndTheViewReadAnew) {
    TestDatabase database;
    if (database.isOnServer())
        GTEST_SKIP() << "A server's database has no file here.";
    start();
    Session().Connection.Open(database.connectionText());
    const auto passedOver = [] { return !db::Ignoring([] { Session().Connection.Execute("Delete from todo"); }); };
    const auto openAgain = [this] {
        the<NoticeBar>("noticebar").FocusTarget()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QApplication::processEvents();
    };
    ASSERT_TRUE(QFile::rename(database.file(), database.file() + ".away"));
    EXPECT_TRUE(passedOver());
    EXPECT_EQ(
        the<NoticeBar>("noticebar").Texts(),
        QStringList{
            "The file of the database \"test\" was moved, deleted or replaced while it was open. Nothing is saved until it is opened again."});

    QApplication::processEvents();
    events();
    openAgain();
    EXPECT_EQ(the<NoticeBar>("noticebar").Texts(),
              QStringList{"Cannot open database \"test\" requested by the login. The login failed."});
    EXPECT_TRUE(passedOver());

    ASSERT_TRUE(QFile::rename(database.file() + ".away", database.file()));
    EXPECT_TRUE(passedOver());
    QApplication::processEvents();
    events();
    openAgain();
    EXPECT_TRUE(the<NoticeBar>("noticebar").Texts().isEmpty());
    EXPECT_EQ(events(), QStringList{"reload 1"});
    EXPECT_FALSE(passedOver());
}

TEST_F(MainWindowKeys, AProgramThatHoldsWhatCouldNotBeSavedAsksBeforeItEnds) {
    start();
    bool mayGo = false;
    Notice notice;
    notice.text = QStringLiteral("Not saved: appointment");
    notice.mayClose = [&] { return mayGo; };
    ShowNotice(notice);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    mayGo = true;
    EXPECT_TRUE(window->close());
}

TEST_F(MainWindowKeys, F6ReachesTheNoticesAndEscapeGivesTheFocusBackToTheView) {
    start();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    ShowNotice({QStringLiteral("The database is locked.")});
    window->ShownView()->setFocus();
    QTest::keyClick(window.get(), Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(the<NoticeBar>("noticebar").isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(window->ShownView()->hasFocus());
}

TEST_F(MainWindowKeys, TabGoesWhereTheEyeGoes) {
    start();
    window->changeview(View::Week);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const std::vector<QWidget*> order{&button("cmdtoday"), &button("cmdday"),
                                      &calendar(),         pane().Item(QStringLiteral("DAY")),
                                      window->ShownView(), &button("pnlsched")};
    std::vector<QWidget*> found;
    QWidget* const first = order.front();
    QWidget* next = first;
    do {
        if (std::find(order.begin(), order.end(), next) != order.end())
            found.push_back(next);
        next = next->nextInFocusChain();
    } while (next != first);
    EXPECT_EQ(found, order);
}
